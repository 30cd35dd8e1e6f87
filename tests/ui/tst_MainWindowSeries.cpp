#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/PrivateProfile.h"
#include "support/Streams.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QListWidget>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

Episode episode(const QString &id, qint32 season, qint32 number, const QString &title,
                const QString &extension = {})
{
    return {id, u"Show"_s, season, number, title, extension};
}

/// Two seasons, the second one first, and one more episode of it at the end.
QList<Episode> mixedSeasons()
{
    return {episode(u"21"_s, 2, 1, u"Return"_s, u"mkv"_s), episode(u"11"_s, 1, 1, u"Start"_s),
            episode(u"12"_s, 1, 12, u"Pilot"_s), episode(u"22"_s, 2, 2, u"End"_s)};
}

QByteArray infoReply(const QString &firstTitle)
{
    return "{\"info\":{\"name\":\"Server's name\"},\"episodes\":{\"1\":[{\"id\":\"5\","
           "\"episode_num\":2,\"title\":\""_ba +
           firstTitle.toUtf8() + "\",\"container_extension\":\"avi\"},{\"id\":6,\"episode_num\":3,"
                                 "\"title\":\"Second\"}],\"10\":[{\"id\":\"7\",\"episode_num\":1,"
                                 "\"title\":\"Third\"}]}}"_ba;
}

/// Every row's text, episodes indented, from top to bottom.
QStringList treeTexts(const QTreeWidget &tree)
{
    QStringList texts;
    for (QTreeWidgetItemIterator row(const_cast<QTreeWidget *>(&tree)); *row != nullptr; ++row) {
        texts << ((*row)->parent() != nullptr ? u"  "_s : QString()) + (*row)->text(0);
    }
    return texts;
}

} // namespace

/// The episode page: what it shows, what it asks the provider for, and what plays next.
class tst_MainWindowSeries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void page();
    void treeRows();
    void freshEpisodesNeedNoRequest_data();
    void freshEpisodesNeedNoRequest();
    void fetchedEpisodesAreShownAndCached();
    void openingEmptiesThePage();
    void aReplyAfterGoingBackIsDropped();
    void aReplyAfterASourceSwitchIsDropped();
    void aLateReplyFillsThePageOfAnotherShow();
    void failuresAreSavedAsNoEpisodes_data();
    void failuresAreSavedAsNoEpisodes();
    void withoutAnAccountNothingOpens();
    void anAccountLoadedBeforeAPlaylistStillAnswers();
    void aClickPlaysAnEpisode();
    void aClickOnASeasonPlaysNothing();
    void returnAndEnterPlayTheCurrentRow();
    void rowsOfNoEpisodePlayNothing();
    void streamsComeFromTheAccount_data();
    void streamsComeFromTheAccount();
    void nextEpisodeWalksToTheEnd();
    void nextEpisodeFollowsThePlayingShow();
    void playingFromAnotherTabEndsTheSeries();
    void cleanup() { fixture.reset(); }

private:
    /// Opens the window on the TV Shows tab of a loaded account, with the shows "Show" (id 9) and
    /// "Other" (id 8).
    void open();
    void cacheEpisodes(const QString &id, const QList<Episode> &episodes, qint64 ageSeconds = 0);
    void show(const QString &id = u"9"_s, const QString &name = u"Show"_s);
    QTreeWidget &tree() const { return fixture->find<QTreeWidget>(u"episodeTree"_s); }
    QTreeWidgetItem *row(int season, int index) const
    {
        return tree().topLevelItem(season)->child(index);
    }
    void click(const QTreeWidgetItem *item) const;
    int shownPage() const
    {
        return fixture->find<QStackedWidget>(u"seriesStack"_s).currentIndex();
    }
    QString playingText() const { return fixture->find<QLabel>(u"mutedLabel"_s).text(); }
    QPushButton &nextButton() const { return fixture->button(u"Next Episode"_s); }
    /// Waits until the provider's answers have been taken.
    [[nodiscard]] bool settled() const;
    int infoRequests() const;

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<WindowFixture> fixture;
    QByteArray info;
};

