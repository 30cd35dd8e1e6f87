#include "PlayerTest.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString errorReason = u"libVLC encountered an error while streaming."_s;
const QString liveEndReason = u"The live stream stopped sending data."_s;
const QString earlyEndReason =
    u"Reached the end of the stream (this can also happen if a seek landed somewhere the stream "
    "couldn't resume from)."_s;
constexpr qint64 filmMs = 60000;

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
class tst_VlcPlayerEnds : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() override;

    void ends_data();
    void ends();
    void fails_data();
    void fails();
    void aWorkingStreamAfterAFailedOne();
    void verbosity_data();
    void verbosity();
};

void tst_VlcPlayerEnds::initTestCase()
{
    PlayerTest::initTestCase();
    qunsetenv("VANTIRO_VLC_DEBUG");
}

void tst_VlcPlayerEnds::ends_data()
{
    QTest::addColumn<HttpReply>("stream");
    QTest::addColumn<bool>("live");
    QTest::addColumn<qint64>("seekTo");
    QTest::addColumn<QStringList>("reasons");

    const HttpReply whole = HttpReply::file(streamPath(u"film.mp4"_s));
    const HttpReply unknown = withoutLength(u"short.ts"_s);
    QTest::newRow("a film that ends within its last two seconds reports nothing")
        << whole << false << qint64{57000} << QStringList();
    QTest::newRow("a film that ends after 56 of 60 s is cut")
        << filmEndingAt(56) << false << qint64{53000} << QStringList(earlyEndReason);
    // The clock stops more than a second earlier than the number of bytes suggests.
    QTest::newRow("a film whose clock ends at 57.5 of 60 s is cut")
        << filmEndingAt(58.8) << false << qint64{53000} << QStringList(earlyEndReason);
    QTest::newRow("a film whose clock ends at 58.5 of 60 s reports nothing")
        << filmEndingAt(59.7) << false << qint64{53000} << QStringList();
    QTest::newRow("a film that ends after two thirds is cut")
        << filmEndingAt(40) << false << qint64{38000} << QStringList(earlyEndReason);
    QTest::newRow("a recording of unknown length reports nothing at its end")
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
    play(u"/stream"_s, live);
    QVERIFY(probe->advances());
    if (seekTo >= 0) {
        probe->player.seek(seekTo);
        QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= seekTo, openMs);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!probe->player.isPlaying(), openMs);
    QVERIFY(probe->checksAgain());
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
    QTest::newRow("an incomplete host") << u"http://[::1"_s;
    QTest::newRow("an unknown scheme") << u"unknown://stream"_s;
    QTest::newRow("no scheme") << u"stream.ts"_s;
    QTest::newRow("a space") << u" "_s;
}

void tst_VlcPlayerEnds::fails()
{
    QFETCH(QString, target);
    server->on(u"/403.ts"_s, statusReply(403));
    server->on(u"/503.ts"_s, statusReply(503));
    if (target.startsWith(u'/')) {
        target = url(target);
    } else if (target == u"refused"_s) {
        target = url(u"/live.ts"_s);
        server->refuse();
    }

    // libVLC accepts every text as a location and fails later.
    probe->player.play(target, true);
    QCOMPARE(probe->log, started);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    QVERIFY(probe->checksAgain(2));
    QCOMPARE(probe->interruptions, QStringList(errorReason));
    QCOMPARE(probe->errors, QStringList());
    QCOMPARE(probe->positions, 0);
    QVERIFY(!probe->player.isPlaying());
}

void tst_VlcPlayerEnds::aWorkingStreamAfterAFailedOne()
{
    play(u"/missing.ts"_s, true);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions, QStringList(errorReason), openMs);
    play(u"/live.ts"_s, true);
    QVERIFY(probe->advances());
    QCOMPARE(probe->interruptions.size(), 1);
    QCOMPARE(probe->log, started + started);
}

void tst_VlcPlayerEnds::verbosity_data()
{
    QTest::addColumn<bool>("verbose");
    QTest::addColumn<QByteArray>("value");

    QTest::newRow("not set: quiet, also about errors") << false << QByteArray();
    QTest::newRow("set to 1: verbose") << true << "1"_ba;
    QTest::newRow("set to 0: verbose") << true << "0"_ba;
    QTest::newRow("set to nothing: verbose") << true << ""_ba;
}

void tst_VlcPlayerEnds::verbosity()
{
    QFETCH(bool, verbose);
    QFETCH(QByteArray, value);

    probe.reset();
    if (verbose) {
        qputenv("VANTIRO_VLC_DEBUG", value);
    }
    TraceCapture capture;
    probe = std::make_unique<PlayerProbe>();
    qunsetenv("VANTIRO_VLC_DEBUG");
    play(u"/missing.ts"_s, true);
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
