#pragma once

#include "fakeprovider/XtreamProvider.h"

#include <QString>

/// The demo provider: an account with channels, films and one show, all with posters, and a
/// playlist of the same channels, on the provider that the tests use.
class DemoServer final
{
public:
    /// How many entries there are of each kind; generated ones fill up what the demo itself lacks.
    struct Size
    {
        int channels = 0;
        int films = 0;
        int shows = 0;
    };

    /// Port 0 takes a free one.
    DemoServer(const QString &streamsFolder, const Size &size, quint16 port);

    /// False when the port was taken.
    bool isListening() const { return listening; }
    QString url() const { return provider.url(); }
    QString playlistUrl() const { return provider.url() + QStringLiteral("/playlist.m3u"); }

    /// "login" or an action of the interface, and how it answers: gzip, chunked, redirect, html,
    /// unavailable or cut. False when one of the words is unknown.
    bool setFault(const QString &action, const QString &manner);

    static QString user() { return QStringLiteral("demo"); }
    static QString password() { return QStringLiteral("demo"); }

private:
    void offerCatalog(const Size &size);
    void offerChannels();
    void offerFiles();
    void offerPosters();
    QString poster(int id) const;

    const QString streams;
    XtreamProvider provider;
    bool listening = true;
};
