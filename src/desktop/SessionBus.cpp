#include "desktop/SessionBus.h"

#include <QFileInfo>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// Without an address the D-Bus library would start a bus of its own.
bool hasBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1);
}

/// Threads that wait for a bus. Some may never end.
std::atomic<int> waitingThreads = 0;

} // namespace

/// What the thread of a bus knows of it.
struct SessionBus::Waiting
{
    std::mutex mutex;
    SessionBus *asking = nullptr; ///< null when it has gone
};

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
    waiting = std::make_shared<Waiting>();
    waiting->asking = this;
    ++waitingThreads;
    std::thread([made, name, waiting = waiting] {
        *made = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        --waitingThreads;
        const std::lock_guard lock(waiting->mutex);
        if (SessionBus *asking = waiting->asking; asking != nullptr) {
            QMetaObject::invokeMethod(
                asking, [asking, made] { asking->finish(*made); }, Qt::QueuedConnection);
        }
    }).detach();
}

SessionBus::~SessionBus()
{
    if (waiting) {
        const std::lock_guard lock(waiting->mutex);
        waiting->asking = nullptr;
    }
    // Qt would wait for the bus until those threads have ended. The connection ends with the
    // program.
    if (!isAnyWaiting()) {
        QDBusConnection::disconnectFromBus(connectionName);
    }
}

bool SessionBus::isAnyWaiting()
{
    return waitingThreads != 0;
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
