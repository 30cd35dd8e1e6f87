#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString errorReason = u"libVLC encountered an error while streaming."_s;
const QString liveEndReason = u"The live stream stopped sending data."_s;
const QString earlyEndReason =
    u"Reached the end of the stream (this can also happen if a seek landed somewhere the stream "
    "couldn't resume from)."_s;
const QStringList started{u"playing"_s, u"not paused"_s};

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;
constexpr qint64 filmMs = 60000;

HttpReply status(int code)
{
    HttpReply reply;
    reply.status = code;
    return reply;
}

/// The film of 60 s with its last bytes missing: it ends at about `seconds`.
HttpReply filmEndingAt(double seconds)
{
    HttpReply reply = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    reply.body.truncate(static_cast<qsizetype>(static_cast<double>(reply.body.size()) * seconds *
                                               1000 / static_cast<double>(filmMs)));
    return reply;
}

/// A stream whose length nobody knows until it ends.
HttpReply withoutLength(const QString &stream)
{
    HttpReply file = HttpReply::file(streamPath(stream));
    HttpReply reply;
    reply.contentType = file.contentType;
    reply.producer = [body = file.body](qint64 offset) { return body.mid(offset, 65536); };
    return reply;
}

} // namespace

/// How streams end and fail.
class tst_VlcPlayerEnds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void ends_data();
    void ends();
    void fails_data();
    void fails();
    void aWorkingStreamAfterAFailedOne();
    void verbosity_data();
    void verbosity();

private:
    QString url(const QString &path) const { return server->url(path); }

    std::unique_ptr<HttpServer> server;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcPlayerEnds::initTestCase()
{
    keepVlcFromOpeningWindows();
    qunsetenv("VANTIRO_VLC_DEBUG");
}

void tst_VlcPlayerEnds::init()
{
    server = std::make_unique<HttpServer>();
    probe = std::make_unique<PlayerProbe>();
}

void tst_VlcPlayerEnds::cleanup()
{
    probe.reset();
    server.reset();
}

void tst_VlcPlayerEnds::ends_data()
{
    QTest::addColumn<HttpReply>("stream");
    QTest::addColumn<bool>("live");
    QTest::addColumn<qint64>("seekTo");
    QTest::addColumn<QStringList>("reasons");

    const HttpReply whole = HttpReply::file(streamPath(u"film.mp4"_s));
    const HttpReply unknown = withoutLength(u"short.ts"_s);
    QTest::newRow("a film that ends within its last two seconds says nothing")
        << whole << false << qint64{57000} << QStringList();
    QTest::newRow("a film that ends after 56 of 60 s is cut")
        << filmEndingAt(56) << false << qint64{53000} << QStringList(earlyEndReason);
    // The clock stops more than a second before the place that the share of bytes suggests.
    QTest::newRow("a film whose clock ends at 57.5 of 60 s is cut")
        << filmEndingAt(58.8) << false << qint64{53000} << QStringList(earlyEndReason);
    QTest::newRow("a film whose clock ends at 58.5 of 60 s says nothing")
        << filmEndingAt(59.7) << false << qint64{53000} << QStringList();
    QTest::newRow("a film that ends after two thirds is cut")
        << filmEndingAt(40) << false << qint64{38000} << QStringList(earlyEndReason);
    QTest::newRow("a recording of unknown length says nothing at its end")
        << unknown << false << qint64{-1} << QStringList();
    QTest::newRow("a channel that ends has stopped sending")
        << unknown << true << qint64{-1} << QStringList(liveEndReason);
    QTest::newRow("a channel has stopped sending also at the end of a known length")
        << whole << true << qint64{57000} << QStringList(liveEndReason);
    QTest::newRow("a channel has stopped sending also before the end of a known length")
        << filmEndingAt(40) << true << qint64{38000} << QStringList(liveEndReason);
}

