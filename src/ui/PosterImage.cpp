#include "ui/PosterImage.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImageReader>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 maxPosterPixels = 16'000'000;
constexpr auto dataScheme = "data:"_L1;

/// Formats that are programs rather than pictures.
bool isVectorFormat(const QByteArray &format)
{
    return format.startsWith("svg") || format == "pdf";
}

bool isBounded(const QSize &size)
{
    return size.isValid() && qint64(size.width()) * size.height() <= maxPosterPixels;
}

} // namespace

QString posterCachePath(const QString &url)
{
    const QByteArray digest = QCryptographicHash::hash(url.toUtf8(), QCryptographicHash::Sha256);
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/thumb_cache/"_L1 +
           QString::fromLatin1(digest.toHex()) + ".img"_L1;
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

QImage decodePoster(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (format.isEmpty() || isVectorFormat(format)) {
        return {};
    }
    // A format that does not tell its size before it is read can take all of the memory.
    if (!isBounded(reader.size())) {
        return {};
    }
    QImage picture = reader.read();
    if (!isBounded(picture.size())) {
        return {}; // it told another size
    }
    picture.convertTo(picture.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                : QImage::Format_RGB32);
    return picture;
}

QSize fittedPosterSize(const QSize &picture, const QSize &box)
{
    const bool fits = picture.width() <= box.width() && picture.height() <= box.height();
    return fits ? picture : picture.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QImage scaledPoster(const QImage &picture, qreal pixelRatio)
{
    // The painter reserves whole device-independent pixels first, then scales to device pixels.
    const QSize shown = fittedPosterSize(picture.size(), posterSize);
    const QSize pixels = fittedPosterSize(picture.size(), shown * pixelRatio);
    return picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
