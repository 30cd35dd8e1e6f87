#pragma once

#include "fakeprovider/HangingChannel.h"
#include "fakeprovider/XtreamProvider.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <memory>

/// The sources of a long run, on real servers: an account whose channels are transport streams, one
/// whose channels are HLS, and a playlist. Some channels of the first are faulty.
class SoakProviders
{
public:
    SoakProviders();

    /// Stores the three sources in the test's profile.
    void store();

    /// @name The names of the sources
    /// @{
    inline static const QString home = QStringLiteral("Home");
    inline static const QString away = QStringLiteral("Away");
    inline static const QString list = QStringLiteral("List");
    /// @}

    /// @name Entries of the first account
    /// @{
    inline static const QString calm = QStringLiteral("Calm");               ///< without colour
    inline static const QString unavailable = QStringLiteral("Unavailable"); ///< answers 503
    inline static const QString brief = QStringLiteral("Brief");             ///< ends after 5 s
    inline static const QString hanging = QStringLiteral("Hanging");        ///< libVLC's stop hangs
    inline static const QString brokenFilm = QStringLiteral("Broken Film"); ///< answers 503
    /// @}

    /// Channels and films that both accounts and the playlist have, numbered from 0.
    static constexpr int count = 5;
    static QString channel(int number) { return QStringLiteral("Channel %1").arg(number); }
    static QString film(int number) { return QStringLiteral("Film %1").arg(number); }

    QString playlistUrl() const;
    /// What the program must not write: as bytes that it was told.
    QList<QByteArray> secrets() const;

    /// How often a faulty channel, or the calm one, was asked for so far.
    int requests(const QString &name) { return first.http().requestCount(paths.value(name)); }
    /// Hangs up on all streams of the first account.
    void dropStreams() { first.http().dropConnections(); }
    /// Makes the hanging channel hang again after letGo().
    void holdHanging();
    bool hangs() const { return hangingChannel->hangs(); }
    void letGo() { hangingChannel->letGo(); }

private:
    void fill(XtreamProvider &provider);
    void servePlaylist();

    QHash<QString, QString> paths; ///< of the first account's channels above
    XtreamProvider first;
    XtreamProvider second;
    std::unique_ptr<HangingChannel> hangingChannel;
};
