#include "desktop/MediaControls.h"
#include "desktop/MprisClient.h"
#include "desktop/PrivateBus.h"
#include "support/TestMain.h"

#include <QSignalSpy>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 second = 1'000'000; // in microseconds

MediaStatus film()
{
    MediaStatus status;
    status.playback = MediaStatus::Playback::Playing;
    status.entry = 7;
    status.title = u"Die Brücke"_s;
    status.posterFile = u"/data/a b.img"_s;
    status.lengthMs = 60'000;
    status.canPlay = true;
    status.canSeek = true;
    status.volumePercent = 55;
    return status;
}

} // namespace

/// The desktop's player controls, over a real bus.
class tst_Mpris : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();
    void theRootTellsWhoItIs();
    void thePlayerTellsWhatPlays();
    void nothingPlays();
    void changesAreTold();
    void onlyJumpsAreTold();
    void requestsArrive_data();
    void requestsArrive();
    void whatIsNotPossibleIsNotAskedFor_data();
    void whatIsNotPossibleIsNotAskedFor();
    void volumeIsAFraction_data();
    void volumeIsAFraction();
    void anotherProgramTakesAnotherName();
    void theNameGoesWithTheProgram();

private:
    std::unique_ptr<PrivateBus> bus;
    std::unique_ptr<MprisClient> desktop;
    std::unique_ptr<MediaControls> controls;
};

// The D-Bus library keeps the address of the first session bus that a program has found.
void tst_Mpris::initTestCase()
{
    bus = std::make_unique<PrivateBus>();
}

void tst_Mpris::cleanupTestCase()
{
    bus.reset();
}

void tst_Mpris::init()
{
    desktop = std::make_unique<MprisClient>(bus.get());
    controls = std::make_unique<MediaControls>(nullptr);
    QTRY_VERIFY(desktop->isThere());
}

void tst_Mpris::cleanup()
{
    controls.reset();
    desktop.reset();
    QTRY_VERIFY(!bus->hasService(MprisClient::name()));
}

void tst_Mpris::theRootTellsWhoItIs()
{
    const QString root = MprisClient::rootInterface();
    QCOMPARE(desktop->get(u"Identity"_s, root), u"Vantiro Player"_s);
    QCOMPARE(desktop->get(u"DesktopEntry"_s, root), u"com.vantiro.Player"_s);
    QCOMPARE(desktop->get(u"CanRaise"_s, root), true);
    QCOMPARE(desktop->get(u"CanQuit"_s, root), true);
    QCOMPARE(desktop->get(u"HasTrackList"_s, root), false);
    const QSignalSpy raised(controls.get(), &MediaControls::raiseRequested);
    const QSignalSpy quit(controls.get(), &MediaControls::quitRequested);
    desktop->callOn(root, u"Raise"_s);
    QCOMPARE(raised.size(), 1);
    desktop->callOn(root, u"Quit"_s);
    QCOMPARE(quit.size(), 1);
}

