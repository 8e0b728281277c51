#include "frames/control_pos.h"

#include <algorithm>

#include "frames/model/control_pos.h"
#include "framework/hwnd.h"
#include "framework/window.h"

namespace mc {

namespace {

// Position and size, each as the platform rounds it.
fw::Rect converted(const fw::Rect& from, SIZE to, SIZE units) {
    const auto across = [&](int x) { return MulDiv(x, to.cx, units.cx); };
    const auto down = [&](int y) { return MulDiv(y, to.cy, units.cy); };
    const int left = across(from.left), top = down(from.top);
    return {left, top, left + across(from.width()), top + down(from.height())};
}

constexpr SIZE kDialogUnits{4, 8};

}  // namespace

// Where the platform put the control, in the units that it did that with.
void CControlPos::add(HWND control) {
    const RECT rect = fw::rectInParent(control);
    RECT units{0, 0, kDialogUnits.cx, kDialogUnits.cy};
    MapDialogRect(GetParent(control), &units);
    m_controls.push_back(
        {control, converted({static_cast<int>(rect.left), static_cast<int>(rect.top),
                             static_cast<int>(rect.right), static_cast<int>(rect.bottom)},
                            kDialogUnits, {units.right, units.bottom})});
}

int CControlPos::arrange(int width) const {
    std::vector<HWND> windows;
    std::vector<fw::Rect> own;
    for (const Control& each : m_controls) {
        if ((GetWindowLongPtrA(each.window, GWL_STYLE) & WS_VISIBLE) == 0) continue;
        const HWND dialog = GetParent(each.window);
        windows.push_back(each.window);
        own.push_back(
            converted(each.own, fw::dialogUnits(fw::fontOf(dialog), dialog), kDialogUnits));
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
