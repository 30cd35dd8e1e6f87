#include "PlayerProbe.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Tracks = QList<VlcPlayer::Track>;

/// What libVLC needs on a busy machine to open a stream.
constexpr int openMs = 20000;
const Tracks sounds{{1, u"English - [English]"_s}, {2, u"Deutsch - [German]"_s}};
const Tracks subtitles{{3, u"English - [English]"_s}, {4, u"Français - [French]"_s}};

const QString statistics =
    u"Input bitrate: #.# kbps\nDemux bitrate: #.# kbps\nDecoded video blocks: #\n"
    "Decoded audio blocks: #\nDisplayed frames: #   Lost frames: #\n"_s;
const QString videoBlock = u"Video codec: h264\nResolution: 320x180\nFrame rate: %1 fps\n\n"_s;
const QString audioBlock = u"Audio codec: %1\nSample rate: 48000 Hz\nChannels: %2\n\n"_s;

/// The summary with its statistics, which nobody can foretell, as "#".
QString summary(const VlcPlayer &player)
{
    QString text = player.mediaInfoText();
    const qsizetype begin = text.indexOf("Input bitrate:"_L1);
    static const QRegularExpression figure(u"\\d+"_s);
    return begin < 0 ? text : text.left(begin) + text.mid(begin).replace(figure, u"#"_s);
}

} // namespace

class tst_VlcTracks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { keepVlcFromOpeningWindows(); }
    void init();
    void cleanup() { probe.reset(); }

    void namesACodec_data();
    void namesACodec();
    void withoutAStream();
    void beforeTheStreamOpens();
    void listsTracks();
    void choosesASound();
    void choosesSubtitles();
    void switchesSubtitlesOffAndOn();
    void switchingOnWithoutARememberedTrackChangesNothing();
    void switchingOffTwiceForgetsTheTrack();
    void loadsASubtitleFile();
    void aSubtitleFileReplacesTheRememberedTrack();
    void summarizes_data();
    void summarizes();
    void summaryMarksTheChosenTracks();
    void afterStop();

private:
    void play(const QString &stream);

    HttpServer server;
    std::unique_ptr<PlayerProbe> probe;
};

void tst_VlcTracks::init()
{
    server.serveDirectory(u"/"_s, streamPath({}));
    probe = std::make_unique<PlayerProbe>();
}

void tst_VlcTracks::play(const QString &stream)
{
    probe->player.play(server.url(u'/' + stream), false);
    QTRY_VERIFY_WITH_TIMEOUT(probe->positions >= 3, openMs);
}

void tst_VlcTracks::namesACodec_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");

    QTest::newRow("four letters") << "h264"_ba << u"h264"_s;
    QTest::newRow("padded with a blank") << "mp3 "_ba << u"mp3"_s;
    QTest::newRow("blanks on both sides") << " ac "_ba << u"ac"_s;
    QTest::newRow("a blank inside stays") << "a  b"_ba << u"a  b"_s;
    QTest::newRow("ends at a zero byte") << QByteArray("a5\0x", 4) << u"a5"_s;
    QTest::newRow("a zero byte first") << QByteArray("\0abc", 4) << QString();
    QTest::newRow("nothing") << QByteArray(4, '\0') << QString();
    QTest::newRow("only blanks") << "    "_ba << QString();
    QTest::newRow("Latin-1") << "\xe4\xff\x80z"_ba << u"\u00e4\u00ff\u0080z"_s;
}

void tst_VlcTracks::namesACodec()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);
    quint32 code = 0;
    for (int index = 3; index >= 0; --index) {
        code = (code << 8U) | static_cast<quint8>(bytes[index]);
    }
    QCOMPARE(fourCcToString(code), name);
}

void tst_VlcTracks::withoutAStream()
{
    VlcPlayer &player = probe->player;
    QCOMPARE(player.mediaInfoText(), u"No media loaded."_s);
    QCOMPARE(player.audioTracks(), Tracks());
    QCOMPARE(player.subtitleTracks(), Tracks());
    QCOMPARE(player.currentAudioTrack(), -1);
    QCOMPARE(player.currentSubtitleTrack(), -1);
    QVERIFY(!player.hasSubtitles());
    QVERIFY(!player.subtitlesEnabled());
    player.setSubtitlesEnabled(true);
    player.setSubtitlesEnabled(false);
    QVERIFY(!player.subtitlesEnabled());
}

