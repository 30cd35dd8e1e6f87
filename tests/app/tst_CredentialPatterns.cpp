#include "app/TraceSecrets.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// What is redacted because of its name or position. Runs with VANTIRO_NET_DEBUG=1.
class tst_CredentialPatterns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void redactsCredentialsOfUrls_data();
    void redactsCredentialsOfUrls();
    void aUrlValueIsRedactedElsewhere();
    void aDecodedUrlValueIsRedacted();
    void redactsNamedCredentials_data();
    void redactsNamedCredentials();
    void keepsHarmlessNamesAndFolders_data();
    void keepsHarmlessNamesAndFolders();
    void shortFormOfAStreamUrl_data();
    void shortFormOfAStreamUrl();
};

void tst_CredentialPatterns::redactsCredentialsOfUrls_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("shown");
    QTest::newRow("user info") << u"http://joe:Url-Pw-1@h/list.m3u"_s
                               << u"http://joe:***@h/list.m3u"_s;
    QTest::newRow("user info, percent-encoded")
        << u"http://joe:Url%40Pw%2F2@h/"_s << u"http://joe:***@h/"_s;
    QTest::newRow("user info without a name") << u"http://:Url-Pw-3@h/"_s << u"http://:***@h/"_s;
    QTest::newRow("password item") << u"http://h/get.php?username=joe&password=Url-Pw-4&type=m3u"_s
                                   << u"http://h/get.php?username=joe&password=***&type=m3u"_s;
    QTest::newRow("password item, percent-encoded")
        << u"http://h/get.php?password=Url%26Pw%3d5&output=ts"_s
        << u"http://h/get.php?password=***&output=ts"_s;
    QTest::newRow("password item, capitals")
        << u"http://h/?PASSWORD=Url-Pw-6"_s << u"http://h/?PASSWORD=***"_s;
    QTest::newRow("pass, pwd, token, api_key, auth, secret")
        << u"http://h/?pass=Url-a1&pwd=Url-b2&token=Url-c3&api_key=Url-d4&auth=Url-e5&secret=Url-f6"_s
        << u"http://h/?pass=***&pwd=***&token=***&api_key=***&auth=***&secret=***"_s;
    QTest::newRow("empty password item")
        << u"http://h/?password=&x=1"_s << u"http://h/?password=&x=1"_s;
    QTest::newRow("live path") << u"http://h:80/live/joe/Url-Pw-7/1.ts"_s
                               << u"http://h:80/live/joe/***/1.ts"_s;
    QTest::newRow("movie path") << u"http://h/movie/joe/Url-Pw-8/1.mp4"_s
                                << u"http://h/movie/joe/***/1.mp4"_s;
    QTest::newRow("series path") << u"http://h/series/joe/Url-Pw-9/1.mkv?x#y"_s
                                 << u"http://h/series/joe/***/1.mkv?x#y"_s;
    QTest::newRow("live path, percent-encoded")
        << u"http://h/live/joe/Url%20Pw%2610/1.ts"_s << u"http://h/live/joe/***/1.ts"_s;
    QTest::newRow("live path below the root")
        << u"http://h/a/b/live/joe/Url-Pw-11/1.ts"_s << u"http://h/a/b/live/joe/***/1.ts"_s;
    QTest::newRow("several kinds at once")
        << u"http://u:Url-Pw-12@h/live/joe/Url-Pw-13/1.ts?token=Url-Pw-14"_s
        << u"http://u:***@h/live/joe/***/1.ts?token=***"_s;
    QTest::newRow("none") << u"http://joe@h/live/stream.m3u8?user=joe&id=77"_s
                          << u"http://joe@h/live/stream.m3u8?user=joe&id=77"_s;
    QTest::newRow("a file") << u"/home/joe/live/channels.m3u"_s << u"/home/joe/live/channels.m3u"_s;
    QTest::newRow("no URL at all") << u"http://[::x y%%"_s << u"http://[::x y%%"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void tst_CredentialPatterns::redactsCredentialsOfUrls()
{
    QFETCH(const QString, url);
    QFETCH(const QString, shown);
    const RedactionScope redaction({}, url);
    QCOMPARE(traceSafe(url), shown);
    QCOMPARE(traceSafeUrl(url), shown);
}

