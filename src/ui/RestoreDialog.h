#pragma once

#include "library/LibraryBackup.h"
#include "library/RestorePlan.h"

#include <QDialog>
#include <QList>

class WrappedLabel;

class QLabel;
class QPushButton;
class QRadioButton;

/// Shows what restoring a backup will do, and asks whether it is merged or replaces what is there.
class RestoreDialog final : public QDialog
{
    Q_OBJECT

public:
    RestoreDialog(const LibraryBackup::Content &current, const LibraryBackup::Content &backup,
                  QWidget *parent);

    /// What the user has chosen.
    RestoreMode mode() const;

private:
    void showPlan();

    const LibraryBackup::Content current;
    const LibraryBackup::Content backup;
    QRadioButton *replace;
    QList<QLabel *> counts; ///< one for each part
    WrappedLabel *notes;
    QPushButton *restore;
};
