#include "model/CatalogCache.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// The cache's files: their names, content and permissions, and damaged ones. Which texts are valid
// JSON is shown by tst_JsonReader.

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

QJsonObject readRoot()
{
    return QJsonDocument::fromJson(readFile(cacheFile())).object();
}

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

/// The member of the file that holds one show's episodes, saved at the given JSON value.
QByteArray showSavedAt(const QByteArray &savedAt)
{
    return R"("episodes":{"9":{"savedAt":)" + savedAt +
           R"(,"list":[{"id":"e1","seriesName":"sn1","season":3,"episodeNumber":4,"title":"t1",)"
           R"("containerExtension":"mp4"}]}})";
}

/// The episodes of show "9" in the file; one without any values if they are not loaded.
QList<Episode> loadedEpisodes(qint64 maxAge = day)
{
    QList<Episode> episodes{Episode()};
    const bool found = CatalogCache::loadEpisodes(sourceName, u"9"_s, maxAge, episodes);
    return found || episodes == QList<Episode>{Episode()} ? episodes : QList<Episode>(2);
}
const QList<Episode> noEpisodes{Episode()};

} // namespace

Q_DECLARE_METATYPE(CatalogCache::Section)

class tst_CatalogCacheFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fileNames_data();
    void fileNames();
    void aNameThatIsTooLong();
    void wholeFile();
    void headersOnlyWhereThereAreAny();
    void onlyTheOwnerMayRead();

    void savingKeepsEverythingElse_data();
    void savingKeepsEverythingElse();
    void damagedFile_data();
    void damagedFile();
    void valuesOfOtherTypes_data();
    void valuesOfOtherTypes();
    void malformedEpisodeStores_data();
    void malformedEpisodeStores();

    void age_data();
    void age();
    void malformedSavedAt();

    void unusablePath();
};

void tst_CatalogCacheFiles::init()
{
    PrivateProfile::current().clear();
    QFile::remove(cacheDir()); // where a test has put a file in its place
}

void tst_CatalogCacheFiles::fileNames_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("file");
    QTest::newRow("space and slash") << u"My TV/HD"_s << u"My_TV_HD.json"_s;
    QTest::newRow("letters, digits, underscore, hyphen") << u"aZ09_-"_s << u"aZ09_-.json"_s;
    QTest::newRow("empty") << u""_s << u".json"_s;
    QTest::newRow("dots and backslash") << uR"(..\..\x)"_s << u"______x.json"_s;
    QTest::newRow("digits of other scripts") << u"\u0661\uff11"_s << u"__.json"_s;
    QTest::newRow("NUL") << u"A"_s + QChar(0) + u"B"_s << u"A_B.json"_s;
    QTest::newRow("half a surrogate pair")
        << u"../"_s + QChar(0xd83d) + u"/x"_s << u"_____x.json"_s;
    QTest::newRow("beyond 16 bits") << u"\U0001F600x"_s << u"_x.json"_s;
    QTest::newRow("quotes and stars") << u"a\"b*c?d:e|f<g>h'i"_s << u"a_b_c_d_e_f_g_h_i.json"_s;
    QTest::newRow("ends in .json") << u"x.json"_s << u"x_json.json"_s;
}

void tst_CatalogCacheFiles::fileNames()
{
    QFETCH(const QString, source);
    QFETCH(const QString, file);
    QVERIFY(!QFileInfo::exists(cacheDir()));
    CatalogCache::save(source, u"live"_s, sampleSection());
    CatalogCache::saveEpisodes(source, u"9"_s, {});
    QCOMPARE(QDir(cacheDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{file});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(source, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());
}

void tst_CatalogCacheFiles::aNameThatIsTooLong()
{
    const QString name(10000, u'x');
    CatalogCache::save(name, u"live"_s, sampleSection());
    CatalogCache::Section loaded;
    QVERIFY(!CatalogCache::load(name, u"live"_s, loaded));
    QVERIFY(QDir(cacheDir()).isEmpty());
}

void tst_CatalogCacheFiles::wholeFile()
{
    const QByteArray movies =
        R"("movie":{"categories":[{"id":"c1","name":"cn1"}],"items":[{"type":1,"id":"i1",)"
        R"("name":"n1","categoryId":"c1","iconUrl":"http://h/p.jpg","containerExtension":"mkv",)"
        R"("streamUrl":"http://h/1","rating":7.5,"addedAt":1700000000}]})"_ba;
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    QCOMPARE(readFile(cacheFile()), '{' + movies + '}');

    // Further sections follow in the order in which they were saved first.
    const QByteArray live = R"("live":{"categories":[{"id":"2","name":""}],"items":[]})"_ba;
    CatalogCache::save(sourceName, u"live"_s, {{{u"2"_s, {}}}, {}});
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    const qint64 before = now();
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const qint64 savedAt = readRoot()[u"episodes"_s][u"9"_s][u"savedAt"_s].toInteger();
    QVERIFY(before <= savedAt && savedAt <= now());
    QCOMPARE(readFile(cacheFile()),
             '{' + movies + ',' + live + ',' + showSavedAt(QByteArray::number(savedAt)) + '}');
}

void tst_CatalogCacheFiles::headersOnlyWhereThereAreAny()
{
    CatalogCache::Section section = sampleSection();
    section.items.append(sampleItem());
    section.items.last().headers = QString(u"User-Agent=A"_s);
    CatalogCache::save(sourceName, u"movie"_s, section);
    const QByteArray file = readFile(cacheFile());
    QVERIFY(file.contains(R"("addedAt":1700000000},{)"));
    QVERIFY(file.contains(R"("addedAt":1700000000,"headers":"User-Agent=A"}])"));
}

void tst_CatalogCacheFiles::onlyTheOwnerMayRead()
{
    // It holds stream URLs, and those credentials.
#ifdef Q_OS_WIN
    QSKIP("Windows' permissions come from the folder");
#endif
    constexpr auto owner = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                           QFileDevice::ReadUser | QFileDevice::WriteUser;
    CatalogCache::save(sourceName, u"live"_s, {});
    QCOMPARE(QFile::permissions(cacheFile()), owner);
    // Also when it exists and all may read it.
    QVERIFY(QFile::setPermissions(cacheFile(), owner | QFileDevice::ReadOther));
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {});
    QCOMPARE(QFile::permissions(cacheFile()), owner);
}