void tst_VlcTracks::beforeTheStreamOpens()
{
    HttpReply never;
    never.neverAnswer = true;
    server.on(u"/never.ts"_s, never);
    probe->player.play(server.url(u"/never.ts"_s), true);
    QTRY_COMPARE(server.openConnections(u"/never.ts"_s), 1);
    QCOMPARE(summary(probe->player), statistics);
    QCOMPARE(probe->player.audioTracks(), Tracks());
}

void tst_VlcTracks::listsTracks()
{
    play(u"tracks.mkv"_s);
    const VlcPlayer &player = probe->player;
    QCOMPARE(player.audioTracks(), sounds);
    QCOMPARE(player.subtitleTracks(), subtitles);
    QCOMPARE(player.currentAudioTrack(), 1);
    QCOMPARE(player.currentSubtitleTrack(), -1);
    QVERIFY(player.hasSubtitles());
    QVERIFY(!player.subtitlesEnabled());
}

void tst_VlcTracks::choosesASound()
{
    play(u"tracks.mkv"_s);
    probe->player.setAudioTrack(2);
    QTRY_COMPARE(probe->player.currentAudioTrack(), 2);
    probe->player.setAudioTrack(-1);
    QTRY_COMPARE(probe->player.currentAudioTrack(), -1);
    QCOMPARE(probe->player.audioTracks(), sounds);
    probe->player.setAudioTrack(1);
    QTRY_COMPARE(probe->player.currentAudioTrack(), 1);
}

void tst_VlcTracks::choosesSubtitles()
{
    play(u"tracks.mkv"_s);
    probe->player.setSubtitleTrack(4);
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), 4);
    QVERIFY(probe->player.subtitlesEnabled());
    probe->player.setSubtitleTrack(-1);
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), -1);
    QVERIFY(!probe->player.subtitlesEnabled());
    QVERIFY(probe->player.hasSubtitles());
    QCOMPARE(probe->player.subtitleTracks(), subtitles);
}

void tst_VlcTracks::switchesSubtitlesOffAndOn()
{
    play(u"tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    player.setSubtitleTrack(4);
    QTRY_COMPARE(player.currentSubtitleTrack(), 4);
    player.setSubtitlesEnabled(false);
    QTRY_COMPARE(player.currentSubtitleTrack(), -1);
    player.setSubtitlesEnabled(true);
    QTRY_COMPARE(player.currentSubtitleTrack(), 4);
}

void tst_VlcTracks::switchingOnWithoutARememberedTrackChangesNothing()
{
    play(u"tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    const auto staysOff = [this, &player] {
        player.setSubtitlesEnabled(true);
        const int positions = probe->positions;
        QTRY_VERIFY(probe->positions > positions);
        QCOMPARE(player.currentSubtitleTrack(), -1);
    };
    staysOff();
    player.setSubtitleTrack(3);
    QTRY_COMPARE(player.currentSubtitleTrack(), 3);
    player.setSubtitleTrack(-1); // is remembered as well
    QTRY_COMPARE(player.currentSubtitleTrack(), -1);
    staysOff();
}

void tst_VlcTracks::switchingOffTwiceForgetsTheTrack()
{
    play(u"tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    player.setSubtitleTrack(3);
    QTRY_COMPARE(player.currentSubtitleTrack(), 3);
    player.setSubtitlesEnabled(false);
    QTRY_COMPARE(player.currentSubtitleTrack(), -1);
    player.setSubtitlesEnabled(false);
    player.setSubtitlesEnabled(true);
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions > positions);
    QCOMPARE(player.currentSubtitleTrack(), -1);
}

void tst_VlcTracks::loadsASubtitleFile()
{
    // A name that must be encoded on its way to libVLC.
    QTemporaryDir directory;
    const QString path = directory.filePath(u"Ünter titel #1 100%25.srt"_s);
    QVERIFY(QFile::copy(streamPath(u"subtitles.srt"_s), path));

    play(u"tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    player.loadSubtitleFile(path);
    QTRY_COMPARE_WITH_TIMEOUT(player.subtitleTracks().size(), 3, openMs);
    const Tracks withFile = player.subtitleTracks();
    QCOMPARE(withFile.first(2), subtitles);
    QTRY_COMPARE_WITH_TIMEOUT(player.currentSubtitleTrack(), withFile.last().first, openMs);
    QVERIFY(player.subtitlesEnabled());

    player.setSubtitlesEnabled(false);
    QTRY_COMPARE(player.currentSubtitleTrack(), -1);
    player.setSubtitlesEnabled(true);
    QTRY_COMPARE(player.currentSubtitleTrack(), withFile.last().first);

    player.loadSubtitleFile(directory.filePath(u"missing.srt"_s));
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions >= positions + 2);
    QCOMPARE(player.subtitleTracks(), withFile);
}

void tst_VlcTracks::aSubtitleFileReplacesTheRememberedTrack()
{
    play(u"tracks.mkv"_s);
    VlcPlayer &player = probe->player;
    player.setSubtitleTrack(3);
    QTRY_COMPARE(player.currentSubtitleTrack(), 3);
    player.setSubtitlesEnabled(false);
    QTRY_COMPARE(player.currentSubtitleTrack(), -1);
    player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_COMPARE_WITH_TIMEOUT(player.subtitleTracks().size(), 3, openMs);
    const int file = player.subtitleTracks().last().first;
    QTRY_COMPARE_WITH_TIMEOUT(player.currentSubtitleTrack(), file, openMs);

    player.setSubtitlesEnabled(true);
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions >= positions + 2);
    QCOMPARE(player.currentSubtitleTrack(), file);
}

