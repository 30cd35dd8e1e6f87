#include "WindowFixture.h"
#include "library/Library.h"
#include "library/LibraryBackup.h"
#include "library/RestorePlan.h"
#include "providers/SubscriptionEndpoint.h"
#include "support/TestFiles.h"

#include <QCheckBox>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QRadioButton>

// The menu "More": the history, the backup, the account and the program.

namespace {

QString backupFile()
{
    return PrivateProfile::current().root() + u"/backup.json"_s;
}

QString libraryFile()
{
    return PrivateProfile::current().appDataDir() + u"/library.sqlite"_s;
}

LibraryEntry film(const QString &source, const QString &id)
{
    return {source, EntryKind::Movie, id, u"Film "_s + id, u"1"_s};
}

Progress position(const QString &source, const QString &id)
{
    Progress at = progressOf(film(source, id));
    at.positionMs = 60'000;
    at.durationMs = 600'000;
    return at;
}

} // namespace

class tst_MainWindowMore : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void menuOffersWhatApplies();
    void clearedHistoryCanBeTakenBack();
    void backsUp_data();
    void backsUp();
    void aBackupTellsOfGuidesOnceUsed_data();
    void aBackupTellsOfGuidesOnceUsed();
    void cancelling_data();
    void cancelling();
    void aBackupThatCannotBeWritten();
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
    void accountIsAskedForOnlyThen();
    void subscriptionShowsItsExchangedAccount();
    void about();

private:
    Library &library() const { return *window().findChild<Library *>(); }
    /// Chooses a line of the menu by the mouse, and waits until its dialogs were answered.
    void choose(const QString &text);
    /// Whether the menu offers a line.
    bool offers(const QString &text);
    void nextChoosesFile(const QString &path);
    void nextBacksUp(bool withCredentials);
    void nextRestores(RestoreMode mode);
    /// Opens the window with playlists of these names, whose channel is named like them.
    void openWith(const QStringList &names);
    SourceConfig served(const QString &name, const QString &path) const;
    static void writeBackup(const LibraryBackup::Content &content);

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowMore::init()
{
    reset();
    QFile::remove(backupFile()); // which another backup would ask about
    server = std::make_unique<HttpServer>();
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        server->on(u'/' + name, bodyReply(oneChannel(name)));
    }
}

void tst_MainWindowMore::choose(const QString &text)
{
    bool found = false;
    dialogs.nextMenu([&text, &found](QMenu &menu) {
        const QList<QAction *> actions = menu.actions();
        for (QAction *action : actions) {
            if (action->text() == text) {
                found = true;
                QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
            }
        }
    });
    button(u"More"_s).click();
    QTRY_COMPARE(dialogs.waiting(), 0);
    QVERIFY(found);
    QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
}

bool tst_MainWindowMore::offers(const QString &text)
{
    bool offered = false;
    dialogs.nextMenu([&text, &offered](QMenu &menu) {
        const QList<QAction *> actions = menu.actions();
        for (const QAction *action : actions) {
            offered = offered || (action->text() == text && action->isEnabled());
        }
    });
    button(u"More"_s).click();
    [this] { QTRY_COMPARE(dialogs.waiting(), 0); }();
    return offered;
}

void tst_MainWindowMore::nextChoosesFile(const QString &path)
{
    dialogs.next([path](QDialog &dialog) {
        auto &chooser = dynamic_cast<QFileDialog &>(dialog);
        QCOMPARE(chooser.nameFilters(), (QStringList{u"Backups (*.json)"_s, u"All Files (*)"_s}));
        chooser.selectFile(path);
        dialog.accept();
    });
}

void tst_MainWindowMore::nextBacksUp(bool withCredentials)
{
    dialogs.next([withCredentials](QDialog &dialog) {
        auto &box = dynamic_cast<QMessageBox &>(dialog);
        QVERIFY(!box.checkBox()->isChecked());
        box.checkBox()->setChecked(withCredentials);
        QVERIFY(DialogAnswers::click(dialog, u"Save"_s));
    });
    nextChoosesFile(backupFile());
}

