#include "model/CatalogCache.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// The cache's files: where they lie, what they hold, and what becomes of strange ones.

namespace {

constexpr qint64 day = 86400;
const QString sourceName = u"S"_s;

MediaItem sampleItem()
{
    return {StreamKind::Movie, u"i1"_s,         u"n1"_s, u"c1"_s,      u"http://h/p.jpg"_s,
            u"mkv"_s,          u"http://h/1"_s, 7.5,     1'700'000'000};
}

CatalogCache::Section sampleSection()
{
    return {{{u"c1"_s, u"cn1"_s}}, {sampleItem()}};
}

Episode sampleEpisode()
{
    return {u"e1"_s, u"sn1"_s, 3, 4, u"t1"_s, u"mp4"_s};
}

QString cacheDir()
{
    return PrivateProfile::current().appDataDir() + u"/catalog_cache"_s;
}

QString cacheFile(const QString &name = u"S.json"_s)
{
    return cacheDir() + u'/' + name;
}

void writeFile(const QByteArray &content)
{
    QVERIFY(QDir().mkpath(cacheDir()));
    QFile file(cacheFile());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(content), content.size());
}

QByteArray readFile(const QString &path = cacheFile())
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject readRoot()
{
    return QJsonDocument::fromJson(readFile()).object();
}

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

/// A file with one show's episodes, saved at the given JSON value.
void writeShowSavedAt(const QByteArray &savedAt)
{
    writeFile(R"({"episodes":{"9":{"savedAt":)" + savedAt +
              R"(,"list":[{"id":"e1",)"
              R"("seriesName":"sn1","season":3,"episodeNumber":4,"title":"t1",)"
              R"("containerExtension":"mp4"}]}}})");
}

} // namespace

class tst_CatalogCacheFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fileNames_data();
    void fileNames();
    void namesThatDifferInReplacedCharactersShareAFile();
    void aNameTooLongForAFileIsIgnored();
    void contentOfASection();
    void contentOfTheEpisodeStore();
    void orderOfTheKeys();
    void contentIsCompactUtf8();
    void onlyTheOwnerMayRead_data();
    void onlyTheOwnerMayRead();
    void loadingWritesNothing();

    void savingKeepsEverythingElse_data();
    void savingKeepsEverythingElse();
    void damagedFile_data();
    void damagedFile();
    void usableFile_data();
    void usableFile();
    void oddSection_data();
    void oddSection();
    void oddItemValue_data();
    void oddItemValue();
    void oddEpisodes_data();
    void oddEpisodes();
    void oddEpisodeStoreIsReplaced_data();
    void oddEpisodeStoreIsReplaced();

    void age_data();
    void age();
    void strangeSavedAt_data();
    void strangeSavedAt();
    void staleEpisodesStayInTheFile();

    void folderCannotBeMade();
    void fileCannotBeOpened();
};

void tst_CatalogCacheFiles::init()
{
    PrivateProfile::current().clear();
    const QFileInfo blocker(cacheDir());
    if (blocker.isFile()) {
        QVERIFY(QFile::remove(cacheDir()));
    }
}

void tst_CatalogCacheFiles::fileNames_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("file");
    QTest::newRow("blank and slash") << u"My TV/HD"_s << u"My_TV_HD.json"_s;
    QTest::newRow("letters, digits, underscore, hyphen") << u"aZ09_-"_s << u"aZ09_-.json"_s;
    QTest::newRow("empty") << u""_s << u".json"_s;
    QTest::newRow("dots and backslash") << uR"(..\..\x)"_s << u"______x.json"_s;
    QTest::newRow("path upwards") << u"../../etc/passwd"_s << u"______etc_passwd.json"_s;
    QTest::newRow("accents, one each") << u"\u00e9\u4e2d"_s << u"__.json"_s;
    QTest::newRow("digits of other scripts") << u"\u0661\uff11"_s << u"__.json"_s;
    QTest::newRow("line end at the end") << u"A\n"_s << u"A_.json"_s;
    QTest::newRow("NUL") << u"A"_s + QChar(0) + u"B"_s << u"A_B.json"_s;
    QTest::newRow("quotes and stars") << u"a\"b*c?d:e|f<g>h'i"_s << u"a_b_c_d_e_f_g_h_i.json"_s;
    QTest::newRow("ends in .json") << u"x.json"_s << u"x_json.json"_s;
}

