#include "SeriesWindow.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

/// The episode page: what it shows, when it asks the provider, and what becomes of the answer.
class tst_MainWindowSeries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void page();
    void treeRows();
    void freshEpisodesNeedNoRequest_data();
    void freshEpisodesNeedNoRequest();
    void fetchedEpisodesAreShownAndCached();
    void openingEmptiesThePage();
    void aReplyAfterGoingBackIsDropped();
    void aReplyAfterASourceSwitchIsDropped();
    void aLateReplyFillsThePageOfAnotherShow();
    void twoLateRepliesShowTheLastOne();
    void aLateReplyIsCachedUnderTheSourceOfItsRequest();
    void aLongNameNeedsNoRoom();
    void aReplyAfterTheWindowIsGone();
    void failuresAreSavedAsNoEpisodes_data();
    void failuresAreSavedAsNoEpisodes();
    void withoutAnAccountNothingOpens();
    void anAccountLoadedEarlierIsEnough();
};

void tst_MainWindowSeries::page()
{
    SeriesWindow series;
    series.open();
    series.show();
    QCOMPARE(series.page(), 2);
    auto &title = series.fixture().find<QLabel>(u"episodeTitleLabel"_s);
    QCOMPARE(title.text(), u"Show"_s);
    QCOMPARE(title.font().weight(), QFont::Bold);
    QVERIFY(series.tree().isHeaderHidden());

    const auto *layout = qobject_cast<QVBoxLayout *>(series.tree().parentWidget()->layout());
    QVERIFY(layout != nullptr);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(1)->widget(), &series.tree());
    QCOMPARE(layout->stretch(1), 1);
    const auto *top = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(top != nullptr);
    QCOMPARE(top->itemAt(0)->widget(), &series.fixture().button(u"< Back to Shows"_s));
    QCOMPARE(top->itemAt(1)->widget(), &title);
    QCOMPARE(top->stretch(0), 0);
    QCOMPARE(top->stretch(1), 1);

    QTest::mouseClick(&series.fixture().button(u"< Back to Shows"_s), Qt::LeftButton);
    QCOMPARE(series.page(), 1);
}

void tst_MainWindowSeries::treeRows()
{
    SeriesWindow series;
    series.open();
    QList<Episode> episodes = mixedSeasons();
    episodes << episode(u"1"_s, 0, 0, {}) << episode(u"2"_s, 2024, 123, u"<b>News</b> %1"_s);
    SeriesWindow::cacheEpisodes(u"9"_s, episodes);
    series.show();
    QCOMPARE(treeTexts(series.tree()),
             (QStringList{u"Season 2"_s, u"  E01 - Return"_s, u"  E02 - End"_s, u"Season 1"_s,
                          u"  E01 - Start"_s, u"  E12 - Pilot"_s, u"Season 0"_s, u"  E00 - "_s,
                          u"Season 2024"_s, u"  E123 - <b>News</b> %1"_s}));
    const QList<QList<int>> indexes{{0, 3}, {1, 2}, {4}, {5}};
    for (int season = 0; season < indexes.size(); ++season) {
        const QTreeWidgetItem &seasonRow = *series.tree().topLevelItem(season);
        QCOMPARE(seasonRow.font(0).weight(), QFont::Bold);
        QCOMPARE(seasonRow.flags(), Qt::ItemFlags(Qt::ItemIsEnabled));
        QVERIFY(!seasonRow.data(0, Qt::UserRole).isValid());
        QVERIFY(seasonRow.isExpanded());
        for (int index = 0; index < seasonRow.childCount(); ++index) {
            const QVariant data = seasonRow.child(index)->data(0, Qt::UserRole);
            QCOMPARE(data.typeId(), int(QMetaType::Int));
            QCOMPARE(data.toInt(), indexes.at(season).at(index));
            QVERIFY(seasonRow.child(index)->flags().testFlag(Qt::ItemIsSelectable));
        }
    }
}

void tst_MainWindowSeries::freshEpisodesNeedNoRequest_data()
{
    QTest::addColumn<qint64>("age");
    QTest::addColumn<bool>("fresh");
    QTest::newRow("saved just now") << qint64(0) << true;
    QTest::newRow("saved a little less than a day ago") << qint64(86400 - 30) << true;
    QTest::newRow("saved a day ago") << qint64(86400) << false;
    QTest::newRow("saved long ago") << qint64(100 * 86400) << false;
    QTest::newRow("saved in the future") << qint64(-5000) << true;
}

void tst_MainWindowSeries::freshEpisodesNeedNoRequest()
{
    QFETCH(qint64, age);
    QFETCH(bool, fresh);
    SeriesWindow series;
    series.open();
    SeriesWindow::cacheEpisodes(u"9"_s, mixedSeasons(), age);
    series.show();
    QCOMPARE(series.tree().topLevelItemCount(), fresh ? 2 : 0);
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), fresh ? 0 : 1);
    QCOMPARE(series.tree().topLevelItem(0)->text(0), fresh ? u"Season 2"_s : u"Season 1"_s);
}

