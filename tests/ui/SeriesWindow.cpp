#include "SeriesWindow.h"

#include "fakeprovider/Streams.h"
#include "support/PrivateProfile.h"
#include "ui/EpisodePage.h"
#include "ui/MainWindow.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QNetworkReply>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int showsTab = 2;
constexpr int itemsPage = 1;

MediaItem entryWithId(qint32 kind, const QString &name, const QString &id)
{
    MediaItem item = entry(kind, name);
    item.id = id;
    return item;
}

} // namespace

SeriesWindow::SeriesWindow()
{
    server.onPrefix(u"/"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
    server.on(apiPath(), bodyReply(seriesInfo()));
    WindowFixture::store(accountSource(u"A"_s, server.url()));
    CatalogCache::save(u"A"_s, u"live"_s, {{}, {entryWithId(0, u"Channel"_s, u"1"_s)}});
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, {entryWithId(1, u"Film"_s, u"2"_s)}});
    CatalogCache::save(
        u"A"_s, u"series"_s,
        {{}, {entryWithId(2, u"Other"_s, u"8"_s), entryWithId(2, u"Show"_s, u"9"_s)}});
}

void SeriesWindow::open()
{
    windowFixture.open();
    windowFixture.find<QTabWidget>(u"tabs"_s).setCurrentIndex(showsTab);
    windowFixture.find<QStackedWidget>(u"seriesStack"_s).setCurrentIndex(itemsPage);
}

void SeriesWindow::cacheEpisodes(const QString &seriesId, const QList<Episode> &episodes,
                                 qint64 ageSeconds)
{
    CatalogCache::saveEpisodes(u"A"_s, seriesId, episodes);
    QFile file(PrivateProfile::current().appDataDir() + u"/catalog_cache/A.json"_s);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    QJsonObject store = root.value("episodes"_L1).toObject();
    QJsonObject saved = store.value(seriesId).toObject();
    QVERIFY(saved.contains("savedAt"_L1));
    saved.insert("savedAt"_L1, QDateTime::currentSecsSinceEpoch() - ageSeconds);
    store.insert(seriesId, saved);
    root.insert("episodes"_L1, store);
    QVERIFY(file.resize(0));
    QVERIFY(file.seek(0));
    file.write(QJsonDocument(root).toJson(QJsonDocument::Compact));
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

void SeriesWindow::goBack() const
{
    QTest::mouseClick(&windowFixture.button(u"< Back to Shows"_s), Qt::LeftButton);
}

int SeriesWindow::page() const
{
    return windowFixture.find<QStackedWidget>(u"seriesStack"_s).currentIndex();
}

EpisodePage &SeriesWindow::episodePage() const
{
    return windowFixture.find<EpisodePage>(u"episodePage"_s);
}

QTreeWidget &SeriesWindow::tree() const
{
    return windowFixture.find<QTreeWidget>(u"episodeTree"_s);
}

QTreeWidgetItem *SeriesWindow::episodeRow(int season, int index) const
{
    return tree().topLevelItem(season)->child(index);
}

void SeriesWindow::click(const QTreeWidgetItem *row) const
{
    const QPoint place = tree().visualItemRect(row).center();
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place);
}

QString SeriesWindow::title() const
{
    return windowFixture.find<QLabel>(u"episodeTitleLabel"_s).text();
}

QString SeriesWindow::playingText() const
{
    return windowFixture.find<QLabel>(u"mutedLabel"_s).text();
}

QPushButton &SeriesWindow::nextButton() const
{
    return windowFixture.button(u"Next Episode"_s);
}

bool SeriesWindow::settle() const
{
    return QTest::qWaitFor([this] { return window().findChildren<QNetworkReply *>().isEmpty(); });
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

QStringList treeTexts(const QTreeWidget &tree)
{
    QStringList texts;
    for (int top = 0; top < tree.topLevelItemCount(); ++top) {
        const QTreeWidgetItem *season = tree.topLevelItem(top);
        texts << season->text(0);
        for (int index = 0; index < season->childCount(); ++index) {
            texts << u"  "_s + season->child(index)->text(0);
        }
    }
    return texts;
}