void tst_MainWindowMore::nextRestores(RestoreMode mode)
{
    nextChoosesFile(backupFile());
    dialogs.next([mode](QDialog &dialog) {
        if (mode == RestoreMode::Replace) {
            dialog.findChild<QRadioButton *>(u"replaceButton"_s)->click();
        }
        QVERIFY(DialogAnswers::click(dialog, u"Restore"_s));
    });
}

SourceConfig tst_MainWindowMore::served(const QString &name, const QString &path) const
{
    return playlistSource(name, server->url(path), neverLoaded);
}

void tst_MainWindowMore::openWith(const QStringList &names)
{
    for (const QString &name : names) {
        store(served(name, u'/' + name));
    }
    open();
    [&] { QTRY_COMPARE(shownChannels(), QStringList{names.at(0)}); }();
}

void tst_MainWindowMore::writeBackup(const LibraryBackup::Content &content)
{
    QString error;
    QVERIFY2(LibraryBackup::save(backupFile(), content, true, error), qPrintable(error));
}

void tst_MainWindowMore::menuOffersWhatApplies()
{
    const QString clear = u"Clear History..."_s;
    const QString account = u"Account Information..."_s;
    cacheCatalog(u"Account"_s, madeUpCatalog(u"Some"_s));
    store(served(u"a"_s, u"/a"_s));
    store(accountSource(u"Account"_s, u"http://127.0.0.1:9"_s));
    open();
    for (const QString &always : {u"Back Up..."_s, u"Restore..."_s, u"About"_s}) {
        QVERIFY2(offers(always), qPrintable(always));
    }
    QVERIFY(!offers(clear));
    QVERIFY(!offers(account));
    // Looking at the menu makes no file.
    QVERIFY(!QFile::exists(libraryFile()));
    combo().setCurrentIndex(1);
    QVERIFY(offers(account));
    const LibraryChange watched = library().noteWatched(film(u"a"_s, u"1"_s));
    QVERIFY(offers(clear));
    library().apply(watched);
    QVERIFY(!offers(clear));
    library().notePosition(position(u"a"_s, u"1"_s));
    QVERIFY(offers(clear));
}

void tst_MainWindowMore::clearedHistoryCanBeTakenBack()
{
    openWith({u"a"_s});
    library().addFavorite(film(u"a"_s, u"1"_s));
    library().noteWatched(film(u"a"_s, u"2"_s));
    library().notePosition(position(u"b"_s, u"3"_s));
    const LibraryRows before = library().rows();

    choose(u"Clear History..."_s); // and no answer, which cancels it
    QCOMPARE(library().rows(), before);
    dialogs.nextClicks(u"Clear"_s);
    choose(u"Clear History..."_s);
    QCOMPARE(dialogs.seen().last().title, u"Clear History"_s);
    LibraryRows cleared;
    cleared.favorites = before.favorites;
    QCOMPARE(library().rows(), cleared);
    QCOMPARE(find<QLabel>(u"undoLabel"_s).text(), u"History cleared"_s);
    find<QPushButton>(u"undoButton"_s).click();
    QCOMPARE(library().rows(), before);
}

void tst_MainWindowMore::backsUp_data()
{
    QTest::addColumn<bool>("withCredentials");
    QTest::newRow("without credentials") << false;
    QTest::newRow("with credentials") << true;
}

