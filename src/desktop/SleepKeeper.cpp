#include "desktop/SleepKeeper.h"

#include "desktop/SleepInhibitor.h"
#include "player/VlcPlayer.h"

SleepKeeper::SleepKeeper(VlcPlayer *vlcPlayer, QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , inhibitor(new SleepInhibitor(this))
{
    connect(player, &VlcPlayer::playbackProgressing, this, &SleepKeeper::keepAwake);
    connect(player, &VlcPlayer::playing, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::pausedChanged, this, [this](bool paused) {
        isPaused = paused;
        if (paused) {
            letSleep();
        }
    });
    connect(player, &VlcPlayer::playbackError, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::playbackInterrupted, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::finished, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::stopped, this, &SleepKeeper::letSleep);
}

void SleepKeeper::keepAwake()
{
    // Some progress may still be reported after a pause.
    if (!isPaused) {
        inhibitor->keepAwake(player->hasPicture() ? SleepInhibitor::Awake::Screen
                                                  : SleepInhibitor::Awake::System);
    }
}

void SleepKeeper::letSleep()
{
    inhibitor->keepAwake(SleepInhibitor::Awake::Nothing);
}
