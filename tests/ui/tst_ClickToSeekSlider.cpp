#include "support/TestMain.h"
#include "ui/ClickToSeekSlider.h"

#include <QMouseEvent>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyleOptionSlider>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Fusion, but for a groove that can begin and end away from the slider's edges.
class InsetGrooveStyle final : public QProxyStyle
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

/// An ordinary slider like another one, which can be asked where its parts are.
class Ordinary final : public QSlider
{
public:
    explicit Ordinary(const QSlider &other)
        : QSlider(other.orientation())
    {
        setStyle(other.style());
        setInvertedAppearance(other.invertedAppearance());
        setLayoutDirection(other.layoutDirection());
        setRange(other.minimum(), other.maximum());
        setValue(other.value());
        resize(other.size());
        show();
    }

    QRect part(QStyle::SubControl control) const
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_Slider, &option, control, this);
    }
};

} // namespace

class tst_ClickToSeekSlider : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void valueIsWhereTheHandleWouldBegin_data();
    void valueIsWhereTheHandleWouldBegin();
    void theGrooveMayBeginLater();
    void aDragFollowsAndReleasesOnce();
    void beyondTheEndsAreTheEnds();
    void positionsAreRounded();
    void movingWithoutAPressDoesNothing();
    void anEmptyRangeStaysAtItsValue();
    void otherButtonsAreThoseOfAnOrdinarySlider_data();
    void otherButtonsAreThoseOfAnOrdinarySlider();
    void anotherButtonsReleaseDoesNotEndTheDrag();
    void lettingGoEndsTheDragSilently();

private:
    int valueAt(int x) const { return slider->valueFromPos(QPoint(x, 20)); }
    void send(QEvent::Type type, qreal x, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        const QPointF position(x, 20);
        QMouseEvent event(type, position, slider->mapToGlobal(position), button, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&*slider, &event);
    }
    void press(int x) { QTest::mousePress(&*slider, Qt::LeftButton, {}, QPoint(x, 20)); }
    void drag(qreal x) { send(QEvent::MouseMove, x, Qt::NoButton, Qt::LeftButton); }
    void release(int x) { QTest::mouseRelease(&*slider, Qt::LeftButton, {}, QPoint(x, 20)); }

    InsetGrooveStyle fusion{0};
    InsetGrooveStyle insetGroove{30};
    std::optional<ClickToSeekSlider> slider; ///< of 400 x 40 pixels from 0 to 100,000
    std::optional<QSignalSpy> pressed;
    std::optional<QSignalSpy> released;
};

void tst_ClickToSeekSlider::init()
{
    slider.emplace();
    slider->setStyle(&fusion);
    slider->setOrientation(Qt::Horizontal);
    slider->setRange(0, 100000);
    slider->resize(400, 40);
    slider->show();
    pressed.emplace(&*slider, &QSlider::sliderPressed);
    released.emplace(&*slider, &QSlider::sliderReleased);
}

void tst_ClickToSeekSlider::valueIsWhereTheHandleWouldBegin_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("valueAtStart");
    QTest::newRow("horizontal") << Qt::Horizontal << false << Qt::LeftToRight << 0;
    QTest::newRow("horizontal, inverted") << Qt::Horizontal << true << Qt::LeftToRight << 100000;
    QTest::newRow("right to left") << Qt::Horizontal << false << Qt::RightToLeft << 100000;
    QTest::newRow("vertical") << Qt::Vertical << false << Qt::LeftToRight << 100000;
    QTest::newRow("vertical, inverted") << Qt::Vertical << true << Qt::LeftToRight << 0;
}

void tst_ClickToSeekSlider::valueIsWhereTheHandleWouldBegin()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, inverted);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, valueAtStart);
    const bool horizontal = orientation == Qt::Horizontal;
    slider->setOrientation(orientation);
    slider->setInvertedAppearance(inverted);
    slider->setLayoutDirection(direction);
    slider->resize(horizontal ? QSize(400, 40) : QSize(40, 400));
    const QSize handle = Ordinary(*slider).part(QStyle::SC_SliderHandle).size();
    const int last = 400 - (horizontal ? handle.width() : handle.height());
    const auto pointAt = [&](int along) {
        return horizontal ? QPoint(along, 20) : QPoint(20, along);
    };
    QCOMPARE(slider->valueFromPos(pointAt(0)), valueAtStart);
    QCOMPARE(slider->valueFromPos(pointAt(last)), 100000 - valueAtStart);
    for (int along = 0; along <= last; along += 7) {
        QTest::mouseClick(&*slider, Qt::LeftButton, {}, pointAt(along));
        const QPoint start = Ordinary(*slider).part(QStyle::SC_SliderHandle).topLeft();
        QCOMPARE(horizontal ? start.x() : start.y(), along);
    }
}

