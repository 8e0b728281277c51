#include "framework/pane_dialog.h"

#include "framework/activation.h"
#include "framework/dialog.h"
#include "framework/high_contrast.h"

namespace fw {
namespace {

BOOL CALLBACK passOn(HWND child, LPARAM sent) {
    const auto& each = *reinterpret_cast<const MSG*>(sent);
    SendMessageA(child, each.message, each.wParam, each.lParam);
    return TRUE;
}

void sendToDescendants(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const MSG passed{nullptr, message, wParam, lParam, 0, {}};
    EnumChildWindows(window, passOn, reinterpret_cast<LPARAM>(&passed));
}

}  // namespace

CPaneDialog::CPaneDialog()
    : m_dpi(*this),
      m_docking(*this),
      m_caption(*this, m_docking),
      m_keys(*this, m_caption, m_docking.frame()) {}

CPaneDialog::~CPaneDialog() {
    // While the window goes, the derived class is gone: its map and overrides are not called.
    destroy();
}

bool CPaneDialog::create(HWND frame, const char* caption, UINT templateId, DWORD style, UINT id) {
    m_docking.open(frame, style & kDockAnySide);
    HWND pane = nullptr;
    {
        const ActivationScope scope;
        pane = CreateDialogParamA(module(), MAKEINTRESOURCEA(templateId), frame, dialogProc,
                                  dialogParameter());
    }
    if (pane == nullptr) return false;
    SetWindowTextA(pane, caption);
    SetWindowLongPtrA(pane, GWLP_ID, static_cast<LONG_PTR>(id));
    const auto dialogBits = static_cast<DWORD>(GetWindowLongPtrA(pane, GWL_STYLE)) & 0xFFFF;
    SetWindowLongPtrA(pane, GWL_STYLE, static_cast<LONG_PTR>((style & 0xFFFF0000) | dialogBits));
    m_dpi.open();
    setModalHome(pane);
    m_keys.open();
    return true;
}

void CPaneDialog::show(bool activate) {
    if (handle() == nullptr) return;
    m_docking.show(activate);
    if (!activate || IsChild(handle(), GetFocus()) != 0) return;
    const HWND first = initialFocus();
    SetFocus(first != nullptr ? first : handle());
}

bool CPaneDialog::destroy() {
    const HWND pane = handle();
    const bool destroyed = pane != nullptr && DestroyWindow(pane) != 0;
    m_docking.floating().destroy();
    return destroyed;
}

const MessageMap& CPaneDialog::baseMap() {
    using Pane = CPaneDialog;
    static constexpr MessageEntry entries[] = {
        on<WM_INITDIALOG, &Pane::onInitPane>(),
        on<WM_GETFONT, &Pane::m_dpi, &PaneDpi::onGetFont>(),
        on<WM_NCCALCSIZE, &Pane::m_caption, &PaneCaption::onNcCalcSize>(),
        on<WM_NCPAINT, &Pane::m_caption, &PaneCaption::onNcPaint>(),
        on<WM_NCHITTEST, &Pane::m_caption, &PaneCaption::onNcHitTest>(),
        on<WM_NCLBUTTONDOWN, &Pane::m_caption, &PaneCaption::onNcButtonDown>(),
        on<WM_NCLBUTTONDBLCLK, &Pane::m_caption, &PaneCaption::onNcDoubleClick>(),
        on<WM_NCRBUTTONDOWN, &Pane::m_caption, &PaneCaption::onNcRightDown>(),
        on<WM_NCRBUTTONUP, &Pane::m_caption, &PaneCaption::onNcContext>(),
        on<kOpenMenu, &Pane::m_caption, &PaneCaption::showMenu>(),
        on<WM_CONTEXTMENU, &Pane::m_caption, &PaneCaption::onContextMenu>(),
        on<WM_MOUSEMOVE, &Pane::m_caption, &PaneCaption::onMouseMove>(),
        on<WM_LBUTTONUP, &Pane::m_caption, &PaneCaption::onButtonUp>(),
        observe<WM_CAPTURECHANGED, &Pane::m_caption, &PaneCaption::onCaptureLost>(),
        on<kPaneKey, &Pane::m_keys, &PaneKeys::onPaneKey>(),
        on<WM_SETFOCUS, &Pane::m_keys, &PaneKeys::takeFocus>(),
        onCommand<kAnyId, BN_SETFOCUS, &Pane::m_keys, &PaneKeys::buttonFocusChanged>(),
        onCommand<kAnyId, BN_KILLFOCUS, &Pane::m_keys, &PaneKeys::buttonFocusChanged>(),
        on<WM_GETMINMAXINFO, &Pane::m_caption, &PaneCaption::onMinimum>(),
        observe<WM_SYSCOLORCHANGE, &Pane::onSystemColors>(),
        observe<WM_SETTINGCHANGE, &Pane::onSetting>(),
        on<WM_ACTIVATE, &Pane::m_keys, &PaneKeys::onActivate>(),
        observe<WM_DESTROY, &Pane::onDestroy>(),
    };
    static constexpr MessageMap map{nullptr, entries};
    return map;
}

void CPaneDialog::frameChanged() {
    m_dpi.check();
    SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// The system sends both messages to top-level windows only; a frame passes them on to its panes,
// and a pane to its controls.
void CPaneDialog::onSystemColors() {
    askHighContrast();
    onColorsChanged();
    sendToDescendants(handle(), WM_SYSCOLORCHANGE, 0, 0);
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
}

// High contrast may begin or end without another colour.
void CPaneDialog::onSetting(WPARAM what, LPARAM section) {
    const bool before = highContrast();
    askHighContrast();
    if (highContrast() != before) onSystemColors();
    sendToDescendants(handle(), WM_SETTINGCHANGE, what, section);
}

// Also when the frame takes the pane along, behind a box of its own.
void CPaneDialog::onDestroy() {
    endWindows();
    setModalHome(nullptr);
    m_docking.close();
    m_keys.close();
}

}  // namespace fw
