#include "providers/CatalogLoader.h"

#include "model/Age.h"
#include "providers/M3uParser.h"
#include "providers/PlaylistClient.h"
#include "providers/SubscriptionAddress.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"

#include <QDateTime>
#include <QStringList>

#include <memory>

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

CatalogLoader::CatalogLoader(QObject *parent)
    : CatalogLoader(configuredSubscriptionUrl(), parent)
{}

CatalogLoader::CatalogLoader(const QString &subscriptionBaseUrl, QObject *parent)
    : QObject(parent)
    , subscriptionUrl(subscriptionBaseUrl)
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

void CatalogLoader::loadM3uSource(const SourceConfig &source, bool force)
{
    CatalogCache::Section cached;
    if (!force && isFresh(source) &&
        CatalogCache::load(source.name, cacheName(CatalogSection::Channel), cached)) {
        Q_EMIT categoriesLoaded(CatalogSection::Channel, cached.categories);
        Q_EMIT itemsLoaded(CatalogSection::Channel, cached.items);
        return;
    }
    const Fetch fetch = beginFetch(source, 1);
    playlist->read(source.url, [this, source, fetch](const PlaylistReply &reply) {
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
    const M3uParser::Result parsed = M3uParser::parse(QString::fromUtf8(reply.body));
    // While an account is loaded the channels are hidden; another playlist keeps its own.
    if (isCurrent(fetch) || accountIsCurrent) {
        Q_EMIT categoriesLoaded(CatalogSection::Channel, parsed.categories);
        Q_EMIT itemsLoaded(CatalogSection::Channel, parsed.items);
    }
    CatalogCache::save(fetch.sourceName, cacheName(CatalogSection::Channel),
                       {parsed.categories, parsed.items});
    finishStep(fetch.load);
}

void CatalogLoader::loadXtreamSource(const SourceConfig &source, bool force)
{
    if (xtream == nullptr) {
        xtream = new XtreamClient(this);
    }
    xtream->configure(source.url, source.username, source.password);
    if (!force && isFresh(source) && loadAccountFromCache(source.name)) {
        return;
    }
    // Categories and items of each section.
    const Fetch fetch = beginFetch(source, 2 * static_cast<int>(accountSections().size()));
    for (const AccountSection &part : accountSections()) {
        fetchSection(part, fetch);
    }
}

bool CatalogLoader::loadAccountFromCache(const QString &sourceName)
{
    QStringList names;
    for (const AccountSection &part : accountSections()) {
        names << cacheName(part.section);
    }
    QList<CatalogCache::Section> cached;
    if (!CatalogCache::load(sourceName, names, cached)) {
        return false;
    }
    for (qsizetype index = 0; index < cached.size(); ++index) {
        const CatalogSection section = accountSections().at(index).section;
        report(section, CatalogReply<Category>{cached.at(index).categories});
        report(section, CatalogReply<MediaItem>{cached.at(index).items});
    }
    return true;
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
        CatalogCache::save(fetch.sourceName, cacheName(section),
                           {lastCategories.value(section), halves.items});
    } else if (isNewest(fetch)) {
        CatalogCache::save(fetch.sourceName, cacheName(section), halves);
    }
    finishStep(fetch.load);
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
    Q_EMIT itemsLoaded(section, reply);
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
