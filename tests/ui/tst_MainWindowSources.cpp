#include "WindowFixture.h"
#include "ui/BrowseTab.h"

namespace {

constexpr qint64 hour = 3600;

/// A playlist whose one cached channel is called like it.
void storeCachedPlaylist(const QString &name, qint64 ageSeconds = 0,
                         const QString &url = u"/nowhere"_s)
{
    WindowFixture::store(playlistSource(name, url, ageSeconds));
    cacheOneChannel(name, name);
}

void storeCachedAccount(const QString &name)
{
    WindowFixture::store(accountSource(name, u"http://127.0.0.1:9"_s));
    cacheCatalog(name, madeUpCatalog(name));
}

} // namespace

/// Which source is active, what switching does to the tabs, and when a source is fetched again.
class tst_MainWindowSources : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void firstStartOpensAddSourceOverTheWindow();
    void sourceSelectedAtStart_data();
    void sourceSelectedAtStart();
    void selectingASourceLoadsIt();
    void tabsOfEachKind_data();
    void tabsOfEachKind();
    void switchingResetsAllTabs();
    void onlyTheUserRefreshesAYoungSource();
    void autoRefreshFetchesAfterADay();

private:
    QString visibleTabs() const;

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowSources::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->on(u"/list.m3u"_s, bodyReply(oneChannel(u"New"_s)));
}

QString tst_MainWindowSources::visibleTabs() const
{
    QStringList titles;
    for (int index = 0; index < tabs().count(); ++index) {
        if (tabs().isTabVisible(index)) {
            titles << tabs().tabText(index);
        }
    }
    return titles.join(u',') + u'>' + tabs().tabText(tabs().currentIndex());
}

void tst_MainWindowSources::firstStartOpensAddSourceOverTheWindow()
{
    bool windowShown = false;
    dialogs.next([&](QDialog &dialog) {
        windowShown = window().isVisible();
        dialog.reject();
    });
    open();
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().at(0).title, u"Add Source"_s);
    QVERIFY(windowShown);
    QCOMPARE(combo().count(), 0);

    // Without a source there is nothing to edit or to refresh.
    button(u"Edit Source..."_s).click();
    window().refreshActiveSource();
    window().checkAutoRefresh();
    QVERIFY(!overlayShown());
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(storedNames(), QStringList());
}

void tst_MainWindowSources::sourceSelectedAtStart_data()
{
    QTest::addColumn<QString>("lastActive");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the last active one") << u"B"_s << u"B"_s;
    QTest::newRow("the last active one, last in the list") << u"C"_s << u"C"_s;
    QTest::newRow("the first when none was active") << QString() << u"A"_s;
    QTest::newRow("the first when the last active one is gone") << u"Gone"_s << u"A"_s;
    QTest::newRow("the first when the case differs") << u"b"_s << u"A"_s;
    QTest::newRow("the first when it is only a part") << u"C "_s << u"A"_s;
}

