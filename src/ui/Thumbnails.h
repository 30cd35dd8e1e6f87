#pragma once

#include <QByteArray>
#include <QMultiHash>
#include <QPixmap>
#include <QString>

class QListWidget;
class QRect;
class QUrl;

/// The size of a poster in the grids, in pixels.
inline constexpr QSize posterSize(140, 210);

/// A poster's body may be this long, in bytes; what is longer is not downloaded to its end.
inline constexpr qint64 maxPosterBytes = 20'000'000;

/// Where the poster of that URL is kept on disk: named by the SHA-256 of the URL.
QString thumbnailCachePath(const QString &url);

/// The grey picture that stands in for a poster.
QPixmap makePlaceholderPoster();

/// Whether a poster may be fetched from there: over HTTP only, so that no catalog makes the player
/// read a local file.
bool isPosterUrl(const QUrl &url);

/// Whether the URL holds the poster itself ("data:...").
bool isDataUrl(const QString &url);

/// The bytes that a data URL holds, in Base64 or percent-encoded. Empty when it is malformed, says
/// that it is no image, or holds more than maxPosterBytes.
QByteArray dataUrlBytes(const QString &url);

/// The picture in the bytes, whatever raster format they have. Null for anything else, and for more
/// pixels than a poster can want: catalogs come from strangers.
QPixmap decodePoster(const QByteArray &bytes);

/// As decodePoster(), for the poster of that URL in the file cache.
QPixmap loadCachedPoster(const QString &url);

/// Writes a poster's bytes as they came; a failure goes unnoticed.
void saveCachedPoster(const QString &url, const QByteArray &bytes);

/// The rows of a grid whose items reach into a band of the viewport, from `first` to `last`; none
/// when `last` is less than `first`. Found by halving: the tops of a grid's items never fall from
/// row to row.
struct RowRange
{
    int first = 0;
    int last = -1;
};
RowRange rowsInBand(const QListWidget &grid, const QRect &band);

/// Which rows of a grid wait for the poster of a URL. Reads the grid once per fill, on first use.
class PosterRows final
{
public:
    /// Call it when the grid was filled anew.
    void forget() { known = false; }
    QList<int> of(const QListWidget &grid, const QString &url);
    /// As of(), and they wait no longer.
    QList<int> take(const QListWidget &grid, const QString &url);

private:
    QMultiHash<QString, int> rows;
    bool known = false;
};
