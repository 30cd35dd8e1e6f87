#include "app/Theme.h"
#include "support/TestMain.h"

#include <QImage>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyle>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The rules of a style sheet in their order, with as few blanks as possible.
QStringList rulesOf(const QString &styleSheet)
{
    static const QRegularExpression blanks(u"\\s*([{},;:])\\s*"_s);
    QString text = styleSheet.simplified().replace(blanks, u"\\1"_s);
    return text.replace(u";}"_s, u"}"_s).split(u'}', Qt::SkipEmptyParts);
}

} // namespace

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void style();
    void palette_data();
    void palette();
    void styleSheet();
    void rulesReachTheWidgets();
    void applyingAgainChangesNothing();
};

void tst_Theme::initTestCase()
{
    Theme::apply(*qApp);
}

void tst_Theme::style()
{
    // A style sheet puts a style of its own in front of the application's.
    QVERIFY(QApplication::style()->inherits("QStyleSheetStyle"));
    qApp->setStyleSheet({});
    QCOMPARE(QApplication::style()->name(), u"fusion"_s);
    Theme::apply(*qApp);
}

void tst_Theme::palette_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QColor>("color");
    QTest::newRow("Window") << int(QPalette::Window) << QColor(0x1e, 0x20, 0x26);
    QTest::newRow("WindowText") << int(QPalette::WindowText) << QColor(0xe2, 0xe4, 0xe9);
    QTest::newRow("Base") << int(QPalette::Base) << QColor(0x26, 0x28, 0x30);
    QTest::newRow("AlternateBase") << int(QPalette::AlternateBase) << QColor(0x2e, 0x30, 0x3a);
    QTest::newRow("ToolTipBase") << int(QPalette::ToolTipBase) << QColor(0x2e, 0x30, 0x3a);
    QTest::newRow("ToolTipText") << int(QPalette::ToolTipText) << QColor(0xe2, 0xe4, 0xe9);
    QTest::newRow("Text") << int(QPalette::Text) << QColor(0xe2, 0xe4, 0xe9);
    QTest::newRow("Button") << int(QPalette::Button) << QColor(0x2e, 0x30, 0x3a);
    QTest::newRow("ButtonText") << int(QPalette::ButtonText) << QColor(0xe2, 0xe4, 0xe9);
    QTest::newRow("BrightText") << int(QPalette::BrightText) << QColor(Qt::red);
    QTest::newRow("Link") << int(QPalette::Link) << QColor(0x3b, 0x82, 0xf6);
    QTest::newRow("Highlight") << int(QPalette::Highlight) << QColor(0x3b, 0x82, 0xf6);
    QTest::newRow("HighlightedText") << int(QPalette::HighlightedText) << QColor(Qt::white);
    QTest::newRow("PlaceholderText") << int(QPalette::PlaceholderText) << QColor(0x94, 0x98, 0xa3);
}

void tst_Theme::palette()
{
    QFETCH(const int, role);
    QFETCH(const QColor, color);
    const auto colorRole = static_cast<QPalette::ColorRole>(role);
    const QPalette palette = QApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const bool isMuted = group == QPalette::Disabled &&
                             (colorRole == QPalette::Text || colorRole == QPalette::ButtonText);
        QCOMPARE(palette.color(group, colorRole), isMuted ? QColor(0x94, 0x98, 0xa3) : color);
        QCOMPARE(palette.brush(group, colorRole).style(), Qt::SolidPattern);
    }
}

