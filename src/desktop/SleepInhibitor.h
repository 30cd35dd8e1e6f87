#pragma once

#include <QObject>

#ifdef VANTIRO_HAS_DBUS
#include <optional>

class SessionBus;

class QTimer;
#endif

/// Keeps the computer awake: on Linux by a service of the session bus, or else by the desktop's
/// command for its screen saver; on Windows by the state of the calling thread. A desktop that
/// offers nothing of the kind is no error.
///
/// Waits for nothing, and does nothing before something is first kept awake. For the GUI thread.
class SleepInhibitor final : public QObject
{
    Q_OBJECT

public:
    enum class Awake
    {
        Nothing,
        System, ///< the screen may go dark, where the desktop tells the two apart
        Screen, ///< and the system
    };

    explicit SleepInhibitor(QObject *parent);
    /// Lets everything sleep again.
    ~SleepInhibitor() override;
    Q_DISABLE_COPY_MOVE(SleepInhibitor)

    /// Nothing at first.
    void keepAwake(Awake what);

private:
    Awake awake = Awake::Nothing;

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
    void resetScreenSaver() const;

    SessionBus *bus = nullptr;
    bool isAsking = false; ///< a service has not answered yet
    std::optional<Inhibition> held;
    QTimer *resetTimer = nullptr; ///< runs when no service has granted the request
#endif
};
