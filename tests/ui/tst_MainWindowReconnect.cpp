#include "WindowFixture.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"
#include "ui/PlaybackSession.h"

#include <QLabel>
#include <QMessageBox>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QString nowPlaying(const WindowFixture &fixture)
{
    return fixture.find<QLabel>(u"mutedLabel"_s).text();
}

} // namespace

/// Interruptions and errors: live channels reconnect, everything else asks the user.
class tst_MainWindowReconnect : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void delaysGrowAndStay();
    void progressClearsTheCount();
    void progressWithoutAnInterruptionChangesNothing();
    void theStreamIsPlayedAgainAndTheCountStays();
    void aReplayBeforeTheTimerStopsIt();
    void anotherEntryCancelsTheReconnect();
    void anInterruptionFromAnotherThreadComesQueued();
    void anInterruptedMovieAsksTheUser_data();
    void anInterruptedMovieAsksTheUser();
    void thePanelTakesTheFocusOfAnInterruptedFilm_data();
    void thePanelTakesTheFocusOfAnInterruptedFilm();
    void anInterruptionOfNothingAsksTheUser();
    void errorBox_data();
    void errorBox();
    void oneBoxAtATime();
    void anErrorOfALiveChannelIsNotRetriedByItself();
    void replayingNothingDoesNothing();

private:
    MainWindow &open(WindowFixture &fixture);
    MainWindow &openAndPlay(WindowFixture &fixture, qint32 kind, const QString &name);

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowReconnect::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

MainWindow &tst_MainWindowReconnect::open(WindowFixture &fixture)
{
    WindowFixture::store(accountSource(u"A"_s, server->url()));
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    return fixture.open();
}

MainWindow &tst_MainWindowReconnect::openAndPlay(WindowFixture &fixture, qint32 kind,
                                                 const QString &name)
{
    MainWindow &window = open(fixture);
    window.playMediaItem(entry(kind, name));
    return window;
}

void tst_MainWindowReconnect::delaysGrowAndStay()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News %1"_s);
    const QSignalSpy stopped(&fixture.player(), &VlcPlayer::stopped);
    const QList<int> delays{1000, 2000, 4000, 8000, 15000, 15000, 15000};
    for (int attempt = 1; attempt <= delays.size(); ++attempt) {
        Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
        QVERIFY(fixture.reconnectTimer().isActive());
        QCOMPARE(fixture.reconnectTimer().interval(), delays.at(attempt - 1));
        QCOMPARE(nowPlaying(fixture),
                 u"Reconnecting to News %1... (attempt "_s + QString::number(attempt) + u')');
    }
    for (int attempt = 8; attempt <= 40; ++attempt) {
        Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
        QCOMPARE(fixture.reconnectTimer().interval(), 15000);
    }
    QVERIFY(fixture.dialogs.seen().isEmpty());
    QCOMPARE(stopped.count(), 0);
    QVERIFY(fixture.find<QWidget>(u"controlsRow"_s).isVisible());
}

void tst_MainWindowReconnect::progressClearsTheCount()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News"_s);
    for (int attempt = 1; attempt <= 3; ++attempt) {
        Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    }
    Q_EMIT fixture.player().playbackProgressing();
    QVERIFY(!fixture.reconnectTimer().isActive());
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QCOMPARE(fixture.reconnectTimer().interval(), 1000);
    QCOMPARE(nowPlaying(fixture), u"Reconnecting to News... (attempt 1)"_s);
}

void tst_MainWindowReconnect::progressWithoutAnInterruptionChangesNothing()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News"_s);
    Q_EMIT fixture.player().playbackProgressing();
    QCOMPARE(nowPlaying(fixture), u"Playing: News"_s);
    QVERIFY(!fixture.reconnectTimer().isActive());
}

void tst_MainWindowReconnect::theStreamIsPlayedAgainAndTheCountStays()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News"_s);
    QTRY_COMPARE(server->requestCount(u"/live/u/p/News.m3u8"_s), 1);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QCOMPARE(playing.count(), 0);
    // After the first delay, by the timer alone.
    QTRY_COMPARE(playing.count(), 1);
    QTRY_COMPARE(server->requestCount(u"/live/u/p/News.m3u8"_s), 2);
    QCOMPARE(nowPlaying(fixture), u"Playing: News"_s);
    QVERIFY(!fixture.reconnectTimer().isActive());

    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QCOMPARE(nowPlaying(fixture), u"Reconnecting to News... (attempt 2)"_s);
    QCOMPARE(fixture.reconnectTimer().interval(), 2000);
}

