#include "ui/RestoreDialog.h"

#include "ui/PlaylistCopy.h"
#include "ui/WrappedLabel.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestWidth = 480;

/// The sources that restoring adds or changes.
QList<SourceConfig> restoredSources(const RestorePlan &plan, const LibraryBackup::Content &current)
{
    QList<SourceConfig> restored;
    std::copy_if(
        plan.sources.cbegin(), plan.sources.cend(), std::back_inserter(restored),
        [&current](const SourceConfig &source) { return !current.sources.contains(source); });
    return restored;
}

/// The names of the sources for which `holds`, as a list in a sentence.
template <typename Predicate>
QString namesOf(const QList<SourceConfig> &sources, Predicate holds)
{
    QStringList names;
    for (const SourceConfig &source : sources) {
        if (holds(source)) {
            names << source.name;
        }
    }
    return names.join(", "_L1);
}

} // namespace

RestoreDialog::RestoreDialog(const LibraryBackup::Content &currentContent,
                             const LibraryBackup::Content &backupContent, QWidget *parent)
    : QDialog(parent)
    , current(currentContent)
    , backup(backupContent)
    , replace(new QRadioButton(tr("Replace: only what the backup holds stays")))
    , notes(new WrappedLabel)
{
    setWindowTitle(tr("Restore"));
    setMinimumWidth(smallestWidth);
    replace->setObjectName(u"replaceButton"_s);
    notes->setObjectName(u"restoreNotes"_s);
    auto *merge = new QRadioButton(tr("Merge: add what is missing"));
    merge->setObjectName(u"mergeButton"_s);
    merge->setChecked(true);
    connect(replace, &QRadioButton::toggled, this, &RestoreDialog::showPlan);

    auto *form = new QFormLayout;
    for (const QString &part : {tr("Sources:"), tr("Favorites:"), tr("Recently watched:"),
                                tr("Positions and watched marks:"), tr("Hidden categories:")}) {
        auto *count = new QLabel;
        count->setTextFormat(Qt::PlainText);
        counts.append(count);
        form->addRow(part, count);
    }
    auto *buttons = new QDialogButtonBox;
    restore = buttons->addButton(tr("Restore"), QDialogButtonBox::AcceptRole);
    // Added last: Tab would not reach it otherwise.
    buttons->addButton(QDialogButtonBox::Cancel);
    restore->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(merge);
    layout->addWidget(replace);
    layout->addLayout(form);
    layout->addWidget(notes);
    layout->addStretch();
    layout->addWidget(buttons);
    showPlan();
}

RestoreMode RestoreDialog::mode() const
{
    return replace->isChecked() ? RestoreMode::Replace : RestoreMode::Merge;
}

void RestoreDialog::showPlan()
{
    const RestorePlan plan = planRestore(current, backup, mode());
    const QLocale locale;
    const QList<RestoreCounts> planned{plan.sourceCounts, plan.favoriteCounts, plan.historyCounts,
                                       plan.progressCounts, plan.hiddenCategoryCounts};
    for (qsizetype part = 0; part < planned.size(); ++part) {
        const RestoreCounts &count = planned.at(part);
        counts.at(part)->setText(count == RestoreCounts()
                                     ? tr("no change")
                                     : tr("%1 added, %2 changed, %3 removed")
                                           .arg(locale.toString(count.added),
                                                locale.toString(count.changed),
                                                locale.toString(count.removed)));
    }
    restore->setEnabled(planned.count(RestoreCounts()) < planned.size());

    const QList<SourceConfig> restored = restoredSources(plan, current);
    const QString withoutCredentials = namesOf(restored, LibraryBackup::lacksCredentials);
    const QString withoutFile = namesOf(restored, lacksPlaylistFile);
    QStringList texts;
    if (!withoutCredentials.isEmpty()) {
        texts << tr("The backup has no passwords and keys. Enter them afterwards with \"Edit "
                    "Source...\" for: %1")
                     .arg(withoutCredentials);
    }
    if (!withoutFile.isEmpty()) {
        texts << tr("The backup has no playlist files. Choose them afterwards with \"Edit "
                    "Source...\" for: %1")
                     .arg(withoutFile);
    }
    notes->setText(texts.join(u'\n'));
    notes->setVisible(!texts.isEmpty());
}
