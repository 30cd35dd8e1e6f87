#include "providers/XtreamCatalog.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

// Which key fills which field, and with which conversion. How texts and values are read is shown by
// tst_JsonReader.

namespace {

/// An object in which every one of the keys has the same value, or none when that is empty.
QByteArray objectWith(const QList<QByteArray> &keys, const QByteArray &value)
{
    QByteArray members;
    for (const QByteArray &key : keys) {
        members += value.isEmpty() ? QByteArray() : ",\"" + key + "\":" + value;
    }
    return '{' + members.mid(1) + '}';
}

} // namespace

class tst_XtreamCatalog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void otherRoots();
    void wholeMovie();
    void wholeShow();
    void wholeEpisode();
    void seasonOrder();
    void seasonKeys();
    void malformedEpisodeReplies();
};

void tst_XtreamCatalog::values_data()
{
    QTest::addColumn<QByteArray>("value"); // empty: the key is missing
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("numberText");
    QTest::addColumn<qint32>("integer");
    QTest::addColumn<double>("real");
    QTest::addColumn<qint64>("integer64");

    const QString none;
    const QString zero = u"0"_s;
    for (const QByteArray &value : {""_ba, "null"_ba, "true"_ba, R"({"a":1})"_ba}) {
        QTest::addRow("value \"%s\"", value.constData())
            << value << none << zero << 0 << 0.0 << qint64(0);
    }
    const auto number = [](const QByteArray &value, const QString &numberText, qint32 integer,
                           double real, qint64 integer64) {
        QTest::newRow(value.constData())
            << value << QString() << numberText << integer << real << integer64;
    };
    number("1.5e2"_ba, u"150"_s, 150, 150.0, 150);
    number("123.75"_ba, u"124"_s, 0, 123.75, 124);
    number("9007199254740993"_ba, u"9007199254740993"_s, 0, 9007199254740992.0, 9007199254740993);
    const auto text = [](const QString &content, const QString &numberText, double real,
                         qint64 integer64) {
        QTest::newRow(qPrintable(u"text "_s + content))
            << '"' + content.toUtf8() + '"' << content << numberText << 0 << real << integer64;
    };
    text(u"007"_s, u"7"_s, 7.0, 7);
    text(u"9007199254740993"_s, u"9007199254740993"_s, 9007199254740992.0, 9007199254740993);
    text(u"9223372036854775808"_s, zero, 9223372036854775808.0, 0);
    text(u"7.5"_s, zero, 7.5, 0);
    text(u"nan"_s, zero, 0.0, 0);
    text(u""_s, zero, 0.0, 0);
}

void tst_XtreamCatalog::values()
{
    QFETCH(const QByteArray, value);
    QFETCH(const QString, text);
    QFETCH(const QString, numberText);
    QFETCH(const qint32, integer);
    QFETCH(const double, real);
    QFETCH(const qint64, integer64);

    const auto list = [&value](const QList<QByteArray> &keys) {
        return QByteArray('[' + objectWith(keys, value) + ']');
    };
    QCOMPARE(parseCategories(list({"category_id", "category_name"})),
             (QList<Category>{{text, text}}));
    QCOMPARE(parseLiveStreams(list({"stream_id", "name", "category_id", "stream_icon",
                                    "container_extension", "rating", "added", "stream_url"})),
             (QList<MediaItem>{{0, numberText, text, text, text, {}, {}, 0, 0}}));
    QCOMPARE(parseVodStreams(list({"stream_id", "name", "category_id", "stream_icon",
                                   "container_extension", "rating", "added", "direct_source"})),
             (QList<MediaItem>{{1, numberText, text, text, text, text, {}, real, integer64}}));
    QCOMPARE(parseSeries(list({"series_id", "name", "category_id", "cover", "rating",
                               "last_modified", "container_extension", "stream_icon"})),
             (QList<MediaItem>{{2, numberText, text, text, text, {}, {}, real, integer64}}));

    const QByteArray episode =
        objectWith({"id", "episode_num", "title", "container_extension", "season"}, value);
    const QByteArray info = objectWith({"name"}, value);
    QCOMPARE(parseSeriesEpisodes(
                 QByteArray(R"({"info":)" + info + R"(,"episodes":{"3":[)" + episode + "]}}")),
             (QList<Episode>{{numberText, text, 3, integer, text, text}}));
}

