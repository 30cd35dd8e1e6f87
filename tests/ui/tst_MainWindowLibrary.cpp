#include "RowMenus.h"
#include "WindowFixture.h"
#include "fakeprovider/Streams.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "ui/EpisodePage.h"

#include <QDir>
#include <QSignalSpy>
#include <QStandardPaths>

namespace {

/// A playlist of channels that all play the same ten seconds of sound.
QByteArray soundPlaylist(const QString &baseUrl, const QString &token)
{
    QByteArray text = "#EXTM3U\n"_ba;
    for (const QString &name : {u"One"_s, u"Two"_s, u"Three"_s}) {
        text += u"#EXTINF:-1 group-title=\"News\",%1\n%2/sound/%1?token=%3\n"_s
                    .arg(name, baseUrl, token)
                    .toUtf8();
    }
    return text;
}

QStringList filesIn(const QString &folder)
{
    QDir dir(folder);
    return dir.entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
}

} // namespace

/// What the window keeps for the user: from what plays, and as sources change.
class tst_MainWindowLibrary : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutUseThereIsNoFile();
    void aFileThatCannotBeMadeIsTold();
    void theKeyIsForTheListWithTheFocus();
    void theKeyIsForWhatPlays();
    void undoBringsItBack();
    void watchedAfterHalfAMinute();
    void changingChannelsIsNotWatching();
    void renamingTakesItAlong();
    void whatPlaysFollowsItsSource();
    void deletingTakesItAway();
    void aRefreshKeepsEverything();
    void newTokensAreFollowed();
    void anotherSourceHasItsOwn();
    void markingAShow();
    void markingAShowAsksTheAccount();
    void markingAShowTwice();

private:
    void openPlaylist();
    void openAccount(XtreamProvider &provider);
    void playFirstChannel();
    /// Without "All Categories".
    QStringList categories(const QString &list = u"channelCategoryList"_s) const
    {
        return rows(list);
    }
    Library &library() const { return *window().findChild<Library *>(); }
    QTimer &watchedTimer() const { return find<QTimer>(u"watchedTimer"_s); }
    QStringList favorites(const QString &source) const
    {
        QStringList names;
        for (const Favorite &row : library().favoritesInOrder(source, EntryKind::Channel))
            names << row.name;
        return names;
    }
    void addFavorite(int row)
    {
        auto &table = find<QTableWidget>(u"channelTable"_s);
        QVERIFY(RowMenus::choose(RowMenus::openByMouse(table, row), u"Add to Favorites"_s));
    }

    std::unique_ptr<HttpServer> server;
    QString token;
};

