#include "desktop/InhibitService.h"
#include "desktop/SleepInhibitor.h"
#include "support/TestMain.h"

#include <memory>

using namespace Qt::StringLiterals;

/// Keeping the computer awake, by a service that stands in for the desktop's.
class tst_SleepInhibitor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // One for all: the D-Bus library keeps the address of the first session bus that it has found.
    void initTestCase() { bus = std::make_unique<PrivateBus>(); }
    void cleanupTestCase() { bus.reset(); }
    void whatTheDesktopOffersIsUsed_data();
    void whatTheDesktopOffersIsUsed();
    void theFirstServiceIsEnough();
    void oneRequestAtATime();
    void aRequestThatIsOverIsGivenBack();
    void theEndLetsTheComputerSleep();

private:
    std::unique_ptr<PrivateBus> bus;
};

void tst_SleepInhibitor::whatTheDesktopOffersIsUsed_data()
{
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QStringList>("granted");
    const QStringList program{u"Vantiro Player"_s};
    QTest::newRow("a screen saver") << u"screen saver"_s << program;
    QTest::newRow("an older screen saver") << u"older screen saver"_s << program;
    QTest::newRow("a power manager") << u"power manager"_s << program;
    QTest::newRow("a session manager, for sleep and an idle session")
        << u"session manager"_s << QStringList{u"Vantiro Player 12"_s};
}

void tst_SleepInhibitor::whatTheDesktopOffersIsUsed()
{
    QFETCH(const QString, desktop);
    std::unique_ptr<InhibitService> service;
    if (desktop == u"screen saver") {
        service = std::make_unique<ScreenSaverService>(*bus);
    } else if (desktop == u"older screen saver") {
        service = std::make_unique<ScreenSaverService>(*bus, u"/ScreenSaver"_s);
    } else if (desktop == u"power manager") {
        service = std::make_unique<PowerManagementService>(*bus);
    } else {
        service = std::make_unique<GnomeSessionService>(*bus);
    }
    SleepInhibitor inhibitor(nullptr);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(service->held.size(), 1);
    QTEST(service->granted, "granted");
    inhibitor.keepAwake(false);
    QTRY_COMPARE(service->held.size(), 0);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(service->held.size(), 1);
}

void tst_SleepInhibitor::theFirstServiceIsEnough()
{
    const ScreenSaverService screenSaver(*bus);
    const GnomeSessionService session(*bus);
    SleepInhibitor inhibitor(nullptr);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(screenSaver.held.size(), 1);
    QCOMPARE(session.granted, QStringList());
}

void tst_SleepInhibitor::oneRequestAtATime()
{
    const ScreenSaverService service(*bus);
    SleepInhibitor inhibitor(nullptr);
    inhibitor.keepAwake(true);
    inhibitor.keepAwake(true);
    inhibitor.keepAwake(false);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(service.held.size(), 1);
    inhibitor.keepAwake(true);
    inhibitor.keepAwake(false);
    QTRY_COMPARE(service.held.size(), 0);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(service.held.size(), 1);
    QCOMPARE(service.granted.size(), 2);
}

/// The user pauses before the service has answered.
void tst_SleepInhibitor::aRequestThatIsOverIsGivenBack()
{
    const ScreenSaverService service(*bus);
    SleepInhibitor inhibitor(nullptr);
    inhibitor.keepAwake(true);
    QTRY_COMPARE(service.held.size(), 1);
    inhibitor.keepAwake(false);
    QTRY_COMPARE(service.held.size(), 0); // so the answer to the first request is there
    inhibitor.keepAwake(true);
    inhibitor.keepAwake(false);
    QTRY_COMPARE(service.granted.size(), 2);
    QTRY_COMPARE(service.held.size(), 0);
}

void tst_SleepInhibitor::theEndLetsTheComputerSleep()
{
    const ScreenSaverService service(*bus);
    auto inhibitor = std::make_unique<SleepInhibitor>(nullptr);
    inhibitor->keepAwake(true);
    QTRY_COMPARE(service.held.size(), 1);
    inhibitor.reset();
    QTRY_COMPARE(service.held.size(), 0);
}

VANTIRO_TEST_GUILESS_MAIN(tst_SleepInhibitor)
#include "tst_SleepInhibitor.moc"
