#include "PlayerTest.h"
#include "support/TraceCapture.h"

#include <QRegularExpression>

namespace {

/// The film of 60 s with its last bytes missing: it ends at about `seconds`.
HttpReply filmEndingAt(double seconds)
{
    HttpReply reply = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    const auto bytes = static_cast<double>(reply.body.size());
    reply.body.truncate(static_cast<qsizetype>(bytes * seconds / 60));
    return reply;
}

/// A stream whose length nobody knows until it ends.
HttpReply withoutLength()
{
    HttpReply reply = HttpReply::file(streamPath(u"short.ts"_s));
    reply.producer = [body = reply.body](qint64 offset) { return body.mid(offset, 65536); };
    reply.body.clear();
    return reply;
}

} // namespace

/// How streams end, fail and stall.
class tst_VlcPlayerEnds : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void ends_data();
    void ends();
    void fails_data();
    void fails();
    void aStallIsReported();
    void verbosity_data();
    void verbosity();
};

void tst_VlcPlayerEnds::ends_data()
{
    QTest::addColumn<HttpReply>("stream");
    QTest::addColumn<bool>("live");
    QTest::addColumn<qint64>("seekTo");
    QTest::addColumn<QStringList>("reasons");

    const QString cut = u"Reached the end of the stream (this can also happen if a seek landed "
                        "somewhere the stream couldn't resume from)."_s;
    // The clock stops more than a second earlier than the number of bytes suggests.
    QTest::newRow("a film whose clock ends at 57.5 of 60 s is cut")
        << filmEndingAt(58.8) << false << qint64{50000} << QStringList(cut);
    QTest::newRow("a film whose clock ends at 58.5 of 60 s reports nothing")
        << filmEndingAt(59.7) << false << qint64{50000} << QStringList();
    QTest::newRow("a recording of unknown length reports nothing at its end")
        << withoutLength() << false << qint64{0} << QStringList();
    QTest::newRow("a channel that ends has stopped sending")
        << withoutLength() << true << qint64{0} << QStringList(liveEndReason);
}

void tst_VlcPlayerEnds::ends()
{
    QFETCH(HttpReply, stream);
    QFETCH(bool, live);
    QFETCH(qint64, seekTo);

    server->on(u"/stream"_s, stream);
    QVERIFY(starts(u"/stream"_s, live));
    if (seekTo > 0) {
        probe->player.seek(seekTo);
        QTRY_VERIFY_WITH_TIMEOUT(probe->currentMs >= seekTo, openMs);
    }
    QTRY_VERIFY_WITH_TIMEOUT(!probe->player.isPlaying(), openMs);
    QVERIFY(probe->checksAgain());
    QTEST(probe->interruptions, "reasons");
    QCOMPARE(probe->log, started);
    QCOMPARE(probe->errors, QStringList());

    // What shows the place has it still, and the stream can play again.
    if (seekTo > 0) {
        QVERIFY(probe->player.timeMs() >= seekTo);
        QVERIFY(probe->player.lengthMs() > seekTo);
    }
    QVERIFY(starts(u"/stream"_s, live));
}

void tst_VlcPlayerEnds::fails_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("the server has no such stream") << u"/missing.ts"_s;
    QTest::newRow("an unknown scheme") << u"unknown://stream"_s;
    QTest::newRow("a space") << u" "_s;
}

void tst_VlcPlayerEnds::fails()
{
    QFETCH(QString, target);
    // libVLC accepts every text as a location and fails later.
    probe->player.play(target.startsWith(u'/') ? url(target) : target, true);
    QCOMPARE(probe->log, started);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    QVERIFY(probe->checksAgain(2));
    QCOMPARE(probe->positions, 0);
    QVERIFY(!probe->player.isPlaying());

    QVERIFY(starts(u"/live.ts"_s, true));
    QCOMPARE(probe->log, started + started);
    QCOMPARE(probe->interruptions, QStringList(errorReason));
    QCOMPARE(probe->errors, QStringList());
}

void tst_VlcPlayerEnds::aStallIsReported()
{
    constexpr int stallMs = 60000; // 15 s, on a busy machine
    constexpr qint64 fourSeconds = 240000;
    server->on(u"/stalling.ts"_s, stalling(liveTs(), fourSeconds));
    QVERIFY(starts(u"/stalling.ts"_s, true));
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions,
                              QStringList(u"The stream stopped advancing for 15 seconds."_s),
                              stallMs);
    QVERIFY(probe->player.isPlaying());
}

void tst_VlcPlayerEnds::verbosity_data()
{
    QTest::addColumn<bool>("verbose");
    QTest::newRow("not set: quiet, also about errors") << false;
    QTest::newRow("set to nothing: verbose") << true;
}

void tst_VlcPlayerEnds::verbosity()
{
    QFETCH(bool, verbose);
    probe.reset();
    if (verbose) {
        qputenv("VANTIRO_VLC_DEBUG", "");
    } else {
        qunsetenv("VANTIRO_VLC_DEBUG");
    }
    TraceCapture capture;
    probe = std::make_unique<PlayerProbe>();
    play(u"/missing.ts"_s, true);
    QTRY_COMPARE_WITH_TIMEOUT(probe->interruptions.size(), 1, openMs);
    probe.reset();
    const QString trace = capture.take();
    static const QRegularExpression debugLine(u"^\\[[0-9a-f]+\\] \\S.* debug: "_s,
                                              QRegularExpression::MultilineOption);
    QVERIFY2(debugLine.match(trace).hasMatch() == verbose, qPrintable(trace));
    QVERIFY2(verbose || trace.isEmpty(), qPrintable(trace));
}

VANTIRO_TEST_MAIN(tst_VlcPlayerEnds)
#include "tst_VlcPlayerEnds.moc"
