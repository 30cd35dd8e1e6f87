#include "desktop/MprisAdaptors.h"

#include <QUrl>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 usPerMs = 1000;

QDBusObjectPath trackOf(const MediaStatus &status)
{
    return QDBusObjectPath("/com/vantiro/Player/track/"_L1 + QString::number(status.entry));
}

QString textOf(MediaStatus::Playback playback)
{
    switch (playback) {
    case MediaStatus::Playback::Playing:
        return u"Playing"_s;
    case MediaStatus::Playback::Paused:
        return u"Paused"_s;
    case MediaStatus::Playback::Stopped:
        break;
    }
    return u"Stopped"_s;
}

double fractionOf(int percent)
{
    return percent / 100.0;
}

QVariantMap metadataOf(const MediaStatus &status)
{
    if (status.entry == 0) {
        return {};
    }
    QVariantMap metadata{{u"mpris:trackid"_s, QVariant::fromValue(trackOf(status))},
                         {u"xesam:title"_s, status.title}};
    if (status.lengthMs > 0) {
        metadata.insert(u"mpris:length"_s, qlonglong{status.lengthMs * usPerMs});
    }
    if (!status.posterFile.isEmpty()) {
        metadata.insert(u"mpris:artUrl"_s,
                        QUrl::fromLocalFile(status.posterFile).toString(QUrl::FullyEncoded));
    }
    return metadata;
}

} // namespace

MprisRootAdaptor::MprisRootAdaptor(QObject *exported, MediaControls *mediaControls)
    : QDBusAbstractAdaptor(exported)
    , controls(mediaControls)
{}

QString MprisRootAdaptor::identity() const
{
    return u"Vantiro Player"_s;
}

QString MprisRootAdaptor::desktopEntry() const
{
    return u"com.vantiro.Player"_s;
}

void MprisRootAdaptor::Raise()
{
    Q_EMIT controls->raiseRequested();
}

void MprisRootAdaptor::Quit()
{
    Q_EMIT controls->quitRequested();
}

MprisPlayerAdaptor::MprisPlayerAdaptor(QObject *exported, MediaControls *mediaControls)
    : QDBusAbstractAdaptor(exported)
    , controls(mediaControls)
{
    connect(controls, &MediaControls::jumped, this,
            [this](qint64 positionMs) { Q_EMIT Seeked(positionMs * usPerMs); });
}

QVariantMap MprisPlayerAdaptor::properties(const MediaStatus &status)
{
    return {{u"PlaybackStatus"_s, textOf(status.playback)},
            {u"Metadata"_s, metadataOf(status)},
            {u"Volume"_s, fractionOf(status.volumePercent)},
            {u"CanGoNext"_s, status.canGoNext},
            {u"CanGoPrevious"_s, status.canGoPrevious},
            {u"CanPlay"_s, status.canPlay},
            {u"CanPause"_s, status.canPlay},
            {u"CanSeek"_s, status.canSeek}};
}

QString MprisPlayerAdaptor::playbackStatus() const
{
    return textOf(controls->status().playback);
}

QVariantMap MprisPlayerAdaptor::metadata() const
{
    return metadataOf(controls->status());
}

double MprisPlayerAdaptor::volume() const
{
    return fractionOf(controls->status().volumePercent);
}

void MprisPlayerAdaptor::setVolume(double volume)
{
    if (std::isfinite(volume)) {
        Q_EMIT controls->volumeRequested(
            static_cast<int>(std::lround(std::clamp(volume, 0.0, 1.0) * 100)));
    }
}

qlonglong MprisPlayerAdaptor::position() const
{
    return controls->positionMs() * usPerMs;
}

void MprisPlayerAdaptor::Next()
{
    if (canGoNext()) {
        Q_EMIT controls->nextRequested();
    }
}

void MprisPlayerAdaptor::Previous()
{
    if (canGoPrevious()) {
        Q_EMIT controls->previousRequested();
    }
}

void MprisPlayerAdaptor::Pause()
{
    Q_EMIT controls->pauseRequested();
}

void MprisPlayerAdaptor::PlayPause()
{
    Q_EMIT controls->playPauseRequested();
}

void MprisPlayerAdaptor::Stop()
{
    Q_EMIT controls->stopRequested();
}

void MprisPlayerAdaptor::Play()
{
    Q_EMIT controls->playRequested();
}

void MprisPlayerAdaptor::Seek(qlonglong offset)
{
    if (canSeek()) {
        Q_EMIT controls->seekRelativeRequested(offset / usPerMs);
    }
}

/// Of another track than the current one it is out of date.
void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath &track, qlonglong position)
{
    const MediaStatus &status = controls->status();
    const qint64 ms = position / usPerMs;
    if (status.canSeek && track == trackOf(status) && position >= 0 && ms <= status.lengthMs) {
        Q_EMIT controls->seekRequested(ms);
    }
}

/// No scheme is offered.
void MprisPlayerAdaptor::OpenUri(const QString & /*uri*/) {}
