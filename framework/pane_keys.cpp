// Keys and focus of CPaneDialog.
#include "framework/pane_dialog.h"

namespace fw {

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

// The button gets the focus for the press: an edit under way ends first, and one that is refused
// keeps the focus, so that nothing is pressed.
bool CPaneDialog::pressAction(UINT key, bool repeated) {
    for (const ActionKey& action : actionKeys()) {
        if (!isPressed(action, key)) continue;
        const HWND button = GetDlgItem(handle(), action.button);
        if (repeated || IsWindowVisible(button) == 0 || IsWindowEnabled(button) == 0) return true;
        const HWND focus = GetFocus();
        SetFocus(button);
        if (GetFocus() == button) SendMessageA(button, BM_CLICK, 0, 0);
        if (GetFocus() == button && IsWindowVisible(focus) != 0) SetFocus(focus);
        return true;
    }
    return false;
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

void CPaneDialog::leaveForNextPart() {
    m_lastFocus = GetFocus();
    DockRequest asked = request();
    if (SendMessageA(m_frame, m_nextPartMessage, GetKeyState(VK_SHIFT) < 0 ? 1 : 0,
                     reinterpret_cast<LPARAM>(&asked)) == 0)
        SetFocus(m_frame);
}

void CPaneDialog::takeFocus() {
    const bool stillThere =
        IsChild(handle(), m_lastFocus) != 0 && IsWindowVisible(m_lastFocus) != 0;
    const HWND first = stillThere ? m_lastFocus : initialFocus();
    if (first != nullptr) SetFocus(first);
}

void CPaneDialog::onDialogKey(UINT key, bool repeated) {
    const LPARAM flags = repeated ? LPARAM{1} | (LPARAM{KF_REPEAT} << 16) : LPARAM{1};
    // A key that is held down decides nothing.
    if (key == VK_RETURN && repeated) return;
    MSG message{GetFocus(), WM_KEYDOWN, key, flags, static_cast<DWORD>(GetMessageTime()), {}};
    if (message.hwnd == nullptr || IsDialogMessageA(handle(), &message) != 0) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

}  // namespace fw