void tst_VlcPlayerEnds::ends()
{
    QFETCH(HttpReply, stream);
    QFETCH(bool, live);
    QFETCH(qint64, seekTo);
    QFETCH(QStringList, reasons);

    server->on(u"/stream"_s, stream);
    VlcPlayer &player = probe->player;
    player.play(url(u"/stream"_s), live);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    if (seekTo >= 0) {
        player.seek(seekTo);
        QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= seekTo, openMs);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!player.isPlaying(), openMs);
    // What libVLC's thread has to say is on its way when the next looks are taken.
    const int ticks = probe->ticks;
    QTRY_VERIFY(probe->ticks >= ticks + 3);
    QCOMPARE(probe->interruptions, reasons);
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->errors, QStringList());
}

void tst_VlcPlayerEnds::fails_data()
{
    QTest::addColumn<QString>("target");

    QTest::newRow("the server has no such stream") << u"/missing.ts"_s;
    QTest::newRow("forbidden") << u"/403.ts"_s;
    QTest::newRow("another connection is still open") << u"/503.ts"_s;
    QTest::newRow("refused connection") << u"refused"_s;
    QTest::newRow("missing file") << u"file:///nowhere/missing.ts"_s;
    QTest::newRow("no address") << u"http://"_s;
    QTest::newRow("an address that ends within its host") << u"http://[::1"_s;
    QTest::newRow("an unknown scheme") << u"unknown://stream"_s;
    QTest::newRow("no scheme") << u"stream.ts"_s;
    QTest::newRow("a blank") << u" "_s;
}

void tst_VlcPlayerEnds::fails()
{
    QFETCH(QString, target);
    server->on(u"/403.ts"_s, status(403));
    server->on(u"/503.ts"_s, status(503));
    if (target.startsWith(u'/')) {
        target = url(target);
    } else if (target == u"refused"_s) {
        target = url(u"/live.ts"_s);
        server->refuse();
    }

    // libVLC takes every text for a location: it starts, and fails later.
    probe->player.play(target, true);
    QCOMPARE(probe->log, started);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    const int ticks = probe->ticks;
    QTRY_VERIFY(probe->ticks >= ticks + 2);
    QCOMPARE(probe->interruptions, QStringList(errorReason));
    QCOMPARE(probe->errors, QStringList());
    QCOMPARE(probe->positions, 0);
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerEnds::aWorkingStreamAfterAFailedOne()
{
    server->on(u"/live.ts"_s, liveTs());
    VlcPlayer &player = probe->player;
    player.play(url(u"/missing.ts"_s), true);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions, QStringList(errorReason), openMs);
    player.play(url(u"/live.ts"_s), true);
    QTRY_VERIFY_WITH_TIMEOUT(probe->progress >= 1, openMs);
    QCOMPARE(probe->interruptions.size(), 1);
    QCOMPARE(probe->log, started + started);
}

void tst_VlcPlayerEnds::verbosity_data()
{
    QTest::addColumn<bool>("set");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("verbose");

    QTest::newRow("not set: quiet, also about errors") << false << QByteArray() << false;
    QTest::newRow("set to 1: verbose") << true << "1"_ba << true;
    QTest::newRow("set to 0: verbose") << true << "0"_ba << true;
    QTest::newRow("set to nothing: verbose") << true << ""_ba << true;
}

void tst_VlcPlayerEnds::verbosity()
{
    QFETCH(bool, set);
    QFETCH(QByteArray, value);
    QFETCH(bool, verbose);

    probe.reset();
    if (set) {
        qputenv("VANTIRO_VLC_DEBUG", value);
    }
    TraceCapture capture;
    probe = std::make_unique<PlayerProbe>();
    qunsetenv("VANTIRO_VLC_DEBUG");
    probe->player.play(url(u"/missing.ts"_s), true);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    probe.reset();
    const QString trace = capture.take();
    if (verbose) {
        static const QRegularExpression debugLine(u"^\\[[0-9a-f]+\\] \\S.* debug: "_s,
                                                  QRegularExpression::MultilineOption);
        QVERIFY2(debugLine.match(trace).hasMatch(), qPrintable(trace));
    } else {
        QCOMPARE(trace, QString());
    }
}

VANTIRO_TEST_MAIN(tst_VlcPlayerEnds)
#include "tst_VlcPlayerEnds.moc"
