#include "XmltvGenerator.h"
#include "XmltvReading.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int programmeCount = 20;
constexpr int brokenOne = 9;

QByteArray programme(int number, const QByteArray &title)
{
    return "<programme start=\"202401011" + QByteArray::number(number % 10) + "0000\" channel=\"c" +
           QByteArray::number(number / 10) + "\"><title>" + title + "</title></programme>\n";
}

/// Twenty programmes, one of which is as given.
QByteArray guide(const QByteArray &broken)
{
    QByteArray text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<tv>\n"
                      "<channel id=\"c0\"><display-name>Zero</display-name></channel>\n"
                      "<channel id=\"c1\"><display-name>One</display-name></channel>\n";
    for (int number = 0; number < programmeCount; ++number)
        text += number == brokenOne ? broken : programme(number, "T" + QByteArray::number(number));
    return text + "</tv>\n";
}

QByteArray wrapped(const QByteArray &content)
{
    return "<programme start=\"20240101190000\" channel=\"c0\">" + content + "</programme>\n";
}

QStringList titles(const XmltvContent &content)
{
    QStringList all;
    for (const XmltvProgramme &programme : content.programmes)
        all << programme.title;
    return all;
}

} // namespace

class tst_XmltvScanner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsAsXml_data();
    void readsAsXml();
    void encodings_data();
    void encodings();
    void recovers_data();
    void recovers();
    void documentStates_data();
    void documentStates();
    void limits();
    void skipsUnwanted();
    void unknownZone();
};

void tst_XmltvScanner::readsAsXml_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 60; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_XmltvScanner::readsAsXml()
{
    QFETCH(const quint32, seed);
    const QString language = seed % 2 == 0 ? u"de"_s : QString();
    const QByteArray document = XmltvGenerator(seed).body(12).toUtf8();
    QString error;
    const QStringList expected = texts(XmltvOracle::read(document, language, error));
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY(expected.size() > 6);
    QCOMPARE(texts(scanned(document, 0, language)), expected);
    for (qsizetype chunk = 1; chunk < document.size(); chunk += chunk < 70 ? 1 : chunk) {
        QVERIFY2(texts(scanned(document, chunk, language)) == expected,
                 qPrintable(QString::number(chunk)));
    }
}

void tst_XmltvScanner::encodings_data()
{
    QTest::addColumn<QByteArray>("document");

    const QString body = QString::fromUtf8(wrapped("<title>\u00c4rger \u00b5 &#x1F600;</title>"));
    const auto encoded = [](const QString &text, QStringConverter::Encoding encoding) {
        QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
        return QByteArray(encoder.encode(text));
    };
    const QString wide = "<?xml version=\"1.0\" encoding=\"UTF-16\"?><tv>"_L1 + body + "</tv>"_L1;
    QTest::newRow("UTF-8") << QByteArray("<tv>" + body.toUtf8() + "</tv>");
    QTest::newRow("UTF-8 with its mark")
        << QByteArray("\xef\xbb\xbf<tv>" + body.toUtf8() + "</tv>");
    QTest::newRow("UTF-16, low byte first") << encoded(wide, QStringConverter::Utf16LE);
    QTest::newRow("UTF-16, high byte first") << encoded(wide, QStringConverter::Utf16BE);
    QTest::newRow("Latin-1, declared") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><tv>" + body.toLatin1() + "</tv>");
    QTest::newRow("declared as UTF-16, but is UTF-8")
        << QByteArray("<?xml version=\"1.0\" encoding=\"UTF-16\"?><tv>" + body.toUtf8() + "</tv>");
    if (QStringDecoder("windows-1252").isValid()) { // by ICU, which Qt may lack
        QTest::newRow("windows-1252, declared") << QByteArray(
            "<?xml version=\"1.0\" encoding=\"windows-1252\"?><tv>" + body.toLatin1() + "</tv>");
    }
    for (const QByteArray &name : {"UTF-99"_ba, "utf"_ba, ""_ba}) {
        QTest::addRow("declared as \"%s\", but is UTF-8", name.constData())
            << "<?xml version=\"1.0\" encoding=\"" + name + "\"?><tv>" + body.toUtf8() + "</tv>";
    }
    QTest::newRow("an encoding that nobody knows")
        << QByteArray("<?xml version=\"1.0\" encoding=\"x-none\"?><tv>" + body.toUtf8() + "</tv>");
}

void tst_XmltvScanner::encodings()
{
    QFETCH(const QByteArray, document);
    const QStringList expected{u"\u00c4rger \u00b5 \U0001F600"_s};
    QCOMPARE(titles(scanned(document)), expected);
    QCOMPARE(titles(scanned(document, 1)), expected);
    QCOMPARE(titles(scanned(document, 3)), expected);
}

