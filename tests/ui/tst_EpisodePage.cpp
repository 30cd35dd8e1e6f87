#include "RowMenus.h"
#include "support/TestMain.h"
#include "ui/EpisodeDelegate.h"
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

const QList<Episode> twoSeasons{episode(2, 1, u"Return"_s), episode(1, 1, u"Start"_s),
                                episode(1, 12, u"Pilot"_s), episode(2, 2, u"End"_s)};

/// Two episodes of season 1, "a" and "b", and one of season 2, "c".
const QList<Episode> threeEpisodes{{u"a"_s, {}, 1, 1, u"One"_s, {}},
                                   {u"b"_s, {}, 1, 2, u"Two"_s, {}},
                                   {u"c"_s, {}, 2, 1, u"Three"_s, {}}};

Progress watchedEpisode()
{
    Progress row;
    row.watched = true;
    return row;
}

Progress leftEpisode(qint64 percent)
{
    Progress row;
    row.positionMs = percent * 1000;
    row.durationMs = 100'000;
    return row;
}

} // namespace

class tst_EpisodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void widgets();
    void treeRows();
    void episodesAreChosen();
    void marks();
    void menus_data();
    void menus();
    void noMenuWithoutARow();

private:
    QTreeWidget &tree() const { return *page->findChild<QTreeWidget *>(u"episodeTree"_s); }
    QLabel &title() const { return *page->findChild<QLabel *>(u"episodeTitleLabel"_s); }

    std::unique_ptr<EpisodePage> page; ///< of "Show" with twoSeasons
};

void tst_EpisodePage::init()
{
    page = std::make_unique<EpisodePage>();
    page->open(u"Show"_s);
    page->showEpisodes(u"S"_s, u"9"_s, twoSeasons, account);
}

void tst_EpisodePage::widgets()
{
    QCOMPARE(title().text(), u"Show"_s);
    QCOMPARE(title().font().weight(), QFont::Bold);
    QVERIFY(tree().isHeaderHidden());
    const auto *layout = qobject_cast<QVBoxLayout *>(page->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(1)->widget(), &tree());
    QCOMPARE(layout->stretch(1), 1);
    const auto *top = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(top != nullptr);
    auto *back = qobject_cast<QPushButton *>(top->itemAt(0)->widget());
    QCOMPARE(back->text(), u"< Back to Shows"_s);
    QCOMPARE(top->itemAt(1)->widget(), &title());
    QCOMPARE(top->stretch(0), 0);
    QCOMPARE(top->stretch(1), 1);

    const QSignalSpy backRequests(page.get(), &EpisodePage::backRequested);
    QTest::mouseClick(back, Qt::LeftButton);
    QCOMPARE(backRequests.count(), 1);
    QCOMPARE(page->currentShow(), (LibraryEntry{u"S"_s, EntryKind::Show, u"9"_s, u"Show"_s, {}}));
    QCOMPARE(page->account().server, account.server);

    // Another show, without episodes as yet.
    const QString longName(5000, u'x');
    page->open(longName);
    QCOMPARE(title().text(), longName);
    QCOMPARE(title().minimumSizeHint().width(), 0);
    QCOMPARE(page->currentShow(), (LibraryEntry{{}, EntryKind::Show, {}, longName, {}}));
    QVERIFY(page->episodes().isEmpty());
    QCOMPARE(tree().topLevelItemCount(), 0);
}

