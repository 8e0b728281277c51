#include "framework/hwnd.h"

#include <algorithm>

#include "framework/handles.h"

namespace fw {

std::string textOf(HWND window) {
    const int length = GetWindowTextLengthA(window);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), length + 1)));
    return text;
}

HFONT fontOf(HWND window) noexcept {
    return reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0));
}

void setFont(HWND window, HFONT font) noexcept {
    SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

TEXTMETRICA metricsOf(HFONT font, HWND window) noexcept {
    const DcScope scope(window);
    const SelectScope select(scope.dc(), font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(scope.dc(), &metrics);
    return metrics;
}

// As the platform has it: the average of the letters, and the height of the font.
SIZE dialogUnits(HFONT font, HWND window) noexcept {
    constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const DcScope scope(window);
    const SelectScope select(scope.dc(), font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    SIZE letters{};
    TEXTMETRICA metrics{};
    GetTextExtentPoint32A(scope.dc(), kLetters, sizeof kLetters - 1, &letters);
    GetTextMetricsA(scope.dc(), &metrics);
    return {(letters.cx / 26 + 1) / 2, metrics.tmHeight};
}

RECT screenRect(HWND window) noexcept {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect;
}

RECT rectInParent(HWND window) noexcept {
    RECT rect = screenRect(window);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void moveOnScreen(HWND window, RECT rect) noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoA(MonitorFromRect(&rect, MONITOR_DEFAULTTONEAREST), &monitor) != 0) {
        const RECT& room = monitor.rcWork;
        const LONG x = std::max(std::min(0L, room.right - rect.right), room.left - rect.left);
        const LONG y = std::max(std::min(0L, room.bottom - rect.bottom), room.top - rect.top);
        OffsetRect(&rect, x, y);
    }
    SetWindowPos(window, nullptr, rect.left, rect.top, widthOf(rect), heightOf(rect),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

bool isDialog(HWND window) noexcept {
    constexpr DWORD kDialogClass = 0x8002;
    return GetClassLongA(window, GCW_ATOM) == kDialogClass;
}

POINT mousePoint() noexcept {
    POINT at{};
    GetCursorPos(&at);
    return at;
}

POINT mousePointIn(HWND window) noexcept {
    POINT at = mousePoint();
    ScreenToClient(window, &at);
    return at;
}

}  // namespace fw
