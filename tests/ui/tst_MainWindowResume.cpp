// Films and shows go on where they were left, and episodes are marked.

#include "RowMenus.h"
#include "WindowFixture.h"
#include "fakeprovider/Streams.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "ui/BrowseTab.h"

#include <QTreeWidget>

namespace {

const QString api = u"/player_api.php"_s;
const QList<Episode> threeEpisodes{{u"21"_s, u"Show"_s, 1, 1, u"One"_s, {}},
                                   {u"22"_s, u"Show"_s, 1, 2, u"Two"_s, {}},
                                   {u"23"_s, u"Show"_s, 2, 1, u"Three"_s, {}}};
/// The same without the first, as a provider sends them.
const QByteArray seriesInfo = R"({"info":{"name":"Show"},"episodes":{
    "1":[{"id":"22","episode_num":2,"title":"Two"}],
    "2":[{"id":"23","episode_num":1,"title":"Three"}]}})"_ba;

MediaItem showEntry(const QString &id, const QString &name)
{
    MediaItem item = entry(StreamKind::Series, name);
    item.id = id;
    return item;
}

/// An episode of show 9 that was left there, or finished at -1.
Progress leftAt(const QString &id, qint32 season, qint32 number, qint64 ms, bool isLast = false)
{
    Progress row = progressOf(u"A"_s, u"9"_s, {id, {}, season, number, {}, {}}, isLast);
    row.durationMs = 100'000;
    row.positionMs = ms < 0 ? row.durationMs : ms;
    return row;
}

} // namespace

/// On an account "A" with a film and the shows "Show" (id 9) and "Other" (id 8). Streams never
/// answer, but for that of the film.
class tst_MainWindowResume : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutUseNothingIsKept();
    void aFilmIsOfferedAndContinued();
    void whatCannotPlayContinuesNothing();
    void aShowGoesOn_data();
    void aShowGoesOn();
    void aFetchedShowGoesOn_data();
    void aFetchedShowGoesOn();
    void anEarlierShowArrivesLate();
    void theLastFinishedEpisodeMarksTheShow();
    void episodesAreMarkedAndTakenBack();

private:
    Library &library() const { return *window().findChild<Library *>(); }
    QTreeWidget &tree() const { return find<QTreeWidget>(u"episodeTree"_s); }
    QPushButton &offer() const { return find<QPushButton>(u"continueButton"_s); }
    int page() const { return find<BrowseTab>(u"seriesTab"_s).currentPage(); }
    MediaItem film() const { return entry(StreamKind::Movie, u"Film"_s); }
    /// As the player reports it twice a second, of 100 s.
    void reports(qint64 ms) { Q_EMIT player().positionChanged(ms, 100'000); }
    const LibraryList<Progress> &kept(EntryKind kind) const
    {
        return library().progress(u"A"_s, kind);
    }
    /// After 40 of 60 s.
    void leaveTheFilm() const
    {
        Progress left = progressOf(libraryEntry(u"A"_s, EntryKind::Movie, film()));
        left.positionMs = 40'000;
        left.durationMs = 60'000;
        library().notePosition(left);
    }
    void cacheEpisodes() { CatalogCache::saveEpisodes(u"A"_s, u"9"_s, threeEpisodes); }

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowResume::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    server->onPrefix(u"/movie/"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    });
    server->on(api, heldReply(seriesInfo));
    store(accountSource(u"A"_s, server->url()));
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s})
        CatalogCache::save(u"A"_s, section, {});
    CatalogCache::save(u"A"_s, u"movie"_s, {{}, {film()}});
    open();
}

