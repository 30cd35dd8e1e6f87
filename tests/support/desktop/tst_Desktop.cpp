// Proves the pieces that drive a running program, on a window that has one control of each kind.

#include "support/TestMain.h"
#include "support/desktop/Input.h"
#include "support/desktop/RunningApp.h"
#include "support/desktop/Screen.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestDesktop : public QObject
{
    Q_OBJECT

    /// Whether the label that says what happened last has this text.
    bool reports(const QString &text) const { return bool(probe.waitFor(Role::Label, text)); }

    RunningApp app{QStringLiteral(DESKTOP_PROBE)};
    Accessible probe;

private Q_SLOTS:
    void init();
    void cleanup();

    void findsControls_data();
    void findsControls();
    void findsByIndex();
    void missesWhatIsNotThere();
    void typesIntoAnEdit();
    void choosesFromAComboBox();
    void choosesFromAMenu();
    void answersADialog();
    void answersAMessageBox();
    void readsAndClicksATable();
    void scrollsByWheel();
    void clicksTabsListsAndTrees();
    void dragsASlider();
    void seesAMovingPicture();
    void goesFullScreenByDoubleClick();
    void resizesTheWindow();
    void distinguishesTwoPrograms();
    void closesWithADialogOpen();
    void savesAScreenshot();
    void seesBlackAndChange();
};

void TestDesktop::init()
{
    QVERIFY(app.start(u"Probe"_s));
    probe = app.window(u"Probe"_s);
    QVERIFY(probe);
}

void TestDesktop::cleanup()
{
    QVERIFY(app.close());
    QCOMPARE(app.exitCode(), 3);
}

void TestDesktop::findsControls_data()
{
    QTest::addColumn<Role>("role");
    QTest::addColumn<QString>("name");
    QTest::newRow("button by its text") << Role::Button << u"Play"_s;
    QTest::newRow("edit by its label") << Role::Edit << u"Name:"_s;
    QTest::newRow("edit by its placeholder") << Role::Edit << u"Search..."_s;
    QTest::newRow("combo box by its text") << Role::ComboBox << u"First"_s;
    QTest::newRow("combo box by its label") << Role::ComboBox << u"Choice:"_s;
    QTest::newRow("slider by its accessible name") << Role::Slider << u"Volume"_s;
    QTest::newRow("label by its text") << Role::Label << u"Nothing yet"_s;
    QTest::newRow("tab by its title") << Role::Tab << u"Tree"_s;
    QTest::newRow("table cell by its text") << Role::Cell << u"Channel 2"_s;
    QTest::newRow("header by its text") << Role::Header << u"Channel"_s;
    QTest::newRow("anything else by its accessible name") << Role::Other << u"Picture"_s;
}

void TestDesktop::findsControls()
{
    QFETCH(Role, role);
    QFETCH(QString, name);
    const Accessible control = probe.find(role, name);
    QVERIFY2(control, qPrintable(probe.describe()));
    QCOMPARE(probe.findAll(role, name).size(), 1);
    QCOMPARE(control.role(), role);
    QVERIFY(control.isShowing());
    QVERIFY(probe.rect().contains(control.rect()));
    QCOMPARE(control.window(), probe);
    QCOMPARE(control.processId(), app.processId());
}

void TestDesktop::findsByIndex()
{
    QCOMPARE(probe.find(Role::Edit, 0).name(), u"Name:"_s);
    QCOMPARE(probe.find(Role::Edit, 1).description(), u"Search..."_s);
    QVERIFY(!probe.find(Role::Edit, 2));
    QCOMPARE(probe.findAll(Role::Tab).size(), 3);
}

void TestDesktop::missesWhatIsNotThere()
{
    QVERIFY(!probe.find(Role::Button, u"Pla"_s));
    QVERIFY(!probe.find(Role::Label, u"Play"_s));
    QVERIFY2(!probe.find(Role::ListItem, u"News"_s), "it stands on a tab that is not shown");
    QVERIFY(!app.window(u"Question"_s));
    QVERIFY(!app.menu());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"There is no button Stop in"_s));
    QVERIFY(!probe.waitFor(Role::Button, u"Stop"_s, 1));

    const Accessible none;
    QVERIFY(none.isNull());
    QCOMPARE(none.name(), QString());
    QCOMPARE(none.rect(), QRect());
    QCOMPARE(none.rowCount(), 0);
    QVERIFY(!none.isShowing());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"is not on the screen"_s));
    QVERIFY(!Mouse::click(none));
}

