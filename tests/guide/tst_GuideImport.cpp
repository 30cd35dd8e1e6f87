#include "fakeprovider/Gzip.h"
#include "guide/GuideImport.h"
#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

// What updates store, and what readers find then.

namespace {

constexpr qint64 now = StoredGuide::now;
constexpr qint64 hour = StoredGuide::hour;
constexpr qint64 day = StoredGuide::day;
const QString one = u"http://h/1"_s;
const QString two = u"http://h/2"_s;

/// "18:00-19:00 News", hours counted from now.
QStringList titles(GuideReader &reader, const QString &entry, qint64 from = now - 30 * day,
                   qint64 to = now + 30 * day)
{
    QStringList found;
    const auto answer = reader.schedules({entry}, from, to, true);
    for (const GuideProgramme &programme : answer.value(entry).programmes) {
        found << u"%1-%2 %3"_s.arg(double(programme.start - now) / hour)
                     .arg(double(programme.stop - now) / hour)
                     .arg(programme.title);
    }
    return found;
}

QStringList titles(const StoredGuide &guide, const QString &entry)
{
    GuideReader reader(guide.path(), 0);
    return titles(reader, entry);
}

} // namespace

class tst_GuideImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void result();
    void unwantedChannelsAreLeftOut();
    void channelsBehindTheirProgrammes();
    void window();
    void stops_data();
    void stops();
    void sameStart();
    void matching_data();
    void matching();
    void corrections();
    void preference();
    void suggestionsOfTwoGuides();
    void longTexts();
    void missingChannels();
    void playlistAsItIs();
    void accountChannels();
    void channelsOfNoSource_data();
    void channelsOfNoSource();
    void packed();
    void problems_data();
    void problems();
    void removedAddress();
    void repeated();
    void cancelled();
    void damagedFile_data();
    void damagedFile();
    void otherVersion();
    void readersKeepTheOldGuide();
    void noCredentials();

private:
    void addTwoHours();

    std::unique_ptr<StoredGuide> guide;
};

void tst_GuideImport::init()
{
    guide = std::make_unique<StoredGuide>();
    guide->addEntry(one, u"Channel One"_s, uR"(tvg-id="one")"_s);
}

void tst_GuideImport::addTwoHours()
{
    guide->addChannel(u"one"_s, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + hour, u"News"_s, u"What happened"_s);
    guide->addProgramme(u"one"_s, now + hour, now + 2 * hour, u"Film"_s);
}

void tst_GuideImport::result()
{
    addTwoHours();
    guide->addEntry(two, u"FIRST HD"_s);
    guide->addEntry(u"http://h/3"_s, u"Unknown"_s);
    const GuideResult result = guide->store();
    QCOMPARE(result.finishedAt, now);
    QCOMPARE(result.programmes, 2);
    QCOMPARE(result.channels, 3);
    QCOMPARE(result.matched, 2);
    QCOMPARE(result.suggested, 1);
    QCOMPARE(result.newest, now + hour);
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, GuideProblem::None);
    QCOMPARE(result.addresses.first().programmes, 2);
    QVERIFY(!result.cancelled);
    QCOMPARE(GuideReader(guide->path(), 0).lastResult(), result);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s, u"1-2 Film"_s}));
    QCOMPARE(titles(*guide, two), titles(*guide, one));
}

void tst_GuideImport::unwantedChannelsAreLeftOut()
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

void tst_GuideImport::channelsBehindTheirProgrammes()
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

void tst_GuideImport::window()
{
    guide->addEntry(two, u"Second"_s, uR"(tvg-id="two" catchup="shift" catchup-days="3")"_s);
    for (const QString &id : {u"one"_s, u"two"_s}) {
        guide->addChannel(id, id);
        for (const qint64 days : {-10, -3, -2, 0, 6, 12}) {
            guide->addProgramme(id, now + days * day, now + days * day + hour,
                                QString::number(days));
        }
    }
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 0"_s, u"144-145 6"_s}));
    QCOMPARE(titles(*guide, two),
             QStringList({u"-72--71 -3"_s, u"-48--47 -2"_s, u"0-1 0"_s, u"144-145 6"_s}));
}

void tst_GuideImport::stops_data()
{
    QTest::addColumn<double>("stop");
    QTest::addColumn<double>("nextStart");
    QTest::addColumn<double>("expected");
    QTest::newRow("as told") << 1.0 << 2.0 << 1.0;
    QTest::newRow("missing: the next start") << 0.0 << 2.0 << 2.0;
    QTest::newRow("missing: six hours at most") << 0.0 << 9.0 << 6.0;
    QTest::newRow("before the start") << -1.0 << 2.0 << 2.0;
    QTest::newRow("behind the next start") << 3.0 << 2.0 << 2.0;
    QTest::newRow("long") << 8.0 << 9.0 << 8.0;
}

