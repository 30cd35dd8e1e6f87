#include "support/TestMain.h"
#include "ui/EpisodePage.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

const XtreamAccount account{u"http://127.0.0.1"_s, u"u"_s, u"p"_s};

Episode episode(qint32 season, qint32 number, const QString &title)
{
    return {u"1"_s, u"Show"_s, season, number, title, {}};
}

/// The page of a show of two seasons, on screen.
struct Page
{
    Page()
    {
        page.open(u"Show"_s);
        page.showEpisodes({episode(2, 1, u"Return"_s), episode(1, 1, u"Start"_s),
                           episode(1, 12, u"Pilot"_s), episode(2, 2, u"End"_s)},
                          account);
        QObject::connect(&page, &EpisodePage::episodeChosen, &page,
                         [this](int index) { chosen << index; });
        page.resize(400, 400);
        page.show();
        if (!QTest::qWaitForWindowActive(&page)) {
            qFatal("the page does not become active");
        }
    }

    EpisodePage page;
    QTreeWidget &tree = *page.findChild<QTreeWidget *>(u"episodeTree"_s);
    QLabel &title = *page.findChild<QLabel *>(u"episodeTitleLabel"_s);
    QList<int> chosen; ///< the indexes reported so far
};

} // namespace

class tst_EpisodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void widgets();
    void treeRows();
    void openingShowsAnEmptyTree();
    void episodesAreChosen();
};

void tst_EpisodePage::widgets()
{
    Page page;
    QCOMPARE(page.title.text(), u"Show"_s);
    QCOMPARE(page.title.font().weight(), QFont::Bold);
    QVERIFY(page.tree.isHeaderHidden());
    const auto *layout = qobject_cast<QVBoxLayout *>(page.page.layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(1)->widget(), &page.tree);
    QCOMPARE(layout->stretch(1), 1);
    const auto *top = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(top != nullptr);
    auto *back = qobject_cast<QPushButton *>(top->itemAt(0)->widget());
    QCOMPARE(back->text(), u"< Back to Shows"_s);
    QCOMPARE(top->itemAt(1)->widget(), &page.title);
    QCOMPARE(top->stretch(0), 0);
    QCOMPARE(top->stretch(1), 1);

    const QSignalSpy backRequests(&page.page, &EpisodePage::backRequested);
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(backRequests.count(), 1);
    page.page.open(QString(5000, u'x'));
    QCOMPARE(page.title.text().size(), 5000);
    QCOMPARE(page.title.minimumSizeHint().width(), 0);
}

void tst_EpisodePage::treeRows()
{
    Page page;
    QList<Episode> episodes = page.page.episodes();
    episodes << episode(0, 0, {}) << episode(2024, 123, u"<b>News</b> %1"_s);
    page.page.showEpisodes(episodes, account);
    QStringList texts;
    for (int top = 0; top < page.tree.topLevelItemCount(); ++top) {
        const QTreeWidgetItem &season = *page.tree.topLevelItem(top);
        texts << season.text(0);
        QCOMPARE(season.font(0).weight(), QFont::Bold);
        QCOMPARE(season.flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
        QVERIFY(!season.data(0, Qt::UserRole).isValid());
        QVERIFY(season.isExpanded());
        for (int index = 0; index < season.childCount(); ++index) {
            const QTreeWidgetItem &row = *season.child(index);
            QCOMPARE(row.data(0, Qt::UserRole).typeId(), int(QMetaType::Int));
            QVERIFY(row.flags().testFlag(Qt::ItemIsSelectable));
            texts << row.data(0, Qt::UserRole).toString() + u": "_s + row.text(0);
        }
    }
    QCOMPARE(texts,
             (QStringList{u"Season 2"_s, u"0: E01 - Return"_s, u"3: E02 - End"_s, u"Season 1"_s,
                          u"1: E01 - Start"_s, u"2: E12 - Pilot"_s, u"Season 0"_s, u"4: E00 - "_s,
                          u"Season 2024"_s, u"5: E123 - <b>News</b> %1"_s}));
}

void tst_EpisodePage::openingShowsAnEmptyTree()
{
    Page page;
    QCOMPARE(page.page.seriesName(), u"Show"_s);
    QCOMPARE(page.page.account().server, account.server);
    page.page.open(u"Other"_s);
    QCOMPARE(page.page.seriesName(), u"Other"_s);
    QCOMPARE(page.title.text(), u"Other"_s);
    QVERIFY(page.page.episodes().isEmpty());
    QCOMPARE(page.tree.topLevelItemCount(), 0);
}

void tst_EpisodePage::episodesAreChosen()
{
    Page page;
    const auto click = [&page](const QTreeWidgetItem *row) {
        const QPoint place = page.tree.visualItemRect(row).center();
        QTest::mouseClick(page.tree.viewport(), Qt::LeftButton, {}, place);
    };
    const auto press = [&page](Qt::Key key, QTreeWidgetItem *row) {
        page.tree.setFocus();
        page.tree.setCurrentItem(row);
        QTest::keyClick(&page.tree, key);
    };
    const QTreeWidgetItem *season = page.tree.topLevelItem(0);
    click(season);
    press(Qt::Key_Return, nullptr);
    page.page.playEpisodeTreeItem(nullptr);
    page.page.playEpisodeTreeItem(season);
    for (const int index : {-1, 4, 100000}) {
        QTreeWidgetItem stray;
        stray.setData(0, Qt::UserRole, index);
        page.page.playEpisodeTreeItem(&stray);
    }
    QCOMPARE(page.chosen, QList<int>());
    click(season->child(1));
    press(Qt::Key_Return, season->child(0));
    press(Qt::Key_Enter, season->child(1));
    QCOMPARE(page.chosen, (QList<int>{3, 0, 3}));
}

VANTIRO_TEST_MAIN(tst_EpisodePage)
#include "tst_EpisodePage.moc"