void tst_XmltvScanner::recovers_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("title"); ///< of the broken one; null where it is dropped
    QTest::addColumn<int>("copies");

    const auto row = [](const char *name, const QByteArray &broken, const QString &title) {
        QTest::newRow(name) << guide(broken) << title << 1;
    };
    row("nothing broken", wrapped("<title>B</title>"), u"B"_s);
    row("bare &", wrapped("<title>Q & A</title>"), u"Q & A"_s);
    row("bare <", wrapped("<title>5 < 6</title>"), u"5 < 6"_s);
    row("bare << at the end", wrapped("<title>x<<</title>"), u"x<<"_s);
    row("bad byte", wrapped("<title>a\xff z</title>"), u"a\ufffd z"_s);
    row("cut character", wrapped("<title>a\xc3</title>"), u"a\ufffd"_s);
    row("control byte", wrapped("<title>a\x01z</title>"), u"az"_s);
    row("unclosed title", wrapped("<title>B"), u"B"_s);
    row("unclosed title before a description", wrapped("<title>B<desc>D</desc>"), u"B"_s);
    row("unclosed title before a category", wrapped("<title>B<category>D</category>"), u"B"_s);
    row("unclosed programme", wrapped("<title>B</title>").replace("</programme>", ""), u"B"_s);
    row("end tag cut", wrapped("<title>B</title").replace("</programme>", ""), u"B"_s);
    row("unknown entity", wrapped("<title>a&nbsp;b</title>"), u"a&nbsp;b"_s);
    row("number of no character", wrapped("<title>&#0;&#xD800;&#x110000;&#-5;</title>"),
        u"&#0;&#xD800;&#x110000;&#-5;"_s);
    row("number without digits", wrapped("<title>&#;&#x;&#x1g;</title>"), u"&#;&#x;&#x1g;"_s);
    row("white space by its number", wrapped("<title>a&#9;b&#32;c</title>"), u"a b c"_s);
    row("signs that begin a name", wrapped("<title>B<_x></_x><:y/><\xc3\xa4></\xc3\xa4></title>"),
        u"B"_s);
    row("a sign that begins no name", wrapped("<title>a <{b} <~c</title>"), u"a <{b} <~c"_s);
    row("HTML in the title", wrapped("<title><i>B</i><br></title>"), u"B"_s);
    row("unclosed comment", wrapped("<title>B</title><!-- x"), u"B"_s);
    row("unclosed CDATA", wrapped("<title>B</title><![CDATA[ x"), u"B"_s);
    row("unclosed instruction", wrapped("<title>B</title><? x"), u"B"_s);
    row("stray end tags", wrapped("<title>B</title></desc></title></b>"), u"B"_s);
    row("attribute without a quote at its end",
        "<programme channel=\"c0\" start=\"20240101190000><title>B</title></programme>", u"B"_s);
    row("attributes without quotes",
        "<programme start=20240101190000 channel=c0><title>B</title></programme>", u"B"_s);
    row("quote missing before another attribute",
        "<programme start=\"20240101190000 channel=\"c0\"><title>B</title></programme>", {});
    row("carriage returns between attributes",
        "<programme\r\nstart=\"20240101190000\"\rchannel=\"c0\"><title>B</title></programme>",
        u"B"_s);
    row("attribute without a value",
        "<programme new start=\"20240101190000\" channel=\"c0\" x=><title>B</title></programme>",
        u"B"_s);
    row("a quote in an end tag", wrapped("<title>B</title' x>"), u"B"_s);
    row("no channel", "<programme start=\"20240101190000\"><title>B</title></programme>", {});
    row("channel without an id",
        "<channel><display-name>X</display-name></channel>" + wrapped("<title>B</title>"), u"B"_s);
    row("empty channel", "<programme start=\"2024\" channel=\" \"><title>B</title></programme>",
        {});
    row("no time", "<programme start=\"soon\" channel=\"c0\"><title>B</title></programme>", {});

    const QByteArray good = guide(wrapped("<title>B</title>"));
    QTest::newRow("blank line before the declaration") << "\n\n" + good << u"B"_s << 1;
    QTest::newRow("warning of a script before it")
        << "<b>Warning</b>: x<br />" + good << u"B"_s << 1;
    QTest::newRow("the document twice over") << good + good << u"B"_s << 2;
    QTest::newRow("declaration without its end")
        << QByteArray(good).replace("?>", ">") << u"B"_s << 1;
}

