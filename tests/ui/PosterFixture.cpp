#include "PosterFixture.h"

#include "support/HttpReplies.h"
#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QBuffer>
#include <QImage>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

PosterServer::PosterServer()
{
    onPrefix(u"/posters/"_s, [](const HttpRequest &) { return imageReply(pngOf(red)); });
}

QString PosterServer::pathOf(int number)
{
    return u"/posters/%1.png"_s.arg(number);
}

QStringList PosterServer::posters(int count) const
{
    QStringList urls;
    for (int number = 0; number < count; ++number) {
        urls << poster(number);
    }
    return urls;
}

QList<int> PosterServer::requested() const
{
    QList<int> numbers;
    for (const HttpRequest &request : requests()) {
        numbers << request.path.section(u'/', -1).section(u'.', 0, 0).toInt();
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QByteArray pngOf(const QColor &color, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

QString dataUrlOf(const QByteArray &bytes, const QString &type)
{
    return u"data:%1;base64,"_s.arg(type) + QString::fromLatin1(bytes.toBase64());
}

HttpReply imageReply(const QByteArray &body)
{
    return bodyReply(body, "image/png"_ba);
}

QColor colorOf(const QIcon &icon)
{
    const QImage image = icon.pixmap(posterSize).toImage();
    return image.isNull() ? QColor() : image.pixelColor(image.rect().center());
}

QList<MediaItem> filmsWith(const QStringList &posterUrls)
{
    QList<MediaItem> films;
    for (const QString &url : posterUrls) {
        MediaItem film;
        film.type = StreamKind::Movie;
        film.id = QString::number(films.size());
        // Names of one to several lines.
        film.name = u"Name "_s.repeated(1 + films.size() % 17);
        film.iconUrl = url;
        films << film;
    }
    return films;
}

QList<int> rowsNearView(const QListWidget &grid)
{
    constexpr int margin = 400;
    const QRect band(0, -margin, grid.viewport()->width(), grid.viewport()->height() + 2 * margin);
    QList<int> rows;
    for (int row = 0; row < grid.count(); ++row) {
        if (grid.visualItemRect(grid.item(row)).intersects(band)) {
            rows << row;
        }
    }
    return rows;
}

QNetworkAccessManager &networkOf(PosterStore &store)
{
    return *store.findChild<QNetworkAccessManager *>(u"thumbnailNetwork"_s);
}

bool settle(const PosterStore &store)
{
    return QTest::qWaitFor([&store] { return !store.isBusy(); }, 60000);
}