void tst_MainWindowMore::backsUp()
{
    QFETCH(const bool, withCredentials);
    cacheCatalog(u"Account"_s, madeUpCatalog(u"Some"_s));
    store(accountSource(u"Account"_s, u"http://127.0.0.1:9"_s));
    open();
    library().addFavorite(film(u"Account"_s, u"1"_s));
    nextBacksUp(withCredentials);
    choose(u"Back Up..."_s);
    QCOMPARE(dialogs.seen().size(), 2);

    QString error;
    const auto content = LibraryBackup::load(backupFile(), error);
    QVERIFY2(content, qPrintable(error));
    QCOMPARE(content->rows, library().rows());
    QCOMPARE(content->sources.at(0).name, u"Account"_s);
    QCOMPARE(content->sources.at(0).password, withCredentials ? u"p"_s : QString());
    QCOMPARE(content->hasCredentials, withCredentials);

    // Cancelled at either dialog, it writes nothing.
    QVERIFY(QFile::remove(backupFile()));
    choose(u"Back Up..."_s);
    dialogs.nextClicks(u"Save"_s);
    choose(u"Back Up..."_s);
    QVERIFY(!QFile::exists(backupFile()));
}

/// At any of their steps.
void tst_MainWindowMore::aBackupTellsOfGuidesOnceUsed_data()
{
    QTest::addColumn<LibraryChange>("change");
    const auto row = [](const char *name, const auto &set) {
        LibraryChange change;
        set(change.put);
        QTest::newRow(name) << change;
    };
    const LibraryEntry one{u"S"_s, EntryKind::Channel, u"http://h/1"_s, u"One"_s, {}};
    row("nothing", [](LibraryRows &) {});
    row("a guide", [](LibraryRows &rows) {
        GuideSettings settings;
        settings.source = u"S"_s;
        rows.guideSettings = {settings};
    });
    row("a channel of a guide", [&one](LibraryRows &rows) {
        rows.guideCorrections = {{one, u"one.tv"_s}};
    });
    row("a reminder", [&one](LibraryRows &rows) {
        const qint64 later = QDateTime::currentSecsSinceEpoch() + 3600;
        rows.reminders = {reminderOf(one, later, later + 60, u"News"_s)};
    });
}

void tst_MainWindowMore::aBackupTellsOfGuidesOnceUsed()
{
    QFETCH(const LibraryChange, change);
    open();
    library().apply(change);
    choose(u"Back Up..."_s);
    QCOMPARE(dialogs.seen().last().text.contains(u"programme guides and reminders"_s),
             !change.isEmpty());
}

void tst_MainWindowMore::cancelling_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("accepted"); ///< how many of the dialogs
    QTest::newRow("the backup") << u"Back Up..."_s << 0;
    QTest::newRow("the backup's file") << u"Back Up..."_s << 1;
    QTest::newRow("the file to restore") << u"Restore..."_s << 0;
    QTest::newRow("restoring it") << u"Restore..."_s << 1;
}

void tst_MainWindowMore::cancelling()
{
    QFETCH(const QString, line);
    QFETCH(const int, accepted);
    openWith({u"a"_s});
    const bool restores = line == "Restore..."_L1;
    if (restores) {
        writeBackup({{served(u"b"_s, u"/b"_s)}, {}});
    }
    const QByteArray before = readFile(backupFile());
    if (accepted > 0 && restores) {
        nextChoosesFile(backupFile());
    } else if (accepted > 0) {
        dialogs.nextClicks(u"Save"_s);
    }
    dialogs.next([](QDialog &dialog) { dialog.reject(); });
    choose(line);
    QCOMPARE(dialogs.seen().size(), accepted + 1);
    QCOMPARE(storedNames(), QStringList{u"a"_s});
    QCOMPARE(readFile(backupFile()), before);
}

void tst_MainWindowMore::aBackupThatCannotBeWritten()
{
    openWith({u"a"_s});
    dialogs.nextClicks(u"Save"_s);
    // In a folder that is not there.
    nextChoosesFile(PrivateProfile::current().root() + u"/none/backup.json"_s);
    dialogs.nextClicks(u"OK"_s);
    choose(u"Back Up..."_s);
    QCOMPARE(dialogs.seen().last().title, u"Back Up"_s);
    QVERIFY2(dialogs.seen().last().text.startsWith(u"The backup cannot be written: "_s),
             qPrintable(dialogs.seen().last().text));
}

void tst_MainWindowMore::restoresWhatIsGone()
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

