#include "app/TraceSecrets.h"
#include "providers/XtreamSession.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"

#include <QTest>

#include <algorithm>

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
    void serverAddress_data();
    void serverAddress();
    void twoSlashesAtTheRoot();
    void requestHasNoHeadersOfItsOwn();
    void catalogCalls_data();
    void catalogCalls();
    void failedCatalogCalls_data();
    void failedCatalogCalls();

    void streamUrls_data();
    void streamUrls();
    void unconfiguredClient();
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
    QTest::newRow("extra that is nothing else") << u"a"_s << u"="_s << u"&action=a"_s;
    QTest::newRow("extra without a value") << u"a"_s << u"key="_s << u"&action=a&key="_s;
    QTest::newRow("extra split at the first equals sign")
        << u"a"_s << u"key=x=y"_s << u"&action=a&key=x%3Dy"_s;
    QTest::newRow("extra with an ampersand")
        << u"a"_s << u"key=x&other=y"_s << u"&action=a&key=x%26other%3Dy"_s;
    QTest::newRow("extra with a number sign") << u"a"_s << u"key=x#y"_s << u"&action=a&key=x%23y"_s;
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
}

void tst_XtreamRequests::accountIsEncoded_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("received");
    const auto row = [](const char *name, const QString &text, const QString &sent,
                        const QString &received) {
        QTest::newRow(name) << text << sent << received;
    };
    const auto kept = [&row](const char *name, const QString &text, const QString &sent) {
        row(name, text, sent, text);
    };
    kept("empty", u""_s, QString());
    kept("space", u"a b"_s, u"a%20b"_s);
    kept("delimiters", u"a&b=c#d"_s, u"a%26b%3Dc%23d"_s);
    kept("signs that may stand in a query", u"a/b?c:d@e!$'()*,;+"_s, u"a/b?c:d@e!$'()*,;%2B"_s);
    kept("signs that may not", u"<\">`\\^{|}"_s, u"%3C%22%3E%60%5C%5E%7B%7C%7D"_s);
    kept("not ASCII", u"\u00e9\U0001F600"_s, u"%C3%A9%F0%9F%98%80"_s);
    kept("a percent sign at the end", u"100%"_s, u"100%25"_s);
    kept("a percent sign without digits", u"%zz"_s, u"%25zz"_s);
    // Qt takes a percent sign with digits for an encoded character.
    row("percent-encoded", u"a%20b"_s, u"a%20b"_s, u"a b"_s);
    row("percent-encoded delimiters", u"a%26b%3Dc%23%2F"_s, u"a%26b%3Dc%23%2F"_s, u"a&b=c#/"_s);
    row("percent-encoded, not ASCII", u"%C3%BC"_s, u"%C3%BC"_s, u"\u00fc"_s);
    row("percent-encoded plus sign", u"a%2Bb"_s, u"a%2Bb"_s, u"a+b"_s);
    row("percent-encoded percent sign", u"100%25"_s, u"100%25"_s, u"100%"_s);
}

void tst_XtreamRequests::accountIsEncoded()
{
    QFETCH(const QString, text);
    QFETCH(const QString, sent);
    QFETCH(const QString, received);
    XtreamSession xtream;
    xtream.client->configure(xtream.server.url(), text, text);
    QCOMPARE(xtream.get(u"a"_s), "{}"_ba);
    QCOMPARE(xtream.onlyQuery(), u"username="_s + sent + u"&password="_s + sent + u"&action=a"_s);
    const QList<std::pair<QString, QString>> items{
        {u"username"_s, received}, {u"password"_s, received}, {u"action"_s, u"a"_s}};
    QCOMPARE(xtream.server.requests().first().query, items);
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

void tst_XtreamRequests::serverAddress_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("path");
    QTest::newRow("no slash") << u""_s << u"/player_api.php"_s;
    QTest::newRow("one slash") << u"/"_s << u"/player_api.php"_s;
    QTest::newRow("two slashes below the root") << u"/tv//"_s << u"/tv//player_api.php"_s;
    QTest::newRow("three slashes below the root") << u"/tv///"_s << u"/tv///player_api.php"_s;
    QTest::newRow("below the root") << u"/panel/tv"_s << u"/panel/tv/player_api.php"_s;
    QTest::newRow("below the root, slash") << u"/panel/tv/"_s << u"/panel/tv/player_api.php"_s;
    QTest::newRow("not cleaned") << u"/get.php"_s << u"/get.php/player_api.php"_s;
    QTest::newRow("space in the path") << u"/a b"_s << u"/a b/player_api.php"_s;
}

