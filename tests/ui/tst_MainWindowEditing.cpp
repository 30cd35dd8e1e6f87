#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/SourceDialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Fills the form for a playlist and accepts it.
void acceptPlaylist(QDialog &dialog, const QString &name, const QString &url)
{
    dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(0);
    dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(name);
    dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->setText(url);
    QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
}

} // namespace

/// Adding, editing and deleting sources through the form.
class tst_MainWindowEditing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void addingStoresSelectsAndLoads();
    void addingCancelledChangesNothing();
    void invalidInputIsRefused_data();
    void invalidInputIsRefused();
    void aFileThatCannotBeCopiedIsRefused_data();
    void aFileThatCannotBeCopiedIsRefused();
    void addingAnExistingNameReplacesTheStoredOne();
    void editingFetchesAfresh();
    void renamingKeepsThePlaceInTheList();
    void editingCancelledChangesNothing();
    void editingWithoutASourceOpensNothing();
    void deletingLoadsTheNextSource();
    void deletingDeclinedChangesNothing();
    void deletingTheLastStopsEverything();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowEditing::init()
{
    server = std::make_unique<HttpServer>();
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s}) {
        server->on(u'/' + name, bodyReply(oneChannel(name)));
    }
}

void tst_MainWindowEditing::addingStoresSelectsAndLoads()
{
    WindowFixture fixture;
    // The first start asks for the first source by itself.
    fixture.dialogs.next(
        [this](QDialog &dialog) { acceptPlaylist(dialog, u"A"_s, server->url(u"/a"_s)); });
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    QCOMPARE(server->requestCount(u"/a"_s), 1);

    fixture.dialogs.next(
        [this](QDialog &dialog) { acceptPlaylist(dialog, u"B"_s, server->url(u"/b"_s)); });
    fixture.button(u"Add Source..."_s).click();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(server->requestCount(u"/b"_s), 1);
    QCOMPARE(server->requestCount(u"/a"_s), 1);
    QCOMPARE(WindowFixture::storedNames(), (QStringList{u"A"_s, u"B"_s}));
    QCOMPARE(WindowFixture::storedLastActive(), u"B"_s);
    QCOMPARE(sourceNames(fixture), (QStringList{u"A"_s, u"B"_s}));
    QCOMPARE(fixture.find<QComboBox>(u"sourceCombo"_s).currentIndex(), 1);
}

void tst_MainWindowEditing::addingCancelledChangesNothing()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next([](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"serverEdit"_s)->setText(u"http://127.0.0.1:9"_s);
        QVERIFY(DialogAnswers::click(dialog, u"Cancel"_s));
    });
    fixture.button(u"Add Source..."_s).click();
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"A"_s});
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
}

void tst_MainWindowEditing::invalidInputIsRefused_data()
{
    QTest::addColumn<bool>("editing");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const QString url = u"Please provide a valid URL/path."_s;
    const QString key = u"Please provide a valid subscription key."_s;
    QTest::newRow("add a playlist without a URL") << false << 0 << url;
    QTest::newRow("add an account without a server") << false << 1 << url;
    QTest::newRow("add a subscription without a key") << false << 2 << key;
    QTest::newRow("edit to a playlist without a URL") << true << 0 << url;
    QTest::newRow("edit to an account without a server") << true << 1 << url;
    QTest::newRow("edit to a subscription without a key") << true << 2 << key;
}

