#include "ServerTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

/// The streams that the build makes, and the two kinds of live channel.
class tst_Streams : public ServerTest
{
    Q_OBJECT

private Q_SLOTS:
    void indexOfTheFilmStandsAtItsEnd();
    void liveTsIsEndlessAndPaced();
    void liveHlsMovesOn();
    void archivedClipIsOneLongStream();
};

void tst_Streams::indexOfTheFilmStandsAtItsEnd()
{
    const auto indexPosition = [](const QString &name) {
        return readFile(streamPath(name)).indexOf("moov");
    };
    QVERIFY(indexPosition(u"film.mp4"_s) > QFileInfo(streamPath(u"film.mp4"_s)).size() * 9 / 10);
    QVERIFY(indexPosition(u"film-faststart.mp4"_s) > 0);
    QVERIFY(indexPosition(u"film-faststart.mp4"_s) < 1000);
}

void tst_Streams::liveTsIsEndlessAndPaced()
{
    const qint64 size = QFileInfo(streamPath(u"live.ts"_s)).size();
    const HttpReply live = liveTs();
    // 480 kbit/s, give or take what the multiplexer rounds.
    QVERIFY2(qAbs(live.bytesPerSecond - 60'000) < 1200,
             qPrintable(QString::number(live.bytesPerSecond)));
    QByteArray round;
    while (round.size() < size)
        round += live.producer(round.size());
    QCOMPARE(round.size(), size);
    QVERIFY(live.producer(size) == live.producer(0));
    for (qsizetype packet = 0; packet < round.size(); packet += 188)
        QCOMPARE(round.at(packet), '\x47');
}

void tst_Streams::liveHlsMovesOn()
{
    serveLiveHls(*server, u"/channel"_s);
    const QString playlist = u"/channel/index.m3u8"_s;
    const QByteArray first = fetch(playlist)->readAll();
    QVERIFY(first.contains("#EXT-X-MEDIA-SEQUENCE:0\n"));
    QCOMPARE(first.count("#EXTINF:"), 4);
    QVERIFY(!first.contains("#EXT-X-ENDLIST"));
    QVERIFY(fetch(u"/channel/segment3.ts"_s)->readAll().startsWith('\x47'));
    QVERIFY(fetch(u"/channel/segment400.ts"_s)->error() != QNetworkReply::NoError);
    QTRY_VERIFY(fetch(playlist)->readAll().contains("\nsegment4.ts\n"));
    QVERIFY(!fetch(playlist)->readAll().contains("segment0.ts"));
}

void tst_Streams::archivedClipIsOneLongStream()
{
    constexpr int seconds = 17;
    server->on(u"/archive"_s, archivedClip(streamPath(u"short.ts"_s), seconds));
    const QByteArray whole = fetch(u"/archive"_s)->readAll();
    QCOMPARE(fetch(u"/archive"_s, "bytes=300000-300999"_ba)->readAll(), whole.mid(300'000, 1000));

    // Every packet follows the last one of its stream, and the clock never goes back.
    QHash<int, int> counters;
    double lastClock = -1;
    double firstClock = -1;
    int pictures = 0;
    for (qsizetype packet = 0; packet < whole.size(); packet += 188) {
        const auto byte = [&](qsizetype index) { return quint8(whole.at(packet + index)); };
        QCOMPARE(byte(0), 0x47);
        const int stream = ((byte(1) & 0x1f) << 8) | byte(2);
        if ((byte(3) & 0x10) != 0 && stream != 0x1fff) {
            const int expected = (counters.value(stream, (byte(3) & 0x0f) - 1) + 1) & 0x0f;
            QCOMPARE(byte(3) & 0x0f, expected);
            counters[stream] = expected;
        }
        if ((byte(3) & 0x20) != 0 && byte(4) > 0 && (byte(5) & 0x10) != 0) {
            const quint32 high = (quint32(byte(6)) << 24U) | (quint32(byte(7)) << 16U) |
                                 (quint32(byte(8)) << 8U) | byte(9);
            const double clock = (2.0 * high + (byte(10) >> 7U)) / 90'000;
            QVERIFY(clock > lastClock);
            firstClock = firstClock < 0 ? clock : firstClock;
            lastClock = clock;
        }
        const qsizetype start = 4 + ((byte(3) & 0x20) != 0 ? 1 + byte(4) : 0);
        const bool isPicture = (byte(1) & 0x40) != 0 && start < 170 && byte(start) == 0 &&
                               byte(start + 2) == 1 && byte(start + 3) == 0xe0;
        if (isPicture) {
            const double shown = ((byte(start + 9) >> 1 & 7) * double(1 << 30) +
                                  ((byte(start + 10) << 7) | (byte(start + 11) >> 1)) * 32768.0 +
                                  ((byte(start + 12) << 7) | (byte(start + 13) >> 1))) /
                                 90'000;
            QVERIFY2(shown > lastClock && shown < lastClock + 3, "pictures follow the clock");
            ++pictures;
        }
    }
    QVERIFY(pictures > 10 * seconds);
    QVERIFY2(qAbs(lastClock - firstClock - seconds) < 0.5,
             qPrintable(QString::number(lastClock - firstClock)));
}

VANTIRO_TEST_GUILESS_MAIN(tst_Streams)
#include "tst_Streams.moc"