void tst_MainWindowSeries::init()
{
    server = std::make_unique<HttpServer>();
    // Sound enough for every film, so that no test ends in an error box.
    server->onPrefix(u"/"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
    server->on(u"/player_api.php"_s, bodyReply(infoReply(u"Pilot"_s)));
    fixture = std::make_unique<WindowFixture>();
}

void tst_MainWindowSeries::open()
{
    WindowFixture::store(accountSource(u"A"_s, server->url()));
    MediaItem shown = entry(StreamKind::Series, u"Show"_s);
    shown.id = u"9"_s;
    MediaItem other = entry(StreamKind::Series, u"Other"_s);
    other.id = u"8"_s;
    CatalogCache::save(u"A"_s, u"live"_s, {{}, {entry(StreamKind::Live, u"Channel"_s)}});
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, {entry(StreamKind::Movie, u"Film"_s)}});
    CatalogCache::save(u"A"_s, u"series"_s, {{}, {other, shown}});
    fixture->open();
    fixture->find<QTabWidget>(u"tabs"_s).setCurrentIndex(2);
    fixture->find<QStackedWidget>(u"seriesStack"_s).setCurrentIndex(1);
}

void tst_MainWindowSeries::cacheEpisodes(const QString &id, const QList<Episode> &episodes,
                                         qint64 ageSeconds)
{
    CatalogCache::saveEpisodes(u"A"_s, id, episodes);
    QFile file(PrivateProfile::current().appDataDir() + u"/catalog_cache/A.json"_s);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QJsonObject root = QJsonDocument::fromJson(file.readAll()).object();
    QJsonObject store = root.value("episodes"_L1).toObject();
    QJsonObject entryObject = store.value(id).toObject();
    QVERIFY(entryObject.contains("savedAt"_L1));
    entryObject.insert("savedAt"_L1, QDateTime::currentSecsSinceEpoch() - ageSeconds);
    store.insert(id, entryObject);
    root.insert("episodes"_L1, store);
    file.seek(0);
    file.resize(0);
    file.write(QJsonDocument(root).toJson(QJsonDocument::Compact));
}

void tst_MainWindowSeries::show(const QString &id, const QString &name)
{
    fixture->window().showEpisodesInline(id, name);
}

void tst_MainWindowSeries::click(const QTreeWidgetItem *item) const
{
    const QRect rect = tree().visualItemRect(item);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, rect.center());
}

bool tst_MainWindowSeries::settled() const
{
    return QTest::qWaitFor([this] {
        return fixture->window().findChildren<QNetworkReply *>().isEmpty();
    });
}

int tst_MainWindowSeries::infoRequests() const
{
    return server->requestCount(u"/player_api.php"_s);
}

void tst_MainWindowSeries::page()
{
    open();
    show();
    QCOMPARE(shownPage(), 2);
    auto &title = fixture->find<QLabel>(u"episodeTitleLabel"_s);
    QCOMPARE(title.text(), u"Show"_s);
    QCOMPARE(title.font().weight(), QFont::Bold);
    QVERIFY(tree().isHeaderHidden());

    const auto *layout = qobject_cast<QVBoxLayout *>(tree().parentWidget()->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(1)->widget(), &tree());
    QCOMPARE(layout->stretch(1), 1);
    const auto *top = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(top != nullptr);
    QCOMPARE(top->itemAt(0)->widget(), &fixture->button(u"< Back to Shows"_s));
    QCOMPARE(top->itemAt(1)->widget(), &title);
    QCOMPARE(top->stretch(0), 0);
    QCOMPARE(top->stretch(1), 1);

    QTest::mouseClick(&fixture->button(u"< Back to Shows"_s), Qt::LeftButton);
    QCOMPARE(shownPage(), 1);
}

