#include "PlayerTest.h"
#include "player/StreamUrl.h"
#include "support/TraceCapture.h"

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>

/// How a URL reaches the server and the trace. Runs with VANTIRO_NET_DEBUG set.
class tst_VlcPlayerUrls : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void encodesOnlyInvalidCharacters();
    void leavesOutDemuxers();
    void givesLibVlcNoOption_data();
    void givesLibVlcNoOption();
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

void tst_VlcPlayerUrls::leavesOutDemuxers()
{
    for (const QByteArray &demuxed :
         {"http/dump://h/a"_ba, "http/$dump/x://h/a"_ba, "http/%64ump://h/a"_ba}) {
        QCOMPARE(requestableUrl(QString::fromLatin1(demuxed)), "http://h/a"_ba);
    }
    for (const QByteArray &other : {"http://h/a/b://c"_ba, "h/a"_ba, "/a"_ba, "file:///a/b"_ba,
                                    "://a/b"_ba, "a:/b"_ba, ""_ba}) {
        QCOMPARE(requestableUrl(QString::fromLatin1(other)), other);
    }
}

void tst_VlcPlayerUrls::givesLibVlcNoOption_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::addColumn<QString>("suffix");
    const QString sink = u"sout=#std{access=file,mux=ts,dst=written}"_s;
    QTest::newRow("demuxer in the scheme") << u"http/dump"_s << u""_s;
    QTest::newRow("its other name") << u"http/demuxdump"_s << u""_s;
    QTest::newRow("option behind a colon") << u"http"_s << u" :"_s + sink;
    QTest::newRow("option behind two hyphens") << u"http"_s << u" --"_s + sink;
    QTest::newRow("option behind a number sign") << u"http"_s << u"#"_s + sink;
    QTest::newRow("option behind an exclamation mark") << u"http"_s << u"#!"_s + sink;
    QTest::newRow("option on a line of its own") << u"http"_s << u"\n:"_s + sink;
    QTest::newRow("option behind a pipe") << u"http"_s << u"|"_s + sink;
    QTest::newRow("option in the query") << u"http"_s << u"?:"_s + sink;
}

/// Whoever names a stream's URL gets nothing written.
void tst_VlcPlayerUrls::givesLibVlcNoOption()
{
    QFETCH(const QString, scheme);
    QFETCH(const QString, suffix);
    // libVLC writes relative to this folder.
    const QTemporaryDir folder;
    const auto back = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(folder.path()));
    QString address = url(u"/files/audio.mp3"_s + suffix);
    address.replace(0, address.indexOf(u':'), scheme);
    probe->player.play(address, false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress > 0 || !probe->interruptions.isEmpty(), openMs);
    probe->player.stop();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
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
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    probe->player.pause();
    probe->player.togglePause();
    probe->player.seekRelative(1000);
    probe->player.stop();
    QCOMPARE(capture.take(), u"[VLC] play -> file:///nowhere/film.mp4 \n"_s.repeated(2));
}

VANTIRO_TEST_MAIN(tst_VlcPlayerUrls)
#include "tst_VlcPlayerUrls.moc"
