// Keys and focus of CPaneDialog.
#include "framework/pane_dialog.h"

#include <algorithm>

namespace fw {
namespace {

bool isButton(HWND window) {
    return (SendMessageA(window, WM_GETDLGCODE, 0, 0) &
            (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

}  // namespace

// From the first key on, the controls show which of them has the focus.
void CPaneDialog::onPaneKey(UINT key, bool repeated) {
    SendMessageA(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    if (key == VK_ESCAPE && holdsMouse(handle())) {
        ReleaseCapture();  // what was dragged goes back
        return;
    }
    if (key == VK_F6) return leaveForNextPart();
    if (isPressed(kCaptionMenuKey, key)) {
        POINT corner{0, 0};
        ClientToScreen(handle(), &corner);
        return showCaptionMenu(corner);
    }
    if (!pressAction(key, repeated)) onDialogKey(key, repeated);
}

// The chord works wherever the focus is in the pane, and leaves it there.
bool CPaneDialog::pressAction(UINT key, bool repeated) {
    for (const ActionKey& action : actionKeys()) {
        if (!isPressed(action, key)) continue;
        if (!repeated) press(GetDlgItem(handle(), action.button));
        return true;
    }
    return false;
}

void CPaneDialog::press(HWND button) {
    if (IsWindowVisible(button) == 0 || IsWindowEnabled(button) == 0) return;
    SendMessageA(handle(), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(button)), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

// The button with the focus, which Enter presses, is drawn as the default one; no other is.
void CPaneDialog::onButtonFocus() {
    const HWND focus = GetFocus();
    for (const ActionKey& action : actionKeys()) {
        const HWND button = GetDlgItem(handle(), action.button);
        const WPARAM style = (button == focus ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | BS_NOTIFY;
        SendMessageA(button, BM_SETSTYLE, style, TRUE);
    }
}

void CPaneDialog::showTips() {
    if (actionKeys().empty()) return;
    m_tips = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "", WS_POPUP | TTS_NOPREFIX, 0, 0, 0,
                             0, handle(), nullptr, module(), nullptr);
    for (const ActionKey& action : actionKeys()) {
        TOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V1_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = handle();
        tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(handle(), action.button));
        tool.lpszText = const_cast<char*>(action.tip);
        SendMessageA(m_tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

// What has the focus may be gone when it comes back, as an editor is; then the control that it
// stood in gets it.
void CPaneDialog::leaveForNextPart() {
    m_lastFocus = GetFocus();
    m_lastStop = m_lastFocus;
    while (
        IsChild(handle(), m_lastStop) != 0 &&
        (m_lastStop == m_lastFocus || (GetWindowLongPtrA(m_lastStop, GWL_STYLE) & WS_TABSTOP) == 0))
        m_lastStop = GetParent(m_lastStop);
    DockRequest asked = request();
    if (SendMessageA(m_frame, m_nextPartMessage, GetKeyState(VK_SHIFT) < 0 ? 1 : 0,
                     reinterpret_cast<LPARAM>(&asked)) == 0)
        SetFocus(m_frame);
}

void CPaneDialog::takeFocus() {
    for (const HWND last : {m_lastFocus, m_lastStop, initialFocus()}) {
        if (IsChild(handle(), last) == 0 || IsWindowVisible(last) == 0) continue;
        SetFocus(last);
        return;
    }
}

// All of a text is selected, as when a dialog moves the focus.
void CPaneDialog::moveFocus(bool backwards) {
    const std::vector<HWND> stops = tabStops();
    if (stops.empty()) return;
    const auto at = std::ranges::find(stops, GetFocus());
    const auto count = stops.size();
    const auto place = at != stops.end() ? static_cast<std::size_t>(at - stops.begin())
                                         : (backwards ? 0 : count - 1);
    const HWND next = stops[(place + (backwards ? count - 1 : 1)) % count];
    SetFocus(next);
    if ((SendMessageA(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0)
        SendMessageA(next, EM_SETSEL, 0, -1);
}

// Enter presses the button that has the focus and nothing else: no default button is asked for.
// The arrows go from button to button.
void CPaneDialog::onButtonKey(HWND button, UINT key) {
    if (key == VK_RETURN) return press(button);
    const bool back = key == VK_LEFT || key == VK_UP;
    if (!back && key != VK_RIGHT && key != VK_DOWN) return;
    const std::vector<HWND> stops = tabStops();
    const auto at = std::ranges::find(stops, button);
    if (at == stops.end() || (back ? at == stops.begin() : at + 1 == stops.end())) return;
    const HWND next = back ? *(at - 1) : *(at + 1);
    if (isButton(next)) SetFocus(next);
}

void CPaneDialog::onDialogKey(UINT key, bool repeated) {
    const HWND focus = GetFocus();
    if (key == VK_TAB) return moveFocus(GetKeyState(VK_SHIFT) < 0);
    if (focus == nullptr || (repeated && (key == VK_RETURN || key == VK_ESCAPE))) return;
    if (isButton(focus)) return onButtonKey(focus, key);
    const LPARAM flags = repeated ? LPARAM{1} | (LPARAM{KF_REPEAT} << 16) : LPARAM{1};
    SendMessageA(focus, WM_KEYDOWN, key, flags);
}

}  // namespace fw
