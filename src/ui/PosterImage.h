#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

/// @file
/// The pictures of posters: where they may come from, where they are kept on disk, and how they are
/// decoded. Catalogs come from strangers, so every limit is checked. Any thread may call these.

/// The size of a poster in the grids, in device-independent pixels.
inline constexpr QSize posterSize(140, 210);

/// The longest body of a poster, in bytes; a longer one is not downloaded to its end.
inline constexpr qint64 maxPosterBytes = 20'000'000;

/// The file that holds the poster of that URL, named by the SHA-256 of the URL.
QString posterCachePath(const QString &url);

/// Whether the URL holds the poster itself ("data:...").
bool isDataUrl(const QString &url);

/// The bytes in a data URL, Base64 or percent-encoded. Empty when it is malformed, has a type other
/// than an image, or holds more than maxPosterBytes.
QByteArray dataUrlBytes(const QString &url);

/// The picture in the bytes, of any raster format that Qt reads, in a format that pixmaps share
/// without conversion. Null for anything else, and for a picture of more than 16 million pixels or
/// in a format that does not tell its size up front, such as MNG.
QImage decodePoster(const QByteArray &bytes);

/// The size that an icon of a picture has in `box`: that of the picture, reduced when it is larger,
/// at least one pixel high and wide.
QSize fittedPosterSize(const QSize &picture, const QSize &box);

/// The picture in the size in which a grid paints it on a screen of that pixel ratio. Never
/// enlarged.
QImage scaledPoster(const QImage &picture, qreal pixelRatio);
