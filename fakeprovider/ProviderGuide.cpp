#include "fakeprovider/ProviderGuide.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 minute = 60;
constexpr qint64 blockSeconds = 6LL * 60 * minute;
/// The lengths of a block's programmes, in minutes; a block in all.
constexpr std::array blockMinutes{30, 15, 45, 90, 60, 30, 90};

const QStringList &titles()
{
    static const QStringList list{u"Morning Tide"_s,       u"Headlines"_s,
                                  u"The Harbour Report"_s, u"Weather"_s,
                                  u"Around the Bay"_s,     u"Kitchen Stories"_s,
                                  u"Under Sail"_s,         u"The Evening Round"_s,
                                  u"Night Ferry"_s,        u"Wild Coast"_s,
                                  u"Match of the Day"_s,   u"Gespräche am Kai"_s,
                                  u"Lighthouse Keepers"_s, u"Signals & Stars"_s,
                                  u"Letters from Home"_s,  u"The Long Road"_s,
                                  u"Music at Ten"_s};
    return list;
}

QByteArray xmltvTime(qint64 seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)
        .toString(u"yyyyMMddHHmmss +0000"_s)
        .toLatin1();
}

QString base64(const QString &text)
{
    return QString::fromLatin1(text.toUtf8().toBase64());
}

QString wallClock(qint64 seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

QJsonObject listing(const ProviderGuide::Channel &channel, const ProviderProgramme &programme)
{
    return {{u"id"_s, QString::number(programme.start)},
            {u"epg_id"_s, QString::number(channel.stream)},
            {u"channel_id"_s, channel.id},
            {u"lang"_s, u"en"_s},
            {u"title"_s, base64(programme.title)},
            {u"description"_s, base64(programme.description)},
            {u"start"_s, wallClock(programme.start)},
            {u"end"_s, wallClock(programme.stop)},
            {u"start_timestamp"_s, QString::number(programme.start)},
            {u"stop_timestamp"_s, QString::number(programme.stop)}};
}

QByteArray listings(const QJsonArray &list)
{
    return QJsonDocument(QJsonObject{{u"epg_listings"_s, list}}).toJson(QJsonDocument::Compact);
}

} // namespace

std::optional<ProviderGuide::Channel> ProviderGuide::channelOf(int stream) const
{
    const auto found =
        std::find_if(channels.cbegin(), channels.cend(),
                     [stream](const Channel &channel) { return channel.stream == stream; });
    return found == channels.cend() ? std::nullopt : std::optional(*found);
}

QList<ProviderProgramme> ProviderGuide::programmes(const Channel &channel, qint64 from, qint64 to)
{
    QList<ProviderProgramme> found;
    for (qint64 block = from / blockSeconds; block * blockSeconds < to; ++block) {
        qint64 start = block * blockSeconds;
        for (std::size_t slot = 0; slot < blockMinutes.size(); ++slot) {
            const auto number = slot + static_cast<std::size_t>(channel.stream);
            const qint64 stop = start + minute * blockMinutes.at(number % blockMinutes.size());
            if (stop > from && start < to) {
                const qint64 which =
                    block * std::ssize(blockMinutes) + qint64(slot) + 5 * qint64(channel.stream);
                const QString &title = titles().at(which % titles().size());
                found.append({start, stop, title,
                              u"\"%1\" on %2. It lasts %3 minutes."_s.arg(title, channel.name)
                                  .arg((stop - start) / minute)});
            }
            start = stop;
        }
    }
    return found;
}

QByteArray ProviderGuide::xmltv(qint64 now) const
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tv>\n";
    for (const Channel &channel : channels) {
        text += "<channel id=\"" + channel.id.toHtmlEscaped().toUtf8() + "\"><display-name>" +
                channel.name.toHtmlEscaped().toUtf8() + "</display-name></channel>\n";
    }
    for (const Channel &channel : channels) {
        const auto all = programmes(channel, now - reachSeconds, now + reachSeconds);
        for (const ProviderProgramme &programme : all) {
            text += "<programme start=\"" + xmltvTime(programme.start) + "\" stop=\"" +
                    xmltvTime(programme.stop) + "\" channel=\"" +
                    channel.id.toHtmlEscaped().toUtf8() + "\"><title lang=\"en\">" +
                    programme.title.toHtmlEscaped().toUtf8() + "</title><desc lang=\"en\">" +
                    programme.description.toHtmlEscaped().toUtf8() + "</desc></programme>\n";
        }
    }
    return text + "</tv>\n";
}

QByteArray ProviderGuide::shortSchedule(int stream, qint64 now, int most) const
{
    QJsonArray list;
    if (const auto channel = channelOf(stream)) {
        const auto coming = programmes(*channel, now, now + reachSeconds);
        for (const ProviderProgramme &programme : coming) {
            if (list.size() < most) {
                list.append(listing(*channel, programme));
            }
        }
    }
    return listings(list);
}

QByteArray ProviderGuide::fullSchedule(int stream, qint64 now) const
{
    constexpr qint64 day = 24LL * 60 * minute;
    QJsonArray list;
    if (const auto channel = channelOf(stream)) {
        const auto all = programmes(*channel, now - reachSeconds, now + reachSeconds);
        for (const ProviderProgramme &programme : all) {
            QJsonObject object = listing(*channel, programme);
            const bool isOver = programme.stop <= now;
            const bool isKept = programme.start >= now - channel->archiveDays * day;
            object.insert(u"now_playing"_s, programme.start <= now && !isOver ? 1 : 0);
            object.insert(u"has_archive"_s, isOver && isKept ? 1 : 0);
            list.append(object);
        }
    }
    return listings(list);
}
