#include "WindowFixture.h"
#include "app/NetLog.h"
#include "app/TraceSecrets.h"
#include "support/TraceCapture.h"

/// Without VANTIRO_NET_DEBUG no trace line is written and no secret is kept.
class tst_MainWindowSilence : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void loadingAndPlaying();
};

void tst_MainWindowSilence::loadingAndPlaying()
{
    QVERIFY2(!netDebugEnabled(), "run without VANTIRO_NET_DEBUG");
    HttpServer server;
    server.on(u"/player_api.php"_s, bodyReply("[]"_ba));
    server.on(u"/list.m3u"_s, bodyReply(twoChannels));
    server.on(u"/stream"_s, heldReply());
    SourceConfig account = accountSource(u"Account"_s, server.url(), neverLoaded);
    account.password = u"Quiet-Password"_s;
    store(account);
    store(playlistSource(u"A"_s, server.url(u"/list.m3u?token=Quiet-Token"_s), neverLoaded));
    store(playlistSource(u"B"_s, server.url(u"/missing"_s), neverLoaded));
    TraceCapture capture;
    open();
    QTRY_COMPARE(server.requestCount(), 6);
    QTRY_VERIFY(!overlayShown());
    window().onSourceSelected(1);
    QTRY_COMPARE(shownChannels().size(), 2);
    window().onSourceSelected(2);
    QTRY_COMPARE(dialogs.seen().size(), 1);
    window().playMediaItem(channel(u"One"_s, server.url(u"/stream?token=Quiet-Token"_s), {}));
    window().onPlaybackInterrupted(u"it broke"_s);

    const QString written = capture.take();
    // libVLC writes to the standard error, too.
    for (const QString &tag : {u"[M3U]"_s, u"[Xtream]"_s, u"[VLC]"_s}) {
        QVERIFY2(!written.contains(tag), qPrintable(written));
    }
    const QString secrets = u"Quiet-Token and Quiet-Password"_s;
    QCOMPARE(traceSafe(secrets), secrets);
}

VANTIRO_TEST_MAIN(tst_MainWindowSilence)
#include "tst_MainWindowSilence.moc"