void tst_CatalogCacheFiles::fileNames()
{
    QFETCH(const QString, source);
    QFETCH(const QString, file);
    QVERIFY(!QFileInfo::exists(cacheDir()));
    CatalogCache::save(source, u"live"_s, sampleSection());
    QCOMPARE(QDir(cacheDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{file});
    CatalogCache::saveEpisodes(source, u"9"_s, {});
    QCOMPARE(QDir(cacheDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{file});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(source, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());
}

void tst_CatalogCacheFiles::namesThatDifferInReplacedCharactersShareAFile()
{
    CatalogCache::save(u"My TV"_s, u"live"_s, sampleSection());
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(u"My_TV"_s, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());
}

void tst_CatalogCacheFiles::aNameTooLongForAFileIsIgnored()
{
    const QString name(5000, u'x');
    CatalogCache::save(name, u"live"_s, sampleSection());
    CatalogCache::Section loaded = sampleSection();
    QVERIFY(!CatalogCache::load(name, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());
}

void tst_CatalogCacheFiles::contentOfASection()
{
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    const QJsonObject expected{
        {u"movie"_s,
         QJsonObject{
             {u"categories"_s, QJsonArray{QJsonObject{{u"id"_s, u"c1"_s}, {u"name"_s, u"cn1"_s}}}},
             {u"items"_s, QJsonArray{QJsonObject{{u"type"_s, 1},
                                                 {u"id"_s, u"i1"_s},
                                                 {u"name"_s, u"n1"_s},
                                                 {u"categoryId"_s, u"c1"_s},
                                                 {u"iconUrl"_s, u"http://h/p.jpg"_s},
                                                 {u"containerExtension"_s, u"mkv"_s},
                                                 {u"streamUrl"_s, u"http://h/1"_s},
                                                 {u"rating"_s, 7.5},
                                                 {u"addedAt"_s, 1'700'000'000}}}}}}};
    QCOMPARE(readRoot(), expected);
    CatalogCache::save(sourceName, u"movie"_s, {});
    QCOMPARE(readRoot(), (QJsonObject{{u"movie"_s, QJsonObject{{u"categories"_s, QJsonArray()},
                                                               {u"items"_s, QJsonArray()}}}}));
}

void tst_CatalogCacheFiles::contentOfTheEpisodeStore()
{
    const qint64 before = now();
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const QJsonObject root = readRoot();
    QCOMPARE(root.keys(), QStringList{u"episodes"_s});
    const QJsonObject store = root.value(u"episodes"_s).toObject();
    QCOMPARE(store.keys(), QStringList{u"9"_s});
    const QJsonObject show = store.value(u"9"_s).toObject();
    QCOMPARE(show.keys(), (QStringList{u"list"_s, u"savedAt"_s}));
    QVERIFY(show.value(u"savedAt"_s).isDouble());
    QVERIFY(show.value(u"savedAt"_s).toInteger() >= before);
    QVERIFY(show.value(u"savedAt"_s).toInteger() <= now());
    QCOMPARE(show.value(u"list"_s).toArray(),
             (QJsonArray{QJsonObject{{u"id"_s, u"e1"_s},
                                     {u"seriesName"_s, u"sn1"_s},
                                     {u"season"_s, 3},
                                     {u"episodeNumber"_s, 4},
                                     {u"title"_s, u"t1"_s},
                                     {u"containerExtension"_s, u"mp4"_s}}}));
}

void tst_CatalogCacheFiles::orderOfTheKeys()
{
    const QByteArray movies =
        R"("movie":{"categories":[{"id":"c1","name":"cn1"}],"items":[{"type":1,"id":"i1",)"
        R"("name":"n1","categoryId":"c1","iconUrl":"http://h/p.jpg","containerExtension":"mkv",)"
        R"("streamUrl":"http://h/1","rating":7.5,"addedAt":1700000000}]})"_ba;
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    QCOMPARE(readFile(), '{' + movies + '}');

    // Further sections follow in the order in which they were saved first.
    CatalogCache::save(sourceName, u"live"_s, {{{u"1"_s, {}}, {u"2"_s, {}}}, {}});
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    const QByteArray live =
        R"("live":{"categories":[{"id":"1","name":""},{"id":"2","name":""}],"items":[]})"_ba;
    QCOMPARE(readFile(), '{' + movies + ',' + live + '}');

    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const QByteArray savedAt =
        QByteArray::number(readRoot()[u"episodes"_s][u"9"_s][u"savedAt"_s].toInteger());
    QCOMPARE(readFile(), '{' + movies + ',' + live + R"(,"episodes":{"9":{"savedAt":)" + savedAt +
                             R"(,"list":[{"id":"e1","seriesName":"sn1","season":3,)"
                             R"("episodeNumber":4,"title":"t1","containerExtension":"mp4"}]}}})");
}

void tst_CatalogCacheFiles::onlyTheOwnerMayRead_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("a new file") << false;
    QTest::newRow("a file that all may read") << true;
}

void tst_CatalogCacheFiles::onlyTheOwnerMayRead()
{
    // It holds stream URLs, and those credentials.
#ifdef Q_OS_WIN
    QSKIP("Windows' permissions come from the folder");
#endif
    QFETCH(const bool, exists);
    constexpr auto owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                           QFileDevice::ReadUser | QFileDevice::WriteUser;
    const auto prepare = [exists, owner] {
        QFile::remove(cacheFile());
        if (exists) {
            writeFile("{}"_ba);
            QVERIFY(QFile::setPermissions(cacheFile(),
                                          owner | QFileDevice::ReadGroup | QFileDevice::ReadOther));
        }
    };
    prepare();
    CatalogCache::save(sourceName, u"live"_s, sampleSection());
    QCOMPARE(QFile::permissions(cacheFile()), owner);
    prepare();
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    QCOMPARE(QFile::permissions(cacheFile()), owner);
}

void tst_CatalogCacheFiles::contentIsCompactUtf8()
{
    MediaItem item = sampleItem();
    item.name = u"\u00e9\U0001F600"_s;
    CatalogCache::save(sourceName, u"movie"_s, {{}, {item}});
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const QByteArray content = readFile();
    for (const char blank : {' ', '\n', '\r', '\t'}) {
        QVERIFY(!content.contains(blank));
    }
    QVERIFY(content.startsWith('{') && content.endsWith('}'));
    QVERIFY(content.contains("\"\xc3\xa9\xf0\x9f\x98\x80\""));
    QVERIFY(content.contains("\"addedAt\":1700000000"));
    QVERIFY(content.contains("\"rating\":7.5"));
}

void tst_CatalogCacheFiles::loadingWritesNothing()
{
    CatalogCache::Section section;
    QList<Episode> episodes;
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QVERIFY(!QFileInfo::exists(cacheDir()));
    const QByteArray content = "{ \"live\" : { } , \"x\" : 1 }\n"_ba;
    writeFile(content);
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(readFile(), content);
}

void tst_CatalogCacheFiles::savingKeepsEverythingElse_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::newRow("a section") << R"("movie":{"categories":[{"id":"1","name":"a"}],"items":[]})"_ba;
    QTest::newRow("a section with more than is known")
        << R"("movie":{"items":[{"id":7,"extra":{"a":[1,2,{}]}}],"version":2})"_ba;
    QTest::newRow("an episode store with more than is known")
        << R"("episodes":{"1":{"savedAt":5,"list":[{"id":"1","x":null}],"y":true},"2":[]})"_ba;
    QTest::newRow("values of every kind")
        << R"("a":null,"b":true,"c":false,"d":"x","e":[],"f":{},"g":-1.5e-7,"h":[[[{"i":[]}]]])"_ba;
    QTest::newRow("large numbers")
        << R"("a":9007199254740993,"b":9223372036854775807,"c":-9223372036854775808,"d":1e300)"_ba;
    QTest::newRow("escapes") << R"("a\n\"\\\/\u00e9\ud83d\ude00":"\b\f\t\r\u0000\u001f\u2028")"_ba;
    QTest::newRow("not ASCII") << "\"\xc3\xa9\":\"\xf0\x9f\x98\x80\""_ba;
    QTest::newRow("braces in texts") << R"("a":"}]","b\"{":"\\","c":"\\\"{[,:")"_ba;
    QTest::newRow("the same name twice, the last counts") << R"("a":1,"a":2)"_ba;
    QTest::newRow("blanks everywhere") << "\n\t \"a\" \r\n:\t[ 1 , 2 ,\n{ } ] \n"_ba;
    QTest::newRow("nested deeply") << "\"a\":" + QByteArray(900, '[') + QByteArray(900, ']');
}

void tst_CatalogCacheFiles::savingKeepsEverythingElse()
{
    QFETCH(const QByteArray, members);
    writeFile('{' + members + R"(,"live":{"categories":[],"items":[{"id":"old"}]}})");
    const QJsonObject before = readRoot();
    QVERIFY(before.contains(u"live"_s));
    CatalogCache::save(sourceName, u"live"_s, sampleSection());
    QJsonObject expected = before;
    expected[u"live"_s] = readRoot().value(u"live"_s);
    QCOMPARE(readRoot(), expected);
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());

    // A second time, over a file that the cache itself has written.
    CatalogCache::saveEpisodes(sourceName, u"new show"_s, {sampleEpisode()});
    QJsonObject store = expected.value(u"episodes"_s).toObject();
    const QJsonObject after = readRoot();
    store[u"new show"_s] = after.value(u"episodes"_s).toObject().value(u"new show"_s);
    expected[u"episodes"_s] = store;
    QCOMPARE(after, expected);
}

void tst_CatalogCacheFiles::damagedFile_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray whole =
        R"({"episodes":{"9":{"savedAt":99999999999,"list":[]}},"live":{"categories":[],"items":[]}})"_ba;
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("blanks") << " \n"_ba;
    QTest::newRow("cut at the end") << whole.chopped(1);
    QTest::newRow("cut in the middle") << whole.left(40);
    QTest::newRow("cut in a text") << whole.left(8);
    QTest::newRow("cut behind a name") << R"({"live")"_ba;
    QTest::newRow("cut behind a colon") << R"({"live":)"_ba;
    QTest::newRow("number beyond a double") << R"({"a":[12e308],)"_ba + whole.mid(1);
    QTest::newRow("number too close to 0") << R"({"a":1e-400,)"_ba + whole.mid(1);
    QTest::newRow("garbage behind") << whole + "x";
    QTest::newRow("two objects") << whole + whole;
    QTest::newRow("array") << '[' + whole + ']';
    QTest::newRow("number") << "5"_ba;
    QTest::newRow("text") << "\"live\""_ba;
    QTest::newRow("null") << "null"_ba;
    QTest::newRow("binary") << QByteArray::fromHex("89504e470d0a1a0a0000000d49484452ff00");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("invalid UTF-8 in a text") << R"({"a":")"_ba + '\xff' + R"(",)"_ba + whole.mid(1);
    QTest::newRow("comma too many") << whole.chopped(1) + ",}";
    QTest::newRow("single quotes") << QByteArray(whole).replace('"', '\'');
    QTest::newRow("bad number") << R"({"a":01x,)"_ba + whole.mid(1);
    QTest::newRow("nested 10,000 deep")
        << R"({"a":)"_ba + QByteArray(10'000, '[') + QByteArray(10'000, ']') + ',' + whole.mid(1);
    QTest::newRow("UTF-16") << QByteArray("{\0\"\0l\0i\0v\0e\0\"\0:\0{\0}\0}\0", 22);
}

void tst_CatalogCacheFiles::damagedFile()
{
    QFETCH(const QByteArray, content);
    writeFile(content);
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, sampleSection());
    QList<Episode> episodes{sampleEpisode()};
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{sampleEpisode()});
    QCOMPARE(readFile(), content);

    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    QCOMPARE(readRoot().keys(), QStringList{u"movie"_s});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(sourceName, u"movie"_s, loaded));
    QCOMPARE(loaded, sampleSection());

    writeFile(content);
    CatalogCache::saveEpisodes(sourceName, u"8"_s, {sampleEpisode()});
    QCOMPARE(readRoot().keys(), QStringList{u"episodes"_s});
    QVERIFY(CatalogCache::loadEpisodes(sourceName, u"8"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{sampleEpisode()});
}

void tst_CatalogCacheFiles::usableFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("indented") << "{\n    \"live\": {\n        \"items\": []\n    }\n}\n"_ba;
    QTest::newRow("byte-order mark") << "\xef\xbb\xbf{\"live\":{}}"_ba;
    QTest::newRow("other members around") << R"({"a":1,"live":{},"z":[]})"_ba;
    QTest::newRow("escaped name") << R"({"\u006cive":{}})"_ba;
    QTest::newRow("nested deeply beside it")
        << R"({"a":)"_ba + QByteArray(1000, '[') + QByteArray(1000, ']') + R"(,"live":{}})"_ba;
}

