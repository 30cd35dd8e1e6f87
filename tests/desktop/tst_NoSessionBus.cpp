#include "desktop/MediaControls.h"
#include "desktop/SessionBus.h"
#include "desktop/SleepInhibitor.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QLocalServer>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

/// A desktop without a session bus, or with one that does not answer, holds nothing up.
class tst_NoSessionBus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingWaits_data();
    void nothingWaits();
};

void tst_NoSessionBus::nothingWaits_data()
{
    QTest::addColumn<bool>("isThere");
    QTest::newRow("no bus") << false;
    QTest::newRow("a bus that never answers") << true;
}

void tst_NoSessionBus::nothingWaits()
{
    QFETCH(const bool, isThere);
    const QTemporaryDir folder(QDir::tempPath() + "/vantiro-bus-XXXXXX"_L1);
    auto silent = std::make_unique<QLocalServer>();
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    if (isThere) {
        const QString path = folder.filePath(u"silent"_s);
        QVERIFY(silent->listen(path));
        qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path="_L1 + path).toUtf8());
    }
    QElapsedTimer timer;
    timer.start();
    {
        MediaControls controls(nullptr);
        MediaStatus status;
        status.title = u"News"_s;
        controls.setStatus(status);
        SleepInhibitor inhibitor(nullptr);
        inhibitor.keepAwake(true);
        QCoreApplication::processEvents();
        inhibitor.keepAwake(false);
    }
    constexpr qint64 promptMs = 10000; // D-Bus itself gives up after 25 s
    QVERIFY2(timer.elapsed() < promptMs, qPrintable(QString::number(timer.elapsed())));
    // Qt's cleanup waits for the threads that still connect. They fail without a server.
    silent.reset();
    QTRY_VERIFY(!SessionBus::isAnyWaiting());
}

VANTIRO_TEST_GUILESS_MAIN(tst_NoSessionBus)
#include "tst_NoSessionBus.moc"
