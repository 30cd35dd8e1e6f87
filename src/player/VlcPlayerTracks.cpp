#include "player/VlcPlayer.h"

#include "player/MediaPlayer.h"
#include "player/VlcHandles.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// From libVLC's bitrates to the displayed figures.
constexpr double bitrateFactor = 8.0;

QString trackName(const libvlc_track_description_t &entry)
{
    if (entry.i_id == -1) {
        // libVLC's own name for no track may be in another language than the window.
        return VlcPlayer::tr("Disable");
    }
    return entry.psz_name != nullptr ? QString::fromUtf8(entry.psz_name)
                                     : VlcPlayer::tr("Track %1").arg(entry.i_id);
}

QList<VlcPlayer::Track> realTracks(const DescriptionList &list)
{
    QList<VlcPlayer::Track> tracks;
    for (const libvlc_track_description_t *entry = list.get(); entry != nullptr;
         entry = entry->p_next) {
        if (entry->i_id != -1) {
            tracks.append({entry->i_id, trackName(*entry)});
        }
    }
    return tracks;
}

// One arg() for all values: a codec is four bytes that the stream names, "%2" among them.

QString videoText(quint32 codec, const libvlc_video_track_t &video)
{
    const double rate = video.i_frame_rate_den == 0
                            ? 0.0
                            : static_cast<double>(video.i_frame_rate_num) /
                                  static_cast<double>(video.i_frame_rate_den);
    return VlcPlayer::tr("Video codec: %1\nResolution: %2x%3\nFrame rate: %4 fps\n\n")
        .arg(fourCcToString(codec), QString::number(video.i_width), QString::number(video.i_height),
             QString::number(rate, 'f', 2));
}

QString audioText(quint32 codec, const libvlc_audio_track_t &audio)
{
    return VlcPlayer::tr("Audio codec: %1\nSample rate: %2 Hz\nChannels: %3\n\n")
        .arg(fourCcToString(codec), QString::number(audio.i_rate),
             QString::number(audio.i_channels));
}

QString elementaryStreamsText(libvlc_media_t *media)
{
    libvlc_media_track_t **tracks = nullptr;
    const unsigned count = libvlc_media_tracks_get(media, &tracks);
    QString text;
    for (unsigned index = 0; index < count; ++index) {
        const libvlc_media_track_t *track = tracks[index]; // NOLINT: libVLC's C array
        if (track->i_type == libvlc_track_video && track->video != nullptr) {
            text += videoText(track->i_codec, *track->video);
        } else if (track->i_type == libvlc_track_audio && track->audio != nullptr) {
            text += audioText(track->i_codec, *track->audio);
        }
    }
    if (tracks != nullptr) {
        libvlc_media_tracks_release(tracks, count);
    }
    return text;
}

/// The heading and one line per entry, with the current one marked; empty without a list.
QString selectionText(const QString &heading, const DescriptionList &list, int current)
{
    if (!list) {
        return {};
    }
    QString text = heading;
    for (const libvlc_track_description_t *entry = list.get(); entry != nullptr;
         entry = entry->p_next) {
        const QString mark = entry->i_id == current ? u"[*]"_s : u"[ ]"_s;
        text += "  "_L1 + mark + u' ' + trackName(*entry) + u'\n';
    }
    return text + u'\n';
}

QString statisticsText(libvlc_media_t *media)
{
    libvlc_media_stats_t stats{};
    if (libvlc_media_get_stats(media, &stats) == 0) {
        return {};
    }
    return VlcPlayer::tr(
               "Input bitrate: %1 kbps\nDemux bitrate: %2 kbps\nDecoded video blocks: %3\n"
               "Decoded audio blocks: %4\nDisplayed frames: %5   Lost frames: %6\n")
        .arg(static_cast<double>(stats.f_input_bitrate) * bitrateFactor, 0, 'f', 1)
        .arg(static_cast<double>(stats.f_demux_bitrate) * bitrateFactor, 0, 'f', 1)
        .arg(stats.i_decoded_video)
        .arg(stats.i_decoded_audio)
        .arg(stats.i_displayed_pictures)
        .arg(stats.i_lost_pictures);
}

} // namespace

