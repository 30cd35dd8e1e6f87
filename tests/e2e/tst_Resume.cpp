// Films are left and continued in the real window, also after the program was killed.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/HttpReplies.h"
#include "support/TestMain.h"

#include <QTest>

#include <csignal>
#include <sys/types.h>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestResume : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void survivesAKill();
    void continuesInFullscreen();

private:
    void fill() override;
    Accessible position() const { return session->window.waitFor(Role::Slider, u"Position"_s); }
    /// Clicks on the position slider where `share` of the film has passed.
    bool seekTo(double share) const;
    /// The button that offers to continue; its text ends with the time.
    Accessible offer() const;
    bool reaches(double ms) const;
};

void TestResume::fill()
{
    provider->addFilm(u"Film"_s, u"mp4"_s, HttpReply::file(streamPath(u"film-faststart.mp4"_s)));
    provider->addFilm(u"Other"_s, u"mp4"_s, neverAnswers());
}

bool TestResume::seekTo(double share) const
{
    const QRect slider = position().rect();
    const bool hasLength =
        QTest::qWaitFor([this] { return position().maximum() > 50'000; }, 20'000);
    return hasLength &&
           Mouse::click(QPoint(slider.left() + int(slider.width() * share), slider.center().y()));
}

Accessible TestResume::offer() const
{
    Accessible found;
    const bool shows = QTest::qWaitFor(
        [&] {
            for (const Accessible &button : session->window.findAll(Role::Button)) {
                if (button.name().startsWith(u"Continue at 00:"_s))
                    found = button;
            }
            return bool(found);
        },
        20'000);
    return shows ? found : Accessible();
}

bool TestResume::reaches(double ms) const
{
    return QTest::qWaitFor([this, ms] { return position().value() >= ms; }, 20'000);
}

void TestResume::survivesAKill()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(u"Film"_s));
    QVERIFY(seekTo(0.7));
    QVERIFY(reaches(39'000));
    // Written when it was kept, which was within a second after the seek.
    const double soon = position().value() + 2000;
    QVERIFY(reaches(soon));
    QCOMPARE(::kill(pid_t(session->app.processId()), SIGKILL), 0);
    QVERIFY(session->app.waitUntilEnded());

    QVERIFY(session->start());
    QVERIFY(session->openTab(UiTexts::moviesTab));
    QVERIFY(session->openCategory(u"Continue Watching"_s));
    QVERIFY(session->watch(u"Film"_s));
    QVERIFY(reaches(38'000));
    session->keepScreenshot(u"continue-watching"_s);

    // A plain click starts at the beginning.
    QVERIFY(session->clickButton(u"< Back to Categories"_s));
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->play(u"Film"_s));
    const Accessible button = offer();
    QVERIFY(button);
    session->keepScreenshot(u"offer"_s);
    QVERIFY(position().value() < 20'000);
    QVERIFY(Mouse::click(button));
    QVERIFY(button.waitUntilGone());
    QVERIFY(reaches(38'000));
}

void TestResume::continuesInFullscreen()
{
    QVERIFY(session->openAll(UiTexts::moviesTab));
    QVERIFY(session->watch(u"Film"_s));
    QVERIFY(seekTo(0.7));
    QVERIFY(reaches(39'000));
    QVERIFY(session->play(u"Other"_s));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Other"_s)));
    QVERIFY(session->play(u"Film"_s));
    QVERIFY(offer());
    QVERIFY(Keyboard::press(u"f"_s));
    QTRY_VERIFY(session->nativeWindow().isFullScreen());
    QVERIFY(Mouse::moveTo(session->videoRect().center()));
    QVERIFY(offer());
    session->keepScreenshot(u"fullscreen-offer"_s);
    QVERIFY(Keyboard::press(u"c"_s));
    QVERIFY(Mouse::moveTo(session->videoRect().center() + QPoint(9, 9)));
    QVERIFY(reaches(38'000));
}

VANTIRO_TEST_MAIN(TestResume)
#include "tst_Resume.moc"
