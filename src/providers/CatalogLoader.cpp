#include "providers/CatalogLoader.h"

#include "model/Age.h"
#include "providers/BackgroundJobs.h"
#include "providers/M3uParser.h"
#include "providers/PlaylistClient.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"

#include <QDateTime>
#include <QStringList>

#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

using Step = LoadFailure::Step;

/// One of an account's sections and the requests that fill it.
struct CatalogLoader::AccountSection
{
    CatalogSection section;
    void (XtreamClient::*fetchCategories)(XtreamClient::CategoriesCallback);
    void (XtreamClient::*fetchItems)(const QString &, XtreamClient::ItemsCallback);
};

const QList<CatalogLoader::AccountSection> &CatalogLoader::accountSections()
{
    static const QList<AccountSection> sections{
        {CatalogSection::Live, &XtreamClient::fetchLiveCategories, &XtreamClient::fetchLiveStreams},
        {CatalogSection::Movie, &XtreamClient::fetchVodCategories, &XtreamClient::fetchVodStreams},
        {CatalogSection::Series, &XtreamClient::fetchSeriesCategories, &XtreamClient::fetchSeries}};
    return sections;
}

namespace {

/// The section's name in the catalog cache.
QString cacheName(CatalogSection section)
{
    switch (section) {
    case CatalogSection::Live:
        return u"live"_s;
    case CatalogSection::Movie:
        return u"movie"_s;
    case CatalogSection::Series:
        return u"series"_s;
    case CatalogSection::Channel:
        break;
    }
    return u"channel"_s;
}

bool isFresh(const SourceConfig &source)
{
    return secondsSince(source.lastUpdated) < catalogMaxAgeSeconds;
}

/// A section as its two requests would have given it.
struct SectionReplies
{
    CatalogReply<Category> categories;
    CatalogReply<MediaItem> items;
};

/// Films and shows appear by name first.
QList<SectionReplies> withOrders(const QList<CatalogCache::Section> &cached,
                                 const QList<CatalogSection> &sections)
{
    QList<SectionReplies> replies;
    for (qsizetype index = 0; index < cached.size(); ++index) {
        const CatalogCache::Section &section = cached.at(index);
        SectionReplies reply{{section.categories}, {section.items}};
        const CatalogSection kind = sections.at(index);
        if (kind == CatalogSection::Movie || kind == CatalogSection::Series) {
            reply.items.records.prepareOrder(u"name"_s);
        }
        replies.append(reply);
    }
    return replies;
}

SourceConfig withAccount(SourceConfig source, const ZevrinoClient::Credentials &credentials)
{
    source.url = credentials.serverUrl;
    source.username = credentials.username;
    source.password = credentials.password;
    if (!credentials.streamType.isEmpty()) {
        source.liveExtension = credentials.streamType;
    }
    return source;
}

} // namespace

CatalogLoader::CatalogLoader(QString subscriptionBaseUrl, QObject *parent)
    : QObject(parent)
    , subscriptionUrl(std::move(subscriptionBaseUrl))
    , jobs(new BackgroundJobs(this))
    , playlist(new PlaylistClient(this))
{}

void CatalogLoader::load(const SourceConfig &source, bool force)
{
    beginLoad();
    accountIsCurrent = SourceType::isAccount(source.type);
    if (source.type == SourceType::Zevrino) {
        loadZevrinoSource(source, force);
    } else if (accountIsCurrent) {
        loadXtreamSource(source, force);
    } else {
        loadM3uSource(source, force);
    }
}

void CatalogLoader::reset()
{
    beginLoad();
    accountIsCurrent = false;
    lastCategories.clear();
}

void CatalogLoader::forget(const QString &sourceName)
{
    newestFetch.remove(sourceName);
}

void CatalogLoader::beginLoad()
{
    ++currentLoad;
    for (; owedSteps > 0; --owedSteps) {
        Q_EMIT stepDone();
    }
}

