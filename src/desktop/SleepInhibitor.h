#pragma once

#include <QObject>

#ifdef VANTIRO_HAS_DBUS
#include <optional>

class SessionBus;
#endif

/// Keeps the computer awake: on Linux by a service of the session bus, on Windows by the state of
/// the calling thread. The screen may go dark where the desktop tells the two apart. A desktop that
/// offers nothing of the kind is no error.
///
/// Waits for nothing, and does nothing before something is first kept awake. For the GUI thread.
class SleepInhibitor final : public QObject
{
    Q_OBJECT

public:
    explicit SleepInhibitor(QObject *parent);
    /// Lets everything sleep again.
    ~SleepInhibitor() override;
    Q_DISABLE_COPY_MOVE(SleepInhibitor)

    /// Off at first.
    void keepAwake(bool on);

private:
    bool isAwake = false;

#ifdef VANTIRO_HAS_DBUS
    /// What a service holds for this program.
    struct Inhibition
    {
        std::size_t service;
        uint cookie;
    };

    void ask();
    void askService(std::size_t service);
    void release();

    SessionBus *bus = nullptr;
    bool isAsking = false; ///< a service has not answered yet
    std::optional<Inhibition> held;
#endif
};