void tst_GuideImport::stops()
{
    QFETCH(double, stop);
    QFETCH(double, nextStart);
    QFETCH(double, expected);
    guide->addProgramme(u"one"_s, now, stop == 0.0 ? 0 : now + qint64(stop * hour), u"A"_s);
    guide->addProgramme(u"one"_s, now + qint64(nextStart * hour), 0, u"B"_s);
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-%1 A"_s.arg(expected),
                                               u"%1-%2 B"_s.arg(nextStart).arg(nextStart + 6)}));
}

void tst_GuideImport::sameStart()
{
    guide->addProgramme(u"one"_s, now, now + hour, u"First"_s);
    guide->addProgramme(u"one"_s, now, now + 2 * hour, u"Last"_s);
    guide->store();
    QCOMPARE(titles(*guide, one), QStringList({u"0-2 Last"_s}));
}

void tst_GuideImport::matching_data()
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

void tst_GuideImport::matching()
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

void tst_GuideImport::corrections()
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

void tst_GuideImport::preference()
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
void tst_GuideImport::suggestionsOfTwoGuides()
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

/// They are stored in several parts. A time that no calendar has is left out.
void tst_GuideImport::longTexts()
{
    constexpr int count = 3000;
    constexpr qint64 minute = 60;
    guide->addChannel(u"one"_s, u"First"_s);
    const QString description(3000, u'x');
    for (int number = 0; number < count; ++number) {
        const qint64 start = now + number * minute;
        guide->addProgramme(u"one"_s, start, start + minute, QString::number(number), description);
    }
    guide->addProgramme(u"one"_s, 253'402'300'799, 0, u"The last second of the year 9999"_s);
    QCOMPARE(guide->store().programmes, count);
    const QStringList stored = titles(*guide, one);
    QCOMPARE(stored.size(), count);
    QVERIFY(stored.constLast().endsWith(u" 2999"_s));
}

/// The channels of the last update stay.
void tst_GuideImport::missingChannels()
{
    addTwoHours();
    guide->store();
    GuideImportJob job = guide->job();
    QVERIFY(QFile::remove(job.entriesPath));
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.matched, 1);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImport::playlistAsItIs()
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

void tst_GuideImport::accountChannels()
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

void tst_GuideImport::channelsOfNoSource_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<bool>("ofAccount");
    QTest::newRow("a page for a playlist") << QByteArray("<html></html>") << false;
    QTest::newRow("nothing for a playlist") << QByteArray() << false;
    QTest::newRow("a page for an account") << QByteArray("<html></html>") << true;
    QTest::newRow("an error for an account") << QByteArray(R"({"user_info":{"auth":0}})") << true;
    QTest::newRow("cut short") << QByteArray(R"([{"stream_id":7},{"stream_id")") << true;
}

void tst_GuideImport::channelsOfNoSource()
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

void tst_GuideImport::packed()
{
    addTwoHours();
    const GuideResult result =
        GuideImport(guide->job(packedWithGzip(packedWithGzip(guide->guideText())))).run();
    QCOMPARE(result.programmes, 2);
}

void tst_GuideImport::problems_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<GuideProblem>("problem");
    addTwoHours();
    const QByteArray good = guide->guideText();
    const QByteArray packed = packedWithGzip(good);
    QTest::newRow("empty") << QByteArray() << GuideProblem::NotAGuide;
    QTest::newRow("a page") << QByteArray("<html><body>Not found</body></html>")
                            << GuideProblem::NotAGuide;
    QTest::newRow("JSON") << QByteArray(R"({"user_info":{"auth":0}})") << GuideProblem::NotAGuide;
    QTest::newRow("long and no guide") << QByteArray(200'000, 'x') << GuideProblem::NotAGuide;
    QTest::newRow("cut short") << good.chopped(20) << GuideProblem::CutShort;
    QTest::newRow("packed, cut short") << packed.chopped(20) << GuideProblem::CutShort;
    QTest::newRow("wrong checksum")
        << packed.chopped(8) + QByteArray(8, '\1') << GuideProblem::Damaged;
    QTest::newRow("XZ") << QByteArray("\xfd"
                                      "7zXZ and so on")
                        << GuideProblem::UnknownPacking;
    QTest::newRow("other channels")
        << QByteArray("<tv><channel id='z'/><programme channel='z' start='20260301180000'/></tv>")
        << GuideProblem::NothingMatches;
    QTest::newRow("no programmes") << QByteArray("<tv></tv>") << GuideProblem::NothingMatches;
}

