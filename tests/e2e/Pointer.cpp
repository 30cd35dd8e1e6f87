#include "e2e/Pointer.h"

#include <QGuiApplication>

#include <memory>

// Last: it defines macros with names such as Bool and None.
#include <X11/extensions/Xfixes.h>

bool pointerIsHidden()
{
    Display *display = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->display();
    const std::unique_ptr<XFixesCursorImage, int (*)(void *)> image(XFixesGetCursorImage(display),
                                                                    XFree);
    const int count = image->width * image->height;
    for (int index = 0; index < count; ++index) {
        // Premultiplied ARGB in the low 32 bits.
        if ((image->pixels[index] & 0xff000000UL) != 0)
            return false;
    }
    return true;
}