void tst_ClickToSeekSlider::theGrooveMayBeginLater()
{
    slider->setStyle(&insetGroove);
    const Ordinary ordinary(*slider);
    const QRect groove = ordinary.part(QStyle::SC_SliderGroove);
    const int last = groove.right() - ordinary.part(QStyle::SC_SliderHandle).width() + 1;
    QCOMPARE(groove.left(), 30);
    QCOMPARE(valueAt(30), 0);
    QVERIFY(valueAt(31) > 0);
    QVERIFY(valueAt(last - 1) < 100000);
    QCOMPARE(valueAt(last), 100000);
}

void tst_ClickToSeekSlider::aDragFollowsAndReleasesOnce()
{
    int valueAtRelease = -1;
    connect(&*slider, &QSlider::sliderReleased, this, [&] { valueAtRelease = slider->value(); });
    press(50);
    QCOMPARE(slider->value(), valueAt(50));
    for (const int x : {80, 250, 120}) {
        drag(x);
        QCOMPARE(slider->value(), valueAt(x));
        QVERIFY(slider->isSliderDown());
    }
    QCOMPARE(released->count(), 0);
    // A release elsewhere counts, and its value is there before the signal.
    release(310);
    QCOMPARE(valueAtRelease, valueAt(310));
    QVERIFY(!slider->isSliderDown());
    QCOMPARE(pressed->count(), 1);
    QCOMPARE(released->count(), 1);

    const QSignalSpy changed(&*slider, &QSlider::valueChanged);
    press(200);
    release(200);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(released->count(), 2);
}

void tst_ClickToSeekSlider::beyondTheEndsAreTheEnds()
{
    slider->setRange(-500, 500);
    QCOMPARE(valueAt(-1000), -500);
    QCOMPARE(valueAt(5000), 500);
    // A position across the slider does not matter.
    QCOMPARE(slider->valueFromPos(QPoint(200, -300)), valueAt(200));
}

void tst_ClickToSeekSlider::positionsAreRounded()
{
    send(QEvent::MouseButtonPress, 100.4, Qt::LeftButton, Qt::LeftButton);
    QCOMPARE(slider->value(), valueAt(100));
    drag(100.6);
    QCOMPARE(slider->value(), valueAt(101));
    send(QEvent::MouseButtonRelease, 102.5, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(slider->value(), valueAt(103));
}

void tst_ClickToSeekSlider::movingWithoutAPressDoesNothing()
{
    slider->setValue(1234);
    send(QEvent::MouseMove, 300, Qt::NoButton, Qt::NoButton);
    release(300);
    QCOMPARE(slider->value(), 1234);
    QCOMPARE(released->count(), 0);
}

void tst_ClickToSeekSlider::anEmptyRangeStaysAtItsValue()
{
    slider->setRange(0, 0);
    press(300);
    release(300);
    QCOMPARE(slider->value(), 0);
    QCOMPARE(released->count(), 1);
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
    Ordinary ordinary(*slider);
    for (const auto act : {QTest::MousePress, QTest::MouseRelease}) {
        QTest::mouseEvent(act, &*slider, button, {}, QPoint(300, 20));
        QTest::mouseEvent(act, &ordinary, button, {}, QPoint(300, 20));
        QCOMPARE(slider->isSliderDown(), ordinary.isSliderDown());
        QCOMPARE(slider->value(), ordinary.value());
    }
}

void tst_ClickToSeekSlider::anotherButtonsReleaseDoesNotEndTheDrag()
{
    press(100);
    send(QEvent::MouseButtonRelease, 300, Qt::RightButton, Qt::LeftButton);
    QVERIFY(slider->isSliderDown());
    QCOMPARE(slider->value(), valueAt(100));
    QCOMPARE(released->count(), 0);
}

void tst_ClickToSeekSlider::lettingGoEndsTheDragSilently()
{
    press(100);
    slider->letGo();
    QVERIFY(!slider->isSliderDown());
    // The rest of the drag.
    drag(250);
    release(300);
    QCOMPARE(slider->value(), valueAt(100));
    QCOMPARE(released->count(), 0);

    press(200);
    release(200);
    QCOMPARE(pressed->count(), 2);
    QCOMPARE(released->count(), 1);
    QCOMPARE(slider->value(), valueAt(200));
}

VANTIRO_TEST_MAIN(tst_ClickToSeekSlider)
#include "tst_ClickToSeekSlider.moc"