namespace {

const QList<std::pair<const char *, const char *>> expectedRules{
    {"QWidget", "font-size: 13px"},
    {"QMainWindow, QDialog", "background-color: #1e2026"},
    {"QLabel", "color: #e2e4e9"},
    {"QLabel#mutedLabel", "color: #9498a3"},
    {"QPushButton", "background-color: #2e303a; color: #e2e4e9; border: 1px solid #3a3d49; "
                    "border-radius: 6px; padding: 6px 14px"},
    {"QPushButton:hover", "background-color: #383b47; border-color: #4a4e5c"},
    {"QPushButton:pressed", "background-color: #26282f"},
    {"QPushButton:checked", "background-color: #3b82f6; border-color: #3b82f6; color: white"},
    {"QPushButton:disabled", "color: #6b6f7a; background-color: #26282f"},
    {"QPushButton#accentButton",
     "background-color: #3b82f6; border-color: #3b82f6; color: white; font-weight: 600"},
    {"QPushButton#accentButton:hover", "background-color: #5b93f7"},
    {"QPushButton#accentButton:pressed", "background-color: #2f6bd1"},
    {"QLineEdit, QComboBox, QPlainTextEdit",
     "background-color: #262832; color: #e2e4e9; border: 1px solid #3a3d49; border-radius: 6px; "
     "padding: 5px 8px; selection-background-color: #3b82f6"},
    {"QLineEdit:focus, QComboBox:focus, QPlainTextEdit:focus", "border: 1px solid #3b82f6"},
    {"QComboBox::drop-down", "border: none; width: 22px"},
    {"QComboBox QAbstractItemView",
     "background-color: #262832; color: #e2e4e9; border: 1px solid #3a3d49; "
     "selection-background-color: #3b82f6; outline: none"},
    {"QTabWidget::pane",
     "border: 1px solid #33353f; border-radius: 8px; top: -1px; background-color: #23252d"},
    {"QTabBar::tab", "background-color: transparent; color: #9498a3; padding: 8px 18px; "
                     "margin-right: 2px; border-top-left-radius: 6px; "
                     "border-top-right-radius: 6px"},
    {"QTabBar::tab:selected",
     "color: #e2e4e9; background-color: #23252d; border-bottom: 2px solid #3b82f6"},
    {"QTabBar::tab:hover:!selected", "color: #e2e4e9; background-color: #2a2c35"},
    {"QListWidget, QTableWidget",
     "background-color: #23252d; color: #e2e4e9; border: 1px solid #33353f; border-radius: 8px; "
     "outline: none; gridline-color: #33353f; alternate-background-color: #262832"},
    {"QListWidget::item", "padding: 8px 10px; border-radius: 6px"},
    {"QListWidget::item:hover", "background-color: #2a2c35"},
    {"QListWidget::item:selected", "background-color: #3b82f6; color: white"},
    {"QTableWidget::item", "padding: 4px 6px"},
    {"QTableWidget::item:selected", "background-color: #3b82f6; color: white"},
    {"QHeaderView::section", "background-color: #262832; color: #9498a3; border: none; "
                             "border-bottom: 1px solid #33353f; padding: 6px 8px"},
    {"QSlider::groove:horizontal", "height: 4px; background: #33353f; border-radius: 2px"},
    {"QSlider::sub-page:horizontal", "background: #3b82f6; border-radius: 2px"},
    {"QSlider::handle:horizontal",
     "background: #e2e4e9; width: 14px; height: 14px; margin: -6px 0; border-radius: 7px"},
    {"QSlider::handle:horizontal:hover", "background: #ffffff"},
    {"QScrollBar:vertical", "background: transparent; width: 10px; margin: 0"},
    {"QScrollBar::handle:vertical", "background: #3a3d49; border-radius: 5px; min-height: 24px"},
    {"QScrollBar::handle:vertical:hover", "background: #4a4e5c"},
    {"QScrollBar::add-line:vertical, QScrollBar::sub-line:vertical", "height: 0"},
    {"QScrollBar:horizontal", "background: transparent; height: 10px; margin: 0"},
    {"QScrollBar::handle:horizontal", "background: #3a3d49; border-radius: 5px; min-width: 24px"},
    {"QScrollBar::add-line:horizontal, QScrollBar::sub-line:horizontal", "width: 0"},
};

} // namespace

void tst_Theme::styleSheet()
{
    QString expected;
    for (const auto &[selector, declarations] : expectedRules) {
        expected += QLatin1StringView(selector) + u'{' + QLatin1StringView(declarations) + u'}';
    }
    QCOMPARE(rulesOf(qApp->styleSheet()), rulesOf(expected));
}

void tst_Theme::rulesReachTheWidgets()
{
    QPushButton button;
    button.resize(120, 40);
    QCOMPARE(button.grab().toImage().pixelColor(20, 20), QColor(0x2e, 0x30, 0x3a));
    QPushButton accent;
    accent.setObjectName(u"accentButton"_s);
    accent.resize(120, 40);
    QCOMPARE(accent.grab().toImage().pixelColor(20, 20), QColor(0x3b, 0x82, 0xf6));
    QCOMPARE(accent.font().pixelSize(), 13);
}

void tst_Theme::applyingAgainChangesNothing()
{
    const QString styleSheet = qApp->styleSheet();
    const QPalette palette = QApplication::palette();
    Theme::apply(*qApp);
    QCOMPARE(qApp->styleSheet(), styleSheet);
    QCOMPARE(QApplication::palette(), palette);
}

VANTIRO_TEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
