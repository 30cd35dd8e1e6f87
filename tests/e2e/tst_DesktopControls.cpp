// The desktop's player controls and the keyboard's media keys: what the program tells of what
// plays, and what it does when it is asked to. The real window, over a real bus.

#include "desktop/MprisClient.h"
#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QImage>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

constexpr qint64 second = 1'000'000; // in microseconds
const QString film = u"Harbour"_s;
const QString addressAsName = u"http://127.0.0.1:9/live/anna/pa55word/1.ts"_s;

} // namespace

class TestDesktopControls : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void beforeAnythingPlays();
    void aFilm();
    void volume();
    void channels();
    void playAfterAStop_data();
    void playAfterAStop();
    void mediaKeys();
    void raisesTheWindow();
    void nothingTellsCredentials();

private:
    void fill() override;
    void watch(const QString &tab, const QString &name);
    void watchFilm() { watch(UiTexts::moviesTab, film); }
    bool has(const QString &property) const { return desktop->get(property).toBool(); }
    QString status() const { return desktop->get(u"PlaybackStatus"_s).toString(); }
    qint64 position() const { return desktop->get(u"Position"_s).toLongLong(); }
    QString title() const { return desktop->metadata().value(u"xesam:title"_s).toString(); }
    QString windowTitle() const { return session->nativeWindow().title(); }
    Accessible button(const QString &text) const
    {
        return session->window.find(Role::Button, text);
    }
    bool plays(const QString &name) const
    {
        return session->showsLabel(UiTexts::playing(name)) && session->seesPicture();
    }

    std::unique_ptr<BusClient> bus;
    std::unique_ptr<MprisClient> desktop;
    QString filmPath;
};

void TestDesktopControls::initTestCase()
{
    bus = std::make_unique<BusClient>();
}

void TestDesktopControls::cleanupTestCase()
{
    desktop.reset();
    bus.reset();
}

void TestDesktopControls::fill()
{
    for (const QString &name : {u"One"_s, u"Two"_s, addressAsName}) {
        provider->addChannel(name, liveClip(streamPath(u"live.ts"_s), 180, 2));
    }
    XtreamEntry harbour;
    harbour.name = film;
    harbour.poster = provider->addPoster(1, film, u"1962"_s);
    const QString path = streamPath(u"film-faststart.mp4"_s);
    harbour.stream = [path](const HttpRequest &) { return HttpReply::file(path, "video/mp4"_ba); };
    filmPath = provider->add(XtreamAction::vodStreams, harbour);
    desktop = std::make_unique<MprisClient>(bus.get());
}

void TestDesktopControls::watch(const QString &tab, const QString &name)
{
    QTRY_VERIFY(desktop->isThere());
    QVERIFY(session->openAll(tab));
    QVERIFY(session->watch(name));
}

