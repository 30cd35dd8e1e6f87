#include "library/Library.h"
#include "library/LibraryFixture.h"
#include "library/RestorePlan.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What restoring a backup does, and that it does what it announces.

namespace {

using Content = LibraryBackup::Content;

SourceConfig source(const QString &name, const QString &url = u"http://h"_s,
                    const QString &password = u"secret"_s)
{
    SourceConfig config = defaultSourceConfig();
    config.type = SourceType::Xtream;
    config.name = name;
    config.url = url;
    config.username = u"user"_s;
    config.password = password;
    config.userAgent = u"Tv/1.0"_s;
    config.lastUpdated = 9;
    return config;
}

QStringList namesOf(const QList<SourceConfig> &sources)
{
    QStringList names;
    for (const SourceConfig &config : sources)
        names << config.name;
    return names;
}

/// As a user sees it after the backup was written to a file and read again.
Content throughAFile(const Content &content, bool withCredentials)
{
    QString error;
    return *LibraryBackup::read(LibraryBackup::write(content, withCredentials), error);
}

Favorite favorite(const QString &id, qint64 place, EntryKind kind = EntryKind::Movie)
{
    return {makeEntry(id, kind), place, 0};
}

WatchedEntry watched(const QString &id, qint64 time)
{
    return {makeEntry(id), time};
}

Progress progress(const QString &id, qint64 positionMs, qint64 time)
{
    Progress row = progressOf(makeEntry(id));
    row.positionMs = positionMs;
    row.updatedAt = time;
    return row;
}

} // namespace

Q_DECLARE_METATYPE(RestoreMode)
Q_DECLARE_METATYPE(RestoreCounts)

class tst_RestorePlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void sources_data();
    void sources();
    void sourcesWithoutCredentials();
    void ownBackupChangesNothing_data();
    void ownBackupChangesNothing();
    void emptyLibraryGetsAll();
    void mergedFavorites();
    void mergedTimes();
    void mergedGuideSettings();
    void replacing();
    void rowsTwice();
    void channelsWithoutCredentials();
    void guideAddressesWithoutCredentials();

private:
    /// Carries the plan out on a library that holds `before`.
    static LibraryRows carryOut(const LibraryRows &before, const RestorePlan &plan);
};

void tst_RestorePlan::init()
{
    PrivateProfile::current().clear();
}

LibraryRows tst_RestorePlan::carryOut(const LibraryRows &before, const RestorePlan &plan)
{
    LibraryChange change;
    change.put = before;
    Library library(nullptr);
    library.apply(change);
    return library.applyNow(plan.change) ? library.rows() : LibraryRows();
}

void tst_RestorePlan::sources_data()
{
    QTest::addColumn<RestoreMode>("mode");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("urlOfB");
    QTest::addColumn<RestoreCounts>("counts");
    QTest::newRow("merge") << RestoreMode::Merge << QStringList{u"A"_s, u"B"_s, u"C"_s}
                           << u"http://current"_s << RestoreCounts{1, 0, 0};
    QTest::newRow("replace") << RestoreMode::Replace << QStringList{u"C"_s, u"B"_s}
                             << u"http://backup"_s << RestoreCounts{1, 1, 1};
}

void tst_RestorePlan::sources()
{
    QFETCH(RestoreMode, mode);
    QFETCH(QStringList, names);
    QFETCH(QString, urlOfB);
    QFETCH(RestoreCounts, counts);
    const Content current{{source(u"A"_s), source(u"B"_s, u"http://current"_s)}, {}, true};
    const Content backup{{source(u"C"_s), source(u"B"_s, u"http://backup"_s)}, {}, true};
    const RestorePlan plan = planRestore(current, backup, mode);
    QCOMPARE(namesOf(plan.sources), names);
    QCOMPARE(plan.sources.at(1).url, urlOfB);
    QCOMPARE(plan.sourceCounts, counts);
    QVERIFY(plan.change.isEmpty());
}

void tst_RestorePlan::sourcesWithoutCredentials()
{
    const QString url = u"http://h/get.php?username=u&password=secret"_s;
    const Content current{
        {source(u"A"_s), source(u"B"_s, url), source(u"C"_s), source(u"D"_s), source(u"E"_s)},
        {},
        true};
    Content backup = throughAFile(current, false);
    backup.sources[2].username = u"another"_s;
    backup.sources[3].type = SourceType::Zevrino;
    backup.sources[4].url = u"http://another"_s;
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Replace);
    QCOMPARE(plan.sourceCounts, (RestoreCounts{0, 3, 0}));
    QCOMPARE(plan.sources.at(0).password, u"secret"_s);
    QCOMPARE(plan.sources.at(0).lastUpdated, 9);
    QCOMPARE(plan.sources.at(1).url, url);
    for (const int place : {2, 3, 4}) {
        QVERIFY2(plan.sources.at(place).password.isEmpty(), "it is another account's password");
    }
}

