#include "ui/PlaybackErrorBox.h"

#include "ui/PlainMessageBox.h"

#include <QPushButton>
#include <QScopedValueRollback>

bool PlaybackErrorBox::asksToRetry(QWidget *parent, const QString &message, bool canRetry)
{
    if (errorDialogOpen) {
        return false;
    }
    const QScopedValueRollback<bool> open(errorDialogOpen, true);
    PlainMessageBox box(QMessageBox::Warning, tr("Playback Error"), message, QMessageBox::Close,
                        parent);
    const QPushButton *retry =
        canRetry ? box.addButton(tr("Retry"), QMessageBox::ActionRole) : nullptr;
    box.exec();
    return retry != nullptr && box.clickedButton() == retry;
}
