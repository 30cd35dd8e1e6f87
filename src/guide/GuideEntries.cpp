#include "guide/GuideEntries.h"

#include "model/JsonReader.h"
#include "providers/M3uParser.h"

#include <QIODevice>
#include <QJsonObject>

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// What is longer is no line of a playlist, and read in pieces.
constexpr qint64 longestLine = 1024LL * 1024;

bool beginsWith(QByteArrayView line, QByteArrayView tag)
{
    return line.size() >= tag.size() &&
           line.first(tag.size()).compare(tag, Qt::CaseInsensitive) == 0;
}

/// Pairs the lines about a channel with the channel's address.
class PlaylistLines
{
public:
    explicit PlaylistLines(const GuideEntryReceiver &receiver)
        : receive(receiver)
    {}

    /// False when the receiver stopped.
    bool take(const QByteArray &line)
    {
        if (line.isEmpty()) {
            return true;
        }
        if (!line.startsWith('#')) {
            return takeAddress(line);
        }
        if (beginsWith(line, "#EXTINF")) {
            info = line;
        } else if (beginsWith(line, "#EXTM3U")) {
            defaults = playlistGuideOfLine(line).defaults;
        }
        return true;
    }

private:
    bool takeAddress(const QByteArray &address)
    {
        const QByteArray about = std::exchange(info, {});
        const auto parsed = M3uParser::parseUtf8(about + '\n' + address);
        if (parsed.items.isEmpty()) {
            return true;
        }
        const MediaItem &item = parsed.items.constFirst();
        return receive({item.id.toString(), item.name.toString(),
                        withDefaults(guideAttributesOfLine(about), defaults)});
    }

    const GuideEntryReceiver &receive;
    GuideAttributes defaults;
    QByteArray info;
};

QJsonValue jsonValue(const JsonField &field)
{
    switch (field.kind) {
    case JsonField::Kind::Text:
        return field.toText();
    case JsonField::Kind::Number:
        return field.toDouble();
    case JsonField::Kind::True:
        return true;
    case JsonField::Kind::Absent:
    case JsonField::Kind::Other:
        break;
    }
    return {};
}

} // namespace

bool readPlaylistEntries(QIODevice &playlist, const GuideEntryReceiver &take)
{
    static const QByteArray byteOrderMark("\xef\xbb\xbf");
    PlaylistLines lines(take);
    bool isFirst = true;
    while (!playlist.atEnd()) {
        QByteArray text = playlist.readLine(longestLine);
        if (std::exchange(isFirst, false) && text.startsWith(byteOrderMark)) {
            text.remove(0, byteOrderMark.size());
        }
        // Lines may also end in a carriage return alone.
        const QList<QByteArray> parts = text.split('\r');
        for (const QByteArray &part : parts) {
            if (!lines.take(part.trimmed())) {
                return false;
            }
        }
    }
    return true;
}

bool readAccountEntries(const QByteArray &liveStreams, const GuideEntryReceiver &take)
{
    const std::vector<QByteArrayView> keys{"stream_id", "name", "epg_channel_id", "tv_archive",
                                           "tv_archive_duration"};
    bool isStopped = false;
    const bool isJson = readJsonObjects(
        liveStreams, keys, [] {},
        [&](const JsonFields &fields) {
            if (isStopped) {
                return;
            }
            const QJsonObject attributes{{u"epg_channel_id"_s, jsonValue(fields.at(2))},
                                         {u"tv_archive"_s, jsonValue(fields.at(3))},
                                         {u"tv_archive_duration"_s, jsonValue(fields.at(4))}};
            isStopped = !take({fields.at(0).toIntegerText(), fields.at(1).toText(),
                               guideAttributesOfChannel(attributes)});
        });
    return isJson && !isStopped;
}
