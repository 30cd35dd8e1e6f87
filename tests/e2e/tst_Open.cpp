// Files and addresses that are opened: on the command line, by a later start, by drag and drop.

#include "e2e/PlayerSession.h"
#include "fakeprovider/Streams.h"
#include "model/SourceManager.h"
#include "support/TestFiles.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDrag>
#include <QElapsedTimer>
#include <QMimeData>
#include <QMouseEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QWidget>

#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;
using namespace desktop;

namespace {

const QString filmName = u"Der  Film, 電視 ë%41#.mp4"_s;
const QString filmTitle = filmName.simplified();
const QString filmWindow = filmTitle + u" - Vantiro Player"_s;

/// A file manager's window, which the user drags a file out of.
class FileWindow final : public QWidget
{
public:
    explicit FileWindow(QString draggedPath)
        : path(std::move(draggedPath))
    {
        setWindowTitle(u"Files"_s);
        setGeometry(20, 40, 120, 80);
    }

protected:
    void mouseMoveEvent(QMouseEvent * /*event*/) override
    {
        auto *drag = new QDrag(this);
        auto *dragged = new QMimeData;
        dragged->setUrls({QUrl::fromLocalFile(path)});
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction | Qt::MoveAction);
    }

private:
    QString path;
};

/// As a hand does it: the programs agree on the drop while the pointer rests.
bool dragSlowly(const QPoint &from, const QPoint &to)
{
    constexpr int steps = 8;
    const auto at = [](const QPoint &point) {
        return QStringList{u"mousemove"_s, QString::number(point.x()), QString::number(point.y()),
                           u"sleep"_s, u"0.1"_s};
    };
    QStringList commands = at(from) + QStringList{u"mousedown"_s, u"1"_s};
    for (int step = 1; step <= steps; ++step) {
        commands += at(from + (to - from) * step / steps);
    }
    return xdotool(commands + QStringList{u"sleep"_s, u"1"_s, u"mouseup"_s, u"1"_s});
}

} // namespace

class tst_Open : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void aFilmOnTheCommandLine();
    void aLaterStartHandsOver_data();
    void aLaterStartHandsOver();
    void afterACrash();
    void besideAProgramThatHangs();
    void droppedOnThePicture();

private:
    /// Starts the program another time in the folder of the films.
    void startLater(QProcess &later, const QStringList &words, const QString &token = {}) const;
    bool playsFilm(const PlayerSession &player) const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<PlayerSession> session;
};

void tst_Open::init()
{
    PrivateProfile::current().clear();
    folder = std::make_unique<QTemporaryDir>();
    writeFile(folder->filePath(filmName), readFile(streamPath(u"film-faststart.mp4"_s)));
    writeFile(folder->filePath(u"More channels.m3u"_s),
              "#EXTM3U\n#EXTINF:-1,One\nhttp://127.0.0.1:9/1\n");
    SourceConfig source;
    source.name = u"Home"_s;
    source.url = folder->filePath(u"More channels.m3u"_s);
    SourceManager(nullptr).saveSource(source);
    session = std::make_unique<PlayerSession>();
}

void tst_Open::cleanup()
{
    session.reset();
}

void tst_Open::startLater(QProcess &later, const QStringList &words, const QString &token) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!token.isEmpty()) {
        environment.insert(u"DESKTOP_STARTUP_ID"_s, token);
    }
    later.setProcessEnvironment(environment);
    later.setWorkingDirectory(folder->path());
    later.setProcessChannelMode(QProcess::ForwardedChannels);
    later.start(QStringLiteral(VANTIRO_PLAYER), words);
}

bool tst_Open::playsFilm(const PlayerSession &player) const
{
    return player.showsLabel(UiTexts::playing(filmTitle)) && player.seesPicture();
}

void tst_Open::aFilmOnTheCommandLine()
{
    QVERIFY(session->start({folder->filePath(filmName)}, filmWindow));
    QVERIFY(playsFilm(*session));
    QVERIFY(session->hasOneWindow());
    session->keepScreenshot(u"opened-film"_s);
    QVERIFY(session->close());
}

void tst_Open::aLaterStartHandsOver_data()
{
    QTest::addColumn<bool>("hasToken");
    QTest::newRow("from a terminal") << false;
    QTest::newRow("from the desktop") << true;
}

