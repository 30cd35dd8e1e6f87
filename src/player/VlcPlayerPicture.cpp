// What the user changes while a stream plays: speed, delays, and how the picture is shown.

#include "player/MediaPlayer.h"
#include "player/VlcHandles.h"
#include "player/VlcPlayer.h"

#include <QDir>
#include <QFileInfo>
#include <QFuture>
#include <QPromise>

#include <algorithm>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 usPerMs = 1000;

/// Null for an empty text, which takes the setting back.
const char *orNull(const QByteArray &text)
{
    return text.isEmpty() ? nullptr : text.constData();
}

void apply(libvlc_media_player_t *player, const PictureSettings &settings)
{
    libvlc_video_set_aspect_ratio(player, orNull(settings.aspectRatio.toLatin1()));
    libvlc_video_set_crop_geometry(player, orNull(settings.crop.toLatin1()));
    libvlc_video_set_scale(player, settings.scale);
    libvlc_video_set_deinterlace(player, settings.deinterlace ? "yadif" : nullptr);
}

/// Empty without one.
QString languageIn(libvlc_media_t *media, int id)
{
    libvlc_media_track_t **tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    QString language;
    for (unsigned index = 0; index < count; ++index) {
        const libvlc_media_track_t *track = tracks[index]; // NOLINT: libVLC's C array
        if (track->i_id != id) {
            continue;
        }
        const char *text =
            track->psz_language != nullptr ? track->psz_language : track->psz_description;
        language = QString::fromUtf8(text);
    }
    if (tracks != nullptr) {
        libvlc_media_tracks_release(tracks, count);
    }
    return language;
}

} // namespace

// ---- the picture ----

void VlcPlayer::setPicture(const PictureSettings &settings)
{
    wanted.picture = settings;
    wanted.isUsed = true;
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        apply(player, settings);
    }
}

/// Also of a fresh media player, which knows nothing of it.
void VlcPlayer::applyWanted()
{
    if (wanted.isUsed) {
        apply(mediaPlayer->handle(), wanted.picture);
        libvlc_media_player_set_rate(mediaPlayer->handle(), wanted.rate);
    }
}

/// libVLC forgets the delays itself, but keeps the speed.
void VlcPlayer::resetForNextStream()
{
    wanted.rate = 1;
    wanted.audioDelayMs = 0;
    wanted.subtitleDelayMs = 0;
}

void VlcPlayer::takeSnapshot(const QString &path)
{
    const MediaPlayerPtr player =
        mediaPlayer->handleUnlessStopping() != nullptr ? mediaPlayer->shared() : nullptr;
    if (!player) {
        Q_EMIT snapshotTaken(path, false);
        return;
    }
    QPromise<bool> promise;
    promise.future().then(this, [this, path](bool taken) { Q_EMIT snapshotTaken(path, taken); });
    promise.start();
    // libVLC encodes the picture before it returns, and waits for a stop that is under way.
    std::thread([player, path, result = std::move(promise)]() mutable {
        const QByteArray file = QDir::toNativeSeparators(path).toUtf8();
        libvlc_video_take_snapshot(player.get(), 0, file.constData(), 0, 0);
        // It reports success where it could not write, too.
        result.addResult(QFileInfo(path).size() > 0);
        result.finish();
    }).detach();
}

// ---- time ----

void VlcPlayer::setRate(float rate)
{
    wanted.rate = std::clamp(rate, slowestRate, fastestRate);
    wanted.isUsed = true;
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_media_player_set_rate(player, wanted.rate);
    }
}

void VlcPlayer::setAudioDelay(qint64 ms)
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player != nullptr && libvlc_audio_set_delay(player, ms * usPerMs) == 0) {
        wanted.audioDelayMs = ms;
    }
}

void VlcPlayer::setSubtitleDelay(qint64 ms)
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player != nullptr && libvlc_video_set_spu_delay(player, ms * usPerMs) == 0) {
        wanted.subtitleDelayMs = ms;
    }
}

// ---- languages ----

QString VlcPlayer::trackLanguage(int id) const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player == nullptr) {
        return {};
    }
    const MediaPtr media(libvlc_media_player_get_media(player));
    return media ? languageIn(media.get(), id) : QString();
}