void tst_MainWindowLibrary::init()
{
    reset();
    token = u"first"_s;
    server = std::make_unique<HttpServer>();
    server->on(u"/list"_s, [this](const HttpRequest &) {
        HttpReply reply;
        reply.body = soundPlaylist(server->url(), token);
        return reply;
    });
    server->onPrefix(u"/sound/"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
}

void tst_MainWindowLibrary::openPlaylist()
{
    store(playlistSource(u"A"_s, server->url(u"/list"_s), neverLoaded));
    open();
    [&] { QTRY_COMPARE(shownChannels().size(), 3); }();
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
}

/// Waits for its shows.
void tst_MainWindowLibrary::openAccount(XtreamProvider &provider)
{
    serve(provider, madeUpCatalog(u"x"_s));
    store(sourceFor(provider, u"Account"_s));
    open();
    QTRY_VERIFY(find<QListWidget>(u"seriesPosterList"_s).count() > 0);
    QTRY_VERIFY(!overlayShown());
}

void tst_MainWindowLibrary::playFirstChannel()
{
    window().playChannelRow(0, 0);
    if (!QTest::qWaitFor([this] { return player().timeMs() > 0; }, 10000))
        qFatal("the sound does not play");
}

void tst_MainWindowLibrary::withoutUseThereIsNoFile()
{
    openPlaylist();
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QStringList before = filesIn(folder);
    find<QLineEdit>(u"channelSearch"_s).setText(u"o"_s);
    find<QLineEdit>(u"channelSearch"_s).clear();
    playFirstChannel();
    window().playChannelRow(1, 0);
    window().refreshActiveSource();
    QTRY_COMPARE(server->requestCount(u"/list"_s), 2);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(categories(), QStringList{u"News"_s});
    QVERIFY(window().close());
    QCOMPARE(filesIn(folder), before);
    QVERIFY(!QFile::exists(Library::defaultFilePath()));
}

void tst_MainWindowLibrary::aFileThatCannotBeMadeIsTold()
{
    QVERIFY(QDir().mkpath(Library::defaultFilePath() + "/in the way"_L1));
    openPlaylist();
    addFavorite(0);
    QTRY_VERIFY(!dialogs.seen().isEmpty());
    QCOMPARE(dialogs.seen().constLast().title, u"Favorites and Positions"_s);
    QVERIFY(dialogs.seen().constLast().text.startsWith(
        "Favorites and positions cannot be stored: "_L1));
}

void tst_MainWindowLibrary::theKeyIsForTheListWithTheFocus()
{
    openPlaylist();
    auto &table = find<QTableWidget>(u"channelTable"_s);
    table.setFocus();
    table.setCurrentCell(1, 0);
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(favorites(u"A"_s), QStringList{u"Two"_s});
    QCOMPARE(categories(), (QStringList{u"Favorites"_s, u"News"_s}));
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(favorites(u"A"_s), QStringList());
}

void tst_MainWindowLibrary::theKeyIsForWhatPlays()
{
    openPlaylist();
    find<QWidget>(u"playerPanel"_s).setFocus();
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QVERIFY(!QFile::exists(Library::defaultFilePath()));
    playFirstChannel();
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(favorites(u"A"_s), QStringList{u"One"_s});
    QCOMPARE(find<QLabel>(u"undoLabel"_s).text(), u"Added to Favorites"_s);
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(favorites(u"A"_s), QStringList());
}

void tst_MainWindowLibrary::undoBringsItBack()
{
    openPlaylist();
    for (int row = 0; row < 3; ++row)
        addFavorite(row);
    QVERIFY(!shows(u"undoBar"_s));
    auto &table = find<QTableWidget>(u"channelTable"_s);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(table, 1), u"Remove from Favorites"_s));
    QVERIFY(shows(u"undoBar"_s));
    QCOMPARE(find<QLabel>(u"undoLabel"_s).text(), u"Removed from Favorites"_s);
    QTest::mouseClick(&find<QPushButton>(u"undoButton"_s), Qt::LeftButton);
    // In its place.
    QCOMPARE(favorites(u"A"_s), (QStringList{u"One"_s, u"Two"_s, u"Three"_s}));
    QVERIFY(!shows(u"undoBar"_s));
}

void tst_MainWindowLibrary::watchedAfterHalfAMinute()
{
    openPlaylist();
    QVERIFY(!watchedTimer().isActive());
    playFirstChannel();
    QTRY_VERIFY(watchedTimer().isActive());
    QCOMPARE(watchedTimer().interval(), 30000);
    watchedTimer().start(0); // half a minute is over
    QTRY_COMPARE(categories(), (QStringList{u"Recently Watched"_s, u"News"_s}));
    const QList<WatchedEntry> watched = library().recentlyWatched(u"A"_s, EntryKind::Channel);
    QCOMPARE(watched.size(), 1);
    QCOMPARE(watched.constFirst().name, u"One"_s);
    QCOMPARE(watched.constFirst().categoryId, u"News"_s);
    // Once for each time that it is chosen.
    const QSignalSpy progress(&player(), &VlcPlayer::playbackProgressing);
    const QSignalSpy changes(&library(), &Library::changed);
    QTRY_VERIFY(progress.count() > 1);
    QCOMPARE(changes.count(), 0);
}

void tst_MainWindowLibrary::changingChannelsIsNotWatching()
{
    openPlaylist();
    playFirstChannel();
    QTRY_VERIFY(watchedTimer().isActive());
    window().playChannelRow(1, 0);
    QVERIFY(!watchedTimer().isActive());
    QTRY_VERIFY(watchedTimer().isActive());
    watchedTimer().start(0);
    QTRY_COMPARE(library().recentlyWatched(u"A"_s, EntryKind::Channel).size(), 1);
    QCOMPARE(library().recentlyWatched(u"A"_s, EntryKind::Channel).constFirst().name, u"Two"_s);
}

