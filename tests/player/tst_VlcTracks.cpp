#include "PlayerTest.h"
#include "support/TestMain.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

using Tracks = QList<VlcPlayer::Track>;

const Tracks sounds{{1, u"English - [English]"_s}, {2, u"Deutsch - [German]"_s}};
const Tracks subtitles{{3, u"English - [English]"_s}, {4, u"Français - [French]"_s}};

const QString statistics =
    u"Input bitrate: #.# kbps\nDemux bitrate: #.# kbps\nDecoded video blocks: #\n"
    "Decoded audio blocks: #\nDisplayed frames: #   Lost frames: #\n"_s;
const QString videoBlock = u"Video codec: h264\nResolution: 320x180\nFrame rate: %1 fps\n\n"_s;
const QString audioBlock = u"Audio codec: %1\nSample rate: 48000 Hz\nChannels: %2\n\n"_s;

/// The summary with the figures of its statistics replaced by "#".
QString summary(const VlcPlayer &player)
{
    QString text = player.mediaInfoText();
    const qsizetype begin = text.indexOf("Input bitrate:"_L1);
    static const QRegularExpression figure(u"\\d+"_s);
    return begin < 0 ? text : text.left(begin) + text.mid(begin).replace(figure, u"#"_s);
}

} // namespace

class tst_VlcTracks : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void namesACodec_data();
    void namesACodec();
    void withoutAStream();
    void beforeTheStreamOpens();
    void listsTracks();
    void choosesASound();
    void choosesSubtitles();
    void switchesSubtitlesOn_data();
    void switchesSubtitlesOn();
    void loadsASubtitleFile();
    void aSubtitleFileReplacesTheSavedTrack();
    void summarizes_data();
    void summarizes();
    void summaryMarksTheChosenTracks();
    void afterStop();

private:
    /// Plays one of the generated streams until its tracks are known.
    void open(const QString &stream = u"tracks.mkv"_s);
    /// Selects subtitles as the menu does.
    void select(int subtitleTrack);
    void switchOff();
    /// Enables subtitles and lets libVLC report what follows from it.
    void switchOn();
};

void tst_VlcTracks::open(const QString &stream)
{
    play(u"/files/"_s + stream);
    QTRY_VERIFY_WITH_TIMEOUT(probe->positions >= 3, openMs);
}

void tst_VlcTracks::select(int subtitleTrack)
{
    probe->player.setSubtitleTrack(subtitleTrack);
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), subtitleTrack);
}

void tst_VlcTracks::switchOff()
{
    probe->player.setSubtitlesEnabled(false);
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), -1);
}

void tst_VlcTracks::switchOn()
{
    probe->player.setSubtitlesEnabled(true);
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions >= positions + 2);
}

void tst_VlcTracks::namesACodec_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");

    QTest::newRow("four letters") << "h264"_ba << u"h264"_s;
    QTest::newRow("padded with a space") << "mp3 "_ba << u"mp3"_s;
    QTest::newRow("spaces on both sides") << " ac "_ba << u"ac"_s;
    QTest::newRow("a space inside stays") << "a  b"_ba << u"a  b"_s;
    QTest::newRow("ends at a zero byte") << QByteArray("a5\0x", 4) << u"a5"_s;
    QTest::newRow("a zero byte first") << QByteArray("\0abc", 4) << QString();
    QTest::newRow("nothing") << QByteArray(4, '\0') << QString();
    QTest::newRow("only spaces") << "    "_ba << QString();
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
    play(u"/never.ts"_s, true);
    QTRY_COMPARE(server->openConnections(u"/never.ts"_s), 1);
    QCOMPARE(summary(probe->player), statistics);
    QCOMPARE(probe->player.audioTracks(), Tracks());
}

void tst_VlcTracks::listsTracks()
{
    open();
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
    open();
    for (const int track : {2, -1, 1}) {
        probe->player.setAudioTrack(track);
        QTRY_COMPARE(probe->player.currentAudioTrack(), track);
        QCOMPARE(probe->player.audioTracks(), sounds);
    }
}

