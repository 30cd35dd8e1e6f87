#include "ui/MainWindow.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "model/Age.h"
#include "model/SourceManager.h"
#include "providers/M3uParser.h"
#include "providers/NetworkTrace.h"
#include "providers/ReplyTimeout.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "ui/BrowseTab.h"
#include "ui/PlainMessageBox.h"

#include <QDateTime>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Names of the catalog cache's sections.
const QString liveSection = u"live"_s;
const QString movieSection = u"movie"_s;
const QString seriesSection = u"series"_s;
const QString channelSection = u"channel"_s;

bool isFresh(const SourceConfig &config)
{
    return secondsSince(config.lastUpdated) < catalogMaxAgeSeconds;
}

bool isDownloadable(const QString &url)
{
    return url.startsWith("http://"_L1) || url.startsWith("https://"_L1);
}

} // namespace

struct MainWindow::AccountKind
{
    QString section; ///< in the catalog cache
    BrowseTab *tab;
    void (XtreamClient::*fetchCategories)(XtreamClient::CategoriesCallback);
    void (XtreamClient::*fetchItems)(const QString &, XtreamClient::ItemsCallback);
};

void MainWindow::beginLoad()
{
    ++currentLoad;
    for (; owedSteps > 0; --owedSteps) {
        catalogFetchStepDone();
    }
}

void MainWindow::beginLoadSteps(int steps)
{
    owedSteps += steps;
    beginCatalogFetch(steps);
}

void MainWindow::loadStepDone(quint64 load)
{
    if (load == currentLoad) {
        --owedSteps;
        catalogFetchStepDone();
    }
}

MainWindow::Fetch MainWindow::beginFetch(const SourceConfig &config, int steps)
{
    currentSource.lastUpdated = QDateTime::currentSecsSinceEpoch();
    sourceManager->saveSource(currentSource);
    newestFetch.insert(config.name, currentLoad);
    beginLoadSteps(steps);
    return {currentLoad, config.name};
}

bool MainWindow::isNewest(const Fetch &fetch) const
{
    return newestFetch.value(fetch.sourceName) == fetch.load;
}

void MainWindow::loadM3uSource(const SourceConfig &config, bool force)
{
    if (!force && isFresh(config)) {
        CatalogCache::Section section;
        if (CatalogCache::load(config.name, channelSection, section)) {
            showChannels(section.categories, section.items);
            return;
        }
    }
    const Fetch fetch = beginFetch(config, 1);
    if (isDownloadable(config.url)) {
        downloadPlaylist(config.url, fetch);
        return;
    }
    QFile file(config.url);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        takePlaylist(file.readAll(), fetch);
    } else {
        loadStepDone(fetch.load);
        PlainMessageBox::warnOnce(this, tr("Load Playlist"),
                                  tr("Failed to open file: ") + config.url);
    }
}

void MainWindow::downloadPlaylist(const QString &url, const Fetch &fetch)
{
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] ->" << traceSafeUrl(url);
    }
    QNetworkReply *reply = network->get(QNetworkRequest(QUrl(url)));
    keepTimeoutBehindRedirects(reply);
    connect(reply, &QNetworkReply::finished, this, [this, reply, fetch] {
        reply->deleteLater();
        if (reply->error() != QNetworkReply::NoError) {
            const QString error = reply->errorString();
            if (netDebugEnabled()) {
                NetLogStream() << "[M3U] <- error:" << traceSafeError(*reply);
            }
            loadStepDone(fetch.load);
            if (isNewest(fetch)) {
                PlainMessageBox::warnOnce(this, tr("Load Playlist"),
                                          tr("Failed to download playlist: ") + error);
            }
            return;
        }
        const QByteArray body = reply->readAll();
        if (netDebugEnabled()) {
            NetLogStream() << "[M3U] <-" << body.size() << "bytes";
        }
        takePlaylist(body, fetch);
    });
}

void MainWindow::takePlaylist(const QByteArray &body, const Fetch &fetch)
{
    if (!isNewest(fetch)) {
        return;
    }
    const M3uParser::Result playlist = M3uParser::parse(QString::fromUtf8(body));
    // While an account is active the channels are out of sight; another playlist keeps its own.
    if (fetch.load == currentLoad || SourceType::isAccount(currentSource.type)) {
        showChannels(playlist.categories, playlist.items);
    }
    CatalogCache::save(fetch.sourceName, channelSection, {playlist.categories, playlist.items});
    loadStepDone(fetch.load);
}

