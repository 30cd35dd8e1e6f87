#include "providers/XtreamCatalog.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

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
    void numbersOutOfRange_data();
    void numbersOutOfRange();
    void ratingsThatAreNoNumbers_data();
    void ratingsThatAreNoNumbers();
    void roots_data();
    void roots();
    void elementsThatAreNoObjects();
    void orderAndDuplicatesAreKept();
    void wholeChannel();
    void wholeMovie();
    void wholeShow();
    void wholeEpisode();
    void seasonOrder();
    void seasonKeys_data();
    void seasonKeys();
    void oddEpisodeReplies_data();
    void oddEpisodeReplies();
    void oddTexts_data();
    void oddTexts();
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
    QTest::newRow("missing") << QByteArray() << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("null") << "null"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("true") << "true"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("false") << "false"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("empty object") << "{}"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("object") << R"({"a":1})"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("empty array") << "[]"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("array") << "[1]"_ba << none << zero << 0 << 0.0 << qint64(0);

    QTest::newRow("0") << "0"_ba << none << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("123") << "123"_ba << none << u"123"_s << 123 << 123.0 << qint64(123);
    QTest::newRow("negative") << "-5"_ba << none << u"-5"_s << -5 << -5.0 << qint64(-5);
    QTest::newRow("whole number with a fraction")
        << "12.0"_ba << none << u"12"_s << 12 << 12.0 << qint64(12);
    QTest::newRow("whole number with an exponent")
        << "1.5e2"_ba << none << u"150"_s << 150 << 150.0 << qint64(150);
    QTest::newRow("fraction") << "123.75"_ba << none << u"124"_s << 0 << 123.75 << qint64(124);
    QTest::newRow("2^31") << "2147483648"_ba << none << u"2147483648"_s << 0 << 2147483648.0
                          << qint64(2147483648);
    QTest::newRow("2^53") << "9007199254740992"_ba << none << u"9007199254740992"_s << 0
                          << 9007199254740992.0 << qint64(9007199254740992);
    QTest::newRow("2^53 + 1") << "9007199254740993"_ba << none << u"9007199254740993"_s << 0
                              << 9007199254740992.0 << qint64(9007199254740993);
    QTest::newRow("2^63 - 1") << "9223372036854775807"_ba << none << u"9223372036854775807"_s << 0
                              << 9223372036854775808.0 << qint64(9223372036854775807);

    QTest::newRow("digits text") << R"("123")"_ba << u"123"_s << u"123"_s << 0 << 123.0
                                 << qint64(123);
    QTest::newRow("digits text with zeros")
        << R"("007")"_ba << u"007"_s << u"7"_s << 0 << 7.0 << qint64(7);
    QTest::newRow("negative text") << R"("-5")"_ba << u"-5"_s << u"-5"_s << 0 << -5.0 << qint64(-5);
    QTest::newRow("2^53 + 1 text")
        << R"("9007199254740993")"_ba << u"9007199254740993"_s << u"9007199254740993"_s << 0
        << 9007199254740992.0 << qint64(9007199254740993);
    QTest::newRow("text beyond 64 bits")
        << R"("9223372036854775808")"_ba << u"9223372036854775808"_s << zero << 0
        << 9223372036854775808.0 << qint64(0);
    QTest::newRow("fraction text") << R"("7.5")"_ba << u"7.5"_s << zero << 0 << 7.5 << qint64(0);
    QTest::newRow("exponent text") << R"("1e3")"_ba << u"1e3"_s << zero << 0 << 1000.0 << qint64(0);
    QTest::newRow("comma text") << R"("7,5")"_ba << u"7,5"_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("hexadecimal text")
        << R"("0x10")"_ba << u"0x10"_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("number and more")
        << R"("12abc")"_ba << u"12abc"_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("word") << R"("N/A")"_ba << u"N/A"_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("true text") << R"("true")"_ba << u"true"_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("empty text") << R"("")"_ba << u""_s << zero << 0 << 0.0 << qint64(0);
    QTest::newRow("date text") << R"("2024-01-31")"_ba << u"2024-01-31"_s << zero << 0 << 0.0
                               << qint64(0);
    QTest::newRow("escapes and other scripts")
        << R"("\"\\\u00e9\ud83d\ude00\u0000x")"_ba << u"\"\\\u00e9\U0001F600"_s + QChar(0) + u"x"_s
        << zero << 0 << 0.0 << qint64(0);
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

