#pragma once

#include "providers/ReplyBytes.h"

#include <QObject>
#include <QString>

#include <functional>

class QNetworkAccessManager;

/// The result of reading a playlist.
struct PlaylistReply
{
    enum class Outcome
    {
        Read,
        FileNotOpened,
        DownloadFailed
    };

    Outcome outcome = Outcome::Read;
    ReplyBytes body; ///< empty on failure
    QString error;   ///< of the network layer, when the download failed
};

/// Reads playlists from the network or from disk. GUI thread only. Several reads may run at once.
class PlaylistClient final : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void(const PlaylistReply &)>;

    explicit PlaylistClient(QObject *parent);

    /// Downloads an address that begins with "http://" or "https://" in lower case; anything else
    /// is the path of a local file. A download is asked for by `userAgent`, unless that is empty.
    /// The callback is called exactly once: within this call for a file, later for a download, and
    /// never once the client is destroyed. A download that makes no progress for replyTimeoutMs
    /// fails.
    void read(const QString &address, const QString &userAgent, const Callback &callback);

private:
    static PlaylistReply readFile(const QString &path);
    void download(const QString &url, const QString &userAgent, const Callback &callback);

    QNetworkAccessManager *network;
};
