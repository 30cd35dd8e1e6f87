#include "support/TestMain.h"
#include "ui/EpisodeQueue.h"

using namespace Qt::StringLiterals;

namespace {

const XtreamAccount account{u"http://tv.example"_s, u"u"_s, u"p"_s};

Episode episode(const QString &id, qint32 season, qint32 number, const QString &title)
{
    return {id, u"Name in the catalog"_s, season, number, title, u"mkv"_s};
}

/// A queue at the episode of that index of "Show": S02E01 "Return", S01E01 "Start", S01E02 "End".
EpisodeQueue queueAt(qint32 index)
{
    EpisodeQueue queue;
    queue.start(u"Show"_s,
                {episode(u"21"_s, 2, 1, u"Return"_s), episode(u"11"_s, 1, 1, u"Start"_s),
                 episode(u"12"_s, 1, 2, u"End"_s)},
                account, index);
    return queue;
}

} // namespace

class tst_EpisodeQueue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAShow_data();
    void withoutAShow();
    void startsAtTheGivenEpisode();
    void goesOnInTheOrderOfTheList();
    void endsAfterTheLastEpisode();
    void anotherShowReplacesIt();
};

void tst_EpisodeQueue::withoutAShow_data()
{
    QTest::addColumn<bool>("cleared");
    QTest::newRow("at the start") << false;
    QTest::newRow("cleared") << true;
}

void tst_EpisodeQueue::withoutAShow()
{
    QFETCH(bool, cleared);
    EpisodeQueue queue;
    if (cleared) {
        queue = queueAt(0);
        queue.clear();
    }
    QVERIFY(!queue.hasNext());
    QVERIFY(!queue.next());
    QVERIFY(!queue.account());
}

void tst_EpisodeQueue::startsAtTheGivenEpisode()
{
    const EpisodeQueue queue = queueAt(1);
    const MediaItem item = queue.current();
    QCOMPARE(item.type, StreamKind::Episode);
    QCOMPARE(item.id, u"11"_s);
    QCOMPARE(item.name, u"Show - S01E01 - Start"_s);
    QCOMPARE(item.containerExtension, u"mkv"_s);
    QVERIFY(queue.account());
    QCOMPARE(queue.account()->server, account.server);
    QCOMPARE(queue.account()->username, account.username);
    QCOMPARE(queue.account()->password, account.password);
}

void tst_EpisodeQueue::goesOnInTheOrderOfTheList()
{
    EpisodeQueue queue = queueAt(0);
    QVERIFY(queue.hasNext());
    QVERIFY(queue.next());
    QCOMPARE(queue.current().name, u"Show - S01E01 - Start"_s);
    QVERIFY(queue.next());
    QCOMPARE(queue.current().name, u"Show - S01E02 - End"_s);
}

void tst_EpisodeQueue::endsAfterTheLastEpisode()
{
    EpisodeQueue queue = queueAt(2);
    QVERIFY(!queue.hasNext());
    QVERIFY(!queue.next());
    QCOMPARE(queue.current().name, u"Show - S01E02 - End"_s);
    QVERIFY(queue.account());
}

void tst_EpisodeQueue::anotherShowReplacesIt()
{
    EpisodeQueue queue = queueAt(0);
    queue.start(u"Other"_s, {episode(u"5"_s, 1, 1, u"Only"_s)}, {u"http://other.example"_s, {}, {}},
                0);
    QCOMPARE(queue.current().name, u"Other - S01E01 - Only"_s);
    QCOMPARE(queue.account()->server, u"http://other.example"_s);
    QVERIFY(!queue.hasNext());
}

VANTIRO_TEST_GUILESS_MAIN(tst_EpisodeQueue)
#include "tst_EpisodeQueue.moc"
