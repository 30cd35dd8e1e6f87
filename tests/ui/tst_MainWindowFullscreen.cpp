#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QBoxLayout>
#include <QSignalSpy>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

bool shows(const WindowFixture &fixture, const QString &name)
{
    return fixture.find<QWidget>(name).isVisible();
}

QTimer &hideTimer(const MainWindow &window)
{
    return *window.findChild<QTimer *>(u"controlsHideTimer"_s);
}

} // namespace

/// The fullscreen mode, as far as it needs no picture.
class tst_MainWindowFullscreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void onlyThePanelIsLeft();
    void leavingBringsEverythingBack();
    void waysInAndOut_data();
    void waysInAndOut();
    void escapeOutsideFullscreenDoesNothing();
    void movingTheMouseShowsTheControls();
    void theControlsHideByThemselves();
    void theControlsStayAtTheBottom();
    void withNothingPlayingNoControlsShow();
    void aMovieKeepsItsSeekRow();
    void movingTheMouseInTheWindowChangesNothing();
    void everyEntryBeginsWithoutControls();
    void everyMovementCountsAnew();
    void theControlsHaveRoomForTheSeekRow();
    void thePanelTakesTheFocusOfItsButtons_data();
    void thePanelTakesTheFocusOfItsButtons();
    void hiddenControlsLeaveTheFocusToThePanel();

private:
    MainWindow &openAndPlay(WindowFixture &fixture, qint32 kind);

    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowFullscreen::init()
{
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

MainWindow &tst_MainWindowFullscreen::openAndPlay(WindowFixture &fixture, qint32 kind)
{
    WindowFixture::store(accountSource(u"A"_s, server->url()));
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"A"_s, section, {});
    }
    MainWindow &window = fixture.open();
    window.playMediaItem(entry(kind, u"Entry"_s));
    return window;
}

void tst_MainWindowFullscreen::onlyThePanelIsLeft()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    window.toggleFullscreen();
    QVERIFY(window.isFullScreen());
    QVERIFY(!shows(fixture, u"tabs"_s));
    QVERIFY(!shows(fixture, u"sourceCombo"_s));
    QVERIFY(shows(fixture, u"videoSurface"_s));
    for (const QString &row :
         {u"mutedLabel"_s, u"seekRow"_s, u"controlsRow"_s, u"fullscreenChrome"_s}) {
        QVERIFY(!shows(fixture, row));
    }
    QCOMPARE(window.centralWidget()->layout()->contentsMargins(), QMargins());
    QCOMPARE(fixture.find<QWidget>(u"playerPanel"_s).layout()->contentsMargins(), QMargins());
}

void tst_MainWindowFullscreen::leavingBringsEverythingBack()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    window.toggleFullscreen();
    window.showFullscreenControls();
    window.toggleFullscreen();
    QVERIFY(!window.isFullScreen());
    for (const QString &widget : {u"tabs"_s, u"sourceCombo"_s, u"videoSurface"_s, u"mutedLabel"_s,
                                  u"seekRow"_s, u"controlsRow"_s}) {
        QVERIFY2(shows(fixture, widget), qUtf8Printable(widget));
    }
    QVERIFY(!shows(fixture, u"fullscreenChrome"_s));
    QCOMPARE(window.centralWidget()->layout()->contentsMargins(), QMargins(6, 6, 6, 6));
    const QLayout *layout = fixture.find<QWidget>(u"playerPanel"_s).layout();
    QCOMPARE(layout->contentsMargins(), QMargins(4, 4, 4, 4));
    QStringList order;
    for (int index = 0; index < layout->count(); ++index) {
        order << layout->itemAt(index)->widget()->objectName();
    }
    QCOMPARE(order,
             (QStringList{u"videoSurface"_s, u"mutedLabel"_s, u"seekRow"_s, u"controlsRow"_s}));
    QVERIFY(!hideTimer(window).isActive());
}

void tst_MainWindowFullscreen::waysInAndOut_data()
{
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    QTest::newRow("the button, Escape") << u"button"_s << u"escape"_s;
    QTest::newRow("F and F") << u"key"_s << u"key"_s;
    QTest::newRow("double-click and double-click") << u"double"_s << u"double"_s;
}

void tst_MainWindowFullscreen::waysInAndOut()
{
    QFETCH(QString, in);
    QFETCH(QString, out);
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    const auto act = [&](const QString &way) {
        if (way == "button"_L1) {
            fixture.button(u"Fullscreen"_s).click();
        } else if (way == "key"_L1) {
            QTest::keyClick(&panel, Qt::Key_F);
        } else if (way == "escape"_L1) {
            QTest::keyClick(&window, Qt::Key_Escape);
        } else {
            QTest::mouseDClick(&fixture.find<QWidget>(u"videoSurface"_s), Qt::LeftButton);
        }
    };
    act(in);
    QVERIFY(window.isFullScreen());
    QVERIFY(QTest::qWaitForWindowActive(&window));
    act(out);
    QVERIFY(!window.isFullScreen());
}

