#include "desktop/MprisService.h"

#include "desktop/MprisAdaptors.h"
#include "desktop/SessionBus.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace {

const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString serviceName = u"org.mpris.MediaPlayer2.vantiro-player"_s;

} // namespace

MprisService::MprisService(MediaControls *mediaControls)
    : QObject(mediaControls)
    , controls(mediaControls)
    , bus(new SessionBus(u"vantiro-mpris"_s, this))
    , exported(new QObject(this))
{
    new MprisRootAdaptor(exported, controls);
    new MprisPlayerAdaptor(exported, controls);
    connect(bus, &SessionBus::connected, this, &MprisService::announce);
}

void MprisService::announce()
{
    QDBusConnection(bus->connection()).registerObject(objectPath, exported);
    requestName(serviceName,
                serviceName + ".instance"_L1 + QString::number(QCoreApplication::applicationPid()));
    connect(controls, &MediaControls::statusChanged, this, &MprisService::tellChanges);
}

/// Not QDBusConnection::registerService(), which waits for the bus.
void MprisService::requestName(const QString &name, const QString &alternative)
{
    constexpr uint doNotQueue = 4;
    constexpr uint nameExists = 3;
    QDBusMessage request =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << name << doNotQueue;
    auto *watcher = new QDBusPendingCallWatcher(bus->connection().asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, alternative] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isValid() && reply.value() == nameExists && !alternative.isEmpty()) {
            requestName(alternative, {});
        }
    });
}

/// Qt does not tell of properties by itself.
void MprisService::tellChanges(const MediaStatus &before, const MediaStatus &now)
{
    const QVariantMap old = MprisPlayerAdaptor::properties(before);
    QVariantMap changed = MprisPlayerAdaptor::properties(now);
    if (before.entry == now.entry && before.title == now.title &&
        before.posterFile == now.posterFile && before.lengthMs == now.lengthMs) {
        // Maps with an object path do not compare.
        changed.remove(u"Metadata"_s);
    }
    changed.removeIf([&old](const QVariantMap::iterator &property) {
        return property.key() != "Metadata"_L1 && old.value(property.key()) == property.value();
    });
    QDBusMessage signal = QDBusMessage::createSignal(
        objectPath, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s);
    signal << u"org.mpris.MediaPlayer2.Player"_s << changed << QStringList();
    bus->connection().send(signal);
}
