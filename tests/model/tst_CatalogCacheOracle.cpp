#include "model/CatalogCache.h"
#include "model/JsonTexts.h"
#include "model/PlainCatalogCache.h"
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

// CatalogCache against PlainCatalogCache, over files that the one or the other has written and over
// damaged ones.

namespace {

constexpr qint64 anyAge = std::numeric_limits<qint64>::max();
const QString sourceName = u"S"_s;

QString cacheFile()
{
    return PrivateProfile::current().appDataDir() + u"/catalog_cache/S.json"_s;
}

void writeFile(const QByteArray &content)
{
    QFile file(cacheFile());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(content) != content.size()) {
        qFatal("cannot write the cache file");
    }
}

QByteArray readFile()
{
    QFile file(cacheFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

/// Both caches find the same in the file as it is now.
bool readTheSame()
{
    for (const QString &name : {u"live"_s, u"movie"_s, u"episodes"_s, u"other"_s}) {
        CatalogCache::Section quick{{{u"x"_s, u"x"_s}}, {}};
        CatalogCache::Section plain = quick;
        if (CatalogCache::load(sourceName, name, quick) !=
                PlainCatalogCache::load(cacheFile(), name, plain) ||
            quick != plain) {
            return false;
        }
    }
    for (const QString &show : {u"1"_s, u"2"_s, u"list"_s}) {
        QList<Episode> quick{{u"x"_s, {}, 0, 0, {}, {}}};
        QList<Episode> plain = quick;
        if (CatalogCache::loadEpisodes(sourceName, show, anyAge, quick) !=
                PlainCatalogCache::loadEpisodes(cacheFile(), show, plain) ||
            quick != plain) {
            return false;
        }
    }
    return true;
}

/// The file's root, with the times of saving taken out.
QJsonObject rootWithoutTimes()
{
    QJsonObject root = QJsonDocument::fromJson(readFile()).object();
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

class tst_CatalogCacheOracle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void randomCatalogs_data();
    void randomCatalogs();
    void mutatedFiles_data();
    void mutatedFiles();
};

void tst_CatalogCacheOracle::init()
{
    PrivateProfile::current().clear();
    QVERIFY(QDir().mkpath(QFileInfo(cacheFile()).path()));
}

void tst_CatalogCacheOracle::randomCatalogs_data()
{
    addSeedRows();
}

void tst_CatalogCacheOracle::randomCatalogs()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 200; ++round) {
        const QString name = random.bounded(2) == 0 ? u"live"_s : u"movie"_s;
        const CatalogCache::Section section = randomSection(random);
        const QList<Episode> episodes = randomEpisodes(random);
        const QByteArray before = readFile();

        PlainCatalogCache::save(cacheFile(), name, section);
        PlainCatalogCache::saveEpisodes(cacheFile(), u"2"_s, episodes);
        QVERIFY2(readTheSame(), JsonTexts::printable(readFile()).constData());
        const QJsonObject expected = rootWithoutTimes();

        writeFile(before);
        CatalogCache::save(sourceName, name, section);
        CatalogCache::saveEpisodes(sourceName, u"2"_s, episodes);
        QVERIFY2(readTheSame(), JsonTexts::printable(readFile()).constData());
        QVERIFY2(rootWithoutTimes() == expected, JsonTexts::printable(readFile()).constData());

        CatalogCache::Section loaded;
        QVERIFY(CatalogCache::load(sourceName, name, loaded));
        QVERIFY(loaded == section);
        if (random.bounded(3) == 0) { // half of the files go on from what the other has written
            PlainCatalogCache::save(cacheFile(), u"other"_s, section);
        }
    }
}

void tst_CatalogCacheOracle::mutatedFiles_data()
{
    addSeedRows();
}

void tst_CatalogCacheOracle::mutatedFiles()
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
        writeFile(content);
        QVERIFY2(readTheSame(), JsonTexts::printable(content).constData());

        const CatalogCache::Section section = randomSection(random);
        PlainCatalogCache::save(cacheFile(), u"movie"_s, section);
        PlainCatalogCache::saveEpisodes(cacheFile(), u"2"_s, {});
        const QJsonObject expected = rootWithoutTimes();
        writeFile(content);
        CatalogCache::save(sourceName, u"movie"_s, section);
        CatalogCache::saveEpisodes(sourceName, u"2"_s, {});
        QVERIFY2(rootWithoutTimes() == expected, JsonTexts::printable(content).constData());
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogCacheOracle)
#include "tst_CatalogCacheOracle.moc"
