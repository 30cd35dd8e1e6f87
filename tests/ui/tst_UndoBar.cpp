#include "support/TestMain.h"
#include "ui/UndoBar.h"

#include <QBoxLayout>
#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

class tst_UndoBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window.reset(); }

    void hiddenUntilOffered();
    void takesBackOnce_data();
    void takesBackOnce();
    void newestCounts();
    void hidesAfterSixSeconds();
    void staysWhileFocused();
    void staysUnderThePointer();
    void liesOverTheLowerEdge();
    void offersAgainWhileTakingBack();

private:
    std::unique_ptr<QWidget> window;
    UndoBar *bar = nullptr;
    QPushButton *button = nullptr;
    QTimer *timer = nullptr;
    int undone = 0;
};

void tst_UndoBar::init()
{
    window = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(window.get());
    layout->addWidget(new QLineEdit);
    bar = new UndoBar(window.get());
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    button = bar->findChild<QPushButton *>(u"undoButton"_s);
    timer = bar->findChild<QTimer *>();
    // A click of an earlier test left the pointer on the button.
    QCursor::setPos(window->mapToGlobal(QPoint(1, 1)));
    QTest::mouseMove(window.get(), QPoint(1, 1));
    undone = 0;
}

void tst_UndoBar::hiddenUntilOffered()
{
    QVERIFY(!bar->isVisible());
    QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    bar->offer(u"Removed from <b>Favorites</b>"_s, [this] { ++undone; });
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->findChild<QLabel *>(u"undoLabel"_s)->text(), u"Removed from <b>Favorites</b>"_s);
    QCOMPARE(bar->accessibleName(), u"Removed from <b>Favorites</b>"_s);
    QCOMPARE(undone, 0);
    bar->dismiss();
    QVERIFY(!bar->isVisible());
    QCOMPARE(undone, 0);
}

void tst_UndoBar::takesBackOnce_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("click") << false;
    QTest::newRow("Ctrl+Z") << true;
}

void tst_UndoBar::takesBackOnce()
{
    QFETCH(bool, byKey);
    bar->offer(u"Removed"_s, [this] { ++undone; });
    for (int time = 0; time < 2; ++time) {
        if (byKey)
            QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
        else
            QTest::mouseClick(button, Qt::LeftButton);
        QTRY_COMPARE(undone, 1);
        QVERIFY(!bar->isVisible());
    }
}

void tst_UndoBar::newestCounts()
{
    int older = 0;
    bar->offer(u"Older"_s, [&older] { ++older; });
    bar->offer(u"Newer"_s, [this] { ++undone; });
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(undone, 1);
    QCOMPARE(older, 0);
}

void tst_UndoBar::hidesAfterSixSeconds()
{
    bar->offer(u"Removed"_s, [this] { ++undone; });
    QCOMPARE(timer->interval(), 6000);
    QVERIFY(timer->isActive());
    timer->start(0); // the six seconds are over
    QTRY_VERIFY(!bar->isVisible());
    QCOMPARE(undone, 0);
}

void tst_UndoBar::staysWhileFocused()
{
    bar->offer(u"Removed"_s, [this] { ++undone; });
    button->setFocus();
    QTRY_VERIFY(button->hasFocus());
    const QSignalSpy times(timer, &QTimer::timeout);
    timer->start(0);
    QTRY_VERIFY(times.count() >= 2); // it began again
    QVERIFY(bar->isVisible());
    window->findChild<QLineEdit *>()->setFocus();
    QTRY_VERIFY(!bar->isVisible());
}

void tst_UndoBar::staysUnderThePointer()
{
    bar->offer(u"Removed"_s, [this] { ++undone; });
    bar->setAttribute(Qt::WA_UnderMouse);
    QSignalSpy over(timer, &QTimer::timeout);
    timer->start(0); // the six seconds are over
    QTRY_VERIFY(!over.isEmpty());
    QVERIFY(bar->isVisible());
    QVERIFY(timer->isActive());
    bar->setAttribute(Qt::WA_UnderMouse, false);
    timer->start(0);
    QTRY_VERIFY(!bar->isVisible());
}

void tst_UndoBar::liesOverTheLowerEdge()
{
    bar->offer(u"Removed"_s, [] {});
    window->resize(500, 300);
    QTRY_COMPARE(bar->geometry().bottomRight(), window->rect().bottomRight());
    QCOMPARE(bar->width(), window->width());
}

void tst_UndoBar::offersAgainWhileTakingBack()
{
    bar->offer(u"Removed"_s, [this] { bar->offer(u"Again"_s, [this] { ++undone; }); });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(bar->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(undone, 1);
    QVERIFY(!bar->isVisible());
}

VANTIRO_TEST_MAIN(tst_UndoBar)
#include "tst_UndoBar.moc"
