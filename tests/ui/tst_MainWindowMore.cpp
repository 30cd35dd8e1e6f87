#include "MoreMenuWindow.h"
#include "providers/SubscriptionEndpoint.h"
#include "support/TestFiles.h"

#include <QDateTime>

// The menu "More": the history, the making of a backup, the account and the program.

class tst_MainWindowMore : public QObject, private MoreMenuWindow
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void menuOffersWhatApplies();
    void clearedHistoryCanBeTakenBack();
    void backsUp_data();
    void backsUp();
    void aBackupTellsOfGuidesOnceUsed_data();
    void aBackupTellsOfGuidesOnceUsed();
    void cancelling_data();
    void cancelling();
    void aBackupThatCannotBeWritten();
    void accountIsAskedForOnlyThen();
    void subscriptionShowsItsExchangedAccount();
    void about();
};

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
