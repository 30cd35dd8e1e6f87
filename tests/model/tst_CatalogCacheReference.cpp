#include "model/CatalogCache.h"
#include "model/JsonTexts.h"
#include "model/ReferenceCatalogCache.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// CatalogCache and ReferenceCatalogCache read the same from files that either of them has written,
// from damaged files and from files with values of the wrong type, and they write the same.

namespace {

constexpr qint64 anyAge = std::numeric_limits<qint64>::max();
const QString sourceName = u"S"_s;

QString cacheFile()
{
    return PrivateProfile::current().appDataDir() + u"/catalog_cache/S.json"_s;
}

QString randomText(QRandomGenerator &random)
{
    static const QStringList pieces{u"a"_s,      u"\""_s,     u"\\"_s,           u"/"_s,
                                    u"\n"_s,     u"\u00e9"_s, u"\U0001F600"_s,   u"\x01"_s,
                                    u"\u2028"_s, u"{}"_s,     QString(QChar(0)), u"\x7f"_s};
    QString text = u"t"_s;
    for (int count = random.bounded(8); count > 0; --count) {
        text += pieces.at(random.bounded(static_cast<int>(pieces.size())));
    }
    return text;
}

CatalogCache::Section randomSection(QRandomGenerator &random)
{
    const auto text = [&random] { return randomText(random); };
    CatalogCache::Section section;
    for (int count = random.bounded(4); count > 0; --count) {
        section.categories.append({text(), text()});
    }
    for (int count = random.bounded(5); count > 0; --count) {
        section.items.append({random.bounded(4), text(), text(), text(), text(), text(), text(),
                              random.generateDouble() * 10,
                              static_cast<qint64>(random.generate64())});
    }
    return section;
}

QList<Episode> randomEpisodes(QRandomGenerator &random)
{
    const auto text = [&random] { return randomText(random); };
    QList<Episode> episodes;
    for (int count = random.bounded(4); count > 0; --count) {
        episodes.append({text(), text(), random.bounded(20), random.bounded(100), text(), text()});
    }
    return episodes;
}

/// Both caches read the same from the current file.
bool readTheSame()
{
    for (const QString &name : {u"live"_s, u"movie"_s, u"episodes"_s, u"other"_s}) {
        CatalogCache::Section actual{{{u"x"_s, u"x"_s}}, {}};
        CatalogCache::Section reference = actual;
        if (CatalogCache::load(sourceName, name, actual) !=
                ReferenceCatalogCache::load(cacheFile(), name, reference) ||
            actual != reference) {
            return false;
        }
    }
    for (const QString &show : {u"1"_s, u"2"_s, u"list"_s}) {
        QList<Episode> actual{{u"x"_s, {}, 0, 0, {}, {}}};
        QList<Episode> reference = actual;
        if (CatalogCache::loadEpisodes(sourceName, show, anyAge, actual) !=
                ReferenceCatalogCache::loadEpisodes(cacheFile(), show, reference) ||
            actual != reference) {
            return false;
        }
    }
    return true;
}

/// The file's root, with the times of saving taken out.
QJsonObject rootWithoutTimes()
{
    QJsonObject root = QJsonDocument::fromJson(readFile(cacheFile())).object();
    if (root.value(u"episodes"_s).isObject()) {
        QJsonObject store = root.value(u"episodes"_s).toObject();
        QJsonObject show = store.value(u"2"_s).toObject();
        show.remove(u"savedAt"_s);
        store[u"2"_s] = show;
        root[u"episodes"_s] = store;
    }
    return root;
}

void addSeedRows()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 3U, 4U}) {
        QTest::newRow(qPrintable(u"seed %1"_s.arg(seed))) << seed;
    }
}

} // namespace

class tst_CatalogCacheReference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void randomCatalogs_data();
    void randomCatalogs();
    void mutatedFiles_data();
    void mutatedFiles();
    void values_data();
    void values();
    void documents_data();
    void documents();
};

void tst_CatalogCacheReference::init()
{
    PrivateProfile::current().clear();
    QVERIFY(QDir().mkpath(QFileInfo(cacheFile()).path()));
}

void tst_CatalogCacheReference::randomCatalogs_data()
{
    addSeedRows();
}

