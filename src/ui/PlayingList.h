#pragma once

#include "model/CatalogSection.h"
#include "ui/EntryUrl.h"
#include "ui/ShownEntries.h"

#include <QObject>

#include <optional>

/// An entry at its place in a list. Copies share the list.
struct PlayingPlace
{
    EntryOrigin origin;
    CatalogSection section = CatalogSection::Live;
    ShownEntries entries;
    int row = 0; ///< a valid row of `entries`

    const MediaItem &item() const { return entries.at(row); }
};

/// The list that what plays was chosen from: its entries in the order in which they showed then,
/// and which of them plays. It holds what their streams are asked of, so that it goes on after a
/// change of source. The list of a source that is fetched again follows its new entries.
///
/// It also remembers the channel that played before. GUI thread only.
class PlayingList final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The entry at that place plays.
    void setPlaying(const PlayingPlace &place);
    /// What plays belongs to no list.
    void clear();

    /// The entry that plays, none when it belongs to no list.
    const std::optional<PlayingPlace> &playing() const { return current; }

    /// @name Other entries
    /// What has no URL is passed over. The last channel is followed by the first one; the lists of
    /// films end.
    /// @{
    std::optional<PlayingPlace> next() const;
    std::optional<PlayingPlace> previous() const;
    /// The channel with that number in the list that plays; the first one has number 1.
    std::optional<PlayingPlace> channel(int number) const;
    /// The channel that played before the one that plays; before a film, the last one.
    std::optional<PlayingPlace> lastChannel() const;
    /// @}

    /// The entries of a section of `origin` have been replaced. Rows that are gone leave the lists;
    /// a list stays as it was when the entry that plays is gone.
    void follow(const EntryOrigin &origin, CatalogSection section, const QList<MediaItem> &items);
    /// The source has another name, or was deleted when `to` is empty.
    void moveSource(const QString &from, const QString &to);

Q_SIGNALS:
    /// What the functions above answer.
    void changed();

private:
    std::optional<PlayingPlace> neighbour(int step) const;
    void replace(std::optional<PlayingPlace> &place, const std::optional<PlayingPlace> &by);

    std::optional<PlayingPlace> current;
    std::optional<PlayingPlace> channelNow;    ///< the last one that played
    std::optional<PlayingPlace> channelBefore; ///< the one before that
};
