// The languages that are chosen by hand hold for the next streams of the source.

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "support/PrivateProfile.h"
#include "support/TestMain.h"
#include "ui/LanguageKeeper.h"
#include "ui/PlaybackSession.h"

#include <QFile>
#include <QSignalSpy>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr int openMs = 20000;

// Of tracks.mkv.
constexpr int english = 1;
constexpr int german = 2;
constexpr int englishSubtitles = 3;
constexpr int frenchSubtitles = 4;
constexpr int none = -1;

/// A keeper on a real player without a picture.
struct Viewer
{
    Viewer() { server.serveDirectory(u"/files/"_s, streamPath({})); }

    /// Plays an entry of that source until its tracks are known and were checked.
    void watch(const QString &source, const QString &stream = u"tracks.mkv"_s)
    {
        playing = source;
        session.play(StreamKind::Movie, server.url(u"/files/"_s + stream), u"Film"_s);
        const QSignalSpy progress(&player, &VlcPlayer::playbackProgressing);
        QTRY_VERIFY_WITH_TIMEOUT(progress.count() >= 2, openMs);
    }

    HttpServer server;
    Library library{nullptr};
    VlcPlayer player{nullptr, nullptr};
    PlaybackSession session{&player, nullptr};
    QString playing; ///< the source of what plays
    LanguageKeeper keeper{&player, &session, &library, [this] { return playing; }, nullptr};
};

using Choice = std::function<void(VlcPlayer &)>;

} // namespace

class tst_LanguageKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { PrivateProfile::current().clear(); }
    void canonical_data();
    void canonical();
    void theNextStreamOfTheSourceTakesIt_data();
    void theNextStreamOfTheSourceTakesIt();
    void whatPlaysAlreadyIsNotSelectedAgain();
    void anotherSourceDoesNot();
    void aStreamWithoutTheLanguageStaysAsItIs();
    void aTrackWithoutALanguageIsNotStored();
    void nothingIsStoredBeforeAChoice();
    void aLaterChoiceInTheStreamStays();
    void aSubtitleFileShowsAlthoughTheyAreOff();
    void subtitlesStayOff();
    void goesAlongWithTheSource();
};

/// Leaves libVLC no way to open a window of its own, so that it plays without a picture.
void tst_LanguageKeeper::initTestCase()
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("CACA_DRIVER", "null");
}

void tst_LanguageKeeper::canonical_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("expected");
    for (const QString &code : {u"de"_s, u"deu"_s, u"ger"_s, u" GER "_s}) {
        QTest::newRow(qPrintable(code)) << code << u"de"_s;
    }
    QTest::newRow("a name") << u"Director's comment"_s << u"director's comment"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void tst_LanguageKeeper::canonical()
{
    QFETCH(QString, language);
    QTEST(canonicalLanguage(language), "expected");
}

void tst_LanguageKeeper::theNextStreamOfTheSourceTakesIt_data()
{
    QTest::addColumn<Choice>("choice");
    QTest::addColumn<int>("audio");
    QTest::addColumn<int>("subtitles");
    QTest::newRow("audio") << Choice([](VlcPlayer &player) { player.setAudioTrack(german); })
                           << german << englishSubtitles;
    QTest::newRow("subtitles") << Choice([](VlcPlayer &player) {
        player.setSubtitleTrack(frenchSubtitles);
    }) << english << frenchSubtitles;
    QTest::newRow("subtitles off stays off")
        << Choice([](VlcPlayer &player) { player.setSubtitleTrack(none); }) << english << none;
    QTest::newRow("both") << Choice([](VlcPlayer &player) {
        player.setAudioTrack(german);
        player.setSubtitleTrack(frenchSubtitles);
    }) << german << frenchSubtitles;
}

void tst_LanguageKeeper::theNextStreamOfTheSourceTakesIt()
{
    QFETCH(Choice, choice);
    QFETCH(int, audio);
    QFETCH(int, subtitles);
    Viewer viewer;
    viewer.watch(u"S"_s);
    QCOMPARE(viewer.player.currentAudioTrack(), english);
    const int subtitlesAtFirst = viewer.player.currentSubtitleTrack();
    choice(viewer.player);
    viewer.watch(u"S"_s);
    QTRY_COMPARE(viewer.player.currentAudioTrack(), audio);
    // What libVLC selects by itself is its affair.
    QTRY_COMPARE(viewer.player.currentSubtitleTrack(),
                 subtitles == englishSubtitles ? subtitlesAtFirst : subtitles);
}

void tst_LanguageKeeper::whatPlaysAlreadyIsNotSelectedAgain()
{
    Viewer viewer;
    // libVLC selects the first audio track and these subtitles by itself.
    const QString ownSubtitles = u"default-subtitles.mkv"_s;
    viewer.watch(u"S"_s, ownSubtitles);
    QTRY_VERIFY(viewer.player.currentSubtitleTrack() >= 0);
    viewer.player.setSubtitleTrack(viewer.player.currentSubtitleTrack());
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).subtitles, u"en"_s);
    viewer.watch(u"T"_s);
    viewer.player.setAudioTrack(viewer.player.currentAudioTrack());
    QCOMPARE(viewer.library.preferredLanguages(u"T"_s).audio, u"en"_s);

    const QSignalSpy audio(&viewer.player, &VlcPlayer::audioTrackSet);
    const QSignalSpy subtitles(&viewer.player, &VlcPlayer::subtitleTrackSet);
    viewer.watch(u"S"_s, ownSubtitles);
    QVERIFY(viewer.player.currentSubtitleTrack() >= 0);
    viewer.watch(u"T"_s);
    QCOMPARE(viewer.player.currentAudioTrack(), english);
    QCOMPARE(audio.count(), 0);
    QCOMPARE(subtitles.count(), 0);
}

