#pragma once

#include "desktop/PrivateBus.h"

#include <QDBusContext>
#include <QDBusServiceWatcher>
#include <QHash>

/// Stands in for a desktop's service that keeps the computer awake: it grants every request, and
/// remembers what it holds for whom. Who leaves the bus gives back all.
class InhibitService : public QObject, protected QDBusContext
{
    Q_OBJECT

public:
    InhibitService(PrivateBus &bus, const QString &name, const QString &path)
        : connection(bus.connect(QStringLiteral("stand-in ") + path))
        , serviceName(name)
    {
        if (!connection.registerService(name) ||
            !connection.registerObject(path, this, QDBusConnection::ExportAllSlots)) {
            qFatal("InhibitService: the name is taken");
        }
        watcher.setConnection(connection);
        watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
        connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this,
                [this](const QString &asker) {
                    const QList<uint> cookies = askers.keys(asker);
                    for (const uint cookie : cookies) {
                        held.removeAll(cookie);
                    }
                });
    }

    ~InhibitService() override
    {
        connection.unregisterService(serviceName);
        QDBusConnection::disconnectFromBus(connection.name());
    }
    Q_DISABLE_COPY_MOVE(InhibitService)

    QStringList granted; ///< who asked, each time
    QList<uint> held;    ///< the cookies that are not given back yet

protected:
    uint grant(const QString &who)
    {
        granted << who;
        held << ++lastCookie;
        askers.insert(lastCookie, message().service());
        watcher.addWatchedService(message().service());
        return lastCookie;
    }

    void giveBack(uint cookie)
    {
        if (held.removeAll(cookie) == 0) {
            sendErrorReply(QDBusError::InvalidArgs);
        }
    }

private:
    QDBusConnection connection;
    QString serviceName;
    QDBusServiceWatcher watcher;
    QHash<uint, QString> askers; ///< by their cookies
    uint lastCookie = 40;
};

class ScreenSaverService final : public InhibitService
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")

public:
    explicit ScreenSaverService(
        PrivateBus &bus, const QString &path = QStringLiteral("/org/freedesktop/ScreenSaver"))
        : InhibitService(bus, QStringLiteral("org.freedesktop.ScreenSaver"), path)
    {}

public Q_SLOTS:
    uint Inhibit(const QString &who, const QString & /*reason*/) { return grant(who); }
    void UnInhibit(uint cookie) { giveBack(cookie); }
};

class PowerManagementService final : public InhibitService
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.PowerManagement.Inhibit")

public:
    explicit PowerManagementService(PrivateBus &bus)
        : InhibitService(bus, QStringLiteral("org.freedesktop.PowerManagement"),
                         QStringLiteral("/org/freedesktop/PowerManagement/Inhibit"))
    {}

public Q_SLOTS:
    uint Inhibit(const QString &who, const QString & /*reason*/) { return grant(who); }
    void UnInhibit(uint cookie) { giveBack(cookie); }
};

class GnomeSessionService final : public InhibitService
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.gnome.SessionManager")

public:
    explicit GnomeSessionService(PrivateBus &bus)
        : InhibitService(bus, QStringLiteral("org.gnome.SessionManager"),
                         QStringLiteral("/org/gnome/SessionManager"))
    {}

public Q_SLOTS:
    uint Inhibit(const QString &who, uint /*window*/, const QString & /*reason*/, uint flags)
    {
        return grant(who + QLatin1Char(' ') + QString::number(flags));
    }
    void Uninhibit(uint cookie) { giveBack(cookie); }
};
