#include "WindowFixture.h"
#include "app/NetLog.h"
#include "support/TraceCapture.h"

#include <QUrl>

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

const QString password = u"Geh/eim +&ä%"_s;
const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(password));

/// The ways in which a URL, or a URL within a URL, can spell the password.
const QStringList spellings{password,
                            encoded,
                            encoded.toLower(),
                            QString::fromLatin1(QUrl::toPercentEncoding(encoded)),
                            QString(encoded).replace("%20"_L1, "+"_L1),
                            QUrl(u"http://h/?p="_s + encoded).query().mid(2),
                            QString::fromLatin1(password.toUtf8().toBase64())};

} // namespace

/// The trace lines of loading and playing; the program runs with VANTIRO_NET_DEBUG=1.
class tst_MainWindowTrace : public QObject, private WindowFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void playingAndReconnecting();
    void noLineShowsThePassword_data();
    void noLineShowsThePassword();

private:
    std::unique_ptr<HttpServer> server;
};

void tst_MainWindowTrace::init()
{
    reset();
    server = std::make_unique<HttpServer>();
    server->onPrefix(u"/"_s, [](const HttpRequest &) { return heldReply(); });
}

void tst_MainWindowTrace::playingAndReconnecting()
{
    QVERIFY2(netDebugEnabled(), "run with VANTIRO_NET_DEBUG=1");
    store(playlistSource(u"A"_s, u"/nowhere"_s));
    cacheOneChannel(u"A"_s, u"One"_s);
    open();
    TraceCapture capture;
    window().playMediaItem(channel(u"One"_s, server->url(u"/stream"_s), {}));
    window().onPlaybackInterrupted(u"it \"broke\" \\ twice"_s);
    window().onPlaybackInterrupted(u"again"_s);
    QCOMPARE(traceLines(capture.take()),
             (QStringList{u"[VLC] play -> "_s + server->url(u"/stream"_s) + u' ',
                          u"[VLC] live reconnect attempt 1 - it \"broke\" \\ twice "_s,
                          u"[VLC] live reconnect attempt 2 - again "_s}));
}

void tst_MainWindowTrace::noLineShowsThePassword_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("found");
    QTest::newRow("in the query") << u"/get.php?username=u&password=%1"_s << true;
    QTest::newRow("in the query, not found") << u"/get.php?username=u&password=%1"_s << false;
    QTest::newRow("in a stream's path") << u"/live/u/%1/list.m3u"_s << false;
    QTest::newRow("in a playlist's path") << u"/playlist/u/%1/list.m3u"_s << true;
}

void tst_MainWindowTrace::noLineShowsThePassword()
{
    QFETCH(QString, source);
    QFETCH(bool, found);
    const QString address = server->url(source).arg(encoded);
    QByteArray list;
    for (const QString &path : {u"/live/u/%1/1.ts"_s, u"/u/%1/2"_s, u"/3?token=%1"_s}) {
        list += "#EXTINF:-1,One\n"_ba + server->url(path).arg(encoded).toUtf8() + '\n';
    }
    server->on(QUrl(address).path(QUrl::FullyDecoded), found ? bodyReply(list) : statusReply(404));
    store(playlistSource(u"A"_s, address, neverLoaded));
    TraceCapture capture;
    open();
    QTRY_VERIFY(!overlayShown());
    QTRY_COMPARE(dialogs.seen().size(), found ? 0 : 1);
    const int channels = find<QTableWidget>(u"channelTable"_s).rowCount();
    QCOMPARE(channels, found ? 3 : 0);
    for (int row = 0; row < channels; ++row) {
        window().playChannelRow(row, 0);
        window().onPlaybackInterrupted(u"it broke"_s);
    }
    const QStringList lines = traceLines(capture.take());
    // Two lines for the list; playing and reconnecting for each channel.
    QCOMPARE(lines.size(), 2 + channels * 2);
    QVERIFY(lines.at(0).contains("***"_L1));
    for (const QString &line : lines) {
        for (const QString &spelling : spellings) {
            QVERIFY2(!line.contains(spelling), qUtf8Printable(line));
        }
    }
}

VANTIRO_TEST_MAIN(tst_MainWindowTrace)
#include "tst_MainWindowTrace.moc"