void tst_Mpris::thePlayerTellsWhatPlays()
{
    controls->setStatus(film());
    controls->setPosition(12'000);
    QCOMPARE(desktop->get(u"PlaybackStatus"_s), u"Playing"_s);
    QCOMPARE(desktop->get(u"Position"_s), 12 * second);
    QCOMPARE(desktop->get(u"Volume"_s), 0.55);
    QCOMPARE(desktop->get(u"Rate"_s), 1.0);
    for (const QString &possible : {u"CanPlay"_s, u"CanPause"_s, u"CanSeek"_s, u"CanControl"_s}) {
        QCOMPARE(desktop->get(possible), true);
    }
    QCOMPARE(desktop->get(u"CanGoNext"_s), false);
    QCOMPARE(desktop->get(u"CanGoPrevious"_s), false);
    const QVariantMap metadata = desktop->metadata();
    QCOMPARE(metadata.value(u"xesam:title"_s), u"Die Brücke"_s);
    QCOMPARE(metadata.value(u"mpris:length"_s), QVariant(qlonglong{60 * second}));
    QCOMPARE(metadata.value(u"mpris:artUrl"_s), u"file:///data/a%20b.img"_s);
    QCOMPARE(metadata.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(),
             u"/com/vantiro/Player/track/7"_s);
}

void tst_Mpris::nothingPlays()
{
    QCOMPARE(desktop->get(u"PlaybackStatus"_s), u"Stopped"_s);
    QCOMPARE(desktop->metadata(), QVariantMap());
    QCOMPARE(desktop->get(u"CanPlay"_s), false);
}

void tst_Mpris::changesAreTold()
{
    MediaStatus status = film();
    controls->setStatus(status);
    QTRY_COMPARE(desktop->changes, 1);
    QCOMPARE(desktop->changed.value(u"PlaybackStatus"_s), u"Playing"_s);
    QVERIFY(desktop->changed.contains(u"Metadata"_s));

    desktop->changed.clear();
    status.playback = MediaStatus::Playback::Paused;
    status.canGoNext = true;
    controls->setStatus(status);
    QTRY_COMPARE(desktop->changes, 2);
    QCOMPARE(desktop->changed,
             (QVariantMap{{u"PlaybackStatus"_s, u"Paused"_s}, {u"CanGoNext"_s, true}}));

    desktop->changed.clear();
    status.title = u"The Bridge"_s;
    controls->setStatus(status);
    QTRY_COMPARE(desktop->changes, 3);
    QCOMPARE(desktop->changed.keys(), QStringList(u"Metadata"_s));
    status.posterFile = u"/data/later.img"_s;
    controls->setStatus(status);
    QTRY_COMPARE(desktop->changes, 4);
    QCOMPARE(desktop->changed.keys(), QStringList(u"Metadata"_s));

    controls->setStatus(status); // the same
    status.volumePercent = 10;
    controls->setStatus(status);
    QTRY_COMPARE(desktop->changed.value(u"Volume"_s), 0.1);
    QCOMPARE(desktop->changes, 5);
}

void tst_Mpris::onlyJumpsAreTold()
{
    controls->setStatus(film());
    controls->setPosition(500);
    controls->setPosition(1000);
    controls->setPosition(30'000);
    controls->setPosition(30'500);
    controls->setPosition(10'000);
    QTRY_COMPARE(desktop->seekedTo, (QList<qlonglong>{30 * second, 10 * second}));
}

void tst_Mpris::requestsArrive_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QMetaMethod>("signal");
    QTest::addColumn<QVariantList>("carries");
    const auto track = QVariant::fromValue(QDBusObjectPath(u"/com/vantiro/Player/track/7"_s));
    const auto row = [](const QString &method, const auto &signal,
                        const QVariantList &arguments = {}, const QVariantList &carries = {}) {
        QTest::newRow(qPrintable(method))
            << method << arguments << QMetaMethod::fromSignal(signal) << carries;
    };
    row(u"Play"_s, &MediaControls::playRequested);
    row(u"Pause"_s, &MediaControls::pauseRequested);
    row(u"PlayPause"_s, &MediaControls::playPauseRequested);
    row(u"Stop"_s, &MediaControls::stopRequested);
    row(u"Next"_s, &MediaControls::nextRequested);
    row(u"Previous"_s, &MediaControls::previousRequested);
    row(u"Seek"_s, &MediaControls::seekRelativeRequested, {-10 * second}, {qint64{-10'000}});
    row(u"SetPosition"_s, &MediaControls::seekRequested, {track, 60 * second}, {qint64{60'000}});
}

void tst_Mpris::requestsArrive()
{
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    QFETCH(const QMetaMethod, signal);
    QFETCH(const QVariantList, carries);
    MediaStatus status = film();
    status.canGoNext = status.canGoPrevious = true;
    controls->setStatus(status);
    const QSignalSpy spy(controls.get(), signal);
    QCOMPARE(desktop->call(method, arguments).type(), QDBusMessage::ReplyMessage);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first(), carries);
}

void tst_Mpris::whatIsNotPossibleIsNotAskedFor_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<bool>("canSeek");
    const auto track = [](const QString &path) {
        return QVariant::fromValue(QDBusObjectPath(path));
    };
    const QString current = u"/com/vantiro/Player/track/7"_s;
    QTest::newRow("next of the last one") << u"Next"_s << QVariantList() << true;
    QTest::newRow("previous of the first one") << u"Previous"_s << QVariantList() << true;
    QTest::newRow("a seek in a channel") << u"Seek"_s << QVariantList{second} << false;
    QTest::newRow("a place in a channel")
        << u"SetPosition"_s << QVariantList{track(current), second} << false;
    QTest::newRow("a place in an earlier entry")
        << u"SetPosition"_s << QVariantList{track(u"/com/vantiro/Player/track/6"_s), second}
        << true;
    QTest::newRow("a place beyond the end")
        << u"SetPosition"_s << QVariantList{track(current), 61 * second} << true;
    QTest::newRow("a place before the beginning")
        << u"SetPosition"_s << QVariantList{track(current), -second} << true;
    QTest::newRow("an address") << u"OpenUri"_s << QVariantList{u"http://127.0.0.1/a"_s} << true;
}

void tst_Mpris::whatIsNotPossibleIsNotAskedFor()
{
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    QFETCH(const bool, canSeek);
    MediaStatus status = film();
    status.canSeek = canSeek;
    controls->setStatus(status);
    const QSignalSpy next(controls.get(), &MediaControls::nextRequested);
    const QSignalSpy previous(controls.get(), &MediaControls::previousRequested);
    const QSignalSpy relative(controls.get(), &MediaControls::seekRelativeRequested);
    const QSignalSpy absolute(controls.get(), &MediaControls::seekRequested);
    QCOMPARE(desktop->call(method, arguments).type(), QDBusMessage::ReplyMessage);
    QCOMPARE(next.size() + previous.size() + relative.size() + absolute.size(), 0);
}

void tst_Mpris::volumeIsAFraction_data()
{
    QTest::addColumn<double>("asked");
    QTest::addColumn<QVariantList>("carries");
    QTest::newRow("a third") << 1.0 / 3 << QVariantList{33};
    QTest::newRow("too loud") << 2.5 << QVariantList{100};
    QTest::newRow("negative") << -1.0 << QVariantList{0};
    QTest::newRow("no number") << qQNaN() << QVariantList();
}

void tst_Mpris::volumeIsAFraction()
{
    QFETCH(const double, asked);
    const QSignalSpy spy(controls.get(), &MediaControls::volumeRequested);
    desktop->set(u"Volume"_s, asked);
    QTEST(spy.value(0), "carries");
}

void tst_Mpris::anotherProgramTakesAnotherName()
{
    // The first one has the name; the connection of this program's second one is its own.
    controls.reset();
    QTRY_VERIFY(!desktop->isThere());
    QDBusConnection other = bus->connect(u"other"_s);
    QVERIFY(other.registerService(MprisClient::name()));
    controls = std::make_unique<MediaControls>(nullptr);
    const QString ownName =
        MprisClient::name() + ".instance"_L1 + QString::number(QCoreApplication::applicationPid());
    QTRY_VERIFY(bus->hasService(ownName));
    QVERIFY(other.unregisterService(MprisClient::name()));
}

void tst_Mpris::theNameGoesWithTheProgram()
{
    controls.reset();
    QTRY_VERIFY(!desktop->isThere());
}

VANTIRO_TEST_GUILESS_MAIN(tst_Mpris)
#include "tst_Mpris.moc"
