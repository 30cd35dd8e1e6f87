#include "app/TraceSecrets.h"
#include "support/TestMain.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A text in which credentials stand in «», without these marks.
QString unmarked(QString text)
{
    return text.remove(u'«').remove(u'»');
}

/// The same text with "***" in the place of each credential.
QString masked(QString text)
{
    static const QRegularExpression credential(u"«[^»]*»"_s);
    return text.replace(credential, u"***"_s);
}

} // namespace

/// What is redacted because of its name or position. Runs with VANTIRO_NET_DEBUG=1.
class tst_CredentialPatterns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void redactsCredentialsOfUrls_data();
    void redactsCredentialsOfUrls();
    void aUrlValueIsRedactedElsewhere();
    void redactsNamedCredentials_data();
    void redactsNamedCredentials();
    void keepsHarmlessNamesAndFolders_data();
    void keepsHarmlessNamesAndFolders();
    void shortFormOfAStreamUrl();
};

void tst_CredentialPatterns::redactsCredentialsOfUrls_data()
{
    QTest::addColumn<QString>("marked"); // the credentials stand in «»
    QTest::newRow("user info") << u"http://joe:«Url-Pw-1»@h/list.m3u"_s;
    QTest::newRow("user info, percent-encoded") << u"http://joe:«Url%40Pw%2F2»@h/"_s;
    QTest::newRow("user info without a name") << u"http://:«Url-Pw-3»@h/"_s;
    QTest::newRow("password item")
        << u"http://h/get.php?username=joe&password=«Url-Pw-4»&type=m3u"_s;
    QTest::newRow("password item, percent-encoded")
        << u"http://h/get.php?password=«Url%26Pw%3d5»&output=ts"_s;
    QTest::newRow("password item, capitals") << u"http://h/?PASSWORD=«Url-Pw-6»"_s;
    QTest::newRow("pass, pwd, token, api_key, auth, secret")
        << u"http://h/?pass=«Url-a1»&pwd=«Url-b2»&token=«Url-c3»&api_key=«Url-d4»&auth=«Url-e5»&secret=«Url-f6»"_s;
    QTest::newRow("empty password item") << u"http://h/?password=&x=1"_s;
    QTest::newRow("live path") << u"http://h:80/live/joe/«Url-Pw-7»/1.ts"_s;
    QTest::newRow("movie path") << u"http://h/movie/joe/«Url-Pw-8»/1.mp4"_s;
    QTest::newRow("series path") << u"http://h/series/joe/«Url-Pw-9»/1.mkv?x#y"_s;
    QTest::newRow("live path, percent-encoded") << u"http://h/live/joe/«Url%20Pw%2610»/1.ts"_s;
    QTest::newRow("live path below the root") << u"http://h/a/b/live/joe/«Url-Pw-11»/1.ts"_s;
    QTest::newRow("several kinds at once")
        << u"http://u:«Url-Pw-12»@h/live/joe/«Url-Pw-13»/1.ts?token=«Url-Pw-14»"_s;
    QTest::newRow("none") << u"http://joe@h/live/stream.m3u8?user=joe&id=77"_s;
    QTest::newRow("a file") << u"/home/joe/live/channels.m3u"_s;
    QTest::newRow("no URL at all") << u"http://[::x y%%"_s;
    QTest::newRow("empty") << u""_s;
}

void tst_CredentialPatterns::redactsCredentialsOfUrls()
{
    QFETCH(const QString, marked);
    const RedactionScope redaction({}, unmarked(marked));
    QCOMPARE(traceSafe(unmarked(marked)), masked(marked));
    QCOMPARE(traceSafeUrl(unmarked(marked)), masked(marked));
}

void tst_CredentialPatterns::aUrlValueIsRedactedElsewhere()
{
    // A form encodes a space as a plus sign; the server's reply has the space.
    const RedactionScope redaction({},
                                   u"http://h/get.php?username=joe&password=El+%2Fse%26where"_s);
    QCOMPARE(traceSafe(uR"({"password":"El \/se&where"} El+/se%26where El /se&where)"_s),
             uR"({"password":"***"} *** ***)"_s);
}

