#include "guide/GuideImport.h"
#include "guide/GuideReader.h"
#include "guide/ImportedGuide.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

// Which channels of guides updates find for the entries of a source.

class tst_GuideImportChannels : public QObject, private ImportedGuide
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

    void unwantedChannelsAreLeftOut();
    void channelsBehindTheirProgrammes();
    void matching_data();
    void matching();
    void corrections();
    void preference();
    void suggestionsOfTwoGuides();
    void missingChannels();
    void playlistAsItIs();
    void accountChannels();
    void channelsOfNoSource_data();
    void channelsOfNoSource();
};

void tst_GuideImportChannels::unwantedChannelsAreLeftOut()
{
    addTwoHours();
    guide->addChannel(u"other"_s, u"Other"_s);
    guide->addProgramme(u"other"_s, now, now + hour, u"Unwanted"_s);
    guide->addProgramme(u"undeclared"_s, now, now + hour, u"Unwanted"_s);
    const GuideResult result = guide->store();
    QCOMPARE(result.programmes, 2);
    // It can be chosen all the same.
    const auto channels = GuideReader(guide->path(), 0).channels(u"oth"_s, 10);
    QCOMPARE(channels, QList({GuideChannel{u"other"_s, u"Other"_s}}));
}

void tst_GuideImportChannels::channelsBehindTheirProgrammes()
{
    guide->addEntry(two, u"Second"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"By id"_s);
    guide->addProgramme(u"x2"_s, now, now + hour, u"By name"_s);
    guide->addProgramme(u"x3"_s, now, now + hour, u"Unwanted"_s);
    guide->addChannel(u"x2"_s, u"second"_s);
    guide->addChannel(u"x3"_s, u"third"_s);
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 By id"_s}));
    QCOMPARE(titles(*guide, two), QStringList({u"0-1 By name"_s}));
}

void tst_GuideImportChannels::matching_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("name");
    QTest::addColumn<GuideMatch::Rule>("rule");
    QTest::newRow("id") << uR"(tvg-id="FIRST.de")"_s << u"?"_s << GuideMatch::Rule::Id;
    QTest::newRow("guide name") << uR"(tvg-name="das_erste")"_s << u"?"_s
                                << GuideMatch::Rule::GuideName;
    QTest::newRow("name") << QString() << u"DAS ERSTE"_s << GuideMatch::Rule::ChannelName;
    QTest::newRow("suggestion") << QString() << u"DE: Das Erste FHD"_s
                                << GuideMatch::Rule::Suggestion;
    QTest::newRow("none") << QString() << u"Anything"_s << GuideMatch::Rule::None;
}

void tst_GuideImportChannels::matching()
{
    QFETCH(QString, attributes);
    QFETCH(QString, name);
    QFETCH(GuideMatch::Rule, rule);
    guide->addEntry(two, name, attributes);
    guide->addChannel(u"one"_s, u"One"_s);
    guide->addChannel(u"first.de"_s, u"Das Erste"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"One"_s);
    guide->addProgramme(u"first.de"_s, now, now + hour, u"First"_s);
    guide->store();
    const OnNow found = GuideReader(guide->path(), 0).onNow({two}, now).value(two);
    QCOMPARE(found.entry.match.rule, rule);
    QCOMPARE(found.entry.match.id, rule == GuideMatch::Rule::None ? QString() : u"first.de"_s);
    QCOMPARE(found.now.has_value(), rule != GuideMatch::Rule::None);
}

void tst_GuideImportChannels::corrections()
{
    guide->addEntry(two, u"Channel Two"_s, uR"(tvg-id="one")"_s);
    guide->addEntry(u"http://h/3"_s, u"Channel Three"_s, uR"(tvg-id="one")"_s);
    addTwoHours();
    guide->addChannel(u"other"_s, u"Other"_s);
    guide->addProgramme(u"other"_s, now, now + hour, u"Another"_s);
    GuideImportJob job = guide->job();
    job.corrections = {{one, u"other"_s}, {two, QString()}};
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.matched, 2);
    QCOMPARE(result.suggested, 0);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 Another"_s}));
    QCOMPARE(titles(*guide, two), QStringList());
    QCOMPARE(titles(*guide, u"http://h/3"_s).size(), 2);
    const auto found = GuideReader(guide->path(), 0).onNow({one, two}, now);
    QCOMPARE(found.value(one).entry.match.rule, GuideMatch::Rule::Chosen);
    QCOMPARE(found.value(two).entry.match.rule, GuideMatch::Rule::Chosen);
}

void tst_GuideImportChannels::preference()
{
    guide->addEntry(two, u"Second HD"_s);
    addTwoHours();
    guide->addChannel(u"2a"_s, u"Second"_s);
    guide->addProgramme(u"2a"_s, now, now + hour, u"Suggested"_s);
    GuideImportJob job = guide->job();
    guide->clearGuide();
    guide->addChannel(u"one"_s, u"First"_s);
    guide->addChannel(u"2b"_s, u"Second HD"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"Worse"_s);
    guide->addProgramme(u"2b"_s, now, now + hour, u"Sure"_s);
    job.guides.append(guide->file(u"http://guide.example/2"_s, guide->guideText()));
    GuideImport(job).run();
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s, u"1-2 Film"_s}));
    QCOMPARE(titles(*guide, two), QStringList({u"0-1 Sure"_s}));
    // The same in the other order.
    std::reverse(job.guides.begin(), job.guides.end());
    GuideImport(job).run();
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 Worse"_s}));
    QCOMPARE(titles(*guide, two), QStringList({u"0-1 Sure"_s}));
}

