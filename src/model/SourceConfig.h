#pragma once

#include <QString>
#include <QtGlobal>

/// The kinds of content source, as stored in the settings.
namespace SourceType {
inline constexpr qint32 Playlist = 0;
inline constexpr qint32 Xtream = 1;
inline constexpr qint32 Zevrino = 2;

/// True for the kinds that are loaded as an account; every other value is loaded as a playlist.
constexpr bool isAccount(qint32 type)
{
    return type == Xtream || type == Zevrino;
}
} // namespace SourceType

/// One content source as the user configured it, identified by its name.
struct SourceConfig
{
    qint32 type = SourceType::Playlist;
    QString name;
    /// Playlist URL or local path, or the server's base URL.
    QString url;
    QString username;
    QString password;
    /// File extension put into live stream URLs.
    QString liveExtension;
    QString subscriptionKey;
    /// Seconds since the epoch when the last catalog fetch began, successful or not; 0 if never.
    qint64 lastUpdated = 0;
    /// Sent with the source's requests and streams; empty for the usual one.
    QString userAgent{};

    bool operator==(const SourceConfig &) const = default;
};

/// The live extension of sources without one of their own.
inline const QString &defaultLiveExtension()
{
    static const QString extension = QStringLiteral("m3u8");
    return extension;
}

/// The record of "no source": empty except for the default live extension.
inline SourceConfig defaultSourceConfig()
{
    SourceConfig config;
    config.liveExtension = defaultLiveExtension();
    return config;
}

/// How long a fetched catalog counts as fresh, in seconds: 24 hours.
inline constexpr qint64 catalogMaxAgeSeconds = 86400;
