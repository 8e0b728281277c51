#include "framework/dialog.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "framework/activation.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/model/calls.h"

namespace fw {
namespace {

HWND modalHome = nullptr;
int openMenus = 0;

constexpr char kDisabledBy[] = "MakerChecker.DisabledBy";

// A modal window that is open, or about to be.
class Modal {
public:
    explicit Modal(HWND owner);
    ~Modal();
    Modal(const Modal&) = delete;
    Modal& operator=(const Modal&) = delete;

    static HWND owner() noexcept;
    static void endAll() noexcept;

private:
    static LRESULT CALLBACK noteDialog(int code, WPARAM wParam, LPARAM lParam) noexcept;
    static BOOL CALLBACK disable(HWND window, LPARAM modal);
    void enable() noexcept;
    void end() noexcept;

    static Modal* s_innermost;
    Modal* const m_outer;
    const HWND m_owner;
    HWND m_dialog = nullptr;
    std::vector<HWND> m_disabled;
    Hook m_hook;  // until the dialog is there
};

Modal* Modal::s_innermost = nullptr;

HWND Modal::owner() noexcept {
    const HWND active = GetActiveWindow();
    if (active != nullptr) return GetAncestor(active, GA_ROOT);
    if (s_innermost != nullptr && IsWindow(s_innermost->m_dialog) != 0)
        return s_innermost->m_dialog;
    const HWND root = GetAncestor(modalHome, GA_ROOT);
    return IsWindowVisible(root) != 0 ? root : GetWindow(root, GW_OWNER);
}

Modal::Modal(HWND owner) : m_outer(s_innermost), m_owner(owner) {
    EnumThreadWindows(GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(this));
    s_innermost = this;
    m_hook.reset(SetWindowsHookExA(WH_CBT, noteDialog, nullptr, GetCurrentThreadId()));
}

Modal::~Modal() {
    s_innermost = m_outer;
    enable();
}

// The owner is left to the modal window itself. Each window is marked, since its handle may be
// another's by the time it is enabled.
BOOL CALLBACK Modal::disable(HWND window, LPARAM modal) {
    auto& self = *reinterpret_cast<Modal*>(modal);
    if (window == self.m_owner || IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0)
        return TRUE;
    self.m_disabled.push_back(window);
    SetPropA(window, kDisabledBy, &self);
    EnableWindow(window, FALSE);
    return TRUE;
}

void Modal::enable() noexcept {
    for (const HWND window : std::exchange(m_disabled, {})) {
        if (GetPropA(window, kDisabledBy) != this) continue;
        RemovePropA(window, kDisabledBy);
        EnableWindow(window, TRUE);
    }
}

void Modal::end() noexcept {
    m_hook.reset();
    if (IsWindow(m_dialog) != 0) EndDialog(m_dialog, 0);
    m_dialog = nullptr;
    enable();
}

void Modal::endAll() noexcept {
    for (Modal* each = s_innermost; each != nullptr; each = each->m_outer) each->end();
}

// The first dialog that comes is the modal one: message boxes and common dialogs give no handle.
LRESULT CALLBACK Modal::noteDialog(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto window = reinterpret_cast<HWND>(wParam);
    const LRESULT result = CallNextHookEx(nullptr, code, wParam, lParam);
    if (code == HCBT_CREATEWND && result == 0 && s_innermost != nullptr && s_innermost->m_hook &&
        isDialog(window)) {
        s_innermost->m_dialog = window;
        s_innermost->m_hook.reset();
    }
    return result;
}

bool threadInFront() noexcept {
    return GetWindowThreadProcessId(GetForegroundWindow(), nullptr) == GetCurrentThreadId();
}

}  // namespace

void setModalHome(HWND window) noexcept {
    modalHome = window;
}

void endWindows() noexcept {
    endOuterCalls();
    if (openMenus > 0) EndMenu();
    Modal::endAll();
}

// The focus goes back to where it was, unless the user went elsewhere meanwhile.
INT_PTR runModal(const std::function<INT_PTR(HWND)>& show) {
    if (callEnded()) return 0;
    const HWND owner = Modal::owner();
    const HWND focus = GetFocus();
    INT_PTR result = 0;
    {
        const Modal modal(owner);
        const ActivationScope scope;
        result = show(owner);
    }
    if (callEnded()) return 0;
    if (focus != nullptr && IsWindow(focus) != 0 && threadInFront()) SetFocus(focus);
    return result;
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

void postMenu(HWND window, UINT which, POINT screen) noexcept {
    PostMessageA(window, kOpenMenu, which, MAKELPARAM(screen.x, screen.y));
}

UINT trackMenu(HMENU menu, POINT screen, HWND owner) {
    if (callEnded()) return 0;
    ++openMenus;
    const BOOL chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0,
                                       owner, nullptr);
    --openMenus;
    return callEnded() ? 0 : static_cast<UINT>(chosen);
}

INT_PTR CDialog::run(UINT templateId, INT_PTR failed) {
    const INT_PTR result = runModal([&](HWND owner) {
        return DialogBoxParamA(module(), MAKEINTRESOURCEA(templateId), owner, dialogProc,
                               dialogParameter());
    });
    return result == -1 || callEnded() ? failed : result;
}

void CDialog::centerOver(HWND window) {
    const RECT over = screenRect(window), rect = screenRect(handle());
    const LONG left = (over.left + over.right - widthOf(rect)) / 2;
    const LONG top = (over.top + over.bottom - heightOf(rect)) / 2;
    moveOnScreen(handle(), {left, top, left + widthOf(rect), top + heightOf(rect)});
}

void CDialog::setHeight(int pixels) {
    RECT rect = screenRect(handle());
    rect.bottom = rect.top + pixels;
    moveOnScreen(handle(), rect);
}

void CDialog::setDefaultButton(int id) const {
    SendMessageA(handle(), DM_SETDEFID, static_cast<WPARAM>(id), 0);
}

void CDialog::focusItem(int id) const {
    SendMessageA(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(id)), TRUE);
}

void CDialog::moveItemsDown(std::span<const int> ids, int pixels) const {
    for (const int id : ids) {
        const RECT rect = rectInParent(item(id));
        SetWindowPos(item(id), nullptr, rect.left, rect.top + pixels, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

}  // namespace fw
