#include "DemoPosters.h"

#include <QBuffer>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize posterPixels(280, 420);

void paintSky(QPainter &painter, int hue)
{
    QLinearGradient sky(0, 0, 0, posterPixels.height());
    sky.setColorAt(0.0, QColor::fromHsv(hue, 190, 70));
    sky.setColorAt(0.6, QColor::fromHsv((hue + 25) % 360, 170, 170));
    sky.setColorAt(1.0, QColor::fromHsv((hue + 60) % 360, 150, 230));
    painter.fillRect(QRect(QPoint(), posterPixels), sky);

    QRadialGradient sun(posterPixels.width() * 0.65, posterPixels.height() * 0.45, 90);
    sun.setColorAt(0.0, QColor(255, 255, 240, 230));
    sun.setColorAt(0.5, QColor(255, 240, 200, 90));
    sun.setColorAt(1.0, QColor(255, 255, 255, 0));
    painter.fillRect(QRect(QPoint(), posterPixels), sun);
}

void paintHills(QPainter &painter, int hue, uint shape)
{
    painter.setPen(Qt::NoPen);
    for (int layer = 0; layer < 3; ++layer) {
        const int top = 250 + layer * 45;
        QPolygon hill;
        hill << QPoint(0, posterPixels.height());
        for (int x = 0; x <= posterPixels.width(); x += 35) {
            shape = shape * 1103515245U + 12345U;
            hill << QPoint(x, top - static_cast<int>((shape >> 16U) % 50U));
        }
        hill << QPoint(posterPixels.width(), posterPixels.height());
        painter.setBrush(QColor::fromHsv((hue + 200) % 360, 120, 90 - layer * 25));
        painter.drawPolygon(hill);
    }
}

void paintTitle(QPainter &painter, const QString &title, int year)
{
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(34);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    const QRect area(18, 24, posterPixels.width() - 36, 170);
    painter.drawText(area, Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop, title.toUpper());
    if (year > 0) {
        font.setPixelSize(18);
        font.setBold(false);
        painter.setFont(font);
        painter.drawText(QRect(18, posterPixels.height() - 44, 120, 26), Qt::AlignLeft,
                         QString::number(year));
    }
}

} // namespace

QByteArray paintDemoPoster(const QString &title, int year)
{
    const uint shape = qChecksum(title.toUtf8());
    const int hue = static_cast<int>(shape % 360U);
    QImage image(posterPixels, QImage::Format_RGB32);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        paintSky(painter, hue);
        paintHills(painter, hue, shape);
        paintTitle(painter, title, year);
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}
