#include "library/LibraryFixture.h"
#include "library/LibraryRun.h"
#include "library/WatchedEntries.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// How far films and episodes were watched.

class tst_LibraryProgress : public QObject, private LibraryRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup() { library.reset(); }

    void positions_data();
    void positions();
    void positionsAfterPositions_data();
    void positionsAfterPositions();
    void finishedStaysWatched();
    void watchedShow();
    void newEpisodeUnmarksTheShow();
    void continueWatchingFilms();
    void continueWatchingShows_data();
    void continueWatchingShows();
};

void tst_LibraryProgress::positions_data()
{
    QTest::addColumn<qint64>("positionMs");
    QTest::addColumn<qint64>("durationMs");
    QTest::addColumn<qint64>("resumeMs"); ///< -1 when nothing is kept
    QTest::addColumn<bool>("watched");
    const qint64 length = 1000 * second;
    QTest::newRow("at the beginning") << 0 * second << length << qint64(-1) << false;
    QTest::newRow("just under 30 s") << 30 * second - 1 << length << qint64(-1) << false;
    QTest::newRow("30 s") << 30 * second << length << 30 * second << false;
    QTest::newRow("95 %") << 950 * second << length << 950 * second << false;
    QTest::newRow("over 95 %") << 950 * second + 1 << length << qint64(0) << true;
    QTest::newRow("at the end") << length << length << qint64(0) << true;
    QTest::newRow("behind the end") << length + second << length << qint64(0) << true;
    QTest::newRow("unknown duration") << 40 * second << qint64(0) << 40 * second << false;
    QTest::newRow("short film, over 95 %") << 20 * second << 20 * second << qint64(0) << true;
    QTest::newRow("longer than 32 bits hold")
        << qint64(6'000'000'000) << qint64(9'000'000'000) << qint64(6'000'000'000) << false;
}

void tst_LibraryProgress::positions()
{
    QFETCH(qint64, positionMs);
    QFETCH(qint64, durationMs);
    QFETCH(qint64, resumeMs);
    QFETCH(bool, watched);
    library->notePosition(film(u"1"_s, positionMs, durationMs));
    restart();
    const auto &kept = library->progress(source, EntryKind::Movie);
    QCOMPARE(kept.contains(u"1"_s) ? kept[u"1"_s].positionMs : -1, resumeMs);
    QCOMPARE(kept.value(u"1"_s).watched, watched);
}

void tst_LibraryProgress::positionsAfterPositions_data()
{
    QTest::addColumn<qint64>("then");
    QTest::addColumn<qint64>("resumeMs");
    QTest::newRow("further on") << 60 * minute << 60 * minute;
    QTest::newRow("back") << 10 * minute << 10 * minute;
    QTest::newRow("not begun again") << 20 * second << 50 * minute;
    QTest::newRow("finished") << 99 * minute << qint64(0);
}

void tst_LibraryProgress::positionsAfterPositions()
{
    QFETCH(qint64, then);
    QFETCH(qint64, resumeMs);
    library->notePosition(film(u"1"_s, 50 * minute));
    library->notePosition(film(u"1"_s, then));
    QCOMPARE(library->progress(source, EntryKind::Movie).value(u"1"_s).positionMs, resumeMs);
}

void tst_LibraryProgress::finishedStaysWatched()
{
    library->notePosition(film(u"1"_s, 99 * minute));
    QVERIFY2(library->notePosition(film(u"1"_s, 99 * minute + second)).isEmpty(),
             "nothing new to write");
    library->notePosition(film(u"1"_s, 10 * minute));
    const Progress again = library->progress(source, EntryKind::Movie).value(u"1"_s);
    QVERIFY(again.watched);
    QCOMPARE(again.positionMs, 10 * minute);
    library->setWatched({film(u"1"_s, 0)}, false);
    QVERIFY(library->progress(source, EntryKind::Movie).isEmpty());
}

void tst_LibraryProgress::watchedShow()
{
    const auto isMarked = [this] {
        return library->progress(source, EntryKind::Show).contains(u"s"_s);
    };
    library->setWatched({episode(1), episode(2)}, true);
    library->noteEpisodes(show(), threeEpisodes);
    QVERIFY(!isMarked());
    library->notePosition(episode(3, 99 * minute));
    library->noteEpisodes(show(), threeEpisodes);
    QVERIFY(isMarked());
    QVERIFY(library->noteEpisodes(show(), threeEpisodes).isEmpty());
    QVERIFY(isMarked());
    library->noteEpisodes(show(), {});
    QVERIFY2(isMarked(), "episodes that could not be loaded say nothing");
    library->setWatched({episode(2)}, false);
    library->noteEpisodes(show(), threeEpisodes);
    QVERIFY(!isMarked());
    library->setWatched({episode(1), episode(2), episode(3)}, true);
    library->noteEpisodes(show(), threeEpisodes);
    library->setWatched({episode(1), episode(2), episode(3)}, false);
    library->noteEpisodes(show(), threeEpisodes);
    QCOMPARE(library->rows(), LibraryRows());
}

void tst_LibraryProgress::newEpisodeUnmarksTheShow()
{
    library->setWatched({episode(1), episode(2), episode(3)}, true);
    library->noteEpisodes(show(), threeEpisodes);
    QVERIFY(library->continueWatching(source, EntryKind::Episode).isEmpty());
    library->noteEpisodes(show(), threeEpisodes + QStringList{u"se4"_s});
    QVERIFY(!library->progress(source, EntryKind::Show).contains(u"s"_s));
    QCOMPARE(idsOf(library->continueWatching(source, EntryKind::Episode)), QStringList{u"se3"_s});
}

void tst_LibraryProgress::continueWatchingFilms()
{
    LibraryChange change;
    for (int number = 1; number <= 4; ++number) {
        Progress row = film(QString::number(number), number == 3 ? 0 : number * minute);
        row.updatedAt = number == 1 ? 100 : number;
        change.put.progress.append(row);
    }
    library->apply(change);
    QCOMPARE(idsOf(library->continueWatching(source, EntryKind::Movie)),
             (QStringList{u"1"_s, u"4"_s, u"2"_s}));
}

void tst_LibraryProgress::continueWatchingShows_data()
{
    QTest::addColumn<QList<Progress>>("rows");
    QTest::addColumn<QStringList>("expected");
    const auto at = [](int number, qint64 positionMs, bool watched, qint64 time,
                       const QString &showId = u"s"_s) {
        Progress row = episode(number, positionMs, showId);
        row.watched = watched;
        row.updatedAt = time;
        return row;
    };
    QTest::newRow("left in the middle") << QList{at(2, minute, false, 5)} << QStringList{u"se2"_s};
    QTest::newRow("finished, another follows") << QList{at(2, 0, true, 5)} << QStringList{u"se2"_s};
    QTest::newRow("the last was finished") << QList{at(3, 0, true, 5)} << QStringList{};
    QTest::newRow("the last was left") << QList{at(3, minute, false, 5)} << QStringList{u"se3"_s};
    QTest::newRow("the latest of a show counts")
        << QList{at(1, minute, false, 5), at(2, minute, false, 7), at(3, minute, false, 6)}
        << QStringList{u"se2"_s};
    QTest::newRow("marked together")
        << QList{at(1, 0, true, 5), at(3, 0, true, 5), at(2, 0, true, 5)} << QStringList{};
    QTest::newRow("several shows, the latest first")
        << QList{at(1, minute, false, 5, u"a"_s), at(1, minute, false, 9, u"b"_s),
                 at(1, minute, false, 7, u"c"_s)}
        << QStringList{u"be1"_s, u"ce1"_s, u"ae1"_s};
}

void tst_LibraryProgress::continueWatchingShows()
{
    QFETCH(QList<Progress>, rows);
    QFETCH(QStringList, expected);
    LibraryChange change;
    change.put.progress = rows;
    library->apply(change);
    QCOMPARE(idsOf(library->continueWatching(source, EntryKind::Episode)), expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_LibraryProgress)
#include "tst_LibraryProgress.moc"
