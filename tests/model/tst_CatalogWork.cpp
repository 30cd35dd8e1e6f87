// How many bytes the cache reads for what it does. With large catalogs that decides how long it
// takes, and unlike the time it is the same on every machine.

#include "fakeprovider/CatalogGenerator.h"
#include "model/CatalogCache.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString source = u"source"_s;
const QStringList sections{u"live"_s, u"movie"_s, u"series"_s};
/// The system's count of bytes read includes that of reading the count.
constexpr qint64 besides = 4096;

/// The bytes that this process has read from files so far.
qint64 bytesRead()
{
    // Its first line is "rchar: 1234".
    return readFile(u"/proc/self/io"_s).split('\n').first().split(' ').last().toLongLong();
}

qint64 bytesReadBy(const std::function<void()> &work)
{
    const qint64 before = bytesRead();
    work();
    return bytesRead() - before;
}

void save(const QString &section)
{
    CatalogCache::save(source, section,
                       {{{u"1"_s, u"One"_s}}, CatalogGenerator().movies(2000, 20)});
}

} // namespace

class tst_CatalogWork : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aSaveReadsOnlyWhatFollows();
    void aLoadReadsTheFileOnce();
    void aShowReadsOnlyTheEpisodes();

private:
    static qint64 sectionSize() { return CatalogCache::fileSize(source) / sections.size(); }
};

void tst_CatalogWork::initTestCase()
{
    if (bytesRead() == 0) {
        QSKIP("the system does not count the bytes read");
    }
    for (const QString &section : sections) {
        save(section);
    }
    CatalogCache::saveEpisodes(source, u"7"_s, {{}, {}});
    QVERIFY(sectionSize() > 20 * besides);
}

void tst_CatalogWork::aSaveReadsOnlyWhatFollows()
{
    const auto readByASaveOf = [](const QString &section) {
        return bytesReadBy([&section] { save(section); });
    };
    QVERIFY(readByASaveOf(u"series"_s) < besides);
    QVERIFY(readByASaveOf(u"movie"_s) < sectionSize() + besides);
    QVERIFY(readByASaveOf(u"live"_s) < 2 * sectionSize() + besides);
}

void tst_CatalogWork::aLoadReadsTheFileOnce()
{
    QList<CatalogCache::Section> loaded;
    const qint64 read =
        bytesReadBy([&loaded] { QVERIFY(CatalogCache::load(source, sections, loaded)); });
    QCOMPARE(loaded.size(), sections.size());
    QVERIFY(read >= CatalogCache::fileSize(source));
    QVERIFY(read < CatalogCache::fileSize(source) + besides);
}

void tst_CatalogWork::aShowReadsOnlyTheEpisodes()
{
    QList<Episode> episodes;
    const auto load = [&episodes] {
        QVERIFY(CatalogCache::loadEpisodes(source, u"7"_s, 60, episodes));
    };
    QVERIFY(bytesReadBy(load) < besides);
    const auto save = [&episodes] { CatalogCache::saveEpisodes(source, u"8"_s, episodes); };
    QVERIFY(bytesReadBy(save) < besides);
    QCOMPARE(episodes.size(), 2);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatalogWork)
#include "tst_CatalogWork.moc"
