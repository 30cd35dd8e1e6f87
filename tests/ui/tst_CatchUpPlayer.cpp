// Programmes play from the archives of a real server, by real libVLC.

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "guide/ServerZones.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/CatchUpPlayer.h"
#include "ui/PlaybackSession.h"

#include <QDateTime>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using State = PlaybackSession::State;

namespace {

constexpr int openMs = 20000;
constexpr qint64 minuteMs = 60'000;

const QString summaryPath = u"/player_api.php"_s;
const QString pathTs = u"/timeshift/joe/pw/90/2024-07-01:22-15/7.ts"_s;
const QString pathM3u8 = u"/timeshift/joe/pw/90/2024-07-01:22-15/7.m3u8"_s;
const QString query = u"/streaming/timeshift.php?username=joe&password=pw&stream=7"
                      "&start=2024-07-01:22-15&duration=90"_s;

/// 2024-07-01 20:15 to 21:45 UTC.
const GuideProgramme programme{1'719'864'900, 1'719'870'300, u"Film"_s, {}};

/// A transport stream as archives send it: without a length, and from its beginning only.
HttpReply recording()
{
    HttpReply reply = HttpReply::file(streamPath(u"live.ts"_s), "video/mp2t"_ba);
    reply.chunked = true;
    reply.supportRange = false;
    return reply;
}

/// A summary that names the zone of the server.
HttpReply summary(const QByteArray &zone)
{
    return HttpReply::json("{\"server_info\":{\"timezone\":\"" + zone + "\"}}");
}

/// A catch-up player on a real player without a picture, and a server.
struct Viewer
{
    explicit Viewer(VlcPlayer &vlcPlayer)
        : player(vlcPlayer)
    {
        server.on(summaryPath, summary("Europe/Berlin"));
        server.onPrefix(u"/"_s, recording());
        QObject::connect(&session, &PlaybackSession::failed, &context,
                         [this](const QString &message) { failures << message; });
        QObject::connect(&session, &PlaybackSession::positionChanged, &context,
                         [this](qint64 ms, qint64 ofMs) {
                             position = ms;
                             length = ofMs;
                         });
        QObject::connect(&catchUp, &CatchUpPlayer::failed, &context,
                         [this](const QString &message) { refusals << message; });
        QObject::connect(
            &catchUp, &CatchUpPlayer::formWorked, &context,
            [this](const QString & /*source*/, AccountArchiveForm form) { worked << form; });
    }
    ~Viewer() { player.stop(); }
    Q_DISABLE_COPY_MOVE(Viewer)

    ArchiveChannel accountChannel() const
    {
        ArchiveChannel channel{u"S"_s, u"News"_s, u"7"_s, {}, {}, u"ts"_s, {}, {}, {}};
        channel.archive.form = CatchUpForm::Account;
        channel.account = XtreamAccount{server.url(), u"joe"_s, u"pw"_s};
        return channel;
    }
    ArchiveChannel playlistChannel(CatchUpForm form, const QString &path,
                                   const QString &source = {}) const
    {
        ArchiveChannel channel{u"S"_s, u"News"_s, {}, server.url(path), {}, {}, {}, {}, {}};
        channel.archive.form = form;
        channel.archive.source = source;
        return channel;
    }
    /// The addresses that the server was asked for, each once, in order, without the account's
    /// summary.
    QStringList asked() const
    {
        QStringList targets;
        for (const HttpRequest &request : server.requests()) {
            if (request.path != summaryPath && !targets.contains(request.target))
                targets << request.target;
        }
        return targets;
    }
    /// What opens has little time from now on.
    void loseThePatienceSoon() const
    {
        session.findChild<QTimer *>(u"openTimer"_s)->setInterval(1500);
    }
    [[nodiscard]] bool plays() const
    {
        return QTest::qWaitFor([this] { return position > 0 && player.isPlaying(); }, openMs);
    }

    HttpServer server;
    VlcPlayer &player;
    PlaybackSession session{&player, nullptr};
    ServerZones zones;
    CatchUpPlayer catchUp{&session, &zones, nullptr};
    QStringList failures;
    QStringList refusals;
    QList<AccountArchiveForm> worked;
    qint64 position = 0;
    qint64 length = 0;

private:
    QObject context;
};

} // namespace

