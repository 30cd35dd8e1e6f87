// The program's end while libVLC hangs in a stream: prompt and clean, however often it is tried.

#include "e2e/PlayerSession.h"
#include "e2e/Provider.h"
#include "fakeprovider/HangingChannel.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

constexpr int closings = 20;
constexpr qint64 exitMs = 2000;

} // namespace

class TestExit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whileAStreamPlays();
    void whileAPlayerHangs();

private:
    bool start();
    void close();

    Provider provider;
    std::unique_ptr<HangingChannel> hanging;
    std::unique_ptr<PlayerSession> session;
};

void TestExit::initTestCase()
{
    hanging = std::make_unique<HangingChannel>(provider.server);
    provider.addChannel(u"Healthy"_s, liveTs());
    provider.addChannel(u"Hanging"_s, HangingChannel::playlist());
    provider.store();
}

bool TestExit::start()
{
    session = std::make_unique<PlayerSession>();
    return session->start() && session->openChannels();
}

/// Closes the window and looks at how the program ends.
void TestExit::close()
{
    const NativeWindow window = session->app.nativeWindow(u"Vantiro Player"_s);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(window.requestClose());
    QVERIFY(session->app.waitUntilEnded());
    const qint64 took = clock.elapsed();
    QCOMPARE(session->app.exitCode(), 0);
    QVERIFY2(took < exitMs, qPrintable(QString::number(took)));
}

void TestExit::whileAStreamPlays()
{
    QVERIFY(start());
    QVERIFY(session->playChannel(u"Healthy"_s));
    QVERIFY(session->seesPicture());
    close();
}

void TestExit::whileAPlayerHangs()
{
    for (int closing = 0; closing < closings; ++closing) {
        QVERIFY(start());
        QVERIFY(session->playChannel(u"Hanging"_s));
        QTRY_VERIFY_WITH_TIMEOUT(hanging->hangs(), 20000);
        if (closing % 2 == 1) {
            // Now it hangs behind the stream that is seen.
            QVERIFY(session->playChannel(u"Healthy"_s));
            QVERIFY(session->seesPicture());
            QVERIFY(hanging->hangs());
        }
        close();
        if (QTest::currentTestFailed()) {
            return;
        }
        QTRY_VERIFY(!hanging->hangs());
    }
}

VANTIRO_TEST_MAIN(TestExit)
#include "tst_Exit.moc"