void tst_XtreamCatalog::numbersOutOfRange_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<double>("real");
    QTest::newRow("fraction") << "123.75"_ba << 123.75;
    QTest::newRow("huge") << "1e300"_ba << 1e300;
    QTest::newRow("tiny") << "1e-300"_ba << 1e-300;
    QTest::newRow("2^63") << "9223372036854775808"_ba << 9223372036854775808.0;
    QTest::newRow("far below") << "-1e19"_ba << -1e19;
}

void tst_XtreamCatalog::numbersOutOfRange()
{
    // What such a number is as an integer nobody asks, but the rest of its entry must be right.
    QFETCH(const QByteArray, value);
    QFETCH(const double, real);
    QByteArray text =
        R"([{"stream_id":V,"name":"n","category_id":"c","rating":V,"added":V},{"stream_id":7}])";
    const QList<MediaItem> movies = parseVodStreams(text.replace("V", value));
    QCOMPARE(movies.size(), 2);
    QCOMPARE(movies[0].name, u"n"_s);
    QCOMPARE(movies[0].categoryId, u"c"_s);
    QVERIFY(movies[0].rating == real); // exactly, QCOMPARE is fuzzy
    QCOMPARE(movies[1].id, u"7"_s);
}

void tst_XtreamCatalog::ratingsThatAreNoNumbers_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const QByteArray &word :
         {"nan"_ba, "NaN"_ba, "inf"_ba, "-inf"_ba, "+inf"_ba, "1e999"_ba}) {
        QTest::newRow(word.constData()) << '"' + word + '"';
    }
}

void tst_XtreamCatalog::ratingsThatAreNoNumbers()
{
    QFETCH(const QByteArray, value);
    // A list cannot be put in order by what has no order.
    const QByteArray text = R"([{"rating":)" + value + "}]";
    QCOMPARE(parseVodStreams(text).first().rating, 0.0);
    QCOMPARE(parseSeries(text).first().rating, 0.0);
}

void tst_XtreamCatalog::roots_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("HTML") << "<html></html>"_ba;
    QTest::newRow("text") << R"("stream_id")"_ba;
    QTest::newRow("number") << "5"_ba;
    QTest::newRow("null") << "null"_ba;
    QTest::newRow("cut behind a name") << R"([{"stream_id":1},{"series_id")"_ba;
    QTest::newRow("cut behind a colon") << R"([{"stream_id":1},{"series_id":)"_ba;
    QTest::newRow("number beyond a double") << R"([{"stream_id":1,"x":12e308}])"_ba;
    QTest::newRow("number too close to 0") << R"([{"stream_id":1,"x":[1e-400]}])"_ba;
    QTest::newRow("cut") << R"([{"stream_id":1,"series_id":1,"category_id":"1"},{"a":)"_ba;
    QTest::newRow("cut at the end") << R"([{"stream_id":1,"series_id":1,"category_id":"1"})"_ba;
    QTest::newRow("garbage behind") << R"([{"stream_id":1,"series_id":1,"category_id":"1"}]x)"_ba;
    QTest::newRow("comma too many") << R"([{"stream_id":1,"series_id":1,"category_id":"1"},])"_ba;
    QTest::newRow("empty array") << "[]"_ba;
    QTest::newRow("empty object") << "{}"_ba;
    QTest::newRow("object of entries")
        << R"({"0":{"stream_id":1,"series_id":1,"category_id":"1"}})"_ba;
    QTest::newRow("account summary") << R"({"user_info":{"auth":0}})"_ba;
}

void tst_XtreamCatalog::roots()
{
    QFETCH(const QByteArray, body);
    QVERIFY(parseCategories(body).isEmpty());
    QVERIFY(parseLiveStreams(body).isEmpty());
    QVERIFY(parseVodStreams(body).isEmpty());
    QVERIFY(parseSeries(body).isEmpty());
    QVERIFY(parseSeriesEpisodes(body).isEmpty());
}