void tst_EpisodePage::treeRows()
{
    page->showEpisodes(
        u"S"_s, u"9"_s,
        QList(twoSeasons) << episode(0, 0, {}) << episode(2024, 123, u"<b>News</b> %1"_s), account);
    QStringList texts;
    for (int top = 0; top < tree().topLevelItemCount(); ++top) {
        const QTreeWidgetItem &season = *tree().topLevelItem(top);
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

void tst_EpisodePage::episodesAreChosen()
{
    page->resize(400, 400);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
    QList<int> chosen;
    connect(page.get(), &EpisodePage::episodeChosen, this, [&](int index) { chosen << index; });
    const auto click = [this](const QTreeWidgetItem *row) {
        const QPoint place = tree().visualItemRect(row).center();
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, place);
    };
    const auto press = [this](Qt::Key key, QTreeWidgetItem *row) {
        tree().setFocus();
        tree().setCurrentItem(row);
        QTest::keyClick(&tree(), key);
    };
    const QTreeWidgetItem *season = tree().topLevelItem(0);
    click(season);
    press(Qt::Key_Return, nullptr);
    for (const int index : {-1, 4, 100000}) {
        QTreeWidgetItem stray;
        stray.setData(0, Qt::UserRole, index);
        page->playEpisodeTreeItem(&stray);
    }
    QCOMPARE(chosen, QList<int>());
    click(season->child(1));
    press(Qt::Key_Return, season->child(0));
    press(Qt::Key_Enter, season->child(1));
    QCOMPARE(chosen, (QList<int>{3, 0, 3}));

    // Other keys, and keys for another widget, choose nothing.
    press(Qt::Key_A, season->child(0));
    auto &back = *page->findChild<QPushButton *>();
    back.setFocus();
    QTest::keyClick(&back, Qt::Key_Return);
    QCOMPARE(chosen.size(), 3);
}

void tst_EpisodePage::marks()
{
    page->resize(400, 400);
    page->showEpisodes(u"S"_s, u"9"_s, threeEpisodes, account);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
    const auto pictures = [this] {
        QList<QImage> rows;
        for (const auto &[season, row] : {std::pair(0, 0), std::pair(0, 1), std::pair(1, 0)}) {
            const QRect place = tree().visualItemRect(tree().topLevelItem(season)->child(row));
            rows << tree().viewport()->grab(place).toImage();
        }
        return rows;
    };
    const auto said = [this](int season, int row) {
        const QAbstractItemModel &model = *tree().model();
        return model.index(row, 0, model.index(season, 0)).data(Qt::AccessibleDescriptionRole);
    };
    const QList<QImage> plain = pictures();
    page->showProgress({});
    QCOMPARE(pictures(), plain);
    QVERIFY(!said(0, 0).isValid());

    page->showProgress({{u"a"_s, watchedEpisode()}, {u"b"_s, leftEpisode(40)}});
    const QList<QImage> marked = pictures();
    QVERIFY(marked[0] != plain[0]);
    QVERIFY(marked[1] != plain[1]);
    QVERIFY(marked[1] != marked[0]);
    QCOMPARE(marked[2], plain[2]);
    QCOMPARE(said(0, 0), QVariant(u"Watched"_s));
    QCOMPARE(said(0, 1), QVariant(u"40 % watched"_s));
    QVERIFY(!said(1, 0).isValid());

    page->showProgress({});
    QCOMPARE(pictures(), plain);
    QVERIFY(!said(0, 0).isValid());
}

void tst_EpisodePage::menus_data()
{
    QTest::addColumn<int>("season");
    QTest::addColumn<int>("row"); ///< -1 for the season's own
    QTest::addColumn<LibraryList<Progress>>("progress");
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("episodes"); ///< that the actions mark
    const QString watch = u"Mark as Watched"_s;
    const QString unwatch = u"Mark as Unwatched"_s;
    const LibraryList<Progress> none;
    const LibraryList<Progress> first{{u"a"_s, watchedEpisode()}};
    const LibraryList<Progress> both{{u"a"_s, watchedEpisode()}, {u"b"_s, watchedEpisode()}};
    const LibraryList<Progress> left{{u"b"_s, leftEpisode(40)}};
    QTest::newRow("an episode") << 0 << 0 << none << QStringList{watch} << u"a"_s;
    QTest::newRow("a watched episode") << 0 << 0 << first << QStringList{unwatch} << u"a"_s;
    QTest::newRow("an episode that was left")
        << 0 << 1 << left << QStringList{watch, unwatch} << u"b"_s;
    QTest::newRow("the last episode") << 1 << 0 << none << QStringList{watch} << u"c, the last"_s;
    QTest::newRow("a season") << 0 << -1 << none << QStringList{watch} << u"a b"_s;
    QTest::newRow("a season that was begun")
        << 0 << -1 << first << QStringList{watch, unwatch} << u"a b"_s;
    QTest::newRow("a watched season") << 0 << -1 << both << QStringList{unwatch} << u"a b"_s;
}

void tst_EpisodePage::menus()
{
    QFETCH(const int, season);
    QFETCH(const int, row);
    QFETCH(const LibraryList<Progress>, progress);
    QFETCH(const QStringList, texts);
    QFETCH(const QString, episodes);
    page->showEpisodes(u"S"_s, u"9"_s, threeEpisodes, account);
    page->showProgress(progress);
    page->show();
    QTreeWidgetItem *item = tree().topLevelItem(season);
    tree().setCurrentItem(row < 0 ? item : item->child(row));
    QStringList marked;
    bool asWatched = false;
    connect(page.get(), &EpisodePage::markRequested, this,
            [&](const QList<Progress> &requested, bool watched) {
                for (const Progress &episode : requested) {
                    QCOMPARE(episode.showId, u"9"_s);
                    marked << episode.id + (episode.isLast ? u", the last"_s : QString());
                }
                asWatched = watched;
            });
    for (const QString &text : texts) {
        QMenu *menu = RowMenus::openByKey(tree());
        QCOMPARE(RowMenus::texts(menu), texts);
        marked.clear();
        QVERIFY(RowMenus::choose(menu, text));
        QCOMPARE(marked.join(u' '), episodes);
        QCOMPARE(asWatched, text == u"Mark as Watched"_s);
    }
}

void tst_EpisodePage::noMenuWithoutARow()
{
    page->resize(400, 400);
    page->show();
    QVERIFY(QTest::qWaitForWindowActive(page.get()));
    tree().setCurrentItem(nullptr);
    QVERIFY(RowMenus::openByKey(tree()) == nullptr);
    QVERIFY(RowMenus::openByMouse(tree(), -1) == nullptr);
    QVERIFY(RowMenus::openByMouse(tree(), 0) != nullptr);
}

VANTIRO_TEST_MAIN(tst_EpisodePage)
#include "tst_EpisodePage.moc"
