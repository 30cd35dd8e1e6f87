#include "PlayerTest.h"
#include "player/StreamUrl.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

using namespace Qt::StringLiterals;

/// How a URL reaches the server and the trace. Runs with VANTIRO_NET_DEBUG set.
class tst_VlcPlayerUrls : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void requests_data();
    void requests();
    void encodesOnlyInvalidCharacters();
    void traces_data();
    void traces();
    void tracesEveryPlay();
    void tracesNothingElse();
};

void tst_VlcPlayerUrls::requests_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("requested");

    const auto row = [](const char *name, const QString &given, const QString &requested) {
        QTest::newRow(name) << given << requested;
    };
    row("a space in the path", u"/my news.ts"_s, u"/my%20news.ts"_s);
    row("the others in the path", u"/a.ts|\"<>{}^`\\\t\x7f"_s,
        u"/a.ts%7C%22%3C%3E%7B%7D%5E%60%5C%09%7F"_s);
    row("a space in the query", u"/a.ts?q=my news"_s, u"/a.ts?q=my%20news"_s);
    row("the others in the query", u"/a.ts?q=\"<>\\^`{|}"_s,
        u"/a.ts?q=%22%3C%3E%5C%5E%60%7B%7C%7D"_s);
    row("encoded characters stay", u"/a%20b%7c.ts?q=%22"_s, u"/a%20b%7c.ts?q=%22"_s);
    row("a percent sign stays", u"/a.ts?q=100%&r=%zz"_s, u"/a.ts?q=100%&r=%zz"_s);
    row("valid characters stay", u"/a'(b)[c]*!$,;:@&=+~-_.ts?q=a+b&r=[1]"_s,
        u"/a'(b)[c]*!$,;:@&=+~-_.ts?q=a+b&r=[1]"_s);
}

void tst_VlcPlayerUrls::requests()
{
    QFETCH(QString, given);
    QFETCH(QString, requested);
    play(given, true);
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
    QCOMPARE(server->requests().constFirst().target, requested);
}

void tst_VlcPlayerUrls::encodesOnlyInvalidCharacters()
{
    const QString allowed = u"!#$%&'()*+,-./0123456789:;=?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[]_"
                            "abcdefghijklmnopqrstuvwxyz~"_s;
    for (ushort code = 0; code < 0x80; ++code) {
        const QChar character(code);
        const QByteArray encoded = '%' + QByteArray(1, static_cast<char>(code)).toHex().toUpper();
        QCOMPARE(requestableUrl(character),
                 allowed.contains(character) ? QByteArray(1, static_cast<char>(code)) : encoded);
    }
    QCOMPARE(requestableUrl(u"üж€\U0001F600\u0085"_s), u"üж€\U0001F600\u0085"_s.toUtf8());
}

void tst_VlcPlayerUrls::traces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");

    QTest::newRow("a URL without credentials")
        << u"/news/1.m3u8?quality=high"_s << u"/news/1.m3u8?quality=high"_s;
    QTest::newRow("the password of a channel")
        << u"/live/anna/s3cr3t-live/17.ts"_s << u"/live/anna/***/17.ts"_s;
    QTest::newRow("the password of a film")
        << u"/movie/anna/s3cr3t-movie/18.mp4"_s << u"/movie/anna/***/18.mp4"_s;
    QTest::newRow("the password of an episode")
        << u"/series/anna/s3cr3t-series/19.mkv"_s << u"/series/anna/***/19.mkv"_s;
    QTest::newRow("an encoded password")
        << u"/live/anna/s3cr3t%20and%2Fmore/17.ts"_s << u"/live/anna/***/17.ts"_s;
    QTest::newRow("a password in the query")
        << u"/get?username=anna&password=s3cr3t-query"_s << u"/get?username=anna&password=***"_s;
}

void tst_VlcPlayerUrls::traces()
{
    QFETCH(QString, path);
    QFETCH(QString, shown);
    TraceCapture capture;
    play(path, true);
    // A space follows every item of the line.
    QCOMPARE(capture.take(), u"[VLC] play -> "_s + url(shown) + u" \n"_s);
    // The server gets the URL unredacted.
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
    QCOMPARE(server->requests().constFirst().target, path);
}

void tst_VlcPlayerUrls::tracesEveryPlay()
{
    TraceCapture capture;
    const QString url = u"file:///nowhere/film.mp4"_s;
    probe->player.play(url, false);
    probe->player.play(url, false);
    QCOMPARE(capture.take(), u"[VLC] play -> file:///nowhere/film.mp4 \n"_s.repeated(2));
}

void tst_VlcPlayerUrls::tracesNothingElse()
{
    probe->player.play(u"file:///nowhere/film.mp4"_s, true);
    TraceCapture capture;
    QTRY_COMPARE(probe->interruptions.size(), 1);
    probe->player.pause();
    probe->player.togglePause();
    probe->player.seekRelative(1000);
    probe->player.stop();
    QCOMPARE(capture.take(), QString());
}

VANTIRO_TEST_MAIN(tst_VlcPlayerUrls)
#include "tst_VlcPlayerUrls.moc"
