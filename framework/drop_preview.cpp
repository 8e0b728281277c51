#include "framework/drop_preview.h"

#include <algorithm>

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace fw {

const MessageMap& CDropPreview::messageMap() const {
    static constexpr MessageMap map{nullptr, {}};
    return map;
}

// Cut out by a region: a translucent window would need a compositor to be one.
void CDropPreview::show(const RECT& rect) {
    static const WindowClass windowClass{"MakerChecker.DropPreview", 0, IDC_SIZEALL,
                                         COLOR_HIGHLIGHT};
    if (handle() == nullptr &&
        !create(windowClass, "", WS_POPUP | WS_DISABLED,
                WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, rect, nullptr, 0))
        return;
    const int width = std::max(widthOf(rect), 1);
    const int height = std::max(heightOf(rect), 1);
    const int line = scaled(4);
    Region frame(CreateRectRgn(0, 0, width, height));
    const Region inside(CreateRectRgn(line, line, width - line, height - line));
    CombineRgn(frame.get(), frame.get(), inside.get(), RGN_DIFF);
    SetWindowRgn(handle(), frame.release(), TRUE);
    SetWindowPos(handle(), HWND_TOPMOST, rect.left, rect.top, width, height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    UpdateWindow(handle());
}

void CDropPreview::hide() {
    if (handle() != nullptr) DestroyWindow(handle());
}

}  // namespace fw
