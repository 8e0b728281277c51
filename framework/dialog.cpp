#include "framework/dialog.h"

#include <algorithm>

namespace fw {
namespace {

BOOL CALLBACK collectEnabled(HWND window, LPARAM found) {
    if (IsWindowVisible(window) && IsWindowEnabled(window))
        reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    return TRUE;
}

// What a modal window is owned by: the thread's active window, or the one it belongs to.
HWND modalOwner() noexcept {
    const HWND active = GetActiveWindow();
    return active != nullptr ? GetAncestor(active, GA_ROOT) : nullptr;
}

// Runs a modal window over `owner` and gives the focus back to where it was.
template <class Show>
auto runModal(Show show) {
    const HWND owner = modalOwner();
    const HWND focus = GetFocus();
    const auto result = [&] {
        const CModalScope modal(owner);
        return show(owner);
    }();
    if (focus != nullptr && IsWindow(focus)) SetFocus(focus);
    return result;
}

}  // namespace

CModalScope::CModalScope(HWND owner) {
    EnumThreadWindows(GetCurrentThreadId(), collectEnabled, reinterpret_cast<LPARAM>(&m_disabled));
    std::erase(m_disabled, owner);
    for (HWND window : m_disabled) EnableWindow(window, FALSE);
}

CModalScope::~CModalScope() {
    for (HWND window : m_disabled)
        if (IsWindow(window)) EnableWindow(window, TRUE);
}

void showMessageBox(const std::string& text) {
    runModal([&](HWND owner) { return MessageBoxA(owner, text.c_str(), "", MB_OK); });
}

INT_PTR CDialog::run(UINT templateId, INT_PTR failed) {
    const INT_PTR result = runModal([&](HWND owner) {
        return DialogBoxParamA(module(), MAKEINTRESOURCEA(templateId), owner, dialogProc,
                               dialogParameter());
    });
    return result == -1 ? failed : result;
}

void CDialog::centreOver(HWND window) {
    RECT over{}, own{};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetWindowRect(window, &over) == 0 || GetWindowRect(handle(), &own) == 0 ||
        GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) == 0)
        return;
    const RECT& room = monitor.rcWork;
    const auto along = [](LONG overFirst, LONG overLast, LONG extent, LONG first, LONG last) {
        const LONG middle = (overFirst + overLast - extent) / 2;
        return static_cast<int>(std::max(first, std::min(middle, last - extent)));
    };
    SetWindowPos(handle(), nullptr,
                 along(over.left, over.right, own.right - own.left, room.left, room.right),
                 along(over.top, over.bottom, own.bottom - own.top, room.top, room.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::string CDialog::itemText(int id) const {
    const HWND control = item(id);
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(control, text.data(), length + 1)));
    return text;
}

}  // namespace fw
