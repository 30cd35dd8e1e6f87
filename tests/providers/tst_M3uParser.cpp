#include "model/StreamHeaders.h"
#include "providers/M3uParser.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A channel as the data rows write it.
struct Channel
{
    QString name;
    QString group;
    QString url;
    QString logo;
};

MediaItem itemOf(const Channel &channel)
{
    MediaItem item;
    item.type = StreamKind::Live;
    item.id = channel.url;
    item.name = channel.name;
    item.categoryId = channel.group;
    item.iconUrl = channel.logo;
    item.streamUrl = channel.url;
    return item;
}

const QString uncategorized = u"Uncategorized"_s;

} // namespace

Q_DECLARE_METATYPE(Channel)

class tst_M3uParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parses_data();
    void parses();
    void headers_data();
    void headers();
    void neighboursShareTheirHeaders();
    void categoriesInOrderOfFirstAppearance();
    void bytesAreDecodedAsQtDoes();
    void hugeLines();

private:
    static void pairingRows();
    static void nameRows();
    static void attributeRows();
    static void lineRows();
};

void tst_M3uParser::parses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<Channel>>("channels");
    pairingRows();
    nameRows();
    attributeRows();
    lineRows();
}

void tst_M3uParser::pairingRows()
{
    using Channels = QList<Channel>;
    const Channels a{{u"A"_s, uncategorized, u"http://h/1"_s, {}}};
    QTest::newRow("nothing") << QString() << Channels();
    QTest::newRow("a whole entry") << uR"(#EXTM3U
#EXTINF:-1 tvg-id="a.id" tvg-name="Other" tvg-logo="http://h/a.png" group-title="News",Channel A
http://h/1.ts
)"_s << Channels{{u"Channel A"_s, u"News"_s, u"http://h/1.ts"_s, u"http://h/a.png"_s}};
    QTest::newRow("two URLs after one #EXTINF") << u"#EXTINF:-1,A\nhttp://h/1\nhttp://h/2\n"_s << a;
    QTest::newRow("the next #EXTINF drops the one before")
        << u"#EXTINF:-1 group-title=\"G\" tvg-logo=\"L\",B\n#EXTINF:-1,A\nhttp://h/1\n"_s << a;
    QTest::newRow("a nameless #EXTINF drops the one before")
        << u"#EXTINF:-1,B\n#EXTINF:-1,\nhttp://h/1\n"_s << Channels();
    QTest::newRow("empty lines in between")
        << u"#EXTINF:-1,A\n\n \t \n\u00a0\u3000\nhttp://h/1"_s << a;
    QTest::newRow("directives and comments in between")
        << u"#EXTINF:-1,A\n#EXTVLCOPT:network-caching=1\n#EXTGRP:G\n# note\n#\nhttp://h/1"_s << a;
    QTest::newRow("headers behind the URL")
        << u"#EXTINF:-1,A\nhttp://h/1|User-Agent=x"_s
        << Channels{{u"A"_s, uncategorized, u"http://h/1|User-Agent=x"_s, {}}};
    QTest::newRow("group and logo do not carry over")
        << u"#EXTINF:-1 group-title=\"G\" tvg-logo=\"L\",B\nhttp://h/0\n#EXTINF:-1,A\nhttp://h/1"_s
        << Channels{{u"B"_s, u"G"_s, u"http://h/0"_s, u"L"_s}, a.first()};
    QTest::newRow("a URL with #EXTINF inside")
        << u"#EXTINF:-1,A\nhttp://h/#EXTINF:-1,B\n"_s
        << Channels{{u"A"_s, uncategorized, u"http://h/#EXTINF:-1,B"_s, {}}};
    QTest::newRow("the URL is trimmed") << u"#EXTINF:-1,A\n \t http://h/1 \u2003\n"_s << a;
}

