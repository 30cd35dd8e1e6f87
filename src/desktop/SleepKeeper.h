#pragma once

#include <QObject>

class SleepInhibitor;
class VlcPlayer;

/// Keeps the computer awake while a stream plays sound without a picture, and no longer: not while
/// it is opening or paused, nor after its end or a failure. For a picture libVLC does that itself.
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
    bool isPaused = false;
    int withoutPicture = 0; ///< how often in a row the stream has advanced without a picture
};
