#include "WindowFixture.h"

#include <QBoxLayout>
#include <QHelpEvent>
#include <QSplitter>
#include <QTextDocumentFragment>
#include <QToolTip>

/// The window's frame: source bar, tabs and splitter.
class tst_MainWindowFrame : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }
    void sourceBar();
    void aVeryLongSourceName();
    void tabsAndSplitter();
    void browsePaneTakesAThirdAtTheStart();
};

void tst_MainWindowFrame::sourceBar()
{
    open();
    const QWidget &bar = find<QWidget>(u"sourceBar"_s);
    QCOMPARE(bar.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(bar.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(combo().minimumWidth(), 220);

    const auto *layout = qobject_cast<QHBoxLayout *>(bar.layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 7);
    QCOMPARE(qobject_cast<QLabel *>(layout->itemAt(0)->widget())->text(), u"Source:"_s);
    QCOMPARE(layout->itemAt(1)->widget(), &combo());
    QCOMPARE(layout->itemAt(2)->widget(), &button(u"Add Source..."_s));
    QCOMPARE(layout->itemAt(3)->widget(), &button(u"Edit Source..."_s));
    QCOMPARE(layout->itemAt(4)->widget(), &button(u"Refresh Playlist"_s));
    QVERIFY(layout->itemAt(5)->spacerItem() != nullptr);
    QCOMPARE(layout->itemAt(6)->widget(), &button(u"More"_s));
}

void tst_MainWindowFrame::aVeryLongSourceName()
{
    const QString name = QString(u"A very long <b>name</b> "_s).repeated(50).trimmed();
    store(playlistSource(name, u"/nowhere"_s));
    cacheOneChannel(name, u"One"_s);
    open();
    QCOMPARE(window().size(), QSize(1200, 750));
    QVERIFY(window().minimumSizeHint().width() <= 1200);
    QCOMPARE(combo().currentText(), name);
    QVERIFY(combo().width() <= 400);

    // The whole name as it is, in a tool tip.
    QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), combo().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&combo(), &help);
    QTRY_VERIFY(QToolTip::isVisible());
    QVERIFY(Qt::mightBeRichText(QToolTip::text()));
    QCOMPARE(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), name);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());

    // A name that fits needs none.
    combo().setItemText(0, u"Short"_s);
    QApplication::sendEvent(&combo(), &help);
    QVERIFY(!help.isAccepted());
    QVERIFY(!QToolTip::isVisible());
}

void tst_MainWindowFrame::tabsAndSplitter()
{
    open();
    QCOMPARE(window().windowTitle(), u"Vantiro Player"_s);
    QVERIFY(window().hasMouseTracking());
    QStringList titles;
    for (int index = 0; index < tabs().count(); ++index) {
        titles << tabs().tabText(index);
    }
    QCOMPARE(titles, (QStringList{u"Live TV"_s, u"Movies"_s, u"TV Shows"_s, u"Channels"_s}));

    auto *layout = qobject_cast<QVBoxLayout *>(window().centralWidget()->layout());
    QCOMPARE(layout->contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), &find<QWidget>(u"sourceBar"_s));
    auto *splitter = qobject_cast<QSplitter *>(layout->itemAt(1)->widget());
    QVERIFY(splitter != nullptr);
    QCOMPARE(layout->stretch(1), 1);
    QCOMPARE(splitter->orientation(), Qt::Horizontal);
    QCOMPARE(splitter->count(), 2);
    QCOMPARE(splitter->widget(0), &tabs());
    auto &panel = find<QWidget>(u"playerPanel"_s);
    QCOMPARE(splitter->widget(1), &panel);
    QCOMPARE(tabs().sizePolicy().horizontalStretch(), 1);
    QCOMPARE(panel.sizePolicy().horizontalStretch(), 2);
}

void tst_MainWindowFrame::browsePaneTakesAThirdAtTheStart()
{
    cacheCatalog(u"Films"_s, madeUpCatalog(u"Some"_s));
    cacheOneChannel(u"A"_s, u"One"_s);
    store(accountSource(u"Films"_s, u"http://127.0.0.1:9"_s));
    open();
    auto &splitter = find<QSplitter>(u"splitter"_s);
    const QList<int> sizes = splitter.sizes();
    const int whole = sizes.at(0) + sizes.at(1);
    // To the pixel but for what is rounded.
    QVERIFY2(qAbs(sizes.at(0) * 3 - whole) <= 3, qPrintable(QString::number(sizes.at(0))));

    // Enough for two columns of posters.
    tabs().setCurrentIndex(1);
    window().selectMovieCategory(find<QListWidget>(u"movieCategoryList"_s).item(0));
    auto &grid = find<QListWidget>(u"moviePosterList"_s);
    QTRY_COMPARE(grid.visualItemRect(grid.item(1)).top(), grid.visualItemRect(grid.item(0)).top());
    QVERIFY(grid.visualItemRect(grid.item(1)).left() > grid.visualItemRect(grid.item(0)).left());

    // The user's widths stay.
    splitter.setSizes({600, 584});
    const QList<int> chosen = splitter.sizes();
    window().hide();
    window().show();
    QVERIFY(QTest::qWaitForWindowActive(&window()));
    window().loadSource(playlistSource(u"A"_s, u"/nowhere"_s), false);
    QCOMPARE(splitter.sizes(), chosen);
}

VANTIRO_TEST_MAIN(tst_MainWindowFrame)
#include "tst_MainWindowFrame.moc"
