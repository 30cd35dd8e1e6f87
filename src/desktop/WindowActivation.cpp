#include "desktop/WindowActivation.h"

#include <QGuiApplication>
#include <QWindow>

#ifdef VANTIRO_HAS_XCB
#include <algorithm>
#include <cstdlib>

#include <xcb/xcb.h>
#endif

using namespace Qt::StringLiterals;

namespace {

constexpr const char *x11Variable = "DESKTOP_STARTUP_ID";
constexpr const char *waylandVariable = "XDG_ACTIVATION_TOKEN";
/// Before the time at which the user started the program, in the tokens of X11.
constexpr auto timeMark = "_TIME"_L1;

#ifdef VANTIRO_HAS_XCB

constexpr qsizetype chunkBytes = 20;

xcb_connection_t *x11Connection()
{
    auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t *connection, QByteArrayView name)
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, quint16(name.size()), name.data()), nullptr);
    const xcb_atom_t result = reply != nullptr ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return result;
}

void sendToDesktop(xcb_connection_t *connection, xcb_client_message_event_t event)
{
    event.response_type = XCB_CLIENT_MESSAGE;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    // The library takes 32 bytes, which the event has.
    xcb_send_event(connection, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                       XCB_EVENT_MASK_PROPERTY_CHANGE,
                   reinterpret_cast<const char *>(&event));
}

/// With the time of the start: Qt would give the time of the last key or click in this program.
void requestForeground(xcb_connection_t *connection, xcb_window_t window, quint32 time)
{
    xcb_client_message_event_t event{};
    event.format = 32;
    event.window = window;
    event.type = atom(connection, "_NET_ACTIVE_WINDOW");
    event.data.data32[0] = 1; // from a program
    event.data.data32[1] = time;
    sendToDesktop(connection, event);
}

/// Ends the desktop's feedback of the start, which itself shows no window.
void tellStarted(xcb_connection_t *connection, xcb_window_t window, const QString &token)
{
    QByteArray text = token.toUtf8();
    text.replace('\\', "\\\\").replace('"', "\\\"");
    text = "remove: ID=\"" + text + '"';
    text += '\0';
    xcb_client_message_event_t event{};
    event.format = 8;
    event.window = window;
    event.type = atom(connection, "_NET_STARTUP_INFO_BEGIN");
    for (qsizetype start = 0; start < text.size(); start += chunkBytes) {
        const QByteArray chunk = text.mid(start, chunkBytes).leftJustified(chunkBytes, '\0');
        std::copy(chunk.begin(), chunk.end(), std::begin(event.data.data8));
        sendToDesktop(connection, event);
        event.type = atom(connection, "_NET_STARTUP_INFO");
    }
}

bool activateByX11(const QWindow *window, const QString &token)
{
    xcb_connection_t *connection = x11Connection();
    const qsizetype mark = token.lastIndexOf(timeMark);
    bool hasTime = false;
    const quint32 time =
        mark >= 0 ? QStringView(token).sliced(mark + timeMark.size()).toUInt(&hasTime) : 0;
    if (connection == nullptr || !hasTime) {
        return false;
    }
    const auto id = static_cast<xcb_window_t>(window->winId());
    requestForeground(connection, id, time);
    tellStarted(connection, id, token);
    xcb_flush(connection);
    return true;
}

#endif

} // namespace

QString activationToken()
{
    const QString x11 = qEnvironmentVariable(x11Variable);
    return x11.contains(timeMark) ? x11 : qEnvironmentVariable(waylandVariable, x11);
}

void activateWindow(QWindow *window, const QString &token)
{
#ifdef VANTIRO_HAS_XCB
    if (activateByX11(window, token)) {
        return;
    }
#endif
    if (!token.isEmpty()) {
        // Where Qt's platform for Wayland looks for it.
        qputenv(waylandVariable, token.toUtf8());
    }
    window->requestActivate();
}