void CatalogLoader::beginSteps(int steps)
{
    owedSteps += steps;
    Q_EMIT stepsBegun(steps);
}

void CatalogLoader::finishStep(quint64 load)
{
    if (load == currentLoad) {
        --owedSteps;
        Q_EMIT stepDone();
    }
}

CatalogLoader::Fetch CatalogLoader::beginFetch(const SourceConfig &source, int steps)
{
    SourceConfig stamp = source;
    stamp.lastUpdated = QDateTime::currentSecsSinceEpoch();
    Q_EMIT stamped(stamp);
    newestFetch.insert(source.name, currentLoad);
    beginSteps(steps);
    return {currentLoad, source.name};
}

bool CatalogLoader::isNewest(const Fetch &fetch) const
{
    return newestFetch.value(fetch.sourceName) == fetch.load;
}

/// Reports all sections, or calls `otherwise` when one is missing or stale.
void CatalogLoader::loadFromCache(const SourceConfig &source, const QList<CatalogSection> &sections,
                                  const std::function<void()> &otherwise)
{
    if (!isFresh(source)) {
        otherwise();
        return;
    }
    QStringList names;
    for (const CatalogSection section : sections) {
        names << cacheName(section);
    }
    const auto read = [name = source.name, names, sections] {
        QList<CatalogCache::Section> cached;
        return CatalogCache::load(name, names, cached) ? std::optional(withOrders(cached, sections))
                                                       : std::nullopt;
    };
    const auto take = [=, this, load = currentLoad](const auto &replies) {
        if (load != currentLoad) {
            return;
        }
        if (!replies) {
            otherwise();
            return;
        }
        for (qsizetype index = 0; index < replies->size(); ++index) {
            report(sections.at(index), replies->at(index).categories);
            report(sections.at(index), replies->at(index).items);
        }
    };
    jobs->run(CatalogCache::fileSize(source.name), read, take);
}

void CatalogLoader::loadM3uSource(const SourceConfig &source, bool force)
{
    const auto fetch = [this, source] { fetchPlaylist(source); };
    if (force) {
        fetch();
    } else {
        loadFromCache(source, {CatalogSection::Channel}, fetch);
    }
}

void CatalogLoader::fetchPlaylist(const SourceConfig &source)
{
    const Fetch fetch = beginFetch(source, 1);
    playlist->read(source.url, source.userAgent, [this, source, fetch](const PlaylistReply &reply) {
        takePlaylist(reply, source, fetch);
    });
}

void CatalogLoader::takePlaylist(const PlaylistReply &reply, const SourceConfig &source,
                                 const Fetch &fetch)
{
    if (!isNewest(fetch)) {
        finishStep(fetch.load);
        return;
    }
    if (reply.outcome != PlaylistReply::Outcome::Read) {
        finishStep(fetch.load);
        const bool isFile = reply.outcome == PlaylistReply::Outcome::FileNotOpened;
        Q_EMIT failed({isFile ? Step::PlaylistFile : Step::PlaylistDownload,
                       CatalogSection::Channel, isFile ? source.url : reply.error});
        return;
    }
    const auto parse = [body = reply.body]() mutable {
        const M3uParser::Result parsed = M3uParser::parseUtf8(body.join());
        return CatalogCache::Section{parsed.categories, parsed.items};
    };
    jobs->run(reply.body.size(), parse, [this, fetch](const CatalogCache::Section &channels) {
        takeChannels(channels, fetch);
    });
}

void CatalogLoader::takeChannels(const CatalogCache::Section &channels, const Fetch &fetch)
{
    if (!isNewest(fetch)) {
        finishStep(fetch.load);
        return;
    }
    // While an account is loaded the channels are hidden; another playlist keeps its own.
    if (isCurrent(fetch) || accountIsCurrent) {
        Q_EMIT categoriesLoaded(CatalogSection::Channel, channels.categories);
        Q_EMIT itemsLoaded(CatalogSection::Channel, channels.items);
    }
    save(CatalogSection::Channel, channels, fetch);
}

