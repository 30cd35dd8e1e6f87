#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Runs with VANTIRO_NET_DEBUG set.
class tst_VlcPlayerTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void tellsTheUrl_data();
    void tellsTheUrl();
    void tellsEveryPlay();
    void tellsNothingElse();
};

void tst_VlcPlayerTrace::tellsTheUrl_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a URL without credentials as it is")
        << u"/news/1.m3u8?quality=high"_s << u"/news/1.m3u8?quality=high"_s;
    QTest::newRow("an account's channel without its password")
        << u"/live/anna/s3cr3t-live/17.ts"_s << u"/live/anna/***/17.ts"_s;
    QTest::newRow("an account's film without its password")
        << u"/movie/anna/s3cr3t-movie/18.mp4"_s << u"/movie/anna/***/18.mp4"_s;
    QTest::newRow("an account's episode without its password")
        << u"/series/anna/s3cr3t-series/19.mkv"_s << u"/series/anna/***/19.mkv"_s;
    QTest::newRow("an encoded password")
        << u"/live/anna/s3cr3t%20and%2Fmore/17.ts"_s << u"/live/anna/***/17.ts"_s;
    QTest::newRow("a password in the query")
        << u"/get?username=anna&password=s3cr3t-query"_s << u"/get?username=anna&password=***"_s;
}

void tst_VlcPlayerTrace::tellsTheUrl()
{
    QFETCH(QString, path);
    QFETCH(QString, shown);

    HttpServer server;
    PlayerProbe probe;
    TraceCapture capture;
    probe.player.play(server.url(path), true);
    // A blank follows every item of the line.
    QCOMPARE(capture.take(), u"[VLC] play -> "_s + server.url(shown) + u" \n"_s);
    // The provider gets the URL as it is.
    QTRY_VERIFY(server.requestCount() > 0);
    QCOMPARE(server.requests().constFirst().target, path);
}

void tst_VlcPlayerTrace::tellsEveryPlay()
{
    PlayerProbe probe;
    TraceCapture capture;
    const QString url = u"file:///nowhere/film.mp4"_s;
    probe.player.play(url, false);
    probe.player.play(url, false);
    QCOMPARE(capture.take(), u"[VLC] play -> file:///nowhere/film.mp4 \n"_s.repeated(2));
}

void tst_VlcPlayerTrace::tellsNothingElse()
{
    PlayerProbe probe;
    probe.player.play(u"file:///nowhere/film.mp4"_s, true);
    TraceCapture capture;
    QTRY_COMPARE(probe.interruptions.size(), 1);
    probe.player.pause();
    probe.player.togglePause();
    probe.player.seekRelative(1000);
    probe.player.stop();
    QCOMPARE(capture.take(), QString());
}

VANTIRO_TEST_MAIN(tst_VlcPlayerTrace)
#include "tst_VlcPlayerTrace.moc"
