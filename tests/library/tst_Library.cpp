#include "library/LibraryFixture.h"
#include "library/LibraryRun.h"
#include "library/WatchedEntries.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

// What the library answers, and that a later start answers the same.

namespace {

Reminder reminder(const QString &id, qint64 start, const QString &ofSource = u"S"_s)
{
    return reminderOf(makeEntry(id, EntryKind::Channel, ofSource), start, start + 60, u"T"_s);
}

} // namespace

class tst_Library : public QObject, private LibraryRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void cleanup() { library.reset(); }

    void unusedMakesNothing();
    void ineffectiveChangesMakeNothing();
    void survivesARestart();
    void isDurableWhileItRuns();

    void favoriteOrder();
    void addingTwiceKeepsThePlace();
    void removingWhatIsNotThere();
    void takingBack_data();
    void takingBack();

    void recentlyWatched();
    void recentlyWatchedPerKindAndSource();

    void hiddenCategories();
    void guideSettings();
    void guideCorrections();
    void reminders();
    void rowsOfAnotherProgram();
    void clearing();
    void signalsPerList();
};

// ---- the file ----

void tst_Library::unusedMakesNothing()
{
    QVERIFY(library->favorites(source, EntryKind::Live).isEmpty());
    QVERIFY(library->recentlyWatched(source, EntryKind::Live).isEmpty());
    QVERIFY(library->progress(source, EntryKind::Movie).isEmpty());
    QVERIFY(library->continueWatching(source, EntryKind::Episode).isEmpty());
    QVERIFY(library->hiddenCategories(source, EntryKind::Live).isEmpty());
    QVERIFY(!library->guideSettings(source).enabled);
    QVERIFY(library->guideCorrections(source, EntryKind::Live).isEmpty());
    QVERIFY(library->reminders().isEmpty());
    QCOMPARE(library->rows(), LibraryRows());
    QVERIFY(library->flush());
    library.reset();
    QVERIFY(!QDir(PrivateProfile::current().appDataDir()).exists());
}

void tst_Library::ineffectiveChangesMakeNothing()
{
    library->removeFavorite(makeEntry(u"1"_s));
    library->removeFromRecentlyWatched(makeEntry(u"1"_s));
    library->setFavoriteOrder(source, EntryKind::Movie, {u"1"_s});
    library->setWatched({film(u"1"_s, 0)}, false);
    library->notePosition(film(u"1"_s, 29 * second));
    library->noteEpisodes(show(), threeEpisodes);
    library->unhideCategory(source, EntryKind::Movie, u"c1"_s);
    library->renameSource(source, u"T"_s);
    library->forgetSource(source);
    library->followEntries(source, EntryKind::Channel, {makeChannel(u"u"_s, u"n"_s)});
    library->clear({LibraryPart::Favorites, LibraryPart::Progress});
    library->setGuideSettings(library->guideSettings(source));
    library->removeGuideCorrection(makeEntry(u"1"_s, EntryKind::Live));
    library->removeReminder(reminder(u"1"_s, 1));
    library.reset();
    QVERIFY(!QDir(PrivateProfile::current().appDataDir()).exists());
}

void tst_Library::survivesARestart()
{
    LibraryChange change;
    change.put = sampleRows();
    library->apply(change);
    restart();
    QCOMPARE(library->rows(), sampleRows());
}

void tst_Library::isDurableWhileItRuns()
{
    library->addFavorite(makeEntry(u"1"_s));
    QTRY_VERIFY(QFile::exists(libraryFile()));
    const auto written = [] {
        return sortedIdsOf(Library(nullptr).favorites(source, EntryKind::Movie));
    };
    QTRY_COMPARE(written(), QStringList{u"1"_s});
    library->addFavorite(makeEntry(u"2"_s));
    QTRY_COMPARE(written(), (QStringList{u"1"_s, u"2"_s}));
}

// ---- favorites ----

