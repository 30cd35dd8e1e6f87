#include "ui/PosterIcon.h"

#include "ui/PosterImage.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <utility>

namespace {

/// Does what Qt's own engine does with the original picture, from the reduced one. A plain QIcon of
/// the reduced picture would be fitted a second time, a pixel too small for some aspect ratios and
/// for screens of a fractional pixel ratio.
class PosterIconEngine final : public QIconEngine
{
public:
    PosterIconEngine(QPixmap reduced, const QSize &original)
        : picture(std::move(reduced))
        , originalSize(original)
    {}

    QSize actualSize(const QSize &size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        return fittedPosterSize(originalSize, size);
    }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        return {originalSize};
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const QSize pixels = fittedPosterSize(originalSize, size);
        QPixmap fitted = picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (mode == QIcon::Normal) {
            return fitted;
        }
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, fitted, &option);
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QSize pixels = rect.size() * painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(pixels, mode, state));
    }

    QIconEngine *clone() const override { return new PosterIconEngine(*this); }

private:
    QPixmap picture;
    QSize originalSize;
};

} // namespace

QIcon makePosterIcon(const QPixmap &picture, const QSize &originalSize)
{
    return QIcon(new PosterIconEngine(picture, originalSize));
}

QIcon makePlaceholderPoster()
{
    QPixmap poster(posterSize);
    poster.fill(QColor(45, 45, 48));
    return poster;
}
