#include "model/StreamHeaders.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_StreamHeaders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addresses_data();
    void addresses();
    void values_data();
    void values();
    void textsReadTheSame_data();
    void textsReadTheSame();
    void fallbacks();
};

void tst_StreamHeaders::addresses_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("isSetAside");
    QTest::addColumn<QString>("userAgent");
    QTest::addColumn<QString>("referrer");
    const auto row = [](const char *name, const QString &suffix, const QString &userAgent,
                        const QString &referrer) {
        QTest::newRow(name) << suffix << true << userAgent << referrer;
    };
    const auto stays = [](const char *name, const QString &suffix) {
        QTest::newRow(name) << suffix << false << QString() << QString();
    };
    row("both", u"|User-Agent=A/1&Referer=http://r/"_s, u"A/1"_s, u"http://r/"_s);
    row("the other order", u"|Referer=http://r/&User-Agent=A/1"_s, u"A/1"_s, u"http://r/"_s);
    row("lower case", u"|user-agent=A/1&referer=http://r/"_s, u"A/1"_s, u"http://r/"_s);
    row("upper case", u"|USER-AGENT=A/1&REFERER=http://r/"_s, u"A/1"_s, u"http://r/"_s);
    row("two r", u"|Referrer=http://r/"_s, {}, u"http://r/"_s);
    row("bars in between", u"|User-Agent=A/1|Referer=http://r/"_s, u"A/1"_s, u"http://r/"_s);
    row("percent-encoded", u"|User-Agent=A%2F1%20%28B%29&Referer=http%3A%2F%2Fr%2F%3Fa%26b"_s,
        u"A/1 (B)"_s, u"http://r/?a&b"_s);
    row("not encoded", u"|User-Agent=A/1 (B; C) +D 100%"_s, u"A/1 (B; C) +D 100%"_s, {});
    row("equals signs in a value", u"|Referer=http://r/?a=b=c"_s, {}, u"http://r/?a=b=c"_s);
    row("blanks around", u" | User-Agent = A/1 "_s, u"A/1"_s, {});
    row("other headers are not sent", u"|Cookie=c&User-Agent=A/1&X-Any=x"_s, u"A/1"_s, {});
    row("nothing but an extension", u"|X-Any=x"_s, {}, {});
    row("nothing but other headers", u"|Origin=http://o&verifypeer=false"_s, {}, {});
    row("options of libVLC are not taken",
        u"|User-Agent=A/1&sout=#std{access=file,dst=x}&demuxdump-file=x&input-slave=x&sub-file=x"_s,
        u"A/1"_s, {});
    row("the last one counts", u"|User-Agent=A/1&User-Agent=B/1"_s, u"B/1"_s, {});
    row("without a value", u"|User-Agent=&Referer"_s, {}, {});
    row("line ends in a value", u"|User-Agent=A/1%0D%0AX-Evil: 1&Referer=http://r/%0Ax"_s, {}, {});
    row("a line end at the end is trimmed", u"|User-Agent=A/1%0D%0A"_s, u"A/1"_s, {});
    row("NUL in a value", u"|User-Agent=A%001"_s, {}, {});
    row("letters beyond ASCII", u"|User-Agent=\u00dcber&Referer=http://r/%C3%BC"_s, {}, {});
    stays("nothing", {});
    stays("a bar at the end", u"|"_s);
    stays("a bar in the query", u"?a=b|c"_s);
    stays("another name", u"|sout=#std{access=file,dst=x}"_s);
    stays("a name without a value", u"|User-Agent"_s);
    QTest::newRow("a bar before the headers")
        << u"/a|b|User-Agent=A/1"_s << true << u"A/1"_s << QString();
}

void tst_StreamHeaders::addresses()
{
    QFETCH(const QString, suffix);
    QFETCH(const bool, isSetAside);
    const QString url = u"http://h/1.ts"_s;
    const StreamAddress address = splitStreamAddress(url + suffix);
    const QString kept = suffix.startsWith(u"/a|b"_s) ? u"/a|b"_s : QString();
    QCOMPARE(address.url, isSetAside ? url + kept : url + suffix);
    QTEST(address.headers.userAgent, "userAgent");
    QTEST(address.headers.referrer, "referrer");
}

void tst_StreamHeaders::values_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("maySend");
    QString printable;
    for (char16_t code = u' '; code <= u'~'; ++code) {
        printable += QChar(code);
    }
    QTest::newRow("all that is printable") << u'x' + printable << true;
    QTest::newRow("the longest") << QString(2048, u'x') << true;
    QTest::newRow("longer") << QString(2049, u'x') << false;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("a blank before it") << u" x"_s << false;
    QTest::newRow("a blank behind it") << u"x "_s << false;
    for (const char16_t code : {u'\0', u'\t', u'\n', u'\r', u'\x1f', u'\x7f', u'\x80', u'\u00fc',
                                u'\u2028', char16_t(0xd800)}) {
        QTest::addRow("U+%04X", unsigned(code)) << u"x%1x"_s.arg(QChar(code)) << false;
    }
}

void tst_StreamHeaders::values()
{
    QFETCH(const QString, value);
    QTEST(isHeaderValue(value), "maySend");
}

void tst_StreamHeaders::textsReadTheSame_data()
{
    QTest::addColumn<QString>("userAgent");
    QTest::addColumn<QString>("referrer");
    QTest::addColumn<QString>("text");
    const QString odd = u"a%20b&c|d=e \"f\" <g> #+?"_s;
    const QString encoded = u"a%2520b%26c%7Cd%3De%20%22f%22%20%3Cg%3E%20%23%2B%3F"_s;
    QTest::newRow("none") << QString() << QString() << QString();
    QTest::newRow("user agent") << odd << QString() << u"User-Agent="_s + encoded;
    QTest::newRow("referrer") << QString() << odd << u"Referer="_s + encoded;
    QTest::newRow("both") << u"A"_s << u"B"_s << u"User-Agent=A&Referer=B"_s;
}

void tst_StreamHeaders::textsReadTheSame()
{
    QFETCH(const QString, userAgent);
    QFETCH(const QString, referrer);
    QFETCH(const QString, text);
    const StreamHeaders headers{userAgent, referrer};
    QCOMPARE(textOfHeaders(headers), text);
    QCOMPARE(headersOfText(text), headers);
}

void tst_StreamHeaders::fallbacks()
{
    const StreamHeaders both{u"A"_s, u"B"_s};
    QCOMPARE(both.orElse({u"C"_s, u"D"_s}), both);
    QCOMPARE(StreamHeaders().orElse(both), both);
    QCOMPARE((StreamHeaders{u"C"_s, {}}.orElse(both)), (StreamHeaders{u"C"_s, u"B"_s}));
    QCOMPARE((StreamHeaders{{}, u"D"_s}.orElse(both)), (StreamHeaders{u"A"_s, u"D"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_StreamHeaders)
#include "tst_StreamHeaders.moc"