void tst_Open::aLaterStartHandsOver()
{
    QFETCH(const bool, hasToken);
    QVERIFY(session->start());
    // Another program is in front.
    FileWindow files(folder->path());
    files.setGeometry(0, 0, 1600, 900);
    files.show();
    QVERIFY(QTest::qWaitForWindowActive(&files));
    QTRY_VERIFY(NativeWindow::active() != session->nativeWindow()); // told by the window manager

    QElapsedTimer clock;
    clock.start();
    // The X server's time.
    const QString token = u"files-1_TIME%1"_s.arg(quint32(clock.msecsSinceReference()));
    QProcess later;
    // A relative path, of the later start's own folder.
    startLater(later, {filmName, u"More channels.m3u"_s}, hasToken ? token : QString());
    QTRY_COMPARE_WITH_TIMEOUT(later.state(), QProcess::NotRunning, 15000);
    QCOMPARE(later.exitStatus(), QProcess::NormalExit);
    QCOMPARE(later.exitCode(), 0);

    const Accessible dialog = session->app.waitForWindow(u"Add Source"_s);
    QVERIFY(dialog);
    QTRY_VERIFY(NativeWindow::ofProcess(session->app.processId()).contains(NativeWindow::active()));
    QCOMPARE(dialog.waitFor(Role::Edit, u"Name:"_s).text(), u"More channels"_s);
    QCOMPARE(dialog.waitFor(Role::Edit, u"Playlist URL/File"_s).text(),
             folder->filePath(u"More channels.m3u"_s));
    session->keepScreenshot(u"opened-playlist"_s);
    QVERIFY(session->acceptDialog());
    QVERIFY(session->window.waitFor(Role::ComboBox, u"More channels"_s));
    QVERIFY(playsFilm(*session));
    QCOMPARE(NativeWindow::active().title(), filmWindow);
    QVERIFY(session->close());
}

void tst_Open::afterACrash()
{
    QVERIFY(session->start());
    ::kill(pid_t(session->app.processId()), SIGKILL);
    QVERIFY(session->app.waitUntilEnded());
    QVERIFY(session->start({folder->filePath(filmName)}, filmWindow));
    QVERIFY(playsFilm(*session));
    QVERIFY(session->close());
}

void tst_Open::besideAProgramThatHangs()
{
    QVERIFY(session->start());
    const auto hanging = pid_t(session->app.processId());
    ::kill(hanging, SIGSTOP);
    {
        PlayerSession second;
        QElapsedTimer clock;
        clock.start();
        const bool started = second.start({folder->filePath(filmName)}, filmWindow);
        const qint64 startMs = clock.elapsed();
        const bool plays = started && playsFilm(second);
        ::kill(hanging, SIGCONT);
        QVERIFY(plays);
        QVERIFY2(startMs < 15000, qPrintable(QString::number(startMs)));
        QVERIFY(second.close());
    }
    // The first one is still the one to hand over to.
    QProcess later;
    startLater(later, {filmName});
    QTRY_COMPARE_WITH_TIMEOUT(later.state(), QProcess::NotRunning, 15000);
    QVERIFY(session->showsLabel(UiTexts::playing(filmTitle)));
    QVERIFY(session->close());
}

/// libVLC draws into a window of its own there.
void tst_Open::droppedOnThePicture()
{
    const QString other = folder->filePath(u"Other.mp4"_s);
    writeFile(other, readFile(streamPath(u"film-faststart.mp4"_s)));
    QVERIFY(session->start({folder->filePath(filmName)}, filmWindow));
    QVERIFY(playsFilm(*session));
    FileWindow files(other);
    files.show();
    QVERIFY(QTest::qWaitForWindowExposed(&files));
    files.raise();
    QVERIFY(dragSlowly(files.geometry().center(), session->videoRect().center()));
    QVERIFY(session->showsLabel(UiTexts::playing(u"Other.mp4"_s)));
    QVERIFY(session->seesPicture());
    session->keepScreenshot(u"dropped-film"_s);
    QVERIFY(QFile::exists(other));
}

VANTIRO_TEST_MAIN(tst_Open)
#include "tst_Open.moc"
