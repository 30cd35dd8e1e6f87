#pragma once

#include <QObject>

class SleepInhibitor;
class VlcPlayer;

/// Keeps the computer awake while sound plays without a picture, and no longer: not while it is
/// paused, nor after its end or a failure. While a picture plays libVLC does that itself.
class SleepKeeper final : public QObject
{
    Q_OBJECT

public:
    /// The player is not owned and must outlive the keeper.
    SleepKeeper(VlcPlayer *vlcPlayer, QObject *parent);

private:
    void noteProgress();
    void letSleep();

    VlcPlayer *player;
    SleepInhibitor *inhibitor;
    int progressWithoutPicture = 0; ///< reports of it since the sound began
};
