#pragma once

#include <QLabel>

class QTimer;

/// A line over the picture that says for two seconds what happened.
///
/// A native child of the panel, so that it stacks above the picture that libVLC draws.
class PictureLine final : public QLabel
{
    Q_OBJECT

public:
    /// Shows over `surface`, a child of `panel`.
    PictureLine(QWidget *surface, QWidget *panel);

    /// Replaces what shows.
    void tell(const QString &text);

private:
    QWidget *surface;
    QTimer *hideTimer;
};
