#pragma once

#include "guide/GuideAttributes.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QIODevice;

/// A channel of a source, and what the source tells of its guide and archive.
struct GuideSourceEntry
{
    QString id; ///< as in the catalog
    QString name;
    GuideAttributes attributes; ///< with the source's defaults

    bool operator==(const GuideSourceEntry &) const = default;
};

/// Takes the channels of a source, one by one; false to stop.
using GuideEntryReceiver = std::function<bool(const GuideSourceEntry &)>;

/// Reads a playlist in UTF-8, a little at a time. Its channels are those of M3uParser. False when
/// the receiver stopped.
bool readPlaylistEntries(QIODevice &playlist, const GuideEntryReceiver &take);

/// Reads the reply with an account's live channels. False when it is not JSON, or when the receiver
/// stopped.
bool readAccountEntries(const QByteArray &liveStreams, const GuideEntryReceiver &take);
