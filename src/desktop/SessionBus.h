#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

/// A connection of its own to the desktop's session bus, made without waiting for it.
///
/// A desktop without a session bus is no error: connected() is then never emitted. No bus is
/// started. For the GUI thread.
class SessionBus final : public QObject
{
    Q_OBJECT

public:
    /// Connects to the bus. `name` tells this connection from the program's others.
    SessionBus(const QString &name, QObject *parent);
    /// Leaves the bus, which ends everything that the bus and its services hold for it.
    ~SessionBus() override;
    Q_DISABLE_COPY_MOVE(SessionBus)

    /// Not connected until connected() was emitted.
    const QDBusConnection &connection() const { return bus; }

Q_SIGNALS:
    void connected();

private:
    QString connectionName;
    QDBusConnection bus;
};