void tst_XtreamCatalog::otherRoots()
{
    for (const QByteArray &body : {"null"_ba, R"({"user_info":{"auth":0}})"_ba,
                                   R"({"0":{"stream_id":1,"series_id":1,"category_id":"1"}})"_ba}) {
        QVERIFY(parseCategories(body).isEmpty());
        QVERIFY(parseLiveStreams(body).isEmpty());
        QVERIFY(parseVodStreams(body).isEmpty());
        QVERIFY(parseSeries(body).isEmpty());
        QVERIFY(parseSeriesEpisodes(body).isEmpty());
    }
}

void tst_XtreamCatalog::wholeMovie()
{
    const QByteArray text = R"([{"num":1,"name":"Film","stream_type":"movie","stream_id":"77",
        "stream_icon":"http://h/p.jpg","rating":"7.5","rating_5based":3.8,"added":"1600000001",
        "category_id":"5","container_extension":"mkv","series_id":3,"cover":"no",
        "last_modified":"5"}])";
    QCOMPARE(
        parseVodStreams(text),
        (QList<MediaItem>{
            {1, u"77"_s, u"Film"_s, u"5"_s, u"http://h/p.jpg"_s, u"mkv"_s, {}, 7.5, 1600000001}}));
}

void tst_XtreamCatalog::wholeShow()
{
    const QByteArray text = R"([{"num":1,"name":"Show","series_id":88,"cover":"http://h/c.jpg",
        "rating":8.25,"last_modified":1600000002,"category_id":"6","stream_id":1,
        "stream_icon":"no","added":"5","container_extension":"no"}])";
    QCOMPARE(parseSeries(text),
             (QList<MediaItem>{
                 {2, u"88"_s, u"Show"_s, u"6"_s, u"http://h/c.jpg"_s, {}, {}, 8.25, 1600000002}}));
}

void tst_XtreamCatalog::wholeEpisode()
{
    const QByteArray text = R"({"seasons":[{"season_number":4}],
        "info":{"name":"Show","cover":"c","title":"no"},"name":"no",
        "episodes":{"2":[{"id":"901","episode_num":3,"title":"Pilot","name":"no",
            "container_extension":"mp4","season":9,"info":{"name":"no"}}]}})";
    QCOMPARE(parseSeriesEpisodes(text),
             (QList<Episode>{{u"901"_s, u"Show"_s, 2, 3, u"Pilot"_s, u"mp4"_s}}));
}

void tst_XtreamCatalog::seasonOrder()
{
    const QByteArray text = R"({"info":{"name":"S"},"episodes":{
        "2":[{"id":21,"episode_num":2},{"id":20,"episode_num":1}],
        "10":[{"id":100}],"1":[{"id":11},{"id":10},{"id":11}]}})";
    QStringList found;
    for (const Episode &episode : parseSeriesEpisodes(text)) {
        QCOMPARE(episode.seriesName, u"S"_s);
        found << u"%1:%2"_s.arg(episode.season).arg(episode.id);
    }
    QCOMPARE(found,
             (QStringList{u"1:11"_s, u"1:10"_s, u"1:11"_s, u"10:100"_s, u"2:21"_s, u"2:20"_s}));
}

void tst_XtreamCatalog::seasonKeys()
{
    const QMap<QByteArray, qint32> seasons{{"12", 12}, {"0", 0},        {"-1", -1},
                                           {"", 0},    {"Specials", 0}, {"4294967297", 0}};
    for (auto season = seasons.begin(); season != seasons.end(); ++season) {
        const QByteArray body = R"({"episodes":{")" + season.key() + R"(":[{"id":1,"season":7}]}})";
        QCOMPARE(parseSeriesEpisodes(body), (QList<Episode>{{u"1"_s, {}, *season, 0, {}, {}}}));
    }
}

void tst_XtreamCatalog::malformedEpisodeReplies()
{
    for (const QByteArray &body : {R"({"info":{"name":"S"}})"_ba, R"({"episodes":[[{"id":1}]]})"_ba,
                                   R"([{"episodes":{"1":[{"id":1}]}}])"_ba}) {
        QCOMPARE(parseSeriesEpisodes(body), QList<Episode>());
    }
    for (const QByteArray &body : {R"({"episodes":{"0":{"a":{"id":5}},"1":[{"id":1}]}})"_ba,
                                   R"({"info":[],"episodes":{"1":[{"id":1}]}})"_ba}) {
        QCOMPARE(parseSeriesEpisodes(body), (QList<Episode>{{u"1"_s, {}, 1, 0, {}, {}}}));
    }
    // Episodes that are no objects.
    QCOMPARE(parseSeriesEpisodes(R"({"episodes":{"1":[null,5,"x",[],{}]}})"_ba),
             QList<Episode>(5, {u"0"_s, {}, 1, 0, {}, {}}));
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamCatalog)
#include "tst_XtreamCatalog.moc"
