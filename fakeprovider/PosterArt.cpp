#include "fakeprovider/PosterArt.h"

#include <QBuffer>
#include <QFontMetrics>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize size(280, 420);
constexpr int stripe = 24;

void paintSky(QPainter &painter, int hue)
{
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0.0, QColor::fromHsv(hue, 190, 70));
    sky.setColorAt(0.55, QColor::fromHsv((hue + 25) % 360, 170, 190));
    sky.setColorAt(0.75, QColor::fromHsv((hue + 50) % 360, 130, 240));
    painter.fillRect(QRect(QPoint(), size), sky);
}

void paintSun(QPainter &painter, int hue, QRandomGenerator &random)
{
    const int radius = random.bounded(34, 66);
    const QPointF centre(random.bounded(70, 210), random.bounded(150, 230));
    painter.setBrush(QColor::fromHsv((hue + 60) % 360, 50, 255, 60));
    painter.drawEllipse(centre, radius * 1.5, radius * 1.5);
    painter.setBrush(QColor::fromHsv((hue + 60) % 360, 50, 255, 230));
    painter.drawEllipse(centre, double(radius), double(radius));
}

/// Ranges of hills, darker the nearer.
void paintHills(QPainter &painter, int hue, QRandomGenerator &random)
{
    for (int range = 0; range < 3; ++range) {
        QPainterPath hills(QPointF(0, size.height()));
        const int base = 270 + range * 40;
        hills.lineTo(0, base);
        for (int x = 0; x < size.width(); x += 70) {
            hills.quadTo(x + 35, base - random.bounded(20, 90), x + 70,
                         base - random.bounded(0, 25));
        }
        hills.lineTo(size.width(), size.height());
        painter.setBrush(QColor::fromHsv((hue + 10) % 360, 180, 110 - range * 38));
        painter.drawPath(hills);
    }
}

void paintText(QPainter &painter, const QString &title, const QString &line)
{
    QFont font(u"DejaVu Sans"_s);
    font.setWeight(QFont::Bold);
    font.setPixelSize(34);
    const QRect box(18, 40, size.width() - 36, 130);
    constexpr int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap;
    const QString text = title.toUpper();
    // A long word is wider than the box.
    while (font.pixelSize() > 16 &&
           QFontMetrics(font).boundingRect(box, flags, text).width() > box.width())
        font.setPixelSize(font.pixelSize() - 2);
    painter.setFont(font);
    painter.setPen(QColor(255, 255, 255, 240));
    painter.drawText(box, flags, text);
    font.setPixelSize(15);
    font.setWeight(QFont::Normal);
    painter.setFont(font);
    painter.setPen(QColor(255, 255, 255, 190));
    painter.drawText(QRect(18, 380, size.width() - 36, 24), Qt::AlignCenter, line);
}

} // namespace

QColor posterAccent(int number)
{
    // Two rounds of hues, the second one paler.
    return QColor::fromHsv(number % 24 * 15, number < 24 ? 255 : 140, 230);
}

QByteArray paintPoster(const QString &title, const QString &line, int number)
{
    QRandomGenerator random(static_cast<quint32>(number) + 7);
    const int hue = number * 47 % 360;
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintSky(painter, hue);
    paintSun(painter, hue, random);
    paintHills(painter, hue, random);
    if (!title.isEmpty())
        paintText(painter, title, line);
    painter.fillRect(0, 0, size.width(), stripe, posterAccent(number));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}