void tst_CredentialPatterns::aUrlValueIsRedactedElsewhere()
{
    const RedactionScope redaction({}, u"http://h/get.php?username=joe&password=El%2Fse%26where"_s);
    QCOMPARE(traceSafe(uR"({"password":"El\/se&where"} El/se%26where)"_s),
             uR"({"password":"***"} ***)"_s);
}

void tst_CredentialPatterns::aDecodedUrlValueIsRedacted()
{
    // A form encodes a space as a plus sign; the server's reply has the space.
    const RedactionScope redaction({}, u"http://h/get.php?password=form+written+word"_s);
    QCOMPARE(traceSafe(u"password=form+written+word"_s), u"password=***"_s);
    QCOMPARE(traceSafe(u"the form written word"_s), u"the ***"_s);
}

void tst_CredentialPatterns::redactsNamedCredentials_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const QString &text, const QString &shown) {
        QTest::newRow(name) << text << shown;
    };
    row("JSON", uR"({"password":"unknown1","x":"seen"})"_s, uR"({"password":"***","x":"seen"})"_s);
    row("JSON, short", uR"({"password":"1","x":1})"_s, uR"({"password":"***","x":1})"_s);
    row("JSON with spaces", u"{ \"api_key\" :\n \"a b\" }"_s, u"{ \"api_key\" :\n \"***\" }"_s);
    row("JSON number", uR"({"password":1234567,"x":1})"_s, uR"({"password":***,"x":1})"_s);
    row("JSON list", uR"({"tokens":1,"token":["abc"]})"_s, uR"({"tokens":1,"token":["***"]})"_s);
    row("JSON with an escaped quote", uR"({"pass":"a\"b,c","x":1})"_s,
        uR"({"pass":"***","x":1})"_s);
    row("JSON that ends with a backslash", uR"({"pass":"ab\\","x":"y"})"_s,
        uR"({"pass":"***","x":"y"})"_s);
    row("JSON that is cut", uR"({"data":{"password":"unkno)"_s, uR"({"data":{"password":"***)"_s);
    row("JSON that is malformed", uR"(<b>{"password":"unknown1" "x":)"_s,
        uR"(<b>{"password":"***" "x":)"_s);
    row("JSON in JSON", uR"({"data":"{\"password\":\"un\\\"known\",\"x\":1}"})"_s,
        uR"({"data":"{\"password\":\"***\",\"x\":1}"})"_s);
    row("single quotes", u"{'password': 'unknown1', 'x': 'y'}"_s,
        u"{'password': '***', 'x': 'y'}"_s);
    row("a name without quotes", uR"({status:"error",password:"unknown1"})"_s,
        uR"({status:"error",password:"***"})"_s);
    row("an array of PHP", u"['password' => 'unknown1', 'x' => 1]"_s,
        u"['password' => '***', 'x' => 1]"_s);
    row("an element", u"<user><password>a b</password><x>y</x>"_s,
        u"<user><password>***</password><x>y</x>"_s);
    row("an attribute", u"<user password=\"a b\" x=\"y\">"_s, u"<user password=\"***\" x=\"y\">"_s);
    row("a form", u"username=joe&password=unknown1&x=y"_s, u"username=joe&password=***&x=y"_s);
    row("a URL in JSON", uR"({"url":"http:\/\/h\/?user=u&token=ab\/c&x=y"})"_s,
        uR"({"url":"http:\/\/h\/?user=u&token=***&x=y"})"_s);
    row("a URL in a URL", u"http://h/?to=http%3A%2F%2Fk%2F%3Ftoken%3Dabc%26x%3Dy&z=1"_s,
        u"http://h/?to=http%3A%2F%2Fk%2F%3Ftoken%3D***%26x%3Dy&z=1"_s);
    row("a value that holds an item", u"http://h/?to=http://k/?token=abc&z=1"_s,
        u"http://h/?to=http://k/?token=***&z=1"_s);
    row("user information", u"see http://joe:a@b@h:80/x and @"_s,
        u"see http://joe:***@h:80/x and @"_s);
    row("user information in JSON", uR"("http:\/\/joe:pw@h\/x")"_s,
        uR"("http:\/\/joe:***@h\/x")"_s);
    row("an account path in JSON", uR"("http:\/\/h\/live\/joe\/pw\/1.ts")"_s,
        uR"("http:\/\/h\/live\/joe\/***\/1.ts")"_s);
    row("a playlist path", u"http://h/playlist/joe/pw/m3u_plus?output=ts"_s,
        u"http://h/playlist/joe/***/m3u_plus?output=ts"_s);
    row("a playlist path that ends", u"http://h/playlist/joe/pw"_s, u"http://h/playlist/joe/***"_s);
    row("a timeshift path", u"http://h/timeshift/joe/pw/60/2024-01-01:10-00/7.ts"_s,
        u"http://h/timeshift/joe/***/60/2024-01-01:10-00/7.ts"_s);
    for (const char *name :
         {"pass", "password", "Passwd", "PWD", "token", "secret", "key", "auth", "access_token",
          "accessToken", "apiKey", "APIKey", "apikey", "authToken", "X-Auth-Token", "user.pass",
          "key2", "subscription_key"}) {
        const QString item = QString::fromLatin1(name) + u'=';
        row(name, u"http://h/?a=b&"_s + item + u"v&c=d"_s,
            u"http://h/?a=b&"_s + item + u"***&c=d"_s);
    }
}

void tst_CredentialPatterns::redactsNamedCredentials()
{
    QFETCH(const QString, text);
    QFETCH(const QString, shown);
    QCOMPARE(traceSafe(text), shown);
    QCOMPARE(traceSafeHead(text.toUtf8(), 100'000), shown);
}

void tst_CredentialPatterns::keepsHarmlessNamesAndFolders_data()
{
    QTest::addColumn<QString>("text");
    for (const char *name : {"author", "keyframes", "monkey", "tokens", "passenger", "compass",
                             "secretary", "authority", "keyboardLayout", "bypass"}) {
        QTest::newRow(name) << u"http://h/?%1=1&x=%1"_s.arg(QString::fromLatin1(name));
    }
    QTest::newRow("flags of a login") << uR"({"auth":1,"token":null,"key":true,"auth":0})"_s;
    QTest::newRow("empty values") << uR"({"password":"","token":'' } ?key=&x=1)"_s;
    QTest::newRow("prose") << u"The password is wrong: ask the author for a key."_s;
    QTest::newRow("a user without a password") << u"http://joe@h:80/a:b"_s;
    QTest::newRow("an HLS stream") << u"http://h/live/sports/news/index.m3u8"_s;
    QTest::newRow("pictures") << u"http://h/images/movie/posters/big/1.jpg"_s;
    QTest::newRow("folders of films") << u"http://h/videos/2024/1.mp4"_s;
    QTest::newRow("a folder of playlists") << u"http://h/playlist/rock/best.m3u"_s;
}

void tst_CredentialPatterns::keepsHarmlessNamesAndFolders()
{
    QFETCH(const QString, text);
    const RedactionScope redaction({}, text);
    QCOMPARE(traceSafe(text), text);
    QCOMPARE(traceSafeUrl(text), text);
}

void tst_CredentialPatterns::shortFormOfAStreamUrl_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("shown");
    QTest::newRow("number") << u"http://h:80/joe/pw/7"_s << u"http://h:80/joe/***/7"_s;
    QTest::newRow("transport stream")
        << u"http://h/joe/pw/7.ts?x=1"_s << u"http://h/joe/***/7.ts?x=1"_s;
    QTest::newRow("HLS") << u"http://h/joe/pw/7.m3u8"_s << u"http://h/joe/***/7.m3u8"_s;
    QTest::newRow("below the root") << u"http://h/a/joe/pw/7"_s << u"http://h/a/joe/pw/7"_s;
}

void tst_CredentialPatterns::shortFormOfAStreamUrl()
{
    QFETCH(const QString, url);
    QFETCH(const QString, shown);
    QCOMPARE(traceSafeUrl(url), shown);
}

VANTIRO_TEST_GUILESS_MAIN(tst_CredentialPatterns)
#include "tst_CredentialPatterns.moc"
