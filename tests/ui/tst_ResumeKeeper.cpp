// Where films and episodes are left is kept, and offered.

#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "library/Library.h"
#include "player/VlcPlayer.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"
#include "ui/PlaybackSession.h"
#include "ui/ResumeKeeper.h"

#include <QFile>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int openMs = 20000;
constexpr qint64 second = 1000;
const QString film = u"/files/film-faststart.mp4"_s; ///< of 60 s
const QString silent = u"/silent"_s;                 ///< never answers
const QString source = u"S"_s;

Progress movie(const QString &id, qint64 positionMs = 0)
{
    Progress row = progressOf({source, EntryKind::Movie, id, u"Name of "_s + id, u"c"_s});
    row.positionMs = positionMs;
    row.durationMs = positionMs > 0 ? 60 * second : 0;
    return row;
}

/// A keeper on a real player without a picture.
struct Viewer
{
    Viewer()
    {
        server.serveDirectory(u"/files/"_s, streamPath({}));
        server.on(silent, neverAnswers());
        QObject::connect(&keeper, &ResumeKeeper::offered, &context,
                         [this](qint64 ms) { offeredMs = ms; });
        QObject::connect(&keeper, &ResumeKeeper::withdrawn, &context, [this] { offeredMs = 0; });
    }

    void play(const Progress &entry, const QString &path = silent)
    {
        keeper.follow(entry);
        session.play(StreamKind::Movie, server.url(path), entry.name);
    }
    void playChannel()
    {
        keeper.follow({});
        session.play(StreamKind::Live, server.url(silent), u"Channel"_s);
    }
    /// As the player reports it twice a second, of 60 s.
    void reports(qint64 ms, qint64 lengthMs = 60 * second)
    {
        Q_EMIT player.positionChanged(ms, lengthMs);
    }
    [[nodiscard]] bool reaches(qint64 ms) const
    {
        return QTest::qWaitFor(
            [&] { return player.isPlaying() && player.lengthMs() > 0 && player.timeMs() >= ms; },
            openMs);
    }
    Progress kept(const QString &id) const
    {
        return library.progress(source, EntryKind::Movie).value(id);
    }

    HttpServer server;
    Library library{nullptr};
    VlcPlayer player{nullptr, nullptr};
    PlaybackSession session{&player, nullptr};
    ResumeKeeper keeper{&player, &session, &library, nullptr};
    QTimer &offerTimer = *keeper.findChild<QTimer *>(u"offerTimer"_s);
    qint64 offeredMs = 0;

private:
    QObject context;
};

using Step = std::function<void(Viewer &)>;

} // namespace

class tst_ResumeKeeper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { viewer.reset(); }

    void realFilm();
    void keepsAPlaceEveryTenSeconds();
    void keepsThePlaceAtWhichItEnds_data();
    void keepsThePlaceAtWhichItEnds();
    void aFilmPlayedToItsEndIsWatched();
    void keepsNothingOfWhatHasNotBegun_data();
    void keepsNothingOfWhatHasNotBegun();
    void followsItsSource_data();
    void followsItsSource();
    void offersThePlaceThatWasKept();
    void withdrawsTheOffer_data();
    void withdrawsTheOffer();
    void offersThePlaceOfAnInterruption_data();
    void offersThePlaceOfAnInterruption();
    void goesOnAfterAStop();

private:
    std::unique_ptr<Viewer> viewer;
};

void tst_ResumeKeeper::init()
{
    PrivateProfile::current().clear();
    viewer = std::make_unique<Viewer>();
}

void tst_ResumeKeeper::realFilm()
{
    viewer->play(movie(u"1"_s), film);
    QVERIFY(viewer->reaches(1));
    viewer->player.seek(40 * second);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->kept(u"1"_s).positionMs >= 39 * second, openMs);
    QVERIFY(viewer->kept(u"1"_s).durationMs > 59 * second);
    // The user moves it while it is paused, and leaves.
    viewer->player.togglePause();
    QTRY_VERIFY(!viewer->player.isPlaying());
    viewer->player.seek(50 * second);
    viewer->play(movie(u"2"_s));
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 50 * second);

    viewer->play(movie(u"1"_s), film);
    QCOMPARE(viewer->offeredMs, 50 * second);
    viewer->keeper.continueAtOffer();
    QVERIFY(viewer->reaches(49 * second));
    QVERIFY(!viewer->kept(u"1"_s).watched);
    viewer->player.seek(59 * second);
    QTRY_VERIFY_WITH_TIMEOUT(viewer->kept(u"1"_s).watched, openMs);
}