void tst_CatalogCacheFiles::savingKeepsEverythingElse_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::newRow("a section with more than is known")
        << R"("movie":{"items":[{"id":7,"extra":{"a":[1,2,{}]}}],"version":2})"_ba;
    QTest::newRow("an episode store with more than is known")
        << R"("episodes":{"1":{"savedAt":5,"list":[{"id":"1","x":null}],"y":true},"2":[]})"_ba;
    QTest::newRow("values of every kind")
        << R"("a":null,"b":true,"c":false,"d":"x","e":[],"f":{},"g":-1.5e-7,"h":[[[{"i":[]}]]])"_ba;
    QTest::newRow("the same name twice, the last counts") << R"("a":1,"a":2)"_ba;
    QTest::newRow("white space everywhere") << "\n\t \"a\" \r\n:\t[ 1 , 2 ,\n{ } ] \n"_ba;
}

void tst_CatalogCacheFiles::savingKeepsEverythingElse()
{
    QFETCH(const QByteArray, members);
    writeFile(cacheFile(), '{' + members + R"(,"live":{"categories":[],"items":[{"id":"old"}]}})");
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
    const QByteArray whole = '{' + showSavedAt("99999999999"_ba) + R"(,"live":{}})";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut in the middle") << whole.left(40);
    QTest::newRow("number beyond a double") << R"({"a":[12e308],)"_ba + whole.mid(1);
    QTest::newRow("garbage after it") << whole + "x";
    QTest::newRow("array") << '[' + whole + ']';
    QTest::newRow("binary") << QByteArray::fromHex("89504e470d0a1a0a0000000d49484452ff00");
}

void tst_CatalogCacheFiles::damagedFile()
{
    QFETCH(const QByteArray, content);
    writeFile(cacheFile(), content);
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, sampleSection());
    QCOMPARE(loadedEpisodes(), noEpisodes);
    QCOMPARE(readFile(cacheFile()), content);

    CatalogCache::save(sourceName, u"movie"_s, {});
    QCOMPARE(readFile(cacheFile()), R"({"movie":{"categories":[],"items":[]}})"_ba);
    writeFile(cacheFile(), content);
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    QCOMPARE(readRoot().keys(), QStringList{u"episodes"_s});
    QCOMPARE(loadedEpisodes(), QList<Episode>{sampleEpisode()});
}

void tst_CatalogCacheFiles::valuesOfOtherTypes_data()
{
    QTest::addColumn<QByteArray>("live");
    QTest::addColumn<CatalogCache::Section>("section");
    using Section = CatalogCache::Section;
    const Section defaults{{Category()}, {MediaItem()}};
    MediaItem added;
    QTest::newRow("no object") << "[]"_ba << Section();
    QTest::newRow("no arrays") << R"({"categories":{"a":{}},"items":"x"})"_ba << Section();
    QTest::newRow("no objects in the arrays")
        << R"({"categories":[5],"items":[null]})"_ba << defaults;
    QTest::newRow("numbers for texts")
        << R"({"categories":[{"id":5,"name":6}],"items":[{"id":5,"name":true}]})"_ba << defaults;
    added.addedAt = 5;
    QTest::newRow("texts for numbers")
        << R"({"items":[{"type":"1","rating":"7.5","addedAt":"5"}]})"_ba << Section{{}, {added}};
    added.addedAt = 1;
    QTest::newRow("true for numbers")
        << R"({"items":[{"type":true,"rating":true,"addedAt":true}]})"_ba << Section{{}, {added}};
}

