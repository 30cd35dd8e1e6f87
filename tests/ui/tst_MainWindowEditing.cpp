#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestFiles.h"
#include "ui/EpisodePage.h"

#include <QMenu>
#include <QSettings>
#include <QSignalSpy>
#include <QTreeWidget>

/// Adding, editing and deleting sources through the form.
class tst_MainWindowEditing : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void addingStoresSelectsAndLoads();
    void cancellingChangesNothing();
    void theOptionsOfASourceThatIsNotStored();
    void anotherSourceBecomesActiveBeneath();
    void invalidInputIsRefused_data();
    void invalidInputIsRefused();
    void twinsAreOneSource();
    void editingFetchesAfresh();
    void renamingKeepsThePlaceInTheList();
    void deletingLoadsANeighbour_data();
    void deletingLoadsANeighbour();
    void deletingTheLastStopsAndEmptiesEverything();
    void lateRepliesAreNotStoredAgain();

private:
    /// Opens the window with playlists of these names; "/a" to "/c" have a channel of that name.
    MainWindow &openWith(const QStringList &names, const QString &lastActive = u"a"_s);
    void fillNextForm(const QString &name, const QString &path);
    void deleteCurrent();
    void chooseOptions();
    void expectOnlyA();

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowEditing::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        server->on(u'/' + name, bodyReply(oneChannel(name)));
    }
}

MainWindow &tst_MainWindowEditing::openWith(const QStringList &names, const QString &lastActive)
{
    for (const QString &name : names) {
        store(playlistSource(name, server->url(u'/' + name), neverLoaded));
    }
    storeLastActive(lastActive);
    open();
    [&] { QTRY_COMPARE(shownChannels(), QStringList{lastActive}); }();
    return window();
}

void tst_MainWindowEditing::fillNextForm(const QString &name, const QString &path)
{
    dialogs.nextForm(SourceType::Playlist,
                     {{u"m3uNameEdit"_s, name}, {u"m3uUrlEdit"_s, server->url(path)}});
}

void tst_MainWindowEditing::deleteCurrent()
{
    dialogs.nextClicks(u"Delete Source"_s);
    dialogs.nextClicks(u"Yes"_s);
    button(u"Edit Source..."_s).click();
    QCOMPARE(dialogs.waiting(), 0);
}

void tst_MainWindowEditing::chooseOptions()
{
    bool isChosen = false;
    dialogs.nextMenu([&isChosen](QMenu &menu) {
        for (QAction *action : menu.actions()) {
            if (action->text() == "Source Options..."_L1) {
                isChosen = true;
                action->trigger();
            }
        }
    });
    button(u"More"_s).click();
    QVERIFY(isChosen);
}

