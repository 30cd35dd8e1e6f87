#pragma once

#include <QString>
#include <QtGlobal>

class GuideStore;

/// @file
/// Work on all stored programmes, within a transaction of the caller. What returns a bool returns
/// false when the store failed.

namespace GuideTimes {

/// How long a programme without an end lasts at most, in seconds, when the next one starts later.
inline constexpr qint64 longestUnknown = 6LL * 3600;

/// Removes the programmes of the channels whose numbers the statement selects.
bool removeProgrammes(GuideStore &store, const QString &channels);

/// Ends each programme when the next one of its channel starts, unless it ends earlier.
bool completeStops(GuideStore &store);

/// When the last programme starts; 0 without programmes.
qint64 newestStart(GuideStore &store);

} // namespace GuideTimes