void tst_MainWindowSources::sourceSelectedAtStart()
{
    QFETCH(QString, lastActive);
    QFETCH(QString, expected);
    for (const QString &name : {u"A"_s, u"B"_s, u"C"_s}) {
        storeCachedPlaylist(name);
    }
    if (!lastActive.isEmpty()) {
        storeLastActive(lastActive);
    }
    open();
    QCOMPARE(sourceNames(), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    QCOMPARE(combo().currentText(), expected);
    QCOMPARE(shownChannels(), QStringList{expected});
    QCOMPARE(storedLastActive(), expected);
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_MainWindowSources::selectingASourceLoadsIt()
{
    storeCachedPlaylist(u"A"_s);
    storeCachedPlaylist(u"B"_s);
    open();
    combo().setCurrentIndex(1);
    QCOMPARE(shownChannels(), QStringList{u"B"_s});
    QCOMPARE(storedLastActive(), u"B"_s);

    window().onSourceSelected(-1);
    QCOMPARE(shownChannels(), QStringList{u"B"_s});
    window().onSourceSelected(0);
    QCOMPARE(shownChannels(), QStringList{u"A"_s});

    // One that is gone is ignored.
    combo().addItem(u"A"_s, u"a"_s);
    combo().setCurrentIndex(2);
    QCOMPARE(shownChannels(), QStringList{u"A"_s});
    QCOMPARE(storedLastActive(), u"A"_s);
    window().editSource();
    QVERIFY(dialogs.seen().isEmpty());
}

void tst_MainWindowSources::tabsOfEachKind_data()
{
    QTest::addColumn<qint32>("type");
    QTest::addColumn<QString>("expected");
    const QString account = u"Live TV,Movies,TV Shows>Live TV"_s;
    const QString playlist = u"Channels>Channels"_s;
    QTest::newRow("playlist") << SourceType::Playlist << playlist;
    QTest::newRow("account") << SourceType::Xtream << account;
    QTest::newRow("an unknown type is loaded as a playlist") << 7 << playlist;
    QTest::newRow("a negative type is loaded as a playlist") << -1 << playlist;
}

void tst_MainWindowSources::tabsOfEachKind()
{
    QFETCH(qint32, type);
    QFETCH(QString, expected);
    // The other kind first, so that tabs must both come and go.
    const bool account = type == SourceType::Xtream;
    account ? storeCachedPlaylist(u"First"_s) : storeCachedAccount(u"First"_s);
    account ? storeCachedAccount(u"Second"_s) : storeCachedPlaylist(u"Second"_s);
    SourceConfig second = stored(u"Second"_s);
    second.type = type;
    store(second);
    open();
    QVERIFY(visibleTabs() != expected);
    combo().setCurrentIndex(1);
    QCOMPARE(visibleTabs(), expected);
    QVERIFY(!overlayShown());
}

void tst_MainWindowSources::switchingResetsAllTabs()
{
    storeCachedAccount(u"Account"_s);
    storeCachedPlaylist(u"List"_s);
    open();
    const auto page = [this](const QString &tab) -> int {
        return find<BrowseTab>(tab + "Tab"_L1).currentPage();
    };
    const QStringList accountTabs{u"live"_s, u"movie"_s, u"series"_s};
    for (const QString &tab : accountTabs) {
        find<BrowseTab>(tab + "Tab"_L1).showPage(BrowsePage::Items);
    }
    find<BrowseTab>(u"seriesTab"_s).showPage(BrowsePage::Episodes);
    combo().setCurrentIndex(1);
    find<BrowseTab>(u"channelTab"_s).showPage(BrowsePage::Items);
    for (const QString &tab : accountTabs) {
        QCOMPARE(page(tab), 0);
    }
    // The account's entries are gone, its categories stay until new ones come.
    window().filterLive();
    window().filterMovies();
    window().filterSeries();
    const AccountCatalog all = madeUpCatalog(u"Account"_s);
    QCOMPARE(shownCatalog(), (AccountCatalog{all[0], {}, all[2], {}, all[4], {}}));

    combo().setCurrentIndex(0);
    QCOMPARE(page(u"channel"_s), 0);
    window().filterChannels();
    QCOMPARE(shownChannels(), QStringList());
}

void tst_MainWindowSources::onlyTheUserRefreshesAYoungSource()
{
    storeCachedPlaylist(u"A"_s, 23 * hour, server->url(u"/list.m3u"_s));
    open();
    const qint64 stamp = stored(u"A"_s).lastUpdated;
    window().checkAutoRefresh();
    // A fetch would show the overlay and stamp the source before anything else.
    QVERIFY(!overlayShown());
    QCOMPARE(stored(u"A"_s).lastUpdated, stamp);
    QCOMPARE(shownChannels(), QStringList{u"A"_s});
    button(u"Refresh Playlist"_s).click();
    QTRY_COMPARE(shownChannels(), QStringList{u"New"_s});
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowSources::autoRefreshFetchesAfterADay()
{
    storeCachedPlaylist(u"A"_s, 0, server->url(u"/list.m3u"_s));
    open();
    QCOMPARE(autoRefreshTimer().interval(), 1800000);
    QVERIFY(!autoRefreshTimer().isSingleShot());
    // Young enough for now, a day old two seconds later.
    window().loadSource(playlistSource(u"A"_s, server->url(u"/list.m3u"_s), 24 * hour - 2), false);
    QCOMPARE(shownChannels(), QStringList{u"A"_s});
    QCOMPARE(server->requestCount(), 0);
    autoRefreshTimer().setInterval(10);
    QTRY_COMPARE(shownChannels(), QStringList{u"New"_s});
    QCOMPARE(server->requestCount(), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowSources)
#include "tst_MainWindowSources.moc"
