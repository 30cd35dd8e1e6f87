#include "library/Library.h"
#include "library/LibraryFixture.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

// Nothing is lost when the process dies, when two of them write, or when there is much.

namespace {

/// What the child process does: adds favorites "<prefix>1", "<prefix>2" and so on, up to `count`,
/// and prints how many of them are on the disk.
int runChild(const QString &path, const QString &prefix, int count)
{
    Library library(path, nullptr);
    for (int number = 1; number <= count; ++number) {
        const LibraryEntry entry = makeEntry(prefix + QString::number(number));
        library.addFavorite(entry);
        library.noteWatched(entry);
        Progress at = progressOf(entry);
        at.positionMs = Library::begunAfterMs + number;
        library.notePosition(at);
        // Now and then, so that the thread writes one change or several at once.
        if (number % 3 == 0) {
            if (!library.flush())
                return 1;
            std::printf("%d\n", number);
            std::fflush(stdout);
        }
    }
    return 0;
}

/// With "--child-on-call" it first says that it is there, and waits for a line.
std::unique_ptr<QProcess> startChild(const QString &prefix, int count,
                                     const QString &mode = u"--child"_s)
{
    auto child = std::make_unique<QProcess>();
    child->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child->start(QCoreApplication::applicationFilePath(),
                 {mode, libraryFile(), prefix, QString::number(count)});
    return child;
}

/// Reads what the child prints until it has told `lines` times what is on the disk; the last
/// number.
int readUntil(QProcess &child, int lines)
{
    int confirmed = 0;
    for (int line = 0; line < lines; ++line) {
        while (!child.canReadLine()) {
            if (!child.waitForReadyRead())
                return confirmed;
        }
        confirmed = child.readLine().trimmed().toInt();
    }
    return confirmed;
}

} // namespace

class tst_LibrarySurvival : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }

    void killedAtRandomMoments();
    void twoProcesses_data();
    void twoProcesses();
    void manyMakeTheFile();
    void hundredThousandRows();
};

void tst_LibrarySurvival::killedAtRandomMoments()
{
#ifdef Q_OS_WIN
    constexpr int rounds = 3; // Wine takes seconds to start a process
#else
    constexpr int rounds = 20;
#endif
    constexpr int mostLines = 15;
    constexpr int more = 1000; // it ends by itself, too, if this process dies first
    for (int round = 0; round < rounds; ++round) {
        const QString prefix = QString::number(round) + u'-';
        const std::unique_ptr<QProcess> child = startChild(prefix, more);
        const int lines = QRandomGenerator::global()->bounded(mostLines);
        const int confirmed = readUntil(*child, lines);
        QCOMPARE(confirmed > 0, lines > 0);
        child->kill();
        QVERIFY(child->state() == QProcess::NotRunning || child->waitForFinished());

        const Library library(nullptr);
        const auto &favorites = library.favorites(u"S"_s, EntryKind::Movie);
        const auto &progress = library.progress(u"S"_s, EntryKind::Movie);
        for (int number = 1; number <= confirmed; ++number) {
            const QString id = prefix + QString::number(number);
            QVERIFY2(favorites.contains(id), qPrintable(id));
            QCOMPARE(progress.value(id).positionMs, Library::begunAfterMs + number);
        }
    }
    QCOMPARE(RawLibraryFile().run(u"PRAGMA integrity_check"_s).toString(), u"ok"_s);
}

void tst_LibrarySurvival::twoProcesses_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("both make the file") << false;
    QTest::newRow("the file is there") << true;
}

