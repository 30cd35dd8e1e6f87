#include "GuideFixture.h"
#include "support/TestMain.h"
#include "ui/GuideGrid.h"
#include "ui/GuideTitles.h"

#include <QImage>
#include <QScrollBar>
#include <QSet>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QSet<QRgb> colorsOf(const QImage &picture)
{
    QSet<QRgb> colors;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            colors.insert(picture.pixel(x, y));
    }
    return colors;
}

} // namespace

/// What the grid draws where there is little room, and when a part of it is drawn again.
class tst_GuideGridPaint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aPartIsDrawnAsTheWhole();
    void narrowCells_data();
    void narrowCells();

private:
    QImage picture() const { return grid->viewport()->grab().toImage(); }
    int hourWidth() const { return 32 * grid->fontMetrics().averageCharWidth(); }
    /// The place of the line for now, in row 2, which has no programmes; -1 if it does not show.
    int lineForNow() const
    {
        const QImage whole = picture();
        for (int x = 0; x < whole.width(); ++x) {
            if (whole.pixelColor(x, rowArea(2).bottom() - 2) == QColor(0xef4444))
                return x;
        }
        return -1;
    }
    int headerHeight() const { return grid->fontMetrics().height() + 12; }
    int rowHeight() const { return grid->fontMetrics().height() + 24; }
    QRect rowArea(int row) const
    {
        return {0, headerHeight() + row * rowHeight(), grid->viewport()->width(), rowHeight()};
    }

    std::unique_ptr<GuideFixture> fixture;
    std::unique_ptr<GuideGrid> grid;
};

void tst_GuideGridPaint::init()
{
    grid.reset();
    fixture = std::make_unique<GuideFixture>();
    grid = std::make_unique<GuideGrid>();
    grid->resize(1000, 300);
    grid->setEntries(fixture->entries());
    grid->setGuide(&fixture->guide);
    grid->show();
    QVERIFY(QTest::qWaitForWindowActive(grid.get()));
    QTRY_VERIFY(fixture->isShownBy(*grid));
}

/// A scroll step damages some rows, a change of the current cell too.
void tst_GuideGridPaint::aPartIsDrawnAsTheWhole()
{
    const QImage whole = picture();
    for (const int row : {0, 1, 2}) {
        const QRect area = rowArea(row).adjusted(0, 2, 0, -2);
        QImage part(area.size(), whole.format());
        part.fill(Qt::magenta);
        grid->viewport()->render(&part, QPoint(), QRegion(area));
        QCOMPARE(part, whole.copy(area));
    }
}

void tst_GuideGridPaint::narrowCells_data()
{
    QTest::addColumn<int>("width"); ///< in pixels
    QTest::addColumn<bool>("hasMark");
    QTest::addColumn<bool>("hasTitle");
    QTest::newRow("room for both") << 200 << true << true;
    QTest::newRow("no room for the mark") << 30 << false << true;
    QTest::newRow("no room for the title") << 16 << false << false;
    QTest::newRow("no room for its edges") << 9 << false << false;
}

/// Of two channels with the same programme, the first has an archive, which a mark tells.
void tst_GuideGridPaint::narrowCells()
{
    QFETCH(const int, width);
    QFETCH(const bool, hasMark);
    QFETCH(const bool, hasTitle);
    const qint64 start = fixture->at(-2);
    const qint64 stop = start + width * StoredGuide::hour / hourWidth();
    fixture->stored.clearGuide();
    for (const QString &channel : {u"one"_s, u"two"_s}) {
        fixture->stored.addChannel(channel, channel);
        fixture->stored.addProgramme(channel, start, stop, u"MMMMMM"_s);
    }
    fixture->store();
    fixture->guide.reload();
    grid->setCurrentRow(2); // its frame is not in the pictures
    grid->resize(6 * hourWidth(), 300);
    const auto &titles = *grid->findChild<GuideTitles *>();
    QTRY_VERIFY(titles.archiveReach() > 0); // so that yesterday can be scrolled to
    QScrollBar &bar = *grid->horizontalScrollBar();
    bar.setValue(bar.value() - 2 * hourWidth());
    for (const int row : {0, 1})
        QTRY_VERIFY(titles.isHere(fixture->items.at(row).id, start, stop));
    const int cellX = lineForNow() - 2 * hourWidth() + 1;
    QVERIFY(cellX > 0);
    const auto cell = [&](int row) {
        const QRect area = rowArea(row);
        return picture().copy(cellX, area.top(), width - 4, area.height() - 1);
    };
    QCOMPARE(cell(0) != cell(1), hasMark);
    QCOMPARE(colorsOf(cell(1)).size() > 1, hasTitle);
}

VANTIRO_TEST_MAIN(tst_GuideGridPaint)
#include "tst_GuideGridPaint.moc"
