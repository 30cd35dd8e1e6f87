#include "WindowFixture.h"
#include "desktop/SingleInstance.h"
#include "fakeprovider/Streams.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "support/TestFiles.h"

#include <QDialog>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>

/// What the window makes of files and addresses, however they come.
class tst_MainWindowOpen : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aFilePlays();
    void anAddressPlays_data();
    void anAddressPlays();
    void severalPlayOneAfterTheOther();
    void afterAFailureTheNextWaits();
    void itIsKeptNowhere();
    void aPlaylistFillsTheForm_data();
    void aPlaylistFillsTheForm();
    void aPlaylistWaitsForOtherDialogs();
    void problemsAreTold_data();
    void problemsAreTold();
    void whatIsNoFilmIsTold();
    void noFormForTheFirstSource();
    void dropped_data();
    void dropped();
    void droppedWithoutItsData();
    void openFile_data();
    void openFile();
    void openLocation();
    void keysWalkThroughWhatWasOpened();
    void cancelled_data();
    void cancelled();
    void aLaterStartRaisesTheWindow();

private:
    /// A file in a folder that goes with the test.
    QString file(const QString &name, const QByteArray &content) const;
    QString film(const QString &name) const;
    void openWithSource();

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowOpen::init()
{
    reset();
    folder = std::make_unique<QTemporaryDir>();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

QString tst_MainWindowOpen::file(const QString &name, const QByteArray &content) const
{
    writeFile(folder->filePath(name), content);
    return folder->filePath(name);
}

QString tst_MainWindowOpen::film(const QString &name) const
{
    return file(name, readFile(streamPath(u"audio.mp3"_s)));
}

void tst_MainWindowOpen::openWithSource()
{
    store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {});
    open();
}

void tst_MainWindowOpen::aFilePlays()
{
    openWithSource();
    const QString name = u"A  film, 電視 ë%41#.mp3"_s;
    window().open({film(name)});
    QCOMPARE(nowPlaying(), u"Playing: A film, 電視 ë%41#.mp3"_s);
    QTRY_VERIFY(player().timeMs() > 0);
    QVERIFY(shows(u"seekRow"_s));
    QVERIFY(find<QWidget>(u"playerPanel"_s).hasFocus());
    QCOMPARE(dialogs.seen().size(), 0);
}

void tst_MainWindowOpen::anAddressPlays_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isLive");
    QTest::addColumn<QString>("title");
    QTest::newRow("a stream") << u"/live/me/s3cret"_s << true << u"Playing: 127.0.0.1"_s;
    QTest::newRow("a film") << u"/s3cret/Film.mp4"_s << false << u"Playing: Film.mp4"_s;
}

void tst_MainWindowOpen::anAddressPlays()
{
    QFETCH(const QString, path);
    QFETCH(const bool, isLive);
    QFETCH(const QString, title);
    openWithSource();
    window().open({server->url(path)});
    QTRY_COMPARE(server->requestCount(path), 1);
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(nowPlaying(), title);
    // A live stream is played again by itself.
    Q_EMIT player().playbackInterrupted(u"gone"_s);
    QCOMPARE(reconnectTimer().isActive(), isLive);
}

void tst_MainWindowOpen::severalPlayOneAfterTheOther()
{
    openWithSource();
    window().open({film(u"one.mp3"_s), folder->filePath(u"gone.mp3"_s), film(u"two.mp3"_s)});
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QCOMPARE(nowPlaying(), u"Playing: one.mp3"_s);
    QTRY_VERIFY(player().timeMs() > 0);
    player().seek(9500);
    QTRY_COMPARE_WITH_TIMEOUT(nowPlaying(), u"Playing: two.mp3"_s, 10000);
    QTRY_VERIFY(player().timeMs() > 0 && player().timeMs() < 5000);
    // The last one ends, and nothing is wrong with that.
    QSignalSpy finished(&player(), &VlcPlayer::finished);
    player().seek(9500);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 10000);
    QCOMPARE(nowPlaying(), u"Playing: two.mp3"_s);
    QCOMPARE(dialogs.seen().size(), 1);
}