void tst_MainWindowSeries::fetchedEpisodesAreShownAndCached()
{
    SeriesWindow series;
    series.open();
    series.show();
    QCOMPARE(series.tree().topLevelItemCount(), 0);
    QVERIFY(series.settle());
    const HttpRequest request = series.server.requests().constFirst();
    QCOMPARE(request.queryValue(u"action"_s), u"get_series_info"_s);
    QCOMPARE(request.queryValue(u"series_id"_s), u"9"_s);
    QCOMPARE(treeTexts(series.tree()),
             (QStringList{u"Season 1"_s, u"  E02 - Pilot"_s, u"  E03 - Second"_s, u"Season 10"_s,
                          u"  E01 - Third"_s}));
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 3);
    QCOMPARE(cached.at(0), (Episode{u"5"_s, u"Server's name"_s, 1, 2, u"Pilot"_s, u"avi"_s}));

    series.goBack();
    series.show();
    QCOMPARE(series.tree().topLevelItemCount(), 2);
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), 1);
}

void tst_MainWindowSeries::openingEmptiesThePage()
{
    SeriesWindow series;
    series.open();
    SeriesWindow::cacheEpisodes(u"9"_s, mixedSeasons());
    series.show();
    QCOMPARE(series.tree().topLevelItemCount(), 2);
    // The page stays filled until another show is opened.
    series.goBack();
    QCOMPARE(series.tree().topLevelItemCount(), 2);
    series.show(u"8"_s, u"Other"_s);
    QCOMPARE(series.tree().topLevelItemCount(), 0);
    QCOMPARE(series.title(), u"Other"_s);
    QVERIFY(series.settle());
    QCOMPARE(series.tree().topLevelItemCount(), 2);
}

void tst_MainWindowSeries::aReplyAfterGoingBackIsDropped()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    series.goBack();
    series.server.release(SeriesWindow::apiPath());
    QVERIFY(series.settle());
    QCOMPARE(series.tree().topLevelItemCount(), 0);
    QCOMPARE(series.page(), 1);
    QList<Episode> cached;
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));

    series.show();
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), 2);
    QCOMPARE(series.tree().topLevelItemCount(), 2);
}

void tst_MainWindowSeries::aReplyAfterASourceSwitchIsDropped()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    const SourceConfig other = playlistSource(u"B"_s, u"/nowhere"_s);
    CatalogCache::save(u"B"_s, u"channel"_s, {});
    series.window().loadSource(other, false);
    series.server.release(SeriesWindow::apiPath());
    QVERIFY(series.settle());
    QCOMPARE(series.page(), 0);
    QCOMPARE(series.tree().topLevelItemCount(), 0);
    QList<Episode> cached;
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(!CatalogCache::loadEpisodes(u"B"_s, u"9"_s, 60, cached));
}

void tst_MainWindowSeries::aLateReplyFillsThePageOfAnotherShow()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), [](const HttpRequest &request) {
        const bool first = request.queryValue(u"series_id"_s) == "9"_L1;
        HttpReply reply = HttpReply::redirect(first ? u"/slow"_s : u"/silent"_s);
        // Without a pause the client may ask twice.
        reply.delayMs = 20;
        return reply;
    });
    series.server.on(u"/slow"_s, heldReply(seriesInfo()));
    HttpReply silent;
    silent.neverAnswer = true;
    series.server.on(u"/silent"_s, silent);
    series.show();
    series.show(u"8"_s, u"Other"_s);
    QTRY_COMPARE(series.server.requestCount(u"/slow"_s), 1);
    QTRY_COMPARE(series.server.requestCount(u"/silent"_s), 1);
    series.server.release(u"/slow"_s);
    QTRY_COMPARE(series.tree().topLevelItemCount(), 2);
    QCOMPARE(series.title(), u"Other"_s);
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"8"_s, 60, cached));
}

void tst_MainWindowSeries::twoLateRepliesShowTheLastOne()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), [](const HttpRequest &request) {
        HttpReply reply = HttpReply::redirect(u"/held"_s + request.queryValue(u"series_id"_s));
        // Without a pause the client may ask twice.
        reply.delayMs = 20;
        return reply;
    });
    series.server.on(u"/held9"_s, heldReply(seriesInfo()));
    series.server.on(u"/held8"_s,
                     heldReply(R"({"episodes":{"4":[{"id":"80","title":"Only"}]}})"_ba));
    series.show();
    series.show(u"8"_s, u"Other"_s);
    QTRY_COMPARE(series.server.requestCount(u"/held9"_s), 1);
    QTRY_COMPARE(series.server.requestCount(u"/held8"_s), 1);

    series.server.release(u"/held8"_s);
    QTRY_COMPARE(treeTexts(series.tree()), (QStringList{u"Season 4"_s, u"  E00 - Only"_s}));
    series.server.release(u"/held9"_s);
    QVERIFY(series.settle());
    QCOMPARE(treeTexts(series.tree()),
             (QStringList{u"Season 1"_s, u"  E02 - Pilot"_s, u"  E03 - Second"_s, u"Season 10"_s,
                          u"  E01 - Third"_s}));
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 3);
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"8"_s, 60, cached));
    QCOMPARE(cached.size(), 1);
    QCOMPARE(cached.constFirst().id, u"80"_s);
}

