#include "library/Library.h"

#include <algorithm>
#include <tuple>

// The parts of Library that concern programme guides and languages.

/// Puts a row unless it is there like that.
template <typename Row>
LibraryChange Library::putChanged(const Row &row, QList<Row> LibraryRows::*rows)
{
    waitUntilLoaded();
    const LibraryList<Row> &list = known().list<Row>({row.source, row.kind});
    const auto found = list.constFind(row.id);
    if (found != list.constEnd() && *found == row) {
        return {};
    }
    LibraryChange change;
    (change.put.*rows).append(row);
    return apply(change);
}

// ---- settings ----

GuideSettings Library::guideSettings(const QString &source) const
{
    GuideSettings atFirst;
    atFirst.source = source;
    return known().list<GuideSettings>({source, EntryKind::Live}).value(atFirst.id, atFirst);
}

LibraryChange Library::setGuideSettings(const GuideSettings &settings)
{
    waitUntilLoaded();
    GuideSettings row = settings;
    static_cast<LibraryEntry &>(row) = {settings.source, EntryKind::Live, {}, {}, {}};
    // Without a row there is what there is at first.
    return row == guideSettings(row.source) ? LibraryChange()
                                            : putChanged(row, &LibraryRows::guideSettings);
}

// ---- corrections ----

const LibraryList<GuideCorrection> &Library::guideCorrections(const QString &source,
                                                              EntryKind kind) const
{
    return known().list<GuideCorrection>({source, kind});
}

LibraryChange Library::setGuideCorrection(const GuideCorrection &correction)
{
    return putChanged(correction, &LibraryRows::guideCorrections);
}

LibraryChange Library::removeGuideCorrection(const LibraryEntry &entry)
{
    LibraryChange change;
    change.removed.guideCorrections.append({entry, {}});
    return apply(change);
}

// ---- languages ----

PreferredLanguages Library::preferredLanguages(const QString &source) const
{
    PreferredLanguages none;
    none.source = source;
    return known().list<PreferredLanguages>({source, EntryKind::Live}).value(none.id, none);
}

LibraryChange Library::setPreferredLanguages(const PreferredLanguages &languages)
{
    PreferredLanguages row = languages;
    static_cast<LibraryEntry &>(row) = {languages.source, EntryKind::Live, {}, {}, {}};
    return putChanged(row, &LibraryRows::languages);
}

// ---- reminders ----

QList<Reminder> Library::reminders() const
{
    QList<Reminder> ordered;
    for (const LibraryList<Reminder> &list : known().lists<Reminder>()) {
        ordered.append(list.values());
    }
    std::sort(ordered.begin(), ordered.end(), [](const Reminder &a, const Reminder &b) {
        return std::tie(a.start, a.source, a.id) < std::tie(b.start, b.source, b.id);
    });
    return ordered;
}

LibraryChange Library::addReminder(const Reminder &reminder)
{
    return putChanged(reminder, &LibraryRows::reminders);
}

LibraryChange Library::removeReminder(const Reminder &reminder)
{
    LibraryChange change;
    change.removed.reminders.append(reminder);
    return apply(change);
}
