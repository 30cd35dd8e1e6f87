#pragma once

#include <QList>
#include <QString>

#include <optional>

/// What a running program holds at one moment.
struct ProcessUsage
{
    /// In kilobytes: what the process has written, and what it shares with the display. Unlike the
    /// share of libraries (Pss), this does not depend on which other programs run.
    qint64 memoryKb = 0;
    /// In kilobytes: pages of libraries and other files as they are on disk.
    qint64 mappedFilesKb = 0;
    qint64 fileHandles = 0;
    qint64 threads = 0;
    /// Windows, pixmaps, pictures, cursors and the like, of all of its connections to the display.
    qint64 displayResources = 0;

    /// Of a process of this user on the test's display; an empty optional when it cannot be read.
    static std::optional<ProcessUsage> of(qint64 processId);

    QString text() const;
};

/// The growth of one value over a run.
struct UsageGrowth
{
    QString what;
    qint64 early = 0; ///< the median of the second and third tenths of the run
    qint64 late = 0;  ///< the median of the last two tenths

    bool isWithin(double share) const;
    QString text() const;
};

/// Compares the values after the first tenth of a run with those at its end. Empty for a run with
/// too few samples for that.
QList<UsageGrowth> usageGrowth(const QList<ProcessUsage> &samples);
