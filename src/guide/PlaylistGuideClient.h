#pragma once

#include "guide/GuideAttributes.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

class QNetworkAccessManager;

/// Reads what the first line of a playlist tells of its guide, and no more of the playlist. GUI
/// thread only. Several reads may run at once.
class PlaylistGuideClient final : public QObject
{
    Q_OBJECT

public:
    using Callback = std::function<void(const std::optional<PlaylistGuide> &)>;
    /// A longer first line is read as far as this, in bytes.
    static constexpr qint64 longestLine = 64LL * 1024;

    explicit PlaylistGuideClient(QObject *parent);

    /// Takes addresses as PlaylistClient::read() does. The callback is called exactly once: within
    /// this call for a file, later for a download, and never once the client is destroyed. It gets
    /// nothing when the playlist cannot be read, and an empty guide when the first line is no
    /// "#EXTM3U". A first line that takes longer than replyTimeoutMs is a failure.
    void fetch(const QString &address, const QString &userAgent, const Callback &callback);

private:
    static std::optional<PlaylistGuide> readFile(const QString &path);
    void download(const QString &url, const QString &userAgent, const Callback &callback);

    QNetworkAccessManager *network;
};
