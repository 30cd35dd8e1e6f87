#include "PanelFixture.h"
#include "ui/FullscreenChrome.h"

#include <QLayout>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

#include <optional>

namespace {

/// A panel with its fullscreen mode, in which a film plays.
class ChromeFixture final : public PanelFixture
{
public:
    ChromeFixture() { play(StreamKind::Movie); }

    void enter()
    {
        chrome.toggle();
        QVERIFY(window.isFullScreen());
    }
    void enterAndShowRows()
    {
        enter();
        chrome.showFullscreenControls();
        QCOMPARE(shownRows(), allRows);
    }
    QRect bottomEdge() const
    {
        const int height = chrome.height();
        return {0, panel.height() - height, panel.width(), height};
    }

    FullscreenChrome &chrome = *new FullscreenChrome(&panel);
    QTimer &hideTimer = *chrome.findChild<QTimer *>(u"controlsHideTimer"_s);
};

} // namespace

/// The fullscreen mode, as far as it needs no picture.
class tst_FullscreenChrome : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(); }
    void entersWithoutRows();
    void leavingPutsTheRowsBack();
    void waysInAndOut_data();
    void waysInAndOut();
    void aDoubleClickElsewhereDoesNothing();
    void movingTheMouseShowsTheRows();
    void theRowsHideByThemselves();
    void theRowsStayAtTheBottom();
    void nothingShowsWhileNothingPlays();
    void theRowsFollowWhatPlays();
    void outsideFullscreenTheMouseChangesNothing();
    void thePanelTakesTheFocusOfItsButtons();
    void hiddenRowsLeaveTheFocusToThePanel();

private:
    std::optional<ChromeFixture> fixture;
};

void tst_FullscreenChrome::entersWithoutRows()
{
    const FullscreenChrome &chrome = fixture->chrome;
    QVERIFY(chrome.testAttribute(Qt::WA_NativeWindow));
    QVERIFY(chrome.testAttribute(Qt::WA_DontCreateNativeAncestors));
    QVERIFY(!chrome.isVisible());
    bool wasFullscreen = true;
    connect(&chrome, &FullscreenChrome::fullscreenChanged, &fixture->window,
            [&] { wasFullscreen = fixture->window.isFullScreen(); });
    const QSignalSpy changed(&chrome, &FullscreenChrome::fullscreenChanged);
    fixture->enter();
    QVERIFY(chrome.isFullscreen());
    QVERIFY(!wasFullscreen);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(fixture->shownRows(), QString());
    QVERIFY(!chrome.isVisible());
    QCOMPARE(fixture->panel.layout()->contentsMargins(), QMargins());
}

void tst_FullscreenChrome::leavingPutsTheRowsBack()
{
    FullscreenChrome &chrome = fixture->chrome;
    const QSignalSpy changed(&chrome, &FullscreenChrome::fullscreenChanged);
    fixture->enterAndShowRows();
    chrome.leave();
    QVERIFY(!fixture->window.isFullScreen());
    QVERIFY(!chrome.isVisible());
    QVERIFY(!fixture->hideTimer.isActive());
    QCOMPARE(changed.last().at(0).toBool(), false);
    const QLayout &layout = *fixture->panel.layout();
    QCOMPARE(layout.contentsMargins(), QMargins(4, 4, 4, 4));
    QWidgetList order;
    for (int index = 0; index < layout.count(); ++index) {
        order << layout.itemAt(index)->widget();
    }
    QCOMPARE(order, QWidgetList{fixture->panel.surface()} + fixture->panel.rows());
    QCOMPARE(fixture->shownRows(), allRows);
    chrome.leave();
    QCOMPARE(changed.count(), 2);

    // The next time begins without the rows, too.
    fixture->enter();
    QCOMPARE(fixture->shownRows(), QString());
}

void tst_FullscreenChrome::waysInAndOut_data()
{
    QTest::addColumn<QString>("way");
    for (const QString &way : {u"button"_s, u"key"_s, u"double-click"_s}) {
        QTest::newRow(qPrintable(way)) << way;
    }
}

void tst_FullscreenChrome::waysInAndOut()
{
    QFETCH(QString, way);
    for (const bool entered : {true, false}) {
        if (way == "button"_L1) {
            fixture->button(u"Fullscreen"_s).click();
        } else if (way == "key"_L1) {
            fixture->pressKey(Qt::Key_F);
        } else {
            QTest::mouseDClick(fixture->panel.surface(), Qt::LeftButton);
        }
        QCOMPARE(fixture->window.isFullScreen(), entered);
        QVERIFY(QTest::qWaitForWindowActive(&fixture->window));
    }
}

void tst_FullscreenChrome::aDoubleClickElsewhereDoesNothing()
{
    // More than one object sees it, and two switches would end where they began.
    const QSignalSpy states(fixture->window.windowHandle(), &QWindow::windowStateChanged);
    QTest::mouseDClick(&fixture->find<QWidget>(u"controlsRow"_s), Qt::LeftButton);
    QCOMPARE(states.count(), 0);
}

