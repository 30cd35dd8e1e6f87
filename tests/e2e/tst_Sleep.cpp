// The computer sleeps while a channel plays, and wakes up: the channel comes back by itself.

#include "e2e/AccountTest.h"
#include "fakeprovider/Streams.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTest>

#include <csignal>

using namespace Qt::StringLiterals;

class TestSleep : public AccountTest
{
    Q_OBJECT

private Q_SLOTS:
    void theChannelComesBack_data();
    void theChannelComesBack();

private:
    void fill() override { path = provider->addChannel(name, liveTs()); }

    const QString name = u"Night News"_s;
    QString path;
};

void TestSleep::theChannelComesBack_data()
{
    QTest::addColumn<bool>("isDropped");
    QTest::newRow("the server waited") << false;
    QTest::newRow("the server hung up") << true;
}

void TestSleep::theChannelComesBack()
{
    constexpr qint64 sleepMs = 5000;
    QFETCH(const bool, isDropped);
    HttpServer &server = provider->http();
    QVERIFY(session->openAll(UiTexts::liveTab));
    QVERIFY(session->watch(name));
    const auto program = static_cast<pid_t>(session->app.processId());
    QElapsedTimer asleep;
    asleep.start();
    QCOMPARE(kill(program, SIGSTOP), 0);
    if (isDropped)
        server.dropConnections(path);
    QTRY_VERIFY_WITH_TIMEOUT(asleep.hasExpired(sleepMs), 2 * sleepMs);
    QCOMPARE(kill(program, SIGCONT), 0);
    if (isDropped)
        QTRY_COMPARE_WITH_TIMEOUT(server.requestCount(path), 2, 30'000);
    QVERIFY(session->showsLabel(UiTexts::playing(name)));
    QVERIFY(session->seesPicture());
    QCOMPARE(server.openConnections(path), 1);
}

VANTIRO_TEST_MAIN(TestSleep)
#include "tst_Sleep.moc"
