#include "support/TestMain.h"
#include "ui/ClickToSeekSlider.h"

#include <QMouseEvent>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionSlider>

using namespace Qt::StringLiterals;

namespace {

/// A slider that shows its style option, to ask the style where groove and handle are.
class MeasuredSlider : public QSlider
{
public:
    QRect part(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
    }
};

/// Fusion, but for a groove that does not begin at the slider's edge.
class InsetGrooveStyle : public QProxyStyle
{
public:
    InsetGrooveStyle()
        : QProxyStyle(u"Fusion"_s)
    {}

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
        return part == SC_SliderGroove ? rect.adjusted(30, 0, -50, 0) : rect;
    }
};

struct Shape
{
    Qt::Orientation orientation = Qt::Horizontal;
    bool inverted = false;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    /// The lowest value is at the right or at the bottom.
    bool upsideDown = false;
};

void shapeSlider(QSlider &slider, const Shape &shape)
{
    slider.setOrientation(shape.orientation);
    slider.setInvertedAppearance(shape.inverted);
    slider.setLayoutDirection(shape.direction);
    slider.setRange(0, 100000);
    const QSize size(400, 40);
    slider.resize(shape.orientation == Qt::Horizontal ? size : size.transposed());
    slider.show();
}

/// Where the handle's leading edge can be, along the slider.
struct Travel
{
    int first = 0;
    int last = 0;
};

Travel travelOf(const QSlider &slider, const Shape &shape)
{
    MeasuredSlider measured;
    shapeSlider(measured, shape);
    measured.setValue(slider.value());
    const QRect groove = measured.part(QStyle::SC_SliderGroove);
    const QRect handle = measured.part(QStyle::SC_SliderHandle);
    return shape.orientation == Qt::Horizontal
               ? Travel{groove.left(), groove.right() - handle.width() + 1}
               : Travel{groove.top(), groove.bottom() - handle.height() + 1};
}

QPoint pointAt(const Shape &shape, int along)
{
    return shape.orientation == Qt::Horizontal ? QPoint(along, 20) : QPoint(20, along);
}

void sendMouse(QWidget &widget, QEvent::Type type, const QPointF &position, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

Q_DECLARE_METATYPE(Shape)

class tst_ClickToSeekSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void valueIsWhereTheHandleWouldBegin_data() { shapes(); }
    void valueIsWhereTheHandleWouldBegin();
    void theGrooveBeginsWhereTheStyleSays();
    void aClickPutsTheHandleUnderThePointer_data() { shapes(); }
    void aClickPutsTheHandleUnderThePointer();
    void aClickPressesAndReleasesOnce();
    void theValueIsSetBeforeTheRelease();
    void aDragFollowsAndReleasesOnce();
    void aReleaseElsewhereTakesThatPlace();
    void beyondTheEndsAreTheEnds();
    void positionsAreRounded();
    void movingWithoutAPressDoesNothing();
    void anEmptyRangeStaysAtItsValue();
    void otherButtonsAreThoseOfAPlainSlider_data();
    void otherButtonsAreThoseOfAPlainSlider();
    void anotherButtonsReleaseDoesNotEndTheDrag();
    void lettingGoEndsTheDragSilently();

private:
    static void shapes();
};

void tst_ClickToSeekSlider::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
}

void tst_ClickToSeekSlider::shapes()
{
    QTest::addColumn<Shape>("shape");
    const auto rtl = Qt::RightToLeft;
    const auto ltr = Qt::LeftToRight;
    QTest::newRow("horizontal") << Shape{Qt::Horizontal, false, ltr, false};
    QTest::newRow("horizontal, inverted") << Shape{Qt::Horizontal, true, ltr, true};
    QTest::newRow("horizontal, right to left") << Shape{Qt::Horizontal, false, rtl, true};
    QTest::newRow("horizontal, inverted, right to left") << Shape{Qt::Horizontal, true, rtl, false};
    QTest::newRow("vertical") << Shape{Qt::Vertical, false, ltr, true};
    QTest::newRow("vertical, inverted") << Shape{Qt::Vertical, true, ltr, false};
    QTest::newRow("vertical, right to left") << Shape{Qt::Vertical, false, rtl, true};
}

