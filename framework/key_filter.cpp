#include "framework/key_filter.h"

#include <algorithm>

#include "framework/window.h"

namespace fw {
namespace {

constexpr UINT kDialogKeys[] = {VK_TAB,   VK_RETURN, VK_ESCAPE, VK_LEFT,
                                VK_RIGHT, VK_UP,     VK_DOWN,   VK_F6};

bool isDialogKey(UINT key) {
    return GetKeyState(VK_CONTROL) >= 0 &&
           std::find(std::begin(kDialogKeys), std::end(kDialogKeys), key) != std::end(kDialogKeys);
}

}  // namespace

CKeyFilter* CKeyFilter::s_current = nullptr;

bool isPressed(const ActionKey& action, UINT key) {
    return action.key == key && (GetKeyState(VK_CONTROL) < 0) == action.ctrlShift &&
           (GetKeyState(VK_SHIFT) < 0) == action.ctrlShift;
}

bool holdsMouse(HWND pane) {
    const HWND holder = GetCapture();
    return holder != nullptr && (holder == pane || IsChild(pane, holder) != 0);
}

CKeyFilter::CKeyFilter(HWND pane, std::span<const ActionKey> actions)
    : m_pane(pane), m_actions(actions) {
    if (s_current != nullptr) return;
    s_current = this;
    m_hook.reset(SetWindowsHookExA(WH_GETMESSAGE, hookProc, nullptr, GetCurrentThreadId()));
}

CKeyFilter::~CKeyFilter() {
    if (s_current == this) s_current = nullptr;
}

bool CKeyFilter::takes(const MSG& message) const {
    if (message.message != WM_KEYDOWN) return false;
    const auto key = static_cast<UINT>(message.wParam);
    if (key == VK_ESCAPE && holdsMouse(m_pane)) return true;
    if (IsChild(m_pane, message.hwnd) == 0) return false;
    return isDialogKey(key) || isPressed(kCaptionMenuKey, key) ||
           std::any_of(m_actions.begin(), m_actions.end(),
                       [key](const ActionKey& action) { return isPressed(action, key); });
}

LRESULT CALLBACK CKeyFilter::hookProc(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code == HC_ACTION && wParam == PM_REMOVE && s_current != nullptr) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        if (s_current->takes(message)) {
            message.hwnd = s_current->m_pane;
            message.message = kPaneKey;
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace fw
