// Opening a show: when the provider is asked for its episodes, and what becomes of the reply.

#include "SeriesWindow.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QTreeWidget>

using namespace Qt::StringLiterals;

class tst_MainWindowSeries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cachedEpisodesLastADay_data();
    void cachedEpisodesLastADay();
    void fetchedEpisodesAreShownAndCached();
    void aReplyAfterLeavingThePageIsDropped_data();
    void aReplyAfterLeavingThePageIsDropped();
    void theLastReplyFillsThePage();
    void aLateReplyBelongsToItsAccount();
    void aReplyAfterTheWindowIsGone();
    void failuresAreCachedAsNoEpisodes_data();
    void failuresAreCachedAsNoEpisodes();
    void withoutAnAccountNothingOpens();
    void anAccountLoadedEarlierIsEnough();
};

void tst_MainWindowSeries::cachedEpisodesLastADay_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("just now") << qint64(0) << true;
    QTest::newRow("a little less than a day ago") << qint64(86400 - 30) << true;
    QTest::newRow("a day ago") << qint64(86400) << false;
    QTest::newRow("in the future") << qint64(-5000) << true;
}

void tst_MainWindowSeries::cachedEpisodesLastADay()
{
    QFETCH(qint64, age);
    QFETCH(bool, fresh);
    SeriesWindow series;
    series.open();
    SeriesWindow::cacheEpisodes(u"9"_s, mixedSeasons(), age);
    series.show();
    QCOMPARE(series.tree().topLevelItemCount(), fresh ? 2 : 0);
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), fresh ? 0 : 1);
    QCOMPARE(series.rows().constFirst(), fresh ? u"Season 2:"_s : u"Season 1:"_s);
}

void tst_MainWindowSeries::fetchedEpisodesAreShownAndCached()
{
    SeriesWindow series;
    series.open();
    series.show();
    QCOMPARE(series.page(), 2);
    QCOMPARE(series.rows(), QStringList());
    QVERIFY(series.settle());
    const HttpRequest request = series.server.requests().constFirst();
    QCOMPARE(request.queryValue(u"action"_s), u"get_series_info"_s);
    QCOMPARE(request.queryValue(u"series_id"_s), u"9"_s);
    QCOMPARE(series.rows(), seriesInfoRows());
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 3);
    QCOMPARE(cached.at(0), (Episode{u"5"_s, u"Server's name"_s, 1, 2, u"Pilot"_s, u"avi"_s}));

    // The page stays filled until another show opens.
    series.goBack();
    QCOMPARE(series.rows(), seriesInfoRows());
    series.show(u"8"_s, u"Other"_s);
    QCOMPARE(series.title(), u"Other"_s);
    QCOMPARE(series.rows(), QStringList());
    series.show();
    QCOMPARE(series.rows(), seriesInfoRows());
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), 2);
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
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    if (switchSource) {
        SeriesWindow::cacheEmptyCatalog(u"B"_s);
        series.window().loadSource(playlistSource(u"B"_s, u"/nowhere"_s), false);
    } else {
        series.goBack();
    }
    series.server.release(SeriesWindow::apiPath());
    QVERIFY(series.settle());
    QCOMPARE(series.page(), switchSource ? 0 : 1);
    QCOMPARE(series.rows(), QStringList());
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), -1);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"B"_s, u"9"_s), -1);

    series.show();
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), 2);
    QCOMPARE(series.rows(), seriesInfoRows());
}

void tst_MainWindowSeries::theLastReplyFillsThePage()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), [](const HttpRequest &request) {
        HttpReply reply = HttpReply::redirect(u"/held"_s + request.queryValue(u"series_id"_s));
        // Without a pause the client may ask twice.
        reply.delayMs = 20;
        return reply;
    });
    series.server.on(u"/held9"_s, heldReply(seriesInfo()));
    series.server.on(u"/held8"_s,
                     heldReply(R"({"episodes":{"4":[{"id":"80","title":"Only"}]}})"_ba));
    series.show();
    series.show(u"8"_s, u"Other"_s);
    QTRY_COMPARE(series.server.requestCount(u"/held9"_s), 1);
    QTRY_COMPARE(series.server.requestCount(u"/held8"_s), 1);

    series.server.release(u"/held8"_s);
    QTRY_COMPARE(series.rows(), (QStringList{u"Season 4:"_s, u"E00 - Only"_s}));
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"8"_s), 1);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), -1);
    series.server.release(u"/held9"_s);
    QVERIFY(series.settle());
    QCOMPARE(series.rows(), seriesInfoRows());
    QCOMPARE(series.title(), u"Other"_s);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"8"_s), 1);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), 3);
}