void TestDesktop::typesIntoAnEdit()
{
    const QString typed = u"http://127.0.0.1:8080/get.php?a=B&c=\"d\" -- ~|\\{}"_s;
    const Accessible edit = probe.find(Role::Edit, u"Name:"_s);
    QVERIFY(Mouse::click(edit));
    QTRY_VERIFY(edit.isFocused());
    QVERIFY(Keyboard::type(typed));
    QTRY_COMPARE(edit.text(), typed);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"on no key"_s));
    QVERIFY(!Keyboard::type(u"Ünïcode"_s));
    QVERIFY(Keyboard::fill(edit, u"Later"_s));
    QCOMPARE(edit.text(), u"Later"_s);
    QVERIFY(Keyboard::press(u"BackSpace"_s, 3));
    QVERIFY(Keyboard::press(u"Return"_s));
    QVERIFY(reports(u"Entered La"_s));
    QVERIFY(Keyboard::fill(edit, QString()));
}

void TestDesktop::choosesFromAComboBox()
{
    const Accessible combo = probe.find(Role::ComboBox);
    QVERIFY(Mouse::choose(combo, u"Third"_s));
    QVERIFY(reports(u"Chose Third"_s));
    QVERIFY(Mouse::choose(combo, u"First"_s));
    QVERIFY(reports(u"Chose First"_s));
}

void TestDesktop::choosesFromAMenu()
{
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Menu"_s)));
    const Accessible menu = app.waitForMenu();
    const QList<Accessible> items = menu.findAll(Role::MenuItem);
    QCOMPARE(items.size(), 3);
    QCOMPARE(items[0].name(), u"One"_s);
    QVERIFY(!items[0].isChecked());
    QVERIFY(items[1].isChecked());
    QVERIFY(!items[2].isEnabled());
    QVERIFY(Mouse::click(items[0]));
    QVERIFY(reports(u"Menu One"_s));
    QVERIFY(menu.waitUntilGone());
    QVERIFY(!app.menu());

    QVERIFY(Mouse::click(probe.find(Role::Button, u"Menu"_s)));
    QVERIFY(app.waitForMenu());
    QVERIFY2(app.close(), "with a menu open");
}

void TestDesktop::answersADialog()
{
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Dialog"_s)));
    const Accessible dialog = app.waitForWindow(u"Question"_s);
    QCOMPARE(dialog.role(), Role::Dialog);
    QCOMPARE(dialog.find(Role::Edit).text(), u"Line one\nLine two"_s);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"OK"_s)));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(reports(u"Accepted"_s));
}

void TestDesktop::answersAMessageBox()
{
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Warn"_s)));
    const Accessible box = app.waitForWindow(u"Warning"_s);
    QCOMPARE(box.role(), Role::MessageBox);
    QVERIFY(box.find(Role::Label, u"Something is odd."_s));
    QVERIFY(Mouse::click(box.find(Role::Button, u"OK"_s)));
    QVERIFY(reports(u"Warned"_s));
    QVERIFY(!app.window(u"Warning"_s));
}

void TestDesktop::readsAndClicksATable()
{
    const Accessible table = probe.find(Role::Table);
    QCOMPARE(table.rowCount(), 100000);
    QCOMPARE(table.rowTexts(1, 2), QStringList({u"Channel 1"_s, u"Channel 2"_s}));
    QCOMPARE(table.rowTexts(99999, 5), QStringList{u"Channel 99999"_s});
    QCOMPARE(table.cell(70000).name(), u"Channel 70000"_s);
    QVERIFY(Mouse::click(table.cell(4)));
    QVERIFY(reports(u"Row 4"_s));
    QVERIFY(app.waitForStandardError(u"Row 4\n"_s));
    QVERIFY(!app.waitForStandardError(u"Row 2"_s, 1));
    QTest::ignoreMessage(QtWarningMsg, "Channel 70000 is not on the screen");
    QVERIFY(!Mouse::click(table.cell(70000)));
}

void TestDesktop::scrollsByWheel()
{
    const Accessible table = probe.find(Role::Table);
    const QPoint middle = table.rect().center();
    const QString before = table.at(middle).name();
    QVERIFY2(before.startsWith(u"Channel "_s), qPrintable(before));
    QVERIFY(Mouse::wheel(table, -5));
    QTRY_VERIFY(table.at(middle).name() != before);
    QVERIFY(Mouse::wheel(table, 5));
    QTRY_COMPARE(table.at(middle).name(), before);
}

void TestDesktop::clicksTabsListsAndTrees()
{
    QVERIFY(Mouse::click(probe.find(Role::Tab, u"List"_s)));
    const Accessible list = probe.waitFor(Role::List);
    QCOMPARE(list.rowTexts(), QStringList({u"All"_s, u"News"_s, u"Sports"_s}));
    QVERIFY(Mouse::click(list.find(Role::ListItem, u"News"_s)));
    QVERIFY(reports(u"Item News"_s));

    QVERIFY(Mouse::click(probe.find(Role::Tab, u"Tree"_s)));
    const Accessible tree = probe.waitFor(Role::Tree);
    QCOMPARE(tree.rowTexts(), QStringList({u"Season 1"_s, u"Pilot"_s}));
    QVERIFY(Mouse::click(tree.cell(1)));
    QVERIFY(reports(u"Branch Pilot"_s));
}

