#include "PosterFixture.h"
#include "app/Theme.h"
#include "model/ItemFilter.h"
#include "support/TestMain.h"
#include "ui/ElidedComboBox.h"
#include "ui/EpisodePage.h"
#include "ui/PosterGrid.h"
#include "ui/PosterImage.h"
#include "ui/PosterStore.h"

#include <QBuffer>
#include <QListWidget>
#include <QStyleOptionComboBox>
#include <QTreeWidget>

#include <cmath>
#include <cstdlib>

using namespace Qt::StringLiterals;

// What the widgets paint on screens of several pixel ratios. CTest runs it with QT_SCALE_FACTOR 1,
// 1.5 and 2.

namespace {

qreal ratio()
{
    return qGuiApp->devicePixelRatio();
}

/// A poster with as many pixels as it takes on this screen, whose columns are black and white in
/// turn: each of them is lost where the picture is reduced to logical pixels.
QByteArray stripedPoster()
{
    QImage image(posterSize * ratio(), QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int x = 0; x < image.width(); x += 2) {
        for (int y = 0; y < image.height(); ++y) {
            image.setPixel(x, y, qRgb(255, 255, 255));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

/// The mean difference of neighbours in a row of pixels.
double contrast(const QImage &image, int y, int from, int to)
{
    double sum = 0;
    for (int x = from + 1; x < to; ++x) {
        sum += std::abs(qGray(image.pixel(x, y)) - qGray(image.pixel(x - 1, y)));
    }
    return sum / (to - from - 1);
}

QImage pictureOf(QWidget &widget)
{
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class tst_HighDpi : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void postersAreSharp();
    void memoryIsBoundedByPixels();
    void comboBoxesHaveAnArrow_data();
    void comboBoxesHaveAnArrow();
    void treeLooksLikeTheLists();
};

void tst_HighDpi::initTestCase()
{
    Theme::apply(*qApp);
    QCOMPARE(ratio(), qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_s).toDouble());
}

void tst_HighDpi::postersAreSharp()
{
    PosterStore store;
    QListWidget list;
    PosterGrid grid(&list, &store);
    list.resize(400, 400);
    list.show();
    const QList<MediaItem> films = filmsWith({dataUrlOf(stripedPoster())});
    grid.fill({films, filteredRows(films, {}, {})});
    QTRY_VERIFY(colorOf(list.item(0)->icon()) != placeholderColor);
    QVERIFY(settle(store));
    const QImage picture = pictureOf(*list.viewport());
    QCOMPARE(picture.width(), int(std::lround(list.viewport()->width() * ratio())));
    const QPointF middle = QRectF(list.visualItemRect(list.item(0))).center() * ratio();
    const int quarter = int(posterSize.width() * ratio() / 4);
    const double found =
        contrast(picture, int(middle.y()), int(middle.x()) - quarter, int(middle.x()) + quarter);
    // Half of what the poster has: a place between two pixels blurs.
    QVERIFY2(found > 120, qPrintable(QString::number(found)));
}

void tst_HighDpi::memoryIsBoundedByPixels()
{
    constexpr int fit = 3;
    const qint64 bytes =
        qint64(posterSize.width() * ratio()) * qint64(posterSize.height() * ratio()) * 4;
    PosterStore store(nullptr, fit * bytes);
    QStringList evicted;
    connect(&store, &PosterStore::posterEvicted, this,
            [&evicted](const QString &url) { evicted << url; });
    constexpr int all = 6;
    for (int number = 0; number < all; ++number) {
        store.request(dataUrlOf(stripedPoster() + QByteArray(number, ' ')));
        QVERIFY(settle(store));
    }
    QCOMPARE(evicted.size(), all - fit);
}

void tst_HighDpi::comboBoxesHaveAnArrow_data()
{
    QTest::addColumn<bool>("isRightToLeft");
    QTest::newRow("left to right") << false;
    QTest::newRow("right to left") << true;
}

void tst_HighDpi::comboBoxesHaveAnArrow()
{
    QFETCH(const bool, isRightToLeft);
    ElidedComboBox box;
    box.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    box.addItem(u"One"_s);
    box.resize(200, box.sizeHint().height());
    box.show();
    const QImage picture = pictureOf(box);
    constexpr int border = 4;
    constexpr int arrowWidth = 20;
    QRect area(isRightToLeft ? border : box.width() - arrowWidth - border, border, arrowWidth,
               box.height() - 2 * border);
    area = QRect(area.topLeft() * ratio(), area.size() * ratio());
    const QImage arrow = picture.copy(area);
    int inked = 0;
    for (int x = 0; x < arrow.width(); ++x) {
        for (int y = 0; y < arrow.height(); ++y) {
            inked += qGray(arrow.pixel(x, y)) > 150 ? 1 : 0;
        }
    }
    // Two strokes of four by four.
    QVERIFY2(inked > 3 * ratio() * ratio() && inked < 40 * ratio() * ratio(),
             qPrintable(QString::number(inked)));
}

void tst_HighDpi::treeLooksLikeTheLists()
{
    EpisodePage page;
    page.resize(300, 300);
    page.show();
    auto *tree = page.findChild<QTreeWidget *>(u"episodeTree"_s);
    QListWidget list;
    list.resize(tree->size());
    list.show();
    const QImage ofTree = pictureOf(*tree);
    const QImage ofList = pictureOf(list);
    QCOMPARE(ofTree.size(), ofList.size());
    const QPoint middle = ofTree.rect().center();
    QCOMPARE(QColor(ofTree.pixel(middle)), QColor(ofList.pixel(middle)));
    // The left edge, away from the corners, which are round in a list.
    const QPoint edge(0, middle.y());
    const QColor treeEdge(ofTree.pixel(edge));
    const QColor listEdge(ofList.pixel(edge));
    QVERIFY2(std::abs(qGray(treeEdge.rgb()) - qGray(listEdge.rgb())) <= 2,
             qPrintable(treeEdge.name() + u' ' + listEdge.name()));
}

VANTIRO_TEST_MAIN(tst_HighDpi)
#include "tst_HighDpi.moc"
