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
    QTest::addColumn<QString>("platform");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("error");
    // With the platform of a display that is not there, a window would end in an abort.
    const QString noDisplay = u"xcb"_s;
    const QString offscreen = u"offscreen"_s;
    QTest::newRow("version") << QStringList{u"--version"_s} << noDisplay << 0
                             << u"Vantiro Player " VANTIRO_VERSION "\n"_s << QString();
    QTest::newRow("version, short") << QStringList{u"-v"_s} << noDisplay << 0
                                    << u"Vantiro Player " VANTIRO_VERSION "\n"_s << QString();
    QTest::newRow("the version tells the subscription service")
        << QStringList{u"--version"_s} << noDisplay << 0
        << u"Subscription service: " VANTIRO_SUBSCRIPTION_BASE_URL "\n"_s << QString();
    QTest::newRow("help") << QStringList{u"--help"_s} << noDisplay << 0 << u"Usage: "_s
                          << QString();
    QTest::newRow("unknown option")
        << QStringList{u"--nope"_s} << offscreen << 1 << QString() << u"Unknown option 'nope'."_s;
    QTest::newRow("unknown word") << QStringList{u"film.mp4"_s} << offscreen << 1 << QString()
                                  << u"Unexpected argument 'film.mp4'."_s;
}

void tst_CommandLine::answers()
{
    QFETCH(QStringList, words);
    QFETCH(QString, platform);
    QFETCH(int, status);
    QFETCH(QString, output);
    QFETCH(QString, error);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"DISPLAY"_s);
    environment.insert(u"QT_QPA_PLATFORM"_s, platform);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VANTIRO_PLAYER), words);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), status);
    // Windows writes its own line ends.
    const QString written =
        QString::fromUtf8(process.readAllStandardOutput().replace("\r\n", "\n"));
    QVERIFY2(written.contains(output), qPrintable(written));
    const QString complaint = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(complaint.contains(error), qPrintable(complaint));
}

VANTIRO_TEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
