// The session bus has no single service for this. They are asked in turn, and the first that grants
// the request is told when it is over.

#include "desktop/SleepInhibitor.h"

#include "desktop/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Service
{
    QLatin1StringView name;
    QLatin1StringView path;
    QLatin1StringView interface;
    QLatin1StringView releaseMethod;
    bool takesFlags = false; ///< and the window, as the session manager of GNOME does
};

constexpr std::array services{
    Service{"org.freedesktop.ScreenSaver"_L1, "/org/freedesktop/ScreenSaver"_L1,
            "org.freedesktop.ScreenSaver"_L1, "UnInhibit"_L1},
    // The path that older desktops have.
    Service{"org.freedesktop.ScreenSaver"_L1, "/ScreenSaver"_L1, "org.freedesktop.ScreenSaver"_L1,
            "UnInhibit"_L1},
    Service{"org.freedesktop.PowerManagement"_L1, "/org/freedesktop/PowerManagement/Inhibit"_L1,
            "org.freedesktop.PowerManagement.Inhibit"_L1, "UnInhibit"_L1},
    Service{"org.gnome.SessionManager"_L1, "/org/gnome/SessionManager"_L1,
            "org.gnome.SessionManager"_L1, "Uninhibit"_L1, true},
};

QDBusMessage callOf(const Service &service, QLatin1StringView method)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(service.name, service.path, service.interface, method);
    // A desktop that uses the service runs it.
    call.setAutoStartService(false);
    return call;
}

QDBusMessage inhibitCall(const Service &service)
{
    constexpr uint noWindow = 0;
    constexpr uint suspendAndIdle = 12;
    const QString program = u"Vantiro Player"_s;
    const QString reason = SleepInhibitor::tr("Playing");
    QDBusMessage call = callOf(service, "Inhibit"_L1);
    if (service.takesFlags) {
        call << program << noWindow << reason << suspendAndIdle;
    } else {
        call << program << reason;
    }
    return call;
}

} // namespace

SleepInhibitor::SleepInhibitor(QObject *parent)
    : QObject(parent)
{}

SleepInhibitor::~SleepInhibitor()
{
    release();
}

void SleepInhibitor::keepAwake(bool on)
{
    const bool before = std::exchange(isAwake, on);
    if (!on) {
        release();
    } else if (!before) {
        ask();
    }
}

void SleepInhibitor::ask()
{
    if (bus == nullptr) {
        bus = new SessionBus(u"vantiro-sleep"_s, this);
        connect(bus, &SessionBus::connected, this, [this] { askService(0); });
    } else if (!bus->isConnecting() && bus->connection().isConnected()) {
        askService(0);
    }
}

/// Asks that service, and after a refusal the next one.
void SleepInhibitor::askService(std::size_t service)
{
    if (!isAwake || isAsking || held || service >= services.size()) {
        return;
    }
    isAsking = true;
    auto *watcher = new QDBusPendingCallWatcher(
        bus->connection().asyncCall(inhibitCall(services.at(service))), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, service] {
        watcher->deleteLater();
        isAsking = false;
        const QDBusPendingReply<uint> reply = *watcher;
        if (!reply.isValid()) {
            askService(service + 1);
            return;
        }
        held = Inhibition{service, reply.value()};
        if (!isAwake) {
            release();
        }
    });
}

void SleepInhibitor::release()
{
    if (const auto over = std::exchange(held, std::nullopt)) {
        const Service &service = services.at(over->service);
        bus->connection().send(callOf(service, service.releaseMethod) << over->cookie);
    }
}
