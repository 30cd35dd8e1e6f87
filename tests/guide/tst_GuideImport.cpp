#include "fakeprovider/Gzip.h"
#include "guide/GuideImport.h"
#include "guide/GuideReader.h"
#include "guide/ImportedGuide.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTest>

// What updates store of a guide's programmes, and what readers find then.

class tst_GuideImport : public QObject, private ImportedGuide
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

    void result();
    void window();
    void stops_data();
    void stops();
    void sameStart();
    void longTexts();
    void packed();
    void problems_data();
    void problems();
    void removedAddress();
    void repeated();
    void cancelled();
    void damagedFile_data();
    void damagedFile();
    void otherVersion();
    void readersKeepTheOldGuide();
    void noCredentials();
};

void tst_GuideImport::result()
{
    addTwoHours();
    guide->addEntry(two, u"FIRST HD"_s);
    guide->addEntry(u"http://h/3"_s, u"Unknown"_s);
    const GuideResult result = guide->store();
    QCOMPARE(result.finishedAt, now);
    QCOMPARE(result.programmes, 2);
    QCOMPARE(result.channels, 3);
    QCOMPARE(result.matched, 2);
    QCOMPARE(result.suggested, 1);
    QCOMPARE(result.newest, now + hour);
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, GuideProblem::None);
    QCOMPARE(result.addresses.first().programmes, 2);
    QVERIFY(!result.cancelled);
    QCOMPARE(GuideReader(guide->path(), 0).lastResult(), result);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s, u"1-2 Film"_s}));
    QCOMPARE(titles(*guide, two), titles(*guide, one));
}

void tst_GuideImport::window()
{
    guide->addEntry(two, u"Second"_s, uR"(tvg-id="two" catchup="shift" catchup-days="3")"_s);
    for (const QString &id : {u"one"_s, u"two"_s}) {
        guide->addChannel(id, id);
        for (const qint64 days : {-10, -3, -2, 0, 6, 12}) {
            guide->addProgramme(id, now + days * day, now + days * day + hour,
                                QString::number(days));
        }
    }
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 0"_s, u"144-145 6"_s}));
    QCOMPARE(titles(*guide, two),
             QStringList({u"-72--71 -3"_s, u"-48--47 -2"_s, u"0-1 0"_s, u"144-145 6"_s}));
}

void tst_GuideImport::stops_data()
{
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("nextStart");
    QTest::addColumn<double>("expected");
    QTest::newRow("as told") << 1.0 << 2.0 << 1.0;
    QTest::newRow("missing: the next start") << 0.0 << 2.0 << 2.0;
    QTest::newRow("missing: six hours at most") << 0.0 << 9.0 << 6.0;
    QTest::newRow("before the start") << -1.0 << 2.0 << 2.0;
    QTest::newRow("behind the next start") << 3.0 << 2.0 << 2.0;
    QTest::newRow("long") << 8.0 << 9.0 << 8.0;
}

void tst_GuideImport::stops()
{
    QFETCH(double, stop);
    QFETCH(double, nextStart);
    QFETCH(double, expected);
    guide->addProgramme(u"one"_s, now, stop == 0.0 ? 0 : now + qint64(stop * hour), u"A"_s);
    guide->addProgramme(u"one"_s, now + qint64(nextStart * hour), 0, u"B"_s);
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-%1 A"_s.arg(expected),
                                               u"%1-%2 B"_s.arg(nextStart).arg(nextStart + 6)}));
}

void tst_GuideImport::sameStart()
{
    guide->addProgramme(u"one"_s, now, now + hour, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + 2 * hour, u"Last"_s);
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-2 Last"_s}));
}

/// They are stored in several parts. A time that no calendar has is left out.
void tst_GuideImport::longTexts()
{
    constexpr int count = 3000;
    constexpr qint64 minute = 60;
    guide->addChannel(u"one"_s, u"First"_s);
    const QString description(3000, u'x');
    for (int number = 0; number < count; ++number) {
        const qint64 start = now + number * minute;
        guide->addProgramme(u"one"_s, start, start + minute, QString::number(number), description);
    }
    guide->addProgramme(u"one"_s, 253'402'300'799, 0, u"The last second of the year 9999"_s);
    QCOMPARE(guide->store().programmes, count);
    const QStringList stored = titles(*guide, one);
    QCOMPARE(stored.size(), count);
    QVERIFY(stored.constLast().endsWith(u" 2999"_s));
}

void tst_GuideImport::packed()
{
    addTwoHours();
    const GuideResult result =
        GuideImport(guide->job(packedWithGzip(packedWithGzip(guide->guideText())))).run();
    QCOMPARE(result.programmes, 2);
}

void tst_GuideImport::problems_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<GuideProblem>("problem");
    addTwoHours();
    const QByteArray good = guide->guideText();
    const QByteArray packed = packedWithGzip(good);
    QTest::newRow("empty") << QByteArray() << GuideProblem::NotAGuide;
    QTest::newRow("a page") << QByteArray("<html><body>Not found</body></html>")
                            << GuideProblem::NotAGuide;
    QTest::newRow("JSON") << QByteArray(R"({"user_info":{"auth":0}})") << GuideProblem::NotAGuide;
    QTest::newRow("long and no guide") << QByteArray(200'000, 'x') << GuideProblem::NotAGuide;
    QTest::newRow("cut short") << good.chopped(20) << GuideProblem::CutShort;
    QTest::newRow("packed, cut short") << packed.chopped(20) << GuideProblem::CutShort;
    QTest::newRow("wrong checksum")
        << packed.chopped(8) + QByteArray(8, '\1') << GuideProblem::Damaged;
    QTest::newRow("XZ") << QByteArray("\xfd"
                                      "7zXZ and so on")
                        << GuideProblem::UnknownPacking;
    QTest::newRow("other channels")
        << QByteArray("<tv><channel id='z'/><programme channel='z' start='20260301180000'/></tv>")
        << GuideProblem::NothingMatches;
    QTest::newRow("no programmes") << QByteArray("<tv></tv>") << GuideProblem::NothingMatches;
}

void tst_GuideImport::problems()
{
    QFETCH(QByteArray, file);
    QFETCH(GuideProblem, problem);
    addTwoHours();
    guide->store();
    const GuideResult result = GuideImport(guide->job(file)).run();
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, problem);
    // The guide of the last update stays.
    QCOMPARE(result.programmes, 2);
    QCOMPARE(result.matched, 1);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s, u"1-2 Film"_s}));
}