void tst_RestorePlan::ownBackupChangesNothing_data()
{
    QTest::addColumn<RestoreMode>("mode");
    QTest::addColumn<bool>("withCredentials");
    QTest::newRow("merge") << RestoreMode::Merge << true;
    QTest::newRow("replace") << RestoreMode::Replace << true;
    QTest::newRow("merge, without credentials") << RestoreMode::Merge << false;
    QTest::newRow("replace, without credentials") << RestoreMode::Replace << false;
}

void tst_RestorePlan::ownBackupChangesNothing()
{
    QFETCH(RestoreMode, mode);
    QFETCH(bool, withCredentials);
    Content content{{source(u"A"_s)}, sampleRows(), true};
    content.rows.favorites.append(
        favorite(u"http://h/live/user/secret/1.ts"_s, 3, EntryKind::Channel));
    content.rows.guideSettings[0].addresses = u"account\nhttp://h/g.xml?password=secret"_s;
    const LibraryEntry channel = makeEntry(u"http://h/live/user/secret/2.ts"_s, EntryKind::Channel);
    content.rows.guideCorrections = {{channel, u"two.tv"_s}};
    content.rows.reminders = {reminderOf(channel, 1, 2, u"One"_s),
                              reminderOf(channel, 3, 4, u"Two"_s)};
    const RestorePlan plan = planRestore(content, throughAFile(content, withCredentials), mode);
    QVERIFY(plan.change.isEmpty());
    QCOMPARE(plan.sourceCounts, RestoreCounts());
    QCOMPARE(plan.favoriteCounts, RestoreCounts());
    QCOMPARE(plan.progressCounts, RestoreCounts());
}

void tst_RestorePlan::emptyLibraryGetsAll()
{
    const RestorePlan plan = planRestore({}, {{}, sampleRows(), true}, RestoreMode::Merge);
    for (const RestoreCounts &counts :
         {plan.favoriteCounts, plan.historyCounts, plan.progressCounts, plan.hiddenCategoryCounts,
          plan.guideSettingsCounts, plan.guideCorrectionCounts, plan.reminderCounts,
          plan.languageCounts})
        QCOMPARE(counts, (RestoreCounts{1, 0, 0}));
    QCOMPARE(carryOut({}, plan), sampleRows());
}

void tst_RestorePlan::mergedFavorites()
{
    Content current;
    current.rows.favorites = {favorite(u"b"_s, 1), favorite(u"a"_s, 5)};
    Content backup;
    backup.rows.favorites = {favorite(u"d"_s, 1), favorite(u"a"_s, 2), favorite(u"c"_s, 3)};
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Merge);
    QCOMPARE(plan.favoriteCounts, (RestoreCounts{2, 0, 0}));
    LibraryRows after = carryOut(current.rows, plan);
    std::sort(after.favorites.begin(), after.favorites.end(),
              [](const Favorite &one, const Favorite &other) { return one.place < other.place; });
    QCOMPARE(idsOf(after.favorites), (QStringList{u"b"_s, u"a"_s, u"d"_s, u"c"_s}));
}

void tst_RestorePlan::mergedTimes()
{
    Content current;
    current.rows.history = {watched(u"old"_s, 5), watched(u"new"_s, 5)};
    current.rows.progress = {progress(u"old"_s, 1, 5), progress(u"new"_s, 1, 5)};
    Content backup;
    backup.rows.history = {watched(u"old"_s, 4), watched(u"new"_s, 6)};
    backup.rows.progress = {progress(u"old"_s, 2, 4), progress(u"new"_s, 2, 6)};
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Merge);
    QCOMPARE(plan.historyCounts, (RestoreCounts{0, 1, 0}));
    QCOMPARE(plan.progressCounts, (RestoreCounts{0, 1, 0}));
    QCOMPARE(plan.change.put.history, QList{watched(u"new"_s, 6)});
    QCOMPARE(plan.change.put.progress, QList{progress(u"new"_s, 2, 6)});
}

void tst_RestorePlan::mergedGuideSettings()
{
    Content current;
    current.rows.guideSettings = sampleRows().guideSettings;
    current.rows.guideCorrections = sampleRows().guideCorrections;
    current.rows.languages = sampleRows().languages;
    Content backup = current;
    backup.rows.guideSettings[0].offsetSeconds = 3600;
    backup.rows.guideCorrections[0].guideId = u"another.tv"_s;
    backup.rows.languages[0].audio = u"fr"_s;
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Merge);
    QVERIFY2(plan.change.isEmpty(), "what is there stays as it is");
}

