#pragma once

#include "model/SourceConfig.h"

#include <QDialog>

class QLineEdit;
class WrappedLabel;

/// What a few sources need beside their address: the user agent. It stores nothing itself: the
/// caller reads source() after acceptance. What must not be sent is not accepted, and told.
class SourceOptionsDialog final : public QDialog
{
    Q_OBJECT

public:
    SourceOptionsDialog(const SourceConfig &source, QWidget *parent);

    /// The source with what the form shows.
    SourceConfig source() const;

    void accept() override;

private:
    const SourceConfig initial;
    QLineEdit *userAgentEdit;
    WrappedLabel *problem;
};
