#include "desktop/MediaControls.h"

#ifdef VANTIRO_HAS_DBUS
#include "desktop/MprisService.h"
#endif

#include <cstdlib>
#include <utility>

namespace {

/// Positions come twice a second; a busy machine delays them.
constexpr qint64 jumpMs = 2000;

} // namespace

MediaControls::MediaControls(QObject *parent)
    : QObject(parent)
{
    sincePosition.start();
#ifdef VANTIRO_HAS_DBUS
    new MprisService(this);
#endif
}

void MediaControls::setStatus(const MediaStatus &status)
{
    if (status == current) {
        return;
    }
    const MediaStatus before = std::exchange(current, status);
    if (before.entry != status.entry) {
        position = 0;
    }
    sincePosition.start();
    Q_EMIT statusChanged(before, current);
}

void MediaControls::setPosition(qint64 ms)
{
    const qint64 played =
        current.playback == MediaStatus::Playback::Playing ? sincePosition.elapsed() : 0;
    const bool isJump = std::abs(ms - position - played) > jumpMs;
    position = ms;
    sincePosition.start();
    if (isJump) {
        Q_EMIT jumped(ms);
    }
}
