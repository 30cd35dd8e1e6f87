#include "library/LibraryFixture.h"
#include "library/LibraryStore.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <vector>

using namespace Qt::StringLiterals;
using Result = LibraryStore::Result;

// The library's file: what it holds, its versions, and files that are no library.

namespace {

LibraryChange putting(const LibraryRows &rows)
{
    LibraryChange change;
    change.put = rows;
    return change;
}

LibraryRows favorites(const QList<LibraryEntry> &entries)
{
    LibraryRows rows;
    for (const LibraryEntry &entry : entries)
        rows.favorites.append({entry, 0, 0});
    return rows;
}

/// Writes rows as the program does, and closes the file.
void store(const LibraryRows &rows)
{
    QCOMPARE(LibraryStore(libraryFile()).apply({putting(rows)}), Result::Done);
}

/// What the file holds; rows that no test uses when it cannot be read.
LibraryRows stored()
{
    LibraryRows rows = favorites({makeEntry(u"unreadable"_s)});
    LibraryStore(libraryFile()).load(rows);
    return rows;
}

/// Migrations of a program that is `more` versions newer.
std::vector<LibraryStore::Migration> newerMigrations(const QStringList &statements)
{
    const auto known = LibraryStore::migrations();
    std::vector<LibraryStore::Migration> steps(known.begin(), known.end());
    steps.push_back(statements);
    return steps;
}

int currentVersion()
{
    return static_cast<int>(LibraryStore::migrations().size());
}

QStringList filesBeside()
{
    return QDir(PrivateProfile::current().appDataDir()).entryList(QDir::Files, QDir::Name);
}

} // namespace

class tst_LibraryStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }

    void everyField();
    void everyKind();
    void unknownKind();
    void texts_data();
    void texts();
    void changes_data();
    void changes();
    void allOrNothing();
    void usesALog();

    void migratesFromEachVersion_data();
    void migratesFromEachVersion();
    void failedMigrationChangesNothing();
    void newerFileStaysAsItIs();

    void damagedFile_data();
    void damagedFile();
    void damagedTwice();
    void damageThatIsGone();
    void unavailable();
    void lockedByAnother();
    void onlyTheOwnerMayRead();
};

void tst_LibraryStore::everyField()
{
    store(sampleRows());
    QCOMPARE(stored(), sampleRows());
}

void tst_LibraryStore::everyKind()
{
    QList<LibraryEntry> entries;
    for (const EntryKind kind : {EntryKind::Live, EntryKind::Movie, EntryKind::Show,
                                 EntryKind::Channel, EntryKind::Episode})
        entries << makeEntry(u"1"_s, kind);
    store(favorites(entries));
    const LibraryRows rows = stored();
    QCOMPARE(rows.favorites.size(), entries.size());
    for (const LibraryEntry &entry : entries)
        QVERIFY(rows.favorites.contains(Favorite{entry, 0, 0}));
}

void tst_LibraryStore::unknownKind()
{
    store(favorites({makeEntry(u"1"_s)}));
    RawLibraryFile().run(u"INSERT INTO favorites (source, kind, id) VALUES ('S', 'radio', '2')"_s);
    QCOMPARE(stored(), favorites({makeEntry(u"1"_s)}));
}

void tst_LibraryStore::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("null") << QString();
    QTest::newRow("quotes") << u"it's \"q\"; DROP TABLE favorites; --"_s;
    QTest::newRow("beyond ASCII") << u"Ärzte \U0001F4FA ةانق"_s;
    QTest::newRow("NUL") << u"a"_s + QChar(0) + u"b"_s;
    QTest::newRow("long") << u"http://h/"_s + QString(5000, u'x');
    QTest::newRow("number") << u"007"_s;
}

void tst_LibraryStore::texts()
{
    QFETCH(QString, text);
    const LibraryRows rows = favorites({{text, EntryKind::Channel, text, text, text}});
    store(rows);
    QCOMPARE(stored(), rows);
}