void tst_MainWindowEditing::invalidInputIsRefused()
{
    QFETCH(bool, editing);
    QFETCH(int, type);
    QFETCH(QString, text);
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next([type](QDialog &dialog) {
        dialog.findChild<QComboBox *>(u"typeCombo"_s)->setCurrentIndex(type);
        // Blanks are no address.
        for (const QString &name : {u"m3uUrlEdit"_s, u"serverEdit"_s, u"keyEdit"_s}) {
            dialog.findChild<QLineEdit *>(name)->setText(u"  "_s);
        }
        QVERIFY(DialogAnswers::click(dialog, u"OK"_s));
    });
    fixture.dialogs.nextClicks(u"OK"_s);
    const QString title = editing ? u"Edit Source"_s : u"Add Source"_s;
    fixture.button(title + "..."_L1).click();

    QCOMPARE(fixture.dialogs.seen().size(), 2);
    QCOMPARE(fixture.dialogs.seen().at(1).title, title);
    QCOMPARE(fixture.dialogs.seen().at(1).text, text);
    QCOMPARE(fixture.dialogs.seen().at(1).buttons, QStringList{u"OK"_s});
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"A"_s});
    QCOMPARE(WindowFixture::stored(u"A"_s).type, SourceType::Playlist);
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowEditing::aFileThatCannotBeCopiedIsRefused_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("adding") << u"Add Source"_s;
    QTest::newRow("editing") << u"Edit Source"_s;
}

void tst_MainWindowEditing::aFileThatCannotBeCopiedIsRefused()
{
    QFETCH(QString, title);
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"list.m3u"_s);
    QFile chosen(path);
    QVERIFY(chosen.open(QIODevice::WriteOnly));
    // A file stands where the folder of the copies belongs.
    QDir().mkpath(PrivateProfile::current().appDataDir());
    QFile inTheWay(PrivateProfile::current().appDataDir() + "/playlists"_L1);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));

    fixture.dialogs.next([&](QDialog &dialog) { acceptPlaylist(dialog, u"New"_s, path); });
    fixture.dialogs.nextClicks(u"OK"_s);
    fixture.button(title + "..."_L1).click();
    QCOMPARE(fixture.dialogs.seen().size(), 2);
    QCOMPARE(fixture.dialogs.seen().at(1).title, title);
    QVERIFY(fixture.dialogs.seen().at(1).text.startsWith(
        u"The playlist \"%1\" could not be copied: "_s.arg(path)));
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"A"_s});
    QCOMPARE(WindowFixture::stored(u"A"_s).url, server->url(u"/a"_s));
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
    QCOMPARE(server->requestCount(), 1);
}

void tst_MainWindowEditing::addingAnExistingNameReplacesTheStoredOne()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next(
        [this](QDialog &dialog) { acceptPlaylist(dialog, u"A"_s, server->url(u"/b"_s)); });
    fixture.button(u"Add Source..."_s).click();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(sourceNames(fixture), (QStringList{u"A"_s, u"C"_s, u"A"_s}));
    QCOMPARE(WindowFixture::storedNames(), (QStringList{u"A"_s, u"C"_s}));
    QCOMPARE(WindowFixture::stored(u"A"_s).url, server->url(u"/b"_s));

    // The first item, too, now selects the one stored source, by now from the cache.
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(1);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"c"_s});
    fixture.find<QComboBox>(u"sourceCombo"_s).setCurrentIndex(0);
    QCOMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(server->requestCount(u"/a"_s), 1);
}

void tst_MainWindowEditing::editingFetchesAfresh()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.nextClicks(u"OK"_s);
    fixture.button(u"Edit Source..."_s).click();
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Edit Source"_s);
    QTRY_COMPARE(server->requestCount(u"/a"_s), 2);
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
}

void tst_MainWindowEditing::renamingKeepsThePlaceInTheList()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next(
        [this](QDialog &dialog) { acceptPlaylist(dialog, u"New"_s, server->url(u"/b"_s)); });
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"b"_s});
    QCOMPARE(sourceNames(fixture), (QStringList{u"New"_s, u"C"_s}));
    QCOMPARE(fixture.find<QComboBox>(u"sourceCombo"_s).currentIndex(), 0);
    QStringList names = WindowFixture::storedNames();
    names.sort();
    QCOMPARE(names, (QStringList{u"C"_s, u"New"_s}));
    QCOMPARE(WindowFixture::storedLastActive(), u"New"_s);
    QCOMPARE(server->requestCount(), 2);
}

