#include "support/desktop/RunningApp.h"

#include "support/desktop/Appearance.h"
#include "support/desktop/Input.h"
#include "support/desktop/Screen.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QTest>

#include <sys/prctl.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int timeoutMs = 20000;

QProcessEnvironment programEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!Appearance::language().isEmpty())
        environment.insert(u"VANTIRO_LANGUAGE"_s, Appearance::language());
    if (Appearance::scale() > 1)
        environment.insert(u"QT_SCALE_FACTOR"_s, QString::number(Appearance::scale()));
    return environment;
}

} // namespace

RunningApp::RunningApp(const QString &program)
{
    process.setProgram(program);
    process.setProcessEnvironment(programEnvironment());
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
    if (isRunning() && !close()) {
        process.kill();
        process.waitForFinished();
    }
}

bool RunningApp::start(const QString &windowTitle, const QStringList &arguments)
{
    process.setArguments(arguments);
    process.start();
    if (!process.waitForStarted()) {
        qWarning().noquote() << "Cannot start"_L1 << process.program() << process.errorString();
        return false;
    }
    if (!waitForWindow(windowTitle))
        return false;
    return QTest::qWaitFor(
        [this] { return NativeWindow::ofProcess(processId()).contains(NativeWindow::active()); },
        timeoutMs);
}

bool RunningApp::close()
{
    const QDeadlineTimer end(timeoutMs);
    while (isRunning() && !end.hasExpired()) {
        if (menu() && !Keyboard::press(u"Escape"_s))
            return false;
        const NativeWindow front = NativeWindow::active();
        if (NativeWindow::ofProcess(processId()).contains(front) && !front.requestClose())
            return !isRunning();
        // Another of its windows comes to the front, or the program ends.
        (void)QTest::qWaitFor([&] { return !isRunning() || NativeWindow::active() != front; },
                              static_cast<int>(end.remainingTime()));
    }
    return !isRunning();
}

bool RunningApp::waitUntilEnded()
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

QString RunningApp::takeStandardError()
{
    const qsizetype end = errors.lastIndexOf(u'\n') + 1;
    QString lines = errors.left(end);
    errors.remove(0, end);
    return lines;
}

QList<Accessible> RunningApp::windows() const
{
    return isRunning() ? Accessible::windows(processId()) : QList<Accessible>();
}

Accessible RunningApp::window(const QString &title) const
{
    const QStringList titles = Appearance::textsFor(title);
    for (const Accessible &window : windows()) {
        if (titles.contains(window.name()) && window.role() != Role::Menu)
            return window;
    }
    return {};
}

Accessible RunningApp::waitForWindow(const QString &title) const
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

Accessible RunningApp::waitForMenu() const
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