void tst_MainWindowFullscreen::escapeOutsideFullscreenDoesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(!window.isFullScreen());
    QVERIFY(window.isVisible());
    // A double-click elsewhere is none on the picture. More than one object sees it, and two
    // switches would end where they began.
    const QSignalSpy states(window.windowHandle(), &QWindow::windowStateChanged);
    QTest::mouseDClick(&fixture.find<QWidget>(u"controlsRow"_s), Qt::LeftButton);
    QCOMPARE(states.count(), 0);
}

void tst_MainWindowFullscreen::movingTheMouseShowsTheControls()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    window.toggleFullscreen();
    QTest::mouseMove(&fixture.find<QWidget>(u"videoSurface"_s), QPoint(30, 30));
    QTRY_VERIFY(shows(fixture, u"fullscreenChrome"_s));
    QVERIFY(shows(fixture, u"mutedLabel"_s));
    QVERIFY(shows(fixture, u"controlsRow"_s));
    QVERIFY(!shows(fixture, u"seekRow"_s));
    QVERIFY(hideTimer(window).isActive());
    QCOMPARE(fixture.find<QWidget>(u"controlsRow"_s).parentWidget(),
             &fixture.find<QWidget>(u"fullscreenChrome"_s));
}

void tst_MainWindowFullscreen::theControlsHideByThemselves()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    window.toggleFullscreen();
    QTimer &timer = hideTimer(window);
    const auto &surface = fixture.find<QWidget>(u"videoSurface"_s);
    // The three seconds in short.
    timer.setInterval(1);
    window.showFullscreenControls();
    QVERIFY(shows(fixture, u"fullscreenChrome"_s));
    QTRY_VERIFY(!shows(fixture, u"fullscreenChrome"_s));
    QVERIFY(!shows(fixture, u"controlsRow"_s));
    QCOMPARE(surface.cursor().shape(), Qt::BlankCursor);
    // Leaving brings the pointer back by itself.
    window.toggleFullscreen();
    QVERIFY(surface.cursor().shape() != Qt::BlankCursor);
    window.toggleFullscreen();

    timer.setInterval(3000);
    window.showFullscreenControls();
    QVERIFY(shows(fixture, u"fullscreenChrome"_s));
    QVERIFY(surface.cursor().shape() != Qt::BlankCursor);
    window.toggleFullscreen();
    QVERIFY(surface.cursor().shape() != Qt::BlankCursor);
}

void tst_MainWindowFullscreen::theControlsStayAtTheBottom()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    const auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    const auto &chrome = fixture.find<QWidget>(u"fullscreenChrome"_s);
    QCOMPARE(chrome.parentWidget(), &panel);
    QVERIFY(chrome.testAttribute(Qt::WA_NativeWindow));
    QVERIFY(chrome.testAttribute(Qt::WA_DontCreateNativeAncestors));
    window.toggleFullscreen();
    window.showFullscreenControls();
    QTRY_COMPARE(chrome.geometry().width(), panel.width());
    const int height = chrome.height();
    QVERIFY(height > 0);
    QCOMPARE(chrome.geometry(), QRect(0, panel.height() - height, panel.width(), height));

    const QSize before = panel.size();
    window.resize(window.size() - QSize(100, 80));
    QTRY_VERIFY(panel.size() != before);
    QTRY_COMPARE(chrome.geometry(), QRect(0, panel.height() - height, panel.width(), height));
}

void tst_MainWindowFullscreen::withNothingPlayingNoControlsShow()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {});
    MainWindow &window = fixture.open();
    window.toggleFullscreen();
    window.showFullscreenControls();
    QVERIFY(!shows(fixture, u"fullscreenChrome"_s));
    window.toggleFullscreen();
    QVERIFY(!shows(fixture, u"controlsRow"_s));
}

void tst_MainWindowFullscreen::aMovieKeepsItsSeekRow()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    window.toggleFullscreen();
    window.showFullscreenControls();
    QVERIFY(shows(fixture, u"seekRow"_s));
    // A channel that starts meanwhile takes it away.
    window.playMediaItem(entry(0, u"News"_s));
    QVERIFY(!shows(fixture, u"seekRow"_s));
    QVERIFY(shows(fixture, u"controlsRow"_s));
}

