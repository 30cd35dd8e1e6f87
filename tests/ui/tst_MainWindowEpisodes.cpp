// Playing the episodes of a show: from its page, one after the other, and what ends the show.

#include "SeriesWindow.h"
#include "player/VlcPlayer.h"
#include "support/TestMain.h"
#include "ui/MainWindow.h"

#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class tst_MainWindowEpisodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nextEpisodeWalksToTheEnd();
    void nextEpisodeFollowsThePlayingShow();
    void nextEpisodeStaysWithItsAccount_data();
    void nextEpisodeStaysWithItsAccount();
    void playingFromAnotherTabEndsTheShow_data();
    void playingFromAnotherTabEndsTheShow();
};

void tst_MainWindowEpisodes::nextEpisodeWalksToTheEnd()
{
    SeriesWindow series;
    series.openEpisodes();
    series.window().playNextEpisode();
    QCOMPARE(series.playingText(), u"Nothing playing"_s);
    QVERIFY(!series.nextButton().isVisible());

    series.choose(0, 0);
    QCOMPARE(series.page(), 2);
    const QTreeWidgetItem *current = series.tree().currentItem();
    const QList<std::pair<QString, QString>> episodes{
        {u"S02E01 - Return"_s, u"/series/u/p/21.mkv"_s},
        {u"S01E01 - Start"_s, u"/series/u/p/11.mp4"_s},
        {u"S01E12 - Pilot"_s, u"/series/u/p/12.mp4"_s},
        {u"S02E02 - End"_s, u"/series/u/p/22.mp4"_s}};
    for (const auto &[name, path] : episodes) {
        QCOMPARE(series.playingText(), u"Playing: Show - "_s + name);
        QTRY_COMPARE(series.server.requestCount(path), 1);
        QVERIFY(series.nextButton().isVisible());
        QCOMPARE(series.nextButton().isEnabled(), name != episodes.last().first);
        QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    }
    const QSignalSpy playing(&series.player(), &VlcPlayer::playing);
    series.window().playNextEpisode();
    QCOMPARE(playing.count(), 0);
    QCOMPARE(series.tree().currentItem(), current);
    // The show stays: it continues from its page.
    series.choose(1, 1);
    QVERIFY(series.nextButton().isEnabled());
}

void tst_MainWindowEpisodes::nextEpisodeFollowsThePlayingShow()
{
    SeriesWindow series;
    SeriesWindow::cacheEpisodes(
        u"8"_s, {episode(u"81"_s, 1, 1, u"One"_s), episode(u"82"_s, 1, 2, u"Two"_s)});
    series.openEpisodes();
    series.choose(0, 0);
    // Looking at another show changes nothing for the one that plays.
    series.show(u"8"_s, u"Other"_s);
    QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    QCOMPARE(series.playingText(), u"Playing: Show - S01E01 - Start"_s);

    series.choose(0, 0);
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
    SeriesWindow::cacheEmptyCatalog(u"B"_s);
    series.openEpisodes();
    series.choose(0, 0);
    series.window().loadSource(next, false);
    QTest::mouseClick(&series.nextButton(), Qt::LeftButton);
    QCOMPARE(series.playingText(), u"Playing: Show - S01E01 - Start"_s);
    QTRY_VERIFY(series.server.requestCount(u"/series/u/p/11.mp4"_s) > 0);
    if (!playlist) {
        // A show of the new account plays from there.
        CatalogCache::saveEpisodes(u"B"_s, u"9"_s, mixedSeasons());
        series.show();
        series.choose(0, 0);
        QTRY_VERIFY(other.requestCount(u"/series/someone/else/21.mkv"_s) > 0);
    }
}

void tst_MainWindowEpisodes::playingFromAnotherTabEndsTheShow_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a channel") << u"Channel"_s;
    QTest::newRow("a film") << u"Film"_s;
    QTest::newRow("a channel of a playlist") << u"List channel"_s;
}

void tst_MainWindowEpisodes::playingFromAnotherTabEndsTheShow()
{
    QFETCH(QString, name);
    SeriesWindow series;
    series.openEpisodes();
    series.choose(0, 0);
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
    series.choose(0, 1);
    QCOMPARE(series.playingText(), u"Playing: Show - S02E02 - End"_s);
    QVERIFY(series.nextButton().isVisible());
    QVERIFY(!series.nextButton().isEnabled());
}

VANTIRO_TEST_MAIN(tst_MainWindowEpisodes)
#include "tst_MainWindowEpisodes.moc"