void tst_MainWindowLibrary::renamingTakesItAlong()
{
    openPlaylist();
    addFavorite(2);
    dialogs.nextForm(SourceType::Playlist, {{u"m3uNameEdit"_s, u"B"_s}});
    button(u"Edit Source..."_s).click();
    QCOMPARE(favorites(u"A"_s), QStringList());
    QCOMPARE(favorites(u"B"_s), QStringList{u"Three"_s});
    QTRY_COMPARE(categories(), (QStringList{u"Favorites"_s, u"News"_s}));
}

void tst_MainWindowLibrary::whatPlaysFollowsItsSource()
{
    openPlaylist();
    playFirstChannel();
    QTRY_VERIFY(watchedTimer().isActive());
    dialogs.nextForm(SourceType::Playlist, {{u"m3uNameEdit"_s, u"B"_s}});
    button(u"Edit Source..."_s).click();
    watchedTimer().start(0);
    QTRY_COMPARE(library().recentlyWatched(u"B"_s, EntryKind::Channel).size(), 1);
    QVERIFY(library().recentlyWatched(u"A"_s, EntryKind::Channel).isEmpty());
}

void tst_MainWindowLibrary::deletingTakesItAway()
{
    openPlaylist();
    addFavorite(2);
    dialogs.nextClicks(u"Delete Source"_s);
    dialogs.nextClicks(u"Yes"_s);
    button(u"Edit Source..."_s).click();
    QCOMPARE(favorites(u"A"_s), QStringList());
    QCOMPARE(categories(), QStringList());
}

void tst_MainWindowLibrary::aRefreshKeepsEverything()
{
    openPlaylist();
    addFavorite(1);
    library().hideCategory(u"A"_s, EntryKind::Channel, {u"News"_s, u"News"_s});
    window().refreshActiveSource();
    QTRY_COMPARE(server->requestCount(u"/list"_s), 2);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(favorites(u"A"_s), QStringList{u"Two"_s});
    QCOMPARE(categories(), (QStringList{u"Favorites"_s}));
    // Also for the next start.
    open();
    QTRY_COMPARE(categories(), (QStringList{u"Favorites"_s}));
    QCOMPARE(favorites(u"A"_s), QStringList{u"Two"_s});
}

void tst_MainWindowLibrary::newTokensAreFollowed()
{
    openPlaylist();
    addFavorite(1);
    token = u"second"_s;
    window().refreshActiveSource();
    QTRY_COMPARE(server->requestCount(u"/list"_s), 2);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(favorites(u"A"_s), QStringList{u"Two"_s});
    QTRY_VERIFY(library()
                    .favoritesInOrder(u"A"_s, EntryKind::Channel)
                    .constFirst()
                    .id.endsWith(u"token=second"_s));
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(1));
    QCOMPARE(shownChannels(), QStringList{u"Two"_s});
}

void tst_MainWindowLibrary::anotherSourceHasItsOwn()
{
    store(playlistSource(u"B"_s, server->url(u"/list"_s), neverLoaded));
    storeLastActive(u"A"_s);
    openPlaylist();
    addFavorite(0);
    window().onSourceSelected(combo().findText(u"B"_s));
    QTRY_COMPARE(server->requestCount(u"/list"_s), 2);
    QTRY_VERIFY(!overlayShown());
    QCOMPARE(categories(), QStringList{u"News"_s});
    // What plays stays of its source.
    window().onSourceSelected(combo().findText(u"A"_s));
    QTRY_COMPARE(shownChannels().size(), 3);
    playFirstChannel();
    window().onSourceSelected(combo().findText(u"B"_s));
    find<QWidget>(u"playerPanel"_s).setFocus();
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(favorites(u"A"_s), QStringList());
    QCOMPARE(favorites(u"B"_s), QStringList());
}

