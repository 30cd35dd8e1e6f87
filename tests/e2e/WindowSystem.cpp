#include "e2e/WindowSystem.h"

#include <QGuiApplication>

#include <memory>

// Last: it defines macros with names such as Bool and None.
#include <X11/Xlib.h>
#include <X11/extensions/Xfixes.h>

namespace desktop {
namespace {

struct XRelease
{
    void operator()(void *data) const { XFree(data); }
};

Display *display()
{
    const auto *platform = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (platform == nullptr)
        qFatal("The test is not on an X11 screen; run it through with-display");
    return platform->display();
}

Atom atom(const char *name)
{
    return XInternAtom(display(), name, False);
}

Window activeWindow()
{
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char *data = nullptr;
    XGetWindowProperty(display(), DefaultRootWindow(display()), atom("_NET_ACTIVE_WINDOW"), 0, 1,
                       False, AnyPropertyType, &type, &format, &count, &left, &data);
    const std::unique_ptr<unsigned char, XRelease> owned(data);
    // Xlib gives properties of 32 bits as an array of long.
    return count == 1 && format == 32 ? *reinterpret_cast<const Window *>(owned.get()) : 0;
}

} // namespace

bool pointerIsHidden()
{
    const std::unique_ptr<XFixesCursorImage, XRelease> image(XFixesGetCursorImage(display()));
    if (!image)
        return false;
    const int count = image->width * image->height;
    for (int index = 0; index < count; ++index) {
        // Premultiplied ARGB in the low 32 bits.
        if ((image->pixels[index] & 0xff000000UL) != 0)
            return false;
    }
    return true;
}

bool endFullScreen()
{
    constexpr long removeState = 0;
    constexpr long fromUser = 2;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = activeWindow();
    event.xclient.message_type = atom("_NET_WM_STATE");
    event.xclient.format = 32;
    event.xclient.data.l[0] = removeState;
    event.xclient.data.l[1] = static_cast<long>(atom("_NET_WM_STATE_FULLSCREEN"));
    event.xclient.data.l[3] = fromUser;
    const bool sent = XSendEvent(display(), DefaultRootWindow(display()), False,
                                 SubstructureRedirectMask | SubstructureNotifyMask, &event) != 0;
    XFlush(display());
    return sent && event.xclient.window != 0;
}

} // namespace desktop
