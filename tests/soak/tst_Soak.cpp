// A long run in the real window: everything that the player has, in random order, while what the
// process holds must not grow and no credential may reach the trace.
//
// VANTIRO_SOAK_MINUTES is how long (half a minute without it), VANTIRO_SOAK_SEED repeats an order.

#include "soak/ProcessUsage.h"
#include "soak/SecretForms.h"
#include "soak/SoakProviders.h"
#include "soak/SoakUser.h"
#include "support/TestMain.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

class TestSoak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void secretFormsAreFound_data();
    void secretFormsAreFound();
    void growthIsSeen_data();
    void growthIsSeen();
    void holdsItsOwn();
};

namespace {

constexpr double allowedGrowth = 0.05;
constexpr int actionsPerRound = 3;

double runMinutes()
{
    bool given = false;
    const double minutes = qEnvironmentVariable("VANTIRO_SOAK_MINUTES").toDouble(&given);
    return given ? minutes : 0.5;
}

quint32 runSeed()
{
    bool given = false;
    const uint seed = qEnvironmentVariable("VANTIRO_SOAK_SEED").toUInt(&given);
    return given ? seed : QRandomGenerator::global()->bounded(1'000'000U);
}

void print(const QString &line)
{
    qInfo().noquote() << line;
}

} // namespace

void TestSoak::secretFormsAreFound_data()
{
    const QByteArray secret = "S3cret&word+x=1"_ba;
    QTest::addColumn<QByteArray>("output");
    QTest::newRow("as it is") << secret;
    QTest::newRow("percent-encoded") << secret.toPercentEncoding();
    QTest::newRow("percent-encoded in lower case") << "S3cret%26word%2bx%3d1"_ba;
    QTest::newRow("every character percent-encoded")
        << "%53%33%63%72%65%74%26%77%6F%72%64%2B%78%3D%31"_ba;
    QTest::newRow("Base64") << secret.toBase64();
    QTest::newRow("Base64 of user and password") << "user:"_ba.append(secret).toBase64();
    QTest::newRow("Base64 of another user and password") << "viewer:"_ba.append(secret).toBase64();
}

void TestSoak::secretFormsAreFound()
{
    QFETCH(const QByteArray, output);
    const SecretForms forms({"S3cret&word+x=1"_ba});
    QCOMPARE(forms.lineIn("first\nbefore " + output + " after\nlast"),
             "before " + output + " after");
    QCOMPARE(forms.lineIn("first\nbefore *** after\nlast"), QByteArray());
}

void TestSoak::growthIsSeen_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<double>("swing");
    QTest::addColumn<double>("leak");
    QTest::addColumn<bool>("passes");
    QTest::newRow("steady") << 40 << 0.0 << 0.0 << true;
    QTest::newRow("swings by 10 %") << 40 << 0.1 << 0.0 << true;
    QTest::newRow("swings for an hour") << 240 << 0.1 << 0.0 << true;
    QTest::newRow("leaks 1 % in each tenth") << 240 << 0.0 << 0.01 << false;
    QTest::newRow("leaks 5 % in each tenth") << 40 << 0.0 << 0.05 << false;
    QTest::newRow("leaks 5 % and swings by 10 %") << 240 << 0.1 << 0.05 << false;
}

void TestSoak::growthIsSeen()
{
    QFETCH(const int, samples);
    QFETCH(const double, swing);
    QFETCH(const double, leak);
    QFETCH(const bool, passes);
    QList<ProcessUsage> usages;
    for (int index = 0; index < samples; ++index) {
        const double tenths = 10.0 * index / samples;
        const double place = (index * 7 % 11) / 5.0 - 1; // from -1 to 1
        ProcessUsage usage;
        usage.memoryKb = qRound64(90'000 * (1 + leak * tenths + swing * place));
        usages << usage;
    }
    const QList<UsageGrowth> growths = usageGrowth(usages);
    QVERIFY(!growths.isEmpty());
    const bool within = std::all_of(growths.begin(), growths.end(), [](const UsageGrowth &growth) {
        return growth.isWithin(allowedGrowth);
    });
    QCOMPARE(within, passes);
}

void TestSoak::holdsItsOwn()
{
    const quint32 seed = runSeed();
    print(u"Seed %1"_s.arg(seed));
    SoakProviders providers;
    providers.store();
    PlayerSession session;
    QVERIFY(session.start());
    SoakUser user(session, providers, seed);
    const SecretForms secrets(providers.secrets());
    QVERIFY(user.seeEverything());

    QElapsedTimer clock;
    clock.start();
    const QDeadlineTimer end(static_cast<qint64>(runMinutes() * 60'000));
    QList<ProcessUsage> samples;
    int actions = 0;
    int missed = 0;
    while (!end.hasExpired()) {
        QStringList done;
        for (int count = 0; count < actionsPerRound && !end.hasExpired(); ++count) {
            ++actions;
            missed += user.act() ? 0 : 1;
            done << user.lastAction();
        }
        QVERIFY2(user.rest(), qPrintable(u"seed %1"_s.arg(seed)));
        const auto usage = ProcessUsage::of(session.app.processId());
        QVERIFY(usage);
        samples << *usage;
        print(
            u"%1 s: %2 (%3)"_s.arg(clock.elapsed() / 1000).arg(usage->text(), done.join(u", "_s)));
        const QByteArray trace = session.app.takeStandardError().toUtf8();
        QVERIFY2(trace.contains("[VLC]"_ba), "nothing was traced");
        QCOMPARE(secrets.lineIn(trace), QByteArray());
    }

    print(u"%1 of %2 actions did not work in time"_s.arg(missed).arg(actions));
    QVERIFY(missed * 20 <= actions);
    for (const UsageGrowth &growth : usageGrowth(samples)) {
        print(growth.text());
        QVERIFY2(growth.isWithin(allowedGrowth), qPrintable(growth.text()));
    }
    QVERIFY(session.close());
}

VANTIRO_TEST_MAIN(TestSoak)
#include "tst_Soak.moc"
