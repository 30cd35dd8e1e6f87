#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSqlRecord>
#include <QTest>

#include <atomic>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

// Guides that cannot be read, made or written: what is told, and that the stored one stays.

namespace {

constexpr qint64 now = StoredGuide::now;
constexpr qint64 hour = StoredGuide::hour;
const QString one = u"http://h/1"_s;

/// All rows of the tables, as text.
QStringList contentsOf(const QString &path)
{
    QStringList rows;
    GuideStore store(path, GuideStore::Mode::Read);
    if (!store.open()) {
        return rows;
    }
    QStringList tables;
    QSqlQuery names = store.prepared(u"SELECT name FROM sqlite_master WHERE type = 'table' "
                                     "AND name NOT LIKE 'titles%' ORDER BY name"_s);
    for (store.run(names); names.next();) {
        tables << names.value(0).toString();
    }
    for (const QString &table : tables) {
        QSqlQuery query = store.prepared("SELECT * FROM "_L1 + table);
        for (store.run(query); query.next();) {
            const QSqlRecord record = query.record();
            rows << table;
            for (int column = 0; column < record.count(); ++column) {
                rows.last() += u'|' + record.value(column).toString();
            }
        }
    }
    return rows;
}

/// Whether this program has the file open. False elsewhere than on Linux, where nothing tells.
bool isOpen(const QString &path)
{
    const QFileInfoList files = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files);
    return std::any_of(files.cbegin(), files.cend(),
                       [&path](const QFileInfo &file) { return file.symLinkTarget() == path; });
}

} // namespace

class tst_GuideFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void statements_data();
    void statements();
    void noRoomForProgrammes();
    void file_data();
    void file();
    void locked();
    void lockedWhileItIsNew();
    void madeByManyAtOnce();
    void damagedWhileItIsOpen();
    void missingTables();

private:
    /// Changes the stored guide behind the program's back.
    void alter(const QStringList &changes) const;

    std::unique_ptr<StoredGuide> guide;
};

void tst_GuideFaults::init()
{
    guide = std::make_unique<StoredGuide>();
    guide->addEntry(one, u"Channel One"_s, uR"(tvg-id="one")"_s);
    guide->addChannel(u"one"_s, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"News"_s);
    guide->addProgramme(u"one"_s, now + hour, 0, u"Film"_s);
    QCOMPARE(guide->store().programmes, 2);
}

void tst_GuideFaults::alter(const QStringList &changes) const
{
    GuideStore store(guide->path(), GuideStore::Mode::Write);
    QVERIFY(store.open());
    for (const QString &change : changes) {
        QVERIFY2(store.run(change), qPrintable(store.errorText()));
    }
}

// ---- writing ----

enum class Update
{
    Whole,
    GuideNotReached,
    OnlyMatches
};
Q_DECLARE_METATYPE(Update)

