#include "desktop/SleepKeeper.h"

#include "desktop/SleepInhibitor.h"
#include "player/VlcPlayer.h"

namespace {

/// How often a stream advances before its picture is given up for missing: the first picture may
/// come later than the sound.
constexpr int patience = 3;

} // namespace

SleepKeeper::SleepKeeper(VlcPlayer *vlcPlayer, QObject *parent)
    : QObject(parent)
    , player(vlcPlayer)
    , inhibitor(new SleepInhibitor(this))
{
    connect(player, &VlcPlayer::playbackProgressing, this, &SleepKeeper::noteProgress);
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

void SleepKeeper::noteProgress()
{
    withoutPicture = player->hasPicture() ? 0 : withoutPicture + 1;
    // Some progress may still be reported after a pause.
    inhibitor->keepAwake(withoutPicture >= patience && !isPaused);
}

void SleepKeeper::letSleep()
{
    withoutPicture = 0;
    inhibitor->keepAwake(false);
}
