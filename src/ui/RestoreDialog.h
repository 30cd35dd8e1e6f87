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
    RestoreDialog(LibraryBackup::Content current, LibraryBackup::Content backup, QWidget *parent);

    /// What the user has chosen.
    RestoreMode mode() const;

private:
    /// A part of the backup, and the label that tells what becomes of it.
    struct Part
    {
        RestoreCounts RestorePlan::*counts;
        QLabel *label;
    };

    /// Whether there are rows here or in the backup.
    template <typename Row>
    bool hasRows(QList<Row> LibraryRows::*rows) const;
    void showPlan();
    QString notesOf(const RestorePlan &plan) const;

    const LibraryBackup::Content current;
    const LibraryBackup::Content backup;
    QRadioButton *replace;
    QList<Part> parts;
    WrappedLabel *notes;
    QPushButton *restore;
};