void tst_GuideFaults::statements_data()
{
    QTest::addColumn<Update>("update");
    QTest::addColumn<QString>("change"); // what makes a statement fail
    QTest::addColumn<QString>("reason");
    const auto refuse = [](const QString &what) {
        return u"CREATE TRIGGER refusal BEFORE %1 BEGIN SELECT RAISE(ABORT, 'refused'); END"_s.arg(
            what);
    };
    const QString refused = u"refused"_s;
    QTest::newRow("the guides to match")
        << Update::OnlyMatches << u"DROP TABLE guide"_s << u"no such table: guide"_s;
    QTest::newRow("the channels to match")
        << Update::OnlyMatches << u"DROP TABLE channel"_s << u"no such table: channel"_s;
    QTest::newRow("the entries to match")
        << Update::OnlyMatches << u"DROP TABLE entry"_s << u"no such table: entry"_s;
    QTest::newRow("the matches of before")
        << Update::OnlyMatches << u"ALTER TABLE entry RENAME COLUMN rule TO other"_s
        << u"no such column: rule"_s;
    QTest::newRow("the matches") << Update::OnlyMatches << refuse(u"UPDATE ON entry"_s) << refused;
    QTest::newRow("the result") << Update::OnlyMatches << refuse(u"INSERT ON state"_s) << refused;
    QTest::newRow("the entries") << Update::Whole << refuse(u"INSERT ON entry"_s) << refused;
    QTest::newRow("the order of the guides")
        << Update::Whole << refuse(u"UPDATE ON guide"_s) << refused;
    QTest::newRow("the guides") << Update::Whole << refuse(u"INSERT ON guide"_s) << refused;
    QTest::newRow("the channels of old guides")
        << Update::Whole << u"DROP TABLE channel"_s << u"no such table: channel"_s;
    QTest::newRow("the old programmes")
        << Update::Whole << refuse(u"DELETE ON programme"_s) << refused;
    QTest::newRow("the old channels") << Update::Whole << refuse(u"DELETE ON channel"_s) << refused;
    QTest::newRow("the channels") << Update::Whole << refuse(u"INSERT ON channel"_s) << refused;
    QTest::newRow("the programmes") << Update::Whole << refuse(u"INSERT ON programme"_s) << refused;
    QTest::newRow("the titles") << Update::Whole << u"DROP TABLE titles"_s
                                << u"no such table: titles"_s;
    QTest::newRow("the matches of what stays")
        << Update::GuideNotReached << u"ALTER TABLE entry RENAME COLUMN guideName TO other"_s
        << u"no such column: guideName"_s;
    QTest::newRow("the ends") << Update::GuideNotReached
                              << u"ALTER TABLE programme RENAME COLUMN stop TO other"_s
                              << u"no such column: stop"_s;
}

void tst_GuideFaults::statements()
{
    QFETCH(const Update, update);
    QFETCH(const QString, change);
    QFETCH(const QString, reason);
    guide->addProgramme(u"one"_s, now + 2 * hour, 0, u"New"_s);
    GuideImportJob job = guide->job();
    job.onlyMatches = update == Update::OnlyMatches;
    if (update == Update::GuideNotReached) {
        job.entriesPath.clear();
        job.guides.first().problem = GuideProblem::NotReachable;
    } else if (update == Update::OnlyMatches) {
        job.corrections = {{one, QString()}};
    }
    alter({change});
    const QStringList before = contentsOf(guide->path());
    QVERIFY(!before.isEmpty());
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, GuideProblem::NotStored);
    QVERIFY2(result.addresses.first().detail.contains(reason),
             qPrintable(result.addresses.first().detail));
    QVERIFY(!result.cancelled);
    QCOMPARE(contentsOf(guide->path()), before);
}

/// As above, of a guide whose channels are new.
void tst_GuideFaults::noRoomForProgrammes()
{
    alter({u"DELETE FROM channel"_s, u"DROP TABLE programme"_s});
    const QStringList before = contentsOf(guide->path());
    const GuideResult result = guide->store();
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, GuideProblem::NotStored);
    QCOMPARE(contentsOf(guide->path()), before);
}

void tst_GuideFaults::file_data()
{
    QTest::addColumn<QString>("folder"); // that is made, in the folder of the file
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a file in the folder's place") << QString() << "x"_ba << u"guide.sqlite"_s;
    QTest::newRow("a folder in its place")
        << u"guide.sqlite"_s << QByteArray() << u"unable to open database file"_s;
    QTest::newRow("damaged, and cannot be replaced")
        << u"guide.sqlite-shm/x"_s << QByteArray(10'000, 'x') << u"guide.sqlite-shm"_s;
}

void tst_GuideFaults::file()
{
    QFETCH(const QString, folder);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, reason);
    const QTemporaryDir root;
    GuideImportJob job = guide->job();
    job.storePath = root.filePath(u"guides/guide.sqlite"_s);
    QString written = root.filePath(u"guides"_s);
    if (!folder.isEmpty()) {
        QVERIFY(QDir(written).mkpath(folder));
        written = job.storePath;
    }
    if (!content.isEmpty()) {
        writeFile(written, content);
    }
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, GuideProblem::NotStored);
    QVERIFY2(result.addresses.first().detail.contains(reason),
             qPrintable(result.addresses.first().detail));
    QVERIFY(GuideReader(job.storePath, 0).onNow({one}, now).isEmpty());
}