void tst_MainWindowReconnect::aReplayBeforeTheTimerStopsIt()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0, u"News"_s);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QVERIFY(fixture.reconnectTimer().isActive());
    // As Retry does in a box that was open already.
    window.findChild<PlaybackSession *>()->replay();
    QVERIFY(!fixture.reconnectTimer().isActive());
    QCOMPARE(nowPlaying(fixture), u"Playing: News"_s);
}

void tst_MainWindowReconnect::anotherEntryCancelsTheReconnect()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0, u"News"_s);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    window.playMediaItem(entry(0, u"Sport"_s));
    QVERIFY(!fixture.reconnectTimer().isActive());
    QCOMPARE(nowPlaying(fixture), u"Playing: Sport"_s);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QCOMPARE(nowPlaying(fixture), u"Reconnecting to Sport... (attempt 1)"_s);
}

void tst_MainWindowReconnect::anInterruptionFromAnotherThreadComesQueued()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News"_s);
    VlcPlayer &player = fixture.player();
    const std::unique_ptr<QThread> thread(
        QThread::create([&player] { Q_EMIT player.playbackInterrupted(u"it broke"_s); }));
    thread->start();
    QVERIFY(thread->wait());
    // Nothing has run on the other thread.
    QCOMPARE(nowPlaying(fixture), u"Playing: News"_s);
    QTRY_COMPARE(nowPlaying(fixture), u"Reconnecting to News... (attempt 1)"_s);
}

void tst_MainWindowReconnect::anInterruptedMovieAsksTheUser_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QString>("answer");
    QTest::newRow("movie, close") << 1 << u"Close"_s;
    QTest::newRow("movie, retry") << 1 << u"Retry"_s;
    QTest::newRow("episode, close") << 3 << u"Close"_s;
    QTest::newRow("episode, retry") << 3 << u"Retry"_s;
}

void tst_MainWindowReconnect::anInterruptedMovieAsksTheUser()
{
    QFETCH(qint32, kind);
    QFETCH(QString, answer);
    WindowFixture fixture;
    openAndPlay(fixture, kind, u"Film"_s);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    bool chromeInBox = true;
    fixture.dialogs.next([&](QDialog &box) {
        chromeInBox = fixture.find<QWidget>(u"controlsRow"_s).isVisible();
        QVERIFY(DialogAnswers::click(box, answer));
    });
    Q_EMIT fixture.player().playbackInterrupted(u"it <b>broke</b>."_s);

    QCOMPARE(fixture.dialogs.seen().size(), 1);
    const SeenDialog box = fixture.dialogs.seen().at(0);
    QCOMPARE(box.title, u"Playback Error"_s);
    QCOMPARE(box.text, u"Playback stopped: it <b>broke</b>."_s);
    QCOMPARE(box.buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    QVERIFY(!chromeInBox);
    const bool retried = answer == "Retry"_L1;
    QCOMPARE(playing.count(), retried ? 1 : 0);
    for (const QString &row : {u"mutedLabel"_s, u"seekRow"_s, u"controlsRow"_s}) {
        QCOMPARE(fixture.find<QWidget>(row).isVisible(), retried);
    }
    QVERIFY(!fixture.reconnectTimer().isActive());
}

void tst_MainWindowReconnect::thePanelTakesTheFocusOfAnInterruptedFilm_data()
{
    QTest::addColumn<QString>("focused");
    QTest::addColumn<bool>("boxIsOpen");
    QTest::newRow("a button of the controls") << u"Pause"_s << false;
    QTest::newRow("a button beside the slider") << u"<< 10s"_s << false;
    QTest::newRow("while another box has the keyboard") << u"Pause"_s << true;
}

void tst_MainWindowReconnect::thePanelTakesTheFocusOfAnInterruptedFilm()
{
    QFETCH(QString, focused);
    QFETCH(bool, boxIsOpen);
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1, u"Film"_s);
    fixture.button(focused).setFocus();
    QVERIFY(fixture.button(focused).hasFocus());
    const auto interrupt = [&] { Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s); };
    if (boxIsOpen) {
        fixture.dialogs.next([&](QDialog &box) {
            interrupt();
            QVERIFY(DialogAnswers::click(box, u"Close"_s));
        });
        Q_EMIT fixture.player().playbackError(u"no"_s);
    } else {
        interrupt();
    }
    QVERIFY(fixture.find<QWidget>(u"controlsRow"_s).isHidden());
    QCOMPARE(window.focusWidget(), &fixture.find<QWidget>(u"playerPanel"_s));
}

