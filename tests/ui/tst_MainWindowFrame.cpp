#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The window's frame: source bar, tabs, splitter, and the loading overlay with its counter.
class tst_MainWindowFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frame();
    void sourceBar();
    void tabsAndSplitter();
    void autoRefreshRunsEveryHalfHour();
    void overlayLook();
    void overlayShowsWhileStepsAreLeft();
    void overlappingFlowsShareTheCounter();
    void extraCompletionsDoNotCount();
    void noStepsShowNoOverlay();
    void overlayTakesTheSizeWhenALoadBegins();
};

void tst_MainWindowFrame::frame()
{
    WindowFixture fixture;
    const MainWindow &window = fixture.open();
    QCOMPARE(window.windowTitle(), u"Vantiro Player"_s);
    QCOMPARE(window.size(), QSize(1200, 750));
    QVERIFY(window.hasMouseTracking());
    QVERIFY(qobject_cast<QVBoxLayout *>(window.centralWidget()->layout()) != nullptr);
    QCOMPARE(window.centralWidget()->layout()->contentsMargins(), QMargins(6, 6, 6, 6));
}

void tst_MainWindowFrame::sourceBar()
{
    WindowFixture fixture;
    const MainWindow &window = fixture.open();
    const auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    QWidget *bar = window.centralWidget()->layout()->itemAt(0)->widget();
    QCOMPARE(combo.parentWidget(), bar);
    QCOMPARE(bar->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(bar->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(combo.minimumWidth(), 220);

    const auto *layout = qobject_cast<QHBoxLayout *>(bar->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 6);
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(0)->widget())->text(), u"Source:"_s);
    QCOMPARE(layout->itemAt(1)->widget(), &combo);
    QCOMPARE(layout->itemAt(2)->widget(), &fixture.button(u"Add Source..."_s));
    QCOMPARE(layout->itemAt(3)->widget(), &fixture.button(u"Edit Source..."_s));
    QCOMPARE(layout->itemAt(4)->widget(), &fixture.button(u"Refresh Playlist"_s));
    QVERIFY(layout->itemAt(5)->spacerItem() != nullptr);
}

void tst_MainWindowFrame::tabsAndSplitter()
{
    WindowFixture fixture;
    const MainWindow &window = fixture.open();
    auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QStringList titles;
    for (int index = 0; index < tabs.count(); ++index) {
        titles << tabs.tabText(index);
    }
    QCOMPARE(titles, (QStringList{u"Live TV"_s, u"Movies"_s, u"TV Shows"_s, u"Channels"_s}));

    auto *layout = qobject_cast<QVBoxLayout *>(window.centralWidget()->layout());
    QCOMPARE(layout->count(), 2);
    auto *splitter = qobject_cast<QSplitter *>(layout->itemAt(1)->widget());
    QVERIFY(splitter != nullptr);
    QCOMPARE(layout->stretch(1), 1);
    QCOMPARE(splitter->orientation(), Qt::Horizontal);
    QCOMPARE(splitter->count(), 2);
    QCOMPARE(splitter->widget(0), &tabs);
    auto &panel = fixture.find<QWidget>(u"playerPanel"_s);
    QCOMPARE(splitter->widget(1), &panel);
    QCOMPARE(tabs.sizePolicy().horizontalStretch(), 1);
    QCOMPARE(panel.sizePolicy().horizontalStretch(), 2);
}

void tst_MainWindowFrame::autoRefreshRunsEveryHalfHour()
{
    WindowFixture fixture;
    fixture.open();
    const QTimer &timer = fixture.autoRefreshTimer();
    QCOMPARE(timer.interval(), 1800000);
    QVERIFY(timer.isActive());
    QVERIFY(!timer.isSingleShot());
}

void tst_MainWindowFrame::overlayLook()
{
    WindowFixture fixture;
    fixture.open();
    auto &overlay = fixture.find<QWidget>(u"loadingOverlay"_s);
    QCOMPARE(overlay.parentWidget(), &fixture.find<QTabWidget>(u"tabs"_s));
    QVERIFY(overlay.isHidden());
    QVERIFY(overlay.autoFillBackground());
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(overlay.palette().color(group, QPalette::Window), QColor(0, 0, 0, 150));
    }
    const auto *label = overlay.findChild<QLabel *>();
    QCOMPARE(label->text(), u"Loading..."_s);
    QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
    QCOMPARE(label->styleSheet(), u"color: white; font-size: 14pt;"_s);
}

void tst_MainWindowFrame::overlayShowsWhileStepsAreLeft()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    window.beginCatalogFetch(2);
    QVERIFY(fixture.overlayShown());
    QVERIFY(fixture.find<QWidget>(u"loadingOverlay"_s).isVisible());
    window.catalogFetchStepDone();
    QVERIFY(fixture.overlayShown());
    window.catalogFetchStepDone();
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowFrame::overlappingFlowsShareTheCounter()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    window.beginCatalogFetch(1);
    window.beginCatalogFetch(6);
    window.beginCatalogFetch(1);
    for (int step = 0; step < 7; ++step) {
        window.catalogFetchStepDone();
        QVERIFY(fixture.overlayShown());
    }
    window.catalogFetchStepDone();
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowFrame::extraCompletionsDoNotCount()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    for (int extra = 0; extra < 3; ++extra) {
        window.catalogFetchStepDone();
        QVERIFY(!fixture.overlayShown());
    }
    // A counter below zero would swallow the next load's steps.
    window.beginCatalogFetch(1);
    QVERIFY(fixture.overlayShown());
    window.catalogFetchStepDone();
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowFrame::noStepsShowNoOverlay()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    window.beginCatalogFetch(0);
    QVERIFY(!fixture.overlayShown());
}

void tst_MainWindowFrame::overlayTakesTheSizeWhenALoadBegins()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    const auto &overlay = fixture.find<QWidget>(u"loadingOverlay"_s);
    window.beginCatalogFetch(1);
    const QRect before = tabs.rect();
    QCOMPARE(overlay.geometry(), before);

    window.resize(1400, 900);
    QTRY_VERIFY(tabs.height() > before.height());
    QCOMPARE(overlay.geometry(), before);

    window.beginCatalogFetch(1);
    QCOMPARE(overlay.geometry(), tabs.rect());
    QCOMPARE(overlay.geometry().topLeft(), QPoint(0, 0));
}

VANTIRO_TEST_MAIN(tst_MainWindowFrame)
#include "tst_MainWindowFrame.moc"
