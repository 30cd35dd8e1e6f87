#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QTest>

#include <utility>

/// A client on a session bus.
class BusClient
{
public:
    /// On the bus of the test's environment, if no address is given.
    explicit BusClient(QString busAddress = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"))
        : address(std::move(busAddress))
        , client(connect(QStringLiteral("test-client")))
    {}

    ~BusClient()
    {
        for (const QString &name : std::as_const(connections)) {
            QDBusConnection::disconnectFromBus(name);
        }
    }

    Q_DISABLE_COPY_MOVE(BusClient)

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
            qFatal("BusClient: no reply");
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

private:
    QString address;
    QStringList connections;

public:
    QDBusConnection client; ///< made of what stands above
};
