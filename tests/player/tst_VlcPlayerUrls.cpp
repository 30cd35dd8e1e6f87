#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "player/StreamUrl.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// What of a URL reaches the server.
class tst_VlcPlayerUrls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void requests_data();
    void requests();
    void encodesOnlyWhatNoUrlMayHold();
};

void tst_VlcPlayerUrls::requests_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("requested");

    const auto row = [](const char *name, const QString &given, const QString &requested) {
        QTest::newRow(name) << given << requested;
    };
    row("a blank in the path", u"/my news.ts"_s, u"/my%20news.ts"_s);
    row("a vertical bar in the path", u"/a.ts|User-Agent=x"_s, u"/a.ts%7CUser-Agent=x"_s);
    row("quotation marks in the path", u"/\"a\".ts"_s, u"/%22a%22.ts"_s);
    row("brackets in the path", u"/<a>{b}.ts"_s, u"/%3Ca%3E%7Bb%7D.ts"_s);
    row("a circumflex and a backquote in the path", u"/a^b`c.ts"_s, u"/a%5Eb%60c.ts"_s);
    row("a backslash in the path", u"/a\\b.ts"_s, u"/a%5Cb.ts"_s);
    row("a control character in the path", u"/a\tb\x7f.ts"_s, u"/a%09b%7F.ts"_s);
    row("a blank in the query", u"/a.ts?q=my news"_s, u"/a.ts?q=my%20news"_s);
    row("all others in the query", u"/a.ts?q=\"<>\\^`{|}"_s,
        u"/a.ts?q=%22%3C%3E%5C%5E%60%7B%7C%7D"_s);
    row("what is encoded stays", u"/a%20b%7c.ts?q=%22"_s, u"/a%20b%7c.ts?q=%22"_s);
    row("a percent sign stays", u"/a.ts?q=100%&r=%zz"_s, u"/a.ts?q=100%&r=%zz"_s);
    row("what a URL may hold stays", u"/a'(b)[c]*!$,;:@&=+~-_.ts?q=a+b&r=[1]"_s,
        u"/a'(b)[c]*!$,;:@&=+~-_.ts?q=a+b&r=[1]"_s);
}

void tst_VlcPlayerUrls::requests()
{
    QFETCH(QString, given);
    QFETCH(QString, requested);
    HttpServer server;
    PlayerProbe probe;
    probe.player.play(server.url(given), true);
    QTRY_VERIFY_WITH_TIMEOUT(server.requestCount() > 0, 20000);
    QCOMPARE(server.requests().constFirst().target, requested);
}

void tst_VlcPlayerUrls::encodesOnlyWhatNoUrlMayHold()
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

VANTIRO_TEST_MAIN(tst_VlcPlayerUrls)
#include "tst_VlcPlayerUrls.moc"
