#pragma once

#include "guide/GuideAttributes.h"
#include "providers/XtreamAccount.h"

#include <QList>
#include <QString>
#include <QTimeZone>
#include <QtGlobal>

#include <optional>

class QJsonDocument;

/// @file
/// The addresses of past programmes. Addresses hold credentials: who traces one uses
/// traceSafeUrl().

/// What is asked of an archive, and when. All times are seconds since the epoch.
struct ArchivedProgramme
{
    qint64 start = 0;
    qint64 stop = 0; ///< after `start`
    QString id;      ///< the programme's own id in the archive; mostly empty
    qint64 now = 0;
};

/// The forms of an account's addresses. Stored as numbers per source.
enum class AccountArchiveForm : quint8
{
    PathTs = 0,   ///< /timeshift/.../1.ts
    PathM3u8 = 1, ///< /timeshift/.../1.m3u8
    Query = 2     ///< /streaming/timeshift.php?...
};

/// In which order the forms are tried: what worked before comes first, then the path with the live
/// streams' extension.
QList<AccountArchiveForm> accountArchiveForms(const QString &liveExtension,
                                              std::optional<AccountArchiveForm> worked = {});

/// The address of a programme in an account's archive. `serverZone` is that of serverZone(). The
/// account is inserted as in live addresses; in a query it is percent-encoded as far as it is not.
QString accountCatchUpUrl(const XtreamAccount &account, const QString &streamId,
                          AccountArchiveForm form, const ArchivedProgramme &programme,
                          const QTimeZone &serverZone);

/// The address of a programme in the archive of a playlist's channel: its rules with the playlist's
/// defaults, applied to its address. What follows a '|' in an address are headers, and stays at the
/// end. Empty when there is no archive, or when the rules do not fit the address. `zone` is that of
/// the times which are written as dates; a playlist does not tell it, and UTC is usual.
QString playlistCatchUpUrl(const QString &streamUrl, const CatchUpRules &rules,
                           const ArchivedProgramme &programme, const QTimeZone &zone);

/// How many seconds an archive reaches back: 0 without one, a week when the source does not tell.
qint64 archiveSeconds(const CatchUpRules &rules);

/// Whether an archive holds the programme, from its beginning; also the one that runs or begins
/// now.
bool archiveHolds(const CatchUpRules &rules, const ArchivedProgramme &programme);

/// The zone of an account's server, from the account's summary: the one that it names, otherwise
/// the difference between its clock and its seconds since the epoch, to the quarter of an hour,
/// otherwise UTC.
QTimeZone serverZone(const QJsonDocument &summary);
