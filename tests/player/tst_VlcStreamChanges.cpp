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

/// The stream at the pace of a channel.
HttpReply channel(const QByteArray &stream)
{
    HttpReply reply;
    reply.contentType = "video/mp2t"_ba;
    reply.bytesPerSecond = bytesPerSecond;
    reply.burst = 2 * bytesPerSecond;
    reply.producer = [stream](qint64 offset) { return stream.mid(offset, packet * 64); };
    return reply;
}

HttpReply hlsChannel(const QByteArray &segments)
{
    return bodyReply("#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n"
                     "#EXT-X-MEDIA-SEQUENCE:0\n" +
                         segments + "#EXT-X-ENDLIST\n",
                     "application/vnd.apple.mpegurl"_ba);
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

private:
    int shownPictures() const;

    std::unique_ptr<QWidget> surface;
};

void tst_VlcStreamChanges::init()
{
    PlayerTest::init();
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

int tst_VlcStreamChanges::shownPictures() const
{
    static const QRegularExpression line(u"Displayed frames: (\\d+)"_s);
    return line.match(probe->player.mediaInfoText()).captured(1).toInt();
}

// The change comes after three seconds, which are 45 pictures at most.
void tst_VlcStreamChanges::playsOn_data()
{
    QTest::addColumn<HttpReply>("stream");
    QTest::addColumn<QString>("info"); ///< what is known of the stream after the change
    QTest::addColumn<int>("tracks");   ///< of sound
    const QByteArray before = part(u"before.ts"_s, 3, 6);
    const auto row = [&before](const char *name, const QByteArray &stream) -> QTestData & {
        return QTest::newRow(name) << channel(stream);
    };
    row("another codec", before + part(u"codec.ts"_s, 0, 12)) << u"Video codec: mpgv"_s << 1;
    row("a larger picture", before + part(u"larger.ts"_s, 0, 12)) << u"Resolution: 640x360"_s << 1;
    row("a second sound track", before + part(u"two-tracks.ts"_s, 0, 12)) << QString() << 2;
    row("a sound track less", part(u"two-tracks.ts"_s, 0, 3) + before + before) << QString() << 1;
    row("a clock that jumps forward", before + part(u"hour-later.ts"_s, 0, 12)) << QString() << 1;
    row("a clock that jumps back", part(u"hour-later.ts"_s, 0, 3) + before + before)
        << QString() << 1;
    row("a clock that wraps", part(u"wrap.ts"_s, 2, 12)) << QString() << 1;

    HttpReply pausing = channel(part(u"codec.ts"_s, 0, 12));
    pausing.pauseAfter = 3 * bytesPerSecond;
    pausing.pauseMs = 10'000;
    QTest::newRow("a pause of ten seconds") << pausing << QString() << 1;

    QByteArray segments = segment(13) + segment(14) + "#EXT-X-DISCONTINUITY\n";
    for (int number = 0; number < 5; ++number)
        segments += segment(number);
    QTest::newRow("HLS with a discontinuity") << hlsChannel(segments) << QString() << 1;
}

void tst_VlcStreamChanges::playsOn()
{
    constexpr int pictures = 80;
    QFETCH(const HttpReply, stream);
    QFETCH(const QString, info);
    server->on(u"/channel"_s, stream);
    play(u"/channel"_s, true);
    QTRY_VERIFY_WITH_TIMEOUT(shownPictures() >= pictures, 2 * openMs);
    QVERIFY2(probe->player.mediaInfoText().contains(info),
             qPrintable(probe->player.mediaInfoText()));
    QTEST(static_cast<int>(probe->player.audioTracks().size()), "tracks");
    QCOMPARE(probe->interruptions, QStringList());
    QCOMPARE(probe->errors, QStringList());
}

VANTIRO_TEST_MAIN(tst_VlcStreamChanges)
#include "tst_VlcStreamChanges.moc"
