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
    void switchIsOnForEverythingButZero();
    void laterChangesOfTheSwitchHaveNoEffect();
    void linesAreWrittenAsTheyAre();
};

void tst_NetLog::switchIsOnForEverythingButZero()
{
    for (const QString &value : {QString(), u"0"_s}) {
        const ProbeOutput output = runProbe(environmentWith(value));
        QCOMPARE(output.answers, "off\n"_ba);
        QCOMPARE(output.trace, QByteArray());
    }
    for (const QString &value : {u""_s, u"1"_s, u"false"_s, u" 0"_s}) {
        const ProbeOutput output = runProbe(environmentWith(value));
        QCOMPARE(output.answers, "on\n"_ba);
        QVERIFY(!output.trace.isEmpty());
    }
}

void tst_NetLog::laterChangesOfTheSwitchHaveNoEffect()
{
    QCOMPARE(runProbe(environmentWith({}), {u"1"_s}).answers, "off\noff\noff\n"_ba);
    QCOMPARE(runProbe(environmentWith(u"1"_s), {u"0"_s}).answers, "on\non\non\n"_ba);
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
