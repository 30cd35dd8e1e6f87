#include "PlayerTest.h"

#include <QRegularExpression>
#include <QTemporaryDir>

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
    void choosesTracks();
    void switchesSubtitlesOn_data();
    void switchesSubtitlesOn();
    void loadsASubtitleFile();
    void summarizes_data();
    void summarizes();

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

    QTest::newRow("spaces inside stay") << " a b"_ba << u"a b"_s;
    QTest::newRow("ends at a zero byte") << "a5\0x"_ba << u"a5"_s;
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
    QTRY_COMPARE_WITH_TIMEOUT(server->openConnections(u"/never.ts"_s), 1, openMs);
    QCOMPARE(summary(probe->player), statistics);
    QCOMPARE(probe->player.audioTracks(), Tracks());
}

void tst_VlcTracks::choosesTracks()
{
    open();
    VlcPlayer &player = probe->player;
    QCOMPARE(player.currentAudioTrack(), 1);
    QCOMPARE(player.currentSubtitleTrack(), -1);
    for (const int track : {-1, 1, 2}) {
        player.setAudioTrack(track);
        QTRY_COMPARE(player.currentAudioTrack(), track);
        QCOMPARE(player.audioTracks(), sounds);
    }
    for (const int track : {4, -1, 3}) {
        select(track);
        QCOMPARE(player.subtitlesEnabled(), track != -1);
        QVERIFY(player.hasSubtitles());
        QCOMPARE(player.subtitleTracks(), subtitles);
    }
    const QString text = summary(player);
    QVERIFY2(text.contains(u"Audio tracks:\n  [ ] Disable\n  [ ] English - [English]\n"
                           "  [*] Deutsch - [German]\n\n"
                           "Subtitle tracks:\n  [ ] Disable\n  [*] English - [English]\n"
                           "  [ ] Français - [French]\n\n"_s),
             qPrintable(text));

    player.stop();
    QCOMPARE(player.audioTracks() + player.subtitleTracks(), Tracks());
    QVERIFY(!player.hasSubtitles());
    QVERIFY(!player.mediaInfoText().contains(u"tracks:"_s));
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
    // It replaces the saved track.
    select(3);
    switchOff();
    player.loadSubtitleFile(path);
    QTRY_COMPARE_WITH_TIMEOUT(player.subtitleTracks().size(), 3, openMs);
    const Tracks withFile = player.subtitleTracks();
    QCOMPARE(withFile.first(2), subtitles);
    const int file = withFile.last().first;
    QTRY_COMPARE_WITH_TIMEOUT(player.currentSubtitleTrack(), file, openMs);
    QVERIFY(player.subtitlesEnabled());
    switchOn();
    QTRY_COMPARE(player.currentSubtitleTrack(), file);
    switchOff();
    switchOn();
    QTRY_COMPARE(player.currentSubtitleTrack(), file);

    player.loadSubtitleFile(directory.filePath(u"missing.srt"_s));
    const int positions = probe->positions;
    QTRY_VERIFY(probe->positions >= positions + 2);
    QCOMPARE(player.subtitleTracks(), withFile);
}

void tst_VlcTracks::summarizes_data()
{
    QTest::addColumn<QString>("text"); ///< without the statistics
    const QString aac = audioBlock.arg(u"mp4a"_s).arg(2);
    const QString oneSound = u"Audio tracks:\n  [ ] Disable\n  [*] Track 1\n\n"_s;
    QTest::newRow("tracks.mkv") << videoBlock.arg(u"29.97"_s) + aac + aac +
                                       u"Audio tracks:\n  [ ] Disable\n  [*] English - [English]\n"
                                       "  [ ] Deutsch - [German]\n\n"
                                       "Subtitle tracks:\n  [*] Disable\n"
                                       "  [ ] English - [English]\n"
                                       "  [ ] Français - [French]\n\n"_s;
    // A stream names its own codec.
    QTest::newRow("marked.mp4") << videoBlock.arg(u"15.00"_s).replace("h264"_L1, "%2%3"_L1) + aac +
                                       oneSound;
    QTest::newRow("film.mp4") << videoBlock.arg(u"15.00"_s) + aac + oneSound;
    QTest::newRow("silent.mp4") << videoBlock.arg(u"15.00"_s);
    QTest::newRow("audio.mp3") << audioBlock.arg(u"mp3"_s).arg(1) + oneSound;
}

void tst_VlcTracks::summarizes()
{
    QFETCH(QString, text);
    HttpReply marked = HttpReply::file(streamPath(u"film-faststart.mp4"_s));
    marked.body.replace("avc1", "%2%3");
    server->on(u"/files/marked.mp4"_s, marked);
    open(QString::fromLatin1(QTest::currentDataTag()));
    QTRY_COMPARE_WITH_TIMEOUT(summary(probe->player), text + statistics, openMs);
}

VANTIRO_TEST_MAIN(tst_VlcTracks)
#include "tst_VlcTracks.moc"
