// Shows: when the provider is asked for episodes, what becomes of the reply, and how they play.

#include "WindowFixture.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "support/TestFiles.h"
#include "ui/BrowseTab.h"
#include "ui/EpisodePage.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTreeWidget>

namespace {

const QString api = u"/player_api.php"_s;
/// Two episodes as a provider sends them.
const QByteArray seriesInfo = R"({"info":{"name":"Server's name"},"episodes":{
    "1":[{"id":"5","episode_num":2,"title":"Pilot","container_extension":"avi"}],
    "10":[{"id":"7","episode_num":1,"title":"Third"}]}})"_ba;
const QStringList infoRows{u"Season 1:"_s, u"E02 - Pilot"_s, u"Season 10:"_s, u"E01 - Third"_s};
const QList<Episode> twoEpisodes{{u"21"_s, u"Show"_s, 2, 1, u"Return"_s, u"mkv"_s},
                                 {u"22"_s, u"Show"_s, 2, 2, u"End"_s, {}}};
const QStringList twoRows{u"Season 2:"_s, u"E01 - Return"_s, u"E02 - End"_s};

void cacheEmptyCatalog(const QString &source)
{
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(source, section, {});
    }
}

/// Makes the episodes in the cache of source A that old.
void ageCachedEpisodes(qint64 seconds)
{
    const QString path = PrivateProfile::current().appDataDir() + u"/catalog_cache/A.json"_s;
    const QString savedAt = u"\"savedAt\":"_s;
    QString text = QString::fromUtf8(readFile(path));
    QVERIFY(text.contains(savedAt));
    text.replace(QRegularExpression(savedAt + u"\\d+"_s),
                 savedAt + QString::number(QDateTime::currentSecsSinceEpoch() - seconds));
    writeFile(path, text.toUtf8());
}

/// How many episodes of the show the source's cache holds; -1 when it does not know the show.
qsizetype cachedEpisodes(const QString &source, const QString &seriesId)
{
    QList<Episode> cached;
    return CatalogCache::loadEpisodes(source, seriesId, 60, cached) ? cached.size() : -1;
}

} // namespace

/// On an account "A" with the shows "Other" (id 8) and "Show" (id 9). No stream ever answers.
class tst_MainWindowSeries : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cachedEpisodesLastADay_data();
    void cachedEpisodesLastADay();
    void fetchedEpisodesAreShownAndCached();
    void aReplyAfterLeavingThePageIsDropped_data();
    void aReplyAfterLeavingThePageIsDropped();
    void aLateReplyBelongsToItsAccount();
    void noEpisodesAreCached();
    void withoutAnAccountNothingOpens();
    void anAccountLoadedEarlierIsEnough();
    void nextEpisodeWalksToTheEnd();
    void keysWalkToBothEnds();
    void nextEpisodeFollowsThePlayingShow();
    void nextEpisodeStaysWithItsAccount();
    void playingAnEntryEndsTheShow();
    void marksAreToldAndCanBeTakenBack();

private:
    void openShows();
    /// Opens the shows, and among them the page of "Show" with twoEpisodes from the cache.
    void openEpisodes();
    void show(const QString &id = u"9"_s, const QString &name = u"Show"_s);
    int page() const { return find<BrowseTab>(u"seriesTab"_s).currentPage(); }
    QTreeWidget &tree() const { return find<QTreeWidget>(u"episodeTree"_s); }
    /// Every row from top to bottom, seasons with a colon.
    QStringList episodeRows() const;
    /// Chooses an episode of the first season.
    void choose(int index) const;
    QAbstractButton &nextButton() const { return button(u"Next Episode"_s); }

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowSeries::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    server->on(api, bodyReply(seriesInfo));
    store(accountSource(u"A"_s, server->url()));
    cacheEmptyCatalog(u"A"_s);
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, {entry(StreamKind::Movie, u"Film"_s)}});
}

void tst_MainWindowSeries::openShows()
{
    open();
    auto &shows = find<BrowseTab>(u"seriesTab"_s);
    tabs().setCurrentWidget(&shows);
    shows.showPage(BrowsePage::Items);
}

