#include "desktop/SessionBus.h"

#include <QFileInfo>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Without an address the D-Bus library would start a bus of its own.
bool hasBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1);
}

} // namespace

SessionBus::SessionBus(const QString &name, QObject *parent)
    : QObject(parent)
    , connectionName(name)
    , bus(QString())
{
    const auto made = std::make_shared<QDBusConnection>(QString());
    if (!hasBus()) {
        QMetaObject::invokeMethod(
            this, [this, made] { finish(*made); }, Qt::QueuedConnection);
        return;
    }
    // Connecting waits for the bus. The thread belongs to nobody, so that nobody waits for it.
    QThread *thread = QThread::create(
        [made, name] { *made = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name); });
    connect(thread, &QThread::finished, this, [this, made] { finish(*made); });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(connectionName);
}

void SessionBus::finish(const QDBusConnection &made)
{
    connecting = false;
    bus = made;
    if (bus.isConnected()) {
        Q_EMIT connected();
    } else {
        Q_EMIT unavailable();
    }
}
