#include "guide/Guide.h"
#include "guide/GuideReader.h"
#include "guide/StoredGuide.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

// What a stored guide answers, asked on the spot and through Guide.

namespace {

constexpr qint64 now = StoredGuide::now;
constexpr qint64 hour = StoredGuide::hour;
const QString one = u"http://h/1"_s;
const QString two = u"http://h/2"_s;

QStringList found(const QList<GuideHit> &hits)
{
    QStringList all;
    for (const GuideHit &hit : hits) {
        all << hit.entryName + u' ' + hit.programme.title;
    }
    return all;
}

} // namespace

class tst_GuideReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void nowAndNext_data();
    void nowAndNext();
    void nothingKnown();
    void shiftAndOffset();
    void schedules_data();
    void schedules();
    void search_data();
    void search();
    void channels_data();
    void channels();
    void missingFile();

    void answersComeLater();
    void nothingAfterClose();
    void onlyTheLatestSearch();

private:
    StoredGuide guide;
};

void tst_GuideReader::initTestCase()
{
    guide.addEntry(one, u"Channel One"_s, uR"(tvg-id="one")"_s);
    guide.addEntry(two, u"Channel Two"_s, uR"(tvg-id="one" tvg-shift="1.5")"_s);
    guide.addEntry(u"http://h/3"_s, u"Channel Three"_s, uR"(tvg-id="three")"_s);
    guide.addEntry(u"http://h/4"_s, u"Nothing"_s);
    guide.addChannel(u"one"_s, u"First"_s);
    guide.addChannel(u"three"_s, u"Ärte"_s);
    guide.addChannel(u"unnamed.tv"_s, {});
    guide.addProgramme(u"one"_s, now, now + hour, u"News at Six"_s, u"What happened"_s);
    guide.addProgramme(u"one"_s, now + hour, now + 2 * hour, u"Sports"_s);
    guide.addProgramme(u"one"_s, now + 3 * hour, now + 4 * hour, u"Late news"_s);
    guide.addProgramme(u"three"_s, now + hour, now + 2 * hour, u"Café \"Noir\""_s);
    QCOMPARE(guide.store().programmes, 4);
}

void tst_GuideReader::nowAndNext_data()
{
    QTest::addColumn<qint64>("at");
    QTest::addColumn<QString>("running");
    QTest::addColumn<QString>("next");
    QTest::newRow("before all") << now - 1 << QString() << u"News at Six"_s;
    QTest::newRow("first second") << now << u"News at Six"_s << u"Sports"_s;
    QTest::newRow("last second") << now + hour - 1 << u"News at Six"_s << u"Sports"_s;
    QTest::newRow("change") << now + hour << u"Sports"_s << u"Late news"_s;
    QTest::newRow("gap") << now + 2 * hour << QString() << u"Late news"_s;
    QTest::newRow("last one") << now + 3 * hour << u"Late news"_s << QString();
    QTest::newRow("after all") << now + 4 * hour << QString() << QString();
}

void tst_GuideReader::nowAndNext()
{
    QFETCH(qint64, at);
    QFETCH(QString, running);
    QFETCH(QString, next);
    GuideReader reader(guide.path(), 0);
    const OnNow answer = reader.onNow({one}, at).value(one);
    QCOMPARE(answer.now.value_or(GuideProgramme()).title, running);
    QCOMPARE(answer.next.value_or(GuideProgramme()).title, next);
    QCOMPARE(answer.entry.match, (GuideMatch{u"one"_s, GuideMatch::Rule::Id}));
}

void tst_GuideReader::nothingKnown()
{
    GuideReader reader(guide.path(), 0);
    const auto answer = reader.onNow({u"http://h/4"_s, u"elsewhere"_s}, now);
    QCOMPARE(answer.keys(), QStringList{u"http://h/4"_s});
    QCOMPARE(answer.value(u"http://h/4"_s), OnNow());
}

void tst_GuideReader::shiftAndOffset()
{
    GuideReader reader(guide.path(), -2 * hour);
    const auto answer = reader.onNow({one, two}, now - hour);
    QCOMPARE(answer.value(one).now->title, u"Sports"_s);
    QCOMPARE(answer.value(one).now->start, now - hour);
    QCOMPARE(answer.value(one).now->stop, now);
    const qint64 shifted = now - 2 * hour + hour * 3 / 2;
    QVERIFY(!answer.value(two).now);
    QCOMPARE(answer.value(two).next->title, u"News at Six"_s);
    QCOMPARE(answer.value(two).next->start, shifted);
    QCOMPARE(reader.schedules({two}, shifted, shifted + 1, false).value(two).programmes.size(), 1);
}

void tst_GuideReader::schedules_data()
{
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("all") << now << now + 4 * hour
                         << QStringList{u"News at Six"_s, u"Sports"_s, u"Late news"_s};
    QTest::newRow("begun before") << now + 60 << now + 61 << QStringList{u"News at Six"_s};
    QTest::newRow("ends when it begins")
        << now + hour << now + hour + 1 << QStringList{u"Sports"_s};
    QTest::newRow("begins when it ends") << now << now + hour << QStringList{u"News at Six"_s};
    QTest::newRow("gap") << now + 2 * hour << now + 3 * hour << QStringList();
}

void tst_GuideReader::schedules()
{
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(QStringList, expected);
    GuideReader reader(guide.path(), 0);
    for (const bool withDescriptions : {true, false}) {
        const auto answer = reader.schedules({one, u"elsewhere"_s}, from, to, withDescriptions);
        QCOMPARE(answer.size(), 1);
        QStringList titles;
        for (const GuideProgramme &programme : answer.value(one).programmes) {
            titles << programme.title;
            QCOMPARE(programme.description.isEmpty(), !withDescriptions || programme.start != now);
        }
        QCOMPARE(titles, expected);
    }
}

