#include "ui/CatchUpPlayer.h"

#include "guide/ServerZones.h"
#include "model/SourceConfig.h"
#include "ui/ArchiveStream.h"
#include "ui/PlaybackSession.h"

#include <QDateTime>
#include <QPointer>

#include <algorithm>

namespace {

constexpr qint64 msOfSecond = 1000;
constexpr qint64 msOfMinute = 60 * msOfSecond;

qint64 currentTime()
{
    return QDateTime::currentSecsSinceEpoch();
}

/// The addresses of what follows a place of the programme, in the order of `forms`.
QStringList addressesOf(const ArchiveChannel &channel, const GuideProgramme &programme,
                        qint64 fromMs, const QTimeZone &zone,
                        const QList<AccountArchiveForm> &forms)
{
    const ArchivedProgramme rest{
        programme.start + fromMs / msOfSecond, programme.stop, {}, currentTime()};
    if (!channel.account) {
        return {playlistCatchUpUrl(channel.streamUrl, channel.archive, rest, zone)};
    }
    QStringList addresses;
    for (const AccountArchiveForm form : forms) {
        addresses << accountCatchUpUrl(*channel.account, channel.streamId, form, rest, zone);
    }
    return addresses;
}

/// The precision of the times in a channel's addresses.
qint64 stepOf(const ArchiveChannel &channel)
{
    const bool inMinutes = channel.account || channel.archive.form == CatchUpForm::Xtream;
    return inMinutes ? msOfMinute : msOfSecond;
}

} // namespace

CatchUpPlayer::CatchUpPlayer(PlaybackSession *playbackSession, ServerZones *serverZones,
                             QObject *parent)
    : QObject(parent)
    , session(playbackSession)
    , zones(serverZones)
{
    connect(session, &PlaybackSession::entryChanged, this, &CatchUpPlayer::cancel);
    connect(session, &PlaybackSession::stopped, this, &CatchUpPlayer::cancel);
    connect(session, &PlaybackSession::archiveOpened, this, &CatchUpPlayer::reportForm);
}

void CatchUpPlayer::play(const ArchiveChannel &channel, const GuideProgramme &programme)
{
    cancel();
    if (!channel.account) {
        start(channel, programme, QTimeZone::utc());
        return;
    }
    const QPointer<CatchUpPlayer> self(this);
    zones->find(*channel.account,
                [self, channel, programme, number = requestNumber](const QTimeZone &zone) {
                    CatchUpPlayer *player = self.data();
                    if (player != nullptr && player->requestNumber == number) {
                        player->start(channel, programme, zone);
                    }
                });
}

void CatchUpPlayer::start(const ArchiveChannel &channel, const GuideProgramme &programme,
                          const QTimeZone &zone)
{
    QList<AccountArchiveForm> forms;
    if (channel.account) {
        const QString extension =
            channel.liveExtension.isEmpty() ? defaultLiveExtension() : channel.liveExtension;
        forms = accountArchiveForms(extension, channel.workedForm);
    }
    const auto addresses = [channel, programme, zone, forms](qint64 fromMs) {
        return addressesOf(channel, programme, fromMs, zone, forms);
    };
    // What begins now has a length as well.
    const qint64 seconds =
        std::min(programme.stop, std::max(currentTime(), programme.start + 1)) - programme.start;
    if (seconds <= 0 || addresses(0).contains(QString())) {
        Q_EMIT failed(tr("The archive does not tell how to play this programme."));
        return;
    }
    playingSource = channel.source;
    playingForms = forms;
    Q_EMIT aboutToPlay();
    const QString title =
        programme.title.isEmpty() ? channel.name : tr("%1 - %2").arg(channel.name, programme.title);
    session->playArchive({seconds * msOfSecond, stepOf(channel), addresses, channel.headers},
                         title);
}

void CatchUpPlayer::reportForm(qsizetype address)
{
    if (address < playingForms.size()) {
        Q_EMIT formWorked(playingSource, playingForms.at(address));
    }
}