void tst_LibrarySurvival::twoProcesses()
{
    QFETCH(bool, isThere);
    constexpr int count = 150;
    if (isThere)
        Library(nullptr).hideCategory(u"S"_s, EntryKind::Live, {u"c"_s, u"C"_s});
    std::vector<std::unique_ptr<QProcess>> children;
    for (const QString &prefix : {u"a"_s, u"b"_s})
        children.push_back(startChild(prefix, count));
    for (const auto &child : children) {
        QVERIFY(child->waitForFinished());
        QCOMPARE(child->exitStatus(), QProcess::NormalExit);
        QCOMPARE(child->exitCode(), 0);
    }
    const Library library(nullptr);
    const auto &favorites = library.favorites(u"S"_s, EntryKind::Movie);
    QCOMPARE(favorites.size(), 2 * count);
    QCOMPARE(library.progress(u"S"_s, EntryKind::Movie).size(), 2 * count);
    for (int number = 1; number <= count; ++number) {
        for (const QString &prefix : {u"a"_s, u"b"_s})
            QVERIFY(favorites.contains(prefix + QString::number(number)));
    }
}

void tst_LibrarySurvival::manyMakeTheFile()
{
#ifdef Q_OS_WIN
    constexpr int rounds = 2; // Wine takes seconds to start a process
#else
    constexpr int rounds = 25;
#endif
    const QStringList prefixes{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    for (int round = 0; round < rounds; ++round) {
        PrivateProfile::current().clear();
        std::vector<std::unique_ptr<QProcess>> children;
        for (const QString &prefix : prefixes)
            children.push_back(startChild(prefix, 3, u"--child-on-call"_s));
        for (const auto &child : children)
            QVERIFY(child->waitForReadyRead());
        for (const auto &child : children)
            QVERIFY(child->write("\n") == 1 && child->waitForBytesWritten());
        for (const auto &child : children) {
            QVERIFY(child->waitForFinished());
            QCOMPARE(child->exitCode(), 0);
        }
        QCOMPARE(Library(nullptr).favorites(u"S"_s, EntryKind::Movie).size(), 3 * prefixes.size());
    }
}

void tst_LibrarySurvival::hundredThousandRows()
{
    constexpr int perPart = 50'000;
    LibraryChange change;
    for (int number = 0; number < perPart; ++number) {
        const QString id = u"http://provider.example:8080/live/user/"_s + QString::number(number);
        change.put.favorites.append({makeEntry(id, EntryKind::Channel), perPart - number, number});
        Progress at = progressOf(makeEntry(id));
        at.positionMs = number + 1;
        at.updatedAt = number;
        change.put.progress.append(at);
    }
    {
        Library library(nullptr);
        library.apply(change);
        library.addFavorite(makeEntry(u"last"_s, EntryKind::Channel));
    }
    Library library(nullptr);
    QCOMPARE(library.rows().favorites.size(), perPart + 1);
    const QList<Favorite> ordered = library.favoritesInOrder(u"S"_s, EntryKind::Channel);
    QCOMPARE(ordered.size(), perPart + 1);
    QCOMPARE(ordered.constLast().id, u"last"_s);
    QVERIFY(
        std::equal(change.put.favorites.crbegin(), change.put.favorites.crend(), ordered.cbegin()));
    const auto &progress = library.progress(u"S"_s, EntryKind::Movie);
    QCOMPARE(progress.size(), perPart);
    QVERIFY(std::all_of(change.put.progress.cbegin(), change.put.progress.cend(),
                        [&progress](const Progress &row) { return progress[row.id] == row; }));
    QCOMPARE(library.continueWatching(u"S"_s, EntryKind::Movie).constFirst().positionMs, perPart);
    library.forgetSource(u"S"_s);
    QVERIFY(library.flush());
    QCOMPARE(Library(nullptr).rows(), LibraryRows());
}

int main(int argc, char **argv)
{
    if (argc == 5 && qstrncmp(argv[1], "--child", 7) == 0) {
        const QCoreApplication application(argc, argv);
        if (qstrcmp(argv[1], "--child-on-call") == 0) {
            std::puts("ready");
            std::fflush(stdout);
            (void)std::getchar();
        }
        const QStringList arguments = QCoreApplication::arguments();
        return runChild(arguments.at(2), arguments.at(3), arguments.at(4).toInt());
    }
    return runTestProgram<QCoreApplication, tst_LibrarySurvival>(argc, argv);
}
#include "tst_LibrarySurvival.moc"