void tst_LibraryStore::changes_data()
{
    QTest::addColumn<LibraryChange>("change");
    QTest::addColumn<LibraryRows>("expected");

    const auto of = [](const QString &source, const QString &id) {
        return makeEntry(id, EntryKind::Movie, source);
    };
    LibraryChange change;
    change.cleared = {LibraryPart::Favorites};
    QTest::newRow("clearing one part") << change << LibraryRows();
    change.put = favorites({of(u"C"_s, u"9"_s)});
    QTest::newRow("clearing comes before putting") << change << change.put;

    change = {};
    change.moves = {{u"A"_s, u"C"_s}};
    QTest::newRow("renaming a source")
        << change << favorites({of(u"B"_s, u"1"_s), of(u"C"_s, u"1"_s), of(u"C"_s, u"2"_s)});
    change.moves = {{u"A"_s, u"B"_s}};
    QTest::newRow("renaming to a name with the same rows")
        << change << favorites({of(u"B"_s, u"1"_s), of(u"B"_s, u"2"_s)});
    change.moves = {{u"A"_s, {}}};
    QTest::newRow("deleting a source") << change << favorites({of(u"B"_s, u"1"_s)});
    change.moves = {{u"B"_s, {}}, {u"A"_s, u"B"_s}};
    QTest::newRow("moves in their order")
        << change << favorites({of(u"B"_s, u"1"_s), of(u"B"_s, u"2"_s)});

    change = {};
    change.removed = favorites({of(u"A"_s, u"1"_s), of(u"A"_s, u"3"_s)});
    QTest::newRow("removing by key")
        << change << favorites({of(u"A"_s, u"2"_s), of(u"B"_s, u"1"_s)});
    change.put = favorites({of(u"A"_s, u"1"_s)});
    QTest::newRow("removing comes before putting")
        << change << favorites({of(u"A"_s, u"1"_s), of(u"A"_s, u"2"_s), of(u"B"_s, u"1"_s)});
}

void tst_LibraryStore::changes()
{
    QFETCH(LibraryChange, change);
    QFETCH(LibraryRows, expected);
    store(favorites({makeEntry(u"1"_s, EntryKind::Movie, u"A"_s),
                     makeEntry(u"2"_s, EntryKind::Movie, u"A"_s),
                     makeEntry(u"1"_s, EntryKind::Movie, u"B"_s)}));
    QCOMPARE(LibraryStore(libraryFile()).apply({change}), Result::Done);
    QCOMPARE(stored(), expected);
}

void tst_LibraryStore::allOrNothing()
{
    store(favorites({makeEntry(u"1"_s)}));
    RawLibraryFile().run(u"DROP TABLE hiddenCategories"_s);
    LibraryChange second;
    second.put.hiddenCategories = sampleRows().hiddenCategories;
    LibraryChange clearing = second;
    clearing.cleared = {LibraryPart::HiddenCategories};
    for (const LibraryChange &failing : {second, clearing}) {
        QVERIFY(
            LibraryStore(libraryFile()).apply({putting(favorites({makeEntry(u"2"_s)})), failing}) !=
            Result::Done);
    }
    QCOMPARE(RawLibraryFile().run(u"SELECT count(*) FROM favorites"_s).toInt(), 1);
}

void tst_LibraryStore::usesALog()
{
    store({});
    QCOMPARE(RawLibraryFile().run(u"PRAGMA journal_mode"_s).toString(), u"wal"_s);
}

void tst_LibraryStore::migratesFromEachVersion_data()
{
    QTest::addColumn<int>("version");
    for (int version = 0; version <= currentVersion(); ++version)
        QTest::addRow("version %d", version) << version;
}

