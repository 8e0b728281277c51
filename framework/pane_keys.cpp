#include "framework/pane_keys.h"

#include <algorithm>

#include "framework/controls.h"
#include "framework/dialog.h"
#include "framework/dock_frame.h"
#include "framework/hwnd.h"
#include "framework/pane_caption.h"
#include "framework/pane_dialog.h"

namespace fw {
namespace {

LRESULT dialogCode(HWND control) {
    return SendMessageA(control, WM_GETDLGCODE, 0, 0);
}

bool isButton(HWND control) {
    return (dialogCode(control) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

}  // namespace

void PaneKeys::open() {
    m_filter = std::make_unique<CKeyFilter>(
        m_pane.handle(), m_pane.actionKeys(),
        [this](HWND control, UINT key) { return m_pane.controlClaims(control, key); });
    buttonFocusChanged();
    if (m_pane.actionKeys().empty()) return;
    m_tips.create(m_pane.handle(), 0);
    for (const ActionKey& action : m_pane.actionKeys())
        m_tips.add(m_pane.handle(), GetDlgItem(m_pane.handle(), action.button), action.tip);
}

void PaneKeys::close() {
    m_tips.destroy();
    m_filter.reset();
}

// From the first key on, the controls show which of them has the focus.
void PaneKeys::onPaneKey(UINT key, bool repeated) {
    SendMessageA(m_pane.handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (key == VK_ESCAPE && holdsMouse(m_pane.handle())) {
        ReleaseCapture();  // what was dragged goes back
        return;
    }
    if (key == VK_F6) return leaveForNextPart();
    if (isPressed(kCaptionMenuKey, key)) {
        POINT corner{0, 0};
        ClientToScreen(m_pane.handle(), &corner);
        return postMenu(m_pane.handle(), 0, corner);
    }
    if (!pressAction(key, repeated)) m_pane.onDialogKey(key, repeated);
}

// The chord works wherever the focus is in the pane, and leaves it there.
bool PaneKeys::pressAction(UINT key, bool repeated) {
    for (const ActionKey& action : m_pane.actionKeys()) {
        if (!isPressed(action, key)) continue;
        if (!repeated) press(GetDlgItem(m_pane.handle(), action.button));
        return true;
    }
    return false;
}

void PaneKeys::press(HWND button) {
    if (IsWindowVisible(button) == 0 || IsWindowEnabled(button) == 0) return;
    SendMessageA(m_pane.handle(), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(button)), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

// The button with the focus, which Enter presses, is drawn as the default one; no other is.
void PaneKeys::buttonFocusChanged() {
    const HWND focus = GetFocus();
    for (const ActionKey& action : m_pane.actionKeys()) {
        const HWND button = GetDlgItem(m_pane.handle(), action.button);
        const WPARAM style = (button == focus ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_NOTIFY;
        SendMessageA(button, BM_SETSTYLE, style, TRUE);
    }
}

// What has the focus now may be gone when the focus comes back, as an editor is; then the tab stop
// around it gets the focus.
void PaneKeys::keepFocus() {
    const HWND pane = m_pane.handle();
    const auto isStop = [](HWND window) {
        return (GetWindowLongPtrA(window, GWL_STYLE) & WS_TABSTOP) != 0;
    };
    const HWND focus = GetFocus();
    if (IsChild(pane, focus) == 0) return;
    m_lastFocus = m_lastStop = focus;
    while (IsChild(pane, m_lastStop) != 0 && (m_lastStop == m_lastFocus || !isStop(m_lastStop)))
        m_lastStop = GetParent(m_lastStop);
}

void PaneKeys::onActivate(bool active) {
    if (!active) keepFocus();
}

void PaneKeys::leaveForNextPart() {
    keepFocus();
    m_frame.leave(m_pane.handle(), isDown(VK_SHIFT));
}

void PaneKeys::takeFocus() {
    for (const HWND last : {m_lastFocus, m_lastStop, m_pane.initialFocus()}) {
        if (IsChild(m_pane.handle(), last) == 0 || IsWindowVisible(last) == 0) continue;
        SetFocus(last);
        return;
    }
}

// All of a text is selected, as when a dialog moves the focus.
void PaneKeys::moveFocus(bool backwards) {
    const std::vector<HWND> stops = m_pane.tabStops();
    if (stops.empty()) return;
    const auto at = std::ranges::find(stops, GetFocus());
    const auto count = stops.size();
    const auto index = at != stops.end() ? static_cast<std::size_t>(at - stops.begin())
                                         : (backwards ? 0 : count - 1);
    const HWND next = stops[(index + (backwards ? count - 1 : 1)) % count];
    SetFocus(next);
    if ((dialogCode(next) & DLGC_HASSETSEL) != 0) Edit(next).selectAll();
}

// Enter presses the button that has the focus and nothing else: no default button is asked for.
// The arrows go from button to button.
void PaneKeys::onButtonKey(HWND button, UINT key) {
    if (key == VK_RETURN) return press(button);
    const bool back = key == VK_LEFT || key == VK_UP;
    if (!back && key != VK_RIGHT && key != VK_DOWN) return;
    const std::vector<HWND> stops = m_pane.tabStops();
    const auto at = std::ranges::find(stops, button);
    if (at == stops.end() || (back ? at == stops.begin() : at + 1 == stops.end())) return;
    const HWND next = back ? *(at - 1) : *(at + 1);
    if (isButton(next)) SetFocus(next);
}

void PaneKeys::dialogKey(UINT key, bool repeated) {
    const HWND focus = GetFocus();
    if (key == VK_TAB) return moveFocus(isDown(VK_SHIFT));
    if (focus == nullptr || (repeated && (key == VK_RETURN || key == VK_ESCAPE))) return;
    if (isButton(focus)) return onButtonKey(focus, key);
    const LPARAM flags = repeated ? LPARAM{1} | (LPARAM{KF_REPEAT} << 16) : LPARAM{1};
    SendMessageA(focus, WM_KEYDOWN, key, flags);
}

}  // namespace fw
