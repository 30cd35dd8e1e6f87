// Where a programme from an archive plays from after a seek, and where it ends.

#include "CatchUpFixture.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <memory>

using State = PlaybackSession::State;

class tst_CatchUpSeeking : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { player = std::make_unique<VlcPlayer>(nullptr, nullptr); }
    void cleanupTestCase() { player.reset(); }
    void init() { viewer = std::make_unique<CatchUpFixture>(*player); }
    void cleanup() { viewer.reset(); }

    void seeksWhereTheStreamCannot();
    void aHeldKeyAsksOnce();
    void seeksWithinAStreamWithALength();
    void seeksBeforeAStreamWithALength();
    void anAddressWithoutATimeStays();
    void aPauseEndsThePatience();
    void anEarlyEndIsReported();
    void anEndNearTheEndIsNone();
    void nothingAtALaterPlaceIsTheEnd();
    void afterAStopItBeginsAnew();
    void anotherEntryTakesThePlace();

private:
    std::unique_ptr<VlcPlayer> player;
    std::unique_ptr<CatchUpFixture> viewer;
};

/// The account's addresses know minutes only.
void tst_CatchUpSeeking::seeksWhereTheStreamCannot()
{
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QVERIFY(viewer->plays());
    QCOMPARE(viewer->length, 90 * minuteMs);
    QVERIFY(viewer->position < minuteMs);
    viewer->session.seek(30 * minuteMs + 5000);
    QCOMPARE(viewer->position, 30 * minuteMs);
    const QString later = u"/timeshift/joe/pw/60/2024-07-01:22-45/7.ts"_s;
    QTRY_COMPARE_WITH_TIMEOUT(viewer->asked(), QStringList({pathTs, later}), openMs);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->position > 30 * minuteMs, openMs);
    QVERIFY(viewer->position < 31 * minuteMs);
    QCOMPARE(viewer->length, 90 * minuteMs);
    // Forward by less than a minute still goes forward, and back goes back.
    viewer->session.seekRelative(10'000);
    QCOMPARE(viewer->position, 31 * minuteMs);
    viewer->session.seekRelative(-10'000);
    QCOMPARE(viewer->position, 30 * minuteMs);
    viewer->session.seek(-5000);
    QCOMPARE(viewer->position, 0);
    // There is nothing behind the end.
    viewer->session.seek(89 * minuteMs + 30'000);
    QCOMPARE(viewer->position, 89 * minuteMs);
    viewer->session.seekRelative(10'000);
    QCOMPARE(viewer->position, 89 * minuteMs);
}

void tst_CatchUpSeeking::aHeldKeyAsksOnce()
{
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), programme);
    QVERIFY(viewer->plays());
    viewer->session.seek(20'000);
    for (int press = 0; press < 9; ++press)
        viewer->session.seekRelative(10'000);
    QCOMPARE(viewer->position, 110'000);
    QTRY_COMPARE_WITH_TIMEOUT(
        viewer->asked(), QStringList({u"/live/1?utc=1719864900"_s, u"/live/1?utc=1719865010"_s}),
        openMs);
}

void tst_CatchUpSeeking::seeksWithinAStreamWithALength()
{
    viewer->server.serveDirectory(u"/hls/"_s, streamPath(u"hls"_s));
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/hls/index.m3u8"_s, u"?utc={utc}"_s),
        programme);
    QVERIFY(viewer->plays());
    QCOMPARE(viewer->length, 30'000);
    viewer->session.seek(20'000);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->position >= 20'000, openMs);
    QVERIFY(viewer->position < 26'000);
    QCOMPARE(viewer->server.requestCount(u"/hls/index.m3u8"_s), 1);
}

/// Of a stream that begins at a later place, what came before is another stream.
void tst_CatchUpSeeking::seeksBeforeAStreamWithALength()
{
    viewer->server.serveDirectory(u"/hls/"_s, streamPath(u"hls"_s));
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/hls/index.m3u8"_s, u"?utc={utc}"_s),
        programme);
    viewer->session.seek(20'000); // before its length is known
    QTRY_VERIFY_WITH_TIMEOUT(viewer->asked().contains(u"/hls/index.m3u8?utc=1719864920"_s), openMs);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->length, 50'000, openMs);
    viewer->session.seek(5000);
    QCOMPARE(viewer->position, 5000);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->asked().contains(u"/hls/index.m3u8?utc=1719864905"_s), openMs);
}

void tst_CatchUpSeeking::anAddressWithoutATimeStays()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Vod, u"/live/1"_s, viewer->server.url(u"/vod/1.ts"_s)),
        programme);
    viewer->session.seek(30 * minuteMs);
    QCOMPARE(viewer->position, 0);
    QVERIFY(!viewer->session.findChild<QTimer *>(u"seekTimer"_s)->isActive());
}

void tst_CatchUpSeeking::aPauseEndsThePatience()
{
    viewer->loseThePatienceSoon();
    viewer->catchUp.play(viewer->accountChannel(), programme);
    const QTimer &patience = *viewer->session.findChild<QTimer *>(u"openTimer"_s);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->player.isPlaying(), openMs);
    QVERIFY(patience.isActive());
    viewer->player.pause();
    QTRY_VERIFY(!patience.isActive());
    QCOMPARE(viewer->failures, QStringList());
    QCOMPARE(viewer->asked(), QStringList{pathTs});
    viewer->player.togglePause();
    QTRY_COMPARE_WITH_TIMEOUT(viewer->worked.size(), 1, openMs);
}