/// Another program of the same profile is writing, and does not end in time.
void tst_GuideFaults::locked()
{
    GuideStore other(guide->path(), GuideStore::Mode::Write);
    QVERIFY(other.open());
    QVERIFY(other.inTransaction([&] {
        const GuideResult result = guide->store();
        return result.addresses.size() == 1 &&
               result.addresses.first().problem == GuideProblem::NotStored &&
               result.addresses.first().detail.contains("locked"_L1);
    }));
    QCOMPARE(guide->store().programmes, 2);
}

/// Another program makes the file. SQLite alone would not wait for it.
void tst_GuideFaults::lockedWhileItIsNew()
{
    constexpr int patienceMs = 5000;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"guide.sqlite"_s);
    GuideStore store(path, GuideStore::Mode::Write);
    {
        QSqlDatabase other = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
        other.setDatabaseName(path);
        QVERIFY(other.open());
        QSqlQuery query(other);
        QVERIFY(query.exec(u"BEGIN IMMEDIATE"_s));
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!store.open());
        QVERIFY(timer.elapsed() >= patienceMs);
        QCOMPARE(store.errorText(), u"database is locked"_s);
    }
    QSqlDatabase::removeDatabase(u"other"_s);
    QVERIFY(store.open());
}

void tst_GuideFaults::madeByManyAtOnce()
{
    constexpr int programs = 8;
    constexpr int rounds = 20;
    for (int round = 0; round < rounds; ++round) {
        const QTemporaryDir folder;
        std::latch start(programs);
        std::atomic<int> opened = 0;
        std::vector<std::jthread> threads;
        threads.reserve(programs);
        for (int number = 0; number < programs; ++number) {
            threads.emplace_back([&, number] {
                GuideStore store(folder.filePath(u"guide.sqlite"_s), GuideStore::Mode::Write);
                start.arrive_and_wait();
                if (store.open() && store.setState(QString::number(number), u"here"_s)) {
                    ++opened;
                } else {
                    qWarning() << store.errorText();
                }
            });
        }
        threads.clear(); // waits
        QCOMPARE(opened, programs);
        GuideStore store(folder.filePath(u"guide.sqlite"_s), GuideStore::Mode::Read);
        QVERIFY(store.open());
        for (int number = 0; number < programs; ++number) {
            QCOMPARE(store.state(QString::number(number)), u"here"_s);
        }
    }
}

// ---- reading ----

/// The reader lets go of the file, which is replaced, and finds the new one.
void tst_GuideFaults::damagedWhileItIsOpen()
{
    const QByteArray content = readFile(guide->path());
    writeFile(guide->path(), content.first(4096) + QByteArray(content.size() - 4096, 'x'));
    GuideReader reader(guide->path(), 0);
    QVERIFY(reader.onNow({one}, now).isEmpty());
    QVERIFY(!isOpen(guide->path()));
    QVERIFY(reader.channels({}, 10).isEmpty());
    QVERIFY(!isOpen(guide->path()));
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(reader.onNow({one}, now).value(one).now->title, u"News"_s);
    QCOMPARE(reader.channels({}, 10).size(), 1);
#ifdef Q_OS_LINUX
    QVERIFY(isOpen(guide->path()));
#endif
}

void tst_GuideFaults::missingTables()
{
    alter({u"DROP TABLE channel"_s, u"DROP TABLE titles"_s, u"DROP TABLE state"_s});
    GuideReader reader(guide->path(), 0);
    QVERIFY(reader.channels({}, 10).isEmpty());
    QVERIFY(reader.search(u"news"_s, 0, 10).isEmpty());
    QVERIFY(reader.onNow({one}, now).isEmpty());
    QCOMPARE(reader.lastResult(), GuideResult());
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideFaults)
#include "tst_GuideFaults.moc"
