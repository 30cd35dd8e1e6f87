#include "support/TestMain.h"
#include "ui/ElidedLabel.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QHelpEvent>
#include <QLabel>
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

/// The columns of the picture that hold a pixel of another colour than its first one.
QList<int> inkedColumns(const QImage &image)
{
    QList<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                columns << x;
                break;
            }
        }
    }
    return columns;
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
    void cleanup();
    void aLongTextNeedsNoWidth();
    void aTextThatFitsIsPaintedAsByQLabel_data();
    void aTextThatFitsIsPaintedAsByQLabel();
    void aLongTextEndsInAnEllipsis();
    void theWholeTextIsInTheToolTip_data();
    void theWholeTextIsInTheToolTip();
    void aTextThatFitsHasNoToolTip();
};

void tst_ElidedLabel::cleanup()
{
    QToolTip::hideText();
    QTRY_COMPARE(shownToolTip(), QString());
}

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
    QTest::newRow("as it comes") << QString() << true << Qt::Alignment(Qt::AlignVCenter);
    QTest::newRow("a colour of a style sheet")
        << u"QLabel { color: #c04020; }"_s << true << Qt::Alignment(Qt::AlignVCenter);
    QTest::newRow("disabled") << QString() << false << Qt::Alignment(Qt::AlignVCenter);
    QTest::newRow("at the right") << QString() << true
                                  << Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter);
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
    QVERIFY(inkedColumns(picture(ordinary)).size() > 20);
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
    QVERIFY(inkedColumns(picture(label)).last() > 300);
}

void tst_ElidedLabel::theWholeTextIsInTheToolTip_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("long") << longText.trimmed();
    QTest::newRow("an ampersand") << u"A & B"_s;
    QTest::newRow("an ampersand's own escape") << u"A &amp; B"_s;
    QTest::newRow("markup") << u"<b>x</b>"_s;
    QTest::newRow("escaped markup") << u"&lt;b&gt;x"_s;
    QTest::newRow("an angle only") << u"2 < 3"_s;
    QTest::newRow("quotes") << u"\"A\" 'B'"_s;
}

void tst_ElidedLabel::theWholeTextIsInTheToolTip()
{
    QFETCH(QString, text);
    ElidedLabel label(text);
    label.resize(20, 30);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    QVERIFY(askForToolTip(label));
    QTRY_COMPARE(shownToolTip(), text);
}

void tst_ElidedLabel::aTextThatFitsHasNoToolTip()
{
    ElidedLabel label(longText);
    label.resize(200, 30);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    QVERIFY(askForToolTip(label));
    QTRY_VERIFY(!shownToolTip().isEmpty());
    label.setText(u"Short"_s);
    // Left to what lies below, which may have a tip of its own.
    QVERIFY(!askForToolTip(label));
    QTRY_COMPARE(shownToolTip(), QString());
}

VANTIRO_TEST_MAIN(tst_ElidedLabel)
#include "tst_ElidedLabel.moc"
