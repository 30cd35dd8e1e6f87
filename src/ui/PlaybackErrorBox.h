#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

/// The box that reports a failed stream; one is open at a time.
class PlaybackErrorBox final
{
    Q_DECLARE_TR_FUNCTIONS(PlaybackErrorBox)

public:
    /// Shows `message` over `parent`, with Retry if `canRetry`, and waits until it is closed. True
    /// when the user chose Retry. While a box is open, another message is dropped.
    bool asksToRetry(QWidget *parent, const QString &message, bool canRetry);

private:
    bool errorDialogOpen = false;
};