void tst_GuideReader::search_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("endsAfter");
    QTest::addColumn<QStringList>("expected");
    const QStringList news{u"Channel One News at Six"_s, u"Channel Two News at Six"_s,
                           u"Channel One Late news"_s, u"Channel Two Late news"_s};
    QTest::newRow("word") << u"NEWS"_s << now << news;
    QTest::newRow("beginning of a word") << u"ne"_s << now << news;
    QTest::newRow("words in any order") << u"six new"_s << now << news.first(2);
    QTest::newRow("middle of a word") << u"ews"_s << now << QStringList();
    QTest::newRow("over") << u"news"_s << now + hour << news.sliced(1);
    QTest::newRow("accents") << u"cafe"_s << now << QStringList{u"Channel Three Café \"Noir\""_s};
    QTest::newRow("quotes") << u"\"noir\" OR"_s << now << QStringList();
    QTest::newRow("quotes alone") << u"\"noir\" *"_s << now
                                  << QStringList{u"Channel Three Café \"Noir\""_s};
    QTest::newRow("no word") << u" \"*( "_s << now << QStringList();
}

void tst_GuideReader::search()
{
    QFETCH(QString, text);
    QFETCH(qint64, endsAfter);
    QFETCH(QStringList, expected);
    GuideReader reader(guide.path(), 0);
    QCOMPARE(found(reader.search(text, endsAfter, 100)), expected);
    QCOMPARE(found(reader.search(text, endsAfter, 1)), expected.mid(0, 1));
}

void tst_GuideReader::channels_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("all, by name") << QString()
                                  << QStringList{u"First"_s, u"unnamed.tv"_s, u"Ärte"_s};
    QTest::newRow("no name") << u"unnamed"_s << QStringList{u"unnamed.tv"_s};
    QTest::newRow("part of a name, any case") << u"äRT"_s << QStringList{u"Ärte"_s};
    QTest::newRow("id") << u"One"_s << QStringList{u"First"_s};
    QTest::newRow("none") << u"zzz"_s << QStringList();
}

void tst_GuideReader::channels()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QStringList names;
    for (const GuideChannel &channel : GuideReader(guide.path(), 0).channels(text, 10)) {
        names << channel.name;
    }
    QCOMPARE(names, expected);
}

void tst_GuideReader::missingFile()
{
    const QString path = guide.path() + u"-missing"_s;
    GuideReader reader(path, 0);
    QVERIFY(reader.onNow({one}, now).isEmpty());
    QVERIFY(reader.search(u"news"_s, now, 10).isEmpty());
    QVERIFY(reader.channels({}, 10).isEmpty());
    QCOMPARE(reader.lastResult(), GuideResult());
    QVERIFY(!QFile::exists(path));
}

// ---- through Guide ----

void tst_GuideReader::answersComeLater()
{
    Guide open(nullptr);
    const QSignalSpy changed(&open, &Guide::changed);
    open.open(guide.path(), 0);
    QCOMPARE(changed.count(), 1);
    QStringList answers;
    open.fetchOnNow({one}, now, [&](const QHash<QString, OnNow> &answer) {
        answers << answer.value(one).now->title;
    });
    open.fetchSchedules({one}, now, now + hour, [&](const QHash<QString, GuideSchedule> &answer) {
        answers << answer.value(one).programmes.first().description;
    });
    open.fetchTitles({one}, now, now + hour, [&](const QHash<QString, GuideSchedule> &answer) {
        answers << answer.value(one).programmes.first().description + u"-"_s;
    });
    open.fetchChannels(
        u"fir"_s, 5, [&](const QList<GuideChannel> &channels) { answers << channels.first().id; });
    open.fetchLastResult(
        [&](const GuideResult &result) { answers << QString::number(result.programmes); });
    QVERIFY(answers.isEmpty());
    QTRY_COMPARE(answers,
                 QStringList({u"News at Six"_s, u"What happened"_s, u"-"_s, u"one"_s, u"4"_s}));
}

void tst_GuideReader::nothingAfterClose()
{
    Guide open(nullptr);
    open.open(guide.path(), 0);
    int answers = 0;
    const auto count = [&answers](const auto &) { ++answers; };
    open.fetchOnNow({one}, now, count);
    open.open(guide.path(), 0);
    open.fetchOnNow({one}, now, count);
    open.close();
    QVERIFY(!open.isOpen());
    open.fetchOnNow({one}, now, count);
    open.open(guide.path(), hour);
    bool isLast = false;
    open.fetchOnNow({one}, now + hour, [&](const QHash<QString, OnNow> &answer) {
        isLast = answer.value(one).now->title == "News at Six"_L1;
    });
    QTRY_VERIFY(isLast);
    QCOMPARE(answers, 0);
}

void tst_GuideReader::onlyTheLatestSearch()
{
    Guide open(nullptr);
    open.open(guide.path(), 0);
    QStringList answers;
    for (const QString &text : {u"n"_s, u"ne"_s, u"spo"_s}) {
        open.search(text, now, 10, [&](const QList<GuideHit> &hits) { answers += found(hits); });
    }
    QTRY_VERIFY(!answers.isEmpty());
    QCOMPARE(answers, QStringList({u"Channel One Sports"_s, u"Channel Two Sports"_s}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_GuideReader)
#include "tst_GuideReader.moc"
