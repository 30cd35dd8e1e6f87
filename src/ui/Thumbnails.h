#pragma once

#include <QPixmap>
#include <QString>

class QByteArray;
class QNetworkReply;
class QUrl;

/// The size of a poster in the grids, in pixels.
inline constexpr QSize posterSize(140, 210);

/// Where the poster of that URL is kept on disk: named by the SHA-256 of the URL.
QString thumbnailCachePath(const QString &url);

/// The grey picture that stands in for a poster.
QPixmap makePlaceholderPoster();