void tst_MainWindowSeries::openEpisodes()
{
    CatalogCache::saveEpisodes(u"A"_s, u"9"_s, twoEpisodes);
    openShows();
    show();
}

void tst_MainWindowSeries::show(const QString &id, const QString &name)
{
    window().showEpisodesInline(id, name);
}

QStringList tst_MainWindowSeries::episodeRows() const
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

void tst_MainWindowSeries::choose(int index) const
{
    find<EpisodePage>(u"episodePage"_s).playEpisodeTreeItem(tree().topLevelItem(0)->child(index));
}

void tst_MainWindowSeries::cachedEpisodesLastADay_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("a little less than a day ago") << qint64(86400 - 30) << true;
    QTest::newRow("a day ago") << qint64(86400) << false;
    QTest::newRow("in the future") << qint64(-5000) << true;
}

void tst_MainWindowSeries::cachedEpisodesLastADay()
{
    QFETCH(qint64, age);
    QFETCH(bool, fresh);
    openShows();
    CatalogCache::saveEpisodes(u"A"_s, u"9"_s, twoEpisodes);
    ageCachedEpisodes(age);
    show();
    QCOMPARE(episodeRows(), fresh ? twoRows : QStringList());
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(server->requestCount(api), fresh ? 0 : 1);
    QCOMPARE(episodeRows(), fresh ? twoRows : infoRows);
}

void tst_MainWindowSeries::fetchedEpisodesAreShownAndCached()
{
    openShows();
    show();
    QCOMPARE(page(), BrowsePage::Episodes);
    QCOMPARE(episodeRows(), QStringList());
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    const HttpRequest request = server->requests().constFirst();
    QCOMPARE(request.queryValue(u"action"_s), u"get_series_info"_s);
    QCOMPARE(request.queryValue(u"series_id"_s), u"9"_s);
    QCOMPARE(episodeRows(), infoRows);
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 2);
    QCOMPARE(cached.at(0), (Episode{u"5"_s, u"Server's name"_s, 1, 2, u"Pilot"_s, u"avi"_s}));

    // The page stays filled until another show opens.
    button(u"< Back to Shows"_s).click();
    QCOMPARE(episodeRows(), infoRows);
    show(u"8"_s, u"Other"_s);
    QCOMPARE(find<QLabel>(u"episodeTitleLabel"_s).text(), u"Other"_s);
    QCOMPARE(episodeRows(), QStringList());
    show();
    QCOMPARE(episodeRows(), infoRows);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(server->requestCount(api), 2);
}

void tst_MainWindowSeries::aReplyAfterLeavingThePageIsDropped_data()
{
    QTest::addColumn<bool>("switchSource");
    QTest::newRow("back to the shows") << false;
    QTest::newRow("another source") << true;
}

void tst_MainWindowSeries::aReplyAfterLeavingThePageIsDropped()
{
    QFETCH(bool, switchSource);
    openShows();
    server->on(api, heldReply(seriesInfo));
    show();
    QTRY_COMPARE(server->requestCount(api), 1);
    if (switchSource) {
        cacheEmptyCatalog(u"B"_s);
        window().loadSource(playlistSource(u"B"_s, u"/nowhere"_s), false);
    } else {
        button(u"< Back to Shows"_s).click();
    }
    server->release(api);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(page(), switchSource ? BrowsePage::Categories : BrowsePage::Items);
    QCOMPARE(episodeRows(), QStringList());
    QCOMPARE(cachedEpisodes(u"A"_s, u"9"_s), -1);
    QCOMPARE(cachedEpisodes(u"B"_s, u"9"_s), -1);

    show();
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(server->requestCount(api), 2);
    QCOMPARE(episodeRows(), infoRows);
}

