#include "support/desktop/Screen.h"

#include <QDebug>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace desktop::Screen {
namespace {

/// Below this a channel counts as black; differences up to this are not seen.
constexpr int darkLevel = 24;
constexpr int seenDifference = 12;

bool isDark(QRgb pixel)
{
    return qRed(pixel) < darkLevel && qGreen(pixel) < darkLevel && qBlue(pixel) < darkLevel;
}

bool looksDifferent(QRgb before, QRgb after)
{
    return std::abs(qRed(before) - qRed(after)) > seenDifference ||
           std::abs(qGreen(before) - qGreen(after)) > seenDifference ||
           std::abs(qBlue(before) - qBlue(after)) > seenDifference;
}

bool isMostlyBlack(const QImage &image)
{
    return !image.isNull() && share(image, isDark) >= 0.98;
}

} // namespace

QRect area()
{
    return QGuiApplication::primaryScreen()->geometry();
}

QImage grab(const QRect &rect)
{
    const QRect wanted = rect.isEmpty() ? area() : rect.intersected(area());
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, wanted.x(), wanted.y(), wanted.width(), wanted.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QString save(const QImage &image, const QString &name)
{
    const QDir folder(
        qEnvironmentVariable("VANTIRO_SCREENSHOT_DIR", QStringLiteral(VANTIRO_SCREENSHOTS)));
    QString path = folder.absoluteFilePath(name + u".png"_s);
    if (!folder.mkpath(u"."_s) || !image.save(path)) {
        qWarning().noquote() << "Cannot write"_L1 << path;
        return {};
    }
    return path;
}

bool isMostlyBlack(const QRect &rect)
{
    return isMostlyBlack(grab(rect));
}

double difference(const QImage &before, const QImage &after)
{
    if (before.size() != after.size() || before.isNull())
        return 1;
    qint64 different = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            different += looksDifferent(before.pixel(x, y), after.pixel(x, y)) ? 1 : 0;
    }
    return static_cast<double>(different) / (static_cast<double>(before.width()) * before.height());
}

bool differs(const QImage &before, const QImage &after, double minimumShare)
{
    return difference(before, after) >= minimumShare;
}

bool waitUntilMoving(const QRect &rect, int timeoutMs)
{
    constexpr int wantedChanges = 2;
    constexpr double smallestChange = 0.002;
    QImage last;
    int changes = 0;
    return QTest::qWaitFor(
        [&] {
            const QImage now = grab(rect);
            if (now.isNull() || isMostlyBlack(now))
                return false;
            if (last.isNull())
                last = now;
            if (difference(last, now) >= smallestChange) {
                last = now;
                ++changes;
            }
            return changes >= wantedChanges;
        },
        timeoutMs);
}

bool waitUntilStill(const QRect &rect, int timeoutMs, int quietMs)
{
    QImage last = grab(rect);
    QElapsedTimer quiet;
    quiet.start();
    return QTest::qWaitFor(
        [&] {
            const QImage now = grab(rect);
            if (difference(last, now) > 0) {
                last = now;
                quiet.restart();
            }
            return quiet.hasExpired(quietMs);
        },
        timeoutMs);
}

} // namespace desktop::Screen
