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
#include <utility>

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

/// The sources that get the address of a guide without its credentials.
QString guidesWithoutCredentials(const RestorePlan &plan)
{
    QStringList names;
    for (const GuideSettings &settings : plan.change.put.guideSettings) {
        if (settings.addresses.contains("***"_L1)) {
            names << settings.source;
        }
    }
    names.sort();
    return names.join(", "_L1);
}

} // namespace

RestoreDialog::RestoreDialog(LibraryBackup::Content currentContent,
                             LibraryBackup::Content backupContent, QWidget *parent)
    : QDialog(parent)
    , current(std::move(currentContent))
    , backup(std::move(backupContent))
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
    const auto addPart = [this, form](const QString &name, RestoreCounts RestorePlan::*counts) {
        auto *label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        parts.append({counts, label});
        form->addRow(name, label);
    };
    addPart(tr("Sources:"), &RestorePlan::sourceCounts);
    addPart(tr("Favorites:"), &RestorePlan::favoriteCounts);
    addPart(tr("Recently watched:"), &RestorePlan::historyCounts);
    addPart(tr("Positions and watched marks:"), &RestorePlan::progressCounts);
    addPart(tr("Hidden categories:"), &RestorePlan::hiddenCategoryCounts);
    // Who uses no guide reads nothing of it.
    if (hasRows(&LibraryRows::guideSettings)) {
        addPart(tr("Settings of programme guides:"), &RestorePlan::guideSettingsCounts);
    }
    if (hasRows(&LibraryRows::guideCorrections)) {
        addPart(tr("Guide channels that were set by hand:"), &RestorePlan::guideCorrectionCounts);
    }
    if (hasRows(&LibraryRows::reminders)) {
        addPart(tr("Reminders:"), &RestorePlan::reminderCounts);
    }
    if (hasRows(&LibraryRows::languages)) {
        addPart(tr("Preferred languages:"), &RestorePlan::languageCounts);
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

template <typename Row>
bool RestoreDialog::hasRows(QList<Row> LibraryRows::*rows) const
{
    return !(current.rows.*rows).isEmpty() || !(backup.rows.*rows).isEmpty();
}

void RestoreDialog::showPlan()
{
    const RestorePlan plan = planRestore(current, backup, mode());
    const QLocale locale;
    bool hasChanges = false;
    for (const Part &part : std::as_const(parts)) {
        const RestoreCounts &count = plan.*part.counts;
        hasChanges = hasChanges || count != RestoreCounts();
        part.label->setText(count == RestoreCounts() ? tr("no change")
                                                     : tr("%1 added, %2 changed, %3 removed")
                                                           .arg(locale.toString(count.added),
                                                                locale.toString(count.changed),
                                                                locale.toString(count.removed)));
    }
    restore->setEnabled(hasChanges);
    const QString text = notesOf(plan);
    notes->setText(text);
    notes->setVisible(!text.isEmpty());
}

/// What the user must do afterwards.
QString RestoreDialog::notesOf(const RestorePlan &plan) const
{
    const QList<SourceConfig> restored = restoredSources(plan, current);
    const QString withoutCredentials = namesOf(restored, LibraryBackup::lacksCredentials);
    const QString withoutFile = namesOf(restored, lacksPlaylistFile);
    const QString withoutGuide = guidesWithoutCredentials(plan);
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
    if (!withoutGuide.isEmpty()) {
        texts << tr("The backup has no passwords in addresses of guides. Enter them afterwards "
                    "with \"Programme Guide...\" for: %1")
                     .arg(withoutGuide);
    }
    return texts.join(u'\n');
}
