#include "app/TraceSecrets.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// Runs with VANTIRO_NET_DEBUG=1: without it nothing is redacted by value.
class tst_TraceSecrets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void redactsEveryEncoding_data();
    void redactsEveryEncoding();
    void keepsOtherText();
    void overlappingSecrets();
    void cutsTheBody_data();
    void cutsTheBody();
    void aShortSecretIsRedactedInItsPositionOnly();
    void aSecretIsForgottenWithItsLastScope();
    void aUrlIsForgottenWithItsLine();
    void base64OfWhatHoldsTheSecret();
};

void tst_TraceSecrets::redactsEveryEncoding_data()
{
    QTest::addColumn<QString>("secret");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("masked");

    const QString plain = u"Raw-1zQ"_s;
    QTest::newRow("as it is") << plain << u"x Raw-1zQ y"_s << u"x *** y"_s;
    QTest::newRow("several times") << plain << u"Raw-1zQRaw-1zQ,Raw-1zQ"_s << u"******,***"_s;

    const QString url = u"k/1?A=b&c"_s;
    QTest::newRow("percent, upper case") << url << u"p=k%2F1%3FA%3Db%26c&x"_s << u"p=***&x"_s;
    QTest::newRow("percent, lower case") << url << u"p=k%2f1%3fA%3db%26c&x"_s << u"p=***&x"_s;
    QTest::newRow("percent, every character")
        << url << u"%6B%2F%31%3f%41%3d%62%26%63"_s << u"***"_s;
    QTest::newRow("percent, three times")
        << url << u"k%25252F1%25253fA%25253Db%252526c"_s << u"***"_s;
    QTest::newRow("JSON slash") << url << uR"("k\/1?A=b&c")"_s << u"\"***\""_s;
    QTest::newRow("JSON unicode, lower case")
        << url << uR"(k\u002f1\u003fA=b\u0026c)"_s << u"***"_s;
    QTest::newRow("JSON in JSON slash") << url << uR"("k\\\/1?A=b&c")"_s << u"\"***\""_s;
    QTest::newRow("JSON in JSON unicode") << url << uR"(k\\u002F1?A=b\\u0026c)"_s << u"***"_s;

    const QString markup = u"q&r<s>t\"u'v"_s;
    QTest::newRow("HTML names") << markup << u"q&amp;r&lt;s&gt;t&quot;u&apos;v"_s << u"***"_s;
    QTest::newRow("HTML decimal") << markup << u"q&#38;r&#60;s&#062;t&#34;u&#39;v"_s << u"***"_s;
    QTest::newRow("HTML hexadecimal")
        << markup << u"q&#x26;r&#x3C;s&#X3e;t&#x22;u&#x0027;v"_s << u"***"_s;
    QTest::newRow("JSON quote") << markup << uR"(q&r<s>t\"u'v)"_s << u"***"_s;

    const QString backslash = uR"(m\n\w)"_s;
    QTest::newRow("backslash") << backslash << uR"(x m\n\w y)"_s << u"x *** y"_s;
    QTest::newRow("JSON backslash") << backslash << uR"("m\\n\\w")"_s << u"\"***\""_s;

    QTest::newRow("JSON control characters")
        << u"a\nb\rc\td\be\fg"_s << uR"("a\nb\rc\td\be\fg")"_s << u"\"***\""_s;

    const QString spaces = u"two words+plus"_s;
    QTest::newRow("space as %20") << spaces << u"x=two%20words%2Bplus"_s << u"x=***"_s;
    QTest::newRow("space as plus") << spaces << u"x=two+words%2bplus"_s << u"x=***"_s;

    const QString foreign = u"p\u00e4ss\u20ac\U0001F511"_s;
    QTest::newRow("not ASCII") << foreign << u"\u00e4 p\u00e4ss\u20ac\U0001F511 \u20ac"_s
                               << u"\u00e4 *** \u20ac"_s;
    QTest::newRow("not ASCII, percent")
        << foreign << u"p%C3%A4ss%E2%82%AC%F0%9F%94%91"_s << u"***"_s;
    QTest::newRow("not ASCII, JSON") << foreign << uR"(p\u00e4ss\u20AC\ud83d\uDD11)"_s << u"***"_s;
    QTest::newRow("not ASCII, HTML") << foreign << u"p&#228;ss&#x20ac;&#128273;"_s << u"***"_s;

    QTest::newRow("percent, cut within a character")
        << foreign << u"p%C3 p%C3%A4ss%E2%82"_s << u"p%C3 p%C3%A4ss%E2%82"_s;
    QTest::newRow("HTML, cut or too long") << u"&r&s&t"_s << u"&#38;r&#38;s&#38 &#12345678;r&#"_s
                                           << u"&#38;r&#38;s&#38 &#12345678;r&#"_s;

    QTest::newRow("HTML, cut behind its sign") << u"&r&s&t"_s << u"x &#38;r&"_s << u"x &#38;r&"_s;
    QTest::newRow("HTML, no digits") << u"&r&s&t"_s << u"&#3z;r&s&t"_s << u"&#3z;r&s&t"_s;
    QTest::newRow("not ASCII, JSON, half a character")
        << foreign << uR"(p\u00e4ss\u20AC\ud83dx)"_s << uR"(p\u00e4ss\u20AC\ud83dx)"_s;
    QTest::newRow("not ASCII, JSON, cut")
        << foreign << uR"(p\u00e4ss\u20AC\ud83d\)"_s << uR"(p\u00e4ss\u20AC\ud83d\)"_s;
    QTest::newRow("JSON, cut before a quote") << u"pass\"word"_s << u"x pass\\"_s << u"x pass\\"_s;
    QTest::newRow("JSON, cut before the sign") << u"\"word"_s << u"x \\"_s << u"x \\"_s;
    // At each offset within a group of three bytes, without the characters that it shares with
    // others.
    struct Part
    {
        QByteArray before;
        qsizetype first;
        qsizetype shared;
    };
    const QByteArray inBase64 = "abcdef~?>1234";
    for (const Part &part : {Part{"", 0, 1}, Part{"z", 2, 1}, Part{"zz", 3, 0}}) {
        const QByteArray whole = (part.before + inBase64).toBase64(QByteArray::OmitTrailingEquals);
        const QString known = QString::fromLatin1(whole.sliced(part.first).chopped(part.shared));
        for (const QString &sign :
             {u""_s, u"."_s, u"["_s, u"{"_s, u"9"_s, u"+"_s, u"/"_s, u"-"_s, u"_"_s}) {
            // What may be Base64 shares bits with the secret.
            const bool isBase64 = QStringView(u"9+/-_").contains(sign) && !sign.isEmpty();
            QTest::newRow(qPrintable(u"Base64 at %1 in \"%2\""_s.arg(part.before.size()).arg(sign)))
                << QString::fromLatin1(inBase64) << QString(sign + known + sign)
                << QString((isBase64 && part.first > 0 ? QString() : sign) + u"***"_s +
                           (isBase64 && part.shared > 0 ? QString() : sign));
        }
    }
    QTest::newRow("Base64") << u"abcdef~?>1234"_s << u"x YWJjZGVmfj8+MTIzNA== y"_s
                            << u"x ***== y"_s;
    QTest::newRow("Base64 for URLs")
        << u"abcdef~?>1234"_s << u"x=YWJjZGVmfj8-MTIzNA&y"_s << u"x=***&y"_s;
    QTest::newRow("Base64, not ASCII")
        << u"\u00e9\u00e8\u00ea\u00eb"_s << u"w6nDqMOqw6s="_s << u"***="_s;

    const QString expression = uR"(^a.b*c(d)[e]{2}|f$?+\E%1)"_s;
    QTest::newRow("characters of expressions")
        << expression << u"x"_s + expression + u"y"_s << u"x***y"_s;
}