QString fourCcToString(quint32 fourcc)
{
    QString text;
    for (quint32 rest = fourcc; (rest & 0xffU) != 0; rest >>= 8U) {
        text += QLatin1Char(static_cast<char>(rest & 0xffU));
    }
    return text.trimmed();
}

QList<VlcPlayer::Track> VlcPlayer::audioTracks() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player == nullptr) {
        return {};
    }
    return realTracks(DescriptionList(libvlc_audio_get_track_description(player)));
}

QList<VlcPlayer::Track> VlcPlayer::subtitleTracks() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player == nullptr) {
        return {};
    }
    return realTracks(DescriptionList(libvlc_video_get_spu_description(player)));
}

int VlcPlayer::currentAudioTrack() const
{
    if (isWaiting()) {
        return pending.audioTrack.value_or(-1);
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_audio_get_track(player) : -1;
}

void VlcPlayer::setAudioTrack(int id)
{
    if (isWaiting()) {
        pending.audioTrack = id;
    } else {
        pending.audioTrack.reset();
        if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
            libvlc_audio_set_track(player, id);
        }
    }
    Q_EMIT audioTrackSet(id);
}

int VlcPlayer::currentSubtitleTrack() const
{
    if (isWaiting()) {
        return pending.subtitleTrack.value_or(-1);
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr ? libvlc_video_get_spu(player) : -1;
}

void VlcPlayer::setSubtitleTrack(int id)
{
    if (mediaPlayer->handle() != nullptr) {
        selectSubtitleTrack(id);
        savedSubtitleTrack = id;
        Q_EMIT subtitleTrackSet(id);
    }
}

void VlcPlayer::selectSubtitleTrack(int id)
{
    if (isWaiting()) {
        pending.subtitleTrack = id;
        return;
    }
    pending.subtitleTrack.reset();
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        libvlc_video_set_spu(player, id);
    }
}

bool VlcPlayer::hasSubtitles() const
{
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    return player != nullptr && libvlc_video_get_spu_count(player) > 0;
}

bool VlcPlayer::subtitlesEnabled() const
{
    return currentSubtitleTrack() != -1;
}

void VlcPlayer::setSubtitlesEnabled(bool enabled)
{
    if (mediaPlayer->handle() == nullptr) {
        return;
    }
    if (!enabled) {
        savedSubtitleTrack = currentSubtitleTrack();
        selectSubtitleTrack(-1);
        return;
    }
    int track = savedSubtitleTrack;
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (track < 0 && player != nullptr) {
        const DescriptionList list(libvlc_video_get_spu_description(player));
        track = list ? list->i_id : -1;
    }
    if (track >= 0) {
        selectSubtitleTrack(track);
    }
}

void VlcPlayer::loadSubtitleFile(const QString &path)
{
    Q_EMIT subtitleFileAdded();
    if (isWaiting()) {
        pending.subtitleFiles << path;
        return;
    }
    libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping();
    if (player == nullptr) {
        return;
    }
    const QByteArray uri = QUrl::fromLocalFile(path).toEncoded(QUrl::FullyEncoded);
    libvlc_media_player_add_slave(player, libvlc_media_slave_type_subtitle, uri.constData(), true);
    savedSubtitleTrack = libvlc_video_get_spu(player);
}

QString VlcPlayer::mediaInfoText() const
{
    if (mediaPlayer->handle() == nullptr) {
        return tr("No player.");
    }
    // While a stream waits, the media player still has the previous one.
    MediaPtr playersMedia;
    libvlc_media_t *media = nextMedia;
    if (media == nullptr) {
        playersMedia.reset(libvlc_media_player_get_media(mediaPlayer->handle()));
        media = playersMedia.get();
    }
    if (media == nullptr) {
        return tr("No media loaded.");
    }
    QString text = elementaryStreamsText(media);
    if (libvlc_media_player_t *player = mediaPlayer->handleUnlessStopping()) {
        text += selectionText(tr("Audio tracks:\n"),
                              DescriptionList(libvlc_audio_get_track_description(player)),
                              libvlc_audio_get_track(player)) +
                selectionText(tr("Subtitle tracks:\n"),
                              DescriptionList(libvlc_video_get_spu_description(player)),
                              libvlc_video_get_spu(player));
    }
    text += statisticsText(media);
    return text.isEmpty() ? tr("No track information available yet.") : text;
}
