#pragma once

#include <QImage>
#include <QRect>
#include <QString>

/// What the user sees. Rectangles are in pixels of the screen, clipped to it; an empty one means
/// the whole screen. The test needs a QGuiApplication on the same screen.
namespace desktop::Screen {

QRect area();
QImage grab(const QRect &rect = {});

/// Writes a PNG file into the folder that VANTIRO_SCREENSHOT_DIR names, else into "screenshots"
/// below the build folder. Returns its path; empty, with a warning, if that fails.
QString save(const QImage &image, const QString &name);

/// The share of pixels, 0 to 1, that `matches`, called with a QRgb, holds for.
template <typename Matches>
double share(const QImage &image, Matches matches)
{
    qint64 found = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            found += matches(image.pixel(x, y)) ? 1 : 0;
    }
    return static_cast<double>(found) / (static_cast<double>(image.width()) * image.height());
}

/// Whether at least 98 in 100 pixels are black or nearly so.
bool isMostlyBlack(const QRect &rect);

/// The share of pixels, 0 to 1, that differ visibly; 1 for images of different sizes.
double difference(const QImage &before, const QImage &after);
bool differs(const QImage &before, const QImage &after, double minimumShare = 0.01);

/// Waits for a picture that is not black and changes, as a playing film does: two changes.
[[nodiscard]] bool waitUntilMoving(const QRect &rect, int timeoutMs = 30000);
/// Waits until the picture has not changed for `quietMs`.
[[nodiscard]] bool waitUntilStill(const QRect &rect, int timeoutMs = 30000, int quietMs = 1000);

} // namespace desktop::Screen
