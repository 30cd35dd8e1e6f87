#pragma once

#include "model/CatalogCache.h"
#include "model/CatalogRecords.h"
#include "model/CatalogSection.h"
#include "model/SourceConfig.h"
#include "providers/CatalogReply.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class BackgroundJobs;
class PlaylistClient;
class XtreamClient;
class ZevrinoClient;
struct PlaylistReply;

/// A step of a load that failed.
struct LoadFailure
{
    enum class Step
    {
        KeyExchange,
        PlaylistFile,
        PlaylistDownload,
        Categories,
        Items
    };

    Step step = Step::KeyExchange;
    /// The section that is missing now; without meaning for a key exchange.
    CatalogSection section = CatalogSection::Live;
    /// For the user: the path of a file, the reason of a download or a key exchange.
    QString detail;
};

/// Loads the catalog of a source and caches it: from the cache while that is fresh and complete,
/// from the network or a file otherwise. A subscription exchanges its key first, on every load.
///
/// One load is current at a time; the next load replaces it. Replies to a replaced load are late:
/// they are still cached under the name of their source, unless that source was fetched again or
/// forgotten since, but not reported. Large catalogs are read, parsed and written on another
/// thread, in the order in which they came; what is written is written even if the program ends.
/// There are two exceptions: a late playlist is reported while an account is loaded, because its
/// tab is hidden then, and a late download that fails reports failed(). GUI thread only.
class CatalogLoader final : public QObject
{
    Q_OBJECT

public:
    /// Exchanges subscription keys with the service at this base address.
    CatalogLoader(QString subscriptionBaseUrl, QObject *parent);

    /// Loads `source`; `force` skips the cache. A small catalog that needs no network is reported
    /// within this call.
    void load(const SourceConfig &source, bool force);
    /// Abandons the current load and forgets the catalog that was reported.
    void reset();
    /// Ignores pending replies for the source of that name.
    void forget(const QString &sourceName);

    /// The client of the account that was loaded last; null before the first account.
    XtreamClient *accountClient() const { return xtream; }

Q_SIGNALS:
    /// The key of the current source was exchanged. `source` contains the account.
    void resolved(const SourceConfig &source);
    /// A fetch of `source` begins: `lastUpdated` is the current time. Nothing was read yet; the
    /// receiver stores the record.
    void stamped(const SourceConfig &source);
    /// More steps are outstanding. Each is followed by exactly one stepDone(), also when its load
    /// is replaced.
    void stepsBegun(int steps);
    void stepDone();
    /// Categories and items of a section arrive in any order; each list replaces the former one. A
    /// request that failed reports failed() and then an empty list.
    void categoriesLoaded(CatalogSection section, const QList<Category> &categories);
    void itemsLoaded(CatalogSection section, const ItemIndex &items);
    /// A step failed; its stepDone() is reported before a failure that has a `detail`.
    void failed(const LoadFailure &failure);

private:
    /// One load's fetch from network or file.
    struct Fetch
    {
        quint64 load;
        QString sourceName;
    };
    struct AccountSection;
    static const QList<AccountSection> &accountSections();

    void beginLoad();
    void beginSteps(int steps);
    void finishStep(quint64 load);
    Fetch beginFetch(const SourceConfig &source, int steps);
    bool isCurrent(const Fetch &fetch) const { return fetch.load == currentLoad; }
    /// False once the source was fetched again or forgotten: the reply is then ignored.
    bool isNewest(const Fetch &fetch) const;

    void loadM3uSource(const SourceConfig &source, bool force);
    void fetchPlaylist(const SourceConfig &source);
    void takePlaylist(const PlaylistReply &reply, const SourceConfig &source, const Fetch &fetch);
    void takeChannels(const CatalogCache::Section &channels, const Fetch &fetch);
    void loadXtreamSource(const SourceConfig &source, bool force);
    void fetchAccount(const SourceConfig &source);
    void loadFromCache(const SourceConfig &source, const QList<CatalogSection> &sections,
                       const std::function<void()> &otherwise);
    void save(CatalogSection section, const CatalogCache::Section &data, const Fetch &fetch);
    void fetchSection(const AccountSection &part, const Fetch &fetch);
    void finishRequest(CatalogSection section, const CatalogCache::Section &halves,
                       const Fetch &fetch);
    void loadZevrinoSource(const SourceConfig &source, bool force);
    void report(CatalogSection section, const CatalogReply<Category> &reply);
    void report(CatalogSection section, const CatalogReply<MediaItem> &reply);

    QString subscriptionUrl;
    BackgroundJobs *jobs;
    PlaylistClient *playlist;
    /// Made on the first account load, then kept.
    XtreamClient *xtream = nullptr;
    /// Made on the first subscription load, then kept.
    ZevrinoClient *zevrino = nullptr;

    /// The number of the current load.
    quint64 currentLoad = 0;
    bool accountIsCurrent = false;
    /// Outstanding steps of the current load.
    int owedSteps = 0;
    /// Which load fetched a source last, by the source's name.
    QHash<QString, quint64> newestFetch;
    /// The categories that were reported last. Items that arrive before their categories are cached
    /// together with these.
    QHash<CatalogSection, QList<Category>> lastCategories;
};
