// A film is sought through by slider, buttons and keys; a channel offers nothing of the kind.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFilmControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void clickOnTheSliderSeeks();
    void dragSeeksOnceOnRelease();
    void buttonsAndKeysSkipTenSeconds_data();
    void buttonsAndKeysSkipTenSeconds();
    void skippingStopsBeforeTheEnd();
    void anotherFilmStartsAtItsBeginning();
    void channelHasNoSeekRow();
    void longNameKeepsTheWindow();

private:
    void watchFilm(const QString &name);
    int seconds() const;
    QPoint onSlider(double share) const;

    std::unique_ptr<Provider> provider;
    std::unique_ptr<PlayerSession> session;
    QString channelPath;
    const QString longName =
        u"A Film & Its <b>Name</b>"_s + u" of Very Many Words in a Row"_s.repeated(12);
};

void TestFilmControls::init()
{
    PrivateProfile::current().clear();
    provider = std::make_unique<Provider>();
    channelPath = provider->addChannel(u"Night News"_s, liveTs());
    provider->addFilm(u"Long Film"_s, u"mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    provider->addFilm(u"Other Film"_s, u"mp4"_s,
                      HttpReply::file(streamPath(u"film-faststart.mp4"_s)));
    provider->addFilm(longName, u"mp4"_s, HttpReply::file(streamPath(u"film.mp4"_s)));
    provider->store();
    session = std::make_unique<PlayerSession>();
    QVERIFY(session->start());
}

void TestFilmControls::cleanup()
{
    if (!QTest::currentTestFailed()) {
        QVERIFY(session->close());
        QCOMPARE(session->app.exitCode(), 0);
    }
    session.reset();
}

void TestFilmControls::watchFilm(const QString &name)
{
    QVERIFY(session->openFilms());
    QVERIFY(session->playFilm(name));
    QVERIFY(session->seesPicture());
    QTRY_VERIFY(seconds() >= 0);
    QTRY_COMPARE(session->window.find(Role::Slider, u"Position"_s).maximum(), 60000.0);
}

/// Where the film stands by the time label; -1 while it shows no film of one minute.
int TestFilmControls::seconds() const
{
    static const QRegularExpression position(u"^(\\d\\d):(\\d\\d) / 01:00$"_s);
    const QList<Accessible> labels = session->window.findAll(Role::Label);
    for (const Accessible &label : labels) {
        if (const auto match = position.match(label.name()); match.hasMatch())
            return match.captured(1).toInt() * 60 + match.captured(2).toInt();
    }
    return -1;
}

QPoint TestFilmControls::onSlider(double share) const
{
    const QRect slider = session->window.waitFor(Role::Slider, u"Position"_s).rect();
    return {slider.left() + qRound(share * slider.width()), slider.center().y()};
}

void TestFilmControls::clickOnTheSliderSeeks()
{
    watchFilm(u"Long Film"_s);
    QVERIFY(seconds() < 20);
    QVERIFY(Mouse::click(onSlider(0.75)));
    QTRY_VERIFY(seconds() >= 42 && seconds() < 55);
    QVERIFY(session->seesPicture());
    session->keepScreenshot(u"film-sought"_s);
    QVERIFY(Mouse::click(onSlider(0.1)));
    QTRY_VERIFY(seconds() >= 3 && seconds() < 25);
    QVERIFY(session->seesPicture());
}

void TestFilmControls::dragSeeksOnceOnRelease()
{
    watchFilm(u"Long Film"_s);
    const Accessible slider = session->window.find(Role::Slider, u"Position"_s);
    QVERIFY(Mouse::pressAndMove(onSlider(0.1), onSlider(0.8)));
    QTRY_VERIFY(slider.value() > 40000);
    // The film goes on where it was while the slider is held, and moves the label only.
    const int held = seconds();
    QVERIFY(held < 30);
    QTRY_VERIFY(seconds() > held);
    QVERIFY(seconds() < 35);
    QVERIFY(slider.value() > 40000);
    QVERIFY(Mouse::release());
    QTRY_VERIFY(seconds() >= 42);
    QVERIFY(session->seesPicture());
}