class tst_CatchUpPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { player = std::make_unique<VlcPlayer>(nullptr, nullptr); }
    void cleanupTestCase() { player.reset(); }
    void init() { viewer = std::make_unique<Viewer>(*player); }
    void cleanup() { viewer.reset(); }

    void eachFormReachesTheServer_data();
    void eachFormReachesTheServer();
    void theServersZoneIsAskedOnce();
    void withoutAZoneTheTimesAreUtc();
    void anAnswerWithoutAServerIsAskedForAgain();
    void aFormThatFailsLeadsToTheNext_data();
    void aFormThatFailsLeadsToTheNext();
    void whenAllFormsFail_data();
    void whenAllFormsFail();
    void theFormThatWorkedIsAskedFirst();
    void aRunningProgrammeIsAsLongAsItRan();
    void aProgrammeThatBeginsNowPlays();
    void seeksWhereTheStreamCannot();
    void aHeldKeyAsksOnce();
    void seeksWithinAStreamWithALength();
    void anAddressWithoutATimeStays();
    void anEarlyEndIsReported();
    void afterAStopItBeginsAnew();
    void anotherEntryTakesThePlace();
    void aChannelWithoutAnAddress();
    void aProgrammeWithoutATitle();
    void aProgrammeWithoutALength();
    void anAccountWithoutAFormat();

private:
    std::unique_ptr<VlcPlayer> player;
    std::unique_ptr<Viewer> viewer;
};

void tst_CatchUpPlayer::eachFormReachesTheServer_data()
{
    QTest::addColumn<CatchUpForm>("form");
    QTest::addColumn<int>("accountForm"); ///< -1 for a playlist
    QTest::addColumn<QString>("path");    ///< of the playlist's channel
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("target");
    const auto account = [](const char *name, AccountArchiveForm form, const QString &target) {
        QTest::newRow(name) << CatchUpForm::Account << static_cast<int>(form) << QString()
                            << QString() << target;
    };
    account("account, path", AccountArchiveForm::PathTs, pathTs);
    account("account, path with m3u8", AccountArchiveForm::PathM3u8, pathM3u8);
    account("account, query", AccountArchiveForm::Query, query);
    const auto playlist = [](const char *name, CatchUpForm form, const QString &path,
                             const QString &source, const QString &target) {
        QTest::newRow(name) << form << -1 << path << source << target;
    };
    playlist("default", CatchUpForm::Default, u"/live/1"_s, u"?from={utc}&s={duration}"_s,
             u"/live/1?from=1719864900&s=5400"_s);
    playlist("append", CatchUpForm::Append, u"/live/1"_s, u"?utc=${start}"_s,
             u"/live/1?utc=1719864900"_s);
    playlist("shift", CatchUpForm::Shift, u"/live/1"_s, {}, u"/live/1?utc=1719864900&lutc="_s);
    playlist("flussonic", CatchUpForm::Flussonic, u"/ch/mpegts?t=1"_s, {},
             u"/ch/timeshift_abs-1719864900.ts?t=1"_s);
    playlist("the account in an address", CatchUpForm::Xtream, u"/live/joe/pw/7.ts"_s, {},
             u"/timeshift/joe/pw/90/2024-07-01:20-15/7.ts"_s);
    playlist("vod", CatchUpForm::Vod, u"/live/1"_s, u"/vod/{utc}.ts"_s, u"/vod/1719864900.ts"_s);
}

void tst_CatchUpPlayer::eachFormReachesTheServer()
{
    QFETCH(const CatchUpForm, form);
    QFETCH(const int, accountForm);
    QFETCH(const QString, path);
    QFETCH(const QString, source);
    QFETCH(const QString, target);
    // What it answers is for the other tests.
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    ArchiveChannel channel = viewer->accountChannel();
    if (accountForm >= 0)
        channel.workedForm = static_cast<AccountArchiveForm>(accountForm);
    else
        channel = viewer->playlistChannel(
            form, path, source.startsWith(u'/') ? viewer->server.url(source) : source);
    viewer->catchUp.play(channel, programme);
    QTRY_VERIFY_WITH_TIMEOUT(!viewer->asked().isEmpty(), openMs);
    QVERIFY2(viewer->asked().constFirst().startsWith(target),
             qPrintable(viewer->asked().constFirst()));
    QCOMPARE(viewer->session.kind(), StreamKind::Archive);
    QCOMPARE(viewer->session.title(), u"News - Film"_s);
}

