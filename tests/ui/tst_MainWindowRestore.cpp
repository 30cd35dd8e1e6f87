#include "MoreMenuWindow.h"
#include "support/TestFiles.h"

#include <QDir>

// What the menu "More" restores from a backup, and what becomes of the active source then.

class tst_MainWindowRestore : public QObject, private MoreMenuWindow
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void restoresWhatIsGone();
    void aFileThatIsNoBackup();
    void activeSourceFollows_data();
    void activeSourceFollows();
    void lateReplyOfAChangedSource();
    void nothingIsKeptOfASourceThatWent();
    void restoringNothingButSources();
    void nothingLeftIsLikeDeletingTheLast();
    void allOrNothing_data();
    void allOrNothing();
};

void tst_MainWindowRestore::restoresWhatIsGone()
{
    openWith({u"a"_s, u"b"_s});
    library().addFavorite(film(u"b"_s, u"1"_s));
    library().notePosition(position(u"a"_s, u"2"_s));
    library().hideCategory(u"a"_s, EntryKind::Channel, {u"News"_s, u"News"_s});
    const LibraryRows before = library().rows();
    nextBacksUp(true);
    choose(u"Back Up..."_s);

    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    dialogs.nextClicks(u"Delete Source"_s);
    dialogs.nextClicks(u"Yes"_s);
    button(u"Edit Source..."_s).click();
    library().clear({LibraryPart::Progress, LibraryPart::HiddenCategories});
    QCOMPARE(library().rows(), LibraryRows());
    nextRestores(RestoreMode::Merge);
    choose(u"Restore..."_s);
    QCOMPARE(library().rows(), before);
    QCOMPARE(storedNames(), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(sourceNames(), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(combo().currentText(), u"a"_s);
    QCOMPARE(shownChannels(), QStringList{u"a"_s});
    // What is restored is stored, and can be used.
    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
}

void tst_MainWindowRestore::aFileThatIsNoBackup()
{
    openWith({u"a"_s});
    writeFile(backupFile(), "#EXTM3U\n"_ba);
    nextChoosesFile(backupFile());
    dialogs.nextClicks(u"OK"_s);
    choose(u"Restore..."_s);
    QCOMPARE(dialogs.seen().last().title, u"Restore"_s);
    QCOMPARE(dialogs.seen().last().text,
             u"This file is not a backup of Vantiro Player, or it is damaged."_s);
    QCOMPARE(storedNames(), QStringList{u"a"_s});
    QVERIFY(!QFile::exists(libraryFile()));
}

void tst_MainWindowRestore::activeSourceFollows_data()
{
    QTest::addColumn<QStringList>("backup"); ///< name=path
    QTest::addColumn<RestoreMode>("mode");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("channel");
    QTest::addColumn<int>("loads"); ///< in addition
    const auto row = [](const char *name, const QStringList &backup, RestoreMode mode,
                        const QStringList &names, const QString &current, const QString &channel,
                        int loads) {
        QTest::newRow(name) << backup << mode << names << current << channel << loads;
    };
    constexpr auto merge = RestoreMode::Merge;
    constexpr auto replace = RestoreMode::Replace;
    row("one is added", {u"c=/c"_s}, merge, {u"a"_s, u"b"_s, u"c"_s}, u"b"_s, u"b"_s, 0);
    row("another address does not count", {u"b=/c"_s, u"c=/c"_s}, merge, {u"a"_s, u"b"_s, u"c"_s},
        u"b"_s, u"b"_s, 0);
    row("it stays, the other goes", {u"c=/c"_s, u"b=/b"_s}, replace, {u"c"_s, u"b"_s}, u"b"_s,
        u"b"_s, 0);
    row("it is changed", {u"a=/a"_s, u"b=/c"_s}, replace, {u"a"_s, u"b"_s}, u"b"_s, u"c"_s, 1);
    row("it goes", {u"c=/c"_s, u"a=/a"_s}, replace, {u"c"_s, u"a"_s}, u"c"_s, u"c"_s, 1);
}

void tst_MainWindowRestore::activeSourceFollows()
{
    QFETCH(const QStringList, backup);
    QFETCH(const RestoreMode, mode);
    QFETCH(const QStringList, names);
    QFETCH(const QString, current);
    QFETCH(const QString, channel);
    QFETCH(const int, loads);
    openWith({u"a"_s, u"b"_s});
    combo().setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    const int requests = server->requestCount();

    LibraryBackup::Content content;
    for (const QString &source : backup) {
        content.sources << served(source.section(u'=', 0, 0), source.section(u'=', 1));
    }
    writeBackup(content);
    nextRestores(mode);
    choose(u"Restore..."_s);
    QCOMPARE(storedNames(), names);
    QCOMPARE(sourceNames(), names);
    QCOMPARE(combo().currentText(), current);
    QCOMPARE(storedLastActive(), current);
    QTRY_COMPARE(shownChannels(), QStringList{channel});
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(server->requestCount(), requests + loads);
}

void tst_MainWindowRestore::lateReplyOfAChangedSource()
{
    server->on(u"/b"_s, heldReply(oneChannel(u"b"_s)));
    openWith({u"a"_s, u"b"_s});
    combo().setCurrentIndex(1);
    QTRY_COMPARE(server->requestCount(u"/b"_s), 1);
    combo().setCurrentIndex(0);
    QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
    writeBackup({{stored(u"a"_s), served(u"b"_s, u"/c"_s)}, {}});
    nextRestores(RestoreMode::Replace);
    choose(u"Restore..."_s);
    server->release(u"/b"_s);
    QTRY_VERIFY(repliesUnderWay().isEmpty());
    QCOMPARE(cachedChannels(u"b"_s), notCached);
    QCOMPARE(shownChannels(), QStringList{u"a"_s});
}

void tst_MainWindowRestore::nothingIsKeptOfASourceThatWent()
{
    server->on(u"/stream"_s, heldReply());
    server->on(u"/a"_s, bodyReply("#EXTM3U\n#EXTINF:-1,a\n" + server->url(u"/stream"_s).toUtf8()));
    openWith({u"a"_s});
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
    window().playChannelRow(0, 0);
    const auto pressCtrlD = [this] {
        window().activateWindow(); // after the dialogs
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        find<QWidget>(u"playerPanel"_s).setFocus();
        QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    };
    pressCtrlD();
    QCOMPARE(library().rows().favorites.size(), 1);
    writeBackup({{served(u"b"_s, u"/b"_s)}, {}});
    nextRestores(RestoreMode::Replace);
    choose(u"Restore..."_s);
    QTRY_COMPARE(shownChannels(), QStringList{u"b"_s});
    // It goes on playing.
    pressCtrlD();
    QCOMPARE(library().rows(), LibraryRows());
}

void tst_MainWindowRestore::restoringNothingButSources()
{
    // The first start asks for a source, which the backup has.
    open();
    QTRY_COMPARE(dialogs.seen().size(), 1);
    writeBackup({{served(u"a"_s, u"/a"_s), served(u"b"_s, u"/b"_s)}, {}});
    nextRestores(RestoreMode::Merge);
    choose(u"Restore..."_s);
    QTRY_COMPARE(shownChannels(), QStringList{u"a"_s});
    QCOMPARE(sourceNames(), (QStringList{u"a"_s, u"b"_s}));
    QCOMPARE(dialogs.seen().size(), 3);
    QVERIFY(!QFile::exists(libraryFile()));
}

void tst_MainWindowRestore::nothingLeftIsLikeDeletingTheLast()
{
    openWith({u"a"_s});
    writeBackup({});
    nextRestores(RestoreMode::Replace);
    choose(u"Restore..."_s);
    QCOMPARE(sourceNames(), QStringList());
    QCOMPARE(storedNames(), QStringList());
    QCOMPARE(shownChannels(), QStringList());
    QTRY_COMPARE(dialogs.seen().size(), 3);
    QCOMPARE(dialogs.seen().last().title, u"Add Source"_s);
}

void tst_MainWindowRestore::allOrNothing_data()
{
    QTest::addColumn<QString>("inTheWay"); ///< a file or folder that cannot be written
    QTest::newRow("the library cannot be written") << u"library"_s;
    QTest::newRow("the sources cannot be stored") << u"settings"_s;
}

void tst_MainWindowRestore::allOrNothing()
{
    QFETCH(const QString, inTheWay);
#ifdef Q_OS_WIN
    if (inTheWay == "settings"_L1) {
        QSKIP("the registry can always be written");
    }
#endif
    openWith({u"a"_s});
    LibraryRows rows;
    rows.favorites = {{film(u"b"_s, u"1"_s), 1, 1}};
    writeBackup({{served(u"b"_s, u"/b"_s)}, rows});
    const QFileInfo settings(PrivateProfile::current().settingsFile());
    const QString aside = settings.path() + u".aside"_s;
    if (inTheWay == "library"_L1) {
        QVERIFY(QDir().mkpath(libraryFile()));
    } else {
        QVERIFY(QDir().rename(settings.path(), aside));
        writeFile(settings.path(), {});
    }
    nextRestores(RestoreMode::Replace);
    dialogs.nextClicks(u"OK"_s);
    choose(u"Restore..."_s);
    QCOMPARE(dialogs.seen().last().title, u"Restore"_s);
    QCOMPARE(dialogs.seen().last().text,
             u"The backup could not be restored. Everything is as it was."_s);
    if (inTheWay != "library"_L1) {
        QVERIFY(QFile::remove(settings.path()));
        QVERIFY(QDir().rename(aside, settings.path()));
    }
    QCOMPARE(library().rows(), LibraryRows());
    QCOMPARE(sourceNames(), QStringList{u"a"_s});
    QCOMPARE(storedNames(), QStringList{u"a"_s});
    QCOMPARE(shownChannels(), QStringList{u"a"_s});
}

VANTIRO_TEST_MAIN(tst_MainWindowRestore)
#include "tst_MainWindowRestore.moc"
