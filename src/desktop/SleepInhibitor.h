#pragma once

#include <QObject>

#ifdef VANTIRO_HAS_DBUS
#include <optional>

class SessionBus;
#endif

/// Keeps the computer from going to sleep: on Linux by a service of the session bus, on Windows by
/// the state of the calling thread. A desktop that offers nothing of the kind is no error.
///
/// Waits for nothing, and does nothing before it is first made active. For the GUI thread.
class SleepInhibitor final : public QObject
{
    Q_OBJECT

public:
    explicit SleepInhibitor(QObject *parent);
    /// Lets the computer sleep again.
    ~SleepInhibitor() override;
    Q_DISABLE_COPY_MOVE(SleepInhibitor)

    /// Not at first.
    void setActive(bool active);
    bool isActive() const { return active; }

private:
    bool active = false;

#ifdef VANTIRO_HAS_DBUS
    /// What a service holds for this program.
    struct Inhibition
    {
        std::size_t service;
        uint cookie;
    };

    void inhibit(std::size_t service);
    void release();

    SessionBus *bus = nullptr;
    bool isAsking = false; ///< a service has not answered yet
    std::optional<Inhibition> held;
#endif
};
