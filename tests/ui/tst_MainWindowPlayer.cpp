#include "WindowFixture.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QSignalSpy>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

/// How the window joins its tabs, the player and its panel.
class tst_MainWindowPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anEntryPlays_data();
    void anEntryPlays();
    void whatDoesNotPlayChangesNothing_data();
    void whatDoesNotPlayChangesNothing();
    void aLongTitleDoesNotWidenTheWindow();
    void aFailedFilmAsksTheUser_data();
    void aFailedFilmAsksTheUser();
    void oneBoxAtATime();
    void aStartThatFailsAsksTheUser();
    void aBoxEndsTheHoldOfTheSlider();
    void onlyThePanelIsLeftInFullscreen();
    void escapeLeavesFullscreenOnly();
    void keysAreForOthersElsewhere();
    void slotsReachTheirUnits();

private:
    MainWindow &open(bool account = true);
    MainWindow &openAndPlay(qint32 kind);
    /// The same with ten seconds of sound as a film; waits until they run.
    MainWindow &openAndPlaySound();
    QString nowPlaying() const { return fixture->find<QLabel>(u"mutedLabel"_s).text(); }
    bool shows(const QString &name) const { return fixture->find<QWidget>(name).isVisible(); }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<WindowFixture> fixture;
};

void tst_MainWindowPlayer::init()
{
    fixture = std::make_unique<WindowFixture>();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

MainWindow &tst_MainWindowPlayer::open(bool account)
{
    SourceConfig source =
        account ? accountSource(u"A"_s, server->url()) : playlistSource(u"A"_s, u"/nowhere"_s);
    source.liveExtension = u"ts"_s;
    WindowFixture::store(source);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    return fixture->open();
}

MainWindow &tst_MainWindowPlayer::openAndPlay(qint32 kind)
{
    MainWindow &window = open();
    window.playMediaItem(entry(kind, u"Entry"_s));
    return window;
}

MainWindow &tst_MainWindowPlayer::openAndPlaySound()
{
    server->on(u"/movie/u/p/Entry.mp4"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
    MainWindow &window = openAndPlay(StreamKind::Movie);
    if (!QTest::qWaitFor([this] { return fixture->player().timeMs() > 0; }, 10000)) {
        qFatal("the sound does not play");
    }
    return window;
}

void tst_MainWindowPlayer::anEntryPlays_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("expectedPath");
    QTest::newRow("of a playlist") << false << StreamKind::Live << u"/own"_s;
    QTest::newRow("a channel of an account") << true << StreamKind::Live << u"/live/u/p/7.ts"_s;
    QTest::newRow("a film") << true << StreamKind::Movie << u"/movie/u/p/7.mp4"_s;
    QTest::newRow("an episode") << true << StreamKind::Episode << u"/series/u/p/7.mp4"_s;
}

void tst_MainWindowPlayer::anEntryPlays()
{
    QFETCH(bool, account);
    QFETCH(qint32, kind);
    QFETCH(QString, expectedPath);
    MainWindow &window = open(account);
    fixture->find<QWidget>(u"sourceCombo"_s).setFocus();
    MediaItem item = channel(u"Entry"_s, server->url(u"/own"_s), {});
    item.type = kind;
    item.id = u"7"_s;
    window.playMediaItem(item);
    QTRY_COMPARE(server->requestCount(expectedPath), 1);
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(nowPlaying(), u"Playing: Entry"_s);
    QVERIFY(fixture->find<QWidget>(u"playerPanel"_s).hasFocus());
    QVERIFY(shows(u"controlsRow"_s));
    QCOMPARE(shows(u"nextEpisodeButton"_s), kind == StreamKind::Episode);
    // No show plays.
    QVERIFY(!fixture->find<QWidget>(u"nextEpisodeButton"_s).isEnabled());
}

void tst_MainWindowPlayer::whatDoesNotPlayChangesNothing_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<qint32>("kind");
    QTest::newRow("a show opens, it does not play") << true << StreamKind::Series;
    QTest::newRow("a channel without a URL") << false << StreamKind::Live;
    QTest::newRow("a film without an account") << false << StreamKind::Movie;
}

void tst_MainWindowPlayer::whatDoesNotPlayChangesNothing()
{
    QFETCH(bool, account);
    QFETCH(qint32, kind);
    MainWindow &window = open(account);
    window.playMediaItem(channel(u"Before"_s, server->url(u"/own"_s), {}));
    window.onPlaybackInterrupted(u"it broke"_s);
    const QSignalSpy playing(&fixture->player(), &VlcPlayer::playing);
    fixture->find<QWidget>(u"sourceCombo"_s).setFocus();
    window.playMediaItem(entry(kind, u"Entry"_s));
    QCOMPARE(playing.count(), 0);
    QVERIFY(fixture->reconnectTimer().isActive());
    QVERIFY(!fixture->find<QWidget>(u"playerPanel"_s).hasFocus());
    // The attempts continue.
    window.onPlaybackInterrupted(u"it broke"_s);
    QCOMPARE(nowPlaying(), u"Reconnecting to Before... (attempt 2)"_s);
}