void CatalogLoader::save(CatalogSection section, const CatalogCache::Section &data,
                         const Fetch &fetch)
{
    constexpr qsizetype bytesOfAnItem = 300; // about
    const auto write = [name = fetch.sourceName, section, data] {
        CatalogCache::save(name, cacheName(section), data);
        return true;
    };
    jobs->run((data.categories.size() + data.items.size()) * bytesOfAnItem, write,
              [this, fetch](bool) { finishStep(fetch.load); });
}

void CatalogLoader::loadXtreamSource(const SourceConfig &source, bool force)
{
    if (xtream == nullptr) {
        xtream = new XtreamClient(this);
    }
    xtream->configure(
        XtreamAccount{source.url, source.username, source.password, source.userAgent});
    const auto fetch = [this, source] { fetchAccount(source); };
    if (force) {
        fetch();
        return;
    }
    QList<CatalogSection> sections;
    for (const AccountSection &part : accountSections()) {
        sections << part.section;
    }
    loadFromCache(source, sections, fetch);
}

void CatalogLoader::fetchAccount(const SourceConfig &source)
{
    // Categories and items of each section.
    const Fetch fetch = beginFetch(source, 2 * static_cast<int>(accountSections().size()));
    for (const AccountSection &part : accountSections()) {
        fetchSection(part, fetch);
    }
}

void CatalogLoader::fetchSection(const AccountSection &part, const Fetch &fetch)
{
    const auto halves = std::make_shared<CatalogCache::Section>();
    const CatalogSection section = part.section;
    (xtream->*part.fetchCategories)([=, this](const CatalogReply<Category> &reply) {
        halves->categories = reply;
        if (isCurrent(fetch)) {
            report(section, reply);
        }
        finishRequest(section, *halves, fetch);
    });
    (xtream->*part.fetchItems)({}, [=, this](const CatalogReply<MediaItem> &reply) {
        halves->items = reply;
        if (isCurrent(fetch)) {
            report(section, reply);
        }
        finishRequest(section, *halves, fetch);
    });
}

void CatalogLoader::finishRequest(CatalogSection section, const CatalogCache::Section &halves,
                                  const Fetch &fetch)
{
    // Each of the two replies saves both halves, so that the later one completes the section.
    if (isCurrent(fetch)) {
        save(section, {lastCategories.value(section), halves.items}, fetch);
    } else if (isNewest(fetch)) {
        save(section, halves, fetch);
    } else {
        finishStep(fetch.load);
    }
}

void CatalogLoader::report(CatalogSection section, const CatalogReply<Category> &reply)
{
    if (reply.failed) {
        Q_EMIT failed({Step::Categories, section, {}});
    }
    lastCategories.insert(section, reply);
    Q_EMIT categoriesLoaded(section, reply);
}

void CatalogLoader::report(CatalogSection section, const CatalogReply<MediaItem> &reply)
{
    if (reply.failed) {
        Q_EMIT failed({Step::Items, section, {}});
    }
    Q_EMIT itemsLoaded(section, reply.records);
}

void CatalogLoader::loadZevrinoSource(const SourceConfig &source, bool force)
{
    if (zevrino == nullptr) {
        zevrino = new ZevrinoClient(subscriptionUrl, this);
    }
    beginSteps(1);
    zevrino->resolve(source.subscriptionKey,
                     [this, source, force,
                      load = currentLoad](bool ok, const ZevrinoClient::Credentials &credentials,
                                          const QString &message) {
                         if (load != currentLoad) {
                             return;
                         }
                         if (!ok) {
                             finishStep(load);
                             Q_EMIT failed({Step::KeyExchange, CatalogSection::Live, message});
                             return;
                         }
                         const SourceConfig account = withAccount(source, credentials);
                         Q_EMIT resolved(account);
                         finishStep(load);
                         loadXtreamSource(account, force);
                     });
}