void tst_ResumeKeeper::keepsAPlaceEveryTenSeconds()
{
    viewer->play(movie(u"1"_s));
    QList<qint64> kept;
    for (qint64 ms = 29 * second; ms <= 50 * second; ms += second / 2) {
        viewer->reports(ms);
        const qint64 now = viewer->kept(u"1"_s).positionMs;
        if (now != (kept.isEmpty() ? 0 : kept.last()))
            kept << now;
    }
    // What was written at 29 s had not begun.
    QCOMPARE(kept, (QList<qint64>{39 * second, 49 * second}));
    Progress expected = movie(u"1"_s, 49 * second);
    expected.updatedAt = viewer->kept(u"1"_s).updatedAt;
    QCOMPARE(viewer->kept(u"1"_s), expected);
}

void tst_ResumeKeeper::keepsThePlaceAtWhichItEnds_data()
{
    QTest::addColumn<Step>("ending");
    QTest::newRow("another entry") << Step([](Viewer &v) { v.play(movie(u"2"_s)); });
    QTest::newRow("a channel") << Step([](Viewer &v) { v.playChannel(); });
    QTest::newRow("a stop") << Step([](Viewer &v) { v.session.stop(); });
    QTest::newRow("an interruption") << Step([](Viewer &v) { v.session.interrupt({}); });
    QTest::newRow("the window closes") << Step([](Viewer &v) { v.keeper.keepPlace(); });
}

void tst_ResumeKeeper::keepsThePlaceAtWhichItEnds()
{
    QFETCH(const Step, ending);
    viewer->play(movie(u"1"_s));
    viewer->reports(40 * second);
    viewer->reports(42 * second);
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 40 * second);
    ending(*viewer);
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 42 * second);
    QCOMPARE(viewer->library.rows().progress.size(), 1);
}

void tst_ResumeKeeper::aFilmPlayedToItsEndIsWatched()
{
    viewer->play(movie(u"1"_s));
    viewer->reports(50 * second);
    viewer->reports(55 * second);
    QVERIFY(!viewer->kept(u"1"_s).watched);
    Q_EMIT viewer->player.finished();
    QVERIFY(viewer->kept(u"1"_s).watched);
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 0);
}

void tst_ResumeKeeper::keepsNothingOfWhatHasNotBegun_data()
{
    QTest::addColumn<Step>("use");
    QTest::newRow("nothing") << Step([](Viewer &) {});
    QTest::newRow("under 30 s") << Step([](Viewer &v) {
        v.play(movie(u"1"_s));
        v.reports(15 * second);
        v.reports(30 * second - 1);
    });
    QTest::newRow("a film that does not start") << Step([](Viewer &v) { v.play(movie(u"1"_s)); });
    QTest::newRow("a film without a length") << Step([](Viewer &v) {
        v.play(movie(u"1"_s));
        v.reports(40 * second, 0);
        Q_EMIT v.player.finished();
    });
    QTest::newRow("a channel") << Step([](Viewer &v) {
        v.playChannel();
        v.reports(40 * second);
    });
    QTest::newRow("a channel after a film") << Step([](Viewer &v) {
        v.play(movie(u"1"_s));
        v.playChannel();
        v.reports(40 * second);
    });
}

void tst_ResumeKeeper::keepsNothingOfWhatHasNotBegun()
{
    QFETCH(const Step, use);
    use(*viewer);
    viewer->session.interrupt({});
    viewer->session.stop();
    QVERIFY(viewer->library.flush());
    QCOMPARE(viewer->library.rows(), LibraryRows());
    QVERIFY(!QFile::exists(Library::defaultFilePath()));
}

void tst_ResumeKeeper::followsItsSource_data()
{
    QTest::addColumn<QString>("newName");
    QTest::newRow("renamed") << u"New"_s;
    QTest::newRow("deleted") << QString();
}

