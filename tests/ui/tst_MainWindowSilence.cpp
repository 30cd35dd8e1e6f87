#include "WindowFixture.h"
#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"
#include "ui/MainWindow.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Without VANTIRO_NET_DEBUG no trace line is written and no secret is kept.
class tst_MainWindowSilence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadingAndPlaying();
    void anAccount();

private:
    static void compareWithSilence(const QString &written)
    {
        // libVLC writes to the standard error, too.
        for (const QString &tag : {u"[M3U]"_s, u"[Xtream]"_s, u"[VLC]"_s}) {
            QVERIFY2(!written.contains(tag), qPrintable(written));
        }
    }
};

void tst_MainWindowSilence::loadingAndPlaying()
{
    QVERIFY2(!netDebugEnabled(), "run without VANTIRO_NET_DEBUG");
    HttpServer server;
    server.on(u"/list.m3u"_s, bodyReply("#EXTINF:-1,One\nhttp://127.0.0.1:9/1\n"_ba));
    server.on(u"/stream"_s, heldReply());
    WindowFixture fixture;
    WindowFixture::store(
        playlistSource(u"A"_s, server.url(u"/list.m3u?token=Quiet-Token"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"B"_s, server.url(u"/missing"_s), neverLoaded));
    TraceCapture capture;
    MainWindow &window = fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    window.onSourceSelected(1);
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    window.playMediaItem(channel(u"One"_s, server.url(u"/stream?token=Quiet-Token"_s), {}));
    window.onPlaybackInterrupted(u"it broke"_s);
    compareWithSilence(capture.take());
    QCOMPARE(traceSafe(u"the Quiet-Token"_s), u"the Quiet-Token"_s);
}

void tst_MainWindowSilence::anAccount()
{
    HttpServer server;
    server.on(u"/player_api.php"_s, bodyReply("[]"_ba));
    WindowFixture fixture;
    SourceConfig account = accountSource(u"A"_s, server.url(), neverLoaded);
    account.password = u"Quiet-Password"_s;
    WindowFixture::store(account);
    TraceCapture capture;
    fixture.open();
    QTRY_COMPARE(server.requestCount(), 6);
    QTRY_VERIFY(!fixture.overlayShown());
    compareWithSilence(capture.take());
    QCOMPARE(traceSafe(u"the Quiet-Password"_s), u"the Quiet-Password"_s);
}

VANTIRO_TEST_MAIN(tst_MainWindowSilence)
#include "tst_MainWindowSilence.moc"
