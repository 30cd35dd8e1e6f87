#pragma once

#include "fakeprovider/HttpServer.h"
#include "model/CatalogRecords.h"

#include <QByteArray>
#include <QColor>
#include <QIcon>
#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

class QListWidget;
class QNetworkAccessManager;
class PosterStore;

inline constexpr QColor red(200, 0, 0);
inline constexpr QColor green(0, 160, 0);
inline constexpr QColor blue(0, 0, 200);
inline constexpr QColor placeholderColor(45, 45, 48);

/// Serves red posters under numbered URLs.
class PosterServer : public HttpServer
{
public:
    PosterServer();
    static QString pathOf(int number);
    QString poster(int number) const { return url(pathOf(number)); }
    QStringList posters(int count) const;
    /// The numbers of the posters that were requested, sorted; twice requested, twice listed.
    QList<int> requested() const;
};

/// A picture in one colour.
QByteArray pngOf(const QColor &color, const QSize &size = QSize(14, 21));
QString dataUrlOf(const QByteArray &bytes, const QString &type = QStringLiteral("image/png"));
HttpReply imageReply(const QByteArray &body);

/// The colour in the middle of a poster.
QColor colorOf(const QIcon &icon);

/// Films with these posters.
QList<MediaItem> filmsWith(const QStringList &posterUrls);
/// The rows within 400 pixels of the visible part, found by looking at each one.
QList<int> rowsNearView(const QListWidget &grid);

/// How long a silent server may take in a test; more than one that answers takes on a busy machine.
constexpr int silentMs = 3000;

QNetworkAccessManager &networkOf(PosterStore &store);
/// Waits until no poster is under way.
[[nodiscard]] bool settle(const PosterStore &store);
