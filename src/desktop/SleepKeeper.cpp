#include "desktop/SleepKeeper.h"

#include "desktop/SleepInhibitor.h"
#include "player/VlcPlayer.h"

namespace {

/// A picture may come some time after the sound: two seconds.
constexpr int reportsBeforePicture = 4;

} // namespace

SleepKeeper::SleepKeeper(VlcPlayer *vlcPlayer, QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , inhibitor(new SleepInhibitor(this))
{
    connect(player, &VlcPlayer::playbackProgressing, this, &SleepKeeper::noteProgress);
    connect(player, &VlcPlayer::playing, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::pausedChanged, this, [this](bool paused) {
        if (paused) {
            letSleep();
        }
    });
    connect(player, &VlcPlayer::playbackError, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::playbackInterrupted, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::finished, this, &SleepKeeper::letSleep);
    connect(player, &VlcPlayer::stopped, this, &SleepKeeper::letSleep);
}

void SleepKeeper::noteProgress()
{
    if (player->hasPicture()) {
        letSleep();
    } else if (++progressWithoutPicture >= reportsBeforePicture) {
        inhibitor->setActive(true);
    }
}

void SleepKeeper::letSleep()
{
    progressWithoutPicture = 0;
    inhibitor->setActive(false);
}