void tst_MainWindowSeries::treeRows()
{
    open();
    QList<Episode> episodes = mixedSeasons();
    episodes << episode(u"1"_s, 0, 0, {}) << episode(u"2"_s, 2024, 123, u"<b>News</b> %1"_s);
    cacheEpisodes(u"9"_s, episodes);
    show();
    QCOMPARE(treeTexts(tree()),
             (QStringList{u"Season 2"_s, u"  E01 - Return"_s, u"  E02 - End"_s, u"Season 1"_s,
                          u"  E01 - Start"_s, u"  E12 - Pilot"_s, u"Season 0"_s, u"  E00 - "_s,
                          u"Season 2024"_s, u"  E123 - <b>News</b> %1"_s}));
    const QList<QList<int>> indexes{{0, 3}, {1, 2}, {4}, {5}};
    for (int season = 0; season < indexes.size(); ++season) {
        const QTreeWidgetItem &seasonRow = *tree().topLevelItem(season);
        QCOMPARE(seasonRow.font(0).weight(), QFont::Bold);
        QCOMPARE(seasonRow.flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
        QVERIFY(!seasonRow.data(0, Qt::UserRole).isValid());
        QVERIFY(seasonRow.isExpanded());
        for (int index = 0; index < seasonRow.childCount(); ++index) {
            const QVariant data = seasonRow.child(index)->data(0, Qt::UserRole);
            QCOMPARE(data.typeId(), int(QMetaType::Int));
            QCOMPARE(data.toInt(), indexes.at(season).at(index));
            QVERIFY(seasonRow.child(index)->flags().testFlag(Qt::ItemIsSelectable));
        }
    }
}

void tst_MainWindowSeries::freshEpisodesNeedNoRequest_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("saved just now") << qint64(0) << true;
    QTest::newRow("saved a little less than a day ago") << qint64(86400 - 30) << true;
    QTest::newRow("saved a day ago") << qint64(86400) << false;
    QTest::newRow("saved long ago") << qint64(100 * 86400) << false;
    QTest::newRow("saved in the future") << qint64(-5000) << true;
}

void tst_MainWindowSeries::freshEpisodesNeedNoRequest()
{
    QFETCH(qint64, age);
    QFETCH(bool, fresh);
    open();
    cacheEpisodes(u"9"_s, mixedSeasons(), age);
    show();
    QCOMPARE(tree().topLevelItemCount(), fresh ? 2 : 0);
    QVERIFY(settled());
    QCOMPARE(infoRequests(), fresh ? 0 : 1);
    QCOMPARE(tree().topLevelItem(0)->text(0), fresh ? u"Season 2"_s : u"Season 1"_s);
}

void tst_MainWindowSeries::fetchedEpisodesAreShownAndCached()
{
    open();
    show();
    QCOMPARE(tree().topLevelItemCount(), 0);
    QVERIFY(settled());
    const HttpRequest request = server->requests().constFirst();
    QCOMPARE(request.queryValue(u"action"_s), u"get_series_info"_s);
    QCOMPARE(request.queryValue(u"series_id"_s), u"9"_s);
    QCOMPARE(treeTexts(tree()),
             (QStringList{u"Season 1"_s, u"  E02 - Pilot"_s, u"  E03 - Second"_s, u"Season 10"_s,
                          u"  E01 - Third"_s}));
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 3);
    QCOMPARE(cached.at(0), (Episode{u"5"_s, u"Server's name"_s, 1, 2, u"Pilot"_s, u"avi"_s}));

    fixture->button(u"< Back to Shows"_s).click();
    show();
    QCOMPARE(tree().topLevelItemCount(), 2);
    QVERIFY(settled());
    QCOMPARE(infoRequests(), 1);
}

