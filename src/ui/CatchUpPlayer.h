#pragma once

#include "guide/CatchUp.h"
#include "guide/GuideRecords.h"
#include "model/StreamHeaders.h"
#include "providers/XtreamAccount.h"

#include <QObject>
#include <QString>
#include <QTimeZone>

#include <optional>

class PlaybackSession;
class ServerZones;

/// A channel whose archive is to play.
struct ArchiveChannel
{
    QString source;        ///< the name of its source
    QString name;          ///< as the user sees it
    QString streamId;      ///< in its account
    QString streamUrl;     ///< what plays the channel itself
    CatchUpRules archive;  ///< of its GuideEntry
    QString liveExtension; ///< of its source
    StreamHeaders headers; ///< as entryHeaders() tells
    /// Of an account's channel. Without it the rules are applied to streamUrl.
    std::optional<XtreamAccount> account;
    /// What formWorked() last told of the source.
    std::optional<AccountArchiveForm> workedForm;
};

/// Plays programmes from the archives of channels: makes their addresses in the server's zone, and
/// lets the session try each form that a server may know. GUI thread only.
class CatchUpPlayer final : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; both must outlive the player.
    CatchUpPlayer(PlaybackSession *session, ServerZones *zones, QObject *parent);

    /// Plays a programme from its beginning; of one that runs, what the archive holds by now. The
    /// first one of an account waits until its server has told its zone, unless something else
    /// plays before.
    void play(const ArchiveChannel &channel, const GuideProgramme &programme);
    /// Forgets a programme that waits.
    void cancel() { ++requestNumber; }

Q_SIGNALS:
    /// The session is told next. What plays belongs to the channel that play() was given; its place
    /// is not kept.
    void aboutToPlay();
    /// The source's server knows this form: it is to be asked first from now on.
    void formWorked(const QString &source, AccountArchiveForm form);
    /// The programme has no address; what plays goes on. A whole sentence.
    void failed(const QString &message);

private:
    void start(const ArchiveChannel &channel, const GuideProgramme &programme,
               const QTimeZone &zone);
    void reportForm(qsizetype address);

    PlaybackSession *session;
    ServerZones *zones;
    quint64 requestNumber = 0;
    /// What plays: its source, and the forms of its addresses; none of a playlist.
    QString playingSource;
    QList<AccountArchiveForm> playingForms;
};
