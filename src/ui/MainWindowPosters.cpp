#include "ui/MainWindow.h"

#include "ui/BrowseTab.h"

#include <QIcon>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Posters this far above and below the visible part are asked for too, in pixels.
constexpr int prefetchMargin = 400;

bool mayBeImage(const QNetworkReply &reply)
{
    const QString type = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    return type.isEmpty() || type.startsWith("image/"_L1, Qt::CaseInsensitive);
}

} // namespace

void MainWindow::loadVisibleThumbnails(QListWidget *list)
{
    const QRect band = list->viewport()->rect().adjusted(0, -prefetchMargin, 0, prefetchMargin);
    const RowRange rows = rowsInBand(*list, band);
    for (int row = rows.first; row <= rows.last; ++row) {
        QListWidgetItem *item = list->item(row);
        if (!item->data(PosterRole::Requested).toBool() &&
            list->visualItemRect(item).intersects(band)) {
            item->setData(PosterRole::Requested, true);
            requestThumbnail(list, item, item->data(PosterRole::IconUrl).toString());
        }
    }
}

void MainWindow::loadThumbnailsAfterResize(QListWidget *list)
{
    loadVisibleThumbnails(list);
    // A list view waits 100 ms for further changes of its size.
    constexpr int relayoutDelayMs = 150;
    QTimer::singleShot(relayoutDelayMs, list, [this, list] { loadVisibleThumbnails(list); });
}

void MainWindow::requestThumbnail(QListWidget *list, QListWidgetItem *item, const QString &url)
{
    if (url.isEmpty()) {
        return;
    }
    const auto known = thumbnailCache.constFind(url);
    if (known != thumbnailCache.constEnd()) {
        item->setIcon(QIcon(*known));
        return;
    }
    const QPixmap cached = loadCachedPoster(url);
    if (!cached.isNull()) {
        thumbnailCache.insert(url, cached);
        item->setIcon(QIcon(cached));
        return;
    }
    const QUrl address(url);
    if (!isPosterUrl(address)) {
        return;
    }
    QNetworkReply *reply = thumbnailNetwork->get(QNetworkRequest(address));
    // The buffer's limit keeps a fast server from sending far more before it is broken off here.
    reply->setReadBufferSize(2 * maxPosterBytes);
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > maxPosterBytes) {
            reply->abort();
        }
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, list = QPointer(list), url] {
        reply->deleteLater();
        if (reply->error() == QNetworkReply::NoError && mayBeImage(*reply)) {
            takeThumbnail(list, url, reply->readAll());
        }
    });
}

void MainWindow::takeThumbnail(QListWidget *list, const QString &url, const QByteArray &body)
{
    const QPixmap poster = decodePoster(body);
    if (poster.isNull()) {
        return;
    }
    saveCachedPoster(url, body);
    thumbnailCache.insert(url, poster);
    if (list == nullptr) {
        return;
    }
    const QList<int> rows = posterRows[list].of(*list, url);
    for (const int row : rows) {
        list->item(row)->setIcon(QIcon(poster));
    }
}
