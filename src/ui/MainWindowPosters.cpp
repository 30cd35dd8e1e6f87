#include "ui/MainWindow.h"

#include "providers/ReplyTimeout.h"
#include "ui/BrowseTab.h"

#include <QIcon>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>

#include <memory>

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
    auto known = thumbnailCache.constFind(url);
    if (known == thumbnailCache.constEnd()) {
        const QPixmap poster =
            isDataUrl(url) ? decodePoster(dataUrlBytes(url)) : loadCachedPoster(url);
        if (poster.isNull()) {
            downloadThumbnail(list, url);
            return;
        }
        known = thumbnailCache.insert(url, QIcon(poster));
    }
    if (item->icon().cacheKey() != known->cacheKey()) {
        item->setIcon(*known);
    }
}

void MainWindow::downloadThumbnail(QListWidget *list, const QString &url)
{
    const QUrl address(url);
    if (!isPosterUrl(address)) {
        return;
    }
    QNetworkReply *reply = thumbnailNetwork->get(QNetworkRequest(address));
    keepTimeoutBehindRedirects(reply);
    // The buffer's limit keeps a fast server from sending far more before it is broken off here.
    reply->setReadBufferSize(2 * maxPosterBytes);
    connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > maxPosterBytes) {
            reply->abort();
        }
    });
    // A request may wait for others to the same server, and its timeout runs meanwhile.
    const auto waited = std::make_shared<bool>(true);
    const auto begin = [waited] { *waited = false; };
    connect(reply, &QNetworkReply::socketStartedConnecting, reply, begin);
    connect(reply, &QNetworkReply::requestSent, reply, begin);
    connect(reply, &QNetworkReply::finished, this,
            [this, reply, waited, list = QPointer(list), url] {
                reply->deleteLater();
                if (*waited && reply->error() == QNetworkReply::OperationCanceledError) {
                    askAgainForThumbnail(list, url);
                } else if (reply->error() == QNetworkReply::NoError && mayBeImage(*reply)) {
                    takeThumbnail(list, url, reply->readAll());
                }
            });
}

void MainWindow::takeThumbnail(QListWidget *list, const QString &url, const QByteArray &body)
{
    // Another entry with the same poster may have got it already.
    auto known = thumbnailCache.constFind(url);
    if (known == thumbnailCache.constEnd()) {
        const QPixmap poster = decodePoster(body);
        if (poster.isNull()) {
            return;
        }
        saveCachedPoster(url, body);
        known = thumbnailCache.insert(url, QIcon(poster));
    }
    if (list == nullptr) {
        return;
    }
    const QList<int> rows = posterRows[list].take(*list, url);
    for (const int row : rows) {
        list->item(row)->setIcon(*known);
    }
}

void MainWindow::askAgainForThumbnail(QListWidget *list, const QString &url)
{
    if (list == nullptr) {
        return;
    }
    const QList<int> rows = posterRows[list].of(*list, url);
    for (const int row : rows) {
        list->item(row)->setData(PosterRole::Requested, false);
    }
    loadVisibleThumbnails(list);
}
