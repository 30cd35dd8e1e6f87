// The programme guide in the real window: turned on by hand, kept over a restart, and a programme
// played from the archive.

#include "e2e/AccountTest.h"
#include "fakeprovider/ProviderGuide.h"
#include "support/TestMain.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestGuide : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void whatRunsIsShown();
    void watchFromStart();
    void scheduleOfWhatPlays();

private:
    void fill() override;
    bool turnOn() const;
    bool openChannels() const { return session->openAll(UiTexts::liveTab); }
    Accessible guideButton() const { return session->window.waitFor(Role::Other, u"Guide"_s); }
    ProviderProgramme running() const;
    /// The row whose second line is about what runs.
    Accessible rowOfWhatRuns() const;

    const ProviderGuide::Channel channel{1, u"one.example"_s, u"One"_s, 3};
};

void TestGuide::fill()
{
    XtreamEntry entry;
    entry.name = channel.name;
    entry.id = channel.stream;
    entry.guideId = channel.id;
    entry.archiveDays = channel.archiveDays;
    provider->setNames(XtreamAction::liveCategories, {u"News"_s});
    provider->add(XtreamAction::liveStreams, entry);
}

bool TestGuide::turnOn() const
{
    const Accessible menu = session->openMenu(u"More"_s);
    if (!Mouse::click(menu.find(Role::MenuItem, u"Programme Guide..."_s))) {
        return false;
    }
    const Accessible dialog = session->app.waitForWindow(u"Programme Guide"_s);
    return Mouse::click(dialog.waitFor(Role::Other, u"Show a programme guide for this source"_s)) &&
           Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)) && dialog.waitUntilGone();
}

ProviderProgramme TestGuide::running() const
{
    const qint64 now = QDateTime::currentSecsSinceEpoch();
    return ProviderGuide::programmes(channel, now, now + 1).constFirst();
}

Accessible TestGuide::rowOfWhatRuns() const
{
    const ProviderProgramme programme = running();
    const QTime start = QDateTime::fromSecsSinceEpoch(programme.start).time();
    return session->window.waitFor(Role::Cell, start.toString(u"HH:mm"_s) + u' ' + programme.title);
}

void TestGuide::whatRunsIsShown()
{
    QVERIFY(openChannels());
    QVERIFY(session->entry(channel.name));
    QVERIFY(!session->window.find(Role::Other, u"Guide"_s));
    QCOMPARE(provider->http().requestCount(u"/xmltv.php"_s), 0);
    QVERIFY(turnOn());
    QVERIFY(rowOfWhatRuns());
    QVERIFY(guideButton());
    session->keepScreenshot(u"guide-list"_s);
    QCOMPARE(provider->http().requestCount(u"/xmltv.php"_s), 1);

    QVERIFY(session->close());
    QVERIFY(session->start());
    QVERIFY(openChannels());
    QVERIFY(rowOfWhatRuns());
    QCOMPARE(provider->http().requestCount(u"/xmltv.php"_s), 1);

    QVERIFY(Mouse::click(guideButton()));
    QVERIFY(session->window.waitFor(Role::Edit, u"Search programmes..."_s));
    session->keepScreenshot(u"guide-grid"_s);
}

void TestGuide::watchFromStart()
{
    QVERIFY(openChannels());
    QVERIFY(turnOn());
    QVERIFY(rowOfWhatRuns());
    QVERIFY(Mouse::rightClick(session->entry(channel.name)));
    const QString title = running().title;
    QVERIFY(
        Mouse::click(session->app.waitForMenu().waitFor(Role::MenuItem, u"Watch from Start"_s)));
    QVERIFY(session->showsLabel(UiTexts::playing(channel.name + u" - "_s + title)));
    QVERIFY(session->seesPicture());
    QVERIFY(session->window.waitFor(Role::Slider, u"Position"_s));
    session->keepScreenshot(u"guide-archive"_s);
}

void TestGuide::scheduleOfWhatPlays()
{
    QVERIFY(openChannels());
    QVERIFY(turnOn());
    QVERIFY(rowOfWhatRuns());
    QVERIFY(session->watch(channel.name));
    QVERIFY(Keyboard::press(u"s"_s));
    const Accessible schedule = session->app.waitForWindow(u"Schedule of One"_s);
    QVERIFY(schedule.waitFor(Role::Button, u"Watch from Start"_s));
    session->keepScreenshot(u"guide-schedule"_s);
    QVERIFY(Keyboard::press(u"Escape"_s));
    QVERIFY(schedule.waitUntilGone());
}

VANTIRO_TEST_MAIN(TestGuide)
#include "tst_Guide.moc"
