#pragma once

#include "player/VlcPlayer.h"

#include <QCoreApplication>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Leaves libVLC no way to open a window of its own, so that it plays without a picture. Without it
/// libVLC draws on the tester's X screen or, as coloured letters, into the terminal. Call it before
/// the first player is made.
inline void keepVlcFromOpeningWindows()
{
    qunsetenv("DISPLAY");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("CACA_DRIVER", "null");
}

/// A player without a picture, and what it told so far. Everything is noted on the GUI thread.
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
                         [this](qint64 current, qint64 total) { note(current, total); });
        QObject::connect(tickTimer(), &QTimer::timeout, &context, [this] { ++ticks; });
    }

    QTimer *tickTimer() const { return player.findChild<QTimer *>(); }

    VlcPlayer player;
    QStringList log;           ///< playing, stopped, paused, not paused
    QStringList errors;        ///< messages of playbackError
    QStringList interruptions; ///< reasons of playbackInterrupted
    int ticks = 0;             ///< looks at the stream, playing or not
    int positions = 0;         ///< positionChanged
    int progress = 0;          ///< playbackProgressing
    qint64 currentMs = -1;     ///< of the last positionChanged
    qint64 totalMs = -1;
    int stillPositions = 0; ///< positionChanged in a row that gave the time of the one before
    QList<int> stillAtInterruption; ///< stillPositions at each interruption

private:
    void note(qint64 current, qint64 total)
    {
        stillPositions = positions > 0 && current == currentMs ? stillPositions + 1 : 0;
        ++positions;
        currentMs = current;
        totalMs = total;
    }

    QObject context;
};