void tst_CatalogCacheFiles::usableFile()
{
    QFETCH(const QByteArray, content);
    writeFile(content);
    CatalogCache::Section section = sampleSection();
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, CatalogCache::Section());
}

void tst_CatalogCacheFiles::oddSection_data()
{
    QTest::addColumn<QByteArray>("section");
    QTest::addColumn<int>("categories");
    QTest::addColumn<int>("items");
    for (const QByteArray &value :
         {"null"_ba, "true"_ba, "5"_ba, R"("x")"_ba, "[]"_ba, "[{}]"_ba}) {
        QTest::newRow(value.constData()) << value << 0 << 0;
    }
    QTest::newRow("empty object") << "{}"_ba << 0 << 0;
    QTest::newRow("no categories") << R"({"items":[{},{}]})"_ba << 0 << 2;
    QTest::newRow("no items") << R"({"categories":[{}]})"_ba << 1 << 0;
    QTest::newRow("lists are objects")
        << R"({"categories":{"0":{}},"items":{"0":{}}})"_ba << 0 << 0;
    QTest::newRow("lists are texts") << R"({"categories":"[]","items":"[{}]"})"_ba << 0 << 0;
    QTest::newRow("elements are no objects")
        << R"({"categories":[1,"a",null,[]],"items":[null,[{}],true]})"_ba << 4 << 3;
}

