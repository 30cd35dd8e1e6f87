#include "support/desktop/NativeWindow.h"

#include "support/desktop/Input.h"

#include <QGuiApplication>
#include <QTest>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int settleTimeoutMs = 15000;

struct Free
{
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply *reply)
{
    return std::unique_ptr<Reply, Free>(reply);
}

xcb_connection_t *connection()
{
    const auto *platform = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!platform)
        qFatal("The test is not on an X11 screen; run it through with-display");
    return platform->connection();
}

xcb_window_t rootWindow()
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
}

xcb_atom_t atom(const char *name)
{
    const auto cookie =
        xcb_intern_atom(connection(), false, static_cast<std::uint16_t>(qstrlen(name)), name);
    const auto reply = owned(xcb_intern_atom_reply(connection(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

QByteArray property(xcb_window_t window, const char *name)
{
    constexpr std::uint32_t longest = 16384;
    const auto cookie = xcb_get_property(connection(), false, window, atom(name),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, longest);
    const auto reply = owned(xcb_get_property_reply(connection(), cookie, nullptr));
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

/// For properties that are lists of windows, atoms or numbers of 32 bits.
QList<std::uint32_t> numbers(xcb_window_t window, const char *name)
{
    const QByteArray bytes = property(window, name);
    constexpr qsizetype width = sizeof(std::uint32_t);
    QList<std::uint32_t> result;
    for (qsizetype at = 0; at + width <= bytes.size(); at += width) {
        std::uint32_t number = 0;
        std::memcpy(&number, bytes.constData() + at, sizeof number);
        result.append(number);
    }
    return result;
}

constexpr std::uint32_t fromAPanel = 2;

/// Asks the window manager for something, as a panel does.
void ask(xcb_window_t window, const char *what, const std::array<std::uint32_t, 5> &values)
{
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = window;
    request.type = atom(what);
    std::copy(values.begin(), values.end(), std::begin(request.data.data32));
    xcb_send_event(connection(), false, rootWindow(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&request));
    xcb_flush(connection());
}

/// What the window manager has in its frames, and what it leaves alone, such as menus.
QList<xcb_window_t> allWindows()
{
    QList<xcb_window_t> windows = numbers(rootWindow(), "_NET_CLIENT_LIST");
    const auto tree = owned(
        xcb_query_tree_reply(connection(), xcb_query_tree(connection(), rootWindow()), nullptr));
    if (tree) {
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        for (int index = 0; index < xcb_query_tree_children_length(tree.get()); ++index)
            windows.append(children[index]);
    }
    return windows;
}

} // namespace

QList<NativeWindow> NativeWindow::ofProcess(qint64 processId)
{
    QList<NativeWindow> windows;
    for (const xcb_window_t id : allWindows()) {
        const NativeWindow window(id);
        if (numbers(id, "_NET_WM_PID").value(0) == processId && window.isVisible())
            windows.append(window);
    }
    return windows;
}

NativeWindow NativeWindow::find(qint64 processId, const QString &title)
{
    for (const NativeWindow &window : ofProcess(processId)) {
        // What plays stands before the title of the main window.
        if (window.title() == title || window.title().endsWith(" - "_L1 + title))
            return window;
    }
    return {};
}

NativeWindow NativeWindow::active()
{
    return NativeWindow(numbers(rootWindow(), "_NET_ACTIVE_WINDOW").value(0));
}

QString NativeWindow::title() const
{
    return QString::fromUtf8(property(id, "_NET_WM_NAME"));
}

QRect NativeWindow::geometry() const
{
    const auto size =
        owned(xcb_get_geometry_reply(connection(), xcb_get_geometry(connection(), id), nullptr));
    const auto cookie = xcb_translate_coordinates(connection(), id, rootWindow(), 0, 0);
    const auto origin = owned(xcb_translate_coordinates_reply(connection(), cookie, nullptr));
    if (!size || !origin)
        return {};
    return {origin->dst_x, origin->dst_y, size->width, size->height};
}

bool NativeWindow::isVisible() const
{
    const auto cookie = xcb_get_window_attributes(connection(), id);
    const auto reply = owned(xcb_get_window_attributes_reply(connection(), cookie, nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool NativeWindow::isFullScreen() const
{
    return numbers(id, "_NET_WM_STATE").contains(atom("_NET_WM_STATE_FULLSCREEN"));
}

bool NativeWindow::isAlwaysOnTop() const
{
    return numbers(id, "_NET_WM_STATE").contains(atom("_NET_WM_STATE_ABOVE"));
}

bool NativeWindow::isMaximized() const
{
    const QList<std::uint32_t> state = numbers(id, "_NET_WM_STATE");
    return state.contains(atom("_NET_WM_STATE_MAXIMIZED_VERT")) &&
           state.contains(atom("_NET_WM_STATE_MAXIMIZED_HORZ"));
}

bool NativeWindow::setMaximized(bool maximized) const
{
    ask(id, "_NET_WM_STATE",
        {maximized ? 1U : 0U, atom("_NET_WM_STATE_MAXIMIZED_VERT"),
         atom("_NET_WM_STATE_MAXIMIZED_HORZ"), fromAPanel, 0});
    return QTest::qWaitFor([this, maximized] { return isMaximized() == maximized; },
                           settleTimeoutMs);
}

bool NativeWindow::minimize() const
{
    return xdotool({u"windowminimize"_s, QString::number(id)}) &&
           QTest::qWaitFor([this] { return !isVisible(); }, settleTimeoutMs);
}

bool NativeWindow::setGeometry(const QRect &rect) const
{
    constexpr std::uint32_t ofTheContent = XCB_GRAVITY_STATIC;
    constexpr std::uint32_t allFour = 0xFU << 8U;
    const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
    ask(id, "_NET_MOVERESIZE_WINDOW",
        {ofTheContent | allFour | fromAPanel << 12U, number(rect.x()), number(rect.y()),
         number(rect.width()), number(rect.height())});
    return QTest::qWaitFor([this, &rect] { return geometry() == rect; }, settleTimeoutMs);
}

bool NativeWindow::activate() const
{
    return xdotool({u"windowactivate"_s, QString::number(id)}) &&
           QTest::qWaitFor([this] { return active() == *this; }, settleTimeoutMs);
}

bool NativeWindow::requestClose() const
{
    return activate() && Keyboard::press(u"alt+F4"_s);
}

void NativeWindow::closeFromPanel() const
{
    ask(id, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, fromAPanel});
}

} // namespace desktop