void tst_MainWindowPlayer::aLongTitleDoesNotWidenTheWindow()
{
    MainWindow &window = openAndPlay(StreamKind::Live);
    QCoreApplication::processEvents();
    const auto &panel = fixture->find<QWidget>(u"playerPanel"_s);
    const QSize least = window.minimumSizeHint();
    const QRect place = panel.geometry();
    window.playMediaItem(entry(StreamKind::Live, u"A name that goes on "_s.repeated(100)));
    for (int state = 0; state < 2; ++state) {
        QCoreApplication::processEvents();
        QCOMPARE(window.minimumSizeHint(), least);
        QCOMPARE(panel.geometry(), place);
        QVERIFY(panel.rect().contains(fixture->find<QWidget>(u"mutedLabel"_s).geometry()));
        window.onPlaybackInterrupted(u"it broke"_s);
    }
}

void tst_MainWindowPlayer::aFailedFilmAsksTheUser_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("replayed");
    QTest::newRow("close") << u"Close"_s << false;
    QTest::newRow("retry") << u"Retry"_s << true;
}

void tst_MainWindowPlayer::aFailedFilmAsksTheUser()
{
    QFETCH(QString, answer);
    QFETCH(bool, replayed);
    openAndPlay(StreamKind::Movie);
    const QSignalSpy playing(&fixture->player(), &VlcPlayer::playing);
    bool shownInBox = true;
    fixture->dialogs.next([&](QDialog &box) {
        shownInBox = shows(u"controlsRow"_s);
        QCOMPARE(box.parentWidget(), &fixture->window());
        QVERIFY(DialogAnswers::click(box, answer));
    });
    Q_EMIT fixture->player().playbackInterrupted(u"it <b>broke</b>."_s);
    const SeenDialog box = fixture->dialogs.seen().value(0);
    QCOMPARE(box.title, u"Playback Error"_s);
    QCOMPARE(box.text, u"Playback stopped: it <b>broke</b>."_s);
    QCOMPARE(box.buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    QVERIFY(!shownInBox);
    QTRY_COMPARE(playing.count(), replayed ? 1 : 0);
    QCOMPARE(shows(u"controlsRow"_s), replayed);
}

void tst_MainWindowPlayer::oneBoxAtATime()
{
    openAndPlay(StreamKind::Movie);
    fixture->dialogs.next([&](QDialog &box) {
        Q_EMIT fixture->player().playbackInterrupted(u"second"_s);
        fixture->window().onPlaybackError(u"third"_s);
        QVERIFY(DialogAnswers::click(box, u"Close"_s));
    });
    Q_EMIT fixture->player().playbackError(u"first"_s);
    QCoreApplication::processEvents();
    QCOMPARE(fixture->dialogs.seen().size(), 1);
    QVERIFY(!shows(u"controlsRow"_s));
}

void tst_MainWindowPlayer::aStartThatFailsAsksTheUser()
{
    open();
    Q_EMIT fixture->player().playbackError(u"no"_s);
    QCOMPARE(fixture->dialogs.seen().size(), 1);
    QCOMPARE(fixture->dialogs.seen().at(0).text, u"no"_s);
    QCOMPARE(fixture->dialogs.seen().at(0).buttons, QStringList{u"Close"_s});
    fixture->window().playMediaItem(entry(StreamKind::Live, u"News"_s));
    Q_EMIT fixture->player().playbackError(u"no"_s);
    QCOMPARE(fixture->dialogs.seen().at(1).buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    // A live channel, too, is not played again by itself.
    QVERIFY(!fixture->reconnectTimer().isActive());
}

// The release of the mouse goes to the box.
void tst_MainWindowPlayer::aBoxEndsTheHoldOfTheSlider()
{
    openAndPlay(StreamKind::Movie);
    auto &slider = fixture->find<QSlider>(u"seekSlider"_s);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.rect().center());
    QVERIFY(slider.isSliderDown());
    Q_EMIT fixture->player().playbackError(u"no"_s);
    QVERIFY(!slider.isSliderDown());
    Q_EMIT fixture->player().positionChanged(1000, 60000);
    QCOMPARE(slider.value(), 1000);
}

void tst_MainWindowPlayer::onlyThePanelIsLeftInFullscreen()
{
    MainWindow &window = openAndPlay(StreamKind::Movie);
    for (const bool entered : {true, false}) {
        window.toggleFullscreen();
        QCOMPARE(window.isFullScreen(), entered);
        QCOMPARE(shows(u"tabs"_s), !entered);
        QCOMPARE(shows(u"sourceBar"_s), !entered);
        QCOMPARE(shows(u"controlsRow"_s), !entered);
        QVERIFY(shows(u"videoSurface"_s));
        QVERIFY(!shows(u"fullscreenChrome"_s));
        const int margin = entered ? 0 : 6;
        QCOMPARE(window.centralWidget()->layout()->contentsMargins(),
                 QMargins(margin, margin, margin, margin));
        QVERIFY(fixture->find<QWidget>(u"playerPanel"_s).hasFocus());
    }
}

void tst_MainWindowPlayer::escapeLeavesFullscreenOnly()
{
    MainWindow &window = openAndPlay(StreamKind::Live);
    const auto pressEscape = [](bool repeat) {
        QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Escape, Qt::NoModifier, {},
                             repeat);
    };
    pressEscape(false);
    QVERIFY(!window.isFullScreen() && window.isVisible());
    QTest::keyClick(window.windowHandle(), Qt::Key_F);
    QVERIFY(window.isFullScreen());
    QVERIFY(QTest::qWaitForWindowActive(&window));
    // The repeats of an Escape that was for something else, as a dialog.
    pressEscape(true);
    QVERIFY(window.isFullScreen());
    pressEscape(false);
    QVERIFY(!window.isFullScreen());
}

