#include "fakeprovider/CatalogGenerator.h"

#include <QDateTime>
#include <QStringList>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const std::array<QString, 24> words = {
    u"News"_s,    u"Sport"_s,  u"Cinema"_s, u"Kids"_s,    u"Music"_s,  u"Nature"_s,
    u"History"_s, u"The"_s,    u"Night"_s,  u"Day"_s,     u"World"_s,  u"City"_s,
    u"Love"_s,    u"Return"_s, u"Last"_s,   u"Story"_s,   u"Planet"_s, u"HD"_s,
    u"4K"_s,      u"Live"_s,   u"Extra"_s,  u"Channel"_s, u"of"_s,     u"24"_s};
const std::array<QString, 8> foreignWords = {u"Überraschung"_s, u"Société"_s,  u"Ñandú"_s, u"Мир"_s,
                                             u"東京"_s,         u"İstanbul"_s, u"قناة"_s,  u"🎬"_s};

QByteArray number(qint64 value)
{
    return QByteArray::number(value);
}

} // namespace

CatalogGenerator::CatalogGenerator(quint32 seed)
    : state(seed * 2654435761ULL + 88172645463325252ULL)
{}

void CatalogGenerator::setIconBase(const QString &base)
{
    iconBase = base.toUtf8();
}

quint32 CatalogGenerator::below(quint32 limit)
{
    // xorshift64: small, and the same on every platform.
    state ^= state << 13U;
    state ^= state >> 7U;
    state ^= state << 17U;
    return static_cast<quint32>((state >> 11U) % limit);
}

QString CatalogGenerator::name()
{
    const qsizetype wanted = 10 + below(46);
    const bool foreign = below(10) == 0;
    QString result;
    if (foreign) {
        result = foreignWords.at(below(foreignWords.size())) + u' ';
    }
    while (result.size() < wanted) {
        result += words.at(below(words.size())) + u' ';
    }
    result += QString::number(below(100));
    return result.left(60).trimmed();
}

QByteArray CatalogGenerator::icon(int item)
{
    return iconBase.isEmpty() ? QByteArray() : iconBase + number(item) + ".png"_ba;
}

QByteArray CatalogGenerator::itemHead(int item)
{
    return "{\"num\":"_ba + number(item + 1) + ",\"name\":\""_ba + name().toUtf8() + '"';
}

QByteArray CatalogGenerator::categoriesReply(int count)
{
    QByteArray reply = "["_ba;
    for (int index = 0; index < count; ++index) {
        reply += (index > 0 ? ","_ba : QByteArray()) + "{\"category_id\":\""_ba +
                 number(index + 1) + "\",\"category_name\":\""_ba + name().toUtf8() +
                 "\",\"parent_id\":0}"_ba;
    }
    return reply + ']';
}

QByteArray CatalogGenerator::liveReply(int count, int categories)
{
    QByteArray reply = "["_ba;
    for (int index = 0; index < count; ++index) {
        reply += (index > 0 ? ","_ba : QByteArray()) + itemHead(index) +
                 ",\"stream_type\":\"live\",\"stream_id\":"_ba + number(1000 + index) +
                 ",\"stream_icon\":\""_ba + icon(index) +
                 "\",\"epg_channel_id\":null,\"added\":\""_ba +
                 number(1500000000 + below(200000000)) + "\",\"category_id\":\""_ba +
                 number(1 + below(static_cast<quint32>(categories))) +
                 "\",\"custom_sid\":\"\",\"tv_archive\":0,\"direct_source\":\"\","_ba
                 "\"tv_archive_duration\":\"0\"}"_ba;
    }
    return reply + ']';
}

QByteArray CatalogGenerator::vodReply(int count, int categories)
{
    QByteArray reply = "["_ba;
    for (int index = 0; index < count; ++index) {
        const quint32 rating = below(100);
        const QByteArray ratingText = number(rating / 10) + '.' + number(rating % 10);
        reply += (index > 0 ? ","_ba : QByteArray()) + itemHead(index) +
                 ",\"title\":\"\",\"year\":\""_ba + number(1950 + below(75)) +
                 "\",\"stream_type\":\"movie\",\"stream_id\":"_ba + number(100000 + index) +
                 ",\"stream_icon\":\""_ba + icon(index) + "\",\"rating\":"_ba +
                 (below(2) == 0 ? ratingText : '"' + ratingText + '"') +
                 ",\"rating_5based\":3.5,\"added\":\""_ba + number(1500000000 + below(200000000)) +
                 "\",\"category_id\":\""_ba + number(1 + below(static_cast<quint32>(categories))) +
                 "\",\"category_ids\":[1,2],\"container_extension\":\"mp4\",\"custom_sid\":null,"_ba
                 "\"direct_source\":\"\"}"_ba;
    }
    return reply + ']';
}

