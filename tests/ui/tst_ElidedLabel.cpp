#include "support/TestMain.h"
#include "ui/ElidedLabel.h"
#include "ui/ElidedText.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QScopeGuard>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

const QString longText =
    u"A very long name of a very long film about very long names "_s.repeated(20);

/// Asks for a tool tip as the pointer does when it rests; whether the label took the event.
bool askForToolTip(QWidget &label)
{
    const QPoint place = label.rect().center();
    QHelpEvent event(QEvent::ToolTip, place, label.mapToGlobal(place));
    QCoreApplication::sendEvent(&label, &event);
    return event.isAccepted();
}

/// What the reader of the tool tip sees; empty when none shows.
QString shownToolTip()
{
    QAccessible::setActive(true);
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->windowType() == Qt::ToolTip && widget->isVisible()) {
            return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        }
    }
    return {};
}

/// The last column that holds a pixel of another colour than the picture's first one.
int lastInkedColumn(const QImage &image)
{
    for (int x = image.width() - 1; x > 0; --x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return x;
            }
        }
    }
    return 0;
}

QImage picture(QLabel &label)
{
    return label.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class tst_ElidedLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void marksTheEndOfATextOfTheOtherDirection_data();
    void marksTheEndOfATextOfTheOtherDirection();
    void aLongTextNeedsNoWidth();
    void aTextThatFitsIsPaintedAsByQLabel_data();
    void aTextThatFitsIsPaintedAsByQLabel();
    void aLongTextEndsInAnEllipsis();
    void theWholeTextIsInTheToolTip();
};

void tst_ElidedLabel::aLongTextNeedsNoWidth()
{
    QWidget window;
    QVBoxLayout layout(&window);
    ElidedLabel label(longText);
    layout.addWidget(&label);
    window.resize(300, 50);
    window.show();
    QCOMPARE(window.width(), 300);
    QVERIFY(label.width() < 300);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(label.text(), longText);

    const QLabel ordinary(longText);
    QVERIFY(ordinary.minimumSizeHint().height() > 0);
    QCOMPARE(label.minimumSizeHint(), QSize(0, ordinary.minimumSizeHint().height()));
    QCOMPARE(label.sizeHint(), ordinary.sizeHint());
}

void tst_ElidedLabel::aTextThatFitsIsPaintedAsByQLabel_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<Qt::Alignment>("alignment");
    const Qt::Alignment left = Qt::AlignVCenter;
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    QTest::newRow("a colour of a style sheet") << u"QLabel { color: #c04020; }"_s << true << left;
    QTest::newRow("disabled") << QString() << false << left;
    QTest::newRow("at the right") << QString() << true << right;
}

void tst_ElidedLabel::aTextThatFitsIsPaintedAsByQLabel()
{
    QFETCH(QString, styleSheet);
    QFETCH(bool, enabled);
    QFETCH(Qt::Alignment, alignment);
    ElidedLabel label(u"A & B <b>"_s);
    QLabel ordinary(label.text());
    ordinary.setTextFormat(Qt::PlainText);
    for (QLabel *each : {static_cast<QLabel *>(&label), &ordinary}) {
        each->setStyleSheet(styleSheet);
        each->setEnabled(enabled);
        each->setAlignment(alignment);
        each->resize(200, 30);
        each->show();
    }
    QVERIFY(lastInkedColumn(picture(ordinary)) > 20);
    QCOMPARE(picture(label), picture(ordinary));
}

void tst_ElidedLabel::aLongTextEndsInAnEllipsis()
{
    ElidedLabel label(longText);
    label.resize(200, 30);
    label.show();
    QLabel ordinary(label.fontMetrics().elidedText(longText, Qt::ElideRight, 200));
    ordinary.resize(label.size());
    ordinary.show();
    QVERIFY(ordinary.text().endsWith(u'\u2026'));
    QCOMPARE(picture(label), picture(ordinary));

    // It shows more when it is wider.
    label.resize(400, 30);
    QVERIFY(lastInkedColumn(picture(label)) > 300);
}

void tst_ElidedLabel::theWholeTextIsInTheToolTip()
{
    ElidedLabel label;
    label.resize(20, 30);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    for (const QString &text : {longText.trimmed(), u"A & B"_s, u"A &amp; B"_s, u"<b>x</b>"_s,
                                u"&lt;b&gt;x"_s, u"2 < 3 and \"A\""_s}) {
        label.setText(text);
        QVERIFY(askForToolTip(label));
        QTRY_COMPARE(shownToolTip(), text);
    }
    // A text that fits has none. That is left to what lies below, which may have a tip of its own.
    label.setText(u"x"_s);
    QVERIFY(!askForToolTip(label));
    QTRY_COMPARE(shownToolTip(), QString());
}

void tst_ElidedLabel::marksTheEndOfATextOfTheOtherDirection_data()
{
    QTest::addColumn<Qt::LayoutDirection>("layout");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("end");
    const QString latin = u"A very long name of a very long film"_s;
    const QString arabic = u"\u0641\u064a\u0644\u0645 \u0637\u0648\u064a\u0644 \u062c\u062f"_s;
    const QString dots(QChar(0x2026));
    QTest::newRow("Latin in English") << Qt::LeftToRight << latin << dots;
    QTest::newRow("Arabic in English") << Qt::LeftToRight << arabic << dots + QChar(0x200F);
    QTest::newRow("Latin in Arabic") << Qt::RightToLeft << latin << dots + QChar(0x200E);
    QTest::newRow("Arabic in Arabic") << Qt::RightToLeft << arabic << dots;
}

void tst_ElidedLabel::marksTheEndOfATextOfTheOtherDirection()
{
    QFETCH(const Qt::LayoutDirection, layout);
    QFETCH(const QString, text);
    QFETCH(const QString, end);
    QGuiApplication::setLayoutDirection(layout);
    const auto restore = qScopeGuard([] { QGuiApplication::setLayoutDirection(Qt::LeftToRight); });
    const QFontMetrics metrics(QApplication::font());
    const int whole = metrics.horizontalAdvance(text);
    const QString shown = elidedText(metrics, text, whole * 2 / 3);
    QVERIFY(shown.endsWith(end));
    // Qt keeps the shape of a letter that was joined to the next one.
    constexpr QChar joiner(0x200D);
    QVERIFY(text.startsWith(shown.chopped(end.size()).remove(joiner)));
    QCOMPARE(elidedText(metrics, text, whole), text);
}

VANTIRO_TEST_MAIN(tst_ElidedLabel)
#include "tst_ElidedLabel.moc"