void tst_MainWindowEditing::editingCancelledChangesNothing()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next([](QDialog &dialog) {
        dialog.findChild<QLineEdit *>(u"m3uNameEdit"_s)->setText(u"Other"_s);
        QVERIFY(DialogAnswers::click(dialog, u"Cancel"_s));
    });
    fixture.button(u"Edit Source..."_s).click();
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"A"_s});
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowEditing::editingWithoutASourceOpensNothing()
{
    WindowFixture fixture;
    fixture.open();
    QTRY_COMPARE(fixture.dialogs.seen().size(), 1);
    fixture.button(u"Edit Source..."_s).click();
    QCOMPARE(fixture.dialogs.seen().size(), 1);
}

void tst_MainWindowEditing::deletingLoadsTheNextSource()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    WindowFixture::store(playlistSource(u"C"_s, server->url(u"/c"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.nextClicks(u"Delete Source"_s);
    fixture.dialogs.nextClicks(u"Yes"_s);
    fixture.button(u"Edit Source..."_s).click();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"c"_s});
    QCOMPARE(server->requestCount(u"/c"_s), 1);
    QCOMPARE(sourceNames(fixture), QStringList{u"C"_s});
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"C"_s});
    QCOMPARE(WindowFixture::storedLastActive(), u"C"_s);
    QCOMPARE(fixture.dialogs.seen().size(), 2);
}

void tst_MainWindowEditing::deletingDeclinedChangesNothing()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    fixture.dialogs.next([](QDialog &dialog) {
        QVERIFY(DialogAnswers::click(dialog, u"Delete Source"_s));
        // Still open after "No".
        QVERIFY(dialog.isVisible());
        dialog.reject();
    });
    fixture.dialogs.nextClicks(u"No"_s);
    fixture.button(u"Edit Source..."_s).click();
    QCOMPARE(fixture.dialogs.seen().size(), 2);
    QCOMPARE(sourceNames(fixture), QStringList{u"A"_s});
    QCOMPARE(WindowFixture::storedNames(), QStringList{u"A"_s});
    QCOMPARE(shownChannels(fixture), QStringList{u"a"_s});
}

void tst_MainWindowEditing::deletingTheLastStopsEverything()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(u"/a"_s), neverLoaded));
    MainWindow &window = fixture.open();
    QTRY_COMPARE(shownChannels(fixture), QStringList{u"a"_s});
    server->on(u"/stream"_s, heldReply());
    window.playMediaItem(channel(u"News"_s, server->url(u"/stream"_s), {}));
    window.onPlaybackInterrupted(u"it broke"_s);
    QVERIFY(fixture.reconnectTimer().isActive());

    const QSignalSpy stopped(&fixture.player(), &VlcPlayer::stopped);
    fixture.dialogs.nextClicks(u"Delete Source"_s);
    fixture.dialogs.nextClicks(u"Yes"_s);
    window.editSource();
    QCOMPARE(stopped.count(), 1);
    QVERIFY(!fixture.reconnectTimer().isActive());
    QCOMPARE(fixture.find<QLabel>(u"mutedLabel"_s).text(), u"Nothing playing"_s);
    QVERIFY(fixture.find<QWidget>(u"controlsRow"_s).isHidden());
    QVERIFY(fixture.find<QWidget>(u"mutedLabel"_s).isHidden());
    QCOMPARE(WindowFixture::storedNames(), QStringList());
    QCOMPARE(sourceNames(fixture), QStringList());

    // After the closing dialog, not from inside it.
    QCOMPARE(fixture.dialogs.seen().size(), 2);
    QTRY_COMPARE(fixture.dialogs.seen().size(), 3);
    QCOMPARE(fixture.dialogs.seen().at(2).title, u"Add Source"_s);

    // Nothing is left to refresh or to play again.
    window.refreshActiveSource();
    QVERIFY(!fixture.overlayShown());
    window.onPlaybackError(u"late"_s);
    QCOMPARE(fixture.dialogs.seen().last().buttons, QStringList{u"Close"_s});
}

VANTIRO_TEST_MAIN(tst_MainWindowEditing)
#include "tst_MainWindowEditing.moc"
