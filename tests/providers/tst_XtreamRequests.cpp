#include "app/TraceSecrets.h"
#include "providers/XtreamSession.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QTest>

using namespace Qt::StringLiterals;

// What XtreamClient sends; tst_XtreamClient shows what becomes of it.

class tst_XtreamRequests : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void query_data();
    void query();
    void accountIsEncoded_data();
    void accountIsEncoded();
    void withoutTheSwitchNothingIsTraced();
    void serverAddress();
    void catalogCalls_data();
    void catalogCalls();

    void streamUrls_data();
    void streamUrls();
};

void tst_XtreamRequests::query_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("extra");
    QTest::addColumn<QString>("rest");
    QTest::newRow("no action") << QString() << QString() << QString();
    QTest::newRow("action") << u"get_series"_s << QString() << u"&action=get_series"_s;
    QTest::newRow("action and extra")
        << u"get_series"_s << u"category_id=5"_s << u"&action=get_series&category_id=5"_s;
    QTest::newRow("extra without action") << QString() << u"series_id=5"_s << u"&series_id=5"_s;
    QTest::newRow("extra without an equals sign") << u"a"_s << u"key"_s << u"&action=a"_s;
    QTest::newRow("extra that begins with it") << u"a"_s << u"=value"_s << u"&action=a"_s;
    QTest::newRow("extra without a value") << u"a"_s << u"key="_s << u"&action=a&key="_s;
    QTest::newRow("extra with an ampersand")
        << u"a"_s << u"key=x&other=y"_s << u"&action=a&key=x%26other%3Dy"_s;
    QTest::newRow("action with signs") << u"a b&c"_s << QString() << u"&action=a%20b%26c"_s;
    QTest::newRow("not ASCII") << u"\u00e9"_s << u"\u4e2d=\u00e9"_s
                               << u"&action=%C3%A9&%E4%B8%AD=%C3%A9"_s;
}

void tst_XtreamRequests::query()
{
    QFETCH(const QString, action);
    QFETCH(const QString, extra);
    QFETCH(const QString, rest);
    XtreamSession xtream;
    QCOMPARE(xtream.get(action, extra), "{}"_ba);
    QCOMPARE(xtream.onlyQuery(), u"username=joe&password=secret"_s + rest);
    const HttpRequest request = xtream.server.requests().first();
    QCOMPARE(request.method, "GET"_ba);
    QCOMPARE(request.body, QByteArray());
    QCOMPARE(headerNames(request), "accept-encoding accept-language connection host user-agent"_ba);
    QCOMPARE(request.header("User-Agent"_ba), "Mozilla/5.0"_ba);
}

void tst_XtreamRequests::accountIsEncoded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sent");
    const auto row = [](const char *name, const QString &text, const QString &sent) {
        QTest::newRow(name) << text << sent;
    };
    row("null", {}, QString());
    row("empty", u""_s, QString());
    row("space", u"a b"_s, u"a%20b"_s);
    row("delimiters", u"a&b=c#d"_s, u"a%26b%3Dc%23d"_s);
    row("signs that may stand in a query", u"a/b?c:d@e!$'()*,;+"_s, u"a/b?c:d@e!$'()*,;%2B"_s);
    row("signs that may not", u"<\">`\\^{|}"_s, u"%3C%22%3E%60%5C%5E%7B%7C%7D"_s);
    row("not ASCII", u"\u00e9\U0001F600"_s, u"%C3%A9%F0%9F%98%80"_s);
    row("a percent sign at the end", u"100%"_s, u"100%25"_s);
    // Qt takes a percent sign with digits for an encoded character.
    for (const QString &text : {u"a%20b"_s, u"a%26b%3Dc%23%2F"_s, u"a%2Bb"_s}) {
        row(qUtf8Printable(text), text, text);
    }
}

void tst_XtreamRequests::accountIsEncoded()
{
    QFETCH(const QString, text);
    QFETCH(const QString, sent);
    XtreamSession xtream;
    xtream.client->configure(xtream.server.url(), text, text);
    QCOMPARE(xtream.get(u"a"_s), "{}"_ba);
    QCOMPARE(xtream.onlyQuery(), u"username="_s + sent + u"&password="_s + sent + u"&action=a"_s);
}

void tst_XtreamRequests::withoutTheSwitchNothingIsTraced()
{
    TraceCapture trace;
    XtreamSession xtream;
    xtream.client->configure(xtream.server.url(), u"joe"_s, u"Silent-Pw"_s);
    QCOMPARE(xtream.get(), "{}"_ba);
    xtream.reply(statusReply(403, "Silent-Pw"_ba));
    QCOMPARE(xtream.get(), XtreamSession::failed);
    QCOMPARE(trace.take(), QString());
    // No secret was registered either.
    const RedactionScope redaction(u"Silent-Pw"_s, u"http://u:Silent-Url-Pw@h/"_s);
    QCOMPARE(traceSafe(u"Silent-Pw Silent-Url-Pw"_s), u"Silent-Pw Silent-Url-Pw"_s);
}

void tst_XtreamRequests::serverAddress()
{
    const QMap<QString, QString> paths{{u""_s, u"/player_api.php"_s},
                                       {u"/"_s, u"/player_api.php"_s},
                                       {u"/tv//"_s, u"/tv//player_api.php"_s},
                                       {u"/panel/tv"_s, u"/panel/tv/player_api.php"_s},
                                       {u"/a b"_s, u"/a b/player_api.php"_s}};
    for (auto path = paths.begin(); path != paths.end(); ++path) {
        XtreamSession xtream;
        xtream.server.on(*path, bodyReply("[1]"_ba));
        xtream.client->configure(xtream.server.url(path.key()), u"u"_s, u"p"_s);
        QCOMPARE(xtream.get(), "[1]"_ba);
        QCOMPARE(xtream.onlyQuery(), u"username=u&password=p"_s);
        QCOMPARE(xtream.server.requests().first().path, *path);
    }
}

