#include "ui/EntryUrl.h"

#include "providers/XtreamClient.h"

using namespace Qt::StringLiterals;

namespace {

QString orDefault(const QString &extension, const QString &fallback)
{
    return extension.isEmpty() ? fallback : extension;
}

} // namespace

QString entryUrl(const MediaItem &item, const SourceConfig &source, const XtreamClient *client,
                 const std::optional<XtreamAccount> &showAccount)
{
    if (item.type == StreamKind::Live && !SourceType::isAccount(source.type)) {
        return item.streamUrl;
    }
    if (client == nullptr) {
        return {};
    }
    const QString fileExtension = orDefault(item.containerExtension, u"mp4"_s);
    switch (item.type) {
    case StreamKind::Live:
        return client->liveStreamUrl(item.id,
                                     orDefault(source.liveExtension, defaultLiveExtension()));
    case StreamKind::Movie:
        return client->movieStreamUrl(item.id, fileExtension);
    case StreamKind::Episode:
        return XtreamClient::episodeStreamUrl(showAccount.value_or(client->account()), item.id,
                                              fileExtension);
    default:
        return {};
    }
}
