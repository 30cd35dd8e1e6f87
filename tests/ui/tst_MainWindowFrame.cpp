#include "WindowFixture.h"
#include "support/TestMain.h"
#include "ui/LoadingOverlay.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QSplitter>
#include <QTabWidget>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

void cacheFilms(const QString &source)
{
    CatalogCache::save(source, u"live"_s, {});
    CatalogCache::save(source, u"movie"_s,
                       {{}, {entry(1, u"One"_s), entry(1, u"Three"_s), entry(1, u"Two"_s)}});
    CatalogCache::save(source, u"series"_s, {});
}

} // namespace

/// The window's frame: source bar, tabs, splitter and loading overlay.
class tst_MainWindowFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frame();
    void sourceBar();
    void aVeryLongSourceName();
    void tabsAndSplitter();
    void browsePaneTakesAThird();
    void usersWidthsAreKept();
    void autoRefreshRunsEveryHalfHour();
    void overlayCoversTheTabsAtTheFirstLoad();
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

void tst_MainWindowFrame::aVeryLongSourceName()
{
    WindowFixture fixture;
    const QString name = QString(u"A very long <b>name</b> "_s).repeated(50).trimmed();
    WindowFixture::store(playlistSource(name, u"/nowhere"_s));
    CatalogCache::save(name, u"channel"_s, {});
    const MainWindow &window = fixture.open();
    QCOMPARE(window.size(), QSize(1200, 750));
    QVERIFY(window.minimumSizeHint().width() <= 1200);
    auto &combo = fixture.find<QComboBox>(u"sourceCombo"_s);
    QCOMPARE(combo.currentText(), name);
    QVERIFY(combo.width() <= 400);

    // The whole name as it is, in a tool tip.
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), combo.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&combo, &help);
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY(Qt::mightBeRichText(QToolTip::text()));
    QCOMPARE(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), name);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());

    // A name that fits needs none.
    combo.setItemText(0, u"Short"_s);
    QApplication::sendEvent(&combo, &help);
    QVERIFY(!help.isAccepted());
    QVERIFY(!QToolTip::isVisible());
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

void tst_MainWindowFrame::browsePaneTakesAThird()
{
    WindowFixture fixture;
    fixture.open();
    const QList<int> sizes = fixture.find<QSplitter>(u"splitter"_s).sizes();
    const int whole = sizes.at(0) + sizes.at(1);
    // To the pixel but for what is rounded.
    QVERIFY2(qAbs(sizes.at(0) * 3 - whole) <= 3, qPrintable(QString::number(sizes.at(0))));

    // Enough for two columns of posters.
    cacheFilms(u"Films"_s);
    WindowFixture::store(accountSource(u"Films"_s, u"http://127.0.0.1:9"_s));
    fixture.window().loadSource(WindowFixture::stored(u"Films"_s), false);
    fixture.find<QTabWidget>(u"tabs"_s).setCurrentIndex(1);
    auto &grid = fixture.find<QListWidget>(u"moviePosterList"_s);
    fixture.window().selectMovieCategory(fixture.find<QListWidget>(u"movieCategoryList"_s).item(0));
    QTRY_COMPARE(grid.visualItemRect(grid.item(1)).top(), grid.visualItemRect(grid.item(0)).top());
    QVERIFY(grid.visualItemRect(grid.item(1)).left() > grid.visualItemRect(grid.item(0)).left());
}

void tst_MainWindowFrame::usersWidthsAreKept()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    auto &splitter = fixture.find<QSplitter>(u"splitter"_s);
    splitter.setSizes({600, 584});
    const QList<int> chosen = splitter.sizes();
    window.hide();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(splitter.sizes(), chosen);
    WindowFixture::store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {});
    window.loadSource(WindowFixture::stored(u"A"_s), false);
    QCOMPARE(splitter.sizes(), chosen);
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

void tst_MainWindowFrame::overlayCoversTheTabsAtTheFirstLoad()
{
    HttpServer server;
    server.on(u"/list.m3u"_s, heldReply());
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server.url(u"/list.m3u"_s), neverLoaded));
    fixture.open();
    QVERIFY(fixture.overlayShown());
    const auto &tabs = fixture.find<QTabWidget>(u"tabs"_s);
    QTRY_COMPARE(fixture.overlay().geometry(), tabs.rect());
    QVERIFY(tabs.height() > 500);
}

VANTIRO_TEST_MAIN(tst_MainWindowFrame)
#include "tst_MainWindowFrame.moc"