void tst_M3uParser::nameRows()
{
    const auto row = [](const char *name, const QString &line, const QString &displayName) {
        QList<Channel> channels;
        if (!displayName.isNull()) {
            channels.append({displayName, uncategorized, u"http://h/1"_s, {}});
        }
        QTest::newRow(name) << line + u"\nhttp://h/1\n"_s << channels;
    };
    row("no comma", u"#EXTINF:-1"_s, u"Unnamed"_s);
    row("ends in a comma", u"#EXTINF:-1,"_s, {});
    row("only blanks after the comma", u"#EXTINF:-1, \t\u00a0 "_s, {});
    row("the name is trimmed", u"#EXTINF:-1,\u2003 A B \t"_s, u"A B"_s);
    row("a comma in the name", u"#EXTINF:-1,Sports, HD"_s, u"HD"_s);
    row("a comma only in an attribute", u"#EXTINF:-1 tvg-name=\"a, b\""_s, u"b\""_s);
    row("lower case tag", u"#extinf:-1,A"_s, u"A"_s);
    row("indented tag", u" \t\u00a0#EXTINF:-1,A"_s, u"A"_s);
    row("space in the tag", u"# EXTINF:-1,A"_s, {});
    row("dotless and dotted letters are no I", u"#EXT\u0131NF:-1,A"_s, {});
}

void tst_M3uParser::attributeRows()
{
    const auto row = [](const char *name, const QString &attributes, const QString &group,
                        const QString &logo) {
        QTest::newRow(name) << u"#EXTINF:-1 "_s + attributes + u",A\nhttp://h/1\n"_s
                            << QList<Channel>{{u"A"_s, group, u"http://h/1"_s, logo}};
    };
    row("empty values", u"group-title=\"\" tvg-logo=\"\""_s, uncategorized, {});
    row("values are not trimmed", u"group-title=\" G \" tvg-logo=\" L \""_s, u" G "_s, u" L "_s);
    row("single quotes", u"group-title='G' tvg-logo='L'"_s, uncategorized, {});
    row("no quotes", u"group-title=G tvg-logo=L"_s, uncategorized, {});
    row("space before the equals sign", u"group-title =\"G\""_s, uncategorized, {});
    row("capitals", u"Group-Title=\"G\" TVG-LOGO=\"L\""_s, uncategorized, {});
    row("no closing quote", u"group-title=\"G"_s, uncategorized, {});
    row("the first occurrence wins", u"group-title=\"G\" group-title=\"H\""_s, u"G"_s, {});
    row("an empty first occurrence wins", u"group-title=\"\" group-title=\"H\""_s, uncategorized,
        {});
    row("an unquoted occurrence does not count", u"group-title=G group-title=\"H\""_s, u"H"_s, {});
    row("end of a longer name", u"xgroup-title=\"G\" xtvg-logo=\"L\""_s, u"G"_s, u"L"_s);
    row("inside another value", u"tvg-name=\"tvg-logo=\"L\" x"_s, uncategorized, u"L"_s);
    row("the logo inside the group", u"group-title=\"tvg-logo=\" tvg-logo=\"L\""_s, u"tvg-logo="_s,
        u" tvg-logo="_s);
    QTest::newRow("attributes after the comma")
        << u"#EXTINF:-1,A group-title=\"G\" tvg-logo=\"L\"\nhttp://h/1"_s
        << QList<Channel>{
               {u"A group-title=\"G\" tvg-logo=\"L\""_s, u"G"_s, u"http://h/1"_s, u"L"_s}};
    QTest::newRow("attributes of the next line do not count")
        << u"#EXTINF:-1 group-title=\"G,A\nhttp://h/1\"\n"_s
        << QList<Channel>{{u"A"_s, uncategorized, u"http://h/1\""_s, {}}};
}

void tst_M3uParser::lineRows()
{
    using Channels = QList<Channel>;
    const Channels two{{u"A"_s, uncategorized, u"http://h/1"_s, {}},
                       {u"B"_s, uncategorized, u"http://h/2"_s, {}}};
    const QString text = u"#EXTM3U\n#EXTINF:-1,A\nhttp://h/1\n#EXTINF:-1,B\nhttp://h/2\n"_s;
    QTest::newRow("LF") << text << two;
    QTest::newRow("CR LF") << QString(text).replace(u"\n"_s, u"\r\n"_s) << two;
    QTest::newRow("CR") << QString(text).replace(u"\n"_s, u"\r"_s) << two;
    QTest::newRow("no line end at the end") << text.chopped(1) << two;
    QTest::newRow("other separators end no line")
        << u"#EXTINF:-1,A\u2028http://h/1\n#EXTINF:-1,B\u0085http://h/2\n"_s << Channels();
    // A byte-order mark is not white space; decoding the file removes it.
    QTest::newRow("byte-order mark before the first #EXTINF")
        << u"\ufeff#EXTINF:-1,A\nhttp://h/1\n#EXTINF:-1,B\nhttp://h/2\n"_s << two.mid(1);
}

