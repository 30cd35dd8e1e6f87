#include "WindowFixture.h"
#include "fakeprovider/Streams.h"
#include "player/VlcPlayer.h"

#include <QLayout>
#include <QMenu>
#include <QSignalSpy>
#include <QSlider>
#include <QStackedWidget>
#include <QTabBar>
#include <QWindow>

/// How the window joins its tabs, the player and its panel.
class tst_MainWindowPlayer : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anEntryPlays_data();
    void anEntryPlays();
    void whatDoesNotPlayChangesNothing();
    void anEntryWithoutAnAddress();
    void aLongTitleDoesNotWidenTheWindow();
    void aFailedFilmAsksTheUser_data();
    void aFailedFilmAsksTheUser();
    void aStartThatFailsAsksTheUser();
    void aBoxEndsTheHoldOfTheSlider();
    void onlyThePanelIsLeftInFullscreen();
    void escapeLeavesFullscreenOnly();
    void keysAreForOthersElsewhere();
    void slotsReachTheirUnits();

private:
    void openSource(const SourceConfig &source);
    void openAndPlay(qint32 kind);
    /// The same with ten seconds of sound as a film; waits until they run.
    void openAndPlaySound();

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPlayer::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

void tst_MainWindowPlayer::openSource(const SourceConfig &source)
{
    store(source);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(source.name, section, {});
    }
    open();
}

void tst_MainWindowPlayer::openAndPlay(qint32 kind)
{
    openSource(accountSource(u"A"_s, server->url()));
    window().playMediaItem(entry(kind, u"Entry"_s));
}

void tst_MainWindowPlayer::openAndPlaySound()
{
    server->on(u"/movie/u/p/Entry.mp4"_s, [](const HttpRequest &) {
        return HttpReply::file(streamPath(u"audio.mp3"_s), "audio/mpeg"_ba);
    });
    openAndPlay(StreamKind::Movie);
    if (!QTest::qWaitFor([this] { return player().timeMs() > 0; }, 10000)) {
        qFatal("the sound does not play");
    }
}

void tst_MainWindowPlayer::anEntryPlays_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("expectedPath");
    QTest::newRow("of a playlist") << false << StreamKind::Live << u"/own"_s;
    QTest::newRow("a channel of an account") << true << StreamKind::Live << u"/live/u/p/7.ts"_s;
    QTest::newRow("an episode") << true << StreamKind::Episode << u"/series/u/p/7.mp4"_s;
}

void tst_MainWindowPlayer::anEntryPlays()
{
    QFETCH(bool, account);
    QFETCH(qint32, kind);
    QFETCH(QString, expectedPath);
    SourceConfig source =
        account ? accountSource(u"A"_s, server->url()) : playlistSource(u"A"_s, u"/nowhere"_s);
    source.liveExtension = u"ts"_s;
    openSource(source);
    combo().setFocus();
    MediaItem item = channel(u"Entry"_s, server->url(u"/own"_s), {});
    item.type = kind;
    item.id = u"7"_s;
    window().playMediaItem(item);
    QTRY_COMPARE(server->requestCount(expectedPath), 1);
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(nowPlaying(), u"Playing: Entry"_s);
    QVERIFY(find<QWidget>(u"playerPanel"_s).hasFocus());
    QVERIFY(shows(u"controlsRow"_s));
    QCOMPARE(shows(u"nextEpisodeButton"_s), kind == StreamKind::Episode);
    // No show plays.
    QVERIFY(!find<QWidget>(u"nextEpisodeButton"_s).isEnabled());
}

void tst_MainWindowPlayer::whatDoesNotPlayChangesNothing()
{
    openAndPlay(StreamKind::Live);
    window().onPlaybackInterrupted(u"it broke"_s);
    const QSignalSpy playing(&player(), &VlcPlayer::playing);
    combo().setFocus();
    window().playMediaItem(entry(StreamKind::Series, u"Show"_s));
    QCOMPARE(playing.count(), 0);
    QVERIFY(reconnectTimer().isActive());
    QVERIFY(!find<QWidget>(u"playerPanel"_s).hasFocus());
    // The attempts continue.
    window().onPlaybackInterrupted(u"it broke"_s);
    QCOMPARE(nowPlaying(), u"Reconnecting to Entry... (attempt 2)"_s);
}

