// A window to the front without X11; on X11 tst_Open of e2e brings it there.

#include "desktop/WindowActivation.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QWindow>

using namespace Qt::StringLiterals;

class tst_WindowActivation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tokenOfTheStart_data();
    void tokenOfTheStart();
    void tokenGoesToThePlatform_data();
    void tokenGoesToThePlatform();
};

void tst_WindowActivation::init()
{
    qunsetenv("DESKTOP_STARTUP_ID");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

void tst_WindowActivation::tokenOfTheStart_data()
{
    QTest::addColumn<QByteArray>("x11");
    QTest::addColumn<QByteArray>("wayland");
    QTest::addColumn<QString>("token");
    QTest::newRow("none") << QByteArray() << QByteArray() << QString();
    QTest::newRow("X11") << "a_TIME12"_ba << QByteArray() << u"a_TIME12"_s;
    QTest::newRow("Wayland") << QByteArray() << "b"_ba << u"b"_s;
    QTest::newRow("both") << "a_TIME12"_ba
                          << "b"_ba << u"a_TIME12"_s;
    QTest::newRow("both, that of X11 without a time") << "a"_ba
                                                      << "b"_ba << u"b"_s;
    QTest::newRow("X11 without a time") << "a"_ba << QByteArray() << u"a"_s;
}

void tst_WindowActivation::tokenOfTheStart()
{
    QFETCH(const QByteArray, x11);
    QFETCH(const QByteArray, wayland);
    if (!x11.isEmpty()) {
        qputenv("DESKTOP_STARTUP_ID", x11);
    }
    if (!wayland.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", wayland);
    }
    QTEST(activationToken(), "token");
}

void tst_WindowActivation::tokenGoesToThePlatform_data()
{
    QTest::addColumn<QString>("token");
    QTest::newRow("none") << QString();
    QTest::newRow("of Wayland") << u"b"_s;
    QTest::newRow("with a time") << u"a_TIME12"_s;
}

void tst_WindowActivation::tokenGoesToThePlatform()
{
    QFETCH(const QString, token);
    QWindow front;
    QWindow behind;
    behind.show();
    front.show();
    front.requestActivate();
    QVERIFY(QTest::qWaitForWindowActive(&front));
    activateWindow(&behind, token);
    QVERIFY(QTest::qWaitForWindowActive(&behind));
    QVERIFY(!front.isActive());
    QCOMPARE(qEnvironmentVariable("XDG_ACTIVATION_TOKEN"), token);
}

VANTIRO_TEST_MAIN(tst_WindowActivation)
#include "tst_WindowActivation.moc"