void TestDesktopControls::beforeAnythingPlays()
{
    QTRY_VERIFY(desktop->isThere());
    QCOMPARE(desktop->get(u"Identity"_s, MprisClient::rootInterface()), u"Vantiro Player"_s);
    QCOMPARE(status(), u"Stopped"_s);
    QCOMPARE(desktop->metadata(), QVariantMap());
    for (const QString &property : {u"CanPlay"_s, u"CanSeek"_s, u"CanGoNext"_s}) {
        QVERIFY2(!has(property), qPrintable(property));
    }
    for (const QString &method : {u"Play"_s, u"PlayPause"_s, u"Stop"_s, u"Pause"_s, u"Next"_s}) {
        QCOMPARE(desktop->call(method).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(status(), u"Stopped"_s);
    }
    QCOMPARE(windowTitle(), u"Vantiro Player"_s);
}

void TestDesktopControls::aFilm()
{
    watchFilm();
    QTRY_COMPARE(status(), u"Playing"_s);
    QCOMPARE(title(), film);
    QCOMPARE(windowTitle(), u"Harbour - Vantiro Player"_s);
    QTRY_VERIFY(has(u"CanSeek"_s));
    const qint64 length = desktop->metadata().value(u"mpris:length"_s).toLongLong();
    QVERIFY2(length > 59 * second && length < 61 * second, qPrintable(QString::number(length)));
    QTRY_VERIFY(desktop->metadata().contains(u"mpris:artUrl"_s));
    const QUrl poster(desktop->metadata().value(u"mpris:artUrl"_s).toString());
    QVERIFY2(!QImage(poster.toLocalFile()).isNull(), qPrintable(poster.toString()));

    desktop->call(u"Play"_s); // it does
    QCOMPARE(status(), u"Playing"_s);
    desktop->call(u"Pause"_s);
    QCOMPARE(status(), u"Paused"_s);
    QTRY_VERIFY(button(u"Play"_s));
    QVERIFY(Screen::waitUntilStill(session->videoRect()));
    desktop->call(u"Pause"_s); // it is
    QCOMPARE(status(), u"Paused"_s);
    desktop->call(u"PlayPause"_s);
    QTRY_VERIFY(button(u"Pause"_s));
    QVERIFY(session->seesPicture());

    desktop->call(u"Seek"_s, {20 * second});
    QTRY_VERIFY(position() >= 20 * second);
    QTRY_VERIFY(!desktop->seekedTo.isEmpty());
    const QVariant track = desktop->metadata().value(u"mpris:trackid"_s);
    desktop->call(u"SetPosition"_s, {track, 45 * second});
    QTRY_VERIFY(position() >= 45 * second);
    QVERIFY(session->seesPicture());

    desktop->call(u"Stop"_s);
    QCOMPARE(status(), u"Stopped"_s);
    QCOMPARE(desktop->metadata(), QVariantMap());
    QTRY_COMPARE(windowTitle(), u"Vantiro Player"_s);
    QTRY_VERIFY(!button(u"Pause"_s));
    QTRY_COMPARE(provider->http().openConnections(filmPath), 0);
    QTRY_COMPARE(desktop->changed.value(u"PlaybackStatus"_s), u"Stopped"_s);
}

void TestDesktopControls::volume()
{
    watchFilm();
    const Accessible slider = session->window.waitFor(Role::Slider, u"Volume"_s);
    QCOMPARE(desktop->get(u"Volume"_s), 1.0);
    desktop->set(u"Volume"_s, 0.4);
    QTRY_COMPARE(slider.value(), 40.0);
    QCOMPARE(desktop->get(u"Volume"_s), 0.4);
    QVERIFY(Keyboard::press(u"m"_s));
    QTRY_COMPARE(desktop->changed.value(u"Volume"_s), 0.0);
}

void TestDesktopControls::channels()
{
    watch(UiTexts::liveTab, u"One"_s);
    QVERIFY(has(u"CanGoNext"_s));
    QVERIFY(!has(u"CanSeek"_s));
    QVERIFY(!desktop->metadata().contains(u"mpris:length"_s));
    desktop->call(u"Next"_s);
    QCOMPARE(title(), u"Two"_s);
    QVERIFY(plays(u"Two"_s));
    QTRY_COMPARE(windowTitle(), u"Two - Vantiro Player"_s);
    desktop->call(u"Previous"_s);
    QCOMPARE(title(), u"One"_s);
    QVERIFY(plays(u"One"_s));
}

void TestDesktopControls::playAfterAStop_data()
{
    QTest::addColumn<QString>("tab");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("method"); ///< or the key
    QTest::newRow("a film, Play") << UiTexts::moviesTab << film << u"Play"_s;
    QTest::newRow("a film, key") << UiTexts::moviesTab << film << u"XF86AudioPlay"_s;
    QTest::newRow("a channel, PlayPause") << UiTexts::liveTab << u"Two"_s << u"PlayPause"_s;
}

void TestDesktopControls::playAfterAStop()
{
    QFETCH(const QString, tab);
    QFETCH(const QString, name);
    QFETCH(const QString, method);
    watch(tab, name);
    desktop->call(u"Stop"_s);
    QCOMPARE(status(), u"Stopped"_s);
    QVERIFY(has(u"CanPlay"_s));
    QTRY_COMPARE(windowTitle(), u"Vantiro Player"_s);
    if (method.startsWith("XF86"_L1)) {
        QVERIFY(Keyboard::press(method));
    } else {
        desktop->call(method);
    }
    QTRY_COMPARE(status(), u"Playing"_s);
    QCOMPARE(title(), name);
    QVERIFY(plays(name));
    QTRY_COMPARE(windowTitle(), name + u" - Vantiro Player"_s);
    QVERIFY(session->hasOneWindow());
}

void TestDesktopControls::mediaKeys()
{
    watch(UiTexts::liveTab, u"One"_s);
    // The keys act wherever the focus is.
    const Accessible search = session->window.waitFor(Role::Edit, u"Search..."_s);
    QVERIFY(Mouse::click(search));
    QTRY_VERIFY(search.isFocused());
    QVERIFY(Keyboard::press(u"XF86AudioNext"_s));
    QVERIFY(plays(u"Two"_s));
    QVERIFY(Keyboard::press(u"XF86AudioPrev"_s));
    QVERIFY(plays(u"One"_s));
    QVERIFY(Keyboard::press(u"XF86AudioPlay"_s));
    QTRY_COMPARE(status(), u"Paused"_s);
    QVERIFY(Keyboard::press(u"XF86AudioPlay"_s));
    QTRY_COMPARE(status(), u"Playing"_s);
    QCOMPARE(search.text(), QString());

    watchFilm();
    QTRY_VERIFY(has(u"CanSeek"_s));
    QVERIFY(Keyboard::press(u"XF86AudioForward"_s, 2));
    QTRY_VERIFY(position() >= 20 * second);
    QVERIFY(Keyboard::press(u"XF86AudioRewind"_s, 5));
    QTRY_VERIFY(position() < 20 * second);
    QVERIFY(Keyboard::press(u"XF86AudioPause"_s));
    QTRY_COMPARE(status(), u"Paused"_s);
    QVERIFY(Keyboard::press(u"XF86AudioStop"_s));
    QTRY_COMPARE(status(), u"Stopped"_s);
    QTRY_COMPARE(provider->http().openConnections(filmPath), 0);
}

void TestDesktopControls::raisesTheWindow()
{
    const NativeWindow window = session->nativeWindow();
    QVERIFY(window.minimize());
    desktop->callOn(u"org.mpris.MediaPlayer2"_s, u"Raise"_s);
    QTRY_VERIFY(window.isVisible());
    QTRY_COMPARE(NativeWindow::active(), window);
}

void TestDesktopControls::nothingTellsCredentials()
{
    watch(UiTexts::liveTab, addressAsName);
    QVERIFY(title().startsWith("http://127.0.0.1"_L1));
    QVERIFY2(!title().contains("pa55word"_L1), qPrintable(title()));
    QVERIFY2(!windowTitle().contains("pa55word"_L1), qPrintable(windowTitle()));
}

VANTIRO_TEST_MAIN(TestDesktopControls)
#include "tst_DesktopControls.moc"
