#include "SeriesWindow.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/EpisodePage.h"
#include "ui/MainWindow.h"

#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

/// Playing episodes: from the tree, one after the other, and what ends a series.
class tst_MainWindowEpisodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickPlaysAnEpisode();
    void aClickOnASeasonPlaysNothing();
    void returnAndEnterPlayTheCurrentRow();
    void rowsOfNoEpisodePlayNothing();
    void streamsComeFromTheAccount_data();
    void streamsComeFromTheAccount();
    void nextEpisodeWalksToTheEnd();
    void nextEpisodeBeforeAnyEpisodeDoesNothing();
    void nextEpisodeFollowsThePlayingShow();
    void nextEpisodeStaysWithItsAccount_data();
    void nextEpisodeStaysWithItsAccount();
    void aLateShowPlaysFromTheAccountThatWasAsked();
    void playingFromAnotherTabEndsTheSeries_data();
    void playingFromAnotherTabEndsTheSeries();
};

void tst_MainWindowEpisodes::aClickPlaysAnEpisode()
{
    SeriesWindow series;
    SeriesWindow::cacheEpisodes(u"9"_s, mixedSeasons());
    series.open();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    series.show();
    QCOMPARE(playing.count(), 0);
    QVERIFY(!series.nextButton().isVisible());

    series.click(series.episodeRow(1, 1));
    QCOMPARE(playing.count(), 1);
    QCOMPARE(series.playingText(), u"Playing: Show - S01E12 - Pilot"_s);
    QTRY_COMPARE(series.server.requestCount(u"/series/u/p/12.mp4"_s), 1);
    QVERIFY(series.nextButton().isVisible());
    QVERIFY(series.nextButton().isEnabled());
    QCOMPARE(series.page(), 2);
}

void tst_MainWindowEpisodes::aClickOnASeasonPlaysNothing()
{
    SeriesWindow series;
    series.openEpisodes();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    series.click(series.tree().topLevelItem(0));
    series.episodePage().playEpisodeTreeItem(series.tree().topLevelItem(1));
    QCOMPARE(playing.count(), 0);
    QCOMPARE(series.playingText(), u"Nothing playing"_s);
}

void tst_MainWindowEpisodes::returnAndEnterPlayTheCurrentRow()
{
    SeriesWindow series;
    series.openEpisodes();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    const auto press = [&series](Qt::Key key, QTreeWidgetItem *row) {
        series.tree().setFocus();
        series.tree().setCurrentItem(row);
        QTest::keyClick(&series.tree(), key);
    };
    press(Qt::Key_Return, nullptr);
    QCOMPARE(playing.count(), 0);
    press(Qt::Key_Return, series.episodeRow(0, 0));
    QCOMPARE(playing.count(), 1);
    QCOMPARE(series.playingText(), u"Playing: Show - S02E01 - Return"_s);
    press(Qt::Key_Enter, series.episodeRow(0, 1));
    QCOMPARE(playing.count(), 2);
    QCOMPARE(series.playingText(), u"Playing: Show - S02E02 - End"_s);
}

void tst_MainWindowEpisodes::rowsOfNoEpisodePlayNothing()
{
    SeriesWindow series;
    series.openEpisodes();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    series.episodePage().playEpisodeTreeItem(nullptr);
    for (const int index : {-1, 4, 100000}) {
        QTreeWidgetItem stray;
        stray.setData(0, Qt::UserRole, index);
        series.episodePage().playEpisodeTreeItem(&stray);
    }
    QCOMPARE(playing.count(), 0);
    // A row that is left over from a longer list.
    QTreeWidgetItem stray;
    stray.setData(0, Qt::UserRole, 3);
    SeriesWindow::cacheEpisodes(u"8"_s, {episode(u"1"_s, 1, 1, u"Only"_s)});
    series.show(u"8"_s, u"Other"_s);
    series.episodePage().playEpisodeTreeItem(&stray);
    QCOMPARE(playing.count(), 0);
}

void tst_MainWindowEpisodes::streamsComeFromTheAccount_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("path");
    QTest::newRow("in their own format") << u"77"_s << u"mkv"_s << u"/series/u/p/77.mkv"_s;
    QTest::newRow("as mp4 without a format") << u"77"_s << QString() << u"/series/u/p/77.mp4"_s;
}

