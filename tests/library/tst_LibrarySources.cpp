#include "library/LibraryFixture.h"
#include "library/LibraryRun.h"
#include "library/WatchedEntries.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// What the library keeps of a source that changes: its name, or the addresses of its channels.

class tst_LibrarySources : public QObject, private LibraryRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup() { library.reset(); }

    void sources_data();
    void sources();
    void followsUrls_data();
    void followsUrls();
    void entriesWithoutANameAreNotFollowed();
    void followingLeavesWhatChangesMeanwhile();
    void aLargeFileIsReadMeanwhile_data();
    void aLargeFileIsReadMeanwhile();
};

void tst_LibrarySources::sources_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to"); ///< empty: deleted
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("renamed") << u"A"_s << u"C"_s << QStringList{u"B/1"_s, u"C/1"_s, u"C/2"_s};
    QTest::newRow("renamed to one that exists")
        << u"A"_s << u"B"_s << QStringList{u"B/1"_s, u"B/2"_s};
    QTest::newRow("renamed to itself")
        << u"A"_s << u"A"_s << QStringList{u"A/1"_s, u"A/2"_s, u"B/1"_s};
    QTest::newRow("deleted") << u"A"_s << QString() << QStringList{u"B/1"_s};
    QTest::newRow("one without rows")
        << u"X"_s << QString() << QStringList{u"A/1"_s, u"A/2"_s, u"B/1"_s};
}

void tst_LibrarySources::sources()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QStringList, expected);
    library->addFavorite(makeEntry(u"1"_s, EntryKind::Movie, u"A"_s));
    library->addFavorite(makeEntry(u"2"_s, EntryKind::Movie, u"A"_s));
    library->addFavorite(makeEntry(u"1"_s, EntryKind::Movie, u"B"_s));
    if (to.isEmpty())
        library->forgetSource(from);
    else
        library->renameSource(from, to);
    library->renameSource(u"B"_s, {}); // no name
    for (int start = 0; start < 2; ++start) {
        QStringList kept;
        const LibraryRows rows = library->rows();
        for (const Favorite &row : rows.favorites)
            kept << row.source + u'/' + row.id;
        kept.sort();
        QCOMPARE(kept, expected);
        restart();
    }
}

void tst_LibrarySources::followsUrls_data()
{
    QTest::addColumn<QList<MediaItem>>("items");
    QTest::addColumn<QStringList>("expected"); ///< of the favorites "old1" and "old2", both "News"
    QTest::newRow("unchanged") << QList{makeChannel(u"old1"_s, u"News"_s),
                                        makeChannel(u"new"_s, u"News"_s),
                                        makeChannel(u"old2"_s, u"News"_s)}
                               << QStringList{u"old1"_s, u"old2"_s};
    QTest::newRow("unchanged, and more follow")
        << QList{makeChannel(u"old1"_s, u"News"_s), makeChannel(u"old2"_s, u"News"_s),
                 makeChannel(u"new"_s, u"News"_s)}
        << QStringList{u"old1"_s, u"old2"_s};
    QTest::newRow("both changed, and more follow")
        << QList{makeChannel(u"new1"_s, u"News"_s), makeChannel(u"new2"_s, u"News"_s),
                 makeChannel(u"new3"_s, u"News"_s)}
        << QStringList{u"new1"_s, u"new2"_s};
    QTest::newRow("both changed") << QList{makeChannel(u"new1"_s, u"News"_s),
                                           makeChannel(u"new2"_s, u"News"_s)}
                                  << QStringList{u"new1"_s, u"new2"_s};
    QTest::newRow("one changed") << QList{makeChannel(u"old1"_s, u"News"_s),
                                          makeChannel(u"new2"_s, u"News"_s)}
                                 << QStringList{u"new2"_s, u"old1"_s};
    QTest::newRow("another name") << QList{makeChannel(u"new1"_s, u"Sport"_s)}
                                  << QStringList{u"old1"_s, u"old2"_s};
    QTest::newRow("another category")
        << QList{makeChannel(u"new1"_s, u"News"_s, u"c2"_s)} << QStringList{u"old1"_s, u"old2"_s};
    QTest::newRow("one of them is gone")
        << QList{makeChannel(u"new1"_s, u"News"_s)} << QStringList{u"new1"_s, u"old2"_s};
    QTest::newRow("nothing was loaded") << QList<MediaItem>() << QStringList{u"old1"_s, u"old2"_s};
    QTest::newRow("one URL twice")
        << QList{makeChannel(u"new1"_s, u"News"_s), makeChannel(u"new1"_s, u"News"_s)}
        << QStringList{u"new1"_s, u"old2"_s};
}

