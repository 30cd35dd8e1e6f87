#pragma once

#include "library/LibraryRecords.h"

#include <QDialog>
#include <QList>

class QCheckBox;

/// Asks which parts of the history go.
class ClearHistoryDialog final : public QDialog
{
    Q_OBJECT

public:
    /// Only what there is in `rows` can be chosen, and all of it is at first.
    ClearHistoryDialog(const LibraryRows &rows, QWidget *parent);

    /// What the user has chosen.
    QList<LibraryPart> parts() const;

private:
    QCheckBox *watched;
    QCheckBox *progress;
};