void tst_MainWindowSeries::aLateReplyBelongsToItsAccount()
{
    HttpServer other;
    SeriesWindow series;
    SeriesWindow::cacheEmptyCatalog(u"B"_s);
    CatalogCache::saveEpisodes(u"B"_s, u"8"_s, {});
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    series.window().loadSource(accountSource(u"B"_s, other.url()), false);
    // The page of another show is open when the reply arrives.
    series.show(u"8"_s, u"Other"_s);
    series.server.release(SeriesWindow::apiPath());
    QTRY_COMPARE(series.rows(), seriesInfoRows());
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), 3);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"B"_s, u"9"_s), -1);
    series.choose(0, 0);
    QTRY_VERIFY(series.server.requestCount(u"/series/u/p/5.avi"_s) > 0);
}

void tst_MainWindowSeries::aReplyAfterTheWindowIsGone()
{
    SeriesWindow series;
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.open();
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    // A new window takes the place of the one that asked.
    series.open();
    series.server.release(SeriesWindow::apiPath());
    QTRY_COMPARE(series.server.openConnections(), 0);
    QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), -1);
}

void tst_MainWindowSeries::failuresAreCachedAsNoEpisodes_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("the server refuses") << 503 << QByteArray();
    QTest::newRow("a login page") << 200 << "<html></html>"_ba;
    QTest::newRow("a show without episodes") << 200 << "{\"episodes\":[]}"_ba;
}

void tst_MainWindowSeries::failuresAreCachedAsNoEpisodes()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    SeriesWindow series;
    series.open();
    HttpReply reply = statusReply(status);
    reply.body = body;
    series.server.on(SeriesWindow::apiPath(), reply);
    // The second time they come from the cache.
    for (int round = 0; round < 2; ++round) {
        series.show();
        QVERIFY(series.settle());
        QCOMPARE(series.rows(), QStringList());
        QCOMPARE(series.page(), 2);
        QCOMPARE(SeriesWindow::cachedEpisodes(u"A"_s, u"9"_s), 0);
        QCOMPARE(series.apiRequests(), 1);
    }
    QVERIFY(series.dialogs.seen().isEmpty());
}

void tst_MainWindowSeries::withoutAnAccountNothingOpens()
{
    SeriesWindow series;
    SeriesWindow::store(playlistSource(u"P"_s, u"/nowhere"_s));
    SeriesWindow::storeLastActive(u"P"_s);
    SeriesWindow::cacheEmptyCatalog(u"P"_s);
    CatalogCache::saveEpisodes(u"P"_s, u"9"_s, mixedSeasons());
    series.open();
    series.show();
    QCOMPARE(series.page(), 1);
    QCOMPARE(series.rows(), QStringList());
    QCOMPARE(series.title(), QString());
}

void tst_MainWindowSeries::anAccountLoadedEarlierIsEnough()
{
    SeriesWindow series;
    series.open();
    SeriesWindow::cacheEmptyCatalog(u"P"_s);
    series.window().loadSource(playlistSource(u"P"_s, u"/nowhere"_s), false);
    series.show();
    QCOMPARE(series.page(), 2);
    QVERIFY(series.settle());
    QCOMPARE(series.rows(), seriesInfoRows());
    // The cache of the active source takes them.
    QCOMPARE(SeriesWindow::cachedEpisodes(u"P"_s, u"9"_s), 3);
}

VANTIRO_TEST_MAIN(tst_MainWindowSeries)
#include "tst_MainWindowSeries.moc"
