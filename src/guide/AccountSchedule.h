#pragma once

#include <QJsonDocument>
#include <QList>
#include <QString>
#include <QTimeZone>
#include <QtGlobal>

#include <optional>

/// A programme in an account's schedule of one channel.
struct ScheduledProgramme
{
    qint64 start = 0; ///< seconds since the epoch
    qint64 stop = 0;  ///< after `start`, and not after the next start
    QString title;
    QString description;
    bool inArchive = false; ///< the server says that it can be played again

    bool operator==(const ScheduledProgramme &) const = default;
};

/// Reads a short or full schedule, in the order of the starts; nothing when the reply is none. Of
/// several programmes with one start the last one counts. One without a start is left out; one
/// without an end lasts until the next start, six hours at most. `serverZone` is that of times
/// which the server gives as dates only.
std::optional<QList<ScheduledProgramme>> readSchedule(const QJsonDocument &reply,
                                                      const QTimeZone &serverZone);