void tst_CatalogCacheReference::randomCatalogs()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 200; ++round) {
        const QString name = random.bounded(2) == 0 ? u"live"_s : u"movie"_s;
        const CatalogCache::Section section = randomSection(random);
        const QList<Episode> episodes = randomEpisodes(random);
        const QByteArray before = readFile(cacheFile());

        ReferenceCatalogCache::save(cacheFile(), name, section);
        ReferenceCatalogCache::saveEpisodes(cacheFile(), u"2"_s, episodes);
        QVERIFY2(readTheSame(), JsonTexts::printable(readFile(cacheFile())).constData());
        const QJsonObject expected = rootWithoutTimes();

        writeFile(cacheFile(), before);
        CatalogCache::save(sourceName, name, section);
        CatalogCache::saveEpisodes(sourceName, u"2"_s, episodes);
        QVERIFY2(readTheSame(), JsonTexts::printable(readFile(cacheFile())).constData());
        QVERIFY2(rootWithoutTimes() == expected,
                 JsonTexts::printable(readFile(cacheFile())).constData());

        CatalogCache::Section loaded;
        QVERIFY(CatalogCache::load(sourceName, name, loaded));
        QVERIFY(loaded == section);
        if (random.bounded(3) == 0) { // the next round continues with a file of the reference's
            ReferenceCatalogCache::save(cacheFile(), u"other"_s, section);
        }
    }
}

void tst_CatalogCacheReference::mutatedFiles_data()
{
    addSeedRows();
}

void tst_CatalogCacheReference::mutatedFiles()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed + 50);
    const QByteArray sample =
        R"({"live":{"categories":[{"id":"1","name":"One"}],"items":[{"type":0,"id":"5",)"
        R"("name":"\u00e9","categoryId":"1","iconUrl":"http:\/\/h","rating":7.5,)"
        R"("addedAt":1600000000,"x":[{}]},{"type":1}]},"movie":{"items":[]},"other":[1,{"a":null}],)"
        R"("episodes":{"1":{"savedAt":1600000000,"list":[{"id":"7","season":2,"title":"T"}]},)"
        R"("2":{"list":[]}}})"_ba;
    for (int round = 0; round < 500; ++round) {
        const QByteArray content = JsonTexts::mutated(sample, random);
        writeFile(cacheFile(), content);
        QVERIFY2(readTheSame(), JsonTexts::printable(content).constData());

        const CatalogCache::Section section = randomSection(random);
        ReferenceCatalogCache::save(cacheFile(), u"movie"_s, section);
        ReferenceCatalogCache::saveEpisodes(cacheFile(), u"2"_s, {});
        const QJsonObject expected = rootWithoutTimes();
        writeFile(cacheFile(), content);
        CatalogCache::save(sourceName, u"movie"_s, section);
        CatalogCache::saveEpisodes(sourceName, u"2"_s, {});
        QVERIFY2(rootWithoutTimes() == expected, JsonTexts::printable(content).constData());
    }
}

void tst_CatalogCacheReference::values_data()
{
    QTest::addColumn<QByteArray>("value");
    int number = 0;
    for (const QByteArray &value : JsonTexts::values()) {
        QTest::addRow("%d %s", ++number, value.left(30).toPercentEncoding("\"[]{}").constData())
            << value;
    }
}

void tst_CatalogCacheReference::values()
{
    // The value stands in place of every part of the file.
    QFETCH(const QByteArray, value);
    for (QByteArray content :
         {R"({"live":{"categories":[{"id":V,"name":V}],"items":[{"type":V,"id":V,"name":V,)"
          R"("categoryId":V,"iconUrl":V,"containerExtension":V,"streamUrl":V,"rating":V,)"
          R"("addedAt":V}]},"episodes":{"1":{"savedAt":V,"list":[{"id":V,"seriesName":V,)"
          R"("season":V,"episodeNumber":V,"title":V,"containerExtension":V}]}}})"_ba,
          R"({"live":{"categories":[V],"items":[{},V,{}]},"movie":{"categories":V,"items":V},)"
          R"("episodes":{"1":{"list":V},"2":{"list":[V,{}]},"list":V},"other":V})"_ba,
          R"({"live":V,"episodes":V})"_ba}) {
        content.replace("V", value);
        writeFile(cacheFile(), content);
        QVERIFY2(readTheSame(), JsonTexts::printable(content).constData());
    }
}

void tst_CatalogCacheReference::documents_data()
{
    QTest::addColumn<QByteArray>("content");
    int number = 0;
    for (const QByteArray &content : JsonTexts::documents()) {
        const QByteArray section = QByteArray(content).replace("\"a\"", "\"live\"");
        QTest::addRow("%d", ++number) << section;
    }
    QTest::newRow("byte-order mark") << "\xef\xbb\xbf{\"live\":{\"items\":[{}]}}"_ba;
    QTest::newRow("escaped name") << R"({"\u006cive":{"items":[{}]}})"_ba;
}

void tst_CatalogCacheReference::documents()
{
    QFETCH(const QByteArray, content);
    writeFile(cacheFile(), content);
    QVERIFY(readTheSame());
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCacheReference)
#include "tst_CatalogCacheReference.moc"