void tst_MainWindowSeries::openingEmptiesThePage()
{
    open();
    cacheEpisodes(u"9"_s, mixedSeasons());
    show();
    QCOMPARE(tree().topLevelItemCount(), 2);
    // The page stays filled until another show is opened.
    fixture->button(u"< Back to Shows"_s).click();
    QCOMPARE(tree().topLevelItemCount(), 2);
    show(u"8"_s, u"Other"_s);
    QCOMPARE(tree().topLevelItemCount(), 0);
    QCOMPARE(fixture->find<QLabel>(u"episodeTitleLabel"_s).text(), u"Other"_s);
    QVERIFY(settled());
    QCOMPARE(tree().topLevelItemCount(), 2);
}

void tst_MainWindowSeries::aReplyAfterGoingBackIsDropped()
{
    open();
    server->on(u"/player_api.php"_s, heldReply(infoReply(u"Pilot"_s)));
    show();
    QTRY_COMPARE(infoRequests(), 1);
    fixture->button(u"< Back to Shows"_s).click();
    server->release(u"/player_api.php"_s);
    QVERIFY(settled());
    QCOMPARE(tree().topLevelItemCount(), 0);
    QCOMPARE(shownPage(), 1);
    QList<Episode> cached;
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));

    show();
    QVERIFY(settled());
    QCOMPARE(infoRequests(), 2);
    QCOMPARE(tree().topLevelItemCount(), 2);
}

void tst_MainWindowSeries::aReplyAfterASourceSwitchIsDropped()
{
    open();
    server->on(u"/player_api.php"_s, heldReply(infoReply(u"Pilot"_s)));
    show();
    QTRY_COMPARE(infoRequests(), 1);
    const SourceConfig other = playlistSource(u"B"_s, u"/nowhere"_s);
    CatalogCache::save(u"B"_s, u"channel"_s, {});
    fixture->window().loadSource(other, false);
    server->release(u"/player_api.php"_s);
    QVERIFY(settled());
    QCOMPARE(shownPage(), 0);
    QCOMPARE(tree().topLevelItemCount(), 0);
    QList<Episode> cached;
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(!CatalogCache::loadEpisodes(u"B"_s, u"9"_s, 60, cached));
}

void tst_MainWindowSeries::aLateReplyFillsThePageOfAnotherShow()
{
    open();
    server->on(u"/player_api.php"_s, [](const HttpRequest &request) {
        const bool first = request.queryValue(u"series_id"_s) == "9"_L1;
        return first ? HttpReply::redirect(u"/slow"_s) : HttpReply::redirect(u"/silent"_s);
    });
    server->on(u"/slow"_s, heldReply(infoReply(u"Pilot"_s)));
    HttpReply silent;
    silent.neverAnswer = true;
    server->on(u"/silent"_s, silent);
    show();
    show(u"8"_s, u"Other"_s);
    QTRY_COMPARE(server->requestCount(u"/slow"_s), 1);
    QTRY_COMPARE(server->requestCount(u"/silent"_s), 1);
    server->release(u"/slow"_s);
    QTRY_COMPARE(tree().topLevelItemCount(), 2);
    QCOMPARE(fixture->find<QLabel>(u"episodeTitleLabel"_s).text(), u"Other"_s);
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"8"_s, 60, cached));
}

void tst_MainWindowSeries::failuresAreSavedAsNoEpisodes_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("the server refuses") << 503 << QByteArray();
    QTest::newRow("a login page") << 200 << "<html></html>"_ba;
    QTest::newRow("a show without episodes") << 200 << "{\"episodes\":[]}"_ba;
}

void tst_MainWindowSeries::failuresAreSavedAsNoEpisodes()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    open();
    HttpReply reply = statusReply(status);
    reply.body = body;
    server->on(u"/player_api.php"_s, reply);
    show();
    QVERIFY(settled());
    QCOMPARE(tree().topLevelItemCount(), 0);
    QCOMPARE(shownPage(), 2);
    QList<Episode> cached{episode(u"1"_s, 1, 1, {})};
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(cached.isEmpty());
    QVERIFY(fixture->dialogs.seen().isEmpty());
    show();
    QVERIFY(settled());
    QCOMPARE(infoRequests(), 1);
}