namespace {

/// The number of records that a catalog call gave, and how often it answered.
using Fetch = std::function<Answer<qsizetype>(XtreamClient &, const QString &)>;

template <typename Record>
Fetch fetch(void (XtreamClient::*call)(std::function<void(CatalogReply<Record>)>))
{
    return [call](XtreamClient &client, const QString &) {
        return await<qsizetype>([&](auto callback) {
            (client.*call)([callback](const QList<Record> &list) { callback(list.size()); });
        });
    };
}

template <typename Record>
Fetch fetch(void (XtreamClient::*call)(const QString &, std::function<void(CatalogReply<Record>)>))
{
    return [call](XtreamClient &client, const QString &id) {
        return await<qsizetype>([&](auto callback) {
            (client.*call)(id, [callback](const QList<Record> &list) { callback(list.size()); });
        });
    };
}

} // namespace

Q_DECLARE_METATYPE(Fetch)

void tst_XtreamRequests::catalogCalls_data()
{
    QTest::addColumn<Fetch>("call");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("rest");
    const auto row = [](const Fetch &call, const QString &id, const QString &rest) {
        QTest::newRow(qUtf8Printable(rest)) << call << id << rest;
    };
    row(fetch(&XtreamClient::fetchLiveCategories), {}, u"get_live_categories"_s);
    row(fetch(&XtreamClient::fetchVodCategories), {}, u"get_vod_categories"_s);
    row(fetch(&XtreamClient::fetchSeriesCategories), {}, u"get_series_categories"_s);
    const Fetch live = fetch(&XtreamClient::fetchLiveStreams);
    row(live, {}, u"get_live_streams"_s);
    row(live, u"5"_s, u"get_live_streams&category_id=5"_s);
    const Fetch movies = fetch(&XtreamClient::fetchVodStreams);
    row(movies, {}, u"get_vod_streams"_s);
    row(movies, u"a&b"_s, u"get_vod_streams&category_id=a%26b"_s);
    const Fetch shows = fetch(&XtreamClient::fetchSeries);
    row(shows, {}, u"get_series"_s);
    row(shows, u"0"_s, u"get_series&category_id=0"_s);
    const Fetch episodes = fetch(&XtreamClient::fetchSeriesEpisodes);
    row(episodes, u"77"_s, u"get_series_info&series_id=77"_s);
    row(episodes, {}, u"get_series_info&series_id="_s);
}

void tst_XtreamRequests::catalogCalls()
{
    QFETCH(const Fetch, call);
    QFETCH(const QString, id);
    QFETCH(const QString, rest);
    const bool isInfo = rest.startsWith("get_series_info"_L1);
    XtreamSession xtream;
    xtream.reply(bodyReply(isInfo ? R"({"episodes":{"1":[{},{}],"2":[{}]}})"_ba : "[{},{},{}]"_ba));
    const auto answer = call(*xtream.client, id);
    QCOMPARE(answer.calls, 1);
    QCOMPARE(answer.value, 3);
    QCOMPARE(xtream.onlyQuery(), u"username=joe&password=secret&action="_s + rest);

    // Records in the body of a failure do not count.
    for (const HttpReply &failure : {statusReply(500, R"([{"stream_id":1}])"_ba),
                                     bodyReply("[{},{}"_ba), bodyReply(R"({"user_info":{}})"_ba)}) {
        xtream.reply(failure);
        const auto failed = call(*xtream.client, id);
        QCOMPARE(failed.calls, 1);
        QCOMPARE(failed.value, 0);
    }
}

void tst_XtreamRequests::streamUrls_data()
{
    QTest::addColumn<QStringList>("values"); // address, user, password, id, extension
    QTest::addColumn<QString>("before");     // the kind stands between these two
    QTest::addColumn<QString>("behind");
    const QString host = u"http://h:80"_s;
    QTest::newRow("plain") << QStringList{host, u"joe"_s, u"pw"_s, u"12"_s, u"m3u8"_s}
                           << host + u'/' << u"/joe/pw/12.m3u8"_s;
    QTest::newRow("two trailing slashes")
        << QStringList{host + u"//"_s, u"joe"_s, u"pw"_s, u"12"_s, u"ts"_s} << host + u"//"_s
        << u"/joe/pw/12.ts"_s;
    QTest::newRow("nothing is encoded")
        << QStringList{host, u"j/o?e"_s, u"p w&\u00e9%20"_s, u"a b"_s, u"#"_s} << host + u'/'
        << u"/j/o?e/p w&\u00e9%20/a b.#"_s;
    QTest::newRow("place markers in the values")
        << QStringList{u"http://%2"_s, u"%3%1"_s, u"%4"_s, u"%L5"_s, u"%1%2"_s} << u"http://%2/"_s
        << u"/%3%1/%4/%L5.%1%2"_s;
    QTest::newRow("empty values") << QStringList(5, QString()) << u"/"_s << u"///."_s;
}

void tst_XtreamRequests::streamUrls()
{
    QFETCH(const QStringList, values);
    QFETCH(const QString, before);
    QFETCH(const QString, behind);
    XtreamClient client(nullptr);
    client.configure(values[0], values[1], values[2]);
    QCOMPARE(client.liveStreamUrl(values[3], values[4]), before + u"live"_s + behind);
    QCOMPARE(client.movieStreamUrl(values[3], values[4]), before + u"movie"_s + behind);
    QCOMPARE(client.episodeStreamUrl(values[3], values[4]), before + u"series"_s + behind);
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamRequests)
#include "tst_XtreamRequests.moc"