void tst_MainWindowReconnect::anInterruptionOfNothingAsksTheUser()
{
    WindowFixture fixture;
    open(fixture);
    Q_EMIT fixture.player().playbackInterrupted(u"it broke"_s);
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"Playback stopped: it broke"_s);
    QCOMPARE(fixture.dialogs.seen().at(0).buttons, QStringList{u"Close"_s});
    QVERIFY(!fixture.reconnectTimer().isActive());
}

void tst_MainWindowReconnect::errorBox_data()
{
    QTest::addColumn<bool>("played");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("replays");
    QTest::newRow("retry plays again") << true << u"Retry"_s << 1;
    QTest::newRow("close does not") << true << u"Close"_s << 0;
    QTest::newRow("escape does not") << true << QString() << 0;
    QTest::newRow("nothing to retry") << false << u"Close"_s << 0;
}

void tst_MainWindowReconnect::errorBox()
{
    QFETCH(bool, played);
    QFETCH(QString, answer);
    QFETCH(int, replays);
    WindowFixture fixture;
    MainWindow &window = open(fixture);
    if (played) {
        window.playMediaItem(entry(1, u"Film"_s));
    }
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    fixture.dialogs.next([&](QDialog &dialog) {
        auto &box = dynamic_cast<QMessageBox &>(dialog);
        QCOMPARE(box.icon(), QMessageBox::Warning);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.parentWidget(), &window);
        if (answer.isEmpty()) {
            QTest::keyClick(&box, Qt::Key_Escape);
        } else {
            QVERIFY(DialogAnswers::click(box, answer));
        }
    });
    Q_EMIT fixture.player().playbackError(u"<i>Could not</i> play"_s);
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).title, u"Playback Error"_s);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"<i>Could not</i> play"_s);
    QCOMPARE(fixture.dialogs.seen().at(0).buttons,
             played ? (QStringList{u"Close"_s, u"Retry"_s}) : QStringList{u"Close"_s});
    QCOMPARE(playing.count(), replays);
}

void tst_MainWindowReconnect::oneBoxAtATime()
{
    WindowFixture fixture;
    openAndPlay(fixture, 1, u"Film"_s);
    fixture.dialogs.next([&](QDialog &box) {
        Q_EMIT fixture.player().playbackError(u"second"_s);
        Q_EMIT fixture.player().playbackInterrupted(u"third"_s);
        QVERIFY(DialogAnswers::click(box, u"Close"_s));
    });
    Q_EMIT fixture.player().playbackError(u"first"_s);
    // Dropped, not queued.
    QCoreApplication::processEvents();
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).text, u"first"_s);

    Q_EMIT fixture.player().playbackError(u"later"_s);
    QCOMPARE(fixture.dialogs.seen().size(), 2);
}

void tst_MainWindowReconnect::anErrorOfALiveChannelIsNotRetriedByItself()
{
    WindowFixture fixture;
    openAndPlay(fixture, 0, u"News"_s);
    Q_EMIT fixture.player().playbackError(u"no"_s);
    QCOMPARE(fixture.dialogs.seen().size(), 1);
    QCOMPARE(fixture.dialogs.seen().at(0).buttons, (QStringList{u"Close"_s, u"Retry"_s}));
    QVERIFY(!fixture.reconnectTimer().isActive());
}

void tst_MainWindowReconnect::replayingNothingDoesNothing()
{
    WindowFixture fixture;
    MainWindow &window = open(fixture);
    const QSignalSpy playing(&fixture.player(), &VlcPlayer::playing);
    window.findChild<PlaybackSession *>()->replay();
    QCOMPARE(playing.count(), 0);
    QVERIFY(fixture.find<QWidget>(u"controlsRow"_s).isHidden());
}

VANTIRO_TEST_MAIN(tst_MainWindowReconnect)
#include "tst_MainWindowReconnect.moc"
