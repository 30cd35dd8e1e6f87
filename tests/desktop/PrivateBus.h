#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// A session bus of the test's own, which the program under test finds as the session bus, and a
/// client on it. Nothing of it outlives the test.
class PrivateBus
{
public:
    PrivateBus()
    {
        daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        daemon.start(QStringLiteral("dbus-daemon"),
                     {QStringLiteral("--session"), QStringLiteral("--nofork"),
                      QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1"),
                      QStringLiteral("--address=unix:tmpdir=%1").arg(folder.path())});
        if (!daemon.waitForReadyRead(20'000)) {
            qFatal("PrivateBus: dbus-daemon does not start: %s", qPrintable(daemon.errorString()));
        }
        address = QString::fromUtf8(daemon.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        client = connect(QStringLiteral("test-client"));
    }

    ~PrivateBus()
    {
        for (const QString &name : std::as_const(connections)) {
            QDBusConnection::disconnectFromBus(name);
        }
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        daemon.kill();
        daemon.waitForFinished();
    }

    Q_DISABLE_COPY_MOVE(PrivateBus)

    /// Another connection, as another program's.
    QDBusConnection connect(const QString &name)
    {
        connections << name;
        return QDBusConnection::connectToBus(address, name);
    }

    /// The reply to a call. The event loop runs meanwhile: who answers may be this program.
    QDBusMessage call(const QDBusMessage &message) const
    {
        const QDBusPendingCallWatcher watcher(client.asyncCall(message, 10'000));
        if (!QTest::qWaitFor([&watcher] { return watcher.isFinished(); }, 20'000)) {
            qFatal("PrivateBus: no reply");
        }
        return watcher.reply();
    }

    bool hasService(const QString &name) const
    {
        QDBusMessage question = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
        return call(question << name).arguments().value(0).toBool();
    }

    QDBusConnection client{QString()};

private:
    QTemporaryDir folder{QDir::tempPath() + QStringLiteral("/vantiro-bus-XXXXXX")}; ///< no blanks
    QProcess daemon;
    QString address;
    QStringList connections;
};
