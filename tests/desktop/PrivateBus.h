#pragma once

#include "desktop/BusClient.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

/// A session bus that the program under test finds as the session bus, until it is destroyed.
class BusDaemon
{
public:
    BusDaemon()
    {
        daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"), QStringLiteral("--nofork"),
                      QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1"),
                      QStringLiteral("--address=unix:tmpdir=%1").arg(folder.path())});
        if (!daemon.waitForReadyRead(20'000)) {
            qFatal("BusDaemon: dbus-daemon does not start: %s", qPrintable(daemon.errorString()));
        }
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.readLine().trimmed());
    }

    ~BusDaemon()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        daemon.kill();
        daemon.waitForFinished();
    }

    Q_DISABLE_COPY_MOVE(BusDaemon)

private:
    QTemporaryDir folder{QDir::tempPath() + QStringLiteral("/vantiro-bus-XXXXXX")}; ///< no blanks
    QProcess daemon;
};

/// A session bus of the test's own, and a client on it. Nothing of it outlives the test.
class PrivateBus : private BusDaemon, public BusClient
{};