void tst_ClickToSeekSlider::valueIsWhereTheHandleWouldBegin()
{
    QFETCH(Shape, shape);
    ClickToSeekSlider slider;
    shapeSlider(slider, shape);
    const auto [first, last] = travelOf(slider, shape);
    QVERIFY(last - first > 300);

    QCOMPARE(slider.valueFromPos(pointAt(shape, first)), shape.upsideDown ? 100000 : 0);
    QCOMPARE(slider.valueFromPos(pointAt(shape, last)), shape.upsideDown ? 0 : 100000);
    for (int along = first - 5; along <= last + 5; ++along) {
        QCOMPARE(slider.valueFromPos(pointAt(shape, along)),
                 QStyle::sliderValueFromPosition(0, 100000, along - first, last - first,
                                                 shape.upsideDown));
    }
}

void tst_ClickToSeekSlider::theGrooveBeginsWhereTheStyleSays()
{
    InsetGrooveStyle style;
    ClickToSeekSlider slider(Qt::Horizontal);
    MeasuredSlider measured;
    for (QSlider *each : {static_cast<QSlider *>(&slider), static_cast<QSlider *>(&measured)}) {
        each->setStyle(&style);
        shapeSlider(*each, {});
    }
    const QRect groove = measured.part(QStyle::SC_SliderGroove);
    const int last = groove.right() - measured.part(QStyle::SC_SliderHandle).width() + 1;
    QCOMPARE(groove.left(), 30);
    QCOMPARE(slider.valueFromPos(QPoint(groove.left(), 20)), 0);
    QVERIFY(slider.valueFromPos(QPoint(groove.left() + 5, 20)) > 0);
    QVERIFY(slider.valueFromPos(QPoint(last - 5, 20)) < 100000);
    QCOMPARE(slider.valueFromPos(QPoint(last, 20)), 100000);
}

void tst_ClickToSeekSlider::aClickPutsTheHandleUnderThePointer()
{
    QFETCH(Shape, shape);
    ClickToSeekSlider slider;
    shapeSlider(slider, shape);
    const auto [first, last] = travelOf(slider, shape);
    for (int along = first; along <= last; along += 7) {
        QTest::mouseClick(&slider, Qt::LeftButton, {}, pointAt(shape, along));
        MeasuredSlider shown;
        shapeSlider(shown, shape);
        shown.setValue(slider.value());
        const QRect handle = shown.part(QStyle::SC_SliderHandle);
        QCOMPARE(shape.orientation == Qt::Horizontal ? handle.left() : handle.top(), along);
    }
}

void tst_ClickToSeekSlider::aClickPressesAndReleasesOnce()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    const QSignalSpy pressed(&slider, &QSlider::sliderPressed);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    const QSignalSpy changed(&slider, &QSlider::valueChanged);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(200, 20));
    QVERIFY(slider.isSliderDown());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 0);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(200, 20)));

    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(200, 20));
    QVERIFY(!slider.isSliderDown());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);
    QCOMPARE(changed.count(), 1);
}

void tst_ClickToSeekSlider::theValueIsSetBeforeTheRelease()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    int valueAtRelease = -1;
    connect(&slider, &QSlider::sliderReleased, this, [&] { valueAtRelease = slider.value(); });
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(100, 20));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(valueAtRelease, slider.valueFromPos(QPoint(300, 20)));
}

void tst_ClickToSeekSlider::aDragFollowsAndReleasesOnce()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    const QSignalSpy pressed(&slider, &QSlider::sliderPressed);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(50, 20));
    for (const int x : {80, 250, 120}) {
        sendMouse(slider, QEvent::MouseMove, QPointF(x, 20), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(slider.value(), slider.valueFromPos(QPoint(x, 20)));
        QVERIFY(slider.isSliderDown());
    }
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(120, 20));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);
}

