#include "support/TestMain.h"
#include "ui/EpisodeQueue.h"

using namespace Qt::StringLiterals;

namespace {

const XtreamAccount account{u"http://tv.example"_s, u"u"_s, u"p"_s};

Episode episode(qint32 season, qint32 number, const QString &title)
{
    return {u"47"_s, u"Name in the catalog"_s, season, number, title, u"mkv"_s};
}

LibraryEntry showNamed(const QString &name)
{
    return {u"Source"_s, EntryKind::Show, u"9"_s, name, {}};
}

/// A queue at the episode of that index of "Show": S02E01 "Return", S01E01 "Start", S01E02 "End".
EpisodeQueue queueAt(qint32 index)
{
    EpisodeQueue queue;
    queue.start(showNamed(u"Show"_s),
                {episode(2, 1, u"Return"_s), episode(1, 1, u"Start"_s), episode(1, 2, u"End"_s)},
                account, index);
    return queue;
}

} // namespace

class tst_EpisodeQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAShow();
    void entryOfAnEpisode_data();
    void entryOfAnEpisode();
    void startsAtTheGivenEpisodeAndEndsAfterTheLast();
    void theLibraryKnowsTheEpisode();
    void anotherShowReplacesIt();
};

void tst_EpisodeQueue::withoutAShow()
{
    EpisodeQueue cleared = queueAt(0);
    cleared.clear();
    for (EpisodeQueue queue : {EpisodeQueue(), cleared}) {
        QVERIFY(!queue.hasNext());
        QVERIFY(!queue.next());
        QVERIFY(!queue.hasPrevious());
        QVERIFY(!queue.previous());
        QVERIFY(!queue.account());
    }
}

void tst_EpisodeQueue::entryOfAnEpisode_data()
{
    QTest::addColumn<QString>("show");
    QTest::addColumn<Episode>("playing");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *rule, const QString &show, qint32 season, qint32 number,
                        const QString &title, const QString &name) {
        QTest::newRow(rule) << show << episode(season, number, title) << name;
    };
    row("one digit is padded", u"Example"_s, 1, 2, u"Pilot"_s, u"Example - S01E02 - Pilot"_s);
    row("zero is padded", u"Example"_s, 0, 0, u"Trailer"_s, u"Example - S00E00 - Trailer"_s);
    row("two digits stay", u"Example"_s, 10, 99, u"End"_s, u"Example - S10E99 - End"_s);
    row("more digits stay", u"Daily"_s, 2024, 1234, u"News"_s, u"Daily - S2024E1234 - News"_s);
    row("no show, no title", {}, 1, 1, {}, u" - S01E01 - "_s);
    row("placeholders stay", u"%1 and %4"_s, 1, 2, u"100%2 of %3"_s,
        u"%1 and %4 - S01E02 - 100%2 of %3"_s);
}

void tst_EpisodeQueue::entryOfAnEpisode()
{
    QFETCH(QString, show);
    QFETCH(Episode, playing);
    QFETCH(QString, name);
    EpisodeQueue queue;
    queue.start(showNamed(show), {playing}, account, 0);
    MediaItem expected;
    expected.type = 3;
    expected.id = u"47"_s;
    expected.containerExtension = u"mkv"_s;
    expected.name = name;
    QCOMPARE(queue.current(), expected);
}

void tst_EpisodeQueue::startsAtTheGivenEpisodeAndEndsAfterTheLast()
{
    EpisodeQueue queue = queueAt(1);
    QCOMPARE(queue.current().name, u"Show - S01E01 - Start"_s);
    QVERIFY(queue.hasNext());
    QVERIFY(queue.next());
    QCOMPARE(queue.current().name, u"Show - S01E02 - End"_s);
    QVERIFY(!queue.hasNext());
    QVERIFY(!queue.next());
    QCOMPARE(queue.current().name, u"Show - S01E02 - End"_s);
    QVERIFY(queue.previous());
    QVERIFY(queue.hasPrevious());
    QVERIFY(queue.previous());
    QVERIFY(!queue.previous());
    QCOMPARE(queue.current().name, u"Show - S02E01 - Return"_s);
    QVERIFY(queue.account());
    QCOMPARE(queue.account()->server, account.server);
    QCOMPARE(queue.account()->username, account.username);
    QCOMPARE(queue.account()->password, account.password);
}

void tst_EpisodeQueue::theLibraryKnowsTheEpisode()
{
    EpisodeQueue queue = queueAt(1);
    Progress expected = progressOf({u"Source"_s, EntryKind::Episode, u"47"_s, u"Start"_s, {}});
    expected.showId = u"9"_s;
    expected.season = 1;
    expected.episodeNumber = 1;
    QCOMPARE(queue.currentProgress(), expected);
    queue.renameSource(u"Renamed"_s);
    QVERIFY(queue.next());
    QCOMPARE(queue.currentProgress().source, u"Renamed"_s);
    QCOMPARE(queue.show().source, u"Renamed"_s);
    QVERIFY(queue.currentProgress().isLast);
}

void tst_EpisodeQueue::anotherShowReplacesIt()
{
    EpisodeQueue queue = queueAt(0);
    QVERIFY(queue.hasNext());
    queue.start(showNamed(u"Other"_s), {episode(1, 1, u"Only"_s)},
                {u"http://other.example"_s, {}, {}}, 0);
    QCOMPARE(queue.current().name, u"Other - S01E01 - Only"_s);
    QCOMPARE(queue.account()->server, u"http://other.example"_s);
    QVERIFY(!queue.hasNext());
}

VANTIRO_TEST_GUILESS_MAIN(tst_EpisodeQueue)
#include "tst_EpisodeQueue.moc"
