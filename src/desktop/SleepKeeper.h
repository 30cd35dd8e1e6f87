#pragma once

#include <QObject>

class SleepInhibitor;
class VlcPlayer;

/// Keeps the computer awake while a stream plays, and no longer: not while it is opening or paused,
/// nor after its end or a failure. libVLC, which could do that itself, would not let the computer
/// sleep after the end of a film, and would not keep it awake for sound alone.
class SleepKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The player is not owned and must outlive the keeper.
    SleepKeeper(VlcPlayer *vlcPlayer, QObject *parent);

private:
    void keepAwake();
    void letSleep();

    VlcPlayer *player;
    SleepInhibitor *inhibitor;
    bool isPaused = false;
};
