#include "ui/PlayingList.h"

#include <QHash>

#include <utility>

namespace {

bool isChannelList(CatalogSection section)
{
    return section == CatalogSection::Live || section == CatalogSection::Channel;
}

bool isSameEntry(const PlayingPlace &a, const PlayingPlace &b)
{
    return a.origin.source.name == b.origin.source.name && a.section == b.section &&
           a.item().id == b.item().id;
}

/// Whether each row still has the entry of that id in `items`.
bool hasSameRows(const ShownEntries &entries, const QList<MediaItem> &items)
{
    for (int row = 0; row < entries.count(); ++row) {
        const int index = entries.shownRows().at(row);
        if (index >= items.size() || items.at(index).id != entries.at(row).id) {
            return false;
        }
    }
    return true;
}

/// The place among the new entries; none when its entry is gone.
std::optional<PlayingPlace> followed(const PlayingPlace &place, const QList<MediaItem> &items)
{
    if (hasSameRows(place.entries, items)) {
        return PlayingPlace{
            place.origin, place.section, {items, place.entries.shownRows()}, place.row};
    }
    QHash<CatalogText, int> wanted;
    wanted.reserve(place.entries.count());
    for (int row = 0; row < place.entries.count(); ++row) {
        wanted.insert(place.entries.at(row).id, -1);
    }
    for (int index = 0; index < items.size(); ++index) {
        const auto found = wanted.find(items.at(index).id);
        if (found != wanted.end() && *found < 0) {
            *found = index;
        }
    }
    QList<int> rows;
    int playingRow = -1;
    for (int row = 0; row < place.entries.count(); ++row) {
        const int index = wanted.value(place.entries.at(row).id, -1);
        if (row == place.row && index >= 0) {
            playingRow = static_cast<int>(rows.size());
        }
        if (index >= 0) {
            rows.append(index);
        }
    }
    if (playingRow < 0) {
        return std::nullopt;
    }
    return PlayingPlace{place.origin, place.section, {items, rows}, playingRow};
}

} // namespace

void PlayingList::replace(std::optional<PlayingPlace> &place, const std::optional<PlayingPlace> &by)
{
    if (std::optional<PlayingPlace> old = std::exchange(place, by)) {
        freeInBackground(std::move(old->entries));
    }
}

void PlayingList::setPlaying(const PlayingPlace &place)
{
    if (isChannelList(place.section)) {
        if (channelNow && !isSameEntry(*channelNow, place)) {
            replace(channelBefore, channelNow);
        }
        replace(channelNow, place);
    }
    replace(current, place);
    Q_EMIT changed();
}

void PlayingList::clear()
{
    if (current) {
        replace(current, std::nullopt);
        Q_EMIT changed();
    }
}

std::optional<PlayingPlace> PlayingList::next() const
{
    return neighbour(1);
}

std::optional<PlayingPlace> PlayingList::previous() const
{
    return neighbour(-1);
}

std::optional<PlayingPlace> PlayingList::neighbour(int step) const
{
    if (!current) {
        return std::nullopt;
    }
    PlayingPlace place = *current;
    const int count = place.entries.count();
    for (int tried = 1; tried < count; ++tried) {
        place.row += step;
        if (isChannelList(place.section)) {
            place.row = (place.row + count) % count;
        } else if (place.row < 0 || place.row >= count) {
            break;
        }
        if (!entryUrl(place.item(), place.origin).isEmpty()) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<PlayingPlace> PlayingList::channel(int number) const
{
    std::optional<PlayingPlace> place;
    if (current && isChannelList(current->section) && number >= 1 &&
        number <= current->entries.count()) {
        place = current;
        place->row = number - 1;
    }
    return place;
}

std::optional<PlayingPlace> PlayingList::lastChannel() const
{
    const bool channelPlays = current && channelNow && isSameEntry(*current, *channelNow);
    return channelPlays ? channelBefore : channelNow;
}

void PlayingList::follow(const EntryOrigin &origin, CatalogSection section,
                         const QList<MediaItem> &items)
{
    for (std::optional<PlayingPlace> *place : {&current, &channelNow, &channelBefore}) {
        if (!*place || (*place)->section != section ||
            (*place)->origin.source.name != origin.source.name || (*place)->entries.isOf(items)) {
            continue;
        }
        if (std::optional<PlayingPlace> moved = followed(**place, items)) {
            moved->origin = origin;
            replace(*place, moved);
        }
    }
    Q_EMIT changed();
}

void PlayingList::moveSource(const QString &from, const QString &to)
{
    for (std::optional<PlayingPlace> *place : {&current, &channelNow, &channelBefore}) {
        if (*place && (*place)->origin.source.name == from) {
            (*place)->origin.source.name = to;
        }
    }
}