void tst_LibraryStore::migratesFromEachVersion()
{
    QFETCH(int, version);
    const auto steps = LibraryStore::migrations().first(static_cast<std::size_t>(version));
    QCOMPARE(LibraryStore(libraryFile(), steps).apply({}), Result::Done);
    LibraryRows expected;
    if (version > 0) {
        // The columns of the first version.
        RawLibraryFile().run(
            u"INSERT INTO favorites (source, kind, id, name, category, place, "
            "addedAt) VALUES ('S', 'movie', '1', 'Name 1', 'c1', 7, 1700000001)"_s);
        expected.favorites = sampleRows().favorites;
    }
    if (version > 1) {
        RawLibraryFile().run(u"INSERT INTO guideSettings (source, kind, id) "
                             "VALUES ('S', 'live', '')"_s);
        GuideSettings atFirst;
        atFirst.source = u"S"_s;
        expected.guideSettings = {atFirst};
    }
    QCOMPARE(stored(), expected);
    QCOMPARE(RawLibraryFile().run(u"PRAGMA user_version"_s).toInt(), currentVersion());
    store(sampleRows());
    QCOMPARE(stored(), sampleRows());
}

void tst_LibraryStore::failedMigrationChangesNothing()
{
    store(sampleRows());
    const auto steps =
        newerMigrations({u"ALTER TABLE favorites ADD COLUMN extra TEXT"_s, u"no statement"_s});
    LibraryRows rows;
    QVERIFY(LibraryStore(libraryFile(), steps).load(rows) != Result::Done);
    QCOMPARE(RawLibraryFile().run(u"PRAGMA user_version"_s).toInt(), currentVersion());
    QCOMPARE(stored(), sampleRows());
}

void tst_LibraryStore::newerFileStaysAsItIs()
{
    store(sampleRows());
    const auto steps = newerMigrations({u"ALTER TABLE favorites ADD COLUMN extra TEXT"_s});
    LibraryRows rows;
    QCOMPARE(LibraryStore(libraryFile(), steps).load(rows), Result::Done);
    QCOMPARE(rows, sampleRows());

    LibraryStore older(libraryFile());
    rows = {};
    QCOMPARE(older.load(rows), Result::Newer);
    QCOMPARE(older.apply({putting(favorites({makeEntry(u"2"_s)}))}), Result::Newer);
    QCOMPARE(rows, LibraryRows());
    QCOMPARE(RawLibraryFile().run(u"SELECT count(*) FROM favorites"_s).toInt(), 1);
}

void tst_LibraryStore::damagedFile_data()
{
    QTest::addColumn<QByteArray>("content"); ///< instead of what is there; empty for none
    QTest::addColumn<QString>("statement");  ///< run before
    QTest::addColumn<int>("keptPercent");    ///< of the size
    QTest::addColumn<bool>("scribbled");

    QTest::newRow("another kind of file")
        << QByteArray("{\"favorites\":[]}") << QString() << 100 << false;
    QTest::newRow("zeros") << QByteArray(8192, '\0') << QString() << 100 << false;
    QTest::newRow("cut in half") << QByteArray() << QString() << 50 << false;
    QTest::newRow("scribbled over") << QByteArray() << QString() << 100 << true;
    QTest::newRow("without a table") << QByteArray() << u"DROP TABLE progress"_s << 100 << false;
    QTest::newRow("without a column")
        << QByteArray() << u"ALTER TABLE history DROP COLUMN watchedAt"_s << 100 << false;
    QTest::newRow("tables of a version that has none")
        << QByteArray() << u"PRAGMA user_version = 0"_s << 100 << false;
    QTest::newRow("negative version")
        << QByteArray() << u"PRAGMA user_version = -1"_s << 100 << false;
}

void tst_LibraryStore::damagedFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, statement);
    QFETCH(int, keptPercent);
    QFETCH(bool, scribbled);
    QList<LibraryEntry> entries;
    for (int id = 0; id < 1000; ++id)
        entries << makeEntry(QString::number(id));
    store(favorites(entries));
    if (!statement.isEmpty())
        RawLibraryFile().run(statement);
    QByteArray bytes = content.isEmpty() ? readFile(libraryFile()) : content;
    bytes.truncate(bytes.size() * keptPercent / 100);
    if (scribbled)
        bytes.replace(bytes.size() / 2, 6000, QByteArray(6000, 'x'));
    writeFile(libraryFile(), bytes);

    LibraryStore damaged(libraryFile());
    LibraryRows rows;
    QCOMPARE(damaged.load(rows), Result::Damaged);
    QCOMPARE(rows, LibraryRows());
    QVERIFY(!damaged.errorText().isEmpty());
    QString aside;
    QCOMPARE(damaged.recover(aside), Result::Done);
    QVERIFY(aside.startsWith(libraryFile() + u".damaged-"_s));
    QCOMPARE(readFile(aside).size(), bytes.size());
    QCOMPARE(damaged.apply({putting(sampleRows())}), Result::Done);
    QCOMPARE(damaged.load(rows), Result::Done);
    QCOMPARE(rows, sampleRows());
}