void tst_VlcTracks::summarizes_data()
{
    QTest::addColumn<QString>("stream");
    QTest::addColumn<QString>("text");

    const QString aac = audioBlock.arg(u"mp4a"_s).arg(2);
    QTest::newRow("picture, two sounds, two subtitles")
        << u"tracks.mkv"_s
        << videoBlock.arg(u"29.97"_s) + aac + aac +
               u"Audio tracks:\n  [ ] Disable\n  [*] English - [English]\n"
               "  [ ] Deutsch - [German]\n\n"
               "Subtitle tracks:\n  [*] Disable\n  [ ] English - [English]\n"
               "  [ ] Français - [French]\n\n"_s +
               statistics;
    QTest::newRow("picture and a sound without a name")
        << u"film.mp4"_s
        << videoBlock.arg(u"15.00"_s) + aac + u"Audio tracks:\n  [ ] Disable\n  [*] Track 1\n\n"_s +
               statistics;
    QTest::newRow("no sound") << u"silent.mp4"_s << videoBlock.arg(u"15.00"_s) + statistics;
    QTest::newRow("no picture") << u"audio.mp3"_s
                                << audioBlock.arg(u"mp3"_s).arg(1) +
                                       u"Audio tracks:\n  [ ] Disable\n  [*] Track 1\n\n"_s +
                                       statistics;
}

void tst_VlcTracks::summarizes()
{
    QFETCH(QString, stream);
    QFETCH(QString, text);
    play(stream);
    QCOMPARE(summary(probe->player), text);
}

void tst_VlcTracks::summaryMarksTheChosenTracks()
{
    play(u"tracks.mkv"_s);
    probe->player.setAudioTrack(2);
    probe->player.setSubtitleTrack(3);
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), 3);
    const QString text = summary(probe->player);
    QVERIFY2(text.contains(u"Audio tracks:\n  [ ] Disable\n  [ ] English - [English]\n"
                           "  [*] Deutsch - [German]\n\n"
                           "Subtitle tracks:\n  [ ] Disable\n  [*] English - [English]\n"
                           "  [ ] Français - [French]\n\n"_s),
             qPrintable(text));
}

void tst_VlcTracks::afterStop()
{
    play(u"tracks.mkv"_s);
    probe->player.stop();
    QCOMPARE(probe->player.audioTracks(), Tracks());
    QCOMPARE(probe->player.subtitleTracks(), Tracks());
    QVERIFY(!probe->player.hasSubtitles());
    QVERIFY(!probe->player.mediaInfoText().contains(u"tracks:"_s));
}

VANTIRO_TEST_MAIN(tst_VlcTracks)
#include "tst_VlcTracks.moc"
