#include "PlayerTest.h"

#include <QDir>
#include <QScopeGuard>
#include <QTemporaryDir>

/// What a server sees of the headers of a stream, through the real libVLC.
class tst_VlcPlayerHeaders : public PlayerTest
{
    Q_OBJECT

private Q_SLOTS:
    void reachTheServer_data();
    void reachTheServer();
    void nextStreamHasItsOwn();
    void whatMustNotBeSent_data();
    void whatMustNotBeSent();

private:
    void playWith(const QString &path, const StreamHeaders &headers)
    {
        probe->player.play(url(path), true, headers);
    }
    /// The values of a header in all requests; each is listed once.
    QSet<QByteArray> sent(const QByteArray &header) const
    {
        QSet<QByteArray> values;
        for (const HttpRequest &request : server->requests()) {
            values.insert(request.header(header));
        }
        return values;
    }
};

void tst_VlcPlayerHeaders::reachTheServer_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("requests");
    QTest::newRow("transport stream") << u"/live.ts"_s << 1;
    QTest::newRow("film") << u"/files/audio.mp3"_s << 1;
    QTest::newRow("list and segments of HLS") << u"/hls/index.m3u8"_s << 3;
    QTest::newRow("redirected") << u"/moved"_s << 2;
}

void tst_VlcPlayerHeaders::reachTheServer()
{
    QFETCH(const QString, path);
    QFETCH(const int, requests);
    serveLiveHls(*server, u"/hls"_s);
    server->on(u"/moved"_s, HttpReply::redirect(u"/live.ts"_s));
    const StreamHeaders headers{u"Tv/1.0 (x; y) 50%"_s, u"https://r/?a=1&b=2|c"_s};
    playWith(path, headers);
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() >= requests, openMs);
    QCOMPARE(sent("User-Agent"), QSet{headers.userAgent.toLatin1()});
    QCOMPARE(sent("Referer"), QSet{headers.referrer.toLatin1()});
}

void tst_VlcPlayerHeaders::nextStreamHasItsOwn()
{
    playWith(u"/live.ts"_s, {});
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
    const QSet<QByteArray> usual = sent("User-Agent");
    for (const StreamHeaders &headers :
         {StreamHeaders{u"A/1"_s, u"http://r/"_s}, StreamHeaders()}) {
        server->clearRequests();
        playWith(u"/live.ts"_s, headers);
        QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
        QCOMPARE(sent("User-Agent"),
                 headers.userAgent.isEmpty() ? usual : QSet{headers.userAgent.toLatin1()});
        QCOMPARE(sent("Referer"), QSet{headers.referrer.toLatin1()});
    }
}

void tst_VlcPlayerHeaders::whatMustNotBeSent_data()
{
    QTest::addColumn<QString>("value");
    const QString sink = u":sout=#std{access=file,mux=ts,dst=written}"_s;
    QTest::newRow("an option behind a line end") << u"A/1\n"_s + sink;
    QTest::newRow("an option behind a carriage return") << u"A/1\r\n"_s + sink;
    QTest::newRow("an option behind a NUL") << u"A/1"_s + QChar(0) + sink;
    QTest::newRow("a header behind a line end") << u"A/1\r\nX-Smuggled: 1"_s;
    QTest::newRow("a header behind a NUL") << u"A/1"_s + QChar(0) + u"\r\nX-Smuggled: 1"_s;
    QTest::newRow("a tab") << u"A\t1"_s;
    QTest::newRow("beyond ASCII") << u"\u00dcA/1"_s;
    QTest::newRow("too long") << QString(2049, u'A');
}

void tst_VlcPlayerHeaders::whatMustNotBeSent()
{
    QFETCH(const QString, value);
    const QTemporaryDir folder; // libVLC writes relative to the current one
    const auto back = qScopeGuard([before = QDir::currentPath()] { QDir::setCurrent(before); });
    QVERIFY(QDir::setCurrent(folder.path()));
    playWith(u"/live.ts"_s, {value, value});
    QTRY_VERIFY_WITH_TIMEOUT(server->requestCount() > 0, openMs);
    if (value.contains(u"sout"_s)) {
        QVERIFY(probe->advances());
    }
    probe->player.stop();
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList());
    QCOMPARE(sent("X-Smuggled"), QSet{QByteArray()});
    QCOMPARE(sent("Referer"), QSet{QByteArray()});
    for (const QByteArray &userAgent : sent("User-Agent")) {
        QVERIFY2(userAgent.contains("VLC"), userAgent.constData());
    }
}

VANTIRO_TEST_MAIN(tst_VlcPlayerHeaders)
#include "tst_VlcPlayerHeaders.moc"
