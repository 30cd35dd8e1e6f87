// Programmes play from the archives of a real server, by real libVLC.

#include "CatchUpFixture.h"
#include "support/TestMain.h"

#include <QDateTime>

#include <memory>

using namespace Qt::StringLiterals;
using State = PlaybackSession::State;

namespace {

const QString pathM3u8 = u"/timeshift/joe/pw/90/2024-07-01:22-15/7.m3u8"_s;
const QString query = u"/streaming/timeshift.php?username=joe&password=pw&stream=7"
                      "&start=2024-07-01:22-15&duration=90"_s;

} // namespace

class tst_CatchUpPlayer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { player = std::make_unique<VlcPlayer>(nullptr, nullptr); }
    void cleanupTestCase() { player.reset(); }
    void init() { viewer = std::make_unique<CatchUpFixture>(*player); }
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
    void aChannelWithoutAnAddress();
    void aProgrammeWithoutATitle();
    void aProgrammeWithoutALength();
    void anAccountWithoutAFormat();

private:
    std::unique_ptr<VlcPlayer> player;
    std::unique_ptr<CatchUpFixture> viewer;
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
    QTest::newRow("a beginning, then silence") << stalling(recording(), 20'000);
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
