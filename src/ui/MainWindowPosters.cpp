#include "ui/MainWindow.h"

#include "ui/BrowseTab.h"
#include "ui/Thumbnails.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIcon>
#include <QListWidget>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// Posters this far above and below the visible part are asked for too, in pixels.
constexpr int prefetchMargin = 400;

bool mayBeImage(const QNetworkReply &reply)
{
    const QString type = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    return type.isEmpty() || type.startsWith("image/"_L1, Qt::CaseInsensitive);
}

void writeToCache(const QString &url, const QByteArray &body)
{
    const QString path = thumbnailCachePath(url);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(body);
    }
}

} // namespace

void MainWindow::loadVisibleThumbnails(QListWidget *list)
{
    const QRect near = list->viewport()->rect().adjusted(0, -prefetchMargin, 0, prefetchMargin);
    for (int row = 0; row < list->count(); ++row) {
        QListWidgetItem *item = list->item(row);
        if (item->data(PosterRole::Requested).toBool()) {
            continue;
        }
        if (list->visualItemRect(item).intersects(near)) {
            item->setData(PosterRole::Requested, true);
            requestThumbnail(list, item, item->data(PosterRole::IconUrl).toString());
        }
    }
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
    QPixmap pixmap;
    if (pixmap.load(thumbnailCachePath(url))) {
        thumbnailCache.insert(url, pixmap);
        item->setIcon(QIcon(pixmap));
        return;
    }
    QNetworkReply *reply = thumbnailNetwork->get(QNetworkRequest(QUrl(url)));
    connect(reply, &QNetworkReply::finished, this, [this, reply, list = QPointer(list), url] {
        reply->deleteLater();
        if (reply->error() == QNetworkReply::NoError && mayBeImage(*reply)) {
            takeThumbnail(list, url, reply->readAll());
        }
    });
}

void MainWindow::takeThumbnail(QListWidget *list, const QString &url, const QByteArray &body)
{
    QPixmap pixmap;
    if (!pixmap.loadFromData(body)) {
        return;
    }
    writeToCache(url, body);
    thumbnailCache.insert(url, pixmap);
    if (list == nullptr) {
        return;
    }
    for (int row = 0; row < list->count(); ++row) {
        QListWidgetItem *item = list->item(row);
        if (item->data(PosterRole::IconUrl).toString() == url) {
            item->setIcon(QIcon(pixmap));
        }
    }
}