void tst_GuideImport::removedAddress()
{
    addTwoHours();
    guide->store();
    GuideImportJob job = guide->job();
    job.guides.clear();
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.programmes, 0);
    QCOMPARE(titles(*guide, one), QStringList());
    QVERIFY(GuideReader(guide->path(), 0).channels({}, 10).isEmpty());
}

void tst_GuideImport::repeated()
{
    addTwoHours();
    const GuideResult first = guide->store();
    QCOMPARE(guide->store(), first);
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now + hour, now + 3 * hour, u"Another film"_s);
    QCOMPARE(guide->store().programmes, 1);
    QCOMPARE(titles(*guide, one), QStringList({u"1-3 Another film"_s}));
    GuideReader reader(guide->path(), 0);
    QVERIFY(reader.search(u"news"_s, 0, 10).isEmpty());
    QCOMPARE(reader.search(u"ANOTHER fi"_s, 0, 10).size(), 1);
}

void tst_GuideImport::cancelled()
{
    addTwoHours();
    guide->store();
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now, now + hour, u"New"_s);
    QCOMPARE(GuideImport(GuideImportJob()).percent(), 0);
    GuideImport import(guide->job());
    import.cancel();
    const GuideResult result = import.run();
    QVERIFY(result.cancelled);
    QVERIFY(result.addresses.isEmpty());
    QCOMPARE(titles(*guide, one).size(), 2);
    QVERIFY(!GuideReader(guide->path(), 0).lastResult().cancelled);
}

void tst_GuideImport::damagedFile_data()
{
    QTest::addColumn<int>("from");
    QTest::newRow("no database at all") << 0;
    QTest::newRow("damaged inside") << 4096;
}

void tst_GuideImport::damagedFile()
{
    QFETCH(int, from);
    addTwoHours();
    guide->store();
    QByteArray content = readFile(guide->path());
    QVERIFY(content.size() > 2LL * 4096);
    writeFile(guide->path(), content.first(from) + QByteArray(content.size() - from, 'x'));
    QCOMPARE(titles(*guide, one), QStringList());
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImport::otherVersion()
{
    addTwoHours();
    guide->store();
    {
        GuideStore store(guide->path(), GuideStore::Mode::Write);
        QVERIFY(store.open() && store.run(u"PRAGMA user_version = 99"_s));
    }
    QCOMPARE(titles(*guide, one), QStringList());
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImport::readersKeepTheOldGuide()
{
    addTwoHours();
    guide->store();
    GuideReader reader(guide->path(), 0);
    QCOMPARE(titles(reader, one).size(), 2);
    GuideStore writer(guide->path(), GuideStore::Mode::Write);
    QVERIFY(writer.open());
    QVERIFY(!writer.inTransaction([&] {
        const bool removed = writer.run(u"DELETE FROM programme"_s);
        // While it is being written, and without waiting.
        return removed && titles(reader, one).size() != 2;
    }));
    QCOMPARE(titles(reader, one).size(), 2);
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now, now + hour, u"New"_s);
    guide->store();
    QCOMPARE(titles(reader, one), QStringList({u"0-1 New"_s}));
}

void tst_GuideImport::noCredentials()
{
    addTwoHours();
    GuideImportJob job = guide->job();
    job.guides.first().address = u"http://h/xmltv.php?username=joe&password=Guide-Pw"_s;
    GuideImport(job).run();
    const QFileInfo file(guide->path());
    const QStringList names = file.dir().entryList({file.fileName() + u'*'}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QVERIFY(!readFile(file.dir().filePath(name)).contains("Guide-Pw"));
    }
#ifndef Q_OS_WIN
    QCOMPARE(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
#endif
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideImport)
#include "tst_GuideImport.moc"