void tst_LibraryStore::damagedTwice()
{
    QStringList asides;
    for (int time = 0; time < 2; ++time) {
        writeFile(libraryFile(), "no database, " + QByteArray::number(time));
        LibraryStore damaged(libraryFile());
        QString aside;
        QCOMPARE(damaged.recover(aside), Result::Done);
        asides << aside;
    }
    QCOMPARE(readFile(asides.at(0)), QByteArray("no database, 0"));
    QCOMPARE(readFile(asides.at(1)), QByteArray("no database, 1"));
}

void tst_LibraryStore::damageThatIsGone()
{
    // As when another process has set the file aside and begun a new one.
    store(sampleRows());
    LibraryStore second(libraryFile());
    QString aside;
    QCOMPARE(second.recover(aside), Result::Done);
    QCOMPARE(aside, QString());
    QCOMPARE(stored(), sampleRows());
    QVERIFY2(!filesBeside().contains(u"library.sqlite.lock"_s), "the lock file stays behind");
}

void tst_LibraryStore::unavailable()
{
    writeFile(PrivateProfile::current().appDataDir() + u"/file"_s, "x");
    LibraryStore unusable(PrivateProfile::current().appDataDir() + u"/file/library.sqlite"_s);
    LibraryRows rows = sampleRows();
    QCOMPARE(unusable.load(rows), Result::Unavailable);
    QCOMPARE(rows, sampleRows());
    QCOMPARE(unusable.apply({putting(sampleRows())}), Result::Unavailable);
    QVERIFY(!unusable.errorText().isEmpty());

    LibraryStore longName(PrivateProfile::current().appDataDir() + u'/' + QString(300, u'x'));
    QCOMPARE(longName.load(rows), Result::Unavailable);
    QCOMPARE(rows, sampleRows());
}

void tst_LibraryStore::lockedByAnother()
{
    store(sampleRows());
    RawLibraryFile other;
    other.run(u"BEGIN IMMEDIATE"_s);
    const LibraryChange change = putting(favorites({makeEntry(u"2"_s)}));
    LibraryStore waiting(libraryFile());
    QCOMPARE(waiting.apply({change}), Result::Unavailable);
    QVERIFY(!waiting.errorText().isEmpty());
    QCOMPARE(stored(), sampleRows()); // reading waits for nobody
    other.run(u"ROLLBACK"_s);
    QCOMPARE(waiting.apply({change}), Result::Done);
    QCOMPARE(sortedIdsOf(stored().favorites), (QStringList{u"1"_s, u"2"_s}));
}

void tst_LibraryStore::onlyTheOwnerMayRead()
{
#ifdef Q_OS_WIN
    QSKIP("the profile folder protects the file");
#endif
    constexpr QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::WriteGroup |
                                                QFileDevice::ReadOther | QFileDevice::WriteOther;
    for (const bool wasWide : {false, true}) {
        if (wasWide)
            QVERIFY(
                QFile::setPermissions(libraryFile(), QFile::permissions(libraryFile()) | others));
        LibraryStore open(libraryFile());
        QCOMPARE(open.apply({putting(sampleRows())}), Result::Done);
        const QStringList files = filesBeside();
        QCOMPARE(files, (QStringList{u"library.sqlite"_s, u"library.sqlite-shm"_s,
                                     u"library.sqlite-wal"_s}));
        for (const QString &file : files)
            QVERIFY2(!(QFile::permissions(PrivateProfile::current().appDataDir() + u'/' + file) &
                       others),
                     qPrintable(file));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_LibraryStore)
#include "tst_LibraryStore.moc"