void tst_XmltvScanner::recovers()
{
    QFETCH(const QByteArray, document);
    QFETCH(const QString, title);
    QFETCH(const int, copies);
    QStringList once;
    for (int number = 0; number < programmeCount; ++number)
        once << (number == brokenOne ? title : u"T%1"_s.arg(number));
    once.removeAll(QString());
    QStringList expected;
    for (int copy = 0; copy < copies; ++copy)
        expected += once;
    const XmltvContent content = scanned(document);
    QCOMPARE(titles(content), expected);
    QCOMPARE(content.channels.size(), 2 * copies);
    const QStringList whole = texts(content);
    for (const qsizetype chunk : {1, 2, 7, 64, 1000})
        QCOMPARE(texts(scanned(document, chunk)), whole);
}

void tst_XmltvScanner::documentStates_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<bool>("sawRoot");
    QTest::addColumn<bool>("isComplete");
    QTest::newRow("empty") << QByteArray() << false << false;
    QTest::newRow("HTML") << QByteArray("<html><body>Forbidden</body></html>") << false << false;
    QTest::newRow("JSON") << QByteArray("{\"error\": \"tv\"}") << false << false;
    QTest::newRow("no programme") << QByteArray("<tv></tv>") << true << true;
    QTest::newRow("empty root") << QByteArray("<tv/>") << true << true;
    QTest::newRow("capitals") << QByteArray("<TV></TV>") << true << true;
    QTest::newRow("cut") << QByteArray("<tv><channel id=\"a\"/>") << true << false;
    QTest::newRow("second copy cut")
        << QByteArray("<tv></tv><tv><channel id=\"a\"/>") << true << false;
}

void tst_XmltvScanner::documentStates()
{
    QFETCH(const QByteArray, document);
    XmltvCollector collector;
    XmltvScanner scanner(collector);
    scanner.add(document);
    scanner.finish();
    QTEST(scanner.sawRoot(), "sawRoot");
    QTEST(scanner.isComplete(), "isComplete");
}

void tst_XmltvScanner::limits()
{
    const QByteArray half(XmltvScanner::longestElement / 2, 'x');
    const QByteArray title = "<title>" + half + "</title>";
    const auto read = [](const QByteArray &broken) {
        return scanned(guide(broken), 100'000).programmes;
    };
    const auto cut = read(wrapped(title + "<desc>" + half.first(100'000) + "</desc>"));
    QCOMPARE(cut.size(), programmeCount);
    QCOMPARE(cut.at(brokenOne).title.size(), XmltvScanner::longestTitle);
    QCOMPARE(cut.at(brokenOne).description.size(), XmltvScanner::longestDescription);

    QCOMPARE(read(wrapped(title + "<desc>" + half + "</desc>")).size(), programmeCount - 1);
    QCOMPARE(read(wrapped("<!--" + half + half + "-->")).size(), programmeCount - 1);
    QCOMPARE(read(wrapped("<x " + half + half + ">")).size(), programmeCount - 1);

    const QByteArray emoji = "<title>x" + QByteArray("\xf0\x9f\x98\x80").repeated(600) + "</title>";
    const QString halved = read(wrapped(emoji)).at(brokenOne).title;
    QCOMPARE(halved.size(), XmltvScanner::longestTitle - 1);
    QVERIFY(halved.back().isLowSurrogate());

    // Marks without an end must not be searched for again and again.
    const QByteArray comments = QByteArray("<!-- <![CDATA[ <? ").repeated(100'000);
    QCOMPARE(read(comments + wrapped("<title>B</title>")).size(), programmeCount);
}

void tst_XmltvScanner::skipsUnwanted()
{
    class Chooser final : public XmltvHandler
    {
    public:
        void channel(const XmltvChannel &) override {}
        bool wantsProgramme(const QString &channel, qint64) override { return channel == "c1"_L1; }
        void programme(const XmltvProgramme &programme) override { channels << programme.channel; }
        QStringList channels;
    } chooser;
    XmltvScanner scanner(chooser);
    scanner.add(guide(wrapped("<title>B</title>")));
    scanner.finish();
    QCOMPARE(chooser.channels.size(), 10);
    QCOMPARE(chooser.channels.count(u"c1"_s), 10);
    QCOMPARE(scanner.droppedElements(), 0);
}

void tst_XmltvScanner::unknownZone()
{
    XmltvCollector collector;
    XmltvScanner scanner(collector);
    scanner.add(guide(wrapped("")));
    QVERIFY(!scanner.sawUnknownZone());
    scanner.add("<programme start=\"20240101190000 CET\" channel=\"c0\"/>");
    QVERIFY(scanner.sawUnknownZone());
}

VANTIRO_TEST_GUILESS_MAIN(tst_XmltvScanner)
#include "tst_XmltvScanner.moc"