void tst_MainWindowFullscreen::movingTheMouseInTheWindowChangesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    window.showFullscreenControls();
    QTest::mouseMove(&fixture.find<QWidget>(u"videoSurface"_s), QPoint(30, 30));
    QCoreApplication::processEvents();
    QVERIFY(!shows(fixture, u"fullscreenChrome"_s));
    QVERIFY(!hideTimer(window).isActive());
}

void tst_MainWindowFullscreen::everyEntryBeginsWithoutControls()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    window.toggleFullscreen();
    window.showFullscreenControls();
    window.toggleFullscreen();
    window.toggleFullscreen();
    QVERIFY(!shows(fixture, u"fullscreenChrome"_s));
    QVERIFY(!shows(fixture, u"controlsRow"_s));
    QVERIFY(!hideTimer(window).isActive());
}

void tst_MainWindowFullscreen::everyMovementCountsAnew()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 0);
    window.toggleFullscreen();
    QTimer &timer = hideTimer(window);
    window.showFullscreenControls();
    timer.stop();
    QTest::mouseMove(&fixture.find<QWidget>(u"controlsRow"_s), QPoint(5, 5));
    QTRY_VERIFY(timer.isActive());
    QVERIFY(shows(fixture, u"fullscreenChrome"_s));
}

// Measured with all three rows, whatever plays: a film may start while the window is fullscreen.
void tst_MainWindowFullscreen::theControlsHaveRoomForTheSeekRow()
{
    QList<int> heights;
    for (const qint32 kind : {0, 1}) {
        WindowFixture fixture;
        MainWindow &window = openAndPlay(fixture, kind);
        window.toggleFullscreen();
        window.showFullscreenControls();
        const auto &chrome = fixture.find<QWidget>(u"fullscreenChrome"_s);
        heights << chrome.height();
        QCOMPARE(shows(fixture, u"seekRow"_s), kind == 1);
        int rows = 2 * chrome.layout()->spacing();
        for (const QString &row : {u"mutedLabel"_s, u"seekRow"_s, u"controlsRow"_s}) {
            rows += fixture.find<QWidget>(row).sizeHint().height();
        }
        QCOMPARE(chrome.layout()->contentsMargins(), QMargins());
        QCOMPARE(heights.last(), rows);
    }
    QCOMPARE(heights.first(), heights.last());
}

void tst_MainWindowFullscreen::thePanelTakesTheFocusOfItsButtons_data()
{
    QTest::addColumn<bool>("mouse");
    QTest::addColumn<QString>("leave");
    for (const bool mouse : {false, true}) {
        for (const QString &leave : {u"button"_s, u"escape"_s, u"call"_s}) {
            QTest::addRow("%s, by %s", mouse ? "clicked" : "focused", qPrintable(leave))
                << mouse << leave;
        }
    }
}

void tst_MainWindowFullscreen::thePanelTakesTheFocusOfItsButtons()
{
    QFETCH(bool, mouse);
    QFETCH(QString, leave);
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    auto &button = fixture.button(u"Fullscreen"_s);
    const auto press = [&] {
        button.setFocus();
        QVERIFY(button.hasFocus());
        if (mouse) {
            QTest::mouseClick(&button, Qt::LeftButton);
        } else {
            QTest::keyClick(window.windowHandle(), Qt::Key_Return);
        }
    };
    press();
    QVERIFY(window.isFullScreen());
    QVERIFY(panel.hasFocus());

    QVERIFY(QTest::qWaitForWindowActive(&window));
    window.showFullscreenControls();
    button.setFocus();
    if (leave == "button"_L1) {
        press();
    } else if (leave == "escape"_L1) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
    } else {
        window.toggleFullscreen();
    }
    QVERIFY(!window.isFullScreen());
    QVERIFY(panel.hasFocus());
    // The keys act on the player at once.
    QTest::keyClick(window.windowHandle(), Qt::Key_F);
    QVERIFY(window.isFullScreen());
}

void tst_MainWindowFullscreen::hiddenControlsLeaveTheFocusToThePanel()
{
    WindowFixture fixture;
    MainWindow &window = openAndPlay(fixture, 1);
    window.toggleFullscreen();
    QTimer &timer = hideTimer(window);
    timer.setInterval(1);
    for (const QString &text : {u"Info"_s, u"10s >>"_s}) {
        window.showFullscreenControls();
        fixture.button(text).setFocus();
        QVERIFY(fixture.button(text).hasFocus());
        QTRY_VERIFY(!shows(fixture, u"controlsRow"_s));
        QVERIFY(fixture.find<QWidget>(u"playerPanel"_s).hasFocus());
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowFullscreen)
#include "tst_MainWindowFullscreen.moc"
