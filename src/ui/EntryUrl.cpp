#include "ui/EntryUrl.h"

#include "providers/XtreamClient.h"

using namespace Qt::StringLiterals;

namespace {

QString orDefault(const QString &extension, const QString &fallback)
{
    return extension.isEmpty() ? fallback : extension;
}

} // namespace

QString entryUrl(const MediaItem &item, const EntryOrigin &origin)
{
    const bool isOfPlaylist =
        item.type == StreamKind::Live && !SourceType::isAccount(origin.source.type);
    if (isOfPlaylist || origin.isOpened) {
        return item.streamUrl;
    }
    if (!origin.account) {
        return {};
    }
    const QString fileExtension = orDefault(item.containerExtension, u"mp4"_s);
    switch (item.type) {
    case StreamKind::Live:
        return XtreamClient::liveStreamUrl(
            *origin.account, item.id,
            orDefault(origin.source.liveExtension, defaultLiveExtension()));
    case StreamKind::Movie:
        return XtreamClient::movieStreamUrl(*origin.account, item.id, fileExtension);
    case StreamKind::Episode:
        return XtreamClient::episodeStreamUrl(*origin.account, item.id, fileExtension);
    default:
        return {};
    }
}

StreamHeaders entryHeaders(const MediaItem &item, const EntryOrigin &origin)
{
    const bool isOfShow = item.type == StreamKind::Episode && origin.account;
    const QString &userAgent = isOfShow ? origin.account->userAgent : origin.source.userAgent;
    return headersOfText(item.headers.toString()).orElse({userAgent, {}});
}
