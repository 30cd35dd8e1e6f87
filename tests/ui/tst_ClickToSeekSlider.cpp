#include "support/TestMain.h"
#include "ui/ClickToSeekSlider.h"

#include <QMouseEvent>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QStyleOptionSlider>

using namespace Qt::StringLiterals;

namespace {

/// Fusion, but for a groove that can begin and end away from the slider's edges.
class InsetGrooveStyle : public QProxyStyle
{
public:
    explicit InsetGrooveStyle(int grooveInset)
        : QProxyStyle(u"Fusion"_s)
        , inset(grooveInset)
    {}

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        const QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
        return part == SC_SliderGroove ? rect.adjusted(inset, 0, -2 * inset, 0) : rect;
    }

private:
    int inset;
};

struct Shape
{
    Qt::Orientation orientation = Qt::Horizontal;
    bool inverted = false;
    Qt::LayoutDirection direction = Qt::LeftToRight;
    /// The lowest value is at the right or at the bottom.
    bool upsideDown = false;
};

/// An ordinary slider, which can be asked where its parts are.
class MeasuredSlider final : public QSlider
{
public:
    QRect part(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
    }
};

/// A slider of 400 x 40 pixels (or upright) from 0 to 100,000, and an ordinary one like it.
class Sliders final
{
public:
    explicit Sliders(const Shape &shape = {}, int grooveInset = 0)
        : style(grooveInset)
        , horizontal(shape.orientation == Qt::Horizontal)
    {
        for (QSlider *each : {static_cast<QSlider *>(&slider), static_cast<QSlider *>(&ordinary)}) {
            each->setStyle(&style);
            each->setOrientation(shape.orientation);
            each->setInvertedAppearance(shape.inverted);
            each->setLayoutDirection(shape.direction);
            each->setRange(0, 100000);
            each->resize(horizontal ? QSize(400, 40) : QSize(40, 400));
            each->show();
        }
    }

    QPoint pointAt(int along) const { return horizontal ? QPoint(along, 20) : QPoint(20, along); }
    int grooveStart() const { return start(ordinary.part(QStyle::SC_SliderGroove)); }
    int handleStart() { return start(handle()); }
    /// Where the handle begins when it is at the groove's end.
    int lastStart()
    {
        const QRect groove = ordinary.part(QStyle::SC_SliderGroove);
        return horizontal ? groove.right() - handle().width() + 1
                          : groove.bottom() - handle().height() + 1;
    }

    void send(QEvent::Type type, const QPointF &position, Qt::MouseButton button,
              Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, position, slider.mapToGlobal(position), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&slider, &event);
    }
    void drag(const QPointF &position)
    {
        send(QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton);
    }

private:
    InsetGrooveStyle style;
    bool horizontal;
    int start(const QRect &rect) const { return horizontal ? rect.left() : rect.top(); }
    QRect handle()
    {
        ordinary.setValue(slider.value());
        return ordinary.part(QStyle::SC_SliderHandle);
    }

public:
    ClickToSeekSlider slider;
    MeasuredSlider ordinary;
};

} // namespace

Q_DECLARE_METATYPE(Shape)

class tst_ClickToSeekSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void valueIsWhereTheHandleWouldBegin_data();
    void valueIsWhereTheHandleWouldBegin();
    void aDragFollowsAndReleasesOnce();
    void beyondTheEndsAreTheEnds();
    void positionsAreRounded();
    void movingWithoutAPressDoesNothing();
    void anEmptyRangeStaysAtItsValue();
    void otherButtonsAreThoseOfAnOrdinarySlider_data();
    void otherButtonsAreThoseOfAnOrdinarySlider();
    void anotherButtonsReleaseDoesNotEndTheDrag();
    void lettingGoEndsTheDragSilently();
};

void tst_ClickToSeekSlider::valueIsWhereTheHandleWouldBegin_data()
{
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<int>("inset");
    const auto row = [](const char *name, const Shape &shape, int inset = 0) {
        QTest::newRow(name) << shape << inset;
    };
    const auto rtl = Qt::RightToLeft;
    const auto ltr = Qt::LeftToRight;
    row("horizontal", {Qt::Horizontal, false, ltr, false});
    row("horizontal, a groove that begins later", {Qt::Horizontal, false, ltr, false}, 30);
    row("horizontal, inverted", {Qt::Horizontal, true, ltr, true});
    row("horizontal, right to left", {Qt::Horizontal, false, rtl, true});
    row("horizontal, inverted, right to left", {Qt::Horizontal, true, rtl, false});
    row("vertical", {Qt::Vertical, false, ltr, true});
    row("vertical, inverted", {Qt::Vertical, true, ltr, false});
    row("vertical, right to left", {Qt::Vertical, false, rtl, true});
}

