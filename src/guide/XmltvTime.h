#pragma once

#include <QByteArrayView>

#include <optional>

/// A point in time as a guide writes it.
struct XmltvTime
{
    qint64 seconds = 0; ///< since the epoch
    /// The zone is a name other than UTC. It was taken as UTC.
    bool zoneUnknown = false;
};

/// Reads "YYYYMMDDhhmmss +HHMM". All parts behind the year may be missing, and the zone, which is
/// UTC then. Nothing for what is no time.
std::optional<XmltvTime> readXmltvTime(QByteArrayView text);
