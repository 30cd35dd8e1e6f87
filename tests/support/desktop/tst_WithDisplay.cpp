// The desktop that with-display makes is there while the program runs, and gone when it ends.

#include "support/TestMain.h"

#include <QFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int timeoutMs = 30000;

void startShell(QProcess &process, const QString &commands)
{
    process.start(QStringLiteral(WITH_DISPLAY), {u"sh"_s, u"-c"_s, commands});
}

} // namespace

class TestWithDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnsTheExitStatus_data();
    void returnsTheExitStatus();
    void givesADesktop();
    void endsWithTheProgram();
    void endsWhenTerminated();
    void desktopsAreSeparate();
};

void TestWithDisplay::returnsTheExitStatus_data()
{
    QTest::addColumn<QString>("commands");
    QTest::addColumn<int>("status");
    QTest::newRow("success") << u"true"_s << 0;
    QTest::newRow("failure") << u"exit 7"_s << 7;
    QTest::newRow("crash counts as 128 and the signal") << u"kill -SEGV $$"_s << 128 + 11;
    QTest::newRow("unknown program") << u"exec /nonexistent"_s << 127;
}

void TestWithDisplay::returnsTheExitStatus()
{
    QFETCH(QString, commands);
    QFETCH(int, status);
    QProcess process;
    startShell(process, commands);
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), status);
}

void TestWithDisplay::givesADesktop()
{
    QProcess process;
    startShell(process, u"xprop -root _NET_SUPPORTING_WM_CHECK; xdotool getdisplaygeometry;"
                        "dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus "
                        "org.a11y.Bus.GetAddress; stat -c 'mode %a' \"$XDG_RUNTIME_DIR\""_s);
    QVERIFY(process.waitForFinished(timeoutMs));
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY2(output.contains(u"window id # 0x"_s), qPrintable(output));
    QVERIFY2(output.contains(u"1600 1000"_s), qPrintable(output));
    QVERIFY2(output.contains(u"unix:"_s), qPrintable(output));
    QVERIFY2(output.contains(u"mode 700"_s), qPrintable(output));
}

void TestWithDisplay::endsWithTheProgram()
{
    QProcess process;
    startShell(process, u"echo $DISPLAY; read line"_s);
    QVERIFY(process.waitForReadyRead(timeoutMs));
    const QString display = QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
    const QString socket = u"/tmp/.X11-unix/X"_s + display.mid(1);
    QVERIFY(QFile::exists(socket));
    process.write("\n");
    QVERIFY(process.waitForFinished(timeoutMs));
    QVERIFY(!QFile::exists(socket));
}

void TestWithDisplay::endsWhenTerminated()
{
    QProcess process;
    startShell(process, u"echo $DISPLAY; exec tail -f /dev/null"_s);
    QVERIFY(process.waitForReadyRead(timeoutMs));
    const QString display = QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
    process.terminate();
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitCode(), 128 + 15);
    QVERIFY(!QFile::exists(u"/tmp/.X11-unix/X"_s + display.mid(1)));
}

void TestWithDisplay::desktopsAreSeparate()
{
    const QString commands = u"echo $DISPLAY $DBUS_SESSION_BUS_ADDRESS $XDG_RUNTIME_DIR; read l"_s;
    QProcess first;
    QProcess second;
    startShell(first, commands);
    startShell(second, commands);
    QVERIFY(first.waitForReadyRead(timeoutMs));
    QVERIFY(second.waitForReadyRead(timeoutMs));
    const QByteArrayList ours = first.readAllStandardOutput().simplified().split(' ');
    const QByteArrayList theirs = second.readAllStandardOutput().simplified().split(' ');
    QCOMPARE(ours.size(), 3);
    QCOMPARE(theirs.size(), 3);
    for (qsizetype index = 0; index < 3; ++index)
        QVERIFY2(ours[index] != theirs[index], ours[index].constData());
    for (QProcess *process : {&first, &second}) {
        process->write("\n");
        QVERIFY(process->waitForFinished(timeoutMs));
        QCOMPARE(process->exitCode(), 0);
    }
}

VANTIRO_TEST_GUILESS_MAIN(TestWithDisplay)
#include "tst_WithDisplay.moc"