/// What was given up may go on by itself, and end.
void tst_MainWindowOpen::afterAFailureTheNextWaits()
{
    openWithSource();
    window().open({film(u"one.mp3"_s), film(u"two.mp3"_s)});
    QTRY_VERIFY(player().timeMs() > 0);
    Q_EMIT player().playbackInterrupted(u"gone"_s);
    QTRY_COMPARE(dialogs.seen().size(), 1);
    const QSignalSpy finished(&player(), &VlcPlayer::finished);
    const QSignalSpy playing(&player(), &VlcPlayer::playing);
    player().seek(9500);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 10000);
    QCOMPARE(playing.size(), 0);
    QVERIFY(!nowPlaying().contains("two"_L1));
}

void tst_MainWindowOpen::itIsKeptNowhere()
{
    openWithSource();
    window().open({film(u"one.mp3"_s)});
    QTRY_VERIFY(player().timeMs() > 0);
    window().findChild<QTimer *>(u"watchedTimer"_s)->setInterval(0);
    Q_EMIT player().playbackProgressing();
    QTest::keyClick(&window(), Qt::Key_D, Qt::ControlModifier);
    player().seek(9500);
    QSignalSpy finished(&player(), &VlcPlayer::finished);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, 10000);
    const Library &library = *window().findChild<Library *>();
    for (const LibraryPart part :
         {LibraryPart::Favorites, LibraryPart::History, LibraryPart::Progress}) {
        QVERIFY(library.isEmpty(part));
    }
    QCOMPARE(storedNames(), QStringList{u"A"_s});
}

void tst_MainWindowOpen::aPlaylistFillsTheForm_data()
{
    QTest::addColumn<QString>("address"); // of the server, or a file's name
    QTest::addColumn<QString>("name");
    QTest::newRow("a file") << u"My list.m3u"_s << u"My list"_s;
    QTest::newRow("a name that is taken") << u"A.m3u8"_s << u"A 2"_s;
    QTest::newRow("an address") << u"/list.m3u"_s << u"127.0.0.1"_s;
}

