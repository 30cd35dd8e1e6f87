#include "app/TraceSecrets.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What was hidden once stays hidden for the rest of the program, so each test has secrets of its
// own.
class tst_TraceSecrets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hidesNothingAtFirst();
    void hidesEverySpelling_data();
    void hidesEverySpelling();
    void leavesTheRestAlone_data();
    void leavesTheRestAlone();
    void anEmptySecretHidesNothing();
    void overlappingSecrets();
    void cutsTheBody_data();
    void cutsTheBody();
    void hidesWhatAUrlCarries_data();
    void hidesWhatAUrlCarries();
    void aHiddenUrlValueIsFoundElsewhere();
    void aDecodedUrlValueIsFound();
    void manySecrets();
    void aVeryLongSecret();
};

void tst_TraceSecrets::hidesNothingAtFirst()
{
    QCOMPARE(traceSafe(u"user:password \"x\" *** \u00e9"_s), u"user:password \"x\" *** \u00e9"_s);
    QCOMPARE(traceSafe(QString()), QString());
    QCOMPARE(traceSafeHead("0123456789"_ba, 4), u"0123"_s);
}

void tst_TraceSecrets::hidesEverySpelling_data()
{
    QTest::addColumn<QString>("secret");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("masked");

    const QString plain = u"Raw-1zQ"_s;
    QTest::newRow("as it is") << plain << u"x Raw-1zQ y"_s << u"x *** y"_s;
    QTest::newRow("alone") << plain << plain << u"***"_s;
    QTest::newRow("several times") << plain << u"Raw-1zQRaw-1zQ,Raw-1zQ"_s << u"******,***"_s;
    QTest::newRow("inside a word") << plain << u"aRaw-1zQb"_s << u"a***b"_s;

    const QString url = u"k/1?A=b&c"_s;
    QTest::newRow("percent, upper case") << url << u"p=k%2F1%3FA%3Db%26c&x"_s << u"p=***&x"_s;
    QTest::newRow("percent, lower case") << url << u"p=k%2f1%3fA%3db%26c&x"_s << u"p=***&x"_s;
    QTest::newRow("percent, some") << url << u"p=k/1?A%3Db&c;"_s << u"p=***;"_s;
    QTest::newRow("percent, every character")
        << url << u"%6B%2F%31%3f%41%3d%62%26%63"_s << u"***"_s;
    QTest::newRow("percent, twice") << url << u"k%252F1%253fA%253Db%2526c"_s << u"***"_s;
    QTest::newRow("percent, three times")
        << url << u"k%25252F1%25253fA%25253Db%252526c"_s << u"***"_s;
    QTest::newRow("JSON slash") << url << uR"("k\/1?A=b&c")"_s << u"\"***\""_s;
    QTest::newRow("JSON in JSON slash") << url << uR"("k\\\/1?A=b&c")"_s << u"\"***\""_s;
    QTest::newRow("JSON unicode, lower case")
        << url << uR"(k\u002f1\u003fA=b\u0026c)"_s << u"***"_s;
    QTest::newRow("JSON unicode, upper case")
        << url << uR"(k\u002F1\u003FA=b\u0026c)"_s << u"***"_s;
    QTest::newRow("JSON in JSON unicode") << url << uR"(k\\u002F1?A=b\\u0026c)"_s << u"***"_s;
    QTest::newRow("HTML name") << url << u"<p>k/1?A=b&amp;c</p>"_s << u"<p>***</p>"_s;

    const QString markup = u"q&r<s>t\"u'v"_s;
    QTest::newRow("HTML names") << markup << u"q&amp;r&lt;s&gt;t&quot;u&apos;v"_s << u"***"_s;
    QTest::newRow("HTML decimal") << markup << u"q&#38;r&#60;s&#062;t&#34;u&#39;v"_s << u"***"_s;
    QTest::newRow("HTML hexadecimal")
        << markup << u"q&#x26;r&#x3C;s&#X3e;t&#x22;u&#x0027;v"_s << u"***"_s;
    QTest::newRow("JSON quote") << markup << uR"(q&r<s>t\"u'v)"_s << u"***"_s;

    const QString backslash = uR"(m\n\w)"_s;
    QTest::newRow("backslash") << backslash << uR"(x m\n\w y)"_s << u"x *** y"_s;
    QTest::newRow("JSON backslash") << backslash << uR"("m\\n\\w")"_s << u"\"***\""_s;

    const QString blanks = u"two words+plus"_s;
    QTest::newRow("blank") << blanks << u"x=two words+plus"_s << u"x=***"_s;
    QTest::newRow("blank as %20") << blanks << u"x=two%20words%2Bplus"_s << u"x=***"_s;
    QTest::newRow("blank as plus") << blanks << u"x=two+words%2bplus"_s << u"x=***"_s;

    const QString foreign = u"p\u00e4ss\u20ac\U0001F511"_s;
    QTest::newRow("not ASCII") << foreign << u"\u00e4 p\u00e4ss\u20ac\U0001F511 \u20ac"_s
                               << u"\u00e4 *** \u20ac"_s;
    QTest::newRow("not ASCII, percent")
        << foreign << u"p%C3%A4ss%E2%82%AC%F0%9F%94%91"_s << u"***"_s;
    QTest::newRow("not ASCII, percent, lower case")
        << foreign << u"p%c3%a4ss%e2%82%ac%f0%9f%94%91"_s << u"***"_s;
    QTest::newRow("not ASCII, JSON") << foreign << uR"(p\u00e4ss\u20AC\ud83d\uDD11)"_s << u"***"_s;
    QTest::newRow("not ASCII, HTML") << foreign << u"p&#228;ss&#x20ac;&#128273;"_s << u"***"_s;

    QTest::newRow("Base64") << u"abcdef~?>1234"_s << u"x YWJjZGVmfj8+MTIzNA== y"_s
                            << u"x ***== y"_s;
    QTest::newRow("Base64 for URLs")
        << u"abcdef~?>1234"_s << u"x=YWJjZGVmfj8-MTIzNA&y"_s << u"x=***&y"_s;
    QTest::newRow("Base64, not ASCII") << u"\u00e9\u00e8\u00ea"_s << u"w6nDqMOq"_s << u"***"_s;

    const QString expression = uR"(^a.b*c(d)[e]{2}|f$?+\E%1)"_s;
    QTest::newRow("characters of expressions")
        << expression << u"x"_s + expression + u"y"_s << u"x***y"_s;
    QTest::newRow("only signs") << u".*"_s + u".*"_s << u"a.*.*b"_s << u"a***b"_s;
}