void tst_CatchUpPlayer::theServersZoneIsAskedOnce()
{
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->asked(), QStringList{pathTs}, openMs);
    viewer->session.stop();
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QVERIFY(viewer->session.hasMedia());
    QCOMPARE(viewer->server.requestCount(summaryPath), 1);
}

void tst_CatchUpPlayer::anAnswerWithoutAServerIsAskedForAgain()
{
    HttpServer server;
    ServerZones zones;
    QList<QTimeZone> found;
    for (const QByteArray &answer :
         {"{}"_ba,
          R"({"server_info":{"time_now":"2026-03-01 22:00:00","timestamp_now":1772395200}})"_ba,
          "{}"_ba}) {
        server.on(u"/player_api.php"_s, bodyReply(answer));
        const qsizetype before = found.size();
        zones.find({server.url(), u"joe"_s, u"pw"_s},
                   [&found](const QTimeZone &zone) { found.append(zone); });
        QTRY_COMPARE(found.size(), before + 1);
    }
    QCOMPARE(found.at(0).offsetFromUtc(QDateTime::currentDateTimeUtc()), 0);
    QCOMPARE(found.at(1).offsetFromUtc(QDateTime::currentDateTimeUtc()), 7200);
    QCOMPARE(found.at(2).offsetFromUtc(QDateTime::currentDateTimeUtc()), 7200);
    QCOMPARE(server.requestCount(), 2);
}

void tst_CatchUpPlayer::withoutAZoneTheTimesAreUtc()
{
    viewer->server.on(summaryPath, statusReply(500));
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->asked(),
                              QStringList{u"/timeshift/joe/pw/90/2024-07-01:20-15/7.ts"_s}, openMs);
    // Until it tells.
    viewer->server.on(summaryPath, summary("Europe/Berlin"));
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->asked().contains(pathTs), openMs);
}

void tst_CatchUpPlayer::aFormThatFailsLeadsToTheNext_data()
{
    QTest::addColumn<HttpReply>("failure");
    QTest::newRow("an error of the server") << statusReply(500);
    QTest::newRow("a page") << bodyReply("<html>No such stream</html>", "text/html");
    QTest::newRow("nothing") << bodyReply({}, "video/mp2t");
    QTest::newRow("silence") << heldReply();
}

void tst_CatchUpPlayer::aFormThatFailsLeadsToTheNext()
{
    QFETCH(const HttpReply, failure);
    viewer->server.onPrefix(u"/timeshift/"_s, failure);
    viewer->loseThePatienceSoon();
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QVERIFY(viewer->plays());
    QCOMPARE(viewer->asked(), QStringList({pathTs, pathM3u8, query}));
    QTRY_COMPARE(viewer->worked, QList{AccountArchiveForm::Query});
    QCOMPARE(viewer->failures, QStringList());
    QCOMPARE(viewer->session.state(), State::Playing);
}

void tst_CatchUpPlayer::whenAllFormsFail_data()
{
    QTest::addColumn<HttpReply>("failure");
    QTest::newRow("an error of the server") << statusReply(404);
    QTest::newRow("silence") << heldReply();
}

void tst_CatchUpPlayer::whenAllFormsFail()
{
    QFETCH(const HttpReply, failure);
    viewer->server.onPrefix(u"/"_s, failure);
    viewer->loseThePatienceSoon();
    viewer->catchUp.play(viewer->accountChannel(), programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->failures.size(), 1, openMs);
    QCOMPARE(viewer->session.state(), State::Interrupted);
    QVERIFY(viewer->session.canReplay());
    QVERIFY(viewer->worked.isEmpty());
    // A replay tries them again, from the first one on.
    viewer->server.clearRequests();
    viewer->server.onPrefix(u"/"_s, recording());
    viewer->session.replay();
    QVERIFY(viewer->plays());
    QCOMPARE(viewer->asked(), QStringList{pathTs});
}

