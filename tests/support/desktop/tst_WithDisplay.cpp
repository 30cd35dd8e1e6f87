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

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// The folder in /proc of the virtual screen that this process has started; empty if there is none.
QString screenOf(qint64 processId)
{
    const QByteArray children = contentOf(u"/proc/%1/task/%1/children"_s.arg(processId));
    for (const QByteArray &child : children.split(' ')) {
        QString folder = u"/proc/"_s + QString::fromLatin1(child);
        if (contentOf(folder + u"/comm"_s) == "Xvfb"_ba)
            return folder;
    }
    return {};
}

} // namespace

class TestWithDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnsTheExitStatus_data();
    void returnsTheExitStatus();
    void endsWithTheProgram_data();
    void endsWithTheProgram();
};

void TestWithDisplay::returnsTheExitStatus_data()
{
    QTest::addColumn<QString>("commands");
    QTest::addColumn<int>("status");
    QTest::newRow("success") << u"true"_s << 0;
    QTest::newRow("failure") << u"exit 7"_s << 7;
    QTest::newRow("crash counts as 128 and the signal") << u"kill -SEGV $$"_s << 128 + 11;
    QTest::newRow("unknown program") << u"exec /nonexistent"_s << 127;
    QTest::newRow("private folder") << u"test $(stat -c %a $XDG_RUNTIME_DIR) = 700"_s << 0;
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

void TestWithDisplay::endsWithTheProgram_data()
{
    QTest::addColumn<bool>("terminated");
    QTest::newRow("by itself") << false;
    QTest::newRow("terminated") << true;
}

void TestWithDisplay::endsWithTheProgram()
{
    QFETCH(const bool, terminated);
    QProcess process;
    startShell(process, u"echo $DISPLAY; exec cat"_s);
    QVERIFY(process.waitForReadyRead(timeoutMs));
    const QString display = QString::fromLocal8Bit(process.readAllStandardOutput()).trimmed();
    const QString socket = u"/tmp/.X11-unix/X"_s + display.mid(1);
    QVERIFY(QFile::exists(socket));
    const QString screen = screenOf(process.processId());
    QVERIFY(!screen.isEmpty());
    if (terminated)
        process.terminate();
    else
        process.closeWriteChannel();
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitCode(), terminated ? 128 + 15 : 0);
    // The number of the display is free again: another test may have it by now.
    QVERIFY(!QFile::exists(screen));
}

VANTIRO_TEST_GUILESS_MAIN(TestWithDisplay)
#include "tst_WithDisplay.moc"
