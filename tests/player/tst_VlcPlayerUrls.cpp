#include "PlayerTest.h"
#include "player/StreamUrl.h"
#include "support/TraceCapture.h"

/// How a URL reaches the server and the trace. Runs with VANTIRO_NET_DEBUG set.
class tst_VlcPlayerUrls : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void encodesOnlyInvalidCharacters();
    void requestsTheUrlAndTracesItRedacted();
    void tracesNothingElse();
};

void tst_VlcPlayerUrls::encodesOnlyInvalidCharacters()
{
    const QString allowed = u"!#$%&'()*+,-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]_"
                            "abcdefghijklmnopqrstuvwxyz~"_s;
    for (int code = 0; code < 0x80; ++code) {
        const QByteArray byte(1, static_cast<char>(code));
        const bool stays = allowed.contains(QChar(code));
        QCOMPARE(requestableUrl(QChar(code)), stays ? byte : '%' + byte.toHex().toUpper());
    }
    QCOMPARE(requestableUrl(u"üж€\U0001F600\u0085"_s), u"üж€\U0001F600\u0085"_s.toUtf8());
}

void tst_VlcPlayerUrls::requestsTheUrlAndTracesItRedacted()
{
    TraceCapture capture;
    play(u"/live/anna/s3cr3t%20and%2Fmore/my news.ts?q=100%&r=\"a+b\""_s, true);
    // A space follows every item of the line.
    const QString shown = url(u"/live/anna/***/my news.ts?q=100%&r=\"a+b\""_s);
    QCOMPARE(capture.take(), u"[VLC] play -> "_s + shown + u" \n"_s);
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
    QCOMPARE(server->requests().constFirst().target,
             u"/live/anna/s3cr3t%20and%2Fmore/my%20news.ts?q=100%&r=%22a+b%22"_s);
}

void tst_VlcPlayerUrls::tracesNothingElse()
{
    const QString url = u"file:///nowhere/film.mp4"_s;
    TraceCapture capture;
    probe->player.play(url, true);
    probe->player.play(url, true);
    QTRY_COMPARE(probe->interruptions.size(), 1);
    probe->player.pause();
    probe->player.togglePause();
    probe->player.seekRelative(1000);
    probe->player.stop();
    QCOMPARE(capture.take(), u"[VLC] play -> file:///nowhere/film.mp4 \n"_s.repeated(2));
}

VANTIRO_TEST_MAIN(tst_VlcPlayerUrls)
#include "tst_VlcPlayerUrls.moc"
