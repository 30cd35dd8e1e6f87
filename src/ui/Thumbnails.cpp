#include "ui/Thumbnails.h"

#include "ui/BrowseTab.h"

#include <QBuffer>
#include <QColor>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QListWidget>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maxPosterPixels = 16'000'000;
constexpr auto dataScheme = "data:"_L1;

/// Formats that are programs rather than pictures.
bool isVectorFormat(const QByteArray &format)
{
    return format.startsWith("svg") || format == "pdf";
}

} // namespace

QString thumbnailCachePath(const QString &url)
{
    const QByteArray digest = QCryptographicHash::hash(url.toUtf8(), QCryptographicHash::Sha256);
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/thumb_cache/"_L1 +
           QString::fromLatin1(digest.toHex()) + ".img"_L1;
}

QPixmap makePlaceholderPoster()
{
    QPixmap poster(posterSize);
    poster.fill(QColor(45, 45, 48));
    return poster;
}

bool isPosterUrl(const QUrl &url)
{
    return url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
}

bool isDataUrl(const QString &url)
{
    return url.startsWith(dataScheme, Qt::CaseInsensitive);
}

QByteArray dataUrlBytes(const QString &url)
{
    // The longest form of a byte is "%xx".
    constexpr qsizetype maxEncodedBytes = 3 * maxPosterBytes;
    const qsizetype comma = url.indexOf(u',');
    if (!isDataUrl(url) || comma < 0 || url.size() - comma > maxEncodedBytes) {
        return {};
    }
    const QString type = url.mid(dataScheme.size(), comma - dataScheme.size()).trimmed();
    if (!type.startsWith("image/"_L1, Qt::CaseInsensitive)) {
        return {};
    }
    QByteArray bytes = QByteArray::fromPercentEncoding(QStringView(url).mid(comma + 1).toUtf8());
    if (type.endsWith(";base64"_L1, Qt::CaseInsensitive)) {
        bytes = QByteArray::fromBase64(bytes);
    }
    return bytes.size() <= maxPosterBytes ? bytes : QByteArray();
}

QPixmap decodePoster(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format.isEmpty() || isVectorFormat(format)) {
        return {};
    }
    const QSize size = reader.size();
    if (size.isValid() && qint64(size.width()) * size.height() > maxPosterPixels) {
        return {};
    }
    return QPixmap::fromImageReader(&reader);
}

QPixmap loadCachedPoster(const QString &url)
{
    QFile file(thumbnailCachePath(url));
    return file.open(QIODevice::ReadOnly) ? decodePoster(file.readAll()) : QPixmap();
}

void saveCachedPoster(const QString &url, const QByteArray &bytes)
{
    const QString path = thumbnailCachePath(url);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
    }
}

RowRange rowsInBand(const QListWidget &grid, const QRect &band)
{
    const auto rectOf = [&grid](int row) { return grid.visualItemRect(grid.item(row)); };
    // The first row that `isPast` holds for; it holds for all rows behind that one.
    const auto firstRow = [&grid](const auto &isPast) {
        int low = 0;
        int high = grid.count();
        while (low < high) {
            const int middle = low + (high - low) / 2;
            if (isPast(middle)) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return low;
    };
    RowRange range;
    range.first = firstRow([&](int row) { return rectOf(row).bottom() >= band.top(); });
    range.last = firstRow([&](int row) { return rectOf(row).top() > band.bottom(); }) - 1;
    return range;
}

QList<int> PosterRows::of(const QListWidget &grid, const QString &url)
{
    if (!known) {
        rows.clear();
        rows.reserve(grid.count());
        for (int row = 0; row < grid.count(); ++row) {
            rows.insert(grid.item(row)->data(PosterRole::IconUrl).toString(), row);
        }
        known = true;
    }
    return rows.values(url);
}

QList<int> PosterRows::take(const QListWidget &grid, const QString &url)
{
    const QList<int> waiting = of(grid, url);
    rows.remove(url);
    return waiting;
}
