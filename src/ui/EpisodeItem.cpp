#include "ui/EpisodeItem.h"

using namespace Qt::StringLiterals;

namespace {

QString twoDigits(qint32 number)
{
    return u"%1"_s.arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

MediaItem mediaItemFromEpisode(const Episode &episode, const QString &seriesName)
{
    MediaItem item;
    item.type = StreamKind::Episode;
    item.id = episode.id;
    item.containerExtension = episode.containerExtension;
    // One call for all values, so that a "%1" in a show's name stays.
    item.name = u"%1 - S%2E%3 - %4"_s.arg(seriesName, twoDigits(episode.season),
                                          twoDigits(episode.episodeNumber), episode.title);
    return item;
}