void tst_XtreamRequests::serverAddress()
{
    QFETCH(const QString, suffix);
    QFETCH(const QString, path);
    XtreamSession xtream;
    xtream.server.on(path, bodyReply("[1]"_ba));
    xtream.client->configure(xtream.server.url(suffix), u"u"_s, u"p"_s);
    QCOMPARE(xtream.get(), "[1]"_ba);
    QCOMPARE(xtream.onlyQuery(), u"username=u&password=p"_s);
    QCOMPARE(xtream.server.requests().first().path, path);
}

void tst_XtreamRequests::twoSlashesAtTheRoot()
{
    // One is removed, so that the address has an empty segment. Qt decides how to send that (6.4
    // leaves the segment out), but the request must reach the server.
    XtreamSession xtream;
    xtream.server.onPrefix(u"/"_s, [](const HttpRequest &) { return bodyReply("{}"_ba); });
    xtream.client->configure(xtream.server.url(u"//"_s), u"u"_s, u"p"_s);
    QCOMPARE(xtream.client->liveStreamUrl(u"1"_s, u"ts"_s),
             xtream.server.url(u"//live/u/p/1.ts"_s));
    QCOMPARE(xtream.get(), "{}"_ba);
    QVERIFY(xtream.server.requests().first().target.endsWith(
        u"/player_api.php?username=u&password=p"_s));
}

void tst_XtreamRequests::requestHasNoHeadersOfItsOwn()
{
    XtreamSession xtream;
    QCOMPARE(xtream.get(), "{}"_ba);
    const HttpRequest request = xtream.server.requests().first();
    QList<QByteArray> names;
    for (const auto &[name, value] : request.headers) {
        names << name.toLower();
    }
    std::sort(names.begin(), names.end());
    // What Qt's network stack sends for any request.
    QCOMPARE(names, (QList<QByteArray>{"accept-encoding", "accept-language", "connection", "host",
                                       "user-agent"}));
    QCOMPARE(request.header("User-Agent"_ba), "Mozilla/5.0"_ba);
}

namespace {

/// One of the catalog calls, by name: how many records it gave.
Answer<qsizetype> fetch(XtreamClient &client, const QByteArray &call, const QString &id)
{
    return await<qsizetype>([&](auto callback) {
        const auto categories = [callback](const QList<Category> &list) { callback(list.size()); };
        const auto items = [callback](const QList<MediaItem> &list) { callback(list.size()); };
        const auto episodes = [callback](const QList<Episode> &list) { callback(list.size()); };
        if (call == "fetchLiveCategories") {
            client.fetchLiveCategories(categories);
        } else if (call == "fetchVodCategories") {
            client.fetchVodCategories(categories);
        } else if (call == "fetchSeriesCategories") {
            client.fetchSeriesCategories(categories);
        } else if (call == "fetchLiveStreams") {
            client.fetchLiveStreams(id, items);
        } else if (call == "fetchVodStreams") {
            client.fetchVodStreams(id, items);
        } else if (call == "fetchSeries") {
            client.fetchSeries(id, items);
        } else {
            client.fetchSeriesEpisodes(id, episodes);
        }
    });
}

const QList<QByteArray> listCalls{"fetchLiveCategories"_ba,   "fetchVodCategories"_ba,
                                  "fetchSeriesCategories"_ba, "fetchLiveStreams"_ba,
                                  "fetchVodStreams"_ba,       "fetchSeries"_ba};

} // namespace

void tst_XtreamRequests::catalogCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("rest");
    const auto row = [](const QByteArray &call, const QString &id, const QString &rest) {
        QTest::newRow((call + " \"" + id.toUtf8() + '"').constData()) << call << id << rest;
    };
    row("fetchLiveCategories"_ba, {}, u"get_live_categories"_s);
    row("fetchVodCategories"_ba, {}, u"get_vod_categories"_s);
    row("fetchSeriesCategories"_ba, {}, u"get_series_categories"_s);
    row("fetchLiveStreams"_ba, {}, u"get_live_streams"_s);
    row("fetchLiveStreams"_ba, u"5"_s, u"get_live_streams&category_id=5"_s);
    row("fetchVodStreams"_ba, {}, u"get_vod_streams"_s);
    row("fetchVodStreams"_ba, u"a&b"_s, u"get_vod_streams&category_id=a%26b"_s);
    row("fetchSeries"_ba, {}, u"get_series"_s);
    row("fetchSeries"_ba, u"0"_s, u"get_series&category_id=0"_s);
    row("fetchSeriesEpisodes"_ba, u"77"_s, u"get_series_info&series_id=77"_s);
    row("fetchSeriesEpisodes"_ba, {}, u"get_series_info&series_id="_s);
}

