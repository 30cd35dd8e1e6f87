#include "support/desktop/Input.h"

#include "support/desktop/Appearance.h"
#include "support/desktop/NativeWindow.h"

#include <QDebug>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int settleTimeoutMs = 60000;

QStringList moving(const QPoint &point)
{
    return {u"mousemove"_s, QString::number(point.x()), QString::number(point.y())};
}

/// As a hand does it: a first movement near the point makes hover effects and menus take notice.
QStringList arriving(const QPoint &point)
{
    return moving(point + QPoint(point.x() > 0 ? -1 : 1, 0)) + moving(point);
}

/// Whether it is less than a pixel of the program, which may be larger than one of the screen.
bool isNear(const QPoint &distance)
{
    const int scale = Appearance::scale();
    return std::abs(distance.x()) < scale && std::abs(distance.y()) < scale;
}

/// Whether the program and the window system agree where the window is. Until then a window that
/// has just opened, or that the window manager is moving, would be missed.
bool isAtRest(const Accessible &window, qint64 processId)
{
    const QRect area = window.rect();
    const QList<NativeWindow> windows = NativeWindow::ofProcess(processId);
    return std::any_of(windows.begin(), windows.end(), [&area](const NativeWindow &candidate) {
        const QRect native = candidate.geometry();
        return isNear(native.topLeft() - area.topLeft()) &&
               isNear(native.bottomRight() - area.bottomRight());
    });
}

/// The middle of a control; a null point, with a warning, for what is not on the screen.
QPoint settledMiddle(const Accessible &control)
{
    const Accessible window = control.window();
    const qint64 processId = control.processId();
    if (!control ||
        !QTest::qWaitFor([&] { return isAtRest(window, processId); }, settleTimeoutMs)) {
        qWarning().noquote() << "The window of"_L1 << control.name() << "is not on the screen"_L1;
        return {};
    }
    // An item may reach out of its view, and the list of a combo box out of its window.
    const Accessible view = control.parent();
    const QRect area =
        control.rect().intersected(view.rowCount() > 0 ? view.rect() : window.rect());
    if (area.isEmpty())
        qWarning().noquote() << control.name() << "is not on the screen"_L1;
    return area.isEmpty() ? QPoint() : area.center();
}

} // namespace

bool xdotool(const QStringList &commands)
{
    constexpr int timeoutMs = 30000;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(u"xdotool"_s, commands);
    const bool ended =
        QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, timeoutMs);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    const bool succeeded = ended && process.error() == QProcess::UnknownError &&
                           process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (!succeeded)
        qWarning().noquote() << "xdotool"_L1 << commands.join(u' ') << process.errorString();
    return succeeded;
}

namespace Mouse {

bool moveTo(const QPoint &point)
{
    return xdotool(arriving(point));
}

bool click(const QPoint &point)
{
    return xdotool(arriving(point) + QStringList{u"click"_s, u"1"_s});
}

bool rightClick(const QPoint &point)
{
    return xdotool(arriving(point) + QStringList{u"click"_s, u"3"_s});
}

bool doubleClick(const QPoint &point)
{
    return xdotool(arriving(point) +
                   QStringList{u"click"_s, u"--repeat"_s, u"2"_s, u"--delay"_s, u"40"_s, u"1"_s});
}

bool choose(const Accessible &comboBox, const QString &text)
{
    if (!click(comboBox))
        return false;
    const QStringList texts = Appearance::textsFor(text);
    const Accessible item = comboBox.waitFor(Role::ListItem, text);
    return item && click(item) &&
           QTest::qWaitFor(
               [&] { return texts.contains(comboBox.text()) && !comboBox.find(Role::List); },
               settleTimeoutMs);
}

bool press(const QPoint &point)
{
    return xdotool(arriving(point) + QStringList{u"mousedown"_s, u"1"_s});
}

bool release()
{
    return xdotool({u"mouseup"_s, u"1"_s});
}

bool drag(const QPoint &from, const QPoint &to)
{
    constexpr int steps = 8;
    QStringList commands = arriving(from) + QStringList{u"mousedown"_s, u"1"_s};
    for (int step = 1; step <= steps; ++step)
        commands += moving(from + (to - from) * step / steps);
    return xdotool(commands + QStringList{u"mouseup"_s, u"1"_s});
}

bool click(const Accessible &control)
{
    const QPoint point = settledMiddle(control);
    return !point.isNull() && click(point);
}

bool rightClick(const Accessible &control)
{
    const QPoint point = settledMiddle(control);
    return !point.isNull() && rightClick(point);
}

} // namespace Mouse

namespace Keyboard {

bool press(const QString &keys, int times)
{
    return xdotool(QStringList{u"key"_s} + QStringList(times, keys));
}

bool fill(const Accessible &edit, const QString &text)
{
    if (!Mouse::click(edit) ||
        !QTest::qWaitFor([&edit] { return edit.isFocused(); }, settleTimeoutMs) ||
        !press(u"ctrl+a"_s) || !press(u"BackSpace"_s) || !xdotool({u"type"_s, u"--"_s, text}))
        return false;
    return QTest::qWaitFor([&] { return edit.text().size() == text.size(); }, settleTimeoutMs);
}

} // namespace Keyboard
} // namespace desktop
