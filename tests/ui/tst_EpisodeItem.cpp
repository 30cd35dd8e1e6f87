#include "support/TestMain.h"
#include "ui/EpisodeItem.h"

using namespace Qt::StringLiterals;

class tst_EpisodeItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void name_data();
    void name();
    void carriesIdAndFormatAndNothingElse();
};

void tst_EpisodeItem::name_data()
{
    QTest::addColumn<QString>("show");
    QTest::addColumn<qint32>("season");
    QTest::addColumn<qint32>("number");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char *name, const QString &show, qint32 season, qint32 number,
                        const QString &title, const QString &expected) {
        QTest::newRow(name) << show << season << number << title << expected;
    };
    row("one digit is padded", u"Example"_s, 1, 2, u"Pilot"_s, u"Example - S01E02 - Pilot"_s);
    row("zero is padded", u"Example"_s, 0, 0, u"Trailer"_s, u"Example - S00E00 - Trailer"_s);
    row("two digits stay", u"Example"_s, 10, 99, u"End"_s, u"Example - S10E99 - End"_s);
    row("more digits are not cut", u"Daily"_s, 2024, 1234, u"News"_s,
        u"Daily - S2024E1234 - News"_s);
    row("an empty title leaves its place empty", u"Example"_s, 1, 1, {}, u"Example - S01E01 - "_s);
    row("an empty show leaves its place empty", {}, 1, 1, u"Pilot"_s, u" - S01E01 - Pilot"_s);
    row("place marks in the show's name stay", u"%1 and %4"_s, 1, 2, u"Pilot"_s,
        u"%1 and %4 - S01E02 - Pilot"_s);
    row("place marks in the title stay", u"Example"_s, 1, 2, u"100%2 of %3"_s,
        u"Example - S01E02 - 100%2 of %3"_s);
}

void tst_EpisodeItem::name()
{
    QFETCH(QString, show);
    QFETCH(qint32, season);
    QFETCH(qint32, number);
    QFETCH(QString, title);
    QFETCH(QString, expected);

    Episode episode;
    episode.season = season;
    episode.episodeNumber = number;
    episode.title = title;
    QCOMPARE(mediaItemFromEpisode(episode, show).name, expected);
}

void tst_EpisodeItem::carriesIdAndFormatAndNothingElse()
{
    const Episode episode{u"4711"_s, u"Another Show"_s, 3, 4, u"Title"_s, u"mkv"_s};

    MediaItem expected;
    expected.type = 3;
    expected.id = u"4711"_s;
    expected.containerExtension = u"mkv"_s;
    expected.name = u"Example - S03E04 - Title"_s;
    QCOMPARE(mediaItemFromEpisode(episode, u"Example"_s), expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_EpisodeItem)
#include "tst_EpisodeItem.moc"
