#include "framework/key_filter.h"

#include "framework/window.h"

namespace fw {
namespace {

bool isDialogKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) < 0) return false;
    switch (message.wParam) {
        case VK_TAB:
        case VK_RETURN:
        case VK_ESCAPE:
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
            return true;
        default:
            return false;
    }
}

}  // namespace

CKeyFilter* CKeyFilter::s_current = nullptr;

CKeyFilter::CKeyFilter(HWND pane) : m_pane(pane) {
    if (s_current != nullptr) return;
    s_current = this;
    m_hook.reset(SetWindowsHookExA(WH_GETMESSAGE, hookProc, nullptr, GetCurrentThreadId()));
}

CKeyFilter::~CKeyFilter() {
    if (s_current == this) s_current = nullptr;
}

LRESULT CALLBACK CKeyFilter::hookProc(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code == HC_ACTION && wParam == PM_REMOVE && s_current != nullptr) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        const HWND pane = s_current->m_pane;
        if (isDialogKey(message) && IsChild(pane, message.hwnd)) {
            message.hwnd = pane;
            message.message = kPaneKey;
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace fw