void MainWindow::showChannels(const QList<Category> &categories, const QList<MediaItem> &items)
{
    BrowseTab &tab = browseTab(CatalogSection::Channel);
    tab.setCategories(categories);
    tab.setItems(items);
}

XtreamClient *MainWindow::accountClient()
{
    if (xtream == nullptr) {
        xtream = new XtreamClient(this);
    }
    return xtream;
}

QList<MainWindow::AccountKind> MainWindow::accountKinds()
{
    return {{liveSection, &browseTab(CatalogSection::Live), &XtreamClient::fetchLiveCategories,
             &XtreamClient::fetchLiveStreams},
            {movieSection, &browseTab(CatalogSection::Movie), &XtreamClient::fetchVodCategories,
             &XtreamClient::fetchVodStreams},
            {seriesSection, &browseTab(CatalogSection::Series),
             &XtreamClient::fetchSeriesCategories, &XtreamClient::fetchSeries}};
}

void MainWindow::loadXtreamSource(const SourceConfig &config, bool force)
{
    accountClient()->configure(config.url, config.username, config.password);
    if (!force && isFresh(config) && loadAccountFromCache(config.name)) {
        return;
    }
    const QList<AccountKind> kinds = accountKinds();
    // Categories and entries of each kind.
    const Fetch fetch = beginFetch(config, 2 * static_cast<int>(kinds.size()));
    for (const AccountKind &kind : kinds) {
        fetchKind(kind, fetch);
    }
}

bool MainWindow::loadAccountFromCache(const QString &sourceName)
{
    const QList<AccountKind> kinds = accountKinds();
    QStringList names;
    for (const AccountKind &kind : kinds) {
        names << kind.section;
    }
    QList<CatalogCache::Section> sections;
    if (!CatalogCache::load(sourceName, names, sections)) {
        return false;
    }
    for (qsizetype index = 0; index < kinds.size(); ++index) {
        BrowseTab &tab = *kinds.at(index).tab;
        tab.setCategories(sections.at(index).categories);
        tab.setItems(sections.at(index).items);
    }
    return true;
}

void MainWindow::fetchKind(const AccountKind &kind, const Fetch &fetch)
{
    // Each of the two replies saves the section with both halves as they then stand, so that the
    // later one writes it complete, whatever the order. Those of a load that was left are kept
    // here: the tabs belong to another one.
    const auto halves = std::make_shared<CatalogCache::Section>();
    const auto finish = [this, kind, fetch, halves] {
        if (fetch.load == currentLoad) {
            CatalogCache::save(fetch.sourceName, kind.section,
                               {kind.tab->categories(), kind.tab->items()});
        } else if (isNewest(fetch)) {
            CatalogCache::save(fetch.sourceName, kind.section, *halves);
        }
        loadStepDone(fetch.load);
    };
    (xtream->*kind.fetchCategories)([=, this](const QList<Category> &reply) {
        halves->categories = reply;
        if (fetch.load == currentLoad) {
            kind.tab->setCategories(reply);
        }
        finish();
    });
    (xtream->*kind.fetchItems)({}, [=, this](const QList<MediaItem> &reply) {
        halves->items = reply;
        if (fetch.load == currentLoad) {
            kind.tab->setItems(reply);
        }
        finish();
    });
}

void MainWindow::loadZevrinoSource(const SourceConfig &config, bool force)
{
    if (zevrino == nullptr) {
        zevrino = new ZevrinoClient(subscriptionUrl, this);
    }
    beginLoadSteps(1);
    zevrino->resolve(
        config.subscriptionKey,
        [this, config, force, load = currentLoad](
            bool ok, const ZevrinoClient::Credentials &credentials, const QString &message) {
            // Left for another source, or for this one with another key.
            if (load != currentLoad) {
                return;
            }
            if (!ok) {
                loadStepDone(load);
                PlainMessageBox::warnOnce(this, tr("Zevrino"),
                                          tr("Failed to load subscription: ") + message);
                return;
            }
            SourceConfig resolved = config;
            resolved.url = credentials.serverUrl;
            resolved.username = credentials.username;
            resolved.password = credentials.password;
            if (!credentials.streamType.isEmpty()) {
                resolved.liveExtension = credentials.streamType;
            }
            loadResolvedSource(resolved, force);
        });
}

void MainWindow::loadResolvedSource(const SourceConfig &config, bool force)
{
    accountClient()->configure(config.url, config.username, config.password);
    currentSource = config;
    loadStepDone(currentLoad);
    loadXtreamSource(config, force);
}