void tst_MainWindowResume::withoutUseNothingIsKept()
{
    cacheEpisodes();
    window().showEpisodesInline(u"9"_s, u"Show"_s);
    const QAbstractItemModel &model = *tree().model();
    const QModelIndex row = model.index(0, 0, model.index(0, 0));
    QCOMPARE(row.data().toString(), u"E01 - One"_s);
    for (const int role : {Qt::UserRole + 1, Qt::UserRole + 2, int(Qt::AccessibleDescriptionRole)})
        QVERIFY(!row.data(role).isValid());
    window().playMovieRow(0, 0);
    reports(29'000);
    window().playNextEpisode();
    QVERIFY(!offer().isVisible());
    QVERIFY(window().close());
    QVERIFY(!QFile::exists(Library::defaultFilePath()));
}

void tst_MainWindowResume::aFilmIsOfferedAndContinued()
{
    leaveTheFilm();
    // A plain click starts at the beginning.
    window().playMovieRow(0, 0);
    QVERIFY(offer().isVisible());
    QCOMPARE(offer().text(), u"Continue at 00:40"_s);
    QTRY_VERIFY_WITH_TIMEOUT(player().timeMs() > 0, 10000);
    QVERIFY(player().timeMs() < 30'000);
    offer().click();
    QVERIFY(!offer().isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(player().timeMs() >= 39'000, 10000);
    window().continueEntry(film());
    QVERIFY(!offer().isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(player().isPlaying() && player().timeMs() >= 39'000, 10000);
}

/// As a catalog on disk may have it.
void tst_MainWindowResume::whatCannotPlayContinuesNothing()
{
    leaveTheFilm();
    window().playMovieRow(0, 0);
    QVERIFY(offer().isVisible());
    window().continueEntry(entry(StreamKind::Series, u"Other"_s));
    QCOMPARE(nowPlaying(), u"Playing: Film"_s);
    QVERIFY(offer().isVisible());
}

void tst_MainWindowResume::aShowGoesOn_data()
{
    QTest::addColumn<QList<Progress>>("left");
    QTest::addColumn<QString>("plays");
    const QString nothing = u"Nothing playing"_s;
    const QString two = u"Playing: Show - S01E02 - Two"_s;
    const QString three = u"Playing: Show - S02E01 - Three"_s;
    using Rows = QList<Progress>;
    QTest::newRow("nothing was watched") << Rows{} << nothing;
    QTest::newRow("the one that was left") << Rows{leftAt(u"22"_s, 1, 2, 40'000)} << two;
    QTest::newRow("the next one") << Rows{leftAt(u"21"_s, 1, 1, -1)} << two;
    QTest::newRow("the first of the next season") << Rows{leftAt(u"22"_s, 1, 2, -1)} << three;
    QTest::newRow("the last one is finished") << Rows{leftAt(u"23"_s, 2, 1, -1)} << nothing;
    QTest::newRow("it has another id now") << Rows{leftAt(u"77"_s, 1, 2, 40'000)} << two;
    QTest::newRow("the last one is finished and has another id")
        << Rows{leftAt(u"77"_s, 2, 1, -1)} << nothing;
    QTest::newRow("it is gone") << Rows{leftAt(u"77"_s, 7, 7, 40'000)} << nothing;
}

void tst_MainWindowResume::aShowGoesOn()
{
    QFETCH(const QList<Progress>, left);
    QFETCH(const QString, plays);
    cacheEpisodes();
    for (const Progress &episode : left)
        library().notePosition(episode);
    window().continueShow(showEntry(u"9"_s, u"Show"_s));
    QCOMPARE(page(), int(BrowsePage::Episodes));
    QCOMPARE(nowPlaying(), plays);
    // It is not offered what is done already.
    QVERIFY(!offer().isVisible());
}

void tst_MainWindowResume::aFetchedShowGoesOn_data()
{
    QTest::addColumn<QString>("meanwhile");
    QTest::addColumn<bool>("plays");
    QTest::newRow("the user waits") << QString() << true;
    QTest::newRow("the user goes back") << u"back"_s << false;
    QTest::newRow("another show is opened") << u"other"_s << false;
}

void tst_MainWindowResume::aFetchedShowGoesOn()
{
    QFETCH(const QString, meanwhile);
    QFETCH(const bool, plays);
    library().notePosition(leftAt(u"22"_s, 1, 2, 40'000));
    CatalogCache::saveEpisodes(u"A"_s, u"8"_s, {});
    window().continueShow(showEntry(u"9"_s, u"Show"_s));
    QTRY_COMPARE(server->requestCount(api), 1);
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    if (meanwhile == u"back"_s)
        button(u"< Back to Shows"_s).click();
    else if (meanwhile == u"other"_s)
        window().showEpisodesInline(u"8"_s, u"Other"_s);
    server->release(api);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(nowPlaying(), plays ? u"Playing: Show - S01E02 - Two"_s : u"Nothing playing"_s);
}

void tst_MainWindowResume::anEarlierShowArrivesLate()
{
    library().notePosition(leftAt(u"22"_s, 1, 2, 40'000));
    Progress ofOther = leftAt(u"32"_s, 1, 2, 40'000);
    ofOther.showId = u"8"_s;
    library().notePosition(ofOther);
    server->on(api, [](const HttpRequest &request) {
        const bool isOther = request.queryValue(u"series_id"_s) == "8"_L1;
        return isOther ? bodyReply(seriesInfo) : heldReply(seriesInfo);
    });
    window().showEpisodesInline(u"8"_s, u"Other"_s);
    window().continueShow(showEntry(u"9"_s, u"Show"_s));
    QTRY_COMPARE(tree().topLevelItemCount(), 2);
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    QTRY_COMPARE(server->requestCount(api), 2);
    server->release(api);
    QTRY_COMPARE(nowPlaying(), u"Playing: Show - S01E02 - Two"_s);
}

void tst_MainWindowResume::theLastFinishedEpisodeMarksTheShow()
{
    cacheEpisodes();
    library().notePosition(leftAt(u"21"_s, 1, 1, -1));
    library().notePosition(leftAt(u"23"_s, 2, 1, -1));
    window().showEpisodesInline(u"9"_s, u"Show"_s);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {},
                      tree().visualItemRect(tree().topLevelItem(0)->child(1)).center());
    QCOMPARE(nowPlaying(), u"Playing: Show - S01E02 - Two"_s);
    // The page of another show is open when it ends.
    window().showEpisodesInline(u"8"_s, u"Other"_s);
    reports(90'000);
    QVERIFY(!kept(EntryKind::Show).contains(u"9"_s));
    QCOMPARE(kept(EntryKind::Episode)[u"22"_s].positionMs, 90'000);
    Q_EMIT player().finished();
    QVERIFY(kept(EntryKind::Episode)[u"22"_s].watched);
    QVERIFY(kept(EntryKind::Show)[u"9"_s].watched);
}

void tst_MainWindowResume::episodesAreMarkedAndTakenBack()
{
    cacheEpisodes();
    window().showEpisodesInline(u"9"_s, u"Show"_s);
    const auto said = [this](int season, int row) {
        const QAbstractItemModel &model = *tree().model();
        const QModelIndex index = model.index(row, 0, model.index(season, 0));
        return index.data(Qt::AccessibleDescriptionRole).toString();
    };
    for (const int season : {0, 1}) {
        tree().setCurrentItem(tree().topLevelItem(season));
        QVERIFY(!kept(EntryKind::Show).contains(u"9"_s));
        QVERIFY(RowMenus::choose(RowMenus::openByKey(tree()), u"Mark as Watched"_s));
        QCOMPARE(said(season, 0), u"Watched"_s);
    }
    QCOMPARE(kept(EntryKind::Episode).size(), 3);
    QVERIFY(kept(EntryKind::Show).contains(u"9"_s));
    button(u"Undo"_s).click();
    QCOMPARE(said(1, 0), QString());
    QCOMPARE(said(0, 0), u"Watched"_s);
    QCOMPARE(kept(EntryKind::Episode).size(), 2);
    QVERIFY(!kept(EntryKind::Show).contains(u"9"_s));
}

VANTIRO_TEST_MAIN(tst_MainWindowResume)
#include "tst_MainWindowResume.moc"