QByteArray CatalogGenerator::seriesReply(int count, int categories)
{
    QByteArray reply = "["_ba;
    for (int index = 0; index < count; ++index) {
        reply +=
            (index > 0 ? ","_ba : QByteArray()) + itemHead(index) + ",\"series_id\":"_ba +
            number(5000 + index) + ",\"cover\":\""_ba + icon(index) +
            "\",\"plot\":\"\\u00c9tonnant \\\"plot\\\"\",\"cast\":\"A, B\",\"director\":null,"_ba
            "\"genre\":\"Drama\",\"releaseDate\":\"2020-01-01\",\"last_modified\":\""_ba +
            number(1500000000 + below(200000000)) + "\",\"rating\":\""_ba + number(below(11)) +
            "\",\"rating_5based\":2.5,\"episode_run_time\":\"45\",\"category_id\":\""_ba +
            number(1 + below(static_cast<quint32>(categories))) + "\"}"_ba;
    }
    return reply + ']';
}

QByteArray CatalogGenerator::seriesInfoReply(const QString &showName, int seasons,
                                             int episodesPerSeason)
{
    QByteArray reply =
        "{\"seasons\":[],\"info\":{\"name\":\""_ba + showName.toUtf8() + "\"},\"episodes\":{"_ba;
    int id = 70000;
    for (int season = 1; season <= seasons; ++season) {
        reply += (season > 1 ? ",\""_ba : "\""_ba) + number(season) + "\":["_ba;
        for (int episode = 1; episode <= episodesPerSeason; ++episode) {
            reply += (episode > 1 ? ","_ba : QByteArray()) + "{\"id\":\""_ba + number(id++) +
                     "\",\"episode_num\":"_ba + number(episode) + ",\"title\":\""_ba +
                     name().toUtf8() + "\",\"container_extension\":\"mp4\",\"season\":"_ba +
                     number(season) + '}';
        }
        reply += ']';
    }
    return reply + "}}"_ba;
}

QByteArray CatalogGenerator::playlist(int count, int groups, const QString &urlBase)
{
    QList<QByteArray> groupNames;
    for (int index = 0; index < groups; ++index) {
        groupNames << name().toUtf8();
    }
    const QByteArray base = urlBase.toUtf8();
    QByteArray text = "#EXTM3U\n"_ba;
    for (int index = 0; index < count; ++index) {
        const QByteArray entryName = name().toUtf8();
        text += "#EXTINF:-1 tvg-id=\"id."_ba + number(index) + "\" tvg-name=\""_ba + entryName +
                "\" tvg-logo=\""_ba + icon(index) + "\" group-title=\""_ba +
                groupNames.at(below(static_cast<quint32>(groups))) + "\","_ba + entryName + '\n' +
                base + number(index) + '\n';
    }
    return text;
}

QByteArray CatalogGenerator::guide(int channels, int programmesOfEach, qint64 from)
{
    constexpr quint32 halfHour = 1800;
    const auto time = [](qint64 seconds) {
        return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)
            .toString(u"yyyyMMddhhmmss"_s)
            .toLatin1();
    };
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tv>\n"_ba;
    for (int index = 0; index < channels; ++index) {
        text += "  <channel id=\"id."_ba + number(index) + "\"><display-name>"_ba +
                name().toHtmlEscaped().toUtf8() + "</display-name></channel>\n"_ba;
    }
    for (int index = 0; index < channels; ++index) {
        qint64 start = from;
        for (int count = 0; count < programmesOfEach; ++count) {
            const qint64 stop = start + halfHour * qint64{1 + below(4)};
            text += "  <programme start=\""_ba + time(start) + " +0000\" stop=\""_ba + time(stop) +
                    " +0000\" channel=\"id."_ba + number(index) +
                    "\">\n    <title lang=\"en\">"_ba + name().toHtmlEscaped().toUtf8() +
                    "</title>\n    <desc lang=\"en\">"_ba + name().toHtmlEscaped().toUtf8() + ' ' +
                    name().toHtmlEscaped().toUtf8() + "</desc>\n  </programme>\n"_ba;
            start = stop;
        }
    }
    return text + "</tv>\n"_ba;
}

QList<MediaItem> CatalogGenerator::movies(int count, int categories)
{
    QList<MediaItem> items;
    items.reserve(count);
    for (int index = 0; index < count; ++index) {
        MediaItem item;
        item.type = StreamKind::Movie;
        item.id = QString::number(100000 + index);
        item.name = name();
        item.categoryId = QString::number(1 + below(static_cast<quint32>(categories)));
        item.iconUrl = QString::fromUtf8(icon(index));
        item.containerExtension = u"mp4"_s;
        item.rating = below(100) / 10.0;
        item.addedAt = 1500000000 + below(200000000);
        items.append(item);
    }
    return items;
}