void tst_XtreamCatalog::elementsThatAreNoObjects()
{
    const QByteArray body(R"([null,1,"x",true,[],[{"name":"n"}],{}])"_ba);
    QCOMPARE(parseCategories(body), QList<Category>(7));
    const auto expected = [](qint32 type) {
        MediaItem item;
        item.type = type;
        item.id = u"0"_s;
        return QList<MediaItem>(7, item);
    };
    QCOMPARE(parseLiveStreams(body), expected(0));
    QCOMPARE(parseVodStreams(body), expected(1));
    QCOMPARE(parseSeries(body), expected(2));
}

void tst_XtreamCatalog::orderAndDuplicatesAreKept()
{
    const QByteArray body(
        R"([{"stream_id":9,"category_id":"9"},{"stream_id":1,"category_id":"1"},
            {"stream_id":"9","category_id":"9"},{},{"stream_id":10,"category_id":"10"}])"_ba);
    QStringList ids;
    for (const MediaItem &item : parseLiveStreams(body)) {
        ids << item.id;
    }
    QCOMPARE(ids, (QStringList{u"9"_s, u"1"_s, u"9"_s, u"0"_s, u"10"_s}));
    QStringList categoryIds;
    for (const Category &category : parseCategories(body)) {
        categoryIds << category.id;
    }
    QCOMPARE(categoryIds, (QStringList{u"9"_s, u"1"_s, u"9"_s, QString(), u"10"_s}));
}

void tst_XtreamCatalog::wholeChannel()
{
    const QByteArray text = R"([{"num":1,"name":"News 24","stream_type":"live","stream_id":501,
        "stream_icon":"http://h/l.png","epg_channel_id":null,"added":"1600000000",
        "category_id":"12","rating":"9","container_extension":"ts","direct_source":"http://x"}])";
    QCOMPARE(parseLiveStreams(text),
             (QList<MediaItem>{
                 {0, u"501"_s, u"News 24"_s, u"12"_s, u"http://h/l.png"_s, {}, {}, 0, 0}}));
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

void tst_XtreamCatalog::seasonKeys_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<qint32>("season");
    QTest::newRow("number") << "12"_ba << 12;
    QTest::newRow("zero") << "0"_ba << 0;
    QTest::newRow("leading zero") << "010"_ba << 10;
    QTest::newRow("negative") << "-1"_ba << -1;
    QTest::newRow("empty") << ""_ba << 0;
    QTest::newRow("word") << "Specials"_ba << 0;
    QTest::newRow("word and number") << "Season 3"_ba << 0;
    QTest::newRow("fraction") << "1.5"_ba << 0;
    QTest::newRow("hexadecimal") << "0x10"_ba << 0;
    QTest::newRow("beyond 32 bits") << "4294967297"_ba << 0;
}

void tst_XtreamCatalog::seasonKeys()
{
    QFETCH(const QByteArray, key);
    QFETCH(const qint32, season);
    const QList<Episode> episodes =
        parseSeriesEpisodes(QByteArray(R"({"episodes":{")" + key + R"(":[{"id":1,"season":7}]}})"));
    QCOMPARE(episodes, (QList<Episode>{{u"1"_s, {}, season, 0, {}, {}}}));
}

void tst_XtreamCatalog::oddEpisodeReplies_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QList<Episode>>("episodes");
    using Episodes = QList<Episode>;
    const Episodes one{{u"1"_s, {}, 1, 0, {}, {}}};
    const Episode none{u"0"_s, {}, 1, 0, {}, {}};
    QTest::newRow("episodes missing") << R"({"info":{"name":"S"}})"_ba << Episodes();
    QTest::newRow("episodes is an array")
        << R"({"info":{"name":"S"},"episodes":[[{"id":1}]]})"_ba << Episodes();
    QTest::newRow("episodes is null") << R"({"episodes":null})"_ba << Episodes();
    QTest::newRow("episodes is a text") << R"({"episodes":"1"})"_ba << Episodes();
    QTest::newRow("episodes is empty") << R"({"episodes":{}})"_ba << Episodes();
    QTest::newRow("the root is an array") << R"([{"episodes":{"1":[{"id":1}]}}])"_ba << Episodes();
    QTest::newRow("a season is an object")
        << R"({"episodes":{"0":{"a":{"id":5}},"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("a season is null") << R"({"episodes":{"0":null,"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("a season is a text") << R"({"episodes":{"0":"x","1":[{"id":1}]}})"_ba << one;
    QTest::newRow("a season is empty") << R"({"episodes":{"0":[],"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("info missing") << R"({"episodes":{"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("info is an array") << R"({"info":[],"episodes":{"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("info is null") << R"({"info":null,"episodes":{"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("the show's name is null")
        << R"({"info":{"name":null},"episodes":{"1":[{"id":1}]}})"_ba << one;
    QTest::newRow("episodes that are no objects")
        << R"({"episodes":{"1":[null,5,"x",[],{}]}})"_ba << Episodes(5, none);
}