void tst_CatalogCacheFiles::oddSection()
{
    QFETCH(const QByteArray, section);
    QFETCH(const int, categories);
    QFETCH(const int, items);
    writeFile(R"({"live":)" + section + '}');
    CatalogCache::Section loaded = sampleSection();
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, loaded));
    QCOMPARE(loaded.categories, QList<Category>(categories));
    QCOMPARE(loaded.items, QList<MediaItem>(items));
}

void tst_CatalogCacheFiles::oddItemValue_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<qint32>("integer");
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("real");
    QTest::addColumn<qint64>("variantInteger");
    QTest::newRow("number") << "2"_ba << 2 << QString() << 2.0 << qint64(2);
    QTest::newRow("digits text") << R"("12")"_ba << 0 << u"12"_s << 0.0 << qint64(12);
    QTest::newRow("word") << R"("abc")"_ba << 0 << u"abc"_s << 0.0 << qint64(0);
    QTest::newRow("null") << "null"_ba << 0 << QString() << 0.0 << qint64(0);
    QTest::newRow("true") << "true"_ba << 0 << QString() << 0.0 << qint64(1);
    QTest::newRow("false") << "false"_ba << 0 << QString() << 0.0 << qint64(0);
    QTest::newRow("text of true") << R"("true")"_ba << 0 << u"true"_s << 0.0 << qint64(0);
    QTest::newRow("fraction") << "2.5"_ba << 0 << QString() << 2.5 << qint64(3);
    QTest::newRow("text of a fraction") << R"("2.5")"_ba << 0 << u"2.5"_s << 0.0 << qint64(0);
    QTest::newRow("empty array") << "[]"_ba << 0 << QString() << 0.0 << qint64(0);
    QTest::newRow("array") << "[1]"_ba << 0 << QString() << 0.0 << qint64(0);
    QTest::newRow("object") << R"({"a":1})"_ba << 0 << QString() << 0.0 << qint64(0);
    QTest::newRow("beyond 32 bits")
        << "4294967296"_ba << 0 << QString() << 4294967296.0 << qint64(4294967296);
    QTest::newRow("whole number with exponent")
        << "3e2"_ba << 300 << QString() << 300.0 << qint64(300);
    QTest::newRow("2^53 + 1") << "9007199254740993"_ba << 0 << QString() << 9007199254740992.0
                              << qint64(9007199254740993);
}

