#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QHelpEvent>
#include <QLabel>
#include <QSignalSpy>
#include <QSlider>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

QString nowPlaying(const WindowFixture &fixture)
{
    return fixture.find<QLabel>(u"mutedLabel"_s).text();
}

/// Which of the three rows of the panel show: "label", "seek", "controls".
QString shownChrome(const WindowFixture &fixture)
{
    QStringList shown;
    for (const auto &[name, word] :
         {std::pair(u"mutedLabel"_s, u"label"_s), std::pair(u"seekRow"_s, u"seek"_s),
          std::pair(u"controlsRow"_s, u"controls"_s)}) {
        if (fixture.find<QWidget>(name).isVisible()) {
            shown << word;
        }
    }
    return shown.join(u' ');
}

} // namespace

/// Playing entries: the URL of each kind, what the panel shows, and what does not play.
class tst_MainWindowPlayback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void urlOfEachKind_data();
    void urlOfEachKind();
    void chromeOfEachKind_data();
    void chromeOfEachKind();
    void nothingShowsAtStart();
    void whatDoesNotPlayChangesNothing_data();
    void whatDoesNotPlayChangesNothing();
    void aMovieNeedsAnAccount();
    void everyEntryStartsAtZero();
    void playingFocusesThePanel();
    void playingReplacesTheStream();
    void aTitleIsShownAsItIs();
    void aLongTitleDoesNotWidenTheWindow();
    void positionsMoveTheSlider();
    void positionsThatSayNothingAreIgnored_data();
    void positionsThatSayNothingAreIgnored();
    void aHeldSliderStays();
    void pausedStateNamesTheButton();

private:
    /// Opens the window with an account (or a playlist) as active source, served by `server`.
    MainWindow &open(WindowFixture &fixture, bool account, const QString &liveExtension = u"ts"_s);
    MediaItem channelAt(const QString &name) { return channel(name, server->url(u"/own"_s), {}); }

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowPlayback::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

MainWindow &tst_MainWindowPlayback::open(WindowFixture &fixture, bool account,
                                         const QString &liveExtension)
{
    SourceConfig source =
        account ? accountSource(u"A"_s, server->url()) : playlistSource(u"A"_s, u"/nowhere"_s);
    source.liveExtension = liveExtension;
    WindowFixture::store(source);
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    return fixture.open();
}

void tst_MainWindowPlayback::urlOfEachKind_data()
{
    QTest::addColumn<bool>("account");
    QTest::addColumn<QString>("liveExtension");
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("containerExtension");
    QTest::addColumn<QString>("expectedPath");

    const auto row = [](const char *name, bool account, const QString &liveExtension, qint32 kind,
                        const QString &container, const QString &path) {
        QTest::newRow(name) << account << liveExtension << kind << container << path;
    };
    row("a playlist channel plays its own URL", false, u"ts"_s, 0, u"mkv"_s, u"/own"_s);
    row("an account channel has the source's format", true, u"ts"_s, 0, u"mkv"_s,
        u"/live/u/p/7.ts"_s);
    row("an account without a format plays m3u8", true, {}, 0, {}, u"/live/u/p/7.m3u8"_s);
    row("a movie has its own format", true, u"ts"_s, 1, u"mkv"_s, u"/movie/u/p/7.mkv"_s);
    row("a movie without a format plays mp4", true, u"ts"_s, 1, {}, u"/movie/u/p/7.mp4"_s);
    row("an episode has its own format", true, u"ts"_s, 3, u"avi"_s, u"/series/u/p/7.avi"_s);
    row("an episode without a format plays mp4", true, u"ts"_s, 3, {}, u"/series/u/p/7.mp4"_s);
}

void tst_MainWindowPlayback::urlOfEachKind()
{
    QFETCH(bool, account);
    QFETCH(QString, liveExtension);
    QFETCH(qint32, kind);
    QFETCH(QString, containerExtension);
    QFETCH(QString, expectedPath);
    WindowFixture fixture;
    MainWindow &window = open(fixture, account, liveExtension);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);

    MediaItem item = channelAt(u"Entry"_s);
    item.type = kind;
    item.id = u"7"_s;
    item.containerExtension = containerExtension;
    window.playMediaItem(item);
    QTRY_COMPARE(server->requestCount(expectedPath), 1);
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(playing.count(), 1);
    QCOMPARE(nowPlaying(fixture), u"Playing: Entry"_s);
}

void tst_MainWindowPlayback::chromeOfEachKind_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("nextEpisodeShown");
    QTest::newRow("live") << 0 << u"label controls"_s << false;
    QTest::newRow("movie") << 1 << u"label seek controls"_s << false;
    QTest::newRow("episode") << 3 << u"label seek controls"_s << true;
}