void tst_MainWindowOpen::aPlaylistFillsTheForm()
{
    QFETCH(QString, address);
    QFETCH(const QString, name);
    const QByteArray list = "#EXTM3U\n#EXTINF:-1,One\nhttp://127.0.0.1:9/1\n";
    server->on(u"/list.m3u"_s, bodyReply(list));
    address = address.startsWith(u'/') ? server->url(address) : file(address, list);
    openWithSource();
    QString shown;
    dialogs.next([&shown](QDialog &dialog) {
        shown = dialog.findChild<QLineEdit *>(u"m3uUrlEdit"_s)->text();
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    window().open({address});
    QTRY_COMPARE(storedNames(), (QStringList{u"A"_s, name}));
    QCOMPARE(shown, address);
    QCOMPARE(dialogs.seen().constFirst().title, u"Add Source"_s);
    // It is the active source now.
    QTRY_COMPARE(shownChannels(), QStringList{u"One"_s});
    QCOMPARE(combo().currentText(), name);
}

void tst_MainWindowOpen::aPlaylistWaitsForOtherDialogs()
{
    const QString list = file(u"list.m3u"_s, "#EXTM3U\n");
    openWithSource();
    dialogs.next([this, list](QDialog &dialog) {
        window().open({list, folder->filePath(u"gone.mp4"_s)});
        QCoreApplication::processEvents();
        QCOMPARE(dialogs.seen().size(), 1);
        dialog.reject();
    });
    button(u"Edit Source..."_s).click();
    QTRY_COMPARE(dialogs.seen().size(), 3);
    QCOMPARE(dialogs.seen().at(0).title, u"Edit Source"_s);
    QCOMPARE(dialogs.seen().at(1).title, u"Open"_s);
    QCOMPARE(dialogs.seen().at(2).title, u"Add Source"_s);
}

void tst_MainWindowOpen::problemsAreTold_data()
{
    QTest::addColumn<QStringList>("addresses");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("a file that is not there") << QStringList{u"/nowhere/<b>film</b>.mp4"_s}
                                              << QStringList{u"b>.mp4: The file does not exist."_s};
    QTest::newRow("an empty word")
        << QStringList{QString()} << QStringList{u"The file does not exist."_s};
    QTest::newRow("a folder and a scheme")
        << QStringList{QDir::tempPath(), u"vlc://quit"_s}
        << QStringList{QFileInfo(QDir::tempPath()).fileName() + u": It is a folder."_s,
                       u"quit: Addresses that begin with \"vlc:\" are not supported."_s};
}

/// In one box, as plain text; what plays goes on.
void tst_MainWindowOpen::problemsAreTold()
{
    QFETCH(const QStringList, addresses);
    QFETCH(const QStringList, lines);
    openWithSource();
    window().open({server->url(u"/1.ts"_s)});
    bool isPlain = false;
    dialogs.next([&isPlain](QDialog &dialog) {
        isPlain = dynamic_cast<QMessageBox &>(dialog).textFormat() == Qt::PlainText;
        dialog.reject();
    });
    window().open(addresses);
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QVERIFY(isPlain);
    QCOMPARE(dialogs.seen().constFirst().text,
             u"This could not be opened:\n\n"_s + lines.join(u'\n'));
    QCOMPARE(nowPlaying(), u"Playing: 127.0.0.1"_s);
}

void tst_MainWindowOpen::whatIsNoFilmIsTold()
{
    openWithSource();
    window().open({file(u"letter.odt"_s, QByteArray(5000, 'x'))});
    QTRY_COMPARE_WITH_TIMEOUT(dialogs.seen().size(), 1, 15000);
    QVERIFY2(!dialogs.seen().constFirst().text.isEmpty(),
             qPrintable(dialogs.seen().constFirst().title));
}

void tst_MainWindowOpen::noFormForTheFirstSource()
{
    // As main() does: opened before the window shows.
    MainWindow first;
    first.open({server->url(u"/1.ts"_s)});
    first.show();
    QTRY_COMPARE(server->requestCount(u"/1.ts"_s), 1);
    QCoreApplication::processEvents();
    QCOMPARE(dialogs.seen().size(), 0);
    // An empty command line opens nothing.
    MainWindow second;
    second.open({});
    second.show();
    QTRY_COMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().constFirst().title, u"Add Source"_s);
}

void tst_MainWindowOpen::dropped_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<Qt::DropActions>("possible");
    QTest::addColumn<Qt::DropAction>("taken"); // ignored when the drop is refused
    const QString link = u"http://127.0.0.1:9/1.ts"_s;
    QTest::newRow("a link") << link << Qt::DropActions(Qt::CopyAction | Qt::MoveAction)
                            << Qt::CopyAction;
    QTest::newRow("a link as such") << link << Qt::DropActions(Qt::LinkAction) << Qt::LinkAction;
    // Its owner would delete the file.
    QTest::newRow("nothing is moved away")
        << link << Qt::DropActions(Qt::MoveAction) << Qt::IgnoreAction;
    QTest::newRow("other text") << u"some words"_s << Qt::DropActions(Qt::CopyAction)
                                << Qt::IgnoreAction;
}

void tst_MainWindowOpen::dropped()
{
    QFETCH(const QString, address);
    QFETCH(const Qt::DropActions, possible);
    QFETCH(const Qt::DropAction, taken);
    openWithSource();
    QMimeData data;
    data.setText(address);
    QDragEnterEvent enter(QPoint(5, 5), possible, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(&window(), &enter);
    QCOMPARE(enter.isAccepted(), taken != Qt::IgnoreAction);
    QDropEvent drop(QPointF(5, 5), possible, &data, Qt::LeftButton, {});
    drop.ignore();
    QCoreApplication::sendEvent(&window(), &drop);
    QCOMPARE(drop.isAccepted(), taken != Qt::IgnoreAction);
    if (taken != Qt::IgnoreAction) {
        QCOMPARE(drop.dropAction(), taken);
        QCOMPARE(nowPlaying(), u"Playing: 127.0.0.1"_s);
    } else {
        QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    }
}

/// On X11 some programs give the data away only while it is dragged.
void tst_MainWindowOpen::droppedWithoutItsData()
{
    openWithSource();
    QMimeData data;
    data.setText(u"http://127.0.0.1:9/1.ts"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window(), &enter);
    const QMimeData nothing;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &nothing, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window(), &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(nowPlaying(), u"Playing: 127.0.0.1"_s);
}

void tst_MainWindowOpen::openFile_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Ctrl+O") << true;
    QTest::newRow("in More") << false;
}