void tst_MainWindowEpisodes::streamsComeFromTheAccount()
{
    QFETCH(QString, id);
    QFETCH(QString, extension);
    QFETCH(QString, path);
    SeriesWindow series;
    SeriesWindow::cacheEpisodes(u"9"_s, {episode(id, 1, 1, u"Only"_s, extension)});
    series.open();
    series.show();
    series.click(series.episodeRow(0, 0));
    QTRY_VERIFY(series.server.requestCount(path) > 0);
    // The only one is the last one.
    QVERIFY(series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
}

void tst_MainWindowEpisodes::nextEpisodeWalksToTheEnd()
{
    SeriesWindow series;
    series.openEpisodes();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    series.click(series.episodeRow(0, 0));
    const QTreeWidgetItem *current = series.tree().currentItem();

    int plays = 1;
    for (const QString &name : {u"S01E01 - Start"_s, u"S01E12 - Pilot"_s, u"S02E02 - End"_s}) {
        QVERIFY(series.nextButton().isEnabled());
        QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
        QCOMPARE(playing.count(), ++plays);
        QCOMPARE(series.playingText(), u"Playing: Show - "_s + name);
    }
    QTRY_VERIFY(series.server.requestCount(u"/series/u/p/22.mp4"_s) > 0);
    QCOMPARE(series.tree().currentItem(), current);

    QVERIFY(series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
    series.window().playNextEpisode();
    QCOMPARE(playing.count(), plays);
    // The series stays: from the tree it goes on.
    series.click(series.episodeRow(1, 1));
    QVERIFY(series.nextButton().isEnabled());
}

void tst_MainWindowEpisodes::nextEpisodeBeforeAnyEpisodeDoesNothing()
{
    SeriesWindow series;
    series.openEpisodes();
    const QSignalSpy playing(&series.fixture().player(), &VlcPlayer::playing);
    series.window().playNextEpisode();
    series.window().updateNextEpisodeButton();
    QCOMPARE(playing.count(), 0);
    QVERIFY(!series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
}

void tst_MainWindowEpisodes::nextEpisodeFollowsThePlayingShow()
{
    SeriesWindow series;
    SeriesWindow::cacheEpisodes(u"9"_s, mixedSeasons());
    SeriesWindow::cacheEpisodes(
        u"8"_s, {episode(u"81"_s, 1, 1, u"One"_s), episode(u"82"_s, 1, 2, u"Two"_s)});
    series.open();
    series.show();
    series.click(series.episodeRow(0, 0));
    // Looking at another show changes nothing for the one that plays.
    series.show(u"8"_s, u"Other"_s);
    QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    QCOMPARE(series.playingText(), u"Playing: Show - S01E01 - Start"_s);

    series.click(series.episodeRow(0, 0));
    QCOMPARE(series.playingText(), u"Playing: Other - S01E01 - One"_s);
    QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    QCOMPARE(series.playingText(), u"Playing: Other - S01E02 - Two"_s);
}

void tst_MainWindowEpisodes::nextEpisodeStaysWithItsAccount_data()
{
    QTest::addColumn<bool>("playlist");
    QTest::newRow("after a switch to another account") << false;
    QTest::newRow("after a switch to a playlist") << true;
}

void tst_MainWindowEpisodes::nextEpisodeStaysWithItsAccount()
{
    QFETCH(bool, playlist);
    HttpServer other;
    SourceConfig next =
        playlist ? playlistSource(u"B"_s, u"/nowhere"_s) : accountSource(u"B"_s, other.url());
    next.username = u"someone"_s;
    next.password = u"else"_s;
    SeriesWindow series;
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s, u"channel"_s}) {
        CatalogCache::save(u"B"_s, section, {});
    }
    series.openEpisodes();
    series.click(series.episodeRow(0, 0));
    series.window().loadSource(next, false);
    QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    QCOMPARE(series.playingText(), u"Playing: Show - S01E01 - Start"_s);
    QTRY_VERIFY(series.server.requestCount(u"/series/u/p/11.mp4"_s) > 0);
    if (playlist) {
        return;
    }

    // A show of the new account plays from there.
    CatalogCache::saveEpisodes(u"B"_s, u"9"_s, mixedSeasons());
    series.show();
    series.episodePage().playEpisodeTreeItem(series.episodeRow(0, 0));
    QTRY_VERIFY(other.requestCount(u"/series/someone/else/21.mkv"_s) > 0);
}

void tst_MainWindowEpisodes::aLateShowPlaysFromTheAccountThatWasAsked()
{
    HttpServer other;
    SeriesWindow series;
    for (const QString &section : {u"live"_s, u"movie"_s, u"series"_s}) {
        CatalogCache::save(u"B"_s, section, {});
    }
    CatalogCache::saveEpisodes(u"B"_s, u"8"_s, {});
    series.open();
    series.server.on(SeriesWindow::apiPath(), heldReply(seriesInfo()));
    series.show();
    QTRY_COMPARE(series.apiRequests(), 1);
    series.window().loadSource(accountSource(u"B"_s, other.url()), false);
    series.show(u"8"_s, u"Other"_s);
    series.server.release(SeriesWindow::apiPath());
    QTRY_COMPARE(series.tree().topLevelItemCount(), 2);
    series.episodePage().playEpisodeTreeItem(series.episodeRow(0, 0));
    QTRY_VERIFY(series.server.requestCount(u"/series/u/p/5.avi"_s) > 0);
}

void tst_MainWindowEpisodes::playingFromAnotherTabEndsTheSeries_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a channel") << u"Channel"_s;
    QTest::newRow("a film") << u"Film"_s;
    QTest::newRow("a channel of a playlist") << u"List channel"_s;
}

void tst_MainWindowEpisodes::playingFromAnotherTabEndsTheSeries()
{
    QFETCH(QString, name);
    SeriesWindow series;
    series.openEpisodes();
    series.click(series.episodeRow(0, 0));
    QVERIFY(series.nextButton().isEnabled());
    if (name == "Film"_L1) {
        series.window().playMovieRow(0, 0);
    } else if (name == "Channel"_L1) {
        series.window().playLiveRow(0, 0);
    } else {
        CatalogCache::save(u"P"_s, u"channel"_s,
                           {{}, {channel(name, series.server.url(u"/list.mp3"_s), {})}});
        series.window().loadSource(playlistSource(u"P"_s, u"/nowhere"_s), false);
        series.window().playChannelRow(0, 0);
    }
    const QString text = u"Playing: "_s + name;
    QCOMPARE(series.playingText(), text);
    QVERIFY(!series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
    series.window().playNextEpisode();
    QCOMPARE(series.playingText(), text);
    // The page is still there to play from.
    series.episodePage().playEpisodeTreeItem(series.episodeRow(0, 1));
    QCOMPARE(series.playingText(), u"Playing: Show - S02E02 - End"_s);
    QVERIFY(series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
}

VANTIRO_TEST_MAIN(tst_MainWindowEpisodes)
#include "tst_MainWindowEpisodes.moc"
