// The window is closed while something is under way: the program ends at once, with status 0.

#include "e2e/PlayerSession.h"
#include "e2e/StoredSources.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/PrivateProfile.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString name = u"Some entry"_s;
const QString silentPath = u"/silent"_s;

/// Who closes what.
struct Stage
{
    XtreamProvider provider;
    std::optional<PlayerSession> session;

    HttpServer &http() { return provider.http(); }
    bool isAsked(const QString &path)
    {
        return QTest::qWaitFor([&] { return http().openConnections(path) > 0; }, 20'000);
    }
    /// Stores a source beside the account, and makes it the one that is loaded at the start.
    static void startWith(const SourceConfig &source)
    {
        SourceManager manager(nullptr);
        manager.saveSource(source);
        manager.setLastActiveSourceName(source.name);
    }
};

enum class Closing
{
    MainWindow,
    FromPanel,  ///< a menu has the keyboard
    FrontFirst, ///< what is in front of the main window keeps it from being closed
};

struct Moment
{
    Closing closing = Closing::MainWindow;
    /// What the provider offers and what is stored, before the start.
    std::function<void(Stage &)> arrange;
    /// Brings the program to the moment.
    std::function<bool(Stage &)> reach;
};

Moment plays(const HttpReply &stream, const std::function<bool(PlayerSession &)> &andThen,
             Closing closing = Closing::MainWindow)
{
    return {closing, [=](Stage &stage) { stage.provider.addChannel(name, stream); },
            [=](Stage &stage) {
                return stage.session->openAll(UiTexts::liveTab) && stage.session->play(name) &&
                       andThen(*stage.session);
            }};
}

bool isSeen(PlayerSession &session)
{
    return session.showsLabel(UiTexts::playing(name)) && session.seesPicture();
}

Moment catalogRequests()
{
    return {Closing::MainWindow,
            [](Stage &stage) { stage.provider.setMannerOfCatalog(XtreamProvider::Manner::Held); },
            [](Stage &stage) {
                return QTest::qWaitFor([&] { return stage.http().openConnections() == 6; }, 20'000);
            }};
}

Moment playlistRequest()
{
    return {Closing::MainWindow,
            [](Stage &stage) {
                SourceConfig source = defaultSourceConfig();
                source.name = u"Playlist"_s;
                source.url = stage.http().url(silentPath);
                Stage::startWith(source);
            },
            [](Stage &stage) { return stage.isAsked(silentPath); }};
}

Moment keyExchange()
{
    return {Closing::MainWindow,
            [](Stage &stage) {
                SourceConfig source = defaultSourceConfig();
                source.type = SourceType::Zevrino;
                source.name = u"Subscription"_s;
                source.subscriptionKey = u"KEY"_s;
                Stage::startWith(source);
                qputenv("VANTIRO_TEST_SUBSCRIPTION_URL", stage.http().url(silentPath).toUtf8());
            },
            [](Stage &stage) {
                return stage.isAsked(silentPath + u"/api/v1/subscription/credentials"_s);
            }};
}

Moment poster()
{
    return {Closing::MainWindow,
            [](Stage &stage) {
                XtreamEntry film;
                film.name = name;
                film.poster = stage.http().url(silentPath);
                stage.provider.add(XtreamAction::vodStreams, film);
            },
            [](Stage &stage) {
                return stage.session->openAll(UiTexts::moviesTab) && stage.isAsked(silentPath);
            }};
}

Moment episodes()
{
    return {Closing::MainWindow,
            [](Stage &stage) {
                stage.provider.setNames(XtreamAction::series, {name});
                stage.provider.setManner(XtreamAction::seriesInfo, XtreamProvider::Manner::Held);
            },
            [](Stage &stage) {
                return stage.session->openAll(UiTexts::showsTab) && stage.session->play(name) &&
                       stage.isAsked({});
            }};
}

Moment loginTest()
{
    return {Closing::FrontFirst, [](Stage &) {},
            [](Stage &stage) {
                const PlayerSession &session = *stage.session;
                return session.clickButton(u"Add Source..."_s) &&
                       session.fill(u"Server URL:"_s, stage.http().url(silentPath)) &&
                       Mouse::click(
                           session.addDialog().waitFor(Role::Button, u"Test Connection"_s)) &&
                       stage.isAsked(silentPath + u"/player_api.php"_s);
            }};
}

Moment errorBox()
{
    return {Closing::FrontFirst,
            [](Stage &stage) { stage.provider.addFilm(name, u"mp4"_s, statusReply(404)); },
            [](Stage &stage) {
                return stage.session->openAll(UiTexts::moviesTab) && stage.session->play(name) &&
                       stage.session->app.waitForWindow(UiTexts::errorTitle);
            }};
}

Moment stalledStream()
{
    HttpReply stream = liveClip(streamPath(u"live.ts"_s), 180, 3);
    const qint64 bytes = stream.burst + stream.bytesPerSecond;
    return plays(stalling(stream, bytes), [](PlayerSession &session) {
        return isSeen(session) && Screen::waitUntilStill(session.videoRect());
    });
}

} // namespace

Q_DECLARE_METATYPE(Moment)

class TestExitUnderWay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsPromptly_data();
    void endsPromptly();
};

void TestExitUnderWay::endsPromptly_data()
{
    QTest::addColumn<Moment>("moment");
    QTest::newRow("the catalog requests") << catalogRequests();
    QTest::newRow("a playlist") << playlistRequest();
    QTest::newRow("the key exchange") << keyExchange();
    QTest::newRow("a poster") << poster();
    QTest::newRow("the episodes of a show") << episodes();
    QTest::newRow("a login test in its dialog") << loginTest();
    QTest::newRow("a message box") << errorBox();
    QTest::newRow("a menu") << plays(
        liveTs(),
        [](PlayerSession &session) { return isSeen(session) && session.openMenu(u"Audio"_s); },
        Closing::FromPanel);
    QTest::newRow("fullscreen") << plays(liveTs(), [](PlayerSession &session) {
        return isSeen(session) && Keyboard::press(u"f"_s) &&
               QTest::qWaitFor([&] { return session.nativeWindow().isFullScreen(); }, 20'000);
    });
    QTest::newRow("a reconnect") << plays(
        statusReply(503), [](PlayerSession &session) { return session.showsReconnecting(name); });
    QTest::newRow("a stalled stream") << stalledStream();
}

void TestExitUnderWay::endsPromptly()
{
    constexpr qint64 exitMs = 2000;
    QFETCH(const Moment, moment);
    PrivateProfile::current().clear();
    Stage stage;
    stage.http().onPrefix(silentPath, neverAnswers());
    storeAccount(stage.provider);
    moment.arrange(stage);
    stage.session.emplace(QStringLiteral(VANTIRO_PLAYER_LOOPBACK));
    QVERIFY(stage.session->start());
    QVERIFY(moment.reach(stage));

    const NativeWindow window = stage.session->nativeWindow();
    QElapsedTimer clock;
    clock.start();
    if (moment.closing == Closing::FrontFirst)
        QVERIFY(stage.session->app.close());
    else if (moment.closing == Closing::FromPanel)
        window.closeFromPanel();
    else
        QVERIFY(window.requestClose());
    QVERIFY(stage.session->app.waitUntilEnded());
    const qint64 took = clock.elapsed();
    QCOMPARE(stage.session->app.exitCode(), 0);
    QVERIFY2(took < exitMs, qPrintable(QString::number(took)));
}

VANTIRO_TEST_MAIN(TestExitUnderWay)
#include "tst_ExitUnderWay.moc"
