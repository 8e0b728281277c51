#include "frames/control_pos.h"

#include <algorithm>

#include "frames/model/control_pos.h"
#include "framework/hwnd.h"
#include "framework/window.h"

namespace mc {

void CControlPos::add(HWND control) {
    const RECT rect = fw::rectInParent(control);
    m_controls.push_back({control,
                          {static_cast<int>(rect.left), static_cast<int>(rect.top),
                           static_cast<int>(rect.right), static_cast<int>(rect.bottom)},
                          fw::scaledFor(control, USER_DEFAULT_SCREEN_DPI)});
}

int CControlPos::arrange(int width) const {
    std::vector<HWND> windows;
    std::vector<fw::Rect> own;
    for (const Control& each : m_controls) {
        if ((GetWindowLongPtrA(each.window, GWL_STYLE) & WS_VISIBLE) == 0) continue;
        const int dpi = fw::scaledFor(each.window, USER_DEFAULT_SCREEN_DPI);
        const auto now = [&](int pixels) { return MulDiv(pixels, dpi, each.dpi); };
        windows.push_back(each.window);
        own.push_back(
            {now(each.own.left), now(each.own.top), now(each.own.right), now(each.own.bottom)});
    }
    if (windows.empty()) return 0;
    const RowMetrics metrics{fw::scaledFor(windows.front(), 5), fw::scaledFor(windows.front(), 4)};
    int bottom = 0;
    const auto rects = placeRow(own, width, metrics);
    for (std::size_t i = 0; i < rects.size(); ++i) {
        SetWindowPos(windows[i], nullptr, rects[i].left, rects[i].top, rects[i].width(),
                     rects[i].height(), SWP_NOZORDER | SWP_NOACTIVATE);
        bottom = std::max(bottom, rects[i].bottom);
    }
    return bottom;
}

}  // namespace mc