void tst_CredentialPatterns::redactsNamedCredentials_data()
{
    QTest::addColumn<QString>("marked"); // the credentials stand in «»
    const auto row = [](const char *name, const QString &marked) { QTest::newRow(name) << marked; };
    row("JSON", uR"({"password":"«unknown1»","x":"seen"})"_s);
    row("JSON, short", uR"({"password":"«1»","x":1})"_s);
    row("JSON, a name that often has a number", uR"({"auth":«abc1»,"x":{"auth":1}})"_s);
    row("JSON with spaces", u"{ \"api_key\" :\n \"«a b»\" }"_s);
    row("JSON number", uR"({"password":«1234567»,"x":1})"_s);
    row("JSON list", uR"({"tokens":1,"token":["«abc»"]})"_s);
    row("JSON with an escaped quote", uR"({"pass":"«a\"b,c»","x":1})"_s);
    row("JSON that ends with a backslash", uR"({"pass":"«ab\\»","x":"y"})"_s);
    row("JSON that is cut", uR"({"data":{"password":"«unkno»)"_s);
    row("JSON that is malformed", uR"(<b>{"password":"«unknown1»" "x":)"_s);
    row("JSON in JSON", uR"({"data":"{\"password\":\"«un\\\"known»\",\"x\":1}"})"_s);
    row("single quotes", u"{'password': '«unknown1»', 'x': 'y'}"_s);
    row("a name without quotes", uR"({status:"error",password:"«unknown1»"})"_s);
    row("an array of PHP", u"['password' => '«unknown1»', 'x' => 1]"_s);
    row("an element", u"<user><password>«a b»</password><x>y</x>"_s);
    row("an attribute", u"<user password=\"«a b»\" x=\"y\">"_s);
    row("a form", u"username=joe&password=«unknown1»&x=y"_s);
    row("a URL in JSON", uR"({"url":"http:\/\/h\/?user=u&token=«ab\/c»&x=y"})"_s);
    row("a URL in a URL", u"http://h/?to=http%3A%2F%2Fk%2F%3Ftoken%3D«abc»%26x%3Dy&z=1"_s);
    row("a value that holds an item", u"http://h/?to=http://k/?token=«abc»&z=1"_s);
    row("user information", u"see http://joe:«a@b»@h:80/x and @"_s);
    row("user information in JSON", uR"("http:\/\/joe:«pw»@h\/x")"_s);
    row("an account path in JSON", uR"("http:\/\/h\/live\/joe\/«pw»\/1.ts")"_s);
    row("a playlist path", u"http://h/playlist/joe/«pw»/m3u_plus?output=ts"_s);
    row("a playlist path that ends", u"http://h/playlist/joe/«pw»"_s);
    row("a timeshift path", u"http://h/timeshift/joe/«pw»/60/2024-01-01:10-00/7.ts"_s);
    for (const char *name :
         {"pass", "password", "Passwd", "PWD", "token", "secret", "key", "auth", "access_token",
          "accessToken", "apiKey", "APIKey", "apikey", "authToken", "X-Auth-Token", "user.pass",
          "key2", "subscription_key"}) {
        row(name, u"http://h/?a=b&%1=«v»&c=d"_s.arg(QString::fromLatin1(name)));
    }
}

void tst_CredentialPatterns::redactsNamedCredentials()
{
    QFETCH(const QString, marked);
    QCOMPARE(traceSafe(unmarked(marked)), masked(marked));
    QCOMPARE(traceSafeHead(unmarked(marked).toUtf8(), 100'000), masked(marked));
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

void tst_CredentialPatterns::shortFormOfAStreamUrl()
{
    for (const QString &marked : {u"http://h:80/joe/«pw»/7"_s, u"http://h/joe/«pw»/7.ts?x=1"_s,
                                  u"http://h/joe/«pw»/7.m3u8"_s, u"http://h/a/joe/pw/7"_s}) {
        QCOMPARE(traceSafeUrl(unmarked(marked)), masked(marked));
    }
}

VANTIRO_TEST_GUILESS_MAIN(tst_CredentialPatterns)
#include "tst_CredentialPatterns.moc"