void tst_Library::favoriteOrder()
{
    for (const QString &id : {u"c"_s, u"a"_s, u"d"_s, u"b"_s})
        library->addFavorite(makeEntry(id));
    const auto order = [this] {
        return idsOf(library->favoritesInOrder(source, EntryKind::Movie)).join(u' ');
    };
    QCOMPARE(order(), u"c a d b"_s);
    library->setFavoriteOrder(source, EntryKind::Movie, {u"b"_s, u"c"_s, u"a"_s, u"d"_s});
    QCOMPARE(order(), u"b c a d"_s);
    library->setFavoriteOrder(source, EntryKind::Movie, {u"d"_s, u"unknown"_s, u"a"_s});
    QCOMPARE(order(), u"d a b c"_s);
    library->addFavorite(makeEntry(u"e"_s));
    QCOMPARE(order(), u"d a b c e"_s);
    const LibraryChange undo = library->removeFavorite(makeEntry(u"a"_s));
    QCOMPARE(order(), u"d b c e"_s);
    library->apply(undo);
    QCOMPARE(order(), u"d a b c e"_s);
    restart();
    QCOMPARE(order(), u"d a b c e"_s);
}

void tst_Library::addingTwiceKeepsThePlace()
{
    library->addFavorite(makeEntry(u"1"_s));
    library->addFavorite(makeEntry(u"2"_s));
    QVERIFY(library->addFavorite(makeEntry(u"1"_s)).isEmpty());
    QCOMPARE(idsOf(library->favoritesInOrder(source, EntryKind::Movie)),
             (QStringList{u"1"_s, u"2"_s}));
}

void tst_Library::removingWhatIsNotThere()
{
    library->addFavorite(makeEntry(u"1"_s));
    LibraryChange change;
    change.removed.favorites = {{makeEntry(u"2"_s), 0, 0}};
    library->apply(library->apply(change)); // and taken back
    QCOMPARE(sortedIdsOf(library->favorites(source, EntryKind::Movie)), QStringList{u"1"_s});
}

void tst_Library::takingBack_data()
{
    using Change = std::function<LibraryChange(Library &)>;
    QTest::addColumn<Change>("change");
    QTest::newRow("adding a favorite")
        << Change([](Library &l) { return l.addFavorite(makeEntry(u"new"_s)); });
    QTest::newRow("removing a favorite")
        << Change([](Library &l) { return l.removeFavorite(makeEntry(u"1"_s)); });
    QTest::newRow("marking as watched") << Change([](Library &l) {
        return l.setWatched({episode(1), episode(2)}, true);
    });
    QTest::newRow("marking as unwatched")
        << Change([](Library &l) { return l.setWatched({film(u"f"_s, 0)}, false); });
    QTest::newRow("hiding a category") << Change([](Library &l) {
        return l.hideCategory(source, EntryKind::Live, {u"c"_s, u"C"_s});
    });
    QTest::newRow("removing from what was watched") << Change(
        [](Library &l) { return l.removeFromRecentlyWatched(makeEntry(u"2"_s, EntryKind::Live)); });
    QTest::newRow("setting a guide's channel") << Change([](Library &l) {
        return l.setGuideCorrection({makeEntry(u"3"_s, EntryKind::Live), u"other.tv"_s});
    });
    QTest::newRow("clearing") << Change([](Library &l) {
        return l.clear({LibraryPart::History, LibraryPart::Progress});
    });
    QTest::newRow("renaming a source")
        << Change([](Library &l) { return l.renameSource(source, u"T"_s); });
    QTest::newRow("deleting a source") << Change([](Library &l) { return l.forgetSource(source); });
}

void tst_Library::takingBack()
{
    QFETCH(std::function<LibraryChange(Library &)>, change);
    LibraryChange sample;
    sample.put = sampleRows();
    sample.put.progress.append(film(u"f"_s, 50 * minute));
    library->apply(sample);
    const LibraryRows before = LibraryState(library->rows()).rows();
    const LibraryChange undo = change(*library);
    QVERIFY(!undo.isEmpty());
    restart();
    QVERIFY(sortedIdsOf(library->rows().favorites) != sortedIdsOf(before.favorites) ||
            library->rows() != before);
    library->apply(undo);
    restart();
    LibraryRows after = library->rows();
    QCOMPARE(after.progress.size(), before.progress.size());
    for (const Progress &row : before.progress)
        QVERIFY(after.progress.contains(row));
    after.progress = before.progress; // compared in any order
    QCOMPARE(after, before);
}

