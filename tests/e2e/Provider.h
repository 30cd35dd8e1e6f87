#pragma once

#include "fakeprovider/HttpServer.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// A provider with one account, whose channels and films answer as the test wants them to.
///
/// Add what there is, then store() the account, then start the player. Replies can be changed at
/// any time through `server` and the path of the entry.
class Provider
{
public:
    HttpServer server;

    /// Adds a channel; its stream answers with `reply`. Returns the path of the stream.
    QString addChannel(const QString &name, const HttpReply &reply);
    QString addChannel(const QString &name, const HttpServer::Handler &handler);
    /// Adds a film, likewise.
    QString addFilm(const QString &name, const QString &extension, const HttpReply &reply);
    QString addFilm(const QString &name, const QString &extension,
                    const HttpServer::Handler &handler);

    /// The address of the poster that every film has; call it before store().
    void setFilmPoster(const QString &url) { filmPoster = url; }

    /// Puts the account into the profile, as an earlier run would have: the player loads it when it
    /// starts. Answers the player's questions about the catalog from here on.
    void store();
    /// Puts another source of that name into the profile, a playlist that `server` answers for at
    /// the path.
    void storeAlso(const QString &name, const QString &path) const;

private:
    struct Entry
    {
        QString name;
        QString extension;
    };
    QByteArray answer(const QString &action) const;

    QList<Entry> channels;
    QList<Entry> films;
    QString filmPoster;
};

/// A channel that plays the transport stream of that name and length at its own pace, over and
/// over.
HttpReply liveStream(const QString &streamName, int seconds);
