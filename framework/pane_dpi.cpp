#include "framework/pane_dpi.h"

#include <utility>

#include "framework/hwnd.h"
#include "framework/key_filter.h"
#include "framework/pane_dialog.h"
#include "framework/platform.h"
#include "framework/point_font.h"
#include "res/resource_ids.h"

namespace fw {

void PaneDpi::open() {
    subclass(m_pane.handle());
    takeFont();
}

HFONT PaneDpi::font() {
    if (!m_font) m_font = pointFont(DIALOG_FONT_FACE, DIALOG_FONT_POINTS, dpiOf(m_pane.handle()));
    return m_font.get();
}

void PaneDpi::check() {
    if (m_dpi != 0 && m_dpi != dpiOf(m_pane.handle())) follow();
}

void PaneDpi::takeFont() {
    const HWND pane = m_pane.handle();
    m_dpi = dpiOf(pane);
    for (HWND child = GetWindow(pane, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT))
        setFont(child, font());
}

// The font before goes when no control has it any more.
void PaneDpi::follow() {
    const HWND pane = m_pane.handle();
    if (pane == nullptr) return;
    if (holdsMouse(pane)) SendMessageA(GetCapture(), WM_CANCELMODE, 0, 0);
    const Font before = std::exchange(m_font, Font());
    takeFont();
    m_pane.keys().followDpi();
    m_pane.frameChanged();
    m_pane.onDpiChanged();
    RedrawWindow(pane, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

const MessageMap& PaneDpi::messageMap() const {
    static constexpr MessageEntry entries[] = {
        on<WM_DPICHANGED_AFTERPARENT, &PaneDpi::onAfterParent>(),
        observe<WM_SIZE, &PaneDpi::check>(),
    };
    static constexpr MessageMap map{nullptr, entries};
    return map;
}

// The dialog manager gives the dialog and its controls another font and other sizes. Here the frame
// decides the pane's size, and the pane those of its controls.
void PaneDpi::onAfterParent() {
    const RECT own = rectInParent(handle());
    controlDefault(WM_DPICHANGED_AFTERPARENT, 0, 0);
    SetWindowPos(handle(), nullptr, own.left, own.top, widthOf(own), heightOf(own),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    follow();
}

}  // namespace fw