void tst_MainWindowEditing::expectOnlyA()
{
    QCOMPARE(storedNames(), QStringList{u"a"_s});
    QCOMPARE(stored(u"a"_s).type, SourceType::Playlist);
    QCOMPARE(stored(u"a"_s).url, server->url(u"/a"_s));
    QCOMPARE(sourceNames(), QStringList{u"a"_s});
    QCOMPARE(shownChannels(), QStringList{u"a"_s});
    QVERIFY(!overlayShown());
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowEditing::addingStoresSelectsAndLoads()
{
    // The first start asks for the first source by itself.
    fillNextForm(u"a"_s, u"/a"_s);
    open();
    QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
    QCOMPARE(server->requestCount(u"/a"_s), 1);

    fillNextForm(u"b"_s, u"/b"_s);
    button(u"Add Source..."_s).click();
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    QCOMPARE(server->requestCount(), 2);
    QCOMPARE(storedNames(), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(storedLastActive(), u"b"_s);
    QCOMPARE(sourceNames(), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(combo().currentIndex(), 1);
}

void tst_MainWindowEditing::cancellingChangesNothing()
{
    openWith({u"a"_s});
    for (const QString &opener : {u"Add Source..."_s, u"Edit Source..."_s}) {
        dialogs.next([](QDialog &dialog) {
            for (QLineEdit *field : dialog.findChildren<QLineEdit *>()) {
                field->setText(u"http://127.0.0.1:9"_s);
            }
            QVERIFY(DialogAnswers::click(dialog, u"Cancel"_s));
        });
        button(opener).click();
        expectOnlyA();
    }
    dialogs.next([](QDialog &dialog) {
        QVERIFY(DialogAnswers::click(dialog, u"Delete Source"_s));
        // Still open after "No".
        QVERIFY(dialog.isVisible());
        dialog.reject();
    });
    dialogs.nextClicks(u"No"_s);
    button(u"Edit Source..."_s).click();
    QCOMPARE(dialogs.seen().size(), 4);
    expectOnlyA();
}

void tst_MainWindowEditing::theOptionsOfASourceThatIsNotStored()
{
    openWith({u"a"_s});
    cacheOneChannel(u"b"_s, u"b"_s);
    window().loadSource(playlistSource(u"b"_s, server->url(u"/b"_s)), false);
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    chooseOptions();
    QVERIFY(dialogs.seen().isEmpty());
    QCOMPARE(storedNames(), QStringList{u"a"_s});
}

/// A form is about the source that it was opened for.
void tst_MainWindowEditing::anotherSourceBecomesActiveBeneath()
{
    openWith({u"a"_s, u"b"_s});
    dialogs.next([this](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"userAgentEdit"_s)->setText(u"Agent"_s);
        combo().setCurrentIndex(1);
        dialog.accept();
    });
    chooseOptions();
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    QCOMPARE(stored(u"a"_s).userAgent, QString());
    QCOMPARE(stored(u"b"_s).userAgent, QString());

    dialogs.next([this](QDialog &dialog) {
        combo().setCurrentIndex(0);
        QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(u"New"_s);
        dialog.accept();
    });
    button(u"Edit Source..."_s).click();
    QCOMPARE(sourceNames(), (QStringList{u"a"_s, u"New"_s}));
    QCOMPARE(stored(u"New"_s).url, server->url(u"/b"_s));
    QCOMPARE(storedLastActive(), u"a"_s);
    QVERIFY(!overlayShown());
    QCOMPARE(shownChannels(), QStringList{u"a"_s});
    QCOMPARE(server->requestCount(u"/b"_s), 1);
}

void tst_MainWindowEditing::invalidInputIsRefused_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("text"); ///< its beginning
    const QString url = u"Please provide a valid URL/path."_s;
    const QString key = u"Please provide a valid subscription key."_s;
    const QString file = PrivateProfile::current().root() + u"/list.m3u"_s;
    const QString blanks = u"  "_s; // which are no address
    for (const QString &title : {u"Add Source"_s, u"Edit Source"_s}) {
        const auto row = [&title](const char *what, int type, const QString &address,
                                  const QString &text) {
            QTest::addRow("%s: %s", qPrintable(title), what) << title << type << address << text;
        };
        row("a playlist without a URL", 0, blanks, url);
        row("an account without a server", 1, blanks, url);
        row("a subscription without a key", 2, blanks, key);
        row("a file that cannot be copied", 0, file,
            u"The playlist \"%1\" could not be copied: "_s.arg(file));
    }
}

void tst_MainWindowEditing::invalidInputIsRefused()
{
    QFETCH(QString, title);
    QFETCH(int, type);
    QFETCH(QString, address);
    QFETCH(QString, text);
    openWith({u"a"_s});
    writeFile(PrivateProfile::current().root() + u"/list.m3u"_s, {});
    // A file stands where the folder of the copies belongs.
    writeFile(PrivateProfile::current().appDataDir() + "/playlists"_L1, {});
    dialogs.nextForm(type, {{u"m3uNameEdit"_s, u"New"_s},
                            {u"m3uUrlEdit"_s, address},
                            {u"serverEdit"_s, address},
                            {u"keyEdit"_s, address}});
    dialogs.nextClicks(u"OK"_s);
    button(title + "..."_L1).click();

    QCOMPARE(dialogs.seen().size(), 2);
    const SeenDialog &box = dialogs.seen().at(1);
    QCOMPARE(box.title, title);
    QVERIFY2(box.text == text || (text.endsWith(u": "_s) && box.text.startsWith(text)),
             qPrintable(box.text));
    QCOMPARE(box.buttons, QStringList{u"OK"_s});
    expectOnlyA();
}

void tst_MainWindowEditing::twinsAreOneSource()
{
    openWith({u"a"_s, u"c"_s});
    fillNextForm(u"a"_s, u"/b"_s);
    button(u"Add Source..."_s).click();
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    QCOMPARE(sourceNames(), (QStringList{u"a"_s, u"c"_s, u"a"_s}));
    QCOMPARE(storedNames(), (QStringList{u"a"_s, u"c"_s}));
    QCOMPARE(stored(u"a"_s).url, server->url(u"/b"_s));

    // Both select it, by now from the cache.
    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"c"_s});
    for (const int twin : {0, 2}) {
        combo().setCurrentIndex(twin);
        QCOMPARE(shownChannels(), QStringList{u"b"_s});
    }
    QCOMPARE(server->requestCount(), 3);

    // And both go with it.
    deleteCurrent();
    QCOMPARE(sourceNames(), QStringList{u"c"_s});
    QCOMPARE(storedNames(), QStringList{u"c"_s});
    QCOMPARE(shownChannels(), QStringList{u"c"_s});
}

void tst_MainWindowEditing::editingFetchesAfresh()
{
    openWith({u"a"_s});
    dialogs.nextClicks(u"OK"_s);
    button(u"Edit Source..."_s).click();
    QCOMPARE(dialogs.seen().at(0).title, u"Edit Source"_s);
    QTRY_COMPARE(server->requestCount(u"/a"_s), 2);
    QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
    QCOMPARE(sourceNames(), QStringList{u"a"_s});
}