void tst_LanguageKeeper::anotherSourceDoesNot()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.player.setAudioTrack(german);
    viewer.watch(u"T"_s);
    QCOMPARE(viewer.player.currentAudioTrack(), english);
}

void tst_LanguageKeeper::aStreamWithoutTheLanguageStaysAsItIs()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.player.setAudioTrack(german);
    viewer.player.setSubtitleTrack(frenchSubtitles);
    viewer.watch(u"S"_s, u"audio.mp3"_s);
    QVERIFY(viewer.player.currentAudioTrack() >= 0);
    QCOMPARE(viewer.player.currentSubtitleTrack(), none);
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).audio, u"de"_s);
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).subtitles, u"fr"_s);
}

void tst_LanguageKeeper::aTrackWithoutALanguageIsNotStored()
{
    Viewer viewer;
    viewer.watch(u"S"_s, u"audio.mp3"_s);
    const QSignalSpy chosen(&viewer.player, &VlcPlayer::audioTrackSet);
    viewer.player.setAudioTrack(viewer.player.currentAudioTrack());
    QCOMPARE(chosen.count(), 1);
    viewer.watch(u"S"_s);
    viewer.player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_COMPARE(viewer.player.subtitleTracks().size(), 3);
    viewer.player.setSubtitleTrack(viewer.player.subtitleTracks().constLast().first);
    QVERIFY(viewer.library.isEmpty(LibraryPart::Languages));
}

void tst_LanguageKeeper::nothingIsStoredBeforeAChoice()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.watch(u"S"_s);
    QVERIFY(viewer.library.isEmpty(LibraryPart::Languages));
    QVERIFY(!QFile::exists(Library::defaultFilePath()));
    // Of an entry of no source nothing is stored either.
    viewer.watch({});
    viewer.player.setAudioTrack(german);
    viewer.player.setSubtitleTrack(frenchSubtitles);
    QVERIFY(viewer.library.isEmpty(LibraryPart::Languages));
}

void tst_LanguageKeeper::aLaterChoiceInTheStreamStays()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.player.setAudioTrack(german);
    viewer.watch(u"S"_s);
    QTRY_COMPARE(viewer.player.currentAudioTrack(), german);
    viewer.player.setAudioTrack(english);
    const QSignalSpy progress(&viewer.player, &VlcPlayer::playbackProgressing);
    QTRY_VERIFY(progress.count() >= 3);
    QCOMPARE(viewer.player.currentAudioTrack(), english);
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).audio, u"en"_s);
}

void tst_LanguageKeeper::aSubtitleFileShowsAlthoughTheyAreOff()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.player.setSubtitleTrack(none);
    viewer.watch(u"S"_s);
    viewer.player.loadSubtitleFile(streamPath(u"subtitles.srt"_s));
    QTRY_VERIFY(viewer.player.subtitlesEnabled());
    const QSignalSpy progress(&viewer.player, &VlcPlayer::playbackProgressing);
    QTRY_VERIFY(progress.count() >= 3);
    QVERIFY(viewer.player.subtitlesEnabled());
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).subtitles, subtitlesOff);
}

/// libVLC selects some by itself.
void tst_LanguageKeeper::subtitlesStayOff()
{
    const QString stream = u"default-subtitles.mkv"_s;
    Viewer viewer;
    viewer.watch(u"T"_s, stream);
    QTRY_VERIFY(viewer.player.currentSubtitleTrack() >= 0);
    viewer.watch(u"S"_s);
    viewer.player.setSubtitleTrack(none);
    viewer.watch(u"S"_s, stream);
    QTRY_COMPARE(viewer.player.currentSubtitleTrack(), none);
    QCOMPARE(viewer.library.preferredLanguages(u"S"_s).subtitles, subtitlesOff);
}

void tst_LanguageKeeper::goesAlongWithTheSource()
{
    Viewer viewer;
    viewer.watch(u"S"_s);
    viewer.library.renameSource(u"S"_s, u"New"_s);
    viewer.playing = u"New"_s;
    viewer.player.setAudioTrack(german);
    QCOMPARE(viewer.library.preferredLanguages(u"New"_s).audio, u"de"_s);
    viewer.library.forgetSource(u"New"_s);
    viewer.playing.clear();
    QVERIFY(viewer.library.isEmpty(LibraryPart::Languages));
    viewer.player.setAudioTrack(english);
    QVERIFY(viewer.library.isEmpty(LibraryPart::Languages));
}

VANTIRO_TEST_MAIN(tst_LanguageKeeper)
#include "tst_LanguageKeeper.moc"
