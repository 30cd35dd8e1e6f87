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

// The cache's files: their names, content and permissions, and damaged ones. What values of the
// wrong type give is compared with a reference implementation in tst_CatalogCacheReference.

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

/// A file with one show's episodes, saved at the given JSON value.
void writeShowSavedAt(const QByteArray &savedAt)
{
    writeFile(cacheFile(), R"({"episodes":{"9":{"savedAt":)" + savedAt +
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
    void similarNamesShareAFile();
    void aNameTooLongForAFileIsIgnored();
    void episodesAreStampedWithTheTime();
    void wholeFile();
    void onlyTheOwnerMayRead_data();
    void onlyTheOwnerMayRead();
    void loadingWritesNothing();

    void savingKeepsEverythingElse_data();
    void savingKeepsEverythingElse();
    void damagedFile_data();
    void damagedFile();
    void malformedEpisodeStoreIsReplaced_data();
    void malformedEpisodeStoreIsReplaced();

    void age_data();
    void age();
    void malformedSavedAt_data();
    void malformedSavedAt();
    void staleEpisodesStayInTheFile();

    void unusablePath_data();
    void unusablePath();
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
    QTest::newRow("space and slash") << u"My TV/HD"_s << u"My_TV_HD.json"_s;
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
    CatalogCache::saveEpisodes(source, u"9"_s, {});
    QCOMPARE(QDir(cacheDir()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{file});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(source, u"live"_s, loaded));
    QCOMPARE(loaded, sampleSection());
}

void tst_CatalogCacheFiles::similarNamesShareAFile()
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

void tst_CatalogCacheFiles::episodesAreStampedWithTheTime()
{
    const qint64 before = now();
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const qint64 savedAt = readRoot()[u"episodes"_s][u"9"_s][u"savedAt"_s].toInteger();
    QVERIFY(before <= savedAt && savedAt <= now());
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
    CatalogCache::save(sourceName, u"live"_s,
                       {{{u"1"_s, {}}, {u"2"_s, u"\u00e9\U0001F600"_s}}, {}});
    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    const QByteArray live =
        "\"live\":{\"categories\":[{\"id\":\"1\",\"name\":\"\"},"
        "{\"id\":\"2\",\"name\":\"\xc3\xa9\xf0\x9f\x98\x80\"}],\"items\":[]}"_ba;
    QCOMPARE(readFile(cacheFile()), '{' + movies + ',' + live + '}');

    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    const QByteArray savedAt =
        QByteArray::number(readRoot()[u"episodes"_s][u"9"_s][u"savedAt"_s].toInteger());
    QCOMPARE(readFile(cacheFile()),
             '{' + movies + ',' + live + R"(,"episodes":{"9":{"savedAt":)" + savedAt +
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
            writeFile(cacheFile(), "{}"_ba);
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

void tst_CatalogCacheFiles::loadingWritesNothing()
{
    CatalogCache::Section section;
    QList<Episode> episodes;
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QVERIFY(!QFileInfo::exists(cacheDir()));
    const QByteArray content = "{ \"live\" : { } , \"x\" : 1 }\n"_ba;
    writeFile(cacheFile(), content);
    QVERIFY(CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(readFile(cacheFile()), content);
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
    QTest::newRow("white space everywhere") << "\n\t \"a\" \r\n:\t[ 1 , 2 ,\n{ } ] \n"_ba;
    QTest::newRow("nested deeply") << "\"a\":" + QByteArray(900, '[') + QByteArray(900, ']');
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
    const QByteArray whole =
        R"({"episodes":{"9":{"savedAt":99999999999,"list":[]}},"live":{"categories":[],"items":[]}})"_ba;
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("white space") << " \n"_ba;
    QTest::newRow("cut at the end") << whole.chopped(1);
    QTest::newRow("cut in the middle") << whole.left(40);
    QTest::newRow("cut in a text") << whole.left(8);
    QTest::newRow("cut after a name") << R"({"live")"_ba;
    QTest::newRow("cut after a colon") << R"({"live":)"_ba;
    QTest::newRow("number beyond a double") << R"({"a":[12e308],)"_ba + whole.mid(1);
    QTest::newRow("number too close to 0") << R"({"a":1e-400,)"_ba + whole.mid(1);
    QTest::newRow("garbage after it") << whole + "x";
    QTest::newRow("two objects") << whole + whole;
    QTest::newRow("array") << '[' + whole + ']';
    QTest::newRow("number") << "5"_ba;
    QTest::newRow("text") << "\"live\""_ba;
    QTest::newRow("null") << "null"_ba;
    QTest::newRow("binary") << QByteArray::fromHex("89504e470d0a1a0a0000000d49484452ff00");
    QTest::newRow("zeros") << QByteArray(4096, '\0');
    QTest::newRow("invalid UTF-8 in a text") << R"({"a":")"_ba + '\xff' + R"(",)"_ba + whole.mid(1);
    QTest::newRow("extra comma") << whole.chopped(1) + ",}";
    QTest::newRow("single quotes") << QByteArray(whole).replace('"', '\'');
    QTest::newRow("bad number") << R"({"a":01x,)"_ba + whole.mid(1);
    QTest::newRow("10,000 levels deep")
        << R"({"a":)"_ba + QByteArray(10'000, '[') + QByteArray(10'000, ']') + ',' + whole.mid(1);
    QTest::newRow("UTF-16") << QByteArray("{\0\"\0l\0i\0v\0e\0\"\0:\0{\0}\0}\0", 22);
}

void tst_CatalogCacheFiles::damagedFile()
{
    QFETCH(const QByteArray, content);
    writeFile(cacheFile(), content);
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, sampleSection());
    QList<Episode> episodes{sampleEpisode()};
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{sampleEpisode()});
    QCOMPARE(readFile(cacheFile()), content);

    CatalogCache::save(sourceName, u"movie"_s, sampleSection());
    QCOMPARE(readRoot().keys(), QStringList{u"movie"_s});
    CatalogCache::Section loaded;
    QVERIFY(CatalogCache::load(sourceName, u"movie"_s, loaded));
    QCOMPARE(loaded, sampleSection());

    writeFile(cacheFile(), content);
    CatalogCache::saveEpisodes(sourceName, u"8"_s, {sampleEpisode()});
    QCOMPARE(readRoot().keys(), QStringList{u"episodes"_s});
    QVERIFY(CatalogCache::loadEpisodes(sourceName, u"8"_s, day, episodes));
    QCOMPARE(episodes, QList<Episode>{sampleEpisode()});
}

void tst_CatalogCacheFiles::malformedEpisodeStoreIsReplaced_data()
{
    QTest::addColumn<QByteArray>("store");
    QTest::newRow("null") << "null"_ba;
    QTest::newRow("array") << R"([{"9":{}}])"_ba;
    QTest::newRow("text") << R"("9")"_ba;
}

void tst_CatalogCacheFiles::malformedEpisodeStoreIsReplaced()
{
    QFETCH(const QByteArray, store);
    writeFile(cacheFile(), R"({"live":{},"episodes":)" + store + '}');
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
    do { // again when the clock moved on in between
        before = now();
        loaded = {Episode()};
        writeShowSavedAt(QByteArray::number(before - age));
        found = CatalogCache::loadEpisodes(sourceName, u"9"_s, maxAge, loaded);
    } while (now() != before);
    QCOMPARE(found, fresh);
    QCOMPARE(loaded, QList<Episode>{fresh ? sampleEpisode() : Episode()});
}

void tst_CatalogCacheFiles::malformedSavedAt_data()
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

void tst_CatalogCacheFiles::malformedSavedAt()
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

void tst_CatalogCacheFiles::unusablePath_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("a file in place of the folder") << false;
    QTest::newRow("a folder in place of the file") << true;
}

void tst_CatalogCacheFiles::unusablePath()
{
    QFETCH(const bool, isFolder);
    if (isFolder) {
        QVERIFY(QDir().mkpath(cacheFile()));
    } else {
        writeFile(cacheDir(), {});
    }
    CatalogCache::save(sourceName, u"live"_s, sampleSection());
    CatalogCache::saveEpisodes(sourceName, u"9"_s, {sampleEpisode()});
    CatalogCache::Section section = sampleSection();
    QVERIFY(!CatalogCache::load(sourceName, u"live"_s, section));
    QCOMPARE(section, sampleSection());
    QList<Episode> episodes;
    QVERIFY(!CatalogCache::loadEpisodes(sourceName, u"9"_s, day, episodes));
    QCOMPARE(QFileInfo(cacheFile()).isDir(), isFolder);
    QCOMPARE(QFileInfo(cacheDir()).isFile(), !isFolder);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCacheFiles)
#include "tst_CatalogCacheFiles.moc"
