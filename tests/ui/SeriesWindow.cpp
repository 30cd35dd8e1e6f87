#include "SeriesWindow.h"

#include "support/PrivateProfile.h"
#include "support/TestFiles.h"
#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"
#include "ui/MainWindow.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

MediaItem entryWithId(qint32 kind, const QString &name, const QString &id)
{
    MediaItem item = entry(kind, name);
    item.id = id;
    return item;
}

} // namespace

SeriesWindow::SeriesWindow()
{
    server.onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    server.on(apiPath(), bodyReply(seriesInfo()));
    store(accountSource(u"A"_s, server.url()));
    CatalogCache::save(u"A"_s, u"live"_s, {{}, {entryWithId(0, u"Channel"_s, u"1"_s)}});
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, {entryWithId(1, u"Film"_s, u"2"_s)}});
    CatalogCache::save(
        u"A"_s, u"series"_s,
        {{}, {entryWithId(2, u"Other"_s, u"8"_s), entryWithId(2, u"Show"_s, u"9"_s)}});
}

void SeriesWindow::open()
{
    WindowFixture::open();
    auto &shows = find<BrowseTab>(u"seriesTab"_s);
    find<QTabWidget>(u"tabs"_s).setCurrentWidget(&shows);
    shows.showPage(BrowsePage::Items);
}

void SeriesWindow::cacheEpisodes(const QString &seriesId, const QList<Episode> &episodes,
                                 qint64 ageSeconds)
{
    CatalogCache::saveEpisodes(u"A"_s, seriesId, episodes);
    const QString path = PrivateProfile::current().appDataDir() + u"/catalog_cache/A.json"_s;
    QJsonObject root = QJsonDocument::fromJson(readFile(path)).object();
    QJsonObject store = root.value("episodes"_L1).toObject();
    QJsonObject saved = store.value(seriesId).toObject();
    Q_ASSERT(saved.contains("savedAt"_L1));
    saved.insert("savedAt"_L1, QDateTime::currentSecsSinceEpoch() - ageSeconds);
    store.insert(seriesId, saved);
    root.insert("episodes"_L1, store);
    writeFile(path, QJsonDocument(root).toJson(QJsonDocument::Compact));
}

int SeriesWindow::cachedEpisodes(const QString &source, const QString &seriesId)
{
    QList<Episode> cached;
    const bool known = CatalogCache::loadEpisodes(source, seriesId, 60, cached);
    return known ? static_cast<int>(cached.size()) : -1;
}

void SeriesWindow::cacheEmptyCatalog(const QString &source)
{
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(source, section, {});
    }
}

void SeriesWindow::show(const QString &seriesId, const QString &name)
{
    window().showEpisodesInline(seriesId, name);
}

void SeriesWindow::openEpisodes()
{
    cacheEpisodes(u"9"_s, mixedSeasons());
    open();
    show();
}

int SeriesWindow::page() const
{
    return find<BrowseTab>(u"seriesTab"_s).currentPage();
}

QTreeWidget &SeriesWindow::tree() const
{
    return find<QTreeWidget>(u"episodeTree"_s);
}

QStringList SeriesWindow::rows() const
{
    QStringList texts;
    for (int top = 0; top < tree().topLevelItemCount(); ++top) {
        const QTreeWidgetItem &season = *tree().topLevelItem(top);
        texts << season.text(0) + u':';
        for (int index = 0; index < season.childCount(); ++index) {
            texts << season.child(index)->text(0);
        }
    }
    return texts;
}

void SeriesWindow::choose(int season, int index) const
{
    find<EpisodePage>(u"episodePage"_s)
        .playEpisodeTreeItem(tree().topLevelItem(season)->child(index));
}

bool SeriesWindow::settle() const
{
    return QTest::qWaitFor([this] { return repliesUnderWay().isEmpty(); });
}

Episode episode(const QString &id, qint32 season, qint32 number, const QString &title,
                const QString &extension)
{
    return {id, u"Show"_s, season, number, title, extension};
}

QList<Episode> mixedSeasons()
{
    return {episode(u"21"_s, 2, 1, u"Return"_s, u"mkv"_s), episode(u"11"_s, 1, 1, u"Start"_s),
            episode(u"12"_s, 1, 12, u"Pilot"_s), episode(u"22"_s, 2, 2, u"End"_s)};
}

QByteArray seriesInfo()
{
    return R"({"info":{"name":"Server's name"},"episodes":{
        "1":[{"id":"5","episode_num":2,"title":"Pilot","container_extension":"avi"},
             {"id":6,"episode_num":3,"title":"Second"}],
        "10":[{"id":"7","episode_num":1,"title":"Third"}]}})"_ba;
}

QStringList seriesInfoRows()
{
    return {u"Season 1:"_s, u"E02 - Pilot"_s, u"E03 - Second"_s, u"Season 10:"_s, u"E01 - Third"_s};
}