void tst_XtreamCatalog::oddEpisodeReplies()
{
    QFETCH(const QByteArray, reply);
    QFETCH(const QList<Episode>, episodes);
    QCOMPARE(parseSeriesEpisodes(reply), episodes);
}

void tst_XtreamCatalog::oddTexts_data()
{
    QTest::addColumn<QByteArray>("body");
    const QByteArray item = R"([{"stream_id":1,"name":"V","category_id":"c","rating":5}])"_ba;
    const auto row = [&item](const char *name, const QByteArray &value) {
        QTest::newRow(name) << QByteArray(item).replace("V", value);
    };
    row("surrogate pair", R"(a\ud83d\ude00b)"_ba);
    row("lone high surrogate", R"(a\ud83db)"_ba);
    row("lone low surrogate", R"(a\ude00b)"_ba);
    row("surrogates the wrong way round", R"(a\ude00\ud83db)"_ba);
    row("escaped NUL", R"(a\u0000b)"_ba);
    row("NUL", QByteArray("a\0b", 3));
    row("control characters", "a\nb\x01"_ba);
    row("unknown escape", R"(a\xb)"_ba);
    row("Latin-1", "caf\xe9"_ba);
    row("cut UTF-8", "a\xc3"_ba);
    row("overlong UTF-8", "a\xc0\x80"_ba);
    row("surrogate in UTF-8", "a\xed\xa0\x80"_ba);
    row("byte-order mark", "\xef\xbb\xbfx"_ba);
    row("escaped byte-order mark", R"(\ufeffx)"_ba);
    row("escaped key", R"(n","\u006eame":"later)"_ba);
    row("key twice", R"(n","name":"later)"_ba);
    row("key twice, then an object", R"(n","name":{"name":"inner"},"x":")"_ba);
    row("key of an inner object", R"(n","x":{"name":"inner","rating":7},"y":")"_ba);
    row("key of an inner array", R"(n","x":[{"name":"inner"},"name"],"y":")"_ba);
    QTest::newRow("byte-order mark before the list") << "\xef\xbb\xbf" + item;
    QTest::newRow("number beyond a double") << QByteArray(item).replace("5}", "12e308}");
    QTest::newRow("number too close to 0") << QByteArray(item).replace("5}", "1e-400}");
    QTest::newRow("minus zero") << QByteArray(item).replace("5}", "-0}");
    QTest::newRow("number with zeros") << QByteArray(item).replace("5}", "05}");
    QTest::newRow("nested deeply")
        << QByteArray(item).replace("5}", QByteArray(500, '[') + QByteArray(500, ']') + '}');
    QTest::newRow("nested too deeply")
        << QByteArray(item).replace("5}", QByteArray(5000, '[') + QByteArray(5000, ']') + '}');
    QTest::newRow("cut inside a nesting") << QByteArray(item).replace("5}", QByteArray(5000, '['));
    QTest::newRow("UTF-16") << QByteArray("[\0{\0}\0]\0", 8);
}

void tst_XtreamCatalog::oddTexts()
{
    // Whatever Qt's own parser makes of such a text is right.
    QFETCH(const QByteArray, body);
    const QJsonArray expected = QJsonDocument::fromJson(body).array();
    const QList<MediaItem> movies = parseVodStreams(body);
    QCOMPARE(movies.size(), expected.size());
    for (qsizetype index = 0; index < movies.size(); ++index) {
        const QJsonObject object = expected.at(index).toObject();
        const MediaItem &movie = movies.at(index);
        QCOMPARE(movie.id, QString::number(object.value("stream_id"_L1).toInteger()));
        QCOMPARE(movie.name, object.value("name"_L1).toString());
        QCOMPARE(movie.categoryId, object.value("category_id"_L1).toString());
        QCOMPARE(movie.rating, object.value("rating"_L1).toDouble());
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamCatalog)
#include "tst_XtreamCatalog.moc"