void tst_TraceSecrets::hidesEverySpelling()
{
    QFETCH(const QString, secret);
    QFETCH(const QString, text);
    QFETCH(const QString, masked);
    hideFromTrace(secret);
    QCOMPARE(traceSafe(text), masked);
    QCOMPARE(traceSafeHead(text.toUtf8(), 100'000), masked);
}

void tst_TraceSecrets::leavesTheRestAlone_data()
{
    QTest::addColumn<QString>("secret");
    QTest::addColumn<QString>("text");
    QTest::newRow("a dot is a dot") << u"g.h.i.j"_s << u"gxhxixj"_s;
    QTest::newRow("case counts") << u"CaseCounts"_s << u"casecounts CASECOUNTS"_s;
    QTest::newRow("only a part") << u"wholeSecret"_s << u"wholeSecre holeSecret"_s;
    QTest::newRow("accents count") << u"\u00e9t\u00e9-ete"_s << u"ete-ete"_s;
    QTest::newRow("other text") << u"unrelated-1"_s
                                << u"\u4e2d \U0001F600 %00 \\u0041 &amp; \t\n"_s;
}

void tst_TraceSecrets::leavesTheRestAlone()
{
    QFETCH(const QString, secret);
    QFETCH(const QString, text);
    hideFromTrace(secret);
    QCOMPARE(traceSafe(text), text);
}

void tst_TraceSecrets::anEmptySecretHidesNothing()
{
    hideFromTrace(QString());
    hideFromTrace(u""_s);
    QCOMPARE(traceSafe(u"password=&x"_s), u"password=&x"_s);
    QCOMPARE(traceSafe(u""_s), u""_s);
    QCOMPARE(traceSafeHead(QByteArray(), 2000), QString());
}

void tst_TraceSecrets::overlappingSecrets()
{
    // The shorter one is known first, yet the longer one goes as a whole.
    hideFromTrace(u"Nest"_s);
    hideFromTrace(u"NestedSecret"_s);
    hideFromTrace(u"inNest"_s);
    QCOMPARE(traceSafe(u"NestedSecret Nest"_s), u"*** ***"_s);
    QCOMPARE(traceSafe(u"inNest"_s), u"***"_s);
    hideFromTrace(u"NestedSecret"_s);
    QCOMPARE(traceSafe(u"NestedSecret"_s), u"***"_s);

    hideFromTrace(u"left-Both"_s);
    hideFromTrace(u"Both-right"_s);
    const QString masked = traceSafe(u"left-Both-right"_s);
    QVERIFY2(!masked.contains(u"Both"_s), qPrintable(masked));
}

void tst_TraceSecrets::cutsTheBody_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("maxBytes");
    QTest::addColumn<QString>("head");
    const QByteArray x1990(1990, 'x');
    const QString shown1990 = QString::fromLatin1(x1990);
    const QByteArray tail(500, 't');
    QTest::newRow("shorter") << "abc"_ba << 2000 << u"abc"_s;
    QTest::newRow("exactly as long") << QByteArray(2000, 'x') << 2000 << QString(2000, u'x');
    QTest::newRow("one byte too long") << QByteArray(2001, 'x') << 2000 << QString(2000, u'x');
    QTest::newRow("nothing wanted") << "abc"_ba << 0 << QString();
    QTest::newRow("secret ends at the cut")
        << x1990 + "Cut-Secret" + tail << 2000 << shown1990 + u"***"_s;
    QTest::newRow("secret begins one byte before the cut")
        << x1990 + "yyyyyyyyyCut-Secret" + tail << 2000 << shown1990 + u"yyyyyyyyy***"_s;
    QTest::newRow("secret begins at the cut")
        << x1990 + "yyyyyyyyyyCut-Secret" + tail << 2000 << shown1990 + u"yyyyyyyyyy"_s;
    QTest::newRow("secret over the cut, body ends with it")
        << x1990 + "yyyyyCut-Secret" << 2000 << shown1990 + u"yyyyy***"_s;
    QTest::newRow("percent-encoded over the cut")
        << x1990 + "yyyy%43%75%74%2D%53%65%63%72%65%74" + tail << 2000 << shown1990 + u"yyyy***"_s;
    QTest::newRow("JSON escapes over the cut")
        << x1990 + "\\u0043\\u0075\\u0074\\u002d\\u0053\\u0065\\u0063\\u0072\\u0065\\u0074" + tail
        << 2000 << shown1990 + u"***"_s;
    QTest::newRow("Base64 over the cut")
        << x1990 + "Q3V0LVNlY3JldA" + tail << 2000 << shown1990 + u"***"_s;
    QTest::newRow("a masked secret does not make room for more")
        << "Cut-Secret" + x1990 + "zzzz" << 2000 << u"***"_s + shown1990;
    QTest::newRow("a character is cut")
        << x1990 + "yyyyyyyyy\xc3\xa9" + tail << 2000 << shown1990 + u"yyyyyyyyy\uFFFD"_s;
    QTest::newRow("a character before the cut")
        << x1990 + "yyyyyyyy\xc3\xa9" + tail << 2000 << shown1990 + u"yyyyyyyy\u00e9"_s;
}

void tst_TraceSecrets::cutsTheBody()
{
    QFETCH(const QByteArray, body);
    QFETCH(const int, maxBytes);
    QFETCH(const QString, head);
    hideFromTrace(u"Cut-Secret"_s);
    QCOMPARE(traceSafeHead(body, maxBytes), head);
}

void tst_TraceSecrets::hidesWhatAUrlCarries_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("shown");
    QTest::newRow("user info") << u"http://joe:Url-Pw-1@h/list.m3u"_s
                               << u"http://joe:***@h/list.m3u"_s;
    QTest::newRow("user info, percent-encoded")
        << u"http://joe:Url%40Pw%2F2@h/"_s << u"http://joe:***@h/"_s;
    QTest::newRow("user info without a name") << u"http://:Url-Pw-3@h/"_s << u"http://:***@h/"_s;
    QTest::newRow("password item") << u"http://h/get.php?username=joe&password=Url-Pw-4&type=m3u"_s
                                   << u"http://h/get.php?username=joe&password=***&type=m3u"_s;
    QTest::newRow("password item, percent-encoded")
        << u"http://h/get.php?password=Url%26Pw%3d5&output=ts"_s
        << u"http://h/get.php?password=***&output=ts"_s;
    QTest::newRow("password item, capitals")
        << u"http://h/?PASSWORD=Url-Pw-6"_s << u"http://h/?PASSWORD=***"_s;
    QTest::newRow("pass, pwd, token, api_key, auth, secret")
        << u"http://h/?pass=Url-a1&pwd=Url-b2&token=Url-c3&api_key=Url-d4&auth=Url-e5&secret=Url-f6"_s
        << u"http://h/?pass=***&pwd=***&token=***&api_key=***&auth=***&secret=***"_s;
    QTest::newRow("empty password item")
        << u"http://h/?password=&x=1"_s << u"http://h/?password=&x=1"_s;
    QTest::newRow("live path") << u"http://h:80/live/joe/Url-Pw-7/1.ts"_s
                               << u"http://h:80/live/joe/***/1.ts"_s;
    QTest::newRow("movie path") << u"http://h/movie/joe/Url-Pw-8/1.mp4"_s
                                << u"http://h/movie/joe/***/1.mp4"_s;
    QTest::newRow("series path") << u"http://h/series/joe/Url-Pw-9/1.mkv?x#y"_s
                                 << u"http://h/series/joe/***/1.mkv?x#y"_s;
    QTest::newRow("live path, percent-encoded")
        << u"http://h/live/joe/Url%20Pw%2610/1.ts"_s << u"http://h/live/joe/***/1.ts"_s;
    QTest::newRow("live path below the root")
        << u"http://h/a/b/live/joe/Url-Pw-11/1.ts"_s << u"http://h/a/b/live/joe/***/1.ts"_s;
    QTest::newRow("several kinds at once")
        << u"http://u:Url-Pw-12@h/live/joe/Url-Pw-13/1.ts?token=Url-Pw-14"_s
        << u"http://u:***@h/live/joe/***/1.ts?token=***"_s;
    QTest::newRow("none") << u"http://joe@h/live/stream.m3u8?user=joe&id=77"_s
                          << u"http://joe@h/live/stream.m3u8?user=joe&id=77"_s;
    QTest::newRow("a file") << u"/home/joe/live/channels.m3u"_s << u"/home/joe/live/channels.m3u"_s;
    QTest::newRow("no URL at all") << u"http://[::x y%%"_s << u"http://[::x y%%"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void tst_TraceSecrets::hidesWhatAUrlCarries()
{
    QFETCH(const QString, url);
    QFETCH(const QString, shown);
    hideUrlCredentialsFromTrace(url);
    QCOMPARE(traceSafe(url), shown);
}

void tst_TraceSecrets::aHiddenUrlValueIsFoundElsewhere()
{
    hideUrlCredentialsFromTrace(u"http://h/get.php?username=joe&password=El%2Fse%26where"_s);
    QCOMPARE(traceSafe(uR"({"password":"El\/se&where"} El/se%26where)"_s),
             uR"({"password":"***"} ***)"_s);
}

void tst_TraceSecrets::aDecodedUrlValueIsFound()
{
    // A form writes a blank as a plus sign; the server's answer has the blank.
    hideUrlCredentialsFromTrace(u"http://h/get.php?password=form+written+word"_s);
    QCOMPARE(traceSafe(u"password=form+written+word"_s), u"password=***"_s);
    QCOMPARE(traceSafe(u"the form written word"_s), u"the ***"_s);
}

void tst_TraceSecrets::manySecrets()
{
    // As many as a list of accounts, or an evening of streams with tokens, brings along.
    for (int index = 0; index < 300; ++index) {
        hideFromTrace(u"account-password-%1-end"_s.arg(index));
    }
    for (const int index : {0, 1, 150, 299}) {
        const QString text = u"password=account-password-%1-end&x"_s.arg(index);
        QCOMPARE(traceSafe(text), u"password=***&x"_s);
    }
}

void tst_TraceSecrets::aVeryLongSecret()
{
    const QString secret = u"begin"_s + QString(3000, u'L') + u"end"_s;
    hideFromTrace(secret);
    QCOMPARE(traceSafe(u"<"_s + secret + u">"_s), u"<***>"_s);
    // Whatever becomes of this one, the others stay hidden.
    hideFromTrace(u"Short-Secret"_s);
    QCOMPARE(traceSafe(u"a Short-Secret b"_s), u"a *** b"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_TraceSecrets)
#include "tst_TraceSecrets.moc"
