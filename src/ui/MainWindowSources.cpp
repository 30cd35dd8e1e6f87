#include "ui/MainWindow.h"

#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "model/Age.h"
#include "model/SourceManager.h"
#include "providers/M3uParser.h"
#include "providers/NetworkTrace.h"
#include "providers/XtreamClient.h"
#include "providers/ZevrinoClient.h"
#include "ui/PlainMessageBox.h"

#include <QDateTime>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

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

void MainWindow::stampFetchStart()
{
    currentSource.lastUpdated = QDateTime::currentSecsSinceEpoch();
    sourceManager->saveSource(currentSource);
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
    stampFetchStart();
    beginCatalogFetch(1);
    if (isDownloadable(config.url)) {
        downloadPlaylist(config);
        return;
    }
    QFile file(config.url);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        takePlaylist(config.name, file.readAll());
    } else {
        catalogFetchStepDone();
        PlainMessageBox::warn(this, tr("Load Playlist"), tr("Failed to open file: ") + config.url);
    }
}

void MainWindow::downloadPlaylist(const SourceConfig &config)
{
    if (netDebugEnabled()) {
        NetLogStream() << "[M3U] ->" << traceSafeUrl(config.url);
    }
    QNetworkReply *reply = network->get(QNetworkRequest(QUrl(config.url)));
    connect(reply, &QNetworkReply::finished, this, [this, reply, name = config.name] {
        reply->deleteLater();
        if (reply->error() != QNetworkReply::NoError) {
            const QString error = reply->errorString();
            if (netDebugEnabled()) {
                NetLogStream() << "[M3U] <- error:" << traceSafeError(*reply);
            }
            catalogFetchStepDone();
            PlainMessageBox::warn(this, tr("Load Playlist"),
                                  tr("Failed to download playlist: ") + error);
            return;
        }
        const QByteArray body = reply->readAll();
        if (netDebugEnabled()) {
            NetLogStream() << "[M3U] <-" << body.size() << "bytes";
        }
        takePlaylist(name, body);
    });
}

void MainWindow::takePlaylist(const QString &sourceName, const QByteArray &body)
{
    const M3uParser::Result playlist = M3uParser::parse(QString::fromUtf8(body));
    showChannels(playlist.categories, playlist.items);
    CatalogCache::save(sourceName, channelSection, {playlist.categories, playlist.items});
    catalogFetchStepDone();
}

void MainWindow::showChannels(const QList<Category> &categories, const QList<MediaItem> &items)
{
    channelItems = items;
    populateCategoryList(channelCategoryList, categories);
    filterChannels();
}

XtreamClient *MainWindow::accountClient()
{
    if (xtream == nullptr) {
        xtream = new XtreamClient(this);
    }
    return xtream;
}

void MainWindow::loadXtreamSource(const SourceConfig &config, bool force)
{
    accountClient()->configure(config.url, config.username, config.password);
    if (!force && isFresh(config) && loadAccountFromCache(config.name)) {
        return;
    }
    stampFetchStart();
    fetchAccount(config.name);
}

bool MainWindow::loadAccountFromCache(const QString &sourceName)
{
    QList<CatalogCache::Section> sections;
    if (!CatalogCache::load(sourceName, {liveSection, movieSection, seriesSection}, sections)) {
        return false;
    }
    liveCategories = sections.at(0).categories;
    liveItems = sections.at(0).items;
    populateCategoryList(liveCategoryList, liveCategories);
    filterLive();
    movieCategories = sections.at(1).categories;
    movieItems = sections.at(1).items;
    populateCategoryList(movieCategoryList, movieCategories);
    filterMovies();
    seriesCategories = sections.at(2).categories;
    seriesItems = sections.at(2).items;
    populateCategoryList(seriesCategoryList, seriesCategories);
    filterSeries();
    return true;
}

void MainWindow::fetchAccount(const QString &sourceName)
{
    constexpr int steps = 6;
    beginCatalogFetch(steps);

    // Each of a kind's two replies saves the section with both halves as they then stand, so that
    // the later one writes it complete, whatever the order.
    const auto takeCategories = [this,
                                 sourceName](const QString &section, QList<Category> &categories,
                                             const QList<MediaItem> &items, QListWidget *list) {
        return [=, this, &categories, &items](const QList<Category> &reply) {
            categories = reply;
            populateCategoryList(list, categories);
            CatalogCache::save(sourceName, section, {categories, items});
            catalogFetchStepDone();
        };
    };
    const auto takeItems = [this,
                            sourceName](const QString &section, const QList<Category> &categories,
                                        QList<MediaItem> &items, void (MainWindow::*refilter)()) {
        return [=, this, &categories, &items](const QList<MediaItem> &reply) {
            items = reply;
            (this->*refilter)();
            CatalogCache::save(sourceName, section, {categories, items});
            catalogFetchStepDone();
        };
    };

    xtream->fetchLiveCategories(
        takeCategories(liveSection, liveCategories, liveItems, liveCategoryList));
    xtream->fetchLiveStreams(
        {}, takeItems(liveSection, liveCategories, liveItems, &MainWindow::filterLive));
    xtream->fetchVodCategories(
        takeCategories(movieSection, movieCategories, movieItems, movieCategoryList));
    xtream->fetchVodStreams(
        {}, takeItems(movieSection, movieCategories, movieItems, &MainWindow::filterMovies));
    xtream->fetchSeriesCategories(
        takeCategories(seriesSection, seriesCategories, seriesItems, seriesCategoryList));
    xtream->fetchSeries(
        {}, takeItems(seriesSection, seriesCategories, seriesItems, &MainWindow::filterSeries));
}

void MainWindow::loadZevrinoSource(const SourceConfig &config, bool force)
{
    if (zevrino == nullptr) {
        zevrino = new ZevrinoClient(this);
    }
    beginCatalogFetch(1);
    zevrino->resolve(config.subscriptionKey,
                     [this, config, force](bool ok, const ZevrinoClient::Credentials &credentials,
                                           const QString &message) {
                         const bool left = currentSource.name != config.name ||
                                           currentSource.type != SourceType::Zevrino;
                         if (left) {
                             catalogFetchStepDone();
                             return;
                         }
                         if (!ok) {
                             catalogFetchStepDone();
                             PlainMessageBox::warn(this, tr("Zevrino"),
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
    catalogFetchStepDone();
    loadXtreamSource(config, force);
}