void tst_RestorePlan::replacing()
{
    Content current;
    current.rows.favorites = {favorite(u"a"_s, 1), favorite(u"b"_s, 2), favorite(u"c"_s, 3)};
    current.rows.hiddenCategories = sampleRows().hiddenCategories;
    current.rows.guideSettings = sampleRows().guideSettings;
    current.rows.guideCorrections = sampleRows().guideCorrections;
    current.rows.reminders = sampleRows().reminders;
    current.rows.languages = sampleRows().languages;
    Content backup;
    backup.rows.favorites = {favorite(u"a"_s, 1), favorite(u"b"_s, 9), favorite(u"d"_s, 3)};
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Replace);
    QCOMPARE(plan.favoriteCounts, (RestoreCounts{1, 1, 1}));
    for (const RestoreCounts &counts : {plan.hiddenCategoryCounts, plan.guideSettingsCounts,
                                        plan.guideCorrectionCounts, plan.reminderCounts})
        QCOMPARE(counts, (RestoreCounts{0, 0, 1}));
    const LibraryRows after = carryOut(current.rows, plan);
    QCOMPARE(after.favorites.size(), 3);
    for (const Favorite &row : std::as_const(backup.rows.favorites))
        QVERIFY(after.favorites.contains(row));
    QVERIFY(after.hiddenCategories.isEmpty());
    QVERIFY(after.guideSettings.isEmpty());
    QVERIFY(after.guideCorrections.isEmpty());
    QVERIFY(after.reminders.isEmpty());
    QVERIFY(after.languages.isEmpty());
}

void tst_RestorePlan::rowsTwice()
{
    Content backup;
    backup.rows.favorites = {favorite(u"a"_s, 1), favorite(u"a"_s, 2)};
    const RestorePlan plan = planRestore({}, backup, RestoreMode::Replace);
    QCOMPARE(plan.favoriteCounts, (RestoreCounts{1, 0, 0}));
    QCOMPARE(plan.change.put.favorites, QList{favorite(u"a"_s, 2)});
}

void tst_RestorePlan::channelsWithoutCredentials()
{
    const auto channel = [](int number, qint64 place) {
        const QString url = u"http://h/live/user/secret/%1.ts"_s.arg(number);
        return Favorite{
            {u"S"_s, EntryKind::Channel, url, u"Channel %1"_s.arg(number), u"c1"_s}, place, 0};
    };
    Content complete;
    complete.rows.favorites = {channel(1, 1), channel(2, 2)};
    const Content backup = throughAFile(complete, false);
    Content current;
    current.rows.favorites = {channel(1, 1)};
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Replace);
    QCOMPARE(plan.favoriteCounts, (RestoreCounts{1, 0, 0}));
    QCOMPARE(idsOf(plan.change.put.favorites), QStringList{u"http://h/live/user/***/2.ts"_s});

    // With the playlist it gets its URL.
    LibraryChange change;
    change.put = current.rows;
    Library library(nullptr);
    library.apply(change);
    QVERIFY(library.applyNow(plan.change));
    QList<MediaItem> items(2);
    for (int index = 0; index < 2; ++index) {
        items[index].id = channel(index + 1, 0).id;
        items[index].name = channel(index + 1, 0).name;
        items[index].categoryId = u"c1"_s;
    }
    library.followEntries(u"S"_s, EntryKind::Channel, items);
    QVERIFY(library.flush());
    QCOMPARE(sortedIdsOf(library.favorites(u"S"_s, EntryKind::Channel)),
             (QStringList{items.at(0).id, items.at(1).id}));
}

void tst_RestorePlan::guideAddressesWithoutCredentials()
{
    const auto settings = [](const QString &name, const QString &addresses) {
        GuideSettings row;
        row.source = name;
        row.addresses = addresses;
        return row;
    };
    const QString one = u"http://h/1.xml?password=secret"_s;
    const QString two = u"http://h/2.xml?password=secret"_s;
    Content complete;
    complete.rows.guideSettings = {settings(u"A"_s, one + u'\n' + two), settings(u"B"_s, two)};
    const Content backup = throughAFile(complete, false);
    Content current;
    current.rows.guideSettings = {settings(u"A"_s, two)};
    const RestorePlan plan = planRestore(current, backup, RestoreMode::Replace);
    QCOMPARE(plan.change.put.guideSettings.size(), 2);
    for (const GuideSettings &row : plan.change.put.guideSettings) {
        QCOMPARE(row.addresses, row.source == u'A' ? u"http://h/1.xml?password=***\n"_s + two
                                                   : u"http://h/2.xml?password=***"_s);
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_RestorePlan)
#include "tst_RestorePlan.moc"
