// A new user adds a playlist, finds a channel, watches it, and keeps watching when it drops out.

#include "e2e/PlayerSession.h"
#include "fakeprovider/HttpServer.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace desktop;

class TestFirstLight : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { PrivateProfile::current().clear(); }
    void firstStartAsksForASource();
    void watchesAChannelAndReconnects();
};

void TestFirstLight::firstStartAsksForASource()
{
    PlayerSession session;
    QVERIFY(session.start());
    const Accessible dialog = session.addDialog();
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Cancel"_s)));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(Screen::isMostlyBlack(session.videoRect()));
    QVERIFY(session.close());
}

void TestFirstLight::watchesAChannelAndReconnects()
{
    HttpServer server;
    server.on(u"/live.ts"_s, liveTs());
    HttpReply playlist;
    playlist.body = "#EXTM3U\n"_ba;
    for (int number = 1; number <= 40; ++number) {
        playlist.body += "#EXTINF:-1 group-title=\"Test\",Channel " + QByteArray::number(number) +
                         "\nhttp://127.0.0.1/other.ts\n";
    }
    playlist.body +=
        "#EXTINF:-1 group-title=\"Test\",Night News\n" + server.url(u"/live.ts"_s).toUtf8() + '\n';
    server.on(u"/list.m3u"_s, playlist);

    PlayerSession session;
    QVERIFY(session.start());
    QVERIFY(session.fillPlaylist(u"Home"_s, server.url(u"/list.m3u"_s)));
    QVERIFY(session.acceptDialog());

    QVERIFY(session.openCategory(u"Test"_s));
    const Accessible table = session.window.waitFor(Role::Table);
    QTRY_COMPARE(table.rowCount(), 41);
    QVERIFY(Keyboard::fill(session.window.waitFor(Role::Edit, u"Search..."_s), u"news"_s));
    QTRY_COMPARE(table.rowCount(), 1);
    QVERIFY(session.watch(u"Night News"_s));
    session.keepScreenshot(u"first-light-playing"_s);

    server.dropConnections(u"/live.ts"_s);
    QVERIFY(session.showsLabel(UiTexts::reconnecting(u"Night News"_s, 1)));
    session.keepScreenshot(u"first-light-reconnecting"_s);
    QVERIFY(session.showsLabel(UiTexts::playing(u"Night News"_s)));
    QVERIFY(session.seesPicture());
    QVERIFY(server.requestCount(u"/live.ts"_s) >= 2);
    QVERIFY(session.close());
}

VANTIRO_TEST_MAIN(TestFirstLight)
#include "tst_FirstLight.moc"