void tst_CatalogCacheFiles::oddItemValue()
{
    QFETCH(const QByteArray, value);
    QFETCH(const qint32, integer);
    QFETCH(const QString, text);
    QFETCH(const double, real);
    QFETCH(const qint64, variantInteger);
    QByteArray item = R"({"type":V,"id":V,"name":V,"categoryId":V,"iconUrl":V,)"
                      R"("containerExtension":V,"streamUrl":V,"rating":V,"addedAt":V})"_ba;
    item.replace("V", value);
    QByteArray category = R"({"id":V,"name":V})"_ba;
    category.replace("V", value);
    writeFile(R"({"live":{"categories":[)" + category + R"(],"items":[)" + item + "]}}");
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, loaded));
    QCOMPARE(loaded.categories, (QList<Category>{{text, text}}));
    QCOMPARE(loaded.items, (QList<MediaItem>{{integer, text, text, text, text, text, text, real,
                                              variantInteger}}));
}

void tst_CatalogCacheFiles::oddEpisodes_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QList<Episode>>("episodes");
    using Episodes = QList<Episode>;
    QTest::newRow("missing") << R"("x":1)"_ba << Episodes();
    QTest::newRow("an object") << R"("list":{"0":{}})"_ba << Episodes();
    QTest::newRow("null") << R"("list":null)"_ba << Episodes();
    QTest::newRow("elements are no objects") << R"("list":[1,"a",null])"_ba << Episodes(3);
    QTest::newRow("texts are numbers and numbers texts")
        << R"("list":[{"id":1,"seriesName":2,"season":"3","episodeNumber":"4","title":5}])"_ba
        << Episodes(1);
    QTest::newRow("fractions") << R"("list":[{"season":1.5,"episodeNumber":2.0}])"_ba
                               << Episodes{{{}, {}, 0, 2, {}, {}}};
}

