// What the program answers on its command line, without a window and without a display.

#include "support/TestMain.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
};

void tst_CommandLine::answers_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("output");
    const QString version = u"Vantiro Player " VANTIRO_VERSION "\n"_s;
    QTest::newRow("version") << QStringList{u"--version"_s} << version;
    QTest::newRow("version, short") << QStringList{u"-v"_s} << version;
    QTest::newRow("version beside other words")
        << QStringList{u"film.mp4"_s, u"--nope"_s, u"--version"_s} << version;
    QTest::newRow("the version tells the subscription service")
        << QStringList{u"--version"_s}
        << u"Subscription service: " VANTIRO_SUBSCRIPTION_BASE_URL "\n"_s;
    QTest::newRow("help") << QStringList{u"--help"_s} << u"Usage: "_s;
    QTest::newRow("help tells what the program is")
        << QStringList{u"--help"_s} << u"A player for internet television."_s;
    QTest::newRow("help tells what can be opened")
        << QStringList{u"--help"_s} << u" [options] [FILE|URL...]\n"_s;
    QTest::newRow("all help") << QStringList{u"--help-all"_s} << u"Usage: "_s;
    QTest::newRow("help, short") << QStringList{u"-h"_s} << u"--version "_s;
}

void tst_CommandLine::answers()
{
    QFETCH(QStringList, words);
    QFETCH(QString, output);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    // With the platform of a display that is not there, a window would end in an abort.
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VANTIRO_PLAYER), words);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    // Windows writes its own line ends.
    const QString written =
        QString::fromUtf8(process.readAllStandardOutput().replace("\r\n", "\n"));
    QVERIFY2(written.contains(output), qPrintable(written));
}

VANTIRO_TEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