void tst_XtreamRequests::catalogCalls()
{
    QFETCH(const QByteArray, call);
    QFETCH(const QString, id);
    QFETCH(const QString, rest);
    const bool isEpisodes = call == "fetchSeriesEpisodes";
    XtreamSession xtream;
    xtream.reply(
        bodyReply(isEpisodes ? R"({"episodes":{"1":[{},{}],"2":[{}]}})"_ba : "[{},{},{}]"_ba));
    const auto answer = fetch(*xtream.client, call, id);
    QCOMPARE(answer.calls, 1);
    QCOMPARE(answer.value, 3);
    QCOMPARE(xtream.onlyQuery(), u"username=joe&password=secret&action="_s + rest);
}

void tst_XtreamRequests::failedCatalogCalls_data()
{
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<HttpReply>("reply");
    QList<QByteArray> calls = listCalls;
    calls << "fetchSeriesEpisodes"_ba;
    for (const QByteArray &call : calls) {
        // Records in the body of a failure do not count.
        QTest::newRow((call + ", HTTP error").constData())
            << call << statusReply(500, R"([{"stream_id":1}])"_ba);
        QTest::newRow((call + ", no JSON").constData()) << call << bodyReply("[{},{}"_ba);
        QTest::newRow((call + ", other JSON").constData())
            << call
            << HttpReply::json(call == "fetchSeriesEpisodes" ? R"([{"id":1}])"_ba
                                                             : R"({"user_info":{}})"_ba);
    }
}

void tst_XtreamRequests::failedCatalogCalls()
{
    QFETCH(const QByteArray, call);
    QFETCH(const HttpReply, reply);
    XtreamSession xtream;
    xtream.reply(reply);
    const auto answer = fetch(*xtream.client, call, u"5"_s);
    QCOMPARE(answer.calls, 1);
    QCOMPARE(answer.value, 0);
}

void tst_XtreamRequests::streamUrls_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("before"); // the kind stands between these two
    QTest::addColumn<QString>("behind");
    const QString host = u"http://h:80"_s;
    QTest::newRow("plain") << host << u"joe"_s << u"pw"_s << u"12"_s << u"m3u8"_s
                           << u"http://h:80/"_s << u"/joe/pw/12.m3u8"_s;
    QTest::newRow("one trailing slash") << host + u"/"_s << u"joe"_s << u"pw"_s << u"12"_s
                                        << u"ts"_s << u"http://h:80/"_s << u"/joe/pw/12.ts"_s;
    QTest::newRow("two trailing slashes") << host + u"//"_s << u"joe"_s << u"pw"_s << u"12"_s
                                          << u"ts"_s << u"http://h:80//"_s << u"/joe/pw/12.ts"_s;
    QTest::newRow("nothing is encoded")
        << host << u"j/o?e"_s << u"p w&\u00e9%20"_s << u"a b"_s << u"#"_s << u"http://h:80/"_s
        << u"/j/o?e/p w&\u00e9%20/a b.#"_s;
    QTest::newRow("place markers in the values")
        << u"http://%2"_s << u"%3%1"_s << u"%4"_s << u"%5"_s << u"%1%2"_s << u"http://%2/"_s
        << u"/%3%1/%4/%5.%1%2"_s;
    QTest::newRow("localised place markers") << host << u"%L1"_s << u"%99"_s << u"%%1"_s << u"%"_s
                                             << u"http://h:80/"_s << u"/%L1/%99/%%1.%"_s;
    QTest::newRow("empty values") << QString() << QString() << QString() << QString() << QString()
                                  << u"/"_s << u"///."_s;
}

void tst_XtreamRequests::streamUrls()
{
    QFETCH(const QString, address);
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, id);
    QFETCH(const QString, extension);
    QFETCH(const QString, before);
    QFETCH(const QString, behind);
    XtreamClient client(nullptr);
    client.configure(address, username, password);
    QCOMPARE(client.liveStreamUrl(id, extension), before + u"live"_s + behind);
    QCOMPARE(client.movieStreamUrl(id, extension), before + u"movie"_s + behind);
    QCOMPARE(client.episodeStreamUrl(id, extension), before + u"series"_s + behind);
}

void tst_XtreamRequests::unconfiguredClient()
{
    QObject parent;
    const auto *child = new XtreamClient(&parent);
    QCOMPARE(child->parent(), &parent);
    XtreamSession xtream;
    xtream.client = std::make_unique<XtreamClient>(nullptr);
    QCOMPARE(xtream.client->liveStreamUrl(u"1"_s, u"ts"_s), u"/live///1.ts"_s);
    QCOMPARE(xtream.get(), XtreamSession::failed);
}

VANTIRO_TEST_GUILESS_MAIN(tst_XtreamRequests)
#include "tst_XtreamRequests.moc"
