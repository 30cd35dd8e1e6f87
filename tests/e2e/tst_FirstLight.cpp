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
    const Accessible dialog = session.app.waitForWindow(u"Add Source"_s);
    QVERIFY(dialog);
    QVERIFY(Mouse::click(dialog.waitFor(Role::Button, u"Cancel"_s)));
    QVERIFY(dialog.waitUntilGone());
    QVERIFY(Screen::isMostlyBlack(session.videoRect()));
    QVERIFY(session.close());
    QCOMPARE(session.app.exitCode(), 0);
}

void TestFirstLight::watchesAChannelAndReconnects()
{
    HttpServer server;
    server.on(u"/live.ts"_s, liveTs());
    QList<std::pair<QString, QString>> channels;
    for (int number = 1; number <= 40; ++number) {
        channels.append({u"Channel %1"_s.arg(number), server.url(u"/other.ts"_s)});
    }
    channels.append({u"Night News"_s, server.url(u"/live.ts"_s)});
    HttpReply playlist;
    playlist.body = playlistText(channels);
    server.on(u"/list.m3u"_s, playlist);

    PlayerSession session;
    QVERIFY(session.start());
    QVERIFY(session.addPlaylist(u"Home"_s, server.url(u"/list.m3u"_s)));

    QVERIFY(Mouse::click(session.window.waitFor(Role::ListItem, u"Test"_s)));
    const Accessible table = session.window.waitFor(Role::Table);
    QTRY_COMPARE(table.rowCount(), 41);
    QVERIFY(Keyboard::fill(session.window.waitFor(Role::Edit, u"Search..."_s), u"news"_s));
    QTRY_COMPARE(table.rowCount(), 1);
    QVERIFY(Mouse::click(table.cell(0)));

    QVERIFY(session.showsLabel(u"Playing: Night News"_s));
    QVERIFY(session.seesPicture());
    session.keepScreenshot(u"first-light-playing"_s);

    server.dropConnections(u"/live.ts"_s);
    QVERIFY(session.showsLabel(u"Reconnecting to Night News... (attempt 1)"_s));
    session.keepScreenshot(u"first-light-reconnecting"_s);
    QVERIFY(session.showsLabel(u"Playing: Night News"_s));
    QVERIFY(session.seesPicture());
    QVERIFY(server.requestCount(u"/live.ts"_s) >= 2);

    QVERIFY(session.close());
    QCOMPARE(session.app.exitCode(), 0);
}

VANTIRO_TEST_MAIN(TestFirstLight)
#include "tst_FirstLight.moc"