void tst_MainWindowPlayer::keysAreForOthersElsewhere()
{
    openAndPlaySound();
    const auto &volume = fixture->find<QSlider>(u"volumeSlider"_s);
    const QSignalSpy paused(&fixture->player(), &VlcPlayer::pausedChanged);
    QWidgetList others{fixture->find<QTabWidget>(u"tabs"_s).tabBar()};
    for (const QString &name : {u"liveCategoryList"_s, u"liveTable"_s, u"moviePosterList"_s,
                                u"episodeTree"_s, u"liveAllSearch"_s, u"sourceCombo"_s}) {
        others << &fixture->find<QWidget>(name);
    }
    for (QWidget *other : std::as_const(others)) {
        // Bring up the pages that it is on.
        for (QWidget *page = other; page != nullptr; page = page->parentWidget()) {
            if (auto *stack = qobject_cast<QStackedWidget *>(page->parentWidget())) {
                stack->setCurrentWidget(page);
            }
        }
        other->setFocus();
        QVERIFY2(other->hasFocus(), qPrintable(other->objectName()));
        // Space last: it opens the box of sources.
        for (const Qt::Key key : {Qt::Key_F, Qt::Key_M, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down,
                                  Qt::Key_Right, Qt::Key_Space}) {
            QTest::keyClick(fixture->window().windowHandle(), key);
        }
        QVERIFY2(!fixture->window().isFullScreen(), qPrintable(other->objectName()));
        QCOMPARE(volume.value(), 100);
        QCOMPARE(paused.count(), 0);
    }
}

void tst_MainWindowPlayer::slotsReachTheirUnits()
{
    MainWindow &window = openAndPlaySound();
    const QSignalSpy paused(&fixture->player(), &VlcPlayer::pausedChanged);
    window.togglePlayPause();
    QCOMPARE(paused.count(), 1);
    auto &slider = fixture->find<QSlider>(u"seekSlider"_s);
    window.onPositionChanged(1000, 60000);
    QCOMPARE(slider.value(), 1000);
    window.onSeekSliderPressed();
    window.onPositionChanged(2000, 60000);
    QCOMPARE(slider.value(), 1000);
    window.onSeekSliderReleased();
    window.onPositionChanged(3000, 60000);
    QCOMPARE(slider.value(), 3000);

#ifndef Q_OS_WIN // libVLC reports no volume under Wine
    window.onVolumeChanged(30);
    QTRY_COMPARE(fixture->player().volume(), 30);
#endif

    fixture->dialogs.nextMenu(
        [](QMenu &menu) { QVERIFY(menu.actions().constFirst()->isChecked()); });
    window.showAudioMenu();
    fixture->dialogs.nextMenu([](QMenu &menu) {
        QCOMPARE(menu.actions().constLast()->text(), u"Load Subtitle File..."_s);
    });
    window.showSubtitleMenu();
    QCOMPARE(fixture->dialogs.waiting(), 0);
    window.loadSubtitleFile();
    QCOMPARE(fixture->dialogs.seen().value(0).title, u"Load Subtitle File"_s);
    window.showStreamInfo();
    QCOMPARE(window.findChildren<QDialog *>().size(), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowPlayer)
#include "tst_MainWindowPlayer.moc"