void tst_MainWindowLibrary::markingAShow()
{
    const QString source = u"Account"_s;
    store(accountSource(source, server->url()));
    cacheCatalog(source, madeUpCatalog(u"x"_s));
    open();
    auto &grid = find<QListWidget>(u"seriesPosterList"_s);
    const QList<MediaItem> shows = [&] {
        CatalogCache::Section section;
        return CatalogCache::load(source, u"series"_s, section) ? section.items
                                                                : QList<MediaItem>();
    }();
    QVERIFY(!shows.isEmpty());
    QTRY_VERIFY(grid.count() > 0);
    Episode first;
    first.id = u"e1"_s;
    Episode second;
    second.id = u"e2"_s;
    for (const MediaItem &show : shows)
        CatalogCache::saveEpisodes(source, show.id, {first, second});
    Progress ofAnotherShow;
    ofAnotherShow.source = source;
    ofAnotherShow.kind = EntryKind::Episode;
    ofAnotherShow.id = u"e3"_s;
    ofAnotherShow.showId = u"another"_s;
    library().setWatched({ofAnotherShow}, true);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 0), u"Mark as Watched"_s));
    QCOMPARE(library().progress(source, EntryKind::Episode).size(), 3);
    QCOMPARE(library().progress(source, EntryKind::Show).size(), 1);
    QVERIFY(library().progress(source, EntryKind::Episode).value(u"e2"_s).isLast);
    QCOMPARE(grid.item(0)->data(Qt::AccessibleDescriptionRole).toString(), u"Watched"_s);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 0), u"Mark as Unwatched"_s));
    QCOMPARE(library().progress(source, EntryKind::Episode).keys(), QStringList{u"e3"_s});
    QVERIFY(library().progress(source, EntryKind::Show).isEmpty());
    QTest::mouseClick(&find<QPushButton>(u"undoButton"_s), Qt::LeftButton);
    QCOMPARE(library().progress(source, EntryKind::Episode).size(), 3);
    QCOMPARE(server->requestCount(), 0);
}

void tst_MainWindowLibrary::markingAShowAsksTheAccount()
{
    XtreamProvider provider;
    openAccount(provider);
    auto &grid = find<QListWidget>(u"seriesPosterList"_s);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 0), u"Mark as Watched"_s));
    QTRY_COMPARE(library().progress(u"Account"_s, EntryKind::Show).size(), 1);
    QVERIFY(!library().progress(u"Account"_s, EntryKind::Episode).isEmpty());
    // Without an answer nothing is marked.
    provider.setReply(XtreamAction::seriesInfo, "{}"_ba);
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 1), u"Mark as Watched"_s));
    QTRY_COMPARE(provider.requestCount(XtreamAction::seriesInfo), 2);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(library().progress(u"Account"_s, EntryKind::Show).size(), 1);
    // Nor is an empty list that was kept an answer.
    for (const QString &show : {u"1"_s, u"2"_s, u"3"_s})
        CatalogCache::saveEpisodes(u"Account"_s, show, {});
    QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 1), u"Mark as Watched"_s));
    QTRY_COMPARE(provider.requestCount(XtreamAction::seriesInfo), 3);
}

/// The second answer changes nothing any more.
void tst_MainWindowLibrary::markingAShowTwice()
{
    XtreamProvider provider;
    openAccount(provider);
    auto &grid = find<QListWidget>(u"seriesPosterList"_s);
    provider.setManner(XtreamAction::seriesInfo, XtreamProvider::Manner::Held);
    for (int time = 0; time < 2; ++time)
        QVERIFY(RowMenus::choose(RowMenus::openByMouse(grid, 0), u"Mark as Watched"_s));
    QTRY_COMPARE(provider.requestCount(XtreamAction::seriesInfo), 2);
    provider.release(XtreamAction::seriesInfo);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(library().progress(u"Account"_s, EntryKind::Show).size(), 1);
    QTest::mouseClick(&find<QPushButton>(u"undoButton"_s), Qt::LeftButton);
    QVERIFY(library().progress(u"Account"_s, EntryKind::Show).isEmpty());
}

VANTIRO_TEST_MAIN(tst_MainWindowLibrary)
#include "tst_MainWindowLibrary.moc"