void TestDesktop::dragsASlider()
{
    const Accessible slider = probe.find(Role::Slider, u"Volume"_s);
    QCOMPARE(slider.value(), 0.0);
    QCOMPARE(slider.maximum(), 100.0);
    const QRect area = slider.rect();
    const QPoint handle(area.left() + 5, area.center().y());
    QVERIFY(Mouse::pressAndMove(handle, area.center()));
    QTRY_VERIFY(slider.value() > 40 && slider.value() < 60);
    QVERIFY(Mouse::release());
    QVERIFY(Mouse::drag(area.center(), QPoint(area.right(), area.center().y())));
    QTRY_COMPARE(slider.value(), 100.0);
}

void TestDesktop::seesAMovingPicture()
{
    const QRect picture = probe.find(Role::Other, u"Picture"_s).rect();
    QTRY_VERIFY(Screen::isMostlyBlack(picture));
    QVERIFY(!Screen::waitUntilMoving(picture, 1));
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Play"_s)));
    QVERIFY(Screen::waitUntilMoving(picture));
    QVERIFY(!Screen::waitUntilStill(picture, 500, 400));
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Pause"_s)));
    QVERIFY(Screen::waitUntilStill(picture));
    QVERIFY(!Screen::isMostlyBlack(picture));
}

void TestDesktop::goesFullScreenByDoubleClick()
{
    const Accessible picture = probe.find(Role::Other, u"Picture"_s);
    const NativeWindow window = app.nativeWindow(u"Probe"_s);
    QVERIFY(!window.isFullScreen());
    QVERIFY(Mouse::doubleClick(picture.rect().center()));
    QTRY_VERIFY(window.isFullScreen());
    QTRY_COMPARE(window.geometry(), Screen::area());
    QTRY_COMPARE(probe.rect(), Screen::area());
    QVERIFY(Mouse::doubleClick(picture.rect().center()));
    QTRY_VERIFY(!window.isFullScreen());
}

void TestDesktop::resizesTheWindow()
{
    const NativeWindow window = app.nativeWindow(u"Probe"_s);
    QVERIFY(!window.isNull());
    QCOMPARE(NativeWindow::active(), window);
    QVERIFY(window.resize(QSize(1000, 700)));
    QTRY_COMPARE(probe.rect().size(), QSize(1000, 700));
    QVERIFY(window.moveTo(QPoint(40, 60)));
    QTRY_COMPARE(probe.rect(), window.geometry());
    QVERIFY(Mouse::click(probe.find(Role::Table).cell(2)));
    QVERIFY(reports(u"Row 2"_s));
}

void TestDesktop::distinguishesTwoPrograms()
{
    RunningApp other(QStringLiteral(DESKTOP_PROBE));
    QVERIFY(other.start(u"Probe"_s));
    const Accessible theirs = other.window(u"Probe"_s);
    QVERIFY(other.processId() != app.processId());
    QVERIFY(theirs != probe);
    QVERIFY(Mouse::click(theirs.find(Role::Table).cell(3)));
    QVERIFY(theirs.waitFor(Role::Label, u"Row 3"_s));
    QVERIFY(!probe.find(Role::Label, u"Row 3"_s));
    QVERIFY(other.close());
    QVERIFY(app.isRunning());
}

void TestDesktop::closesWithADialogOpen()
{
    QVERIFY(Mouse::click(probe.find(Role::Button, u"Dialog"_s)));
    QVERIFY(app.waitForWindow(u"Question"_s));
    QVERIFY(app.close());
    QVERIFY(app.standardError().contains(u"Rejected"_s));
}

void TestDesktop::savesAScreenshot()
{
    const QTemporaryDir folder;
    qputenv("VANTIRO_SCREENSHOT_DIR", QFile::encodeName(folder.path()));
    const QImage image = Screen::grab(probe.rect());
    const QString path = Screen::save(image, u"probe"_s);
    qunsetenv("VANTIRO_SCREENSHOT_DIR");
    QCOMPARE(path, folder.filePath(u"probe.png"_s));
    QCOMPARE(QImage(path).size(), probe.rect().size());
    QVERIFY(!Screen::differs(QImage(path), image));
    QCOMPARE(Screen::grab().size(), Screen::area().size());
}

void TestDesktop::seesBlackAndChange()
{
    QImage black(100, 100, QImage::Format_RGB32);
    black.fill(Qt::black);
    QImage corner = black;
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x)
            corner.setPixelColor(x, y, Qt::white);
    }
    QVERIFY(Screen::isMostlyBlack(black));
    QCOMPARE(Screen::difference(black, black), 0.0);
    QCOMPARE(Screen::difference(black, corner), 0.01);
    QVERIFY(Screen::differs(black, corner, 0.01));
    QVERIFY(!Screen::differs(black, corner, 0.02));
    QVERIFY(Screen::isMostlyBlack(corner));
    QCOMPARE(Screen::difference(black, black.scaled(50, 50)), 1.0);
}

VANTIRO_TEST_MAIN(TestDesktop)
#include "tst_Desktop.moc"