void tst_MainWindowOpen::openFile()
{
    QFETCH(const bool, byKey);
    openWithSource();
    const QString path = film(u"one.mp3"_s);
    dialogs.next([path](QDialog &dialog) {
        auto &chooser = dynamic_cast<QFileDialog &>(dialog);
        QCOMPARE(chooser.fileMode(), QFileDialog::ExistingFiles);
        QVERIFY(chooser.nameFilters().constFirst().contains("*.m3u8"_L1));
        chooser.selectFile(path);
        dialog.accept();
    });
    if (byKey) {
        QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
    } else {
        dialogs.nextMenu([](QMenu &menu) {
            QCOMPARE(menu.actions().at(0)->text(), u"Open File..."_s);
            QTest::mouseClick(&menu, Qt::LeftButton, {},
                              menu.actionGeometry(menu.actions().at(0)).center());
        });
        button(u"More"_s).click();
    }
    QTRY_COMPARE(nowPlaying(), u"Playing: one.mp3"_s);
}

void tst_MainWindowOpen::openLocation()
{
    openWithSource();
    dialogs.next([this](QDialog &dialog) {
        QCOMPARE(dialog.windowTitle(), u"Open Location"_s);
        QPushButton *openButton = dynamic_cast<QPushButton *>(buttonOf(dialog, u"Open"_s));
        QVERIFY(openButton->isDefault() && !openButton->isEnabled());
        // What cannot be opened is told, and the form stays.
        dialogs.nextClicks(u"OK"_s);
        auto &edit = *dialog.findChild<QLineEdit *>(u"addressEdit"_s);
        edit.setText(u"vlc://quit"_s);
        QTest::keyClick(&edit, Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        edit.setText(u" "_s + server->url(u"/1.ts"_s).mid(7)); // without "http://"
        QTest::keyClick(&edit, Qt::Key_Return);
    });
    QTest::keyClick(&window(), Qt::Key_L, Qt::ControlModifier);
    QTRY_COMPARE(server->requestCount(u"/1.ts"_s), 1);
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(dialogs.seen().at(1).text, u"Addresses that begin with \"vlc:\" are not supported."_s);
}

/// Films have no numbers, and are no channels to go back to.
void tst_MainWindowOpen::keysWalkThroughWhatWasOpened()
{
    openWithSource();
    window().open({server->url(u"/one.mp4"_s), server->url(u"/two.mp4"_s)});
    QCOMPARE(nowPlaying(), u"Playing: one.mp4"_s);
    const QList<std::pair<Qt::Key, QString>> steps{
        {Qt::Key_N, u"two.mp4"_s}, {Qt::Key_Backspace, u"two.mp4"_s}, {Qt::Key_P, u"one.mp4"_s}};
    for (const auto &[key, title] : steps) {
        QTest::keyClick(QApplication::focusWidget(), key);
        QCOMPARE(nowPlaying(), u"Playing: "_s + title);
        QCOMPARE(find<QLabel>(u"pictureLine"_s).accessibleName(), title);
    }
}

void tst_MainWindowOpen::cancelled_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("a file") << Qt::Key_O;
    QTest::newRow("an address") << Qt::Key_L;
}

void tst_MainWindowOpen::cancelled()
{
    QFETCH(const Qt::Key, key);
    openWithSource();
    dialogs.next([](QDialog &dialog) { dialog.reject(); });
    QTest::keyClick(&window(), key, Qt::ControlModifier);
    QTRY_COMPARE(dialogs.waiting(), 0);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(nowPlaying(), u"Nothing playing"_s);
    QCOMPARE(server->requestCount(), 0);
}

void tst_MainWindowOpen::aLaterStartRaisesTheWindow()
{
    openWithSource();
    window().showMaximized();
    window().showMinimized();
    window().takeOver({{server->url(u"/1.ts"_s)}, {}});
    QVERIFY(!window().isMinimized());
    QVERIFY(window().isMaximized());
    QTRY_VERIFY(window().isActiveWindow());
    QTRY_COMPARE(server->requestCount(u"/1.ts"_s), 1);
    // A dialog stays in front.
    QDialog dialog(&window());
    dialog.setModal(true);
    dialog.show();
    QTRY_COMPARE(QApplication::activeModalWidget(), &dialog);
    window().takeOver({});
    QTRY_COMPARE(QApplication::activeWindow(), &dialog);
}

VANTIRO_TEST_MAIN(tst_MainWindowOpen)
#include "tst_MainWindowOpen.moc"