void tst_CatchUpPlayer::theFormThatWorkedIsAskedFirst()
{
    viewer->server.onPrefix(u"/timeshift/"_s, statusReply(500));
    ArchiveChannel channel = viewer->accountChannel();
    viewer->catchUp.play(channel, programme);
    QTRY_COMPARE_WITH_TIMEOUT(viewer->worked.size(), 1, openMs);
    viewer->server.clearRequests();
    channel.workedForm = viewer->worked.constFirst();
    viewer->catchUp.play(channel, programme);
    QTRY_VERIFY_WITH_TIMEOUT(!viewer->asked().isEmpty(), openMs);
    QCOMPARE(viewer->asked().constFirst(), query);
}

void tst_CatchUpPlayer::aRunningProgrammeIsAsLongAsItRan()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const GuideProgramme running{now - 600, now + 600, u"Now"_s, {}};
    viewer->catchUp.play(viewer->playlistChannel(CatchUpForm::Shift, u"/live/1"_s), running);
    viewer->session.seek(minuteMs);
    QVERIFY(viewer->length >= 600'000);
    QVERIFY(viewer->length < 610'000);
}

void tst_CatchUpPlayer::aProgrammeThatBeginsNowPlays()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const GuideProgramme begins{now, now + 600, u"Now"_s, {}};
    viewer->catchUp.play(viewer->playlistChannel(CatchUpForm::Shift, u"/live/1"_s), begins);
    QCOMPARE(viewer->refusals, QStringList());
    QVERIFY(viewer->session.hasMedia());
}

/// The account's addresses know minutes only.
void tst_CatchUpPlayer::seeksWhereTheStreamCannot()
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

void tst_CatchUpPlayer::aHeldKeyAsksOnce()
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

void tst_CatchUpPlayer::seeksWithinAStreamWithALength()
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

void tst_CatchUpPlayer::anAddressWithoutATimeStays()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Vod, u"/live/1"_s, viewer->server.url(u"/vod/1.ts"_s)),
        programme);
    viewer->session.seek(30 * minuteMs);
    QCOMPARE(viewer->position, 0);
    QVERIFY(!viewer->session.findChild<QTimer *>(u"seekTimer"_s)->isActive());
}

/// It is no channel: nothing reconnects. The user can go on where it stopped.
void tst_CatchUpPlayer::anEarlyEndIsReported()
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

void tst_CatchUpPlayer::afterAStopItBeginsAnew()
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

void tst_CatchUpPlayer::anotherEntryTakesThePlace()
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

void tst_CatchUpPlayer::aChannelWithoutAnAddress()
{
    viewer->catchUp.play(viewer->playlistChannel(CatchUpForm::None, u"/live/1"_s), programme);
    QCOMPARE(viewer->refusals.size(), 1);
    QCOMPARE(viewer->session.state(), State::Idle);
}

void tst_CatchUpPlayer::aProgrammeWithoutATitle()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    GuideProgramme untitled = programme;
    untitled.title.clear();
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), untitled);
    QCOMPARE(viewer->session.title(), u"News"_s);
}

/// As a provider's schedule may have it.
void tst_CatchUpPlayer::aProgrammeWithoutALength()
{
    GuideProgramme empty = programme;
    empty.stop = empty.start;
    viewer->catchUp.play(
        viewer->playlistChannel(CatchUpForm::Append, u"/live/1"_s, u"?utc={utc}"_s), empty);
    QCOMPARE(viewer->refusals.size(), 1);
    QCOMPARE(viewer->session.state(), State::Idle);
}

void tst_CatchUpPlayer::anAccountWithoutAFormat()
{
    viewer->server.onPrefix(u"/"_s, statusReply(404));
    viewer->server.on(summaryPath, summary("Europe/Berlin"));
    ArchiveChannel channel = viewer->accountChannel();
    channel.liveExtension.clear();
    viewer->catchUp.play(channel, programme);
    QTRY_VERIFY_WITH_TIMEOUT(!viewer->asked().isEmpty(), openMs);
    QCOMPARE(viewer->asked().constFirst(), pathM3u8);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CatchUpPlayer)
#include "tst_CatchUpPlayer.moc"