void tst_TraceSecrets::redactsEveryEncoding()
{
    QFETCH(const QString, secret);
    QFETCH(const QString, text);
    QFETCH(const QString, masked);
    const RedactionScope redaction(secret);
    QCOMPARE(traceSafe(text), masked);
    QCOMPARE(traceSafeHead(text.toUtf8(), 100'000), masked);
}

void tst_TraceSecrets::keepsOtherText()
{
    const RedactionScope none;
    const RedactionScope redaction(u"g.Secret-\u00e9"_s);
    for (const QString &text :
         {u""_s, u"password=&x"_s, u"gxSecret-\u00e9"_s, u"G.SECRET-\u00e9"_s, u"g.Secret-e"_s,
          u"g.Secret Secret-\u00e9"_s, u"\u4e2d \U0001F600 %00 \\u0041 &amp; \t\n"_s}) {
        QCOMPARE(traceSafe(text), text);
        QCOMPARE(traceSafeHead(text.toUtf8(), 2000), text);
    }
}

void tst_TraceSecrets::overlappingSecrets()
{
    // The shorter one is known first, yet the longer one goes as a whole.
    const RedactionScope nest(u"Nest"_s);
    const RedactionScope nested(u"NestedSecret"_s);
    const RedactionScope inNest(u"inNest"_s);
    QCOMPARE(traceSafe(u"NestedSecret Nest"_s), u"*** ***"_s);
    QCOMPARE(traceSafe(u"inNest"_s), u"***"_s);
    const RedactionScope left(u"left-Both"_s);
    const RedactionScope right(u"Both-right"_s);
    const QString masked = traceSafe(u"left-Both-right"_s);
    QVERIFY2(!masked.contains(u"Both"_s), qPrintable(masked));
}

void tst_TraceSecrets::cutsTheBody_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("head");
    const QByteArray x1990(1990, 'x');
    const QString shown1990 = QString::fromLatin1(x1990);
    const QByteArray tail(500, 't');
    QTest::newRow("exactly as long") << QByteArray(2000, 'x') << QString(2000, u'x');
    QTest::newRow("one byte too long") << QByteArray(2001, 'x') << QString(2000, u'x');
    QTest::newRow("secret begins one byte before the cut")
        << x1990 + "yyyyyyyyyCut-Secret" + tail << shown1990 + u"yyyyyyyyy***"_s;
    QTest::newRow("secret begins at the cut")
        << x1990 + "yyyyyyyyyyCut-Secret" + tail << shown1990 + u"yyyyyyyyyy"_s;
    QTest::newRow("secret over the cut, body ends with it")
        << x1990 + "yyyyyCut-Secret" << shown1990 + u"yyyyy***"_s;
    QTest::newRow("percent-encoded over the cut")
        << x1990 + "yyyy%43%75%74%2D%53%65%63%72%65%74" + tail << shown1990 + u"yyyy***"_s;
    QTest::newRow("JSON escapes over the cut")
        << x1990 + "\\u0043\\u0075\\u0074\\u002d\\u0053\\u0065\\u0063\\u0072\\u0065\\u0074" + tail
        << shown1990 + u"***"_s;
    QTest::newRow("Base64 over the cut") << x1990 + "Q3V0LVNlY3JldA" + tail << shown1990 + u"***"_s;
    QTest::newRow("a masked secret does not make room for more")
        << "Cut-Secret" + x1990 + "zzzz" << u"***"_s + shown1990;
    QTest::newRow("a character is cut")
        << x1990 + "yyyyyyyyy\xc3\xa9" + tail << shown1990 + u"yyyyyyyyy\uFFFD"_s;
}

void tst_TraceSecrets::cutsTheBody()
{
    QFETCH(const QByteArray, body);
    QFETCH(const QString, head);
    const RedactionScope redaction(u"Cut-Secret"_s);
    QCOMPARE(traceSafeHead(body, 2000), head);
}

void tst_TraceSecrets::aShortSecretIsRedactedInItsPositionOnly()
{
    const RedactionScope redaction(u"1"_s, u"http://u:abc@h/live/joe/\u00e4\u00f6/7.ts?token=22"_s);
    QCOMPARE(traceSafe(u"http://u:abc@h/live/joe/\u00e4\u00f6/7.ts?token=22&password=1&id=1"_s),
             u"http://u:***@h/live/joe/***/7.ts?token=***&password=***&id=1"_s);
    QCOMPARE(traceSafe(u"221 abc \u00e4\u00f6"_s), u"221 abc \u00e4\u00f6"_s);
    // Four characters are a secret.
    const RedactionScope longer(u"1234"_s);
    QCOMPARE(traceSafe(u"x1234y"_s), u"x***y"_s);
}

void tst_TraceSecrets::aSecretIsForgottenWithItsLastScope()
{
    const QString text = u"the Passing-Pw"_s;
    {
        RedactionScope first(u"Passing-Pw"_s);
        const RedactionScope copy = first;
        first = RedactionScope(u"another"_s);
        QCOMPARE(traceSafe(text), u"the ***"_s);
        {
            const RedactionScope again(u"Passing-Pw"_s);
        }
        QCOMPARE(traceSafe(text), u"the ***"_s);
    }
    QCOMPARE(traceSafe(text), text);
}

void tst_TraceSecrets::aUrlIsForgottenWithItsLine()
{
    QCOMPARE(traceSafeUrl(u"http://h/live/joe/football/7.ts?p=football&token=Abc-123&x=Abc-123"_s),
             u"http://h/live/joe/***/7.ts?p=***&token=***&x=***"_s);
    QCOMPARE(traceSafe(u"football Abc-123"_s), u"football Abc-123"_s);
}

void tst_TraceSecrets::base64OfWhatHoldsTheSecret()
{
    const QString secret = u"Bas3-Pw~?>-and-more-of-it"_s;
    const RedactionScope redaction(secret);
    for (const QString &before : {u""_s, u"a"_s, u"ab"_s, u"joe:"_s}) {
        for (const QString &after : {u""_s, u"x"_s, u"xyz"_s}) {
            const QByteArray whole = (before + secret + after).toUtf8();
            for (const auto option : {QByteArray::Base64Encoding, QByteArray::Base64UrlEncoding}) {
                const QString encoded = QString::fromLatin1(whole.toBase64(option));
                QString shown = traceSafe(encoded);
                QCOMPARE(shown.count(u"***"_s), 1);
                // The encoded neighbours are left.
                shown.replace(u"***"_s, u""_s).remove(u'=');
                QVERIFY2(shown.size() <= (before.size() + after.size()) * 4 / 3, qPrintable(shown));
                QCOMPARE(traceSafe(QString(encoded).replace(u'/', u"\\/"_s)).count(u"***"_s), 1);
            }
        }
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_TraceSecrets)
#include "tst_TraceSecrets.moc"