void tst_LibrarySources::followsUrls()
{
    QFETCH(QList<MediaItem>, items);
    QFETCH(QStringList, expected);
    for (const QString &url : {u"old1"_s, u"old2"_s}) {
        const LibraryEntry entry =
            libraryEntry(source, EntryKind::Channel, makeChannel(url, u"News"_s));
        library->addFavorite(entry);
        library->noteWatched(entry);
        library->setGuideCorrection({entry, url});
        for (const qint64 start : {1, 2})
            library->addReminder(reminderOf(entry, start, start + 1, {}));
    }
    library->addFavorite(makeEntry(u"News"_s, EntryKind::Channel, u"T"_s));
    library->followEntries(source, EntryKind::Channel, items);
    QVERIFY(library->flush());
    for (int start = 0; start < 2; ++start) {
        QCOMPARE(sortedIdsOf(library->favorites(source, EntryKind::Channel)), expected);
        QCOMPARE(sortedIdsOf(library->recentlyWatched(source, EntryKind::Channel)), expected);
        QCOMPARE(sortedIdsOf(library->guideCorrections(source, EntryKind::Channel)), expected);
        QStringList channels;
        const QList<Reminder> reminders = library->reminders();
        for (const Reminder &row : reminders) {
            QCOMPARE(row.id, QString::number(row.start) + u' ' + row.entryId);
            channels << row.entryId;
        }
        channels.sort();
        QCOMPARE(channels,
                 (QStringList{expected.at(0), expected.at(0), expected.at(1), expected.at(1)}));
        QCOMPARE(library->favorites(u"T"_s, EntryKind::Channel).size(), 1);
        restart();
    }
}

void tst_LibrarySources::entriesWithoutANameAreNotFollowed()
{
    for (const QString &name : {u""_s, u"News"_s})
        library->addFavorite(
            libraryEntry(source, EntryKind::Channel, makeChannel(u"old "_s + name, name)));
    library->followEntries(source, EntryKind::Channel,
                           {makeChannel(u"new"_s, {}), makeChannel(u"new News"_s, u"News"_s)});
    QVERIFY(library->flush());
    QCOMPARE(sortedIdsOf(library->favorites(source, EntryKind::Channel)),
             (QStringList{u"new News"_s, u"old "_s}));
}

void tst_LibrarySources::followingLeavesWhatChangesMeanwhile()
{
    for (const QString &url : {u"old1"_s, u"old2"_s, u"old3"_s})
        library->addFavorite(libraryEntry(source, EntryKind::Channel, makeChannel(url, url)));
    const LibraryEntry third =
        libraryEntry(source, EntryKind::Channel, makeChannel(u"old3"_s, u"old3"_s));
    library->setGuideCorrection({third, u"one.tv"_s});
    library->followEntries(source, EntryKind::Channel,
                           {makeChannel(u"new1"_s, u"old1"_s), makeChannel(u"new2"_s, u"old2"_s),
                            makeChannel(u"new3"_s, u"old3"_s)});
    library->setGuideCorrection({third, u"two.tv"_s});
    library->removeFavorite(makeEntry(u"old1"_s, EntryKind::Channel));
    library->addFavorite(makeEntry(u"new2"_s, EntryKind::Channel));
    QVERIFY(library->flush());
    QCOMPARE(sortedIdsOf(library->favorites(source, EntryKind::Channel)),
             (QStringList{u"new2"_s, u"new3"_s, u"old2"_s}));
    QCOMPARE(sortedIdsOf(library->guideCorrections(source, EntryKind::Channel)),
             QStringList{u"old3"_s});
}

void tst_LibrarySources::aLargeFileIsReadMeanwhile_data()
{
    QTest::addColumn<bool>("changedAtOnce");
    QTest::newRow("looked at") << false;
    QTest::newRow("changed before it was read") << true;
}

void tst_LibrarySources::aLargeFileIsReadMeanwhile()
{
    QFETCH(bool, changedAtOnce);
    constexpr int count = 20'000;
    LibraryChange change;
    for (int number = 0; number < count; ++number) {
        const QString url = u"http://provider.example/live/user/password/%1.ts"_s.arg(number);
        change.put.favorites.append({makeEntry(url, EntryKind::Channel), number, 1});
    }
    library->apply(change);
    restart();
    QSignalSpy changes(library.get(), &Library::changed);
    const auto &favorites = library->favorites(source, EntryKind::Channel);
    if (changedAtOnce) {
        library->addFavorite(makeEntry(u"one more"_s, EntryKind::Channel));
    } else {
        QVERIFY(favorites.isEmpty());
        library->followEntries(source, EntryKind::Channel,
                               {makeChannel(u"followed"_s, change.put.favorites.at(7).name)});
    }
    QTRY_VERIFY(!changes.isEmpty());
    QCOMPARE(library->favorites(source, EntryKind::Channel).size(),
             count + (changedAtOnce ? 1 : 0));
    QVERIFY(library->flush());
    restart();
    QCOMPARE(library->rows().favorites.size(), count + (changedAtOnce ? 1 : 0));
}

VANTIRO_TEST_GUILESS_MAIN(tst_LibrarySources)
#include "tst_LibrarySources.moc"
