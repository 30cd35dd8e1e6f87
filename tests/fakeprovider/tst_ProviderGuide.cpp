#include "fakeprovider/XtreamProvider.h"
#include "guide/AccountSchedule.h"
#include "guide/XmltvScanner.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

// The guide and the archive of the provider that the tests and the demo use, as the program reads
// them.

namespace {

constexpr qint64 hour = 3600;
constexpr qint64 day = 24 * hour;

/// Takes the programmes of one channel.
class Programmes final : public XmltvHandler
{
public:
    void channel(const XmltvChannel &channel) override { names << channel.names; }
    void programme(const XmltvProgramme &programme) override
    {
        if (programme.channel == u"one.tv"_s)
            list << programme;
    }

    QStringList names;
    QList<XmltvProgramme> list;
};

} // namespace

class tst_ProviderGuide : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void guideHasNoGaps();
    void guideIsAGzipFile();
    void schedulesAgreeWithTheGuide();
    void catalogTellsOfGuideAndArchive();
    void archive_data();
    void archive();

private:
    QNetworkReply *fetch(const QString &path);
    QList<ScheduledProgramme> schedule(const QString &action, const QString &rest = {});

    std::unique_ptr<XtreamProvider> provider;
    QNetworkAccessManager network;
};

void tst_ProviderGuide::init()
{
    provider = std::make_unique<XtreamProvider>();
    XtreamEntry channel;
    channel.name = u"One & Only"_s;
    channel.id = 7;
    channel.guideId = u"one.tv"_s;
    channel.archiveDays = 2;
    channel.archive = [](qint64 seconds) {
        HttpReply reply;
        reply.body = QByteArray::number(seconds);
        return reply;
    };
    provider->add(XtreamAction::liveStreams, channel);
    provider->addChannel(u"Without"_s, {});
}

QNetworkReply *tst_ProviderGuide::fetch(const QString &path)
{
    QNetworkReply *reply = network.get(QNetworkRequest(QUrl(provider->http().url(path))));
    (void)QTest::qWaitFor([reply] { return reply->isFinished(); });
    return reply;
}

QList<ScheduledProgramme> tst_ProviderGuide::schedule(const QString &action, const QString &rest)
{
    const QByteArray reply =
        fetch(u"/player_api.php?username=user&password=secret&action="_s + action + rest)
            ->readAll();
    return readSchedule(QJsonDocument::fromJson(reply), QTimeZone::utc())
        .value_or(QList<ScheduledProgramme>());
}

void tst_ProviderGuide::guideHasNoGaps()
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    Programmes read;
    XmltvScanner scanner(read);
    scanner.add(provider->guide());
    scanner.finish();
    QVERIFY(scanner.isComplete());
    QCOMPARE(read.names, QStringList{u"One & Only"_s});
    QVERIFY(read.list.size() > 100);
    for (qsizetype index = 1; index < read.list.size(); ++index)
        QCOMPARE(read.list.at(index).start, read.list.at(index - 1).stop);
    QVERIFY(read.list.constFirst().start <= now - 3 * day);
    QVERIFY(read.list.constLast().stop >= now + 3 * day);
}

void tst_ProviderGuide::guideIsAGzipFile()
{
    QNetworkReply *reply = fetch(u"/xmltv.php?username=user&password=secret"_s);
    QVERIFY(reply->readAll().startsWith("\x1f\x8b"));
    QVERIFY2(!reply->hasRawHeader("Content-Encoding"), "the file is packed, not the transfer");
    QCOMPARE(fetch(u"/xmltv.php?username=user&password=no"_s)->error(),
             QNetworkReply::ContentAccessDenied);
}