void tst_MainWindowMore::aFileThatIsNoBackup()
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

void tst_MainWindowMore::activeSourceFollows_data()
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

void tst_MainWindowMore::activeSourceFollows()
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

void tst_MainWindowMore::lateReplyOfAChangedSource()
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

void tst_MainWindowMore::nothingIsKeptOfASourceThatWent()
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

void tst_MainWindowMore::restoringNothingButSources()
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

void tst_MainWindowMore::nothingLeftIsLikeDeletingTheLast()
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

void tst_MainWindowMore::allOrNothing_data()
{
    QTest::addColumn<QString>("inTheWay"); ///< a file or folder that cannot be written
    QTest::newRow("the library cannot be written") << u"library"_s;
    QTest::newRow("the sources cannot be stored") << u"settings"_s;
}

void tst_MainWindowMore::allOrNothing()
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

void tst_MainWindowMore::accountIsAskedForOnlyThen()
{
    XtreamProvider provider;
    serve(provider, madeUpCatalog(u"New"_s));
    provider.setReply(XtreamAction::login, R"({"user_info":{"auth":1,"status":"Active"}})"_ba);
    store(sourceFor(provider, u"Home"_s));
    open();
    QTRY_COMPARE(provider.actions().size(), 6);
    QTRY_VERIFY(!overlayShown());
    QVERIFY(offers(u"Account Information..."_s));
    QCOMPARE(provider.requestCount(XtreamAction::login), 0);

    QString status;
    dialogs.next([&status](QDialog &dialog) {
        const auto find = [&dialog, &status] {
            const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
            for (const QLabel *label : labels) {
                if (label->accessibleName() == "Status"_L1) {
                    status = label->text();
                }
            }
            return !status.isEmpty();
        };
        QVERIFY(QTest::qWaitFor(find));
        dialog.reject();
    });
    choose(u"Account Information..."_s);
    QCOMPARE(status, u"Active"_s);
    QCOMPARE(provider.requestCount(XtreamAction::login), 1);
}

void tst_MainWindowMore::subscriptionShowsItsExchangedAccount()
{
    SubscriptionEndpoint endpoint;
    XtreamProvider provider(u"joe"_s, u"exchanged"_s);
    store(subscriptionSource(u"Sub"_s, u"key"_s));
    // As long as the key was not exchanged, there is no account.
    open(endpoint.url());
    QTRY_COMPARE(dialogs.seen().size(), 1); // the exchange has failed
    QVERIFY(!offers(u"Account Information..."_s));
    endpoint.accept(u"key"_s, provider);
    window().refreshActiveSource();
    QTRY_COMPARE(provider.actions().size(), 6);

    dialogs.next([&provider](QDialog &dialog) {
        const auto isAsked = [&provider] {
            return provider.requestCount(XtreamAction::login) == 1;
        };
        QVERIFY(QTest::qWaitFor(isAsked));
        dialog.reject();
    });
    choose(u"Account Information..."_s);
    const HttpRequest request = provider.http().requests().last();
    QCOMPARE(request.queryValue(u"username"_s), u"joe"_s);
    QCOMPARE(request.queryValue(u"password"_s), u"exchanged"_s);
    QCOMPARE(endpoint.keys().size(), 2);
}

void tst_MainWindowMore::about()
{
    QCoreApplication::setApplicationVersion(u"1.2.3"_s);
    openWith({u"a"_s});
    dialogs.nextClicks(u"OK"_s);
    choose(u"About"_s);
    const SeenDialog &box = dialogs.seen().last();
    QCOMPARE(box.title, u"About"_s);
    for (const QString &part :
         {u"Vantiro Player 1.2.3\n"_s, u"Qt "_s + QLatin1StringView(qVersion()), u"libVLC 3."_s,
          u"LGPL"_s, u"RapidJSON (MIT)"_s}) {
        QVERIFY2(box.text.contains(part), qPrintable(part));
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowMore)
#include "tst_MainWindowMore.moc"
