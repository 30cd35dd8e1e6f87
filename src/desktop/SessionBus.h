#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <memory>

/// A connection of its own to the desktop's session bus, made without waiting for it.
///
/// A desktop without a session bus is no error. No bus is started. For the GUI thread.
class SessionBus final : public QObject
{
    Q_OBJECT

public:
    /// Connects to the bus. `name` tells this connection from the program's others.
    SessionBus(const QString &name, QObject *parent);
    /// Leaves the bus, which ends everything that the bus and its services hold for it.
    ~SessionBus() override;
    Q_DISABLE_COPY_MOVE(SessionBus)

    /// Whether a thread still waits for a bus. Qt's cleanup at the program's end may wait for it
    /// without limit. For any thread.
    static bool isAnyWaiting();

    /// Until one of the signals is emitted.
    bool isConnecting() const { return connecting; }
    const QDBusConnection &connection() const { return bus; }

Q_SIGNALS:
    void connected();
    /// There is no bus, or it refuses the connection.
    void unavailable();

private:
    struct Waiting;

    void finish(const QDBusConnection &made);

    QString connectionName;
    std::shared_ptr<Waiting> waiting; ///< null without a bus
    QDBusConnection bus;
    bool connecting = true;
};
