#include "support/desktop/RunningApp.h"

#include "support/desktop/Input.h"
#include "support/desktop/Screen.h"

#include <QDebug>
#include <QElapsedTimer>
#include <QTest>

#include <sys/prctl.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int politeTimeoutMs = 10000;

} // namespace

RunningApp::RunningApp(const QString &program, const QStringList &arguments,
                       QProcessEnvironment environment)
{
    process.setProgram(program);
    process.setArguments(arguments);
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    // The program goes down with a test that crashes.
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    QObject::connect(&process, &QProcess::readyReadStandardError, &process,
                     [this] { errors += QString::fromUtf8(process.readAllStandardError()); });
    Accessible::connect();
}

RunningApp::~RunningApp()
{
    if (QTest::currentTestFailed())
        keepTraces();
    if (isRunning() && !close(politeTimeoutMs)) {
        process.kill();
        process.waitForFinished();
    }
}

bool RunningApp::start(const QString &windowTitle, int timeoutMs)
{
    errors.clear();
    process.start();
    if (!process.waitForStarted()) {
        qWarning().noquote() << "Cannot start"_L1 << process.program() << process.errorString();
        return false;
    }
    if (!waitForWindow(windowTitle, timeoutMs))
        return false;
    return QTest::qWaitFor(
        [this] { return NativeWindow::ofProcess(processId()).contains(NativeWindow::active()); },
        timeoutMs);
}

bool RunningApp::close(int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (isRunning()) {
        const int left = timeoutMs - static_cast<int>(clock.elapsed());
        if (left <= 0)
            return false;
        if (menu() && !Keyboard::press(u"Escape"_s))
            return false;
        const NativeWindow front = NativeWindow::active();
        if (!NativeWindow::ofProcess(processId()).contains(front)) {
            // Between two windows; or another program is in front.
            const bool changed = QTest::qWaitFor(
                [&] { return !isRunning() || NativeWindow::active() != front; }, left);
            if (!changed)
                return false;
            continue;
        }
        if (!front.requestClose())
            return !isRunning();
        const bool gone = QTest::qWaitFor(
            [&] { return !isRunning() || !NativeWindow::ofProcess(processId()).contains(front); },
            left);
        if (!gone)
            return false;
        // The last window has gone: what is left is the program's own end.
        if (NativeWindow::ofProcess(processId()).isEmpty())
            return waitUntilEnded(left);
    }
    return true;
}

bool RunningApp::waitUntilEnded(int timeoutMs)
{
    return QTest::qWaitFor([this] { return !isRunning(); }, timeoutMs);
}

bool RunningApp::isRunning() const
{
    return process.state() != QProcess::NotRunning;
}

qint64 RunningApp::processId() const
{
    return process.processId();
}

int RunningApp::exitCode() const
{
    return isRunning() || process.exitStatus() != QProcess::NormalExit ? -1 : process.exitCode();
}

bool RunningApp::waitForStandardError(const QString &text, int timeoutMs)
{
    return QTest::qWaitFor([&] { return errors.contains(text); }, timeoutMs);
}

QList<Accessible> RunningApp::windows() const
{
    return isRunning() ? Accessible::windows(processId()) : QList<Accessible>();
}

Accessible RunningApp::window(const QString &title) const
{
    for (const Accessible &window : windows()) {
        if (window.name() == title && window.role() != Role::Menu)
            return window;
    }
    return {};
}

Accessible RunningApp::waitForWindow(const QString &title, int timeoutMs) const
{
    Accessible found;
    const auto foundOrEnded = [&] { return (found = window(title)) || !isRunning(); };
    if (!QTest::qWaitFor(foundOrEnded, timeoutMs) || !found)
        qWarning().noquote() << "There is no window"_L1 << title << "but\n"_L1 << describe();
    return found;
}

Accessible RunningApp::menu() const
{
    const Accessible front = windows().value(0);
    return front.role() == Role::Menu ? front : Accessible();
}

Accessible RunningApp::waitForMenu(int timeoutMs) const
{
    Accessible found;
    if (!QTest::qWaitFor([&] { return bool(found = menu()); }, timeoutMs))
        qWarning().noquote() << "No menu is open, but\n"_L1 << describe();
    return found;
}

NativeWindow RunningApp::nativeWindow(const QString &title) const
{
    return NativeWindow::find(processId(), title);
}

QString RunningApp::describe() const
{
    QString out;
    for (const Accessible &window : windows())
        out += window.describe();
    return isRunning() ? out : u"the program has ended"_s;
}

void RunningApp::keepTraces() const
{
    const QString test = QString::fromUtf8(QTest::currentTestFunction());
    qInfo().noquote() << "Screenshot:"_L1 << Screen::save(Screen::grab(), u"failed-"_s + test);
    qInfo().noquote() << "Standard error:\n"_L1 << errors;
    qInfo().noquote() << "Controls:\n"_L1 << describe();
}

} // namespace desktop
