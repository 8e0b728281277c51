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

// Moves a window to `place`, or as near to it as the work area of the monitor there allows. The
// upper left corner is always in sight.
void moveOnScreen(HWND window, RECT place) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoA(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor) != 0) {
        const RECT& room = monitor.rcWork;
        const LONG x = std::max(std::min(0L, room.right - place.right), room.left - place.left);
        const LONG y = std::max(std::min(0L, room.bottom - place.bottom), room.top - place.top);
        OffsetRect(&place, x, y);
    }
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
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

bool askYesNo(const std::string& question) {
    constexpr UINT kStyle = MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2;
    return runModal([&](HWND owner) {
               return MessageBoxA(owner, question.c_str(), "Maker Checker", kStyle);
           }) == IDYES;
}

INT_PTR CDialog::run(UINT templateId, INT_PTR failed) {
    const INT_PTR result = runModal([&](HWND owner) {
        return DialogBoxParamA(module(), MAKEINTRESOURCEA(templateId), owner, dialogProc,
                               dialogParameter());
    });
    return result == -1 ? failed : result;
}

void CDialog::centerOver(HWND window) {
    RECT over{};
    RECT place{};
    GetWindowRect(window, &over);
    GetWindowRect(handle(), &place);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const LONG left = (over.left + over.right - width) / 2;
    const LONG top = (over.top + over.bottom - height) / 2;
    moveOnScreen(handle(), {left, top, left + width, top + height});
}

void CDialog::setHeight(int pixels) {
    RECT place{};
    GetWindowRect(handle(), &place);
    place.bottom = place.top + pixels;
    moveOnScreen(handle(), place);
}

std::string CDialog::itemText(int id) const {
    const HWND control = item(id);
    const int length = GetWindowTextLengthA(control);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(GetWindowTextA(control, text.data(), length + 1)));
    return text;
}

}  // namespace fw
