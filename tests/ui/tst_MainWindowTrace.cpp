#include "WindowFixture.h"
#include "app/NetLog.h"
#include "support/TestMain.h"
#include "support/TraceCapture.h"
#include "ui/MainWindow.h"

#include <QTableWidget>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

/// The trace lines among what was written to the standard error; libVLC writes there, too.
QStringList traceLines(const QString &written)
{
    QStringList lines;
    for (const QString &line : written.split(u'\n')) {
        if (line.startsWith("[M3U]"_L1) || line.startsWith("[VLC]"_L1)) {
            lines << line;
        }
    }
    return lines;
}

/// The ways in which a URL, or a URL within a URL, can spell a password.
QStringList encodings(const QString &password)
{
    const QByteArray encoded = QUrl::toPercentEncoding(password);
    QStringList result{password,
                       QString::fromLatin1(encoded),
                       QString::fromLatin1(encoded.toLower()),
                       QString::fromLatin1(QUrl::toPercentEncoding(QString::fromLatin1(encoded))),
                       QString::fromLatin1(encoded).replace("%20"_L1, "+"_L1),
                       QUrl(u"http://h/?p="_s + QString::fromLatin1(encoded)).query().mid(2),
                       QString::fromLatin1(password.toUtf8().toBase64())};
    result.removeDuplicates();
    return result;
}

} // namespace

/// The trace lines of loading and playing; the program runs with VANTIRO_NET_DEBUG=1.
class tst_MainWindowTrace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { server = std::make_unique<HttpServer>(); }
    void playingAndReconnecting();
    void innocentFoldersAreTraced();
    void noLineShowsThePassword_data();
    void noLineShowsThePassword();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowTrace::initTestCase()
{
    QVERIFY2(netDebugEnabled(), "run with VANTIRO_NET_DEBUG=1");
}

void tst_MainWindowTrace::playingAndReconnecting()
{
    WindowFixture fixture;
    server->on(u"/stream"_s, heldReply());
    WindowFixture::store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {});
    MainWindow &window = fixture.open();
    TraceCapture capture;
    window.playMediaItem(channel(u"One"_s, server->url(u"/stream"_s), {}));
    window.onPlaybackInterrupted(u"it \"broke\" \\ twice"_s);
    window.onPlaybackInterrupted(u"again"_s);
    QCOMPARE(traceLines(capture.take()),
             (QStringList{u"[VLC] play -> "_s + server->url(u"/stream"_s) + u' ',
                          u"[VLC] live reconnect attempt 1 - it \"broke\" \\ twice "_s,
                          u"[VLC] live reconnect attempt 2 - again "_s}));
}

void tst_MainWindowTrace::innocentFoldersAreTraced()
{
    WindowFixture fixture;
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
    WindowFixture::store(playlistSource(u"A"_s, u"/nowhere"_s));
    CatalogCache::save(u"A"_s, u"channel"_s, {});
    MainWindow &window = fixture.open();
    TraceCapture capture;
    // The first URL's values are hidden in its own line only.
    QStringList expected;
    for (const auto &[path, shown] : QList<std::pair<QString, QString>>{
             {u"/live/joe/football/1.ts?author=1&pass=x"_s,
              u"/live/joe/***/1.ts?author=1&pass=***"_s},
             {u"/football/1/x/film.mp4"_s, u"/football/1/x/film.mp4"_s}}) {
        window.playMediaItem(channel(u"One"_s, server->url(path), {}));
        expected << u"[VLC] play -> "_s + server->url(shown) + u' ';
    }
    QCOMPARE(traceLines(capture.take()), expected);
}

void tst_MainWindowTrace::noLineShowsThePassword_data()
{
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("status");
    const QString plain = u"s3cr3tW0rd"_s;
    const QString special = u"Geh/eim +&ä%"_s;
    const QString query = u"/get.php?username=u&password=%1&type=m3u_plus"_s;
    QTest::newRow("plain") << plain << query << 200;
    QTest::newRow("with characters that need encoding") << special << query << 200;
    QTest::newRow("plain, not found") << plain << query << 404;
    QTest::newRow("encoded, not found") << special << query << 404;
    QTest::newRow("in a path") << special << u"/live/u/%1/list.m3u"_s << 404;
    QTest::newRow("under another name") << special << u"/list.m3u?user=u&pass=%1"_s << 404;
    QTest::newRow("as a token") << special << u"/list.m3u?Token=%1"_s << 404;
    QTest::newRow("in a playlist's path") << special << u"/playlist/u/%1/m3u_plus"_s << 404;
    QTest::newRow("in a playlist's path, found") << special << u"/playlist/u/%1/list.m3u"_s << 200;
}

void tst_MainWindowTrace::noLineShowsThePassword()
{
    QFETCH(QString, password);
    QFETCH(QString, source);
    QFETCH(int, status);
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(password));
    QByteArray list;
    for (const QString &path : {u"/live/u/%1/1.ts"_s, u"/u/%1/2"_s, u"/3?token=%1"_s}) {
        list += "#EXTINF:-1,One\n"_ba + server->url(path).arg(encoded).toUtf8() + '\n';
    }
    server->onPrefix(u"/"_s, [list, status](const HttpRequest &request) {
        const bool isList = request.path.contains("get.php"_L1) ||
                            request.path.endsWith("list.m3u"_L1) ||
                            request.path.startsWith("/playlist/"_L1);
        if (!isList) {
            return heldReply();
        }
        return status == 200 ? bodyReply(list) : statusReply(status);
    });

    WindowFixture fixture;
    WindowFixture::store(playlistSource(u"A"_s, server->url(source).arg(encoded), neverLoaded));
    TraceCapture capture;
    MainWindow &window = fixture.open();
    QTRY_VERIFY(!fixture.overlayShown());
    QTRY_COMPARE(fixture.dialogs.seen().size(), status == 200 ? 0 : 1);
    const int channels = fixture.find<QTableWidget>(u"channelTable"_s).rowCount();
    for (int row = 0; row < channels; ++row) {
        window.playChannelRow(row, 0);
        window.onPlaybackInterrupted(u"it broke"_s);
    }
    const QStringList lines = traceLines(capture.take());
    // Two lines for the list; playing and reconnecting for each channel.
    QCOMPARE(lines.size(), 2 + channels * 2);
    QVERIFY(lines.at(0).contains("***"_L1));
    for (const QString &line : lines) {
        for (const QString &encoding : encodings(password)) {
            QVERIFY2(!line.contains(encoding), qUtf8Printable(line));
        }
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowTrace)
#include "tst_MainWindowTrace.moc"