/// The same channel, too, is found once among those to choose from.
void tst_GuideImportChannels::suggestionsOfTwoGuides()
{
    guide->addEntry(two, u"Second HD"_s);
    guide->addChannel(u"2"_s, u"Second"_s);
    guide->addProgramme(u"2"_s, now, now + hour, u"The first guide's"_s);
    GuideImportJob job = guide->job();
    guide->clearGuide();
    guide->addChannel(u"2"_s, u"Second"_s);
    guide->addProgramme(u"2"_s, now, now + hour, u"The other's"_s);
    job.guides.append(guide->file(u"http://guide.example/2"_s, guide->guideText()));
    guide->clearGuide();
    guide->addChannel(u"one"_s, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"News"_s);
    job.guides.append(guide->file(u"http://guide.example/3"_s, guide->guideText()));
    QCOMPARE(GuideImport(job).run().suggested, 1);
    QCOMPARE(titles(*guide, two), QStringList({u"0-1 The first guide's"_s}));
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s}));
    QCOMPARE(GuideReader(guide->path(), 0).channels(u"second"_s, 10).size(), 1);
}

/// The channels of the last update stay.
void tst_GuideImportChannels::missingChannels()
{
    addTwoHours();
    guide->store();
    GuideImportJob job = guide->job();
    QVERIFY(QFile::remove(job.entriesPath));
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.matched, 1);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImportChannels::playlistAsItIs()
{
    addTwoHours();
    GuideImportJob job = guide->job();
    // A byte order mark, line ends of an old Mac, and blank lines.
    writeFile(job.entriesPath,
              "\xef\xbb\xbf#EXTM3U catchup=\"flussonic\" catchup-days=\"3\"\r\r"
              "#\r#EXTGRP:Any\r#EXTINF:-1 tvg-id=\"one\",One\r\r\n\nhttp://h/1\r"_ba);
    QCOMPARE(GuideImport(job).run().matched, 1);
    QCOMPARE(titles(*guide, one).size(), 2);
    const auto found = GuideReader(guide->path(), 0).onNow({one}, now).value(one);
    QCOMPARE(found.entry.catchUp.form, CatchUpForm::Flussonic);
    QCOMPARE(found.entry.catchUp.days, 3.0);
}

void tst_GuideImportChannels::accountChannels()
{
    addTwoHours();
    GuideImportJob job = guide->job();
    writeFile(
        job.entriesPath,
        R"([{"stream_id":7,"name":"X","epg_channel_id":"ONE","tv_archive":1,)"
        R"("tv_archive_duration":"2"},{"stream_id":"8","name":"First","epg_channel_id":null},)"
        R"({"stream_id":9,"name":"Y","tv_archive":"0"}, 5,)"
        R"({"stream_id":10,"name":"Z","tv_archive":true}])"_ba);
    job.entriesAreOfAccount = true;
    QCOMPARE(GuideImport(job).run().matched, 2);
    QCOMPARE(titles(*guide, u"7"_s).size(), 2);
    QCOMPARE(titles(*guide, u"8"_s).size(), 2);
    const auto found = GuideReader(guide->path(), 0).onNow({u"7"_s, u"9"_s, u"10"_s}, now);
    QCOMPARE(found.value(u"7"_s).entry.catchUp.form, CatchUpForm::Account);
    QCOMPARE(found.value(u"7"_s).entry.catchUp.days, 2.0);
    QCOMPARE(found.value(u"9"_s).entry.catchUp.form, CatchUpForm::None);
    QCOMPARE(found.value(u"10"_s).entry.catchUp.form, CatchUpForm::Account);
}

void tst_GuideImportChannels::channelsOfNoSource_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<bool>("ofAccount");
    QTest::newRow("a page for a playlist") << QByteArray("<html></html>") << false;
    QTest::newRow("nothing for a playlist") << QByteArray() << false;
    QTest::newRow("a page for an account") << QByteArray("<html></html>") << true;
    QTest::newRow("an error for an account") << QByteArray(R"({"user_info":{"auth":0}})") << true;
    QTest::newRow("cut short") << QByteArray(R"([{"stream_id":7},{"stream_id")") << true;
}

void tst_GuideImportChannels::channelsOfNoSource()
{
    QFETCH(QByteArray, entries);
    QFETCH(bool, ofAccount);
    addTwoHours();
    guide->store();
    GuideImportJob job = guide->job();
    writeFile(job.entriesPath, entries);
    job.entriesAreOfAccount = ofAccount;
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.addresses.size(), 2);
    QCOMPARE(result.addresses.first().problem, GuideProblem::ChannelsNotLoaded);
    // The channels of the last update stay.
    QCOMPARE(result.channels, 1);
    QCOMPARE(titles(*guide, one).size(), 2);
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideImportChannels)
#include "tst_GuideImportChannels.moc"