/// It is no channel: nothing reconnects. The user can go on where it stopped.
void tst_CatchUpSeeking::anEarlyEndIsReported()
{
    HttpReply beginning = HttpReply::file(streamPath(u"short.ts"_s));
    beginning.body.truncate(beginning.body.size() / 2);
    viewer->server.onPrefix(u"/live/"_s, beginning);
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->failures.size(), 1, openMs);
    QCOMPARE(viewer->session.state(), State::Interrupted);
    viewer->server.clearRequests();
    viewer->session.replay();
    QTRY_VERIFY_WITH_TIMEOUT(!viewer->asked().isEmpty(), openMs);
    const qint64 from = viewer->asked().constFirst().section(u'=', 1).toLongLong();
    QVERIFY2(from > programme.start && from < programme.start + 5,
             qPrintable(viewer->asked().constFirst()));
}

/// An archive seldom holds all of what the guide says.
void tst_CatchUpSeeking::anEndNearTheEndIsNone()
{
    viewer->server.onPrefix(u"/live/"_s, HttpReply::file(streamPath(u"short.ts"_s)));
    const QSignalSpy finished(&viewer->player, &VlcPlayer::finished);
    GuideProgramme minute = programme;
    minute.stop = minute.start + 60;
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), minute);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, openMs);
    QCOMPARE(viewer->failures, QStringList());
    QCOMPARE(viewer->session.state(), State::Playing);
}

/// An archive that ends before the programme has nothing there.
void tst_CatchUpSeeking::nothingAtALaterPlaceIsTheEnd()
{
    viewer->server.onPrefix(u"/live/"_s, [](const HttpRequest &request) {
        return request.target.endsWith("utc=1719864900"_L1)
                   ? recording()
                   : bodyReply("<html>No such stream</html>", "text/html");
    });
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), programme);
    QVERIFY(viewer->plays());
    const QSignalSpy finished(&viewer->player, &VlcPlayer::finished);
    viewer->loseThePatienceSoon();
    viewer->session.seek(80 * minuteMs);
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 1, openMs);
    QTRY_VERIFY(!viewer->session.findChild<QTimer *>(u"openTimer"_s)->isActive());
    QCOMPARE(viewer->failures, QStringList());
    QCOMPARE(viewer->session.state(), State::Playing);
}

void tst_CatchUpSeeking::afterAStopItBeginsAnew()
{
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), programme);
    QVERIFY(viewer->plays());
    viewer->session.seek(20'000);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->asked().size(), 2, openMs);
    viewer->session.stop();
    viewer->server.clearRequests();
    viewer->session.replay();
    QTRY_COMPARE_WITH_TIMEOUT(viewer->asked(), QStringList{u"/live/1?utc=1719864900"_s}, openMs);
    QCOMPARE(viewer->length, 90 * minuteMs);
}

void tst_CatchUpSeeking::anotherEntryTakesThePlace()
{
    viewer->server.on(summaryPath, held(summary("Europe/Berlin")));
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->server.requestCount(summaryPath), 1, openMs);
    viewer->server.on(u"/film"_s, statusReply(404));
    viewer->session.play(StreamKind::Movie, viewer->server.url(u"/film"_s), u"Two"_s);
    bool answered = false;
    viewer->zones.find(*viewer->accountChannel().account,
                       [&](const QTimeZone &) { answered = true; });
    viewer->server.release(summaryPath);
    QTRY_VERIFY_WITH_TIMEOUT(answered, openMs);
    QCOMPARE(viewer->session.title(), u"Two"_s);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatchUpSeeking)
#include "tst_CatchUpSeeking.moc"
