// What the program sets at its start and what it writes, seen in the program itself: a plugin
// (start_probe.cpp) reports from within.

#include "fakeprovider/HttpServer.h"
#include "model/SourceManager.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLocalServer>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// The status with which the probe ends the event loop.
constexpr int probeStatus = 7;

struct Run
{
    int exitCode = -1;
    QByteArray errors;
    QStringList report;
};

} // namespace

class tst_StartUp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void whatMainSets();
    void theWindowSpeaksTheLanguage();
    void unknownOptionsAreReported();
    void optionsInOneWordAreAnswered();
    void aFileIsNoOption();
    void tracesWithTheSwitch();
    void aBusThatNeverAnswersHoldsNothingUp();

private:
    /// Runs the program until it has loaded and cached its playlist.
    Run run(const QStringList &words = {}, bool traces = false);

    std::unique_ptr<HttpServer> server;
};

void tst_StartUp::init()
{
    PrivateProfile::current().clear();
    server = std::make_unique<HttpServer>();
    HttpReply playlist;
    playlist.body = "#EXTINF:-1,One\nhttp://127.0.0.1:9/1\n"_ba;
    server->on(u"/list.m3u"_s, playlist);
    SourceConfig source;
    source.name = u"A"_s;
    source.url = server->url(u"/list.m3u"_s);
    SourceManager manager(nullptr);
    manager.saveSource(source);
}

Run tst_StartUp::run(const QStringList &words, bool traces)
{
    const QString folder = PrivateProfile::current().root();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_PLUGIN_PATH"_s, QStringLiteral(VANTIRO_PROBE_PLUGINS));
    environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, u"start_probe"_s);
    environment.insert(u"VANTIRO_PROBE_REPORT"_s, folder + u"/report"_s);
    environment.insert(u"VANTIRO_PROBE_AWAITS"_s, u"A.json"_s); // the cached playlist
    environment.remove(u"VANTIRO_NET_DEBUG"_s);
    if (traces) {
        environment.insert(u"VANTIRO_NET_DEBUG"_s, u"1"_s);
    }
    QFile::remove(folder + u"/report"_s); // of an earlier run
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(VANTIRO_PLAYER), words);
    Run result;
    if (process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit) {
        result.exitCode = process.exitCode();
    }
    result.errors = process.readAllStandardError();
    // What Qt's offscreen platform says of any window.
    result.errors.replace("This plugin does not support propagateSizeHints()\n"_ba, ""_ba);
    QFile report(folder + u"/report"_s);
    if (report.open(QIODevice::ReadOnly)) {
        result.report = QString::fromUtf8(report.readAll()).split(u'\n');
    }
    return result;
}

void tst_StartUp::whatMainSets()
{
    const Run result = run();
    QCOMPARE(result.exitCode, probeStatus);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(server->requestCount(), 1);
    QCOMPARE(result.report, (QStringList{u"Vantiro Player"_s, u"Vantiro"_s, u"JPEG warnings off"_s,
                                         u"colour profile warnings off"_s, u"window #1e2026"_s,
                                         u"style sheet on"_s, u"left to right"_s}));
}

void tst_StartUp::theWindowSpeaksTheLanguage()
{
    qputenv("VANTIRO_LANGUAGE", "ar");
    const Run result = run();
    qunsetenv("VANTIRO_LANGUAGE");
    QCOMPARE(result.exitCode, probeStatus);
    QCOMPARE(result.report.constLast(), u"right to left"_s);
}

void tst_StartUp::unknownOptionsAreReported()
{
    const Run result = run({u"--nope"_s, u"/nowhere/film.mp4"_s, u"--"_s, u"--two"_s});
    QCOMPARE(result.errors, "Unknown option 'nope'.\n"_ba);
    QCOMPARE(result.exitCode, probeStatus);
    QCOMPARE(server->requestCount(), 1);
}

/// No window shows.
void tst_StartUp::optionsInOneWordAreAnswered()
{
    const Run result = run({u"-hv"_s});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.report, QStringList());
    QCOMPARE(server->requestCount(), 0);
}

void tst_StartUp::aFileIsNoOption()
{
    const Run result = run({u"--"_s, u"--help"_s});
    QCOMPARE(result.exitCode, probeStatus);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(server->requestCount(), 1);
}

void tst_StartUp::tracesWithTheSwitch()
{
    const Run traced = run({}, true);
    QCOMPARE(traced.exitCode, probeStatus);
    QCOMPARE(QString::fromUtf8(traced.errors),
             u"[M3U] -> "_s + server->url(u"/list.m3u"_s) + u" \n[M3U] <- 36 bytes \n"_s);
}

void tst_StartUp::aBusThatNeverAnswersHoldsNothingUp()
{
    QLocalServer silent;
    const QString path = PrivateProfile::current().root() + u"/silent-bus"_s;
    QVERIFY(silent.listen(path));
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const auto restored = qScopeGuard([address] {
        if (address.isNull()) {
            qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        } else {
            qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        }
    });
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path="_L1 + path).toUtf8());
    constexpr qint64 runMs = 20000; // the start and the end; D-Bus itself gives up after 25 s
    QElapsedTimer clock;
    clock.start();
    const Run result = run();
    QCOMPARE(result.exitCode, probeStatus);
    QCOMPARE(result.errors, QByteArray());
    QVERIFY2(clock.elapsed() < runMs, qPrintable(QString::number(clock.elapsed())));
}

VANTIRO_TEST_GUILESS_MAIN(tst_StartUp)
#include "tst_StartUp.moc"