// ---- recently watched ----

void tst_Library::recentlyWatched()
{
    QStringList expected;
    for (int id = 0; id < Library::recentlyWatchedCount + 3; ++id) {
        library->noteWatched(makeEntry(QString::number(id)));
        expected.prepend(QString::number(id));
    }
    expected.resize(Library::recentlyWatchedCount);
    const auto ids = [this] { return idsOf(library->recentlyWatched(source, EntryKind::Movie)); };
    QCOMPARE(ids(), expected);

    library->noteWatched(makeEntry(u"40"_s));
    expected.move(expected.indexOf(u"40"_s), 0);
    QCOMPARE(ids(), expected);
    library->removeFromRecentlyWatched(makeEntry(u"40"_s));
    expected.removeFirst();
    QCOMPARE(ids(), expected);
    restart();
    QCOMPARE(ids(), expected);
    QCOMPARE(library->rows().history.size(), expected.size());
}

void tst_Library::recentlyWatchedPerKindAndSource()
{
    library->noteWatched(makeEntry(u"1"_s, EntryKind::Live));
    library->noteWatched(makeEntry(u"1"_s, EntryKind::Movie));
    library->noteWatched(makeEntry(u"1"_s, EntryKind::Movie, u"T"_s));
    library->removeFromRecentlyWatched(makeEntry(u"1"_s, EntryKind::Movie));
    QCOMPARE(library->recentlyWatched(source, EntryKind::Live).size(), 1);
    QVERIFY(library->recentlyWatched(source, EntryKind::Movie).isEmpty());
    QCOMPARE(library->recentlyWatched(u"T"_s, EntryKind::Movie).size(), 1);
}

// ---- categories ----

void tst_Library::hiddenCategories()
{
    library->hideCategory(source, EntryKind::Live, {u"c1"_s, u"One"_s});
    library->hideCategory(source, EntryKind::Live, {u"c2"_s, u"Two"_s});
    restart();
    const auto &hidden = library->hiddenCategories(source, EntryKind::Live);
    QCOMPARE(hidden.value(u"c2"_s).name, u"Two"_s);
    QVERIFY(library->hiddenCategories(source, EntryKind::Movie).isEmpty());
    library->unhideCategory(source, EntryKind::Live, u"c2"_s);
    QCOMPARE(sortedIdsOf(library->hiddenCategories(source, EntryKind::Live)), QStringList{u"c1"_s});
}

// ---- programme guides ----

void tst_Library::guideSettings()
{
    GuideSettings settings = library->guideSettings(source);
    GuideSettings atFirst;
    atFirst.source = source;
    QCOMPARE(settings, atFirst);
    QVERIFY(settings.refresh);
    QCOMPARE(settings.archiveForm, -1);

    settings.enabled = true;
    settings.addresses = u"http://h/g.xml\naccount"_s;
    settings.offsetSeconds = 1800;
    // The key is the source's, whatever else is set.
    settings.id = u"other"_s;
    settings.kind = EntryKind::Movie;
    QVERIFY(!library->setGuideSettings(settings).isEmpty());
    restart();
    const GuideSettings stored = library->guideSettings(source);
    QCOMPARE(stored.addresses, settings.addresses);
    QCOMPARE(stored.offsetSeconds, 1800);
    QVERIFY(stored.enabled);
    QVERIFY2(library->setGuideSettings(stored).isEmpty(), "nothing has changed");
    QVERIFY(!library->setGuideSettings(atFirst).isEmpty());
    QCOMPARE(library->guideSettings(source), atFirst);
    QCOMPARE(library->rows().guideSettings.size(), 1);
}

