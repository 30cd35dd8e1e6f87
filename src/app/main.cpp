#include "app/CommandLine.h"
#include "app/Theme.h"
#include "ui/MainWindow.h"

#include <QApplication>
#include <QLoggingCategory>

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

/// The two names decide where settings and data lie.
void nameApplication()
{
    QCoreApplication::setApplicationName(u"Vantiro Player"_s);
    QCoreApplication::setOrganizationName(u"Vantiro"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTIRO_VERSION));
}

} // namespace

// On Windows Qt's entry shim defines this name as qMain and calls it from WinMain.
int main(int argc, char **argv)
{
    // Poster images trigger these warnings in quantity.
    QLoggingCategory::setFilterRules(
        u"qt.gui.imageio.jpeg.warning=false\nqt.gui.icc.warning=false"_s);
    if (CommandLine::asksForText(argc, argv)) {
        const QCoreApplication textOnly(argc, argv);
        nameApplication();
        CommandLine::process(textOnly);
    }
    preferX11OverWayland();
    QApplication app(argc, argv);
    nameApplication();
    CommandLine::process(app);
    Theme::apply(app);

    MainWindow window;
    window.show();
    return QApplication::exec();
}
