#pragma once

#include <QIcon>
#include <QPixmap>

/// The icon of a poster. `picture` is what scaledPoster() made of a picture of `originalSize`; the
/// icon has the original's size and paints the same pixels as an icon of the original.
QIcon makePosterIcon(const QPixmap &picture, const QSize &originalSize);

/// The grey icon that stands in for a poster.
QIcon makePlaceholderPoster();
