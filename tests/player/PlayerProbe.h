#pragma once

#include "player/VlcPlayer.h"

#include <QCoreApplication>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <QTimer>

/// How long libVLC may take to open, change or seek a stream on a busy machine.
constexpr int openMs = 20000;

/// What a stream that starts adds to PlayerProbe::log.
inline const QStringList started{QStringLiteral("playing"), QStringLiteral("not paused")};

/// Leaves libVLC no way to open a window of its own, so that it plays without a picture. Without it
/// libVLC draws on the tester's X screen or, as coloured letters, into the terminal. To be called
/// before the first player is created.
inline void keepVlcFromOpeningWindows()
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("CACA_DRIVER", "null");
}

/// A player and what it has reported so far, recorded on the GUI thread.
class PlayerProbe
{
public:
    explicit PlayerProbe(QWidget *surface = nullptr)
        : player(surface, nullptr)
    {
        QObject::connect(&player, &VlcPlayer::playing, &context,
                         [this] { log << QStringLiteral("playing"); });
        QObject::connect(&player, &VlcPlayer::stopped, &context,
                         [this] { log << QStringLiteral("stopped"); });
        QObject::connect(&player, &VlcPlayer::pausedChanged, &context, [this](bool paused) {
            log << (paused ? QStringLiteral("paused") : QStringLiteral("not paused"));
        });
        QObject::connect(&player, &VlcPlayer::playbackError, &context,
                         [this](const QString &message) { errors << message; });
        QObject::connect(&player, &VlcPlayer::playbackInterrupted, &context,
                         [this](const QString &reason) {
                             interruptions << reason;
                             stillAtInterruption << stillPositions;
                         });
        QObject::connect(&player, &VlcPlayer::playbackProgressing, &context,
                         [this] { ++progress; });
        QObject::connect(&player, &VlcPlayer::positionChanged, &context,
                         [this](qint64 current, qint64 total) { record(current, total); });
        QObject::connect(progressTimer(), &QTimer::timeout, &context, [this] { ++ticks; });
    }

    QTimer *progressTimer() const
    {
        return player.findChild<QTimer *>(QStringLiteral("progressTimer"));
    }

    /// Waits until the media time has advanced at `times` more checks.
    [[nodiscard]] bool advances(int times = 1) const { return waitFor(progress, times); }
    /// Waits for that many more checks of the stream, playing or not. Until then libVLC's threads
    /// have delivered what they had to report.
    [[nodiscard]] bool checksAgain(int times = 3) const { return waitFor(ticks, times); }

    VlcPlayer player;
    QStringList log;           ///< playing, stopped, paused, not paused
    QStringList errors;        ///< messages of playbackError
    QStringList interruptions; ///< reasons of playbackInterrupted
    int ticks = 0;             ///< checks of the stream, playing or not
    int positions = 0;         ///< positionChanged
    int progress = 0;          ///< playbackProgressing
    qint64 currentMs = -1;     ///< of the last positionChanged
    qint64 totalMs = -1;
    int stillPositions = 0; ///< positionChanged in a row with the same time as the one before
    QList<int> stillAtInterruption; ///< stillPositions at each interruption

private:
    static bool waitFor(const int &counter, int more)
    {
        const int wanted = counter + more;
        return QTest::qWaitFor([&counter, wanted] { return counter >= wanted; }, 3 * openMs);
    }

    void record(qint64 current, qint64 total)
    {
        stillPositions = positions > 0 && current == currentMs ? stillPositions + 1 : 0;
        ++positions;
        currentMs = current;
        totalMs = total;
    }

    QObject context;
};