/// The list goes on from what plays.
void tst_MainWindowPlayer::anEntryWithoutAnAddress()
{
    const SourceConfig source = playlistSource(u"A"_s, u"/nowhere"_s);
    store(source);
    CatalogCache::save(source.name, u"channel"_s,
                       {{},
                        {channel(u"1"_s, {}, {}), channel(u"2"_s, server->url(u"/2"_s), {}),
                         channel(u"3"_s, server->url(u"/3"_s), {})}});
    open();
    QCOMPARE(shownChannels(), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    window().selectChannelCategory(find<QListWidget>(u"channelCategoryList"_s).item(0));
    window().playChannelRow(1, 0);
    QCOMPARE(nowPlaying(), u"Playing: 2"_s);
    window().playChannelRow(0, 0);
    QCOMPARE(nowPlaying(), u"Playing: 2"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_N);
    QCOMPARE(nowPlaying(), u"Playing: 3"_s);
}

void tst_MainWindowPlayer::aLongTitleDoesNotWidenTheWindow()
{
    openAndPlay(StreamKind::Live);
    QCoreApplication::processEvents();
    const auto &panel = find<QWidget>(u"playerPanel"_s);
    const QSize least = window().minimumSizeHint();
    const QRect place = panel.geometry();
    window().playMediaItem(entry(StreamKind::Live, u"A name that goes on "_s.repeated(100)));
    for (int state = 0; state < 2; ++state) {
        QCoreApplication::processEvents();
        QCOMPARE(window().minimumSizeHint(), least);
        QCOMPARE(panel.geometry(), place);
        QVERIFY(panel.rect().contains(find<QWidget>(u"mutedLabel"_s).geometry()));
        window().onPlaybackInterrupted(u"it broke"_s);
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
    const QSignalSpy playing(&player(), &VlcPlayer::playing);
    bool shownInBox = true;
    dialogs.next([&](QDialog &box) {
        shownInBox = shows(u"controlsRow"_s);
        QCOMPARE(box.parentWidget(), &window());
        QVERIFY(DialogAnswers::click(box, answer));
    });
    Q_EMIT player().playbackInterrupted(u"it <b>broke</b>."_s);
    const SeenDialog box = dialogs.seen().value(0);
    QCOMPARE(box.title, u"Playback Error"_s);
    QCOMPARE(box.text, u"Playback stopped: it <b>broke</b>."_s);
    QCOMPARE(box.buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    QVERIFY(!shownInBox);
    QTRY_COMPARE(playing.count(), replayed ? 1 : 0);
    QCOMPARE(shows(u"controlsRow"_s), replayed);
}

void tst_MainWindowPlayer::aStartThatFailsAsksTheUser()
{
    openSource(accountSource(u"A"_s, server->url()));
    Q_EMIT player().playbackError(u"no"_s);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen().at(0).text, u"no"_s);
    QCOMPARE(dialogs.seen().at(0).buttons, QStringList{u"Close"_s});
    window().playMediaItem(entry(StreamKind::Live, u"News"_s));
    Q_EMIT player().playbackError(u"no"_s);
    QCOMPARE(dialogs.seen().at(1).buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    // A live channel, too, is not played again by itself.
    QVERIFY(!reconnectTimer().isActive());
}

// The release of the mouse goes to the box.
void tst_MainWindowPlayer::aBoxEndsTheHoldOfTheSlider()
{
    openAndPlay(StreamKind::Movie);
    auto &slider = find<QSlider>(u"seekSlider"_s);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.rect().center());
    QVERIFY(slider.isSliderDown());
    Q_EMIT player().playbackError(u"no"_s);
    QVERIFY(!slider.isSliderDown());
    Q_EMIT player().positionChanged(1000, 60000);
    QCOMPARE(slider.value(), 1000);
}

void tst_MainWindowPlayer::onlyThePanelIsLeftInFullscreen()
{
    openAndPlay(StreamKind::Movie);
    for (const bool entered : {true, false}) {
        window().toggleFullscreen();
        QCOMPARE(window().isFullScreen(), entered);
        QCOMPARE(shows(u"tabs"_s), !entered);
        QCOMPARE(shows(u"sourceBar"_s), !entered);
        QCOMPARE(shows(u"controlsRow"_s), !entered);
        QVERIFY(shows(u"videoSurface"_s));
        QVERIFY(!shows(u"fullscreenChrome"_s));
        const int margin = entered ? 0 : 6;
        QCOMPARE(window().centralWidget()->layout()->contentsMargins(),
                 QMargins(margin, margin, margin, margin));
        QVERIFY(find<QWidget>(u"playerPanel"_s).hasFocus());
    }
}

void tst_MainWindowPlayer::escapeLeavesFullscreenOnly()
{
    openAndPlay(StreamKind::Live);
    const auto pressEscape = [](bool repeat) {
        QTest::simulateEvent(QApplication::focusWidget(), true, Qt::Key_Escape, Qt::NoModifier, {},
                             repeat);
    };
    pressEscape(false);
    QVERIFY(!window().isFullScreen() && window().isVisible());
    QTest::keyClick(window().windowHandle(), Qt::Key_F);
    QVERIFY(window().isFullScreen());
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    // The repeats of an Escape that was for something else, as a dialog.
    pressEscape(true);
    QVERIFY(window().isFullScreen());
    pressEscape(false);
    QVERIFY(!window().isFullScreen());
}

void tst_MainWindowPlayer::keysAreForOthersElsewhere()
{
    openAndPlaySound();
    const auto &volume = find<QSlider>(u"volumeSlider"_s);
    const QSignalSpy paused(&player(), &VlcPlayer::pausedChanged);
    QWidgetList others{tabs().tabBar()};
    for (const QString &name : {u"liveCategoryList"_s, u"liveTable"_s, u"moviePosterList"_s,
                                u"episodeTree"_s, u"liveAllSearch"_s, u"sourceCombo"_s}) {
        others << &find<QWidget>(name);
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
            QTest::keyClick(window().windowHandle(), key);
        }
        QVERIFY2(!window().isFullScreen(), qPrintable(other->objectName()));
        QCOMPARE(volume.value(), 100);
        QCOMPARE(paused.count(), 0);
    }
}

void tst_MainWindowPlayer::slotsReachTheirUnits()
{
    openAndPlaySound();
    const QSignalSpy paused(&player(), &VlcPlayer::pausedChanged);
    window().togglePlayPause();
    QCOMPARE(paused.count(), 1);
    auto &slider = find<QSlider>(u"seekSlider"_s);
    window().onPositionChanged(1000, 60000);
    QCOMPARE(slider.value(), 1000);
    window().onSeekSliderPressed();
    window().onPositionChanged(2000, 60000);
    QCOMPARE(slider.value(), 1000);
    window().onSeekSliderReleased();
    window().onPositionChanged(3000, 60000);
    QCOMPARE(slider.value(), 3000);

#ifndef Q_OS_WIN // libVLC reports no volume under Wine
    window().onVolumeChanged(30);
    QTRY_COMPARE(player().volume(), 30);
#endif

    dialogs.nextMenu([](QMenu &menu) { QVERIFY(menu.actions().constFirst()->isChecked()); });
    window().showAudioMenu();
    dialogs.nextMenu([](QMenu &menu) {
        QCOMPARE(menu.actions().constLast()->text(), u"Load Subtitle File..."_s);
    });
    window().showSubtitleMenu();
    QCOMPARE(dialogs.waiting(), 0);
    window().loadSubtitleFile();
    QCOMPARE(dialogs.seen().value(0).title, u"Load Subtitle File"_s);
    window().showStreamInfo();
    QCOMPARE(window().findChildren<QDialog *>().size(), 1);
}

VANTIRO_TEST_MAIN(tst_MainWindowPlayer)
#include "tst_MainWindowPlayer.moc"
