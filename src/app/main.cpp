#include "app/CommandLine.h"
#include "app/Language.h"
#include "app/MallocArenas.h"
#include "app/RegexpJit.h"
#include "app/Theme.h"
#include "desktop/SingleInstance.h"
#include "desktop/WindowActivation.h"
#include "ui/MainWindow.h"

#ifdef VANTIRO_HAS_DBUS
#include "desktop/SessionBus.h"
#endif

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLoggingCategory>
#include <QSettings>

#include <cstdlib>
#include <memory>

#ifdef Q_OS_WIN
#include <cstdio>

#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// libVLC needs an X window handle, which a Wayland session lacks. Selects Qt's X11 platform there,
/// unless the user chose a platform.
void preferX11OverWayland()
{
#ifdef Q_OS_LINUX
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
#endif
}

/// On Windows a graphical program has no console. If one started it, standard output and standard
/// error that are not redirected go to that console.
void writeToParentConsole()
{
#ifdef Q_OS_WIN
    const bool outputIsRedirected = GetStdHandle(STD_OUTPUT_HANDLE) != nullptr;
    const bool errorsAreRedirected = GetStdHandle(STD_ERROR_HANDLE) != nullptr;
    if ((outputIsRedirected && errorsAreRedirected) ||
        AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    if (!outputIsRedirected)
        std::freopen("CONOUT$", "w", stdout);
    if (!errorsAreRedirected)
        std::freopen("CONOUT$", "w", stderr);
#endif
}

/// The installed icon, or the program's own where it runs from a build tree. On other platforms
/// the executable's icon shows.
void showIcon()
{
#ifdef Q_OS_LINUX
    QIcon own;
    const QDir sizes(u":/icon"_s);
    for (const QString &file : sizes.entryList()) {
        own.addFile(sizes.filePath(file));
    }
    QApplication::setWindowIcon(QIcon::fromTheme(u"vantiro-player"_s, own));
#endif
}

/// The two names determine where settings and data are stored.
void nameApplication()
{
    QCoreApplication::setApplicationName(u"Vantiro Player"_s);
    QCoreApplication::setOrganizationName(u"Vantiro"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTIRO_VERSION));
}

/// Whether a session bus that does not answer would hold up the program's end.
bool isBusAwaited()
{
#ifdef VANTIRO_HAS_DBUS
    return SessionBus::isAnyWaiting();
#else
    return false;
#endif
}

/// Ends the process without destructors, which would destroy objects that libVLC's threads still
/// use, or wait for a session bus.
[[noreturn]] void leaveAtOnce(int status)
{
    QSettings(u"Vantiro"_s, u"Player"_s).sync();
    std::_Exit(status);
}

} // namespace

// On Windows Qt's entry shim defines this name as qMain and calls it from WinMain.
int main(int argc, char **argv)
{
    limitMallocArenas();
    disableRegexpJit();
    // Poster images trigger these warnings in quantity.
    QLoggingCategory::setFilterRules(
        u"qt.gui.imageio.jpeg.warning=false\nqt.gui.icc.warning=false"_s);
    writeToParentConsole();
    if (CommandLine::asksForText(argc, argv)) {
        const QCoreApplication textOnly(argc, argv);
        nameApplication();
        Language::apply();
        if (const auto status = CommandLine::process(textOnly).exitStatus) {
            return *status;
        }
    }
    preferX11OverWayland();
    const QString token = activationToken();
    QApplication app(argc, argv);
    nameApplication();
    Language::apply();
    const CommandLine::Request request = CommandLine::process(app);
    if (request.exitStatus) {
        return *request.exitStatus;
    }
    SingleInstance instance(profileServerName());
    if (instance.start({request.addresses, token}) == SingleInstance::Start::HandedOver) {
        return EXIT_SUCCESS;
    }
    Theme::apply(app);
    showIcon();

    auto window = std::make_unique<MainWindow>();
    QObject::connect(&instance, &SingleInstance::requested, window.get(), &MainWindow::takeOver);
    window->open(request.addresses);
    window->show();
    const int status = QApplication::exec();
    // What follows may take a second; a start in it is one of its own.
    instance.close();
    if (!window->endPlayback()) {
        leaveAtOnce(status);
    }
    window.reset();
    if (isBusAwaited()) {
        leaveAtOnce(status);
    }
    return status;
}