void tst_FullscreenChrome::movingTheMouseShowsTheRows()
{
    fixture->enter();
    QTest::mouseMove(fixture->panel.surface(), QPoint(30, 30));
    QTRY_VERIFY(fixture->chrome.isVisible());
    QCOMPARE(fixture->shownRows(), allRows);
    for (const QWidget *row : fixture->panel.rows()) {
        QCOMPARE(row->parentWidget(), &fixture->chrome);
    }
    // Every movement starts the time again.
    QVERIFY(fixture->hideTimer.isActive());
    fixture->hideTimer.stop();
    QTest::mouseMove(&fixture->find<QWidget>(u"controlsRow"_s), QPoint(5, 5));
    QTRY_VERIFY(fixture->hideTimer.isActive());
    QVERIFY(fixture->chrome.isVisible());
}

void tst_FullscreenChrome::theRowsHideByThemselves()
{
    const QWidget &surface = *fixture->panel.surface();
    QCOMPARE(fixture->hideTimer.interval(), 3000);
    QVERIFY(fixture->hideTimer.isSingleShot());
    fixture->enter();
    for (const bool byLeaving : {false, true}) {
        fixture->hideTimer.setInterval(1);
        fixture->chrome.showFullscreenControls();
        QVERIFY(fixture->chrome.isVisible());
        QTRY_VERIFY(!fixture->chrome.isVisible());
        QCOMPARE(fixture->shownRows(), QString());
        QCOMPARE(surface.cursor().shape(), Qt::BlankCursor);
        // Both bring the pointer back.
        if (byLeaving) {
            fixture->chrome.leave();
        } else {
            fixture->chrome.showFullscreenControls();
        }
        QCOMPARE(surface.cursor().shape(), Qt::ArrowCursor);
    }
}

void tst_FullscreenChrome::theRowsStayAtTheBottom()
{
    const FullscreenChrome &chrome = fixture->chrome;
    fixture->enterAndShowRows();
    QTRY_COMPARE(chrome.geometry(), fixture->bottomEdge());
    int expectedHeight = 2 * chrome.layout()->spacing();
    for (const QWidget *row : fixture->panel.rows()) {
        expectedHeight += fixture->panel.isUsed(row) ? row->sizeHint().height() : 0;
    }
    QCOMPARE(chrome.layout()->contentsMargins(), QMargins());
    QCOMPARE(chrome.height(), expectedHeight);
    const QSize before = fixture->panel.size();
    fixture->window.resize(fixture->window.size() - QSize(100, 80));
    QTRY_VERIFY(fixture->panel.size() != before);
    QTRY_COMPARE(chrome.geometry(), fixture->bottomEdge());
    fixture->chrome.leave();

    // A film may start in fullscreen: a channel's rows leave the place of its position.
    fixture->play(StreamKind::Live);
    fixture->enter();
    QCOMPARE(chrome.height(), expectedHeight);
}

void tst_FullscreenChrome::nothingShowsWhileNothingPlays()
{
    fixture->session.stop();
    fixture->enter();
    fixture->chrome.showFullscreenControls();
    QVERIFY(!fixture->chrome.isVisible());
    fixture->chrome.leave();
    QCOMPARE(fixture->shownRows(), QString());
}

void tst_FullscreenChrome::theRowsFollowWhatPlays()
{
    fixture->enterAndShowRows();
    fixture->play(StreamKind::Live);
    QCOMPARE(fixture->shownRows(), liveRows);
    fixture->session.stop();
    QVERIFY(!fixture->chrome.isVisible());
    fixture->play(StreamKind::Movie);
    QVERIFY(fixture->chrome.isVisible());
    QCOMPARE(fixture->shownRows(), allRows);
}

void tst_FullscreenChrome::outsideFullscreenTheMouseChangesNothing()
{
    fixture->chrome.showFullscreenControls();
    QTest::mouseMove(fixture->panel.surface(), QPoint(30, 30));
    QCoreApplication::processEvents();
    QVERIFY(!fixture->chrome.isVisible());
    QVERIFY(!fixture->hideTimer.isActive());
    QCOMPARE(fixture->shownRows(), allRows);
}

void tst_FullscreenChrome::thePanelTakesTheFocusOfItsButtons()
{
    for (const bool entered : {true, false}) {
        fixture->chrome.showFullscreenControls();
        fixture->button(u"Fullscreen"_s).setFocus();
        fixture->pressKey(Qt::Key_Return);
        QCOMPARE(fixture->window.isFullScreen(), entered);
        QVERIFY(QTest::qWaitForWindowActive(&fixture->window));
        QVERIFY(fixture->panel.hasFocus());
    }
}

void tst_FullscreenChrome::hiddenRowsLeaveTheFocusToThePanel()
{
    fixture->enter();
    fixture->hideTimer.setInterval(1);
    for (const QString &text : {u"Info"_s, u"10s >>"_s}) {
        fixture->chrome.showFullscreenControls();
        fixture->button(text).setFocus();
        QVERIFY(fixture->button(text).hasFocus());
        QTRY_VERIFY(!fixture->chrome.isVisible());
        QVERIFY(fixture->panel.hasFocus());
    }
}

VANTIRO_TEST_MAIN(tst_FullscreenChrome)
#include "tst_FullscreenChrome.moc"
