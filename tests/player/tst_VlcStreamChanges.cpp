#include "PlayerTest.h"

#include <QRegularExpression>
#include <QWidget>

namespace {

constexpr qint64 bytesPerSecond = 60'000;
constexpr qint64 packet = 188;

/// A transport stream from one second to another.
QByteArray part(const QString &file, int from, int to)
{
    const auto byteAt = [](int second) { return second * bytesPerSecond / packet * packet; };
    return HttpReply::file(streamPath(file)).body.mid(byteAt(from), byteAt(to) - byteAt(from));
}

QByteArray segment(int number)
{
    return "#EXTINF:2.0,\n/files/hls/segment%1.ts\n"_ba.replace(
        "%1"_ba, QByteArray::number(number).rightJustified(2, '0'));
}

} // namespace

/// Channels that change or pause while they play: they play on, and nothing is reported.
class tst_VlcStreamChanges : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() override {} // keeps the screen
    void init() override;
    void cleanup() override;
    void playsOn_data();
    void playsOn();
    void playsOnAfterAPause();
    void playsOnAfterADiscontinuity();

private:
    HttpReply channel(const QByteArray &stream);
    int decodedPictures() const;
    /// Waits for pictures of what arrives from now on.
    bool showsMore() const;

    std::unique_ptr<QWidget> surface;
    std::atomic<qint64> sent = 0; ///< bytes of the channel
};

void tst_VlcStreamChanges::init()
{
    PlayerTest::init();
    sent = 0;
    surface = std::make_unique<QWidget>();
    surface->resize(640, 360);
    probe = std::make_unique<PlayerProbe>(surface.get());
    surface->show();
    QVERIFY(QTest::qWaitForWindowExposed(surface.get()));
}

void tst_VlcStreamChanges::cleanup()
{
    probe.reset();
    surface.reset();
    PlayerTest::cleanup();
}

/// The stream at the pace of a channel, which is silent after it instead of ending.
HttpReply tst_VlcStreamChanges::channel(const QByteArray &stream)
{
    HttpReply reply;
    reply.contentType = "video/mp2t"_ba;
    reply.bytesPerSecond = bytesPerSecond;
    reply.burst = 2 * bytesPerSecond;
    reply.stallAfter = stream.size();
    reply.producer = [this, stream](qint64 offset) {
        sent = offset;
        return stream.mid(offset, packet * 64);
    };
    return reply;
}

int tst_VlcStreamChanges::decodedPictures() const
{
    static const QRegularExpression line(u"Decoded video blocks: (\\d+)"_s);
    return line.match(probe->player.mediaInfoText()).captured(1).toInt();
}

bool tst_VlcStreamChanges::showsMore() const
{
    const int before = decodedPictures();
    return QTest::qWaitFor([&] { return decodedPictures() > before + 10; }, openMs);
}

// The change comes after three seconds.
void tst_VlcStreamChanges::playsOn_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QString>("info"); ///< what is known of the stream after the change
    QTest::addColumn<int>("tracks");   ///< of sound
    const QByteArray before = part(u"before.ts"_s, 3, 6);
    QTest::newRow("another codec")
        << before + part(u"codec.ts"_s, 0, 12) << u"Video codec: mpgv"_s << 1;
    QTest::newRow("a larger picture")
        << before + part(u"larger.ts"_s, 0, 12) << u"Resolution: 640x360"_s << 1;
    QTest::newRow("a second sound track")
        << before + part(u"two-tracks.ts"_s, 0, 12) << QString() << 2;
    QTest::newRow("a sound track less")
        << part(u"two-tracks.ts"_s, 0, 3) + before + before + before << QString() << 1;
    QTest::newRow("a clock that jumps forward")
        << before + part(u"hour-later.ts"_s, 0, 12) << QString() << 1;
    QTest::newRow("a clock that jumps back")
        << part(u"hour-later.ts"_s, 0, 3) + before + before + before << QString() << 1;
    QTest::newRow("a clock that wraps") << part(u"wrap.ts"_s, 2, 12) << QString() << 1;
}

void tst_VlcStreamChanges::playsOn()
{
    QFETCH(const QByteArray, stream);
    QFETCH(const QString, info);
    QFETCH(const int, tracks);
    server->on(u"/channel"_s, channel(stream));
    play(u"/channel"_s, true);
    QTRY_VERIFY_WITH_TIMEOUT(sent > 5 * bytesPerSecond, openMs);
    QVERIFY(showsMore());
    QTRY_VERIFY_WITH_TIMEOUT(probe->player.mediaInfoText().contains(info), openMs);
    QTRY_COMPARE_WITH_TIMEOUT(probe->player.audioTracks().size(), tracks, openMs);
    QCOMPARE(probe->interruptions, QStringList());
}

// Shorter than what counts as a stall.
void tst_VlcStreamChanges::playsOnAfterAPause()
{
    HttpReply pausing = channel(part(u"before.ts"_s, 0, 6) + part(u"larger.ts"_s, 0, 12));
    pausing.pauseAfter = 3 * bytesPerSecond;
    pausing.pauseMs = 10'000;
    server->on(u"/channel"_s, pausing);
    QVERIFY(starts(u"/channel"_s, true));
    QTRY_VERIFY_WITH_TIMEOUT(sent > 4 * bytesPerSecond, 2 * openMs);
    QVERIFY(probe->advances());
    QVERIFY(showsMore());
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(server->requestCount(u"/channel"_s), 1);
}

void tst_VlcStreamChanges::playsOnAfterADiscontinuity()
{
    QByteArray list = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                      "#EXT-X-MEDIA-SEQUENCE:0\n" +
                      segment(14) + "#EXT-X-DISCONTINUITY\n";
    for (int number = 0; number < 6; ++number)
        list += segment(number);
    list += "#EXT-X-ENDLIST\n";
    server->on(u"/channel.m3u8"_s, bodyReply(list, "application/vnd.apple.mpegurl"_ba));
    play(u"/channel.m3u8"_s, true);
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount(u"/files/hls/segment02.ts"_s) > 0, openMs);
    QVERIFY(showsMore());
    QCOMPARE(probe->interruptions, QStringList());
}

VANTIRO_TEST_MAIN(tst_VlcStreamChanges)
#include "tst_VlcStreamChanges.moc"