void tst_MainWindowPlayback::chromeOfEachKind()
{
    QFETCH(qint32, kind);
    QFETCH(QString, expected);
    QFETCH(bool, nextEpisodeShown);
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    const auto &next = fixture.find<QPushButton>(u"nextEpisodeButton"_s);
    QVERIFY(next.isHidden());
    window.playMediaItem(entry(kind, u"Entry"_s));
    QCOMPARE(shownChrome(fixture), expected);
    QCOMPARE(next.isVisible(), nextEpisodeShown);
    // No list of episodes is open.
    QVERIFY(!next.isEnabled());

    // From any kind to any other.
    window.playMediaItem(entry(0, u"Live"_s));
    QCOMPARE(shownChrome(fixture), u"label controls"_s);
    QVERIFY(next.isHidden());
}

void tst_MainWindowPlayback::nothingShowsAtStart()
{
    WindowFixture fixture;
    open(fixture, true);
    QCOMPARE(shownChrome(fixture), QString());
    QCOMPARE(nowPlaying(fixture), u"Nothing playing"_s);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"00:00 / 00:00"_s);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).maximum(), 0);
    QVERIFY(fixture.find<QWidget>(u"videoSurface"_s).isVisible());
}

void tst_MainWindowPlayback::whatDoesNotPlayChangesNothing_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<bool>("account");
    QTest::newRow("a show opens, it does not play") << 2 << true;
    QTest::newRow("an unknown kind") << 9 << true;
    QTest::newRow("a channel without a URL") << 0 << false;
    QTest::newRow("a show of a playlist source") << 2 << false;
}

void tst_MainWindowPlayback::whatDoesNotPlayChangesNothing()
{
    QFETCH(qint32, kind);
    QFETCH(bool, account);
    WindowFixture fixture;
    MainWindow &window = open(fixture, account);
    window.playMediaItem(channelAt(u"Before"_s));
    window.onPlaybackInterrupted(u"it broke"_s);
    const QString before = nowPlaying(fixture);
    QCOMPARE(before, u"Reconnecting to Before... (attempt 1)"_s);

    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    fixture.find<QWidget>(u"channelSearch"_s).setFocus();
    window.playMediaItem(entry(kind, u"Entry"_s));
    QCOMPARE(playing.count(), 0);
    QCOMPARE(nowPlaying(fixture), before);
    QVERIFY(fixture.reconnectTimer().isActive());
    QVERIFY(!fixture.find<QWidget>(u"playerPanel"_s).hasFocus());
    // The attempts go on from where they were.
    window.onPlaybackInterrupted(u"it broke"_s);
    QCOMPARE(nowPlaying(fixture), u"Reconnecting to Before... (attempt 2)"_s);
}

void tst_MainWindowPlayback::aMovieNeedsAnAccount()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, false);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    window.playMediaItem(entry(1, u"Film"_s));
    window.playMediaItem(entry(3, u"Episode"_s));
    QCOMPARE(playing.count(), 0);
    QCOMPARE(shownChrome(fixture), QString());
}

void tst_MainWindowPlayback::everyEntryStartsAtZero()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    window.playMediaItem(entry(1, u"One"_s));
    Q_EMIT fixture.player().positionChanged(5000, 60000);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"00:05 / 01:00"_s);
    window.playMediaItem(entry(1, u"Two"_s));
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"00:00 / 00:00"_s);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).maximum(), 0);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).value(), 0);
}

void tst_MainWindowPlayback::playingFocusesThePanel()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, false);
    QCOMPARE(fixture.find<QWidget>(u"playerPanel"_s).focusPolicy(), Qt::StrongFocus);
    fixture.find<QWidget>(u"sourceCombo"_s).setFocus();
    window.playMediaItem(channelAt(u"One"_s));
    QVERIFY(fixture.find<QWidget>(u"playerPanel"_s).hasFocus());
}

void tst_MainWindowPlayback::playingReplacesTheStream()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    window.playMediaItem(entry(0, u"One"_s));
    QTRY_COMPARE(server->openConnections(u"/live/u/p/One.ts"_s), 1);
    window.playMediaItem(entry(0, u"Two"_s));
    QTRY_COMPARE(server->openConnections(u"/live/u/p/Two.ts"_s), 1);
    QTRY_COMPARE(server->openConnections(u"/live/u/p/One.ts"_s), 0);
}

void tst_MainWindowPlayback::aTitleIsShownAsItIs()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, false);
    window.playMediaItem(channelAt(u"<b>One</b> %1 & two"_s));
    QCOMPARE(nowPlaying(fixture), u"Playing: <b>One</b> %1 & two"_s);
    QCOMPARE(fixture.find<QLabel>(u"mutedLabel"_s).textFormat(), Qt::PlainText);
}

