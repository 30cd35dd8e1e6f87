#include "ui/Thumbnails.h"

#include <QColor>
#include <QCryptographicHash>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

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