void tst_MainWindowSeries::aLateReplyBelongsToItsAccount()
{
    cacheEmptyCatalog(u"B"_s);
    CatalogCache::saveEpisodes(u"B"_s, u"8"_s, {});
    openShows();
    server->on(api, heldReply(seriesInfo));
    show();
    QTRY_COMPARE(server->requestCount(api), 1);
    window().loadSource(accountSource(u"B"_s, u"http://127.0.0.1:9"_s), false);
    // The page of another show is open when the reply arrives.
    show(u"8"_s, u"Other"_s);
    server->release(api);
    QTRY_COMPARE(episodeRows(), infoRows);
    QCOMPARE(find<QLabel>(u"episodeTitleLabel"_s).text(), u"Other"_s);
    QCOMPARE(cachedEpisodes(u"A"_s, u"9"_s), 2);
    QCOMPARE(cachedEpisodes(u"B"_s, u"9"_s), -1);
    QCOMPARE(cachedEpisodes(u"B"_s, u"8"_s), 0);
    choose(0);
    QTRY_VERIFY(server->requestCount(u"/series/u/p/5.avi"_s) > 0);
}

void tst_MainWindowSeries::noEpisodesAreCached()
{
    openShows();
    server->on(api, statusReply(503));
    // The second time they come from the cache.
    for (int round = 0; round < 2; ++round) {
        show();
        QTRY_VERIFY(repliesUnderWay().isEmpty());
        QCOMPARE(episodeRows(), QStringList());
        QCOMPARE(page(), BrowsePage::Episodes);
        QCOMPARE(cachedEpisodes(u"A"_s, u"9"_s), 0);
        QCOMPARE(server->requestCount(api), 1);
    }
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_MainWindowSeries::withoutAnAccountNothingOpens()
{
    store(playlistSource(u"P"_s, u"/nowhere"_s));
    storeLastActive(u"P"_s);
    cacheEmptyCatalog(u"P"_s);
    CatalogCache::saveEpisodes(u"P"_s, u"9"_s, twoEpisodes);
    openShows();
    show();
    QCOMPARE(page(), BrowsePage::Items);
    QCOMPARE(episodeRows(), QStringList());
    QCOMPARE(find<QLabel>(u"episodeTitleLabel"_s).text(), QString());
}

void tst_MainWindowSeries::anAccountLoadedEarlierIsEnough()
{
    openShows();
    cacheEmptyCatalog(u"P"_s);
    window().loadSource(playlistSource(u"P"_s, u"/nowhere"_s), false);
    show();
    QCOMPARE(page(), BrowsePage::Episodes);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(episodeRows(), infoRows);
    // The cache of the active source takes them.
    QCOMPARE(cachedEpisodes(u"P"_s, u"9"_s), 2);
}

void tst_MainWindowSeries::nextEpisodeWalksToTheEnd()
{
    openEpisodes();
    window().playNextEpisode();
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    QVERIFY(!nextButton().isVisible());

    choose(0);
    QCOMPARE(page(), BrowsePage::Episodes);
    QCOMPARE(nowPlaying(), u"Playing: Show - S02E01 - Return"_s);
    QTRY_COMPARE(server->requestCount(u"/series/u/p/21.mkv"_s), 1);
    QVERIFY(nextButton().isVisible() && nextButton().isEnabled());
    const QTreeWidgetItem *current = tree().currentItem();
    QTest::mouseClick(&nextButton(), Qt::LeftButton);
    QCOMPARE(nowPlaying(), u"Playing: Show - S02E02 - End"_s);
    QTRY_COMPARE(server->requestCount(u"/series/u/p/22.mp4"_s), 1);
    QVERIFY(nextButton().isVisible() && !nextButton().isEnabled());

    const QSignalSpy playing(&player(), &VlcPlayer::playing);
    window().playNextEpisode();
    QCOMPARE(playing.count(), 0);
    QCOMPARE(tree().currentItem(), current);
    // The show stays: it continues from its page.
    choose(0);
    QVERIFY(nextButton().isEnabled());
}

void tst_MainWindowSeries::keysWalkToBothEnds()
{
    openEpisodes();
    choose(0);
    QTRY_COMPARE(server->requestCount(u"/series/u/p/21.mkv"_s), 1);
    const QString first = u"Show - S02E01 - Return"_s;
    const QString second = u"Show - S02E02 - End"_s;
    const QList<std::pair<Qt::Key, QString>> steps{
        {Qt::Key_P, first}, {Qt::Key_N, second}, {Qt::Key_N, second}, {Qt::Key_P, first}};
    for (const auto &[key, title] : steps) {
        const bool moves = !nowPlaying().endsWith(title);
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(nowPlaying(), u"Playing: "_s + title);
        if (moves) { // which is told
            QCOMPARE(find<QLabel>(u"pictureLine"_s).accessibleName(), title);
        }
    }
    QTRY_COMPARE(server->requestCount(u"/series/u/p/21.mkv"_s), 2);
}

void tst_MainWindowSeries::nextEpisodeFollowsThePlayingShow()
{
    CatalogCache::saveEpisodes(u"A"_s, u"8"_s, {twoEpisodes.first()});
    openEpisodes();
    choose(0);
    // Looking at another show changes nothing for the one that plays.
    show(u"8"_s, u"Other"_s);
    window().playNextEpisode();
    QCOMPARE(nowPlaying(), u"Playing: Show - S02E02 - End"_s);
    choose(0);
    QCOMPARE(nowPlaying(), u"Playing: Other - S02E01 - Return"_s);
}

void tst_MainWindowSeries::nextEpisodeStaysWithItsAccount()
{
    HttpServer other;
    cacheEmptyCatalog(u"B"_s);
    openEpisodes();
    choose(0);
    window().loadSource(accountSource(u"B"_s, other.url()), false);
    window().playNextEpisode();
    QCOMPARE(nowPlaying(), u"Playing: Show - S02E02 - End"_s);
    QTRY_VERIFY(server->requestCount(u"/series/u/p/22.mp4"_s) > 0);
    // A show of the new account plays from there.
    CatalogCache::saveEpisodes(u"B"_s, u"9"_s, twoEpisodes);
    show();
    choose(0);
    QTRY_VERIFY(other.requestCount(u"/series/u/p/21.mkv"_s) > 0);
}

void tst_MainWindowSeries::playingAnEntryEndsTheShow()
{
    openEpisodes();
    choose(0);
    window().playMovieRow(0, 0);
    QCOMPARE(nowPlaying(), u"Playing: Film"_s);
    QVERIFY(!nextButton().isVisible());
    QVERIFY(!nextButton().isEnabled());
    window().playNextEpisode();
    QCOMPARE(nowPlaying(), u"Playing: Film"_s);
    // The page is still there to play from.
    choose(1);
    QCOMPARE(nowPlaying(), u"Playing: Show - S02E02 - End"_s);
    QVERIFY(nextButton().isVisible() && !nextButton().isEnabled());
}

void tst_MainWindowSeries::marksAreToldAndCanBeTakenBack()
{
    openEpisodes();
    Progress first;
    first.source = u"A"_s;
    first.kind = EntryKind::Episode;
    first.id = u"21"_s;
    first.showId = u"9"_s;
    auto &page = find<EpisodePage>(u"episodePage"_s);
    const auto &library = *window().findChild<Library *>();
    const auto isWatched = [&library] {
        return library.progress(u"A"_s, EntryKind::Episode).contains(u"21"_s);
    };
    Q_EMIT page.markRequested({first}, true);
    QCOMPARE(find<QLabel>(u"undoLabel"_s).text(), u"Marked as Watched"_s);
    QVERIFY(isWatched());
    Q_EMIT page.markRequested({first}, false);
    QCOMPARE(find<QLabel>(u"undoLabel"_s).text(), u"Marked as Unwatched"_s);
    QVERIFY(!isWatched());
    button(u"Undo"_s).click();
    QTRY_VERIFY(isWatched());
}

VANTIRO_TEST_MAIN(tst_MainWindowSeries)
#include "tst_MainWindowSeries.moc"
