#include "windows/NativeWindow.h"

#include <QTest>

#include <windows.h>

namespace {

HWND nativeHandle(quintptr handle)
{
    return reinterpret_cast<HWND>(handle);
}

HWND visibleWindow(qint64 processId, const QString &title)
{
    HWND window = nullptr;
    do {
        window = FindWindowExW(nullptr, window, nullptr,
                               reinterpret_cast<const wchar_t *>(title.utf16()));
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == processId && IsWindowVisible(window) != FALSE)
            return window;
    } while (window != nullptr);
    return nullptr;
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
    HWND found = nullptr;
    const auto appears = [&] { return (found = visibleWindow(processId, title)) != nullptr; };
    if (!QTest::qWaitFor(appears, timeoutMs))
        return std::nullopt;
    return NativeWindow(reinterpret_cast<quintptr>(found));
}

QRect NativeWindow::clientRect() const
{
    RECT rect = {};
    GetClientRect(nativeHandle(handle), &rect);
    POINT corner = {0, 0};
    ClientToScreen(nativeHandle(handle), &corner);
    return {corner.x, corner.y, static_cast<int>(rect.right), static_cast<int>(rect.bottom)};
}

bool NativeWindow::isInFront() const
{
    return GetForegroundWindow() == nativeHandle(handle);
}

bool NativeWindow::waitUntilGone(int timeoutMs) const
{
    const auto isGone = [window = nativeHandle(handle)] {
        return IsWindowVisible(window) == FALSE;
    };
    return QTest::qWaitFor(isGone, timeoutMs);
}

void NativeWindow::close() const
{
    PostMessageW(nativeHandle(handle), WM_CLOSE, 0, 0);
}

void NativeMouse::moveTo(const QPoint &point)
{
    // Absolute places are in 65,536ths of the screen.
    const LONG x = MulDiv(point.x(), 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
    const LONG y = MulDiv(point.y(), 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
    sendMouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, x, y);
}

void NativeMouse::click(const QPoint &point)
{
    moveTo(point);
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