void tst_ClickToSeekSlider::aReleaseElsewhereTakesThatPlace()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(50, 20));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(310, 20));
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(310, 20)));
}

void tst_ClickToSeekSlider::beyondTheEndsAreTheEnds()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    slider.setRange(-500, 500);
    QCOMPARE(slider.valueFromPos(QPoint(-1000, 20)), -500);
    QCOMPARE(slider.valueFromPos(QPoint(5000, 20)), 500);
    // Across the slider a position does not matter.
    QCOMPARE(slider.valueFromPos(QPoint(200, -300)), slider.valueFromPos(QPoint(200, 20)));
}

void tst_ClickToSeekSlider::positionsAreRounded()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    sendMouse(slider, QEvent::MouseButtonPress, QPointF(100.4, 20), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(100, 20)));
    sendMouse(slider, QEvent::MouseMove, QPointF(100.6, 20), Qt::NoButton, Qt::LeftButton);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(101, 20)));
    sendMouse(slider, QEvent::MouseButtonRelease, QPointF(102.5, 20), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(103, 20)));
}

void tst_ClickToSeekSlider::movingWithoutAPressDoesNothing()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    slider.setValue(1234);
    sendMouse(slider, QEvent::MouseMove, QPointF(300, 20), Qt::NoButton, Qt::NoButton);
    QCOMPARE(slider.value(), 1234);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(slider.value(), 1234);
    QCOMPARE(released.count(), 0);
}

void tst_ClickToSeekSlider::anEmptyRangeStaysAtItsValue()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    slider.setRange(0, 0);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(slider.value(), 0);
    QCOMPARE(released.count(), 1);
}

void tst_ClickToSeekSlider::otherButtonsAreThoseOfAPlainSlider_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_ClickToSeekSlider::otherButtonsAreThoseOfAPlainSlider()
{
    QFETCH(Qt::MouseButton, button);
    ClickToSeekSlider slider(Qt::Horizontal);
    QSlider plain(Qt::Horizontal);
    for (QSlider *each : {static_cast<QSlider *>(&slider), &plain}) {
        shapeSlider(*each, {});
        QTest::mousePress(each, button, {}, QPoint(300, 20));
    }
    QCOMPARE(slider.isSliderDown(), plain.isSliderDown());
    QCOMPARE(slider.value(), plain.value());
    for (QSlider *each : {static_cast<QSlider *>(&slider), &plain}) {
        QTest::mouseRelease(each, button, {}, QPoint(300, 20));
    }
    QCOMPARE(slider.isSliderDown(), plain.isSliderDown());
    QCOMPARE(slider.value(), plain.value());
}

void tst_ClickToSeekSlider::anotherButtonsReleaseDoesNotEndTheDrag()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(100, 20));
    sendMouse(slider, QEvent::MouseButtonRelease, QPointF(300, 20), Qt::RightButton,
              Qt::LeftButton);
    QVERIFY(slider.isSliderDown());
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(100, 20)));
    QCOMPARE(released.count(), 0);
}

void tst_ClickToSeekSlider::lettingGoEndsTheDragSilently()
{
    ClickToSeekSlider slider(Qt::Horizontal);
    shapeSlider(slider, {});
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(100, 20));
    const int value = slider.value();
    const QSignalSpy pressed(&slider, &QSlider::sliderPressed);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    slider.letGo();
    QVERIFY(!slider.isSliderDown());
    // The rest of the drag.
    sendMouse(slider, QEvent::MouseMove, QPointF(250, 20), Qt::NoButton, Qt::LeftButton);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(slider.value(), value);
    QCOMPARE(released.count(), 0);

    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(200, 20));
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(200, 20)));
}

VANTIRO_TEST_MAIN(tst_ClickToSeekSlider)
#include "tst_ClickToSeekSlider.moc"