void tst_Library::guideCorrections()
{
    const LibraryEntry live = makeEntry(u"1"_s, EntryKind::Live);
    library->setGuideCorrection({live, u"one.tv"_s});
    library->setGuideCorrection({makeEntry(u"2"_s, EntryKind::Live), {}});
    QVERIFY2(library->setGuideCorrection({live, u"one.tv"_s}).isEmpty(), "nothing has changed");
    restart();
    const auto &corrections = library->guideCorrections(source, EntryKind::Live);
    QCOMPARE(corrections.value(u"1"_s), (GuideCorrection{live, u"one.tv"_s}));
    QVERIFY(corrections.contains(u"2"_s));
    QCOMPARE(corrections.value(u"2"_s).guideId, QString());
    QVERIFY(library->guideCorrections(source, EntryKind::Channel).isEmpty());
    library->removeGuideCorrection(live);
    QCOMPARE(sortedIdsOf(library->guideCorrections(source, EntryKind::Live)), QStringList{u"2"_s});
}

void tst_Library::reminders()
{
    const QList<Reminder> ordered{reminder(u"b"_s, 9), reminder(u"a"_s, 10, u"T"_s),
                                  reminder(u"a"_s, 100)};
    for (const qsizetype index : {2, 0, 1})
        library->addReminder(ordered.at(index));
    QVERIFY2(library->addReminder(ordered.at(0)).isEmpty(), "it is there already");
    QCOMPARE(library->reminders(), ordered);
    restart();
    QCOMPARE(library->reminders(), ordered);
    const LibraryChange undo = library->removeReminder(ordered.at(1));
    QCOMPARE(library->reminders(), (QList{ordered.at(0), ordered.at(2)}));
    library->apply(undo);
    QCOMPARE(library->reminders(), ordered);
}

// ---- all lists ----

/// They are not in memory when this program changes lists as a whole.
void tst_Library::rowsOfAnotherProgram()
{
    const auto watch = [](Library &one, const QString &prefix) {
        for (int id = 0; id < Library::recentlyWatchedCount; ++id) {
            one.noteWatched(makeEntry(prefix + QString::number(id), EntryKind::Live));
        }
        return one.flush();
    };
    QVERIFY(library->rows().favorites.isEmpty()); // so it has read the file
    {
        Library other(nullptr);
        other.addFavorite(makeEntry(u"1"_s, EntryKind::Movie, u"A"_s));
        other.addFavorite(makeEntry(u"1"_s, EntryKind::Movie, u"B"_s));
        QVERIFY(watch(other, u"other"_s));
    }
    library->forgetSource(u"A"_s);
    QVERIFY(watch(*library, u"own"_s));
    restart();
    QVERIFY(library->favorites(u"A"_s, EntryKind::Movie).isEmpty());
    QCOMPARE(library->favorites(u"B"_s, EntryKind::Movie).size(), 1);
    QCOMPARE(library->recentlyWatched(source, EntryKind::Live).size(),
             Library::recentlyWatchedCount);
}

void tst_Library::clearing()
{
    LibraryChange change;
    change.put = sampleRows();
    library->apply(change);
    // Another running program adds to the same file.
    Library(nullptr).addFavorite(makeEntry(u"other"_s));
    QVERIFY(!library->isEmpty(LibraryPart::Favorites));
    library->clear({LibraryPart::Favorites, LibraryPart::History});
    QVERIFY(library->isEmpty(LibraryPart::Favorites));
    QVERIFY(!library->isEmpty(LibraryPart::Progress));
    LibraryRows expected = sampleRows();
    expected.favorites.clear();
    expected.history.clear();
    QCOMPARE(library->rows(), expected);
    restart();
    QCOMPARE(library->rows(), expected);
}

void tst_Library::signalsPerList()
{
    QSignalSpy changed(library.get(), &Library::changed);
    library->addFavorite(makeEntry(u"1"_s));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.at(0).at(0).value<LibraryPart>(), LibraryPart::Favorites);
    QCOMPARE(changed.at(0).at(1).toString(), source);
    QCOMPARE(changed.at(0).at(2).value<EntryKind>(), EntryKind::Movie);
    library->addFavorite(makeEntry(u"1"_s));
    QCOMPARE(changed.size(), 1);
    library->setWatched({episode(1), episode(2)}, true);
    QCOMPARE(changed.size(), 2);
    library->renameSource(source, u"T"_s);
    QCOMPARE(changed.size(), 6); // two parts, the old and the new name
}

VANTIRO_TEST_GUILESS_MAIN(tst_Library)
#include "tst_Library.moc"