void tst_MainWindowSeries::aLateReplyIsCachedUnderTheSourceOfItsRequest()
{
    SeriesWindow series;
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    CatalogCache::save(u"B"_s, u"channel"_s, {});
    CatalogCache::saveEpisodes(u"B"_s, u"8"_s, {});
    series.window().loadSource(playlistSource(u"B"_s, u"/nowhere"_s), false);
    // The page of another show is open when the reply comes.
    series.show(u"8"_s, u"Other"_s);
    series.server.release(SeriesWindow::apiPath());
    QVERIFY(series.settle());
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QCOMPARE(cached.size(), 3);
    QVERIFY(!CatalogCache::loadEpisodes(u"B"_s, u"9"_s, 60, cached));
}

void tst_MainWindowSeries::aLongNameNeedsNoRoom()
{
    SeriesWindow series;
    SeriesWindow::cacheEpisodes(u"9"_s, {});
    series.open();
    series.show();
    series.show(u"9"_s, QString(5000, u'x'));
    QCOMPARE(series.title().size(), 5000);
    const auto &title = series.fixture().find<QLabel>(u"episodeTitleLabel"_s);
    QCOMPARE(title.minimumSizeHint().width(), 0);
}

void tst_MainWindowSeries::failuresAreSavedAsNoEpisodes_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("the server refuses") << 503 << QByteArray();
    QTest::newRow("a login page") << 200 << "<html></html>"_ba;
    QTest::newRow("a show without episodes") << 200 << "{\"episodes\":[]}"_ba;
}

void tst_MainWindowSeries::failuresAreSavedAsNoEpisodes()
{
    QFETCH(int, status);
    QFETCH(QByteArray, body);
    SeriesWindow series;
    series.open();
    HttpReply reply = statusReply(status);
    reply.body = body;
    series.server.on(SeriesWindow::apiPath(), reply);
    series.show();
    QVERIFY(series.settle());
    QCOMPARE(series.tree().topLevelItemCount(), 0);
    QCOMPARE(series.page(), 2);
    QList<Episode> cached{episode(u"1"_s, 1, 1, {})};
    QVERIFY(CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
    QVERIFY(cached.isEmpty());
    QVERIFY(series.fixture().dialogs.seen().isEmpty());
    series.show();
    QVERIFY(series.settle());
    QCOMPARE(series.apiRequests(), 1);
}

void tst_MainWindowSeries::aReplyAfterTheWindowIsGone()
{
    SeriesWindow series;
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.open();
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    // A new window takes the place of the one that asked.
    series.open();
    series.server.release(SeriesWindow::apiPath());
    QTRY_COMPARE(series.server.openConnections(), 0);
    QList<Episode> cached;
    QVERIFY(!CatalogCache::loadEpisodes(u"A"_s, u"9"_s, 60, cached));
}

void tst_MainWindowSeries::withoutAnAccountNothingOpens()
{
    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"P"_s, u"/nowhere"_s));
    CatalogCache::save(u"P"_s, u"channel"_s, {});
    CatalogCache::saveEpisodes(u"P"_s, u"9"_s, mixedSeasons());
    fixture.open();
    fixture.window().showEpisodesInline(u"9"_s, u"Show"_s);
    QCOMPARE(fixture.find<QStackedWidget>(u"seriesStack"_s).currentIndex(), 0);
    QCOMPARE(fixture.find<QTreeWidget>(u"episodeTree"_s).topLevelItemCount(), 0);
    QCOMPARE(fixture.find<QLabel>(u"episodeTitleLabel"_s).text(), QString());
}

void tst_MainWindowSeries::anAccountLoadedEarlierIsEnough()
{
    SeriesWindow series;
    series.open();
    CatalogCache::save(u"P"_s, u"channel"_s, {});
    series.window().loadSource(playlistSource(u"P"_s, u"/nowhere"_s), false);
    QCOMPARE(series.page(), 0);
    series.show();
    QCOMPARE(series.page(), 2);
    QVERIFY(series.settle());
    QCOMPARE(series.tree().topLevelItemCount(), 2);
    // The cache of the active source takes them.
    QList<Episode> cached;
    QVERIFY(CatalogCache::loadEpisodes(u"P"_s, u"9"_s, 60, cached));
}

VANTIRO_TEST_MAIN(tst_MainWindowSeries)
#include "tst_MainWindowSeries.moc"
