#include "framework/hwnd.h"

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

}  // namespace fw