void tst_VlcTracks::choosesSubtitles()
{
    open();
    for (const int track : {4, -1}) {
        select(track);
        QCOMPARE(probe->player.subtitlesEnabled(), track != -1);
        QVERIFY(probe->player.hasSubtitles());
        QCOMPARE(probe->player.subtitleTracks(), subtitles);
    }
}

void tst_VlcTracks::switchesSubtitlesOn_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<int>("timesOff");
    QTest::addColumn<int>("track");

    QTest::newRow("restores the track") << QList<int>{4} << 1 << 4;
    QTest::newRow("changes nothing without a saved track") << QList<int>{} << 0 << -1;
    QTest::newRow("saves that none is selected") << QList<int>{3, -1} << 0 << -1;
    QTest::newRow("switching off twice forgets the track") << QList<int>{3} << 2 << -1;
}

void tst_VlcTracks::switchesSubtitlesOn()
{
    QFETCH(const QList<int>, selected);
    QFETCH(int, timesOff);
    QFETCH(int, track);
    open();
    for (const int each : selected) {
        select(each);
    }
    for (int times = 0; times < timesOff; ++times) {
        switchOff();
    }
    switchOn();
    QTRY_COMPARE(probe->player.currentSubtitleTrack(), track);
}

void tst_VlcTracks::loadsASubtitleFile()
{
    // The name must be encoded for libVLC.
    QTemporaryDir directory;
    const QString path = directory.filePath(u"Ünter titel #1 100%25.srt"_s);
    QVERIFY(QFile::copy(streamPath(u"subtitles.srt"_s), path));

    open();
    VlcPlayer &player = probe->player;
    player.loadSubtitleFile(path);
    QTRY_COMPARE_WITH_TIMEOUT(player.subtitleTracks().size(), 3, openMs);
    const Tracks withFile = player.subtitleTracks();
    QCOMPARE(withFile.first(2), subtitles);
    QTRY_COMPARE_WITH_TIMEOUT(player.currentSubtitleTrack(), withFile.last().first, openMs);
    QVERIFY(player.subtitlesEnabled());

    switchOff();
    switchOn();
    QTRY_COMPARE(player.currentSubtitleTrack(), withFile.last().first);

    player.loadSubtitleFile(directory.filePath(u"missing.srt"_s));
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions >= positions + 2);
    QCOMPARE(player.subtitleTracks(), withFile);
}

void tst_VlcTracks::aSubtitleFileReplacesTheSavedTrack()
{
    open();
    VlcPlayer &player = probe->player;
    select(3);
    switchOff();
    player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_COMPARE_WITH_TIMEOUT(player.subtitleTracks().size(), 3, openMs);
    const int file = player.subtitleTracks().last().first;
    QTRY_COMPARE_WITH_TIMEOUT(player.currentSubtitleTrack(), file, openMs);
    switchOn();
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
    open(stream);
    QCOMPARE(summary(probe->player), text);
}

void tst_VlcTracks::summaryMarksTheChosenTracks()
{
    open();
    probe->player.setAudioTrack(2);
    select(3);
    const QString text = summary(probe->player);
    QVERIFY2(text.contains(u"Audio tracks:\n  [ ] Disable\n  [ ] English - [English]\n"
                           "  [*] Deutsch - [German]\n\n"
                           "Subtitle tracks:\n  [ ] Disable\n  [*] English - [English]\n"
                           "  [ ] Français - [French]\n\n"_s),
             qPrintable(text));
}

void tst_VlcTracks::afterStop()
{
    open();
    probe->player.stop();
    QCOMPARE(probe->player.audioTracks(), Tracks());
    QCOMPARE(probe->player.subtitleTracks(), Tracks());
    QVERIFY(!probe->player.hasSubtitles());
    QVERIFY(!probe->player.mediaInfoText().contains(u"tracks:"_s));
}

VANTIRO_TEST_MAIN(tst_VlcTracks)
#include "tst_VlcTracks.moc"