void tst_ClickToSeekSlider::valueIsWhereTheHandleWouldBegin()
{
    QFETCH(Shape, shape);
    QFETCH(int, inset);
    Sliders sliders(shape, inset);
    ClickToSeekSlider &slider = sliders.slider;
    const int first = sliders.grooveStart();
    const int last = sliders.lastStart();
    QVERIFY(last - first > 280);
    QVERIFY(inset == 0 || first == inset);
    QCOMPARE(slider.valueFromPos(sliders.pointAt(first)), shape.upsideDown ? 100000 : 0);
    QCOMPARE(slider.valueFromPos(sliders.pointAt(last)), shape.upsideDown ? 0 : 100000);
    for (int along = first - 5; along <= last + 5; ++along) {
        QCOMPARE(slider.valueFromPos(sliders.pointAt(along)),
                 QStyle::sliderValueFromPosition(0, 100000, along - first, last - first,
                                                 shape.upsideDown));
    }
    if (inset > 0) {
        return; // Fusion draws its handle as if the groove began at the edge
    }
    for (int along = first; along <= last; along += 7) {
        QTest::mouseClick(&slider, Qt::LeftButton, {}, sliders.pointAt(along));
        QCOMPARE(sliders.handleStart(), along);
    }
}

void tst_ClickToSeekSlider::aDragFollowsAndReleasesOnce()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    const QSignalSpy pressed(&slider, &QSlider::sliderPressed);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    int valueAtRelease = -1;
    connect(&slider, &QSlider::sliderReleased, this, [&] { valueAtRelease = slider.value(); });

    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(50, 20));
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(50, 20)));
    for (const int x : {80, 250, 120}) {
        sliders.drag(QPointF(x, 20));
        QCOMPARE(slider.value(), slider.valueFromPos(QPoint(x, 20)));
        QVERIFY(slider.isSliderDown());
    }
    QCOMPARE(released.count(), 0);
    // A release elsewhere counts, and its value is there before the signal.
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(310, 20));
    QCOMPARE(valueAtRelease, slider.valueFromPos(QPoint(310, 20)));
    QVERIFY(!slider.isSliderDown());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);

    const QSignalSpy changed(&slider, &QSlider::valueChanged);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(200, 20));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(released.count(), 2);
}

void tst_ClickToSeekSlider::beyondTheEndsAreTheEnds()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    slider.setRange(-500, 500);
    QCOMPARE(slider.valueFromPos(QPoint(-1000, 20)), -500);
    QCOMPARE(slider.valueFromPos(QPoint(5000, 20)), 500);
    // A position across the slider does not matter.
    QCOMPARE(slider.valueFromPos(QPoint(200, -300)), slider.valueFromPos(QPoint(200, 20)));
}

void tst_ClickToSeekSlider::positionsAreRounded()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    sliders.send(QEvent::MouseButtonPress, QPointF(100.4, 20), Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(100, 20)));
    sliders.drag(QPointF(100.6, 20));
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(101, 20)));
    sliders.send(QEvent::MouseButtonRelease, QPointF(102.5, 20), Qt::LeftButton, Qt::NoButton);
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(103, 20)));
}

void tst_ClickToSeekSlider::movingWithoutAPressDoesNothing()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    slider.setValue(1234);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    sliders.send(QEvent::MouseMove, QPointF(300, 20), Qt::NoButton, Qt::NoButton);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(slider.value(), 1234);
    QCOMPARE(released.count(), 0);
}

void tst_ClickToSeekSlider::anEmptyRangeStaysAtItsValue()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    slider.setRange(0, 0);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(300, 20));
    QCOMPARE(slider.value(), 0);
    QCOMPARE(released.count(), 1);
}

void tst_ClickToSeekSlider::otherButtonsAreThoseOfAnOrdinarySlider_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_ClickToSeekSlider::otherButtonsAreThoseOfAnOrdinarySlider()
{
    QFETCH(Qt::MouseButton, button);
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    QSlider &ordinary = sliders.ordinary;
    for (const auto act : {QTest::MousePress, QTest::MouseRelease}) {
        for (QSlider *each : {static_cast<QSlider *>(&slider), &ordinary}) {
            QTest::mouseEvent(act, each, button, {}, QPoint(300, 20));
        }
        QCOMPARE(slider.isSliderDown(), ordinary.isSliderDown());
        QCOMPARE(slider.value(), ordinary.value());
    }
}

void tst_ClickToSeekSlider::anotherButtonsReleaseDoesNotEndTheDrag()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(100, 20));
    sliders.send(QEvent::MouseButtonRelease, QPointF(300, 20), Qt::RightButton, Qt::LeftButton);
    QVERIFY(slider.isSliderDown());
    QCOMPARE(slider.value(), slider.valueFromPos(QPoint(100, 20)));
    QCOMPARE(released.count(), 0);
}

void tst_ClickToSeekSlider::lettingGoEndsTheDragSilently()
{
    Sliders sliders;
    ClickToSeekSlider &slider = sliders.slider;
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(100, 20));
    const int value = slider.value();
    const QSignalSpy pressed(&slider, &QSlider::sliderPressed);
    const QSignalSpy released(&slider, &QSlider::sliderReleased);
    slider.letGo();
    QVERIFY(!slider.isSliderDown());
    // The rest of the drag.
    sliders.drag(QPointF(250, 20));
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
