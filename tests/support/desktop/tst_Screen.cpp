// What the end-to-end tests see of a picture: nothing where there is none, and nothing moving where
// it stands still.

#include "support/TestMain.h"
#include "support/desktop/Screen.h"

#include <QPainter>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace desktop;

namespace {

/// A window of one colour that changes while it plays.
class Picture final : public QWidget
{
public:
    Picture()
    {
        setWindowFlag(Qt::FramelessWindowHint);
        resize(200, 120);
        connect(&timer, &QTimer::timeout, this,
                [this] { show(QColor::fromHsv((colour.hue() + 7) % 360, 200, 200)); });
    }
    void show(const QColor &newColour)
    {
        colour = newColour;
        update();
    }
    QRect onScreen() const { return {mapToGlobal(QPoint()), size()}; }

    QTimer timer;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), colour); }

private:
    QColor colour = Qt::black;
};

} // namespace

class TestScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void seesAMovingPicture();
    void measuresDifferences();
};

void TestScreen::seesAMovingPicture()
{
    constexpr int shortMs = 500;
    Picture picture;
    picture.setVisible(true);
    QVERIFY(QTest::qWaitForWindowActive(&picture));
    const QRect place = picture.onScreen();
    QTRY_VERIFY(Screen::isMostlyBlack(place));
    QVERIFY(!Screen::waitUntilMoving(place, shortMs));
    picture.show(Qt::red);
    QTRY_VERIFY(!Screen::isMostlyBlack(place));
    QVERIFY(!Screen::waitUntilMoving(place, shortMs));

    picture.timer.start(40);
    QVERIFY(Screen::waitUntilMoving(place));
    QVERIFY(!Screen::waitUntilStill(place, shortMs, shortMs - 100));
    picture.timer.stop();
    QVERIFY(Screen::waitUntilStill(place));
}

void TestScreen::measuresDifferences()
{
    QImage black(100, 100, QImage::Format_RGB32);
    black.fill(Qt::black);
    QImage corner = black;
    QPainter(&corner).fillRect(0, 0, 10, 10, Qt::white);
    QCOMPARE(Screen::difference(black, black), 0.0);
    QCOMPARE(Screen::difference(black, corner), 0.01);
    QCOMPARE(Screen::difference(black, black.scaled(50, 50)), 1.0);
}

VANTIRO_TEST_MAIN(TestScreen)
#include "tst_Screen.moc"
