// The program's end while libVLC hangs in a stream: prompt and clean, however often it is tried.

#include "e2e/PlayerSession.h"
#include "e2e/StoredSources.h"
#include "fakeprovider/HangingChannel.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

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

    XtreamProvider provider;
    HangingChannel hanging{provider.http()};
    std::unique_ptr<PlayerSession> session;
};

void TestExit::initTestCase()
{
    provider.addChannel(u"Healthy"_s, liveTs());
    provider.addChannel(u"Hanging"_s, HangingChannel::playlist());
    storeAccount(provider);
}

bool TestExit::start()
{
    session = std::make_unique<PlayerSession>();
    return session->start() && session->openAll(UiTexts::liveTab);
}

/// Closes the window and looks at how the program ends.
void TestExit::close()
{
    constexpr qint64 exitMs = 2000;
    const desktop::NativeWindow window = session->nativeWindow();
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
    QVERIFY(session->watch(u"Healthy"_s));
    close();
}

void TestExit::whileAPlayerHangs()
{
    constexpr int closings = 20;
    for (int closing = 0; closing < closings && !QTest::currentTestFailed(); ++closing) {
        QVERIFY(start());
        QVERIFY(session->play(u"Hanging"_s));
        QTRY_VERIFY_WITH_TIMEOUT(hanging.hangs(), 20000);
        if (closing % 2 == 1) {
            // Now it hangs behind the stream that is seen.
            QVERIFY(session->watch(u"Healthy"_s));
            QVERIFY(hanging.hangs());
        }
        close();
        QTRY_VERIFY(!hanging.hangs());
    }
}

VANTIRO_TEST_MAIN(TestExit)
#include "tst_Exit.moc"
