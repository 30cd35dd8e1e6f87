#pragma once

#include "model/StreamHeaders.h"

#include <QStringList>
#include <QtGlobal>

#include <functional>

/// A recording that a server sends from any place of it on.
struct ArchiveStream
{
    qint64 lengthMs = 0; ///< above 0
    qint64 stepMs = 1;   ///< the places from which it can be sent are so far apart
    /// The addresses of what follows that place, in the order in which they are to be tried. There
    /// is at least one, and their number is always the same.
    std::function<QStringList(qint64 fromMs)> addresses;
    StreamHeaders headers{}; ///< of its channel
};
