// A plugin that the program itself loads. Once its window shows and its data hold a file of the
// name VANTIRO_PROBE_AWAITS, it writes what start-up has set to VANTIRO_PROBE_REPORT, a line each,
// and ends the event loop with status 7.

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QGenericPlugin>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QPalette>
#include <QTimer>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class Probe : public QObject
{
public:
    Probe()
    {
        connect(&timer, &QTimer::timeout, this, [this] {
            if (windowShows() && fileIsThere()) {
                timer.stop();
                writeReport();
                QCoreApplication::exit(7);
            }
        });
        timer.start(10);
    }

private:
    static bool windowShows()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::any_of(windows.cbegin(), windows.cend(), [](const QWidget *window) {
            return window->isVisible() && qobject_cast<const QMainWindow *>(window) != nullptr;
        });
    }

    /// Wherever the names of the application put it.
    static bool fileIsThere()
    {
        return QDirIterator(qEnvironmentVariable("XDG_DATA_HOME"),
                            {qEnvironmentVariable("VANTIRO_PROBE_AWAITS")}, QDir::Files,
                            QDirIterator::Subdirectories)
            .hasNext();
    }

    static void writeReport()
    {
        const auto onOff = [](bool on) { return on ? u"on"_s : u"off"_s; };
        const QStringList lines{
            QCoreApplication::applicationName(),
            QCoreApplication::organizationName(),
            u"JPEG warnings "_s + onOff(QLoggingCategory("qt.gui.imageio.jpeg").isWarningEnabled()),
            u"colour profile warnings "_s +
                onOff(QLoggingCategory("qt.gui.icc").isWarningEnabled()),
            u"window "_s + QApplication::palette().color(QPalette::Window).name(),
            u"style sheet "_s + onOff(!qApp->styleSheet().isEmpty()),
            QApplication::layoutDirection() == Qt::RightToLeft ? u"right to left"_s
                                                               : u"left to right"_s};
        QFile report(qEnvironmentVariable("VANTIRO_PROBE_REPORT"));
        if (report.open(QIODevice::WriteOnly)) {
            report.write(lines.join(u'\n').toUtf8());
        }
    }

    QTimer timer;
};

} // namespace

class StartProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "start_probe.json")

public:
    QObject *create(const QString &, const QString &) override { return new Probe; }
};

#include "start_probe.moc"