void tst_MainWindowPlayback::aLongTitleDoesNotWidenTheWindow()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, false);
    window.playMediaItem(channelAt(u"One"_s));
    QCoreApplication::processEvents();
    const auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    const QSize least = window.minimumSizeHint();
    const QSize size = window.size();
    const QRect place = panel.geometry();

    const QString title = u"A name that goes on "_s.repeated(100);
    window.playMediaItem(channelAt(title));
    QCoreApplication::processEvents();
    QCOMPARE(window.minimumSizeHint(), least);
    QCOMPARE(window.size(), size);
    QCOMPARE(panel.geometry(), place);
    auto &label = fixture.find<QLabel>(u"mutedLabel"_s);
    QVERIFY(panel.rect().contains(label.geometry()));
    QCOMPARE(label.text(), u"Playing: "_s + title);

    const QPoint middle = label.rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, label.mapToGlobal(middle));
    QCoreApplication::sendEvent(&label, &event);
    QTRY_VERIFY(QToolTip::text().contains(title.trimmed()));
    QToolTip::hideText();

    // So it is while it tells of a reconnect.
    window.onPlaybackInterrupted(u"it broke"_s);
    QCoreApplication::processEvents();
    QCOMPARE(window.minimumSizeHint(), least);
    QCOMPARE(panel.geometry(), place);
}

void tst_MainWindowPlayback::positionsMoveTheSlider()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    window.playMediaItem(entry(3, u"Episode"_s));
    const QSignalSpy changed(&slider, &QSlider::valueChanged);
    Q_EMIT fixture.player().positionChanged(61000, 3600000);
    QCOMPARE(slider.minimum(), 0);
    QCOMPARE(slider.maximum(), 3600000);
    QCOMPARE(slider.value(), 61000);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"01:01 / 1:00:00"_s);
    // The player moved it, not the user.
    QCOMPARE(changed.count(), 0);
}

void tst_MainWindowPlayback::positionsThatSayNothingAreIgnored_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<bool>("shown");
    QTest::newRow("a live channel") << 0 << qint64(60000) << false;
    QTest::newRow("an unknown length") << 1 << qint64(0) << false;
    QTest::newRow("a negative length") << 1 << qint64(-1) << false;
    QTest::newRow("the shortest length") << 1 << qint64(1) << true;
}

void tst_MainWindowPlayback::positionsThatSayNothingAreIgnored()
{
    QFETCH(qint32, kind);
    QFETCH(qint64, total);
    QFETCH(bool, shown);
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    window.playMediaItem(entry(kind, u"Entry"_s));
    Q_EMIT fixture.player().positionChanged(5000, total);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(),
             shown ? u"00:05 / 00:00"_s : u"00:00 / 00:00"_s);
    QCOMPARE(fixture.find<QSlider>(u"seekSlider"_s).maximum(), shown ? 1 : 0);
}

void tst_MainWindowPlayback::aHeldSliderStays()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, true);
    auto &slider = fixture.find<QSlider>(u"seekSlider"_s);
    window.playMediaItem(entry(1, u"Film"_s));
    Q_EMIT fixture.player().positionChanged(1000, 60000);
    QTest::mousePress(&slider, Qt::LeftButton, {}, slider.rect().center());
    const int held = slider.value();
    QVERIFY(held > 1000);
    Q_EMIT fixture.player().positionChanged(2000, 90000);
    QCOMPARE(slider.value(), held);
    QCOMPARE(slider.maximum(), 60000);
    QCOMPARE(fixture.find<QLabel>(u"timeLabel"_s).text(), u"00:02 / 01:30"_s);

    QTest::mouseRelease(&slider, Qt::LeftButton, {}, slider.rect().center());
    Q_EMIT fixture.player().positionChanged(3000, 90000);
    QCOMPARE(slider.value(), 3000);
    QCOMPARE(slider.maximum(), 90000);
}

void tst_MainWindowPlayback::pausedStateNamesTheButton()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture, false);
    const auto &button = fixture.find<QPushButton>(u"accentButton"_s);
    QCOMPARE(button.text(), u"Pause"_s);
    Q_EMIT fixture.player().pausedChanged(true);
    QCOMPARE(button.text(), u"Play"_s);
    // A new stream plays.
    window.playMediaItem(channelAt(u"One"_s));
    QCOMPARE(button.text(), u"Pause"_s);
}

VANTIRO_TEST_MAIN(tst_MainWindowPlayback)
#include "tst_MainWindowPlayback.moc"
