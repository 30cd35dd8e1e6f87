#include "PosterWindow.h"

#include "ui/BrowseTab.h"
#include "ui/MainWindow.h"

#include <QBuffer>
#include <QIcon>
#include <QImage>
#include <QListWidget>
#include <QNetworkReply>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int requestedRole = Qt::UserRole + 2;
constexpr int moviesTab = 1;
constexpr int showsTab = 2;
constexpr int itemsPage = 1;

} // namespace

PosterWindow::PosterWindow()
{
    WindowFixture::store(accountSource(u"A"_s, u"http://127.0.0.1:9"_s));
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    open();
}

void PosterWindow::open()
{
    windowFixture.open();
    windowFixture.find<QTabWidget>(u"tabs"_s).setCurrentIndex(moviesTab);
    windowFixture.find<QStackedWidget>(u"movieStack"_s).setCurrentIndex(itemsPage);
    grid().setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // The layouts of the page run now, not while a test counts.
    QCoreApplication::processEvents();
}

QListWidget &PosterWindow::grid() const
{
    return windowFixture.find<QListWidget>(u"moviePosterList"_s);
}

QListWidget &PosterWindow::otherGrid() const
{
    return windowFixture.find<QListWidget>(u"seriesPosterList"_s);
}

void PosterWindow::showOtherGrid() const
{
    windowFixture.find<QTabWidget>(u"tabs"_s).setCurrentIndex(showsTab);
    windowFixture.find<QStackedWidget>(u"seriesStack"_s).setCurrentIndex(itemsPage);
    QCoreApplication::processEvents();
}

void PosterWindow::fill(const QStringList &urls) const
{
    fill(grid(), urls);
}

void PosterWindow::fill(QListWidget &list, const QStringList &urls) const
{
    QList<MediaItem> items;
    for (const QString &url : urls) {
        // Named so that the order by name is the order of the URLs.
        items << entry(StreamKind::Movie, u"Film %1"_s.arg(items.size(), 5, 10, QLatin1Char('0')));
        items.last().iconUrl = url;
    }
    const QString tab = &list == &grid() ? u"movieTab"_s : u"seriesTab"_s;
    windowFixture.find<BrowseTab>(tab).setItems(items);
}

int PosterWindow::downloads() const
{
    return static_cast<int>(window().findChildren<QNetworkReply *>().size());
}

bool PosterWindow::settle() const
{
    return QTest::qWaitFor(
        [this] { return (grid().count() == 0 || wasAskedFor(0)) && downloads() == 0; }, 20000);
}

QColor PosterWindow::color(int row) const
{
    return color(grid(), row);
}

QColor PosterWindow::color(const QListWidget &list, int row) const
{
    const QImage image = list.item(row)->icon().pixmap(list.iconSize()).toImage();
    return image.pixelColor(image.rect().center());
}

bool PosterWindow::showsPlaceholder(int row) const
{
    return color(row) == QColor(45, 45, 48);
}

bool PosterWindow::wasAskedFor(int row) const
{
    return grid().item(row)->data(requestedRole).toBool();
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

QByteArray pngOf(const QColor &color)
{
    QImage image(14, 21, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

HttpReply imageReply(const QByteArray &body, const QByteArray &contentType)
{
    HttpReply reply = bodyReply(body);
    reply.contentType = contentType;
    return reply;
}

HttpReply heldImage(const QByteArray &body)
{
    HttpReply reply = imageReply(body);
    reply.held = true;
    return reply;
}
