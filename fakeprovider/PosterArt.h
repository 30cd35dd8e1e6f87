#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>

/// The colour of the stripe along the top of a poster: no two of the first 48 are alike.
QColor posterAccent(int number);

/// A poster with its title on it, as a PNG file of 280 x 420 pixels. The top 24 rows are in its
/// accent. The same arguments give the same poster. Callable from any thread; a title needs a
/// QGuiApplication.
QByteArray paintPoster(const QString &title, const QString &line, int number);
