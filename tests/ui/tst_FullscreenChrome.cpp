#include "PanelFixture.h"
#include "support/TestMain.h"
#include "ui/FullscreenChrome.h"

#include <QLayout>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// A panel with its fullscreen mode, in which an entry plays.
class ChromeFixture final : public PanelFixture
{
public:
    explicit ChromeFixture(qint32 kind = StreamKind::Movie) { play(kind); }

    void enter()
    {
        chrome.toggle();
        QVERIFY(window.isFullScreen());
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
    void entersWithoutRows();
    void leavingPutsTheRowsBack();
    void waysInAndOut_data();
    void waysInAndOut();
    void aDoubleClickElsewhereDoesNothing();
    void movingTheMouseShowsTheRows();
    void everyMovementStartsTheTimeAgain();
    void theRowsHideByThemselves();
    void theRowsStayAtTheBottom();
    void nothingShowsWhileNothingPlays();
    void theRowsFollowWhatPlays();
    void outsideFullscreenTheMouseChangesNothing();
    void theRowsHaveSpaceForThePosition();
    void thePanelTakesTheFocusOfItsButtons();
    void hiddenRowsLeaveTheFocusToThePanel();
};

void tst_FullscreenChrome::entersWithoutRows()
{
    ChromeFixture fixture;
    QVERIFY(fixture.chrome.testAttribute(Qt::WA_NativeWindow));
    QVERIFY(fixture.chrome.testAttribute(Qt::WA_DontCreateNativeAncestors));
    QVERIFY(!fixture.chrome.isVisible());
    bool wasFullscreen = true;
    connect(&fixture.chrome, &FullscreenChrome::fullscreenChanged, &fixture.window,
            [&] { wasFullscreen = fixture.window.isFullScreen(); });
    const QSignalSpy changed(&fixture.chrome, &FullscreenChrome::fullscreenChanged);
    fixture.enter();
    QVERIFY(fixture.chrome.isFullscreen());
    QVERIFY(!wasFullscreen);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toBool(), true);
    QCOMPARE(fixture.shownRows(), QStringList());
    QVERIFY(!fixture.chrome.isVisible());
    QCOMPARE(fixture.panel.layout()->contentsMargins(), QMargins());
}

