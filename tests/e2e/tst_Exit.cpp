// The program's end while libVLC hangs in a stream: prompt and clean, however often it is tried.

#include "e2e/AccountTest.h"
#include "fakeprovider/HangingChannel.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

class TestExit : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void whileAStreamPlays();
    void whileAPlayerHangs();

private:
    void fill() override;
    void closePromptly();

    std::unique_ptr<HangingChannel> hanging;
};

void TestExit::fill()
{
    hanging = std::make_unique<HangingChannel>(provider->http());
    provider->addChannel(u"Healthy"_s, liveTs());
    provider->addChannel(u"Hanging"_s, HangingChannel::playlist());
}

void TestExit::closePromptly()
{
    constexpr qint64 exitMs = 2000;
    const desktop::NativeWindow window = session->nativeWindow();
    QVERIFY(window.requestClose());
    QElapsedTimer clock;
    clock.start();
    QVERIFY(session->app.waitUntilEnded());
    const qint64 took = clock.elapsed();
    QCOMPARE(session->app.exitCode(), 0);
    QVERIFY2(took < exitMs, qPrintable(QString::number(took)));
}

void TestExit::whileAStreamPlays()
{
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(u"Healthy"_s));
    closePromptly();
}

void TestExit::whileAPlayerHangs()
{
    constexpr int closings = 20;
    for (int closing = 0; closing < closings && !QTest::currentTestFailed(); ++closing) {
        QVERIFY(session->openAll(UiTexts::liveTab));
        QVERIFY(session->play(u"Hanging"_s));
        QTRY_VERIFY_WITH_TIMEOUT(hanging->hangs(), 20000);
        if (closing % 2 == 1) {
            // Now it hangs behind the stream that is seen.
            QVERIFY(session->watch(u"Healthy"_s));
            QVERIFY(hanging->hangs());
        }
        closePromptly();
        QTRY_VERIFY(!hanging->hangs());
        QVERIFY(session->start());
    }
}

VANTIRO_TEST_MAIN(TestExit)
#include "tst_Exit.moc"
