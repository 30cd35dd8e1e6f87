#pragma once

#include <QDialog>

class QLineEdit;

/// Asks for the address of a stream, a film or a playlist. Is accepted only with one that can be
/// opened; tells why another cannot.
class OpenLocationDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit OpenLocationDialog(QWidget *parent);

    /// An absolute path or a URL; for openTarget().
    QString address() const;
    void accept() override;

private:
    QLineEdit *addressEdit;
};
