#include "windows/NativeWindow.h"

#include <QTest>

#include <windows.h>

namespace {

HWND nativeHandle(quintptr handle)
{
    return reinterpret_cast<HWND>(handle);
}

QString titleOf(HWND window)
{
    wchar_t text[256] = {};
    const int length = GetWindowTextW(window, text, 256);
    return QString::fromWCharArray(text, length);
}

struct Search
{
    DWORD processId;
    QString title;
    HWND found = nullptr;
};

BOOL CALLBACK compareWindow(HWND window, LPARAM parameter)
{
    auto *search = reinterpret_cast<Search *>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId == search->processId && IsWindowVisible(window) != FALSE &&
        titleOf(window) == search->title) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

struct ChildSearch
{
    QSize minimum;
    QRect found;
};

QRect screenRect(HWND window)
{
    RECT rect = {};
    GetWindowRect(window, &rect);
    return {QPoint(rect.left, rect.top), QSize(rect.right - rect.left, rect.bottom - rect.top)};
}

BOOL CALLBACK compareChild(HWND window, LPARAM parameter)
{
    auto *search = reinterpret_cast<ChildSearch *>(parameter);
    const QRect rect = screenRect(window);
    if (IsWindowVisible(window) != FALSE && rect.width() >= search->minimum.width() &&
        rect.height() >= search->minimum.height())
        search->found = rect;
    return TRUE;
}

void send(INPUT input)
{
    SendInput(1, &input, sizeof(input));
}

void sendMouse(DWORD flags, LONG x = 0, LONG y = 0)
{
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.dwFlags = flags;
    send(input);
}

void sendKey(WORD virtualKey, WORD character, DWORD flags)
{
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = character;
    input.ki.dwFlags = flags;
    send(input);
}

void pressKey(WORD virtualKey)
{
    sendKey(virtualKey, 0, 0);
    sendKey(virtualKey, 0, KEYEVENTF_KEYUP);
}

} // namespace

std::optional<NativeWindow> NativeWindow::waitFor(qint64 processId, const QString &title,
                                                  int timeoutMs)
{
    Search search{static_cast<DWORD>(processId), title};
    const bool found = QTest::qWaitFor(
        [&search] {
            EnumWindows(compareWindow, reinterpret_cast<LPARAM>(&search));
            return search.found != nullptr;
        },
        timeoutMs);
    if (!found)
        return std::nullopt;
    return NativeWindow(reinterpret_cast<quintptr>(search.found));
}

QRect NativeWindow::clientRect() const
{
    RECT rect = {};
    GetClientRect(nativeHandle(handle), &rect);
    POINT corner = {0, 0};
    ClientToScreen(nativeHandle(handle), &corner);
    return {corner.x, corner.y, static_cast<int>(rect.right), static_cast<int>(rect.bottom)};
}

QRect NativeWindow::childRect(const QSize &minimum) const
{
    ChildSearch search{minimum, {}};
    EnumChildWindows(nativeHandle(handle), compareChild, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool NativeWindow::isVisible() const
{
    return IsWindow(nativeHandle(handle)) != FALSE &&
           IsWindowVisible(nativeHandle(handle)) != FALSE;
}

bool NativeWindow::waitUntilGone(int timeoutMs) const
{
    return QTest::qWaitFor([this] { return !isVisible(); }, timeoutMs);
}

void NativeWindow::close() const
{
    PostMessageW(nativeHandle(handle), WM_CLOSE, 0, 0);
}

void NativeWindow::moveMouse(const QPoint &place) const
{
    const QPoint target = clientRect().topLeft() + place;
    // Absolute places are in 65,536ths of the screen.
    const LONG x = MulDiv(target.x(), 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
    const LONG y = MulDiv(target.y(), 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
    sendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, x, y);
}

void NativeWindow::click(const QPoint &place) const
{
    moveMouse(place);
    sendMouse(MOUSEEVENTF_LEFTDOWN);
    sendMouse(MOUSEEVENTF_LEFTUP);
}

void NativeKeyboard::press(Key key)
{
    pressKey(static_cast<WORD>(key));
}

void NativeKeyboard::selectAll()
{
    sendKey(VK_CONTROL, 0, 0);
    pressKey('A');
    sendKey(VK_CONTROL, 0, KEYEVENTF_KEYUP);
}

void NativeKeyboard::type(const QString &text)
{
    for (const QChar character : text) {
        sendKey(0, character.unicode(), KEYEVENTF_UNICODE);
        sendKey(0, character.unicode(), KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}
