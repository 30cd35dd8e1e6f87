#pragma once

#include "desktop/BusClient.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

/// A desktop's player controls: what such a program does over the bus, and what it is told.
class MprisClient final : public QObject
{
    Q_OBJECT

public:
    explicit MprisClient(BusClient *busClient)
        : bus(busClient)
    {
        bus->client.connect({}, path(), QStringLiteral("org.freedesktop.DBus.Properties"),
                            QStringLiteral("PropertiesChanged"), this,
                            SLOT(noteChanges(QString, QVariantMap, QStringList)));
        bus->client.connect({}, path(), playerInterface(), QStringLiteral("Seeked"), this,
                            SLOT(noteSeek(qlonglong)));
    }

    static QString path() { return QStringLiteral("/org/mpris/MediaPlayer2"); }
    static QString rootInterface() { return QStringLiteral("org.mpris.MediaPlayer2"); }
    static QString playerInterface() { return QStringLiteral("org.mpris.MediaPlayer2.Player"); }
    static QString name() { return QStringLiteral("org.mpris.MediaPlayer2.vantiro-player"); }

    bool isThere() const { return bus->hasService(name()); }

    QDBusMessage callOn(const QString &interface, const QString &method,
                        const QVariantList &arguments = {}) const
    {
        QDBusMessage message = QDBusMessage::createMethodCall(name(), path(), interface, method);
        message.setArguments(arguments);
        return bus->call(message);
    }

    QDBusMessage call(const QString &method, const QVariantList &arguments = {}) const
    {
        return callOn(playerInterface(), method, arguments);
    }

    QVariant get(const QString &property, const QString &interface = playerInterface()) const
    {
        const QDBusMessage reply = callOn(QStringLiteral("org.freedesktop.DBus.Properties"),
                                          QStringLiteral("Get"), {interface, property});
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    QDBusMessage set(const QString &property, const QVariant &value) const
    {
        return callOn(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"),
                      {playerInterface(), property, QVariant::fromValue(QDBusVariant(value))});
    }

    QVariantMap metadata() const
    {
        return qdbus_cast<QVariantMap>(get(QStringLiteral("Metadata")).value<QDBusArgument>());
    }

    QVariantMap changed;       ///< the value that each property was last said to have
    QList<qlonglong> seekedTo; ///< microseconds
    int changes = 0;           ///< signals about them

private Q_SLOTS:
    void noteChanges(const QString &interface, const QVariantMap &values, const QStringList &)
    {
        if (interface == playerInterface()) {
            ++changes;
            changed.insert(values);
        }
    }

    void noteSeek(qlonglong position) { seekedTo << position; }

private:
    BusClient *bus;
};