void tst_CatalogCacheFiles::oddEpisodes()
{
    QFETCH(const QByteArray, list);
    QFETCH(const QList<Episode>, episodes);
    writeFile(R"({"episodes":{"9":{"savedAt":)" + QByteArray::number(now()) + ',' + list + "}}}");
    QList<Episode> loaded{sampleEpisode()};
    QVERIFY(CatalogCache::loadEpisodes(sourceName, u"9"_s, day, loaded));
    QCOMPARE(loaded, episodes);
}

void tst_CatalogCacheFiles::oddEpisodeStoreIsReplaced_data()
{
    QTest::addColumn<QByteArray>("store");
    QTest::newRow("null") << "null"_ba;
    QTest::newRow("array") << R"([{"9":{}}])"_ba;
    QTest::newRow("text") << R"("9")"_ba;
}

void tst_CatalogCacheFiles::oddEpisodeStoreIsReplaced()
{
    QFETCH(const QByteArray, store);
    writeFile(R"({"live":{},"episodes":)" + store + '}');
    QList<Episode> episodes{sampleEpisode()};
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{sampleEpisode()});
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {});
    QCOMPARE(readRoot().keys(), (QStringList{u"episodes"_s, u"live"_s}));
    QCOMPARE(readRoot().value(u"episodes"_s).toObject().keys(), QStringList{u"9"_s});
}

