#include "player/VideoOutput.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWidget>

#include <algorithm>

#include <vlc/vlc.h>

using namespace Qt::StringLiterals;

namespace {

/// The order matters: only the widget becomes native, not its ancestors.
void makeNative(QWidget *widget)
{
    widget->setAttribute(Qt::WA_DontCreateNativeAncestors);
    widget->setAttribute(Qt::WA_NativeWindow);
}

} // namespace

VideoOutput::VideoOutput(QWidget *videoSurface, QObject *parent)
    : QObject(parent)
    , surface(videoSurface)
    , current(videoSurface)
{
    if (surface != nullptr) {
        surface->installEventFilter(this);
    }
}

void VideoOutput::attach(libvlc_media_player_t *mediaPlayer) const
{
    if (current == nullptr || mediaPlayer == nullptr) {
        return;
    }
    makeNative(current);
    const WId window = current->winId();
#ifdef Q_OS_WIN
    // A WId is the HWND as a number.
    libvlc_media_player_set_hwnd(mediaPlayer, reinterpret_cast<void *>(window)); // NOLINT
#else
    // Only the X11 platform has windows that libVLC can draw into.
    if (QGuiApplication::platformName() == "xcb"_L1) {
        libvlc_media_player_set_xwindow(mediaPlayer, static_cast<quint32>(window));
    }
#endif
}

void VideoOutput::abandonWindow(const PlayerStop &stop)
{
    if (surface != nullptr) {
        abandonedWindows.push_back({current, stop});
        current = createSubstitute();
    }
}

void VideoOutput::reclaimSurface()
{
    std::erase_if(abandonedWindows,
                  [](const AbandonedWindow &abandoned) { return abandoned.stop.isDone(); });
    if (!isAbandoned(surface)) {
        current = surface;
    }
    std::erase_if(substitutes, [this](QWidget *window) {
        const bool unused = window != current && !isAbandoned(window);
        if (unused) {
            delete window;
        }
        return unused;
    });
}

void VideoOutput::clear() const
{
    if (current != nullptr) {
        surface->update();
        current->update();
    }
}

bool VideoOutput::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        for (QWidget *window : substitutes) {
            window->setGeometry(surface->rect());
        }
    }
    return QObject::eventFilter(watched, event);
}

bool VideoOutput::isAbandoned(const QWidget *window) const
{
    return std::any_of(
        abandonedWindows.cbegin(), abandonedWindows.cend(),
        [window](const AbandonedWindow &abandoned) { return abandoned.window == window; });
}

QWidget *VideoOutput::createSubstitute()
{
    auto *window = new QWidget(surface);
    makeNative(window);
    window->setMouseTracking(true);
    window->setGeometry(surface->rect());
    window->show();
    window->raise();
    substitutes.push_back(window);
    return window;
}