void tst_M3uParser::parses()
{
    QFETCH(const QString, text);
    QFETCH(const QList<Channel>, channels);
    QList<MediaItem> items;
    QList<Category> categories;
    for (const Channel &channel : channels) {
        items.append(itemOf(channel));
        const Category category{channel.group, channel.group};
        if (!categories.contains(category)) {
            categories.append(category);
        }
    }
    QString original(text.constData(), text.size());
    const M3uParser::Result result = M3uParser::parse(original);
    original.fill(u'?'); // the result outlives the text
    QCOMPARE(result.items, items);
    QCOMPARE(result.categories, categories);
}

void tst_M3uParser::headers_data()
{
    QTest::addColumn<QString>("lines"); ///< before the URL of A
    QTest::addColumn<QString>("userAgent");
    QTest::addColumn<QString>("referrer");
    const auto row = [](const char *name, const QStringList &options, const QString &userAgent,
                        const QString &referrer) {
        QString lines = u"#EXTINF:-1,A\n"_s;
        for (const QString &option : options) {
            lines += u"#EXTVLCOPT:"_s + option + u'\n';
        }
        QTest::newRow(name) << lines << userAgent << referrer;
    };
    const QString agent = u"http-user-agent=Tv/1.0 (x; y) 50%"_s;
    const QString agentValue = u"Tv/1.0 (x; y) 50%"_s;
    const QString page = u"http-referrer=https://r/?a=1&b=2|c"_s;
    const QString pageValue = u"https://r/?a=1&b=2|c"_s;
    row("none", {}, {}, {});
    row("user agent", {agent}, agentValue, {});
    row("referrer", {page}, {}, pageValue);
    row("both", {agent, page}, agentValue, pageValue);
    row("the last one counts", {u"http-user-agent=B"_s, agent}, agentValue, {});
    row("an empty one takes it back", {agent, u"http-user-agent="_s}, {}, {});
    row("blanks around", {u" http-user-agent= B \t"_s}, u"B"_s, {});
    row("not ASCII", {u"http-user-agent=\u00fc"_s, page}, {}, pageValue);
    row("a NUL", {u"http-referrer=a"_s + QChar(0) + u'b', agent}, agentValue, {});
    row("too long", {u"http-user-agent="_s + QString(2049, u'x')}, {}, {});
    for (const QString &name : {u"HTTP-User-Agent"_s, u"http-user-agent "_s, u":http-user-agent"_s,
                                u"http-referer"_s, u"sout"_s, u"demuxdump-file"_s, u"demux"_s,
                                u"input-slave"_s, u"sub-file"_s, u"http-user-agent:sout"_s}) {
        row(qPrintable(u"unknown: "_s + name), {name + u"=x"_s}, {}, {});
    }
    QTest::newRow("before the #EXTINF")
        << u"#EXTVLCOPT:http-user-agent=B\n#EXTINF:-1,A\n"_s << u"B"_s << QString();
    QTest::newRow("of the entry before")
        << u"#EXTINF:-1,B\n#EXTVLCOPT:http-user-agent=B\nhttp://h/0\n#EXTINF:-1,A\n"_s << QString()
        << QString();
    QTest::newRow("of a URL without a name")
        << u"#EXTVLCOPT:http-user-agent=B\nhttp://h/0\n#EXTINF:-1,A\n"_s << QString() << QString();
    QTest::newRow("lower case tag")
        << u"#EXTINF:-1,A\n#extvlcopt:http-user-agent=B\n"_s << u"B"_s << QString();
    QTest::newRow("another tag")
        << u"#EXTINF:-1,A\n#EXTVLC:http-user-agent=B\n#KODIPROP:http-user-agent=B\n"_s << QString()
        << QString();
}

