// The text of a playlist. What is read, written as a playlist again, must read the same.

#include "FuzzTarget.h"

#include "model/StreamHeaders.h"
#include "providers/M3uParser.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString optionLine(QLatin1StringView name, const QString &value)
{
    return value.isEmpty() ? QString() : "#EXTVLCOPT:"_L1 + name + u'=' + value + u'\n';
}

QString playlistOf(const QList<MediaItem> &items)
{
    QString text = u"#EXTM3U\n"_s;
    for (const MediaItem &item : items) {
        const StreamHeaders headers = headersOfText(item.headers.toString());
        text += optionLine("http-user-agent"_L1, headers.userAgent) +
                optionLine("http-referrer"_L1, headers.referrer);
        text += "#EXTINF:-1 group-title=\""_L1 + item.categoryId.toString() + "\" tvg-logo=\""_L1 +
                item.iconUrl.toString() + "\","_L1 + item.name.toString() + u'\n' +
                item.streamUrl.toString() + u'\n';
    }
    return text;
}

/// A group that ends in the name of the other attribute forms that attribute with the quote behind.
bool canBeWritten(const QList<MediaItem> &items)
{
    return std::none_of(items.begin(), items.end(), [](const MediaItem &item) {
        return item.categoryId.toString().endsWith("tvg-logo="_L1);
    });
}

void checkRecords(const M3uParser::Result &playlist)
{
    QStringList groups;
    for (const MediaItem &item : playlist.items) {
        require(item.type == StreamKind::Live, "an entry is live");
        require(!item.name.isEmpty(), "an entry has a name");
        require(!item.streamUrl.isEmpty() && item.id == item.streamUrl, "the URL is the id");
        require(!item.streamUrl.toString().startsWith(u'#'), "a comment is no URL");
        const StreamHeaders headers = headersOfText(item.headers.toString());
        for (const QString &value : {headers.userAgent, headers.referrer}) {
            require(value.isEmpty() || isHeaderValue(value), "a header may be sent");
        }
        require(textOfHeaders(headers) == item.headers.toString(), "headers have one form");
        const QString group = item.categoryId;
        if (!groups.contains(group)) {
            groups << group;
        }
    }
    QStringList categories;
    for (const Category &category : playlist.categories) {
        require(category.id == category.name, "a group's name is its id");
        categories << category.id;
    }
    require(categories == groups, "groups come in order of first appearance");
}

} // namespace

void fuzz(FuzzInput &input)
{
    const QByteArray bytes = input.rest();
    const QString text = QString::fromUtf8(bytes);
    const M3uParser::Result playlist = M3uParser::parse(text);
    checkRecords(playlist);
    const M3uParser::Result fromBytes = M3uParser::parseUtf8(bytes);
    require(fromBytes.items == playlist.items && fromBytes.categories == playlist.categories,
            "bytes read like their text");

    QString unixText = text;
    unixText.replace(u'\r', u'\n');
    require(M3uParser::parse(unixText).items == playlist.items, "any line end ends a line");

    if (!canBeWritten(playlist.items)) {
        return;
    }
    const M3uParser::Result again = M3uParser::parse(playlistOf(playlist.items));
    require(again.items == playlist.items, "the entries read again are equal");
    require(again.categories == playlist.categories, "the groups read again are equal");
}