void tst_CatalogCacheFiles::valuesOfOtherTypes()
{
    QFETCH(const QByteArray, live);
    QFETCH(const CatalogCache::Section, section);
    writeFile(cacheFile(), R"({"live":)" + live + '}');
    CatalogCache::Section loaded = sampleSection();
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, loaded));
    QCOMPARE(loaded, section);
}

void tst_CatalogCacheFiles::malformedEpisodeStores_data()
{
    QTest::addColumn<QByteArray>("store");
    QTest::addColumn<QList<Episode>>("episodes");
    const QByteArray head = R"({"9":{"savedAt":99999999999,"list":)"_ba;
    const QList<Episode> none;
    QTest::newRow("null") << "null"_ba << noEpisodes;
    QTest::newRow("array") << R"([{"9":{}}])"_ba << noEpisodes;
    QTest::newRow("a show that is an array") << R"({"9":[]})"_ba << noEpisodes;
    QTest::newRow("no list") << head + "{}}}" << none;
    QTest::newRow("numbers for texts")
        << head + R"([{"id":1,"seriesName":2,"title":3,"containerExtension":4}]}})" << noEpisodes;
    QTest::newRow("texts for numbers")
        << head + R"([{"season":"1","episodeNumber":"2"}]}})" << noEpisodes;
}

void tst_CatalogCacheFiles::malformedEpisodeStores()
{
    QFETCH(const QByteArray, store);
    QFETCH(const QList<Episode>, episodes);
    writeFile(cacheFile(), R"({"live":{},"episodes":)" + store + '}');
    QCOMPARE(loadedEpisodes(), episodes);
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {});
    QCOMPARE(readRoot().keys(), (QStringList{u"episodes"_s, u"live"_s}));
    QCOMPARE(loadedEpisodes(), QList<Episode>());
}

void tst_CatalogCacheFiles::age_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<qint64>("maxAge");
    QTest::addColumn<bool>("fresh");
    using Limits = std::numeric_limits<qint64>;
    const auto row = [](const char *name, qint64 age, qint64 maxAge, bool fresh) {
        QTest::newRow(name) << age << maxAge << fresh;
    };
    row("one second less than a day", day - 1, day, true);
    row("exactly a day", day, day, false);
    row("in the future", -5000, day, true);
    row("limit 0, now", 0, 0, false);
    row("limit -10, 10 s ahead", -10, -10, false);
    row("limit -10, 11 s ahead", -11, -10, true);
    row("largest limit", 1'000'000, Limits::max(), true);
    row("smallest limit", 0, Limits::min(), false);
}

void tst_CatalogCacheFiles::age()
{
    QFETCH(const qint64, age);
    QFETCH(const qint64, maxAge);
    QFETCH(const bool, fresh);
    qint64 before = 0;
    QList<Episode> loaded;
    do { // again when the clock moved on in between
        before = now();
        writeFile(cacheFile(), '{' + showSavedAt(QByteArray::number(before - age)) + '}');
        loaded = loadedEpisodes(maxAge);
    } while (now() != before);
    QCOMPARE(loaded, fresh ? QList<Episode>{sampleEpisode()} : noEpisodes);
}

void tst_CatalogCacheFiles::malformedSavedAt()
{
    // "true" is one second after the epoch.
    for (const QByteArray &old :
         {"true"_ba, "null"_ba, R"("now")"_ba, "{}"_ba, "-9223372036854775808"_ba}) {
        writeFile(cacheFile(), '{' + showSavedAt(old) + '}');
        QCOMPARE(loadedEpisodes(), noEpisodes);
    }
    for (const QByteArray &future : {R"("99999999999")"_ba, "1e12"_ba, "9223372036854775807"_ba}) {
        writeFile(cacheFile(), '{' + showSavedAt(future) + '}');
        QCOMPARE(loadedEpisodes(), QList<Episode>{sampleEpisode()});
    }
}

void tst_CatalogCacheFiles::unusablePath()
{
    QCOMPARE(loadedEpisodes(), noEpisodes);
    QVERIFY(!QFileInfo::exists(cacheDir())); // loading writes nothing
    for (const bool isFolder : {false, true}) {
        init();
        if (isFolder) {
            QVERIFY(QDir().mkpath(cacheFile()));
        } else {
            writeFile(cacheDir(), {});
        }
        CatalogCache::save(sourceName, u"live"_s, sampleSection());
        CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
        CatalogCache::Section section = sampleSection();
        QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
        QCOMPARE(loadedEpisodes(), noEpisodes);
        QCOMPARE(QFileInfo(cacheFile()).isDir(), isFolder);
        QCOMPARE(QFileInfo(cacheDir()).isFile(), !isFolder);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCacheFiles)
#include "tst_CatalogCacheFiles.moc"
