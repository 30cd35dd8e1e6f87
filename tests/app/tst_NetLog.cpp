#include "support/TestMain.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct ProbeOutput
{
    QByteArray answers = "the probe did not finish"_ba;
    QByteArray trace;
};

ProbeOutput runProbe(const QProcessEnvironment &environment, const QStringList &arguments = {})
{
    QProcess probe;
    probe.setProcessEnvironment(environment);
    probe.start(QCoreApplication::applicationDirPath() + u"/netlog_probe"_s, arguments);
    if (!probe.waitForFinished() || probe.exitStatus() != QProcess::NormalExit ||
        probe.exitCode() != 0) {
        return {};
    }
    // Windows writes its own line ends.
    return {probe.readAllStandardOutput().replace("\r\n", "\n"),
            probe.readAllStandardError().replace("\r\n", "\n")};
}

QProcessEnvironment environmentWith(const QString &value)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"VANTIRO_NET_DEBUG"_s);
    if (!value.isNull()) {
        environment.insert(u"VANTIRO_NET_DEBUG"_s, value);
    }
    return environment;
}

} // namespace

class tst_NetLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void switchIsOnForEverythingButZero_data();
    void switchIsOnForEverythingButZero();
    void laterChangesOfTheSwitchHaveNoEffect_data();
    void laterChangesOfTheSwitchHaveNoEffect();
    void linesAreWrittenAsTheyAre();
};

void tst_NetLog::switchIsOnForEverythingButZero_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("on");
    QTest::newRow("unset") << QString() << false;
    QTest::newRow("0") << u"0"_s << false;
    QTest::newRow("empty") << u""_s << true;
    QTest::newRow("1") << u"1"_s << true;
    QTest::newRow("false") << u"false"_s << true;
    QTest::newRow("space before 0") << u" 0"_s << true;
}

void tst_NetLog::switchIsOnForEverythingButZero()
{
    QFETCH(const QString, value);
    QFETCH(const bool, on);
    const ProbeOutput output = runProbe(environmentWith(value));
    QCOMPARE(output.answers, on ? "on\n"_ba : "off\n"_ba);
    QCOMPARE(output.trace.isEmpty(), !on);
}

void tst_NetLog::laterChangesOfTheSwitchHaveNoEffect_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("later");
    QTest::addColumn<QByteArray>("answers");
    QTest::newRow("off, then set to 1") << QString() << u"1"_s << "off\noff\noff\n"_ba;
    QTest::newRow("0, then set to 1") << u"0"_s << u"1"_s << "off\noff\noff\n"_ba;
    QTest::newRow("on, then set to 0") << u"1"_s << u"0"_s << "on\non\non\n"_ba;
}

void tst_NetLog::laterChangesOfTheSwitchHaveNoEffect()
{
    QFETCH(const QString, first);
    QFETCH(const QString, later);
    QFETCH(const QByteArray, answers);
    const ProbeOutput output = runProbe(environmentWith(first), {later});
    QCOMPARE(output.answers, answers);
}

void tst_NetLog::linesAreWrittenAsTheyAre()
{
    QProcessEnvironment environment = environmentWith(u"1"_s);
    // Neither of these rules the trace: it does not pass through Qt's messages.
    environment.insert(u"QT_LOGGING_RULES"_s, u"*=false"_s);
    environment.insert(u"QT_MESSAGE_PATTERN"_s, u"%{category} %{message}"_s);
    const ProbeOutput output = runProbe(environment);
    QCOMPARE(output.answers, "on\n"_ba);
    QList<QByteArray> lines = output.trace.split('\n');
    QCOMPARE(lines.takeLast(), QByteArray());
    const QList<QByteArray> expected{
        R"([M3U] -> http://host/"a\b"?x=1 )"_ba,
        "[M3U] <- 9007199254740993 bytes "_ba,
        "[VLC] -1 2.5 true a  b   "_ba,
        "[Xtream] <- \xc3\xa9 \xe4\xb8\xad \xf0\x9f\x98\x80\ttab "_ba,
        ""_ba,
    };
    QCOMPARE(lines, expected);
}

VANTIRO_TEST_GUILESS_MAIN(tst_NetLog)
#include "tst_NetLog.moc"