void tst_ResumeKeeper::followsItsSource()
{
    QFETCH(const QString, newName);
    viewer->library.notePosition(movie(u"1"_s, 31 * second));
    viewer->play(movie(u"1"_s));
    viewer->reports(40 * second);
    if (newName.isEmpty())
        viewer->library.forgetSource(source);
    else
        viewer->library.renameSource(source, newName);
    viewer->keeper.moveSource(u"Other"_s, {});
    QCOMPARE(viewer->offeredMs, 31 * second);
    viewer->keeper.moveSource(source, newName);
    QCOMPARE(viewer->offeredMs, newName.isEmpty() ? 0 : 31 * second);
    viewer->reports(52 * second);
    QStringList kept;
    for (const Progress &row : viewer->library.rows().progress)
        kept << row.source + u' ' + QString::number(row.positionMs);
    QCOMPARE(kept, newName.isEmpty() ? QStringList() : QStringList{u"New 52000"_s});
}

void tst_ResumeKeeper::offersThePlaceThatWasKept()
{
    viewer->library.notePosition(movie(u"1"_s, 40 * second));
    viewer->play(movie(u"2"_s));
    QCOMPARE(viewer->offeredMs, 0);
    viewer->play(movie(u"1"_s));
    QCOMPARE(viewer->offeredMs, 40 * second);
    QVERIFY(viewer->offerTimer.isActive());
    QCOMPARE(viewer->offerTimer.interval(), 15000);
}

void tst_ResumeKeeper::withdrawsTheOffer_data()
{
    QTest::addColumn<Step>("reason");
    QTest::newRow("it expires") << Step([](Viewer &v) { v.offerTimer.start(1); });
    QTest::newRow("it is taken") << Step([](Viewer &v) { v.keeper.continueAtOffer(); });
    QTest::newRow("another entry") << Step([](Viewer &v) { v.play(movie(u"2"_s)); });
    QTest::newRow("a stop") << Step([](Viewer &v) { v.session.stop(); });
    QTest::newRow("an interruption") << Step([](Viewer &v) { v.session.interrupt({}); });
}

void tst_ResumeKeeper::withdrawsTheOffer()
{
    QFETCH(const Step, reason);
    viewer->library.notePosition(movie(u"1"_s, 40 * second));
    viewer->play(movie(u"1"_s));
    QCOMPARE(viewer->offeredMs, 40 * second);
    reason(*viewer);
    QTRY_COMPARE(viewer->offeredMs, 0);
    QVERIFY(!viewer->offerTimer.isActive());
}

void tst_ResumeKeeper::offersThePlaceOfAnInterruption_data()
{
    QTest::addColumn<qint64>("interruptedMs");
    QTest::addColumn<qint64>("offeredMs");
    QTest::newRow("on its way") << 40 * second << 40 * second;
    QTest::newRow("over 95 %") << 58 * second << 58 * second;
    QTest::newRow("under 30 s: what was kept before") << 10 * second << 31 * second;
}

void tst_ResumeKeeper::offersThePlaceOfAnInterruption()
{
    QFETCH(const qint64, interruptedMs);
    QFETCH(const qint64, offeredMs);
    viewer->library.notePosition(movie(u"1"_s, 31 * second));
    viewer->play(movie(u"1"_s));
    viewer->reports(interruptedMs);
    // The second one comes before anything has played again.
    for (int round = 0; round < 2; ++round) {
        viewer->session.interrupt({});
        QCOMPARE(viewer->offeredMs, 0);
        viewer->session.replay();
        QCOMPARE(viewer->offeredMs, offeredMs);
    }
    // Of another entry nothing is known.
    viewer->play(movie(u"2"_s));
    QCOMPARE(viewer->offeredMs, 0);
}

void tst_ResumeKeeper::goesOnAfterAStop()
{
    viewer->play(movie(u"1"_s));
    viewer->reports(40 * second);
    viewer->session.stop();
    viewer->session.replay();
    QCOMPARE(viewer->offeredMs, 40 * second);
    viewer->reports(52 * second);
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 52 * second);
    // Forgotten, it is followed no more.
    viewer->session.forget();
    viewer->reports(70 * second);
    QCOMPARE(viewer->kept(u"1"_s).positionMs, 52 * second);
}

VANTIRO_TEST_GUILESS_MAIN(tst_ResumeKeeper)
#include "tst_ResumeKeeper.moc"