void tst_ProviderGuide::schedulesAgreeWithTheGuide()
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    const auto coming = schedule(XtreamAction::shortSchedule, u"&stream_id=7&limit=3"_s);
    QCOMPARE(coming.size(), 3);
    QCOMPARE(schedule(XtreamAction::shortSchedule, u"&stream_id=7"_s).size(), 4);
    const auto all = schedule(XtreamAction::fullSchedule, u"&stream_id=7"_s);
    const auto running = std::find_if(
        all.cbegin(), all.cend(), [now](const auto &programme) { return programme.stop > now; });
    QVERIFY(running != all.cend() && running->start <= now);
    const qsizetype index = running - all.cbegin();
    for (qsizetype next = 0; next < coming.size(); ++next)
        QCOMPARE(coming.at(next), all.at(index + next));

    Programmes read;
    XmltvScanner scanner(read);
    scanner.add(provider->guide());
    scanner.finish();
    const auto inGuide = std::find_if(
        read.list.cbegin(), read.list.cend(),
        [running](const XmltvProgramme &programme) { return programme.start == running->start; });
    QVERIFY(inGuide != read.list.cend());
    QCOMPARE(inGuide->title, running->title);
    QCOMPARE(inGuide->description, running->description);

    for (const ScheduledProgramme &programme : all)
        QCOMPARE(programme.inArchive, programme.stop <= now && programme.start >= now - 2 * day);
    QVERIFY(schedule(XtreamAction::fullSchedule, u"&stream_id=2"_s).isEmpty());
}

void tst_ProviderGuide::catalogTellsOfGuideAndArchive()
{
    const QJsonArray channels =
        QJsonDocument::fromJson(provider->reply(XtreamAction::liveStreams)).array();
    QCOMPARE(channels.at(0)["epg_channel_id"_L1].toString(), u"one.tv"_s);
    QCOMPARE(channels.at(0)["tv_archive"_L1].toInt(), 1);
    QCOMPARE(channels.at(0)["tv_archive_duration"_L1].toInt(), 2);
    for (const QString &key : {u"epg_channel_id"_s, u"tv_archive"_s})
        QVERIFY(!channels.at(1).toObject().contains(key));
}

void tst_ProviderGuide::archive_data()
{
    QTest::addColumn<qint64>("age"); ///< of the start, in seconds
    QTest::addColumn<int>("minutes");
    QTest::addColumn<QString>("path"); ///< %1 is the start, %2 the minutes
    QTest::addColumn<int>("status");
    QTest::addColumn<qint64>("seconds");
    const QString path = u"/timeshift/user/secret/%2/%1/7.ts"_s;
    const QString query =
        u"/streaming/timeshift.php?username=user&password=secret&stream=7&start=%1&duration=%2"_s;
    QTest::newRow("a path") << 3 * hour << 45 << path << 200 << qint64(2700);
    QTest::newRow("a query") << 3 * hour << 45 << query << 200 << qint64(2700);
    QTest::newRow("HLS, which it does not know")
        << 3 * hour << 45 << u"/timeshift/user/secret/%2/%1/7.m3u8"_s << 500 << qint64(0);
    QTest::newRow("another account")
        << 3 * hour << 45 << u"/timeshift/user/no/%2/%1/7.ts"_s << 403 << qint64(0);
    QTest::newRow("older than the archive") << 50 * hour << 45 << path << 404 << qint64(0);
    QTest::newRow("yet to come") << -hour << 45 << path << 404 << qint64(0);
    QTest::newRow("a channel without an archive")
        << 3 * hour << 45 << u"/timeshift/user/secret/%2/%1/2.ts"_s << 404 << qint64(0);
}

void tst_ProviderGuide::archive()
{
    QFETCH(const qint64, age);
    QFETCH(const int, minutes);
    QFETCH(const QString, path);
    QFETCH(const int, status);
    QFETCH(const qint64, seconds);
    const QString start =
        QDateTime::currentDateTimeUtc().addSecs(-age).toString(u"yyyy-MM-dd:HH-mm"_s);
    QNetworkReply *reply = fetch(path.arg(start).arg(minutes));
    QCOMPARE(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), status);
    QCOMPARE(reply->readAll().toLongLong(), seconds);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ProviderGuide)
#include "tst_ProviderGuide.moc"
