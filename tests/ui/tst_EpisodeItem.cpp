#include "support/TestMain.h"
#include "ui/EpisodeItem.h"

using namespace Qt::StringLiterals;

class tst_EpisodeItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void item_data();
    void item();
};

void tst_EpisodeItem::item_data()
{
    QTest::addColumn<QString>("show");
    QTest::addColumn<Episode>("episode");
    QTest::addColumn<QString>("name");
    const auto row = [](const char *rule, const QString &show, qint32 season, qint32 number,
                        const QString &title, const QString &name) {
        QTest::newRow(rule) << show << Episode{u"47"_s, u"Other"_s, season, number, title, u"mkv"_s}
                            << name;
    };
    row("one digit is padded", u"Example"_s, 1, 2, u"Pilot"_s, u"Example - S01E02 - Pilot"_s);
    row("zero is padded", u"Example"_s, 0, 0, u"Trailer"_s, u"Example - S00E00 - Trailer"_s);
    row("two digits stay", u"Example"_s, 10, 99, u"End"_s, u"Example - S10E99 - End"_s);
    row("more digits stay", u"Daily"_s, 2024, 1234, u"News"_s, u"Daily - S2024E1234 - News"_s);
    row("an empty title", u"Example"_s, 1, 1, {}, u"Example - S01E01 - "_s);
    row("an empty show", {}, 1, 1, u"Pilot"_s, u" - S01E01 - Pilot"_s);
    row("placeholders stay", u"%1 and %4"_s, 1, 2, u"100%2 of %3"_s,
        u"%1 and %4 - S01E02 - 100%2 of %3"_s);
}

void tst_EpisodeItem::item()
{
    QFETCH(QString, show);
    QFETCH(Episode, episode);
    QFETCH(QString, name);
    MediaItem expected;
    expected.type = 3;
    expected.id = u"47"_s;
    expected.containerExtension = u"mkv"_s;
    expected.name = name;
    QCOMPARE(mediaItemFromEpisode(episode, show), expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_EpisodeItem)
#include "tst_EpisodeItem.moc"