void tst_MainWindowEditing::renamingKeepsThePlaceInTheList()
{
    openWith({u"a"_s, u"c"_s});
    combo().addItem(u"a"_s, u"a"_s); // a twin, which goes
    fillNextForm(u"New"_s, u"/b"_s);
    button(u"Edit Source..."_s).click();
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    QCOMPARE(sourceNames(), (QStringList{u"New"_s, u"c"_s}));
    QCOMPARE(combo().currentIndex(), 0);
    QCOMPARE(storedNames(), (QStringList{u"c"_s, u"New"_s}));
    QCOMPARE(storedLastActive(), u"New"_s);
    QCOMPARE(server->requestCount(), 2);
    // Stored before the old record went, it would have made the list longer for a while.
    const QSettings settings(u"Vantiro"_s, u"Player"_s);
    QVERIFY(settings.contains(u"sources/2/name"_s));
    QVERIFY(!settings.contains(u"sources/3/name"_s));

    // To the name of another one, which is replaced in place.
    fillNextForm(u"c"_s, u"/b"_s);
    button(u"Edit Source..."_s).click();
    QCOMPARE(storedNames(), QStringList{u"c"_s});
    QCOMPARE(stored(u"c"_s).url, server->url(u"/b"_s));
}

void tst_MainWindowEditing::deletingLoadsANeighbour_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QStringList>("left");
    QTest::addColumn<int>("index");
    QTest::newRow("the next one") << u"a"_s << QStringList{u"b"_s, u"c"_s} << 0;
    QTest::newRow("the one above") << u"c"_s << QStringList{u"a"_s, u"b"_s} << 1;
}

void tst_MainWindowEditing::deletingLoadsANeighbour()
{
    QFETCH(QString, deleted);
    QFETCH(QStringList, left);
    openWith({u"a"_s, u"b"_s, u"c"_s}, deleted);
    deleteCurrent();
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    QCOMPARE(sourceNames(), left);
    QCOMPARE(storedNames(), left);
    QTEST(combo().currentIndex(), "index");
    QCOMPARE(storedLastActive(), u"b"_s);
    QCOMPARE(server->requestCount(u"/b"_s), 1);
    QCOMPARE(dialogs.seen().size(), 2);
}

void tst_MainWindowEditing::deletingTheLastStopsAndEmptiesEverything()
{
    server->onPrefix(u"/series"_s, [](const HttpRequest &) { return heldReply(); });
    server->on(u"/stream"_s, heldReply());
    cacheCatalog(u"Account"_s, madeUpCatalog(u"Old"_s));
    CatalogCache::saveEpisodes(u"Account"_s, u"1"_s, {Episode(), Episode()});
    store(accountSource(u"Account"_s, server->url()));
    store(playlistSource(u"a"_s, server->url(u"/a"_s), neverLoaded));
    open().showEpisodesInline(u"1"_s, u"Show"_s);
    const auto &episodes = find<QTreeWidget>(u"episodeTree"_s);
    find<EpisodePage>(u"episodePage"_s).playEpisodeTreeItem(episodes.topLevelItem(0)->child(0));
    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
    window().playMediaItem(channel(u"News"_s, server->url(u"/stream"_s), {}));
    window().onPlaybackInterrupted(u"it broke"_s);
    QVERIFY(reconnectTimer().isActive());

    const QSignalSpy stopped(&player(), &VlcPlayer::stopped);
    deleteCurrent();
    QCOMPARE(stopped.count(), 0);
    deleteCurrent();
    QCOMPARE(stopped.count(), 1);
    QVERIFY(!reconnectTimer().isActive());
    QCOMPARE(storedNames(), QStringList());
    QCOMPARE(sourceNames(), QStringList());
    QCOMPARE(shownCatalog(), emptyCatalog);
    QCOMPARE(shownChannels(), QStringList());
    QCOMPARE(episodes.topLevelItemCount(), 0);
    for (const QString &tab : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        QCOMPARE(find<QListWidget>(tab + "CategoryList"_L1).count(), 0);
    }
    // After the closing dialog, not from inside it.
    QCOMPARE(dialogs.seen().size(), 4);
    QTRY_COMPARE(dialogs.seen().size(), 5);
    QCOMPARE(dialogs.seen().at(4).title, u"Add Source"_s);

    // Nothing is left to refresh or to play.
    window().refreshActiveSource();
    QVERIFY(!overlayShown());
    window().playNextEpisode();
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    QVERIFY(!shows(u"controlsRow"_s));
    QVERIFY(!shows(u"mutedLabel"_s));
    window().onPlaybackError(u"late"_s);
    QCOMPARE(dialogs.seen().last().buttons, QStringList{u"Close"_s});
}

void tst_MainWindowEditing::lateRepliesAreNotStoredAgain()
{
    XtreamProvider provider;
    serve(provider, madeUpCatalog(u"New"_s));
    provider.setMannerOfCatalog(XtreamProvider::Manner::Held);
    store(sourceFor(provider, u"A"_s));
    open();
    QTRY_COMPARE(provider.http().openConnections(), 6);
    // The only one: nothing takes its place.
    deleteCurrent();
    QVERIFY(!overlayShown());
    releaseCatalog(provider);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(cachedCatalog(u"A"_s), nothingCached);
    QCOMPARE(shownCatalog(), emptyCatalog);
    window().checkAutoRefresh();
    QCOMPARE(storedNames(), QStringList());
}

VANTIRO_TEST_MAIN(tst_MainWindowEditing)
#include "tst_MainWindowEditing.moc"