void tst_FullscreenChrome::leavingPutsTheRowsBack()
{
    ChromeFixture fixture;
    const QSignalSpy changed(&fixture.chrome, &FullscreenChrome::fullscreenChanged);
    fixture.enter();
    fixture.chrome.showFullscreenControls();
    fixture.chrome.leave();
    QVERIFY(!fixture.window.isFullScreen());
    QVERIFY(!fixture.chrome.isVisible());
    QVERIFY(!fixture.hideTimer.isActive());
    QCOMPARE(changed.last().at(0).toBool(), false);
    QCOMPARE(fixture.panel.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QWidgetList order;
    for (int index = 0; index < fixture.panel.layout()->count(); ++index) {
        order << fixture.panel.layout()->itemAt(index)->widget();
    }
    QCOMPARE(order, QWidgetList{fixture.panel.surface()} + fixture.panel.rows());
    QCOMPARE(fixture.shownRows().size(), 3);
    fixture.chrome.leave();
    QCOMPARE(changed.count(), 2);

    // The next time begins without the rows, too.
    fixture.enter();
    QCOMPARE(fixture.shownRows(), QStringList());
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
    ChromeFixture fixture;
    for (const bool entered : {true, false}) {
        if (way == "button"_L1) {
            fixture.button(u"Fullscreen"_s).click();
        } else if (way == "key"_L1) {
            fixture.pressKey(Qt::Key_F);
        } else {
            QTest::mouseDClick(fixture.panel.surface(), Qt::LeftButton);
        }
        QCOMPARE(fixture.window.isFullScreen(), entered);
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
    }
}

void tst_FullscreenChrome::aDoubleClickElsewhereDoesNothing()
{
    ChromeFixture fixture;
    // More than one object sees it, and two switches would end where they began.
    const QSignalSpy states(fixture.window.windowHandle(), &QWindow::windowStateChanged);
    QTest::mouseDClick(&fixture.find<QWidget>(u"controlsRow"_s), Qt::LeftButton);
    QCOMPARE(states.count(), 0);
}

void tst_FullscreenChrome::movingTheMouseShowsTheRows()
{
    ChromeFixture fixture;
    fixture.enter();
    QTest::mouseMove(fixture.panel.surface(), QPoint(30, 30));
    QTRY_VERIFY(fixture.chrome.isVisible());
    QVERIFY(fixture.hideTimer.isActive());
    QCOMPARE(fixture.shownRows().size(), 3);
    for (const QWidget *row : fixture.panel.rows()) {
        QCOMPARE(row->parentWidget(), &fixture.chrome);
    }
}

void tst_FullscreenChrome::everyMovementStartsTheTimeAgain()
{
    ChromeFixture fixture;
    fixture.enter();
    fixture.chrome.showFullscreenControls();
    fixture.hideTimer.stop();
    QTest::mouseMove(&fixture.find<QWidget>(u"controlsRow"_s), QPoint(5, 5));
    QTRY_VERIFY(fixture.hideTimer.isActive());
    QVERIFY(fixture.chrome.isVisible());
}

void tst_FullscreenChrome::theRowsHideByThemselves()
{
    ChromeFixture fixture;
    const QWidget &surface = *fixture.panel.surface();
    QCOMPARE(fixture.hideTimer.interval(), 3000);
    QVERIFY(fixture.hideTimer.isSingleShot());
    fixture.enter();
    for (const bool byLeaving : {false, true}) {
        fixture.hideTimer.setInterval(1);
        fixture.chrome.showFullscreenControls();
        QVERIFY(fixture.chrome.isVisible());
        QTRY_VERIFY(!fixture.chrome.isVisible());
        QCOMPARE(fixture.shownRows(), QStringList());
        QCOMPARE(surface.cursor().shape(), Qt::BlankCursor);
        // Both bring the pointer back.
        if (byLeaving) {
            fixture.chrome.leave();
        } else {
            fixture.chrome.showFullscreenControls();
        }
        QCOMPARE(surface.cursor().shape(), Qt::ArrowCursor);
    }
}

void tst_FullscreenChrome::theRowsStayAtTheBottom()
{
    ChromeFixture fixture;
    fixture.enter();
    fixture.chrome.showFullscreenControls();
    QTRY_COMPARE(fixture.chrome.geometry(), fixture.bottomEdge());
    QVERIFY(fixture.chrome.height() > 0);
    const QSize before = fixture.panel.size();
    fixture.window.resize(fixture.window.size() - QSize(100, 80));
    QTRY_VERIFY(fixture.panel.size() != before);
    QTRY_COMPARE(fixture.chrome.geometry(), fixture.bottomEdge());
}

void tst_FullscreenChrome::nothingShowsWhileNothingPlays()
{
    ChromeFixture fixture;
    fixture.session.stop();
    fixture.enter();
    fixture.chrome.showFullscreenControls();
    QVERIFY(!fixture.chrome.isVisible());
    fixture.chrome.leave();
    QCOMPARE(fixture.shownRows(), QStringList());
}

void tst_FullscreenChrome::theRowsFollowWhatPlays()
{
    ChromeFixture fixture;
    fixture.enter();
    fixture.chrome.showFullscreenControls();
    fixture.play(StreamKind::Live);
    QCOMPARE(fixture.shownRows(), (QStringList{u"mutedLabel"_s, u"controlsRow"_s}));
    fixture.session.stop();
    QVERIFY(!fixture.chrome.isVisible());
    fixture.play(StreamKind::Movie);
    QVERIFY(fixture.chrome.isVisible());
    QCOMPARE(fixture.shownRows().size(), 3);
}

void tst_FullscreenChrome::outsideFullscreenTheMouseChangesNothing()
{
    ChromeFixture fixture;
    fixture.chrome.showFullscreenControls();
    QTest::mouseMove(fixture.panel.surface(), QPoint(30, 30));
    QCoreApplication::processEvents();
    QVERIFY(!fixture.chrome.isVisible());
    QVERIFY(!fixture.hideTimer.isActive());
    QCOMPARE(fixture.shownRows().size(), 3);
}

// Whatever plays: a film may start in fullscreen.
void tst_FullscreenChrome::theRowsHaveSpaceForThePosition()
{
    for (const qint32 kind : {StreamKind::Live, StreamKind::Movie}) {
        ChromeFixture fixture(kind);
        fixture.enter();
        fixture.chrome.showFullscreenControls();
        QCOMPARE(fixture.shownRows().size(), kind == StreamKind::Movie ? 3 : 2);
        int expected = 2 * fixture.chrome.layout()->spacing();
        for (const QWidget *row : fixture.panel.rows()) {
            expected += row->sizeHint().height();
        }
        QCOMPARE(fixture.chrome.layout()->contentsMargins(), QMargins());
        QCOMPARE(fixture.chrome.height(), expected);
    }
}

void tst_FullscreenChrome::thePanelTakesTheFocusOfItsButtons()
{
    ChromeFixture fixture;
    for (const bool entered : {true, false}) {
        fixture.chrome.showFullscreenControls();
        fixture.button(u"Fullscreen"_s).setFocus();
        fixture.pressKey(Qt::Key_Return);
        QCOMPARE(fixture.window.isFullScreen(), entered);
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window));
        QVERIFY(fixture.panel.hasFocus());
    }
}

void tst_FullscreenChrome::hiddenRowsLeaveTheFocusToThePanel()
{
    ChromeFixture fixture;
    fixture.enter();
    fixture.hideTimer.setInterval(1);
    for (const QString &text : {u"Info"_s, u"10s >>"_s}) {
        fixture.chrome.showFullscreenControls();
        fixture.button(text).setFocus();
        QVERIFY(fixture.button(text).hasFocus());
        QTRY_VERIFY(!fixture.chrome.isVisible());
        QVERIFY(fixture.panel.hasFocus());
    }
}

VANTIRO_TEST_MAIN(tst_FullscreenChrome)
#include "tst_FullscreenChrome.moc"