void tst_GuideImport::problems()
{
    QFETCH(QByteArray, file);
    QFETCH(GuideProblem, problem);
    addTwoHours();
    guide->store();
    const GuideResult result = GuideImport(guide->job(file)).run();
    QCOMPARE(result.addresses.size(), 1);
    QCOMPARE(result.addresses.first().problem, problem);
    // The guide of the last update stays.
    QCOMPARE(result.programmes, 2);
    QCOMPARE(result.matched, 1);
    QCOMPARE(titles(*guide, one), QStringList({u"0-1 News"_s, u"1-2 Film"_s}));
}

void tst_GuideImport::removedAddress()
{
    addTwoHours();
    guide->store();
    GuideImportJob job = guide->job();
    job.guides.clear();
    const GuideResult result = GuideImport(job).run();
    QCOMPARE(result.programmes, 0);
    QCOMPARE(titles(*guide, one), QStringList());
    QVERIFY(GuideReader(guide->path(), 0).channels({}, 10).isEmpty());
}

void tst_GuideImport::repeated()
{
    addTwoHours();
    const GuideResult first = guide->store();
    QCOMPARE(guide->store(), first);
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now + hour, now + 3 * hour, u"Another film"_s);
    QCOMPARE(guide->store().programmes, 1);
    QCOMPARE(titles(*guide, one), QStringList({u"1-3 Another film"_s}));
    GuideReader reader(guide->path(), 0);
    QVERIFY(reader.search(u"news"_s, 0, 10).isEmpty());
    QCOMPARE(reader.search(u"ANOTHER fi"_s, 0, 10).size(), 1);
}

void tst_GuideImport::cancelled()
{
    addTwoHours();
    guide->store();
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now, now + hour, u"New"_s);
    QCOMPARE(GuideImport(GuideImportJob()).percent(), 0);
    GuideImport import(guide->job());
    import.cancel();
    const GuideResult result = import.run();
    QVERIFY(result.cancelled);
    QVERIFY(result.addresses.isEmpty());
    QCOMPARE(titles(*guide, one).size(), 2);
    QVERIFY(!GuideReader(guide->path(), 0).lastResult().cancelled);
}

void tst_GuideImport::damagedFile_data()
{
    QTest::addColumn<int>("from");
    QTest::newRow("no database at all") << 0;
    QTest::newRow("damaged inside") << 4096;
}

void tst_GuideImport::damagedFile()
{
    QFETCH(int, from);
    addTwoHours();
    guide->store();
    QByteArray content = readFile(guide->path());
    QVERIFY(content.size() > 2 * 4096);
    writeFile(guide->path(), content.first(from) + QByteArray(content.size() - from, 'x'));
    QCOMPARE(titles(*guide, one), QStringList());
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImport::otherVersion()
{
    addTwoHours();
    guide->store();
    {
        GuideStore store(guide->path(), GuideStore::Mode::Write);
        QVERIFY(store.open() && store.run(u"PRAGMA user_version = 99"_s));
    }
    QCOMPARE(titles(*guide, one), QStringList());
    QCOMPARE(guide->store().programmes, 2);
    QCOMPARE(titles(*guide, one).size(), 2);
}

void tst_GuideImport::readersKeepTheOldGuide()
{
    addTwoHours();
    guide->store();
    GuideReader reader(guide->path(), 0);
    QCOMPARE(titles(reader, one).size(), 2);
    GuideStore writer(guide->path(), GuideStore::Mode::Write);
    QVERIFY(writer.open());
    QVERIFY(!writer.inTransaction([&] {
        const bool removed = writer.run(u"DELETE FROM programme"_s);
        // While it is being written, and without waiting.
        return removed && titles(reader, one).size() != 2;
    }));
    QCOMPARE(titles(reader, one).size(), 2);
    guide->clearGuide();
    guide->addProgramme(u"one"_s, now, now + hour, u"New"_s);
    guide->store();
    QCOMPARE(titles(reader, one), QStringList({u"0-1 New"_s}));
}

void tst_GuideImport::noCredentials()
{
    addTwoHours();
    GuideImportJob job = guide->job();
    job.guides.first().address = u"http://h/xmltv.php?username=joe&password=Guide-Pw"_s;
    GuideImport(job).run();
    const QFileInfo file(guide->path());
    const QStringList names = file.dir().entryList({file.fileName() + u'*'}, QDir::Files);
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        QVERIFY(!readFile(file.dir().filePath(name)).contains("Guide-Pw"));
    }
#ifndef Q_OS_WIN
    QCOMPARE(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
             QFile::ReadOwner | QFile::WriteOwner);
#endif
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideImport)
#include "tst_GuideImport.moc"