void tst_M3uParser::headers()
{
    QFETCH(const QString, lines);
    QFETCH(const QString, userAgent);
    QFETCH(const QString, referrer);
    const QString url = u"http://h/1"_s;
    const M3uParser::Result result = M3uParser::parse(lines + url + u'\n');
    const MediaItem item = result.items.last();
    QCOMPARE(headersOfText(item.headers.toString()), (StreamHeaders{userAgent, referrer}));
    QCOMPARE(item.headers.isEmpty(), userAgent.isEmpty() && referrer.isEmpty());
    QCOMPARE(item.id.toString(), url);
    QCOMPARE(item.streamUrl.toString(), url);
}

/// A playlist names the same ones for hundreds of thousands of entries.
void tst_M3uParser::neighboursShareTheirHeaders()
{
    const QString entry = u"#EXTINF:-1,A\n#EXTVLCOPT:http-user-agent=B\nhttp://h/1\n"_s;
    const QList<MediaItem> items =
        M3uParser::parse(entry + u"#EXTINF:-1,A\nhttp://h/1\n"_s + entry).items;
    QCOMPARE(items.size(), 3);
    const void *first = items.first().headers.utf8().data();
    const void *last = items.last().headers.utf8().data();
    QCOMPARE(first, last);
}

void tst_M3uParser::categoriesInOrderOfFirstAppearance()
{
    QString text;
    const QStringList groups{u"z"_s, u"a"_s, u"Z"_s, u"a"_s, u"z"_s, u"a "_s, u"z"_s};
    for (const QString &group : groups) {
        text += u"#EXTINF:-1 group-title=\"%1\",N\nhttp://h/\n"_s.arg(group);
    }
    const M3uParser::Result result = M3uParser::parse(text);
    QStringList groupsOfItems;
    for (const MediaItem &item : result.items) {
        groupsOfItems << item.categoryId;
    }
    QCOMPARE(groupsOfItems, groups);
    QCOMPARE(result.categories,
             (QList<Category>{
                 {u"z"_s, u"z"_s}, {u"a"_s, u"a"_s}, {u"Z"_s, u"Z"_s}, {u"a "_s, u"a "_s}}));
}

void tst_M3uParser::bytesAreDecodedAsQtDoes()
{
    const QByteArray text = "\xef\xbb\xbf#EXTINF:-1 group-title=\"caf\xe9\",\xc2\xa0"
                            "a\xff\xe3\x80\x80\nhttp://h/1\n"
                            "#EXTINF:-1 group-title=\"caf\xfe\",\xef\xbb\xbf"
                            "b\nhttp://h/2\n"_ba;
    const M3uParser::Result expected = M3uParser::parse(QString::fromUtf8(text));
    const M3uParser::Result result = M3uParser::parseUtf8(text);
    QCOMPARE(result.items, expected.items);
    QCOMPARE(result.categories, expected.categories);
    QCOMPARE(result.items.size(), 2);
    QCOMPARE(result.categories.size(), 1);
    QCOMPARE(result.items.first().name.toString(), u"a\ufffd"_s);
    QCOMPARE(result.items.last().name.toString(), u"\ufeffb"_s);
}

void tst_M3uParser::hugeLines()
{
    constexpr qsizetype size = 10'000'000;
    const QString url(size, u'x');
    QCOMPARE(M3uParser::parse(u"#EXTINF:-1,A\n"_s + url).items.first().streamUrl.toString().size(),
             size);
    for (const QString &line :
         {u"#"_s + url, QString(size, u' '), u"#EXTINF:-1,"_s + url,
          u"#EXTINF:-1"_s + QString(size, u','), u"#EXTINF:-1"_s + QString(size, u'"'),
          u"#EXTINF:-1"_s + u"group-title="_s.repeated(size / 12),
          u"#EXTINF:-1 group-title=\""_s + url}) {
        QVERIFY(M3uParser::parse(u"#EXTINF:-1,A\n"_s + line).items.isEmpty());
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_M3uParser)
#include "tst_M3uParser.moc"
