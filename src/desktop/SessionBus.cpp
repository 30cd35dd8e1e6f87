#include "desktop/SessionBus.h"

#include <QFileInfo>
#include <QThread>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Without an address the D-Bus library would start a bus of its own.
bool hasBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1);
}

} // namespace

SessionBus::SessionBus(const QString &name, QObject *parent)
    : QObject(parent)
    , connectionName(name)
    , bus(QString())
{
    if (!hasBus()) {
        return;
    }
    // Connecting waits for the bus. The thread belongs to nobody, so that nobody waits for it.
    const auto made = std::make_shared<QDBusConnection>(QString());
    QThread *thread = QThread::create(
        [made, name] { *made = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name); });
    connect(thread, &QThread::finished, this, [this, made] {
        bus = *made;
        if (bus.isConnected()) {
            Q_EMIT connected();
        }
    });
    connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

SessionBus::~SessionBus()
{
    QDBusConnection::disconnectFromBus(connectionName);
}