void tst_CatalogCacheFiles::age_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<qint64>("maxAge");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("just saved") << qint64(0) << day << true;
    QTest::newRow("one second less than a day") << day - 1 << day << true;
    QTest::newRow("exactly a day") << day << day << false;
    QTest::newRow("a second more than a day") << day + 1 << day << false;
    QTest::newRow("in the future") << qint64(-5000) << day << true;
    QTest::newRow("limit 0, now") << qint64(0) << qint64(0) << false;
    QTest::newRow("limit 0, future") << qint64(-1) << qint64(0) << true;
    QTest::newRow("limit -10, 10 s ahead") << qint64(-10) << qint64(-10) << false;
    QTest::newRow("limit -10, 11 s ahead") << qint64(-11) << qint64(-10) << true;
    QTest::newRow("largest limit")
        << qint64(1'000'000) << std::numeric_limits<qint64>::max() << true;
}

void tst_CatalogCacheFiles::age()
{
    QFETCH(const qint64, age);
    QFETCH(const qint64, maxAge);
    QFETCH(const bool, fresh);
    qint64 before = 0;
    bool found = false;
    QList<Episode> loaded;
    do { // until the clock has not moved on in between
        before = now();
        loaded = {Episode()};
        writeShowSavedAt(QByteArray::number(before - age));
        found = CatalogCache::loadEpisodes(sourceName, u"9"_s, maxAge, loaded);
    } while (now() != before);
    QCOMPARE(found, fresh);
    QCOMPARE(loaded, QList<Episode>{fresh ? sampleEpisode() : Episode()});
}

void tst_CatalogCacheFiles::strangeSavedAt_data()
{
    QTest::addColumn<QByteArray>("savedAt");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("zero") << "0"_ba << false;
    QTest::newRow("negative") << "-1"_ba << false;
    QTest::newRow("true is one second after the epoch") << "true"_ba << false;
    QTest::newRow("null") << "null"_ba << false;
    QTest::newRow("word") << R"("now")"_ba << false;
    QTest::newRow("object") << "{}"_ba << false;
    QTest::newRow("digits text") << R"("99999999999")"_ba << true;
    QTest::newRow("exponent") << "1e12"_ba << true;
    QTest::newRow("largest") << "9223372036854775807"_ba << true;
    QTest::newRow("smallest") << "-9223372036854775808"_ba << false;
}

void tst_CatalogCacheFiles::strangeSavedAt()
{
    QFETCH(const QByteArray, savedAt);
    QFETCH(const bool, fresh);
    writeShowSavedAt(savedAt);
    QList<Episode> loaded{Episode()};
    QCOMPARE(CatalogCache::loadEpisodes(sourceName, u"9"_s, day, loaded), fresh);
    QCOMPARE(loaded, QList<Episode>{fresh ? sampleEpisode() : Episode()});
}

void tst_CatalogCacheFiles::staleEpisodesStayInTheFile()
{
    writeShowSavedAt("5"_ba);
    const QJsonValue stale = readRoot().value(u"episodes"_s).toObject().value(u"9"_s);
    CatalogCache::saveEpisodes(sourceName, u"8"_s, {});
    CatalogCache::save(sourceName, u"live"_s, {});
    QCOMPARE(readRoot().value(u"episodes"_s).toObject().value(u"9"_s), stale);
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {});
    QList<Episode> loaded{sampleEpisode()};
    QVERIFY(CatalogCache::loadEpisodes(sourceName, u"9"_s, day, loaded));
    QVERIFY(loaded.isEmpty());
}

void tst_CatalogCacheFiles::folderCannotBeMade()
{
    QVERIFY(QDir().mkpath(PrivateProfile::current().appDataDir()));
    QFile blocker(cacheDir());
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    CatalogCache::save(sourceName, u"live"_s, sampleSection());
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, sampleSection());
    QVERIFY(QFileInfo(cacheDir()).isFile());
}

void tst_CatalogCacheFiles::fileCannotBeOpened()
{
    QVERIFY(QDir().mkpath(cacheFile())); // a folder of the file's name
    CatalogCache::save(sourceName, u"live"_s, sampleSection());
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QList<Episode> episodes;
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QVERIFY(QFileInfo(cacheFile()).isDir());
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCacheFiles)
#include "tst_CatalogCacheFiles.moc"
