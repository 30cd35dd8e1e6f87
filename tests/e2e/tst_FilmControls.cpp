// A film is sought through by slider, buttons and keys; a channel offers nothing of the kind.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFilmControls : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void clickOnTheSliderSeeks();
    void dragSeeksOnceOnRelease();
    void buttonsAndKeysSkipTenSeconds_data();
    void buttonsAndKeysSkipTenSeconds();
    void skippingStopsBeforeTheEnd();
    void anotherFilmStartsAtItsBeginning();
    void channelHasNoSeekRow();
    void longNameKeepsTheWindow();

private:
    void fill() override;
    void watchFilm();
    int seconds() const { return session->playedSeconds(); }
    QPoint onSlider(double share) const;

    QString channelPath;
    const QString longName =
        u"A Film & Its <b>Name</b>"_s + u" of Very Many Words in a Row"_s.repeated(12);
};

void TestFilmControls::fill()
{
    const HttpReply film = HttpReply::file(streamPath(u"film.mp4"_s));
    channelPath = provider->addChannel(u"Night News"_s, liveTs());
    provider->addFilm(u"Long Film"_s, u"mp4"_s, film);
    provider->addFilm(u"Other Film"_s, u"mp4"_s,
                      HttpReply::file(streamPath(u"film-faststart.mp4"_s)));
    provider->addFilm(longName, u"mp4"_s, film);
}

void TestFilmControls::watchFilm()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(u"Long Film"_s));
    QTRY_VERIFY(seconds() >= 0);
    QTRY_COMPARE(session->seekSlider().maximum(), 60000.0);
}

QPoint TestFilmControls::onSlider(double share) const
{
    const QRect slider = session->seekSlider().rect();
    return {slider.left() + qRound(share * slider.width()), slider.center().y()};
}

void TestFilmControls::clickOnTheSliderSeeks()
{
    watchFilm();
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
    watchFilm();
    const Accessible slider = session->seekSlider();
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
    watchFilm();
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
    // Not before the beginning.
    QVERIFY(skip(false) && skip(false) && skip(false));
    QTRY_VERIFY(seconds() < 8);
    QVERIFY(session->seesPicture());
}

void TestFilmControls::skippingStopsBeforeTheEnd()
{
    watchFilm();
    QVERIFY(Keyboard::press(u"Right"_s, 8));
    QTRY_VERIFY(seconds() >= 58);
    // The film ends as films do: without a word.
    QVERIFY(Screen::waitUntilStill(session->videoRect()));
    QVERIFY(!session->app.window(UiTexts::errorTitle));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Long Film"_s)));
}

void TestFilmControls::anotherFilmStartsAtItsBeginning()
{
    watchFilm();
    QVERIFY(Mouse::click(onSlider(0.6)));
    QTRY_VERIFY(seconds() > 30);
    QVERIFY(session->watch(u"Other Film"_s));
    QTRY_VERIFY(seconds() >= 0 && seconds() < 20);
    QTRY_VERIFY(session->seekSlider().value() > 0);
    QVERIFY(session->seekSlider().value() < 25000);
}

void TestFilmControls::channelHasNoSeekRow()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(u"Night News"_s));
    QVERIFY(session->window.find(Role::Button, u"Info"_s));
    QVERIFY(!session->seekSlider());
    QVERIFY(!session->window.find(Role::Button, u"<< 10s"_s));
    QVERIFY(!session->window.find(Role::Button, u"10s >>"_s));
    QVERIFY(Keyboard::press(u"Right"_s, 3));
    QVERIFY(Keyboard::press(u"Left"_s, 3));
    QVERIFY(session->seesPicture());
    QVERIFY(session->showsLabel(UiTexts::playing(u"Night News"_s)));
    QCOMPARE(provider->http().requestCount(channelPath), 1);
}

void TestFilmControls::longNameKeepsTheWindow()
{
    const QRect place = session->nativeWindow().geometry();
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(longName));
    const Accessible label = session->window.waitFor(Role::Label, UiTexts::playing(longName));
    QVERIFY(place.contains(label.rect()));
    QCOMPARE(session->nativeWindow().geometry(), place);
    // The whole name comes with the mouse, in a window of its own.
    QVERIFY(session->hasOneWindow());
    QVERIFY(Mouse::moveTo(label));
    QTRY_VERIFY(!session->hasOneWindow());
    session->keepScreenshot(u"film-long-name"_s);
}

VANTIRO_TEST_MAIN(TestFilmControls)
#include "tst_FilmControls.moc"
