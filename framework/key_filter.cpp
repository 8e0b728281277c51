#include "framework/key_filter.h"

#include <algorithm>

#include "framework/controls.h"
#include "framework/hwnd.h"

namespace fw {
namespace {

constexpr UINT kDropDownKeys[] = {VK_TAB, VK_RETURN, VK_ESCAPE};
constexpr UINT kDialogKeys[] = {VK_TAB,   VK_RETURN, VK_ESCAPE, VK_LEFT,
                                VK_RIGHT, VK_UP,     VK_DOWN,   VK_F6};
constexpr UINT kMousePresses[] = {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_NCLBUTTONDOWN,
                                  WM_NCLBUTTONDBLCLK};

bool isOneOf(std::span<const UINT> table, UINT value) {
    return std::find(table.begin(), table.end(), value) != table.end();
}

bool isRepeated(const MSG& key) {
    return (HIWORD(key.lParam) & KF_REPEAT) != 0;
}

// A menu is open, or a window is moved or sized: the keys are those of a loop of the platform.
bool inPlatformLoop() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    constexpr DWORD loops =
        GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE | GUI_INMOVESIZE;
    return GetGUIThreadInfo(GetCurrentThreadId(), &info) != 0 && (info.flags & loops) != 0;
}

bool isDropped(HWND window) {
    char name[16]{};
    return GetClassNameA(window, name, sizeof name) != 0 && lstrcmpiA(name, WC_COMBOBOXA) == 0 &&
           Combo(window).dropped();
}

bool isActionKey(std::span<const ActionKey> actions, UINT key) {
    return std::ranges::any_of(actions,
                               [key](const ActionKey& action) { return isPressed(action, key); });
}

}  // namespace

CKeyFilter* CKeyFilter::s_current = nullptr;

bool isPressed(const ActionKey& action, UINT key) {
    return action.key == key && isDown(VK_CONTROL) == action.ctrlShift &&
           isDown(VK_SHIFT) == action.ctrlShift;
}

bool holdsMouse(HWND pane) {
    return isWithin(pane, GetCapture());
}

CKeyFilter::CKeyFilter(HWND pane, std::span<const ActionKey> actions, ClaimedBy claimed)
    : m_pane(pane), m_actions(actions), m_claimed(std::move(claimed)) {
    if (s_current != nullptr) return;
    s_current = this;
    m_hook.reset(SetWindowsHookExW(WH_GETMESSAGE, hookProc, nullptr, GetCurrentThreadId()));
}

CKeyFilter::~CKeyFilter() {
    if (s_current == this) s_current = nullptr;
}

bool CKeyFilter::isActionButton(HWND window) const {
    return GetParent(window) == m_pane && std::ranges::find(m_actions, GetDlgCtrlID(window),
                                                            &ActionKey::button) != m_actions.end();
}

bool CKeyFilter::takes(HWND target, UINT key) const {
    if (inPlatformLoop()) return false;
    const bool inPane = IsChild(m_pane, target) != 0;
    if (inPane && (isDropped(target) || isDropped(GetParent(target))))
        return isOneOf(kDropDownKeys, key) && !isDown(VK_CONTROL);
    if (key == VK_ESCAPE && holdsMouse(m_pane)) return true;
    if (!inPane || isDown(VK_MENU)) return false;
    return (isOneOf(kDialogKeys, key) && !isDown(VK_CONTROL)) || isPressed(kCaptionMenuKey, key) ||
           isActionKey(m_actions, key) || (m_claimed && m_claimed(target, key));
}

bool CKeyFilter::pressesButton(HWND target, UINT key) const {
    const bool onButton = isActionButton(target) && (key == VK_SPACE || key == VK_RETURN);
    return onButton || (isWithin(m_pane, target) && isActionKey(m_actions, key));
}

// A stamp may be ahead of the clock: programs that make input choose it.
void CKeyFilter::notePress(const MSG& message) {
    const DWORD now = GetTickCount();
    m_pressTime = static_cast<int>(now - message.time) > 0 ? message.time : now;
}

std::optional<unsigned> CKeyFilter::takePressAge() {
    const auto time = std::exchange(m_pressTime, std::nullopt);
    if (!time) return std::nullopt;
    return static_cast<unsigned>(GetTickCount() - *time);
}

void CKeyFilter::filterKey(MSG& message) {
    const auto key = static_cast<UINT>(message.wParam);
    const bool taken = takes(message.hwnd, key);
    const bool repeated = isRepeated(message);
    if (!repeated) {
        m_held = taken ? key : 0;
        if (!isActionButton(GetCapture())) m_pressTime.reset();  // a held button presses later
        if (pressesButton(message.hwnd, key)) notePress(message);
    }
    if (taken) {
        message.hwnd = m_pane;
        message.message = kPaneKey;
    } else if (repeated && (key == m_held || (key == VK_SPACE && isActionButton(message.hwnd)))) {
        message.message = WM_NULL;
    }
}

// A message that was posted, not made by a mouse, came from elsewhere than where it presses.
void CKeyFilter::filterPress(MSG& message) {
    RECT rect{};
    if (GetWindowRect(message.hwnd, &rect) == 0 || PtInRect(&rect, message.pt) == 0) return;
    const MousePress press{static_cast<unsigned>(message.time), static_cast<int>(message.pt.x),
                           static_cast<int>(message.pt.y), message.hwnd};
    const DoubleClickLimits limits{GetDoubleClickTime(), GetSystemMetrics(SM_CXDOUBLECLK),
                                   GetSystemMetrics(SM_CYDOUBLECLK)};
    const MousePress before = std::exchange(m_press, press);
    m_pressTime.reset();
    if (!isActionButton(message.hwnd)) return;
    if (repeatsPress(before, press, limits))
        message.message = WM_NULL;
    else
        notePress(message);
}

LRESULT CALLBACK CKeyFilter::hookProc(int code, WPARAM wParam, LPARAM lParam) noexcept try {
    if (code == HC_ACTION && (wParam & PM_REMOVE) != 0 && s_current != nullptr) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        if (message.message == WM_KEYDOWN) s_current->filterKey(message);
        if (isOneOf(kMousePresses, message.message)) s_current->filterPress(message);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
} catch (...) {
    OutputDebugStringA("MakerChecker: an exception ended at a hook procedure\n");
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace fw
