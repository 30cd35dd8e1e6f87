#include "app/CommandLine.h"
#include "app/Theme.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QIcon>
#include <QLoggingCategory>
#include <QSettings>

#include <cstdlib>

#ifdef Q_OS_WIN
#include <cstdio>

#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace {

/// A Wayland session has no X window handle to give to libVLC, so Qt's X11 platform is asked for
/// there, unless the user chose a platform.
void preferX11OverWayland()
{
#ifdef Q_OS_LINUX
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb");
    }
#endif
}

/// A program with windows has no console on Windows. When one started it, and nothing redirects
/// them, texts and traces go there.
void writeToParentConsole()
{
#ifdef Q_OS_WIN
    const bool outputLeads = GetStdHandle(STD_OUTPUT_HANDLE) != nullptr;
    const bool errorsLead = GetStdHandle(STD_ERROR_HANDLE) != nullptr;
    if ((outputLeads && errorsLead) || AttachConsole(ATTACH_PARENT_PROCESS) == FALSE)
        return;
    if (!outputLeads)
        std::freopen("CONOUT$", "w", stdout);
    if (!errorsLead)
        std::freopen("CONOUT$", "w", stderr);
#endif
}

/// Elsewhere the program's file carries its icon.
void showInstalledIcon()
{
#ifdef Q_OS_LINUX
    QApplication::setWindowIcon(QIcon::fromTheme(u"vantiro-player"_s));
#endif
}

/// The two names decide where settings and data lie.
void nameApplication()
{
    QCoreApplication::setApplicationName(u"Vantiro Player"_s);
    QCoreApplication::setOrganizationName(u"Vantiro"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTIRO_VERSION));
}

/// Ends the process without destructors, which would destroy what libVLC's threads still use.
[[noreturn]] void leaveAtOnce(int status)
{
    QSettings(u"Vantiro"_s, u"Player"_s).sync();
    std::_Exit(status);
}

} // namespace

// On Windows Qt's entry shim defines this name as qMain and calls it from WinMain.
int main(int argc, char **argv)
{
    // Poster images trigger these warnings in quantity.
    QLoggingCategory::setFilterRules(
        u"qt.gui.imageio.jpeg.warning=false\nqt.gui.icc.warning=false"_s);
    writeToParentConsole();
    if (CommandLine::asksForText(argc, argv)) {
        const QCoreApplication textOnly(argc, argv);
        nameApplication();
        if (const auto status = CommandLine::process(textOnly)) {
            return *status;
        }
    }
    preferX11OverWayland();
    QApplication app(argc, argv);
    nameApplication();
    if (const auto status = CommandLine::process(app)) {
        return *status;
    }
    Theme::apply(app);
    showInstalledIcon();

    MainWindow window;
    window.show();
    const int status = QApplication::exec();
    if (!window.endPlayback()) {
        leaveAtOnce(status);
    }
    return status;
}