void TestFilmControls::buttonsAndKeysSkipTenSeconds_data()
{
    QTest::addColumn<bool>("byKeys");
    QTest::newRow("buttons") << false;
    QTest::newRow("Left and Right") << true;
}

void TestFilmControls::buttonsAndKeysSkipTenSeconds()
{
    QFETCH(const bool, byKeys);
    watchFilm(u"Long Film"_s);
    const auto skip = [&](bool forward) {
        return byKeys ? Keyboard::press(forward ? u"Right"_s : u"Left"_s)
                      : session->clickButton(forward ? u"10s >>"_s : u"<< 10s"_s);
    };
    int before = seconds();
    QVERIFY(before < 10);
    QVERIFY(skip(true));
    QTRY_VERIFY(seconds() >= before + 9);
    QVERIFY(skip(true));
    QTRY_VERIFY(seconds() >= before + 19);
    before = seconds();
    QVERIFY(skip(false));
    QTRY_VERIFY(seconds() < before - 3);
    QVERIFY(session->seesPicture());
    // Not before the beginning.
    QVERIFY(skip(false) && skip(false) && skip(false));
    QTRY_VERIFY(seconds() < 8);
    QVERIFY(session->seesPicture());
}

void TestFilmControls::skippingStopsBeforeTheEnd()
{
    watchFilm(u"Long Film"_s);
    QVERIFY(Keyboard::press(u"Right"_s, 8));
    QTRY_VERIFY(seconds() >= 58);
    // The film ends as films do: without a word.
    QVERIFY(Screen::waitUntilStill(session->videoRect()));
    QVERIFY(!session->app.window(u"Playback Error"_s));
    QVERIFY(session->showsLabel(u"Playing: Long Film"_s));
}

void TestFilmControls::anotherFilmStartsAtItsBeginning()
{
    watchFilm(u"Long Film"_s);
    QVERIFY(Mouse::click(onSlider(0.6)));
    QTRY_VERIFY(seconds() > 30);
    QVERIFY(session->playFilm(u"Other Film"_s));
    QVERIFY(session->showsLabel(u"Playing: Other Film"_s));
    QTRY_VERIFY(seconds() >= 0 && seconds() < 20);
    QVERIFY(session->seesPicture());
    QTRY_VERIFY(session->window.find(Role::Slider, u"Position"_s).value() > 0);
    QVERIFY(session->window.find(Role::Slider, u"Position"_s).value() < 25000);
}

void TestFilmControls::channelHasNoSeekRow()
{
    QVERIFY(session->openChannels());
    QVERIFY(session->playChannel(u"Night News"_s));
    QVERIFY(session->seesPicture());
    QVERIFY(session->window.find(Role::Button, u"Info"_s));
    QVERIFY(!session->window.find(Role::Slider, u"Position"_s));
    QVERIFY(!session->window.find(Role::Button, u"<< 10s"_s));
    QVERIFY(!session->window.find(Role::Button, u"10s >>"_s));
    QVERIFY(Keyboard::press(u"Right"_s, 3));
    QVERIFY(Keyboard::press(u"Left"_s, 3));
    QVERIFY(session->seesPicture());
    QVERIFY(session->showsLabel(u"Playing: Night News"_s));
    QCOMPARE(provider->server.requestCount(channelPath), 1);
}

void TestFilmControls::longNameKeepsTheWindow()
{
    const QRect place = session->app.nativeWindow(u"Vantiro Player"_s).geometry();
    QVERIFY(session->openFilms());
    QVERIFY(session->playFilm(longName));
    QVERIFY(session->seesPicture());
    const Accessible label = session->window.waitFor(Role::Label, u"Playing: "_s + longName);
    QVERIFY(place.contains(label.rect()));
    QCOMPARE(session->app.nativeWindow(u"Vantiro Player"_s).geometry(), place);
    // The whole name comes with the mouse.
    const auto windows = [this] {
        return NativeWindow::ofProcess(session->app.processId()).size();
    };
    const auto before = windows();
    QVERIFY(Mouse::moveTo(label));
    QTRY_COMPARE(windows(), before + 1);
    session->keepScreenshot(u"film-long-name"_s);
}

VANTIRO_TEST_MAIN(TestFilmControls)
#include "tst_FilmControls.moc"
