#pragma once

#include "fakeprovider/XtreamProvider.h"

#include <QString>

struct DemoEntry;

/// The demo provider: an account with channels, films and one show, all with posters, and a
/// playlist of the same channels. Both have a programme guide that moves with the clock, and an
/// archive of three days.
class DemoServer final
{
public:
    /// At least how many entries there are of each kind; generated ones fill up.
    struct Size
    {
        int channels = 0;
        int films = 0;
        int shows = 0;
    };

    /// Port 0 takes a free one.
    DemoServer(QString streamsFolder, const Size &size, quint16 port);

    /// False when the port was taken.
    bool isListening() const { return listening; }
    QString url() const { return provider.url(); }
    QString playlistUrl() const { return provider.url() + QStringLiteral("/playlist.m3u"); }

    /// "login" or an action of the interface, and how it answers: gzip, chunked, redirect, html,
    /// unavailable or cut. False when one of the words is unknown.
    bool setFault(const QString &action, const QString &manner);

private:
    void offerChannels();
    void offerFilms();
    void offerShow();
    void fillUp(const Size &size);
    /// The entry with its poster; its stream is the file.
    XtreamEntry listed(const DemoEntry &entry, const QString &line);

    const QString streams;
    XtreamProvider provider{QStringLiteral("demo"), QStringLiteral("demo")};
    bool listening = true;
};
