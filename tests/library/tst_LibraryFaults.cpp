#include "library/LibraryFixture.h"
#include "library/LibraryRun.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// What the library does with a file that it cannot use.

namespace {

const QString source = u"S"_s;

} // namespace

class tst_LibraryFaults : public QObject, private LibraryRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup() { library.reset(); }

    void setsADamagedFileAside();
    void keepsAllWhenTheFileBreaksMeanwhile();
    void newerFile();
    void writesWhenItCanAgain();
    void applyingNow();
    void applyingNowAfterAFailure();
};

void tst_LibraryFaults::setsADamagedFileAside()
{
    writeFile(libraryFile(), "no database");
    restart();
    QSignalSpy problems(library.get(), &Library::problem);
    QCOMPARE(library->rows(), LibraryRows());
    QTRY_COMPARE(problems.size(), 1);
    const QString text = problems.at(0).at(0).toString();
    const QStringList aside = QDir(PrivateProfile::current().appDataDir())
                                  .entryList({u"library.sqlite.damaged-*"_s}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QVERIFY2(text.contains(aside.at(0)), qPrintable(text));
    library->addFavorite(makeEntry(u"1"_s));
    restart();
    QCOMPARE(library->favorites(source, EntryKind::Movie).size(), 1);
}

void tst_LibraryFaults::keepsAllWhenTheFileBreaksMeanwhile()
{
    LibraryChange change;
    change.put = sampleRows();
    library->apply(change);
    QVERIFY(library->flush());
    QSignalSpy problems(library.get(), &Library::problem);
    RawLibraryFile().run(u"DROP TABLE favorites"_s);
    library->addFavorite(makeEntry(u"new"_s));
    QTRY_COMPARE(problems.size(), 1);
    restart();
    QCOMPARE(sortedIdsOf(library->rows().favorites), (QStringList{u"1"_s, u"new"_s}));
    QCOMPARE(library->rows().progress, sampleRows().progress);
}

void tst_LibraryFaults::newerFile()
{
    library->addFavorite(makeEntry(u"1"_s));
    library.reset();
    RawLibraryFile().run(u"PRAGMA user_version = 1000"_s);
    restart();
    QSignalSpy problems(library.get(), &Library::problem);
    QVERIFY(library->rows().favorites.isEmpty());
    library->addFavorite(makeEntry(u"2"_s));
    library->addFavorite(makeEntry(u"3"_s));
    QVERIFY(library->flush());
    QTRY_VERIFY(!problems.isEmpty());
    library.reset();
    QCOMPARE(problems.size(), 1);
    QCOMPARE(RawLibraryFile().run(u"SELECT group_concat(id) FROM favorites"_s).toString(), u"1"_s);
}

void tst_LibraryFaults::writesWhenItCanAgain()
{
    // A file stands where the folder should.
    const QString folder = PrivateProfile::current().appDataDir();
    writeFile(folder, "x");
    QSignalSpy problems(library.get(), &Library::problem);
    library->addFavorite(makeEntry(u"1"_s));
    QTRY_COMPARE(problems.size(), 1);
    QVERIFY(!library->flush());
    QVERIFY(library->favorites(source, EntryKind::Movie).contains(u"1"_s));
    QVERIFY(QFile::remove(folder));
    QTRY_VERIFY(QFile::exists(libraryFile()));
    library->addFavorite(makeEntry(u"2"_s));
    restart();
    QCOMPARE(sortedIdsOf(library->favorites(source, EntryKind::Movie)),
             (QStringList{u"1"_s, u"2"_s}));
    QCOMPARE(problems.size(), 1);
}

void tst_LibraryFaults::applyingNow()
{
    LibraryChange change;
    change.put = sampleRows();
    writeFile(PrivateProfile::current().appDataDir(), "x");
    QVERIFY(!library->applyNow(change));
    QCOMPARE(library->rows(), LibraryRows());
    QVERIFY(QFile::remove(PrivateProfile::current().appDataDir()));
    QVERIFY(library->applyNow(change));
    QCOMPARE(library->rows(), sampleRows());
    QCOMPARE(RawLibraryFile().run(u"SELECT count(*) FROM favorites"_s).toInt(), 1);
}

void tst_LibraryFaults::applyingNowAfterAFailure()
{
    const QString folder = PrivateProfile::current().appDataDir();
    writeFile(folder, "x");
    QSignalSpy problems(library.get(), &Library::problem);
    library->addFavorite(makeEntry(u"9"_s));
    QTRY_COMPARE(problems.size(), 1);
    LibraryChange change;
    change.put = sampleRows();
    QVERIFY(!library->applyNow(change));
    QCOMPARE(sortedIdsOf(library->rows().favorites), QStringList{u"9"_s});
    QVERIFY(QFile::remove(folder));
    QVERIFY(library->applyNow(change));
    restart();
    QCOMPARE(sortedIdsOf(library->rows().favorites), (QStringList{u"1"_s, u"9"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_LibraryFaults)
#include "tst_LibraryFaults.moc"
