#include "framework/window.h"

#include <array>

#include "framework/activation.h"
#include "framework/model/calls.h"
#include "framework/model/dots.h"
#include "framework/platform.h"

extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace fw {
namespace {

// The classes that this module registered; it has far fewer than these.
std::array<const char*, 16> registered{};

bool registerClass(const WindowClass& windowClass, WNDPROC procedure) {
    WNDCLASSEXA present{};
    present.cbSize = sizeof present;
    if (GetClassInfoExA(module(), windowClass.name, &present) != 0) return true;
    WNDCLASSEXA made{};
    made.cbSize = sizeof made;
    made.style = windowClass.style;
    made.lpfnWndProc = procedure;
    made.hInstance = module();
    made.hCursor = LoadCursorA(nullptr, windowClass.cursor);
    if (windowClass.backgroundColor >= 0)
        made.hbrBackground = GetSysColorBrush(windowClass.backgroundColor);
    made.lpszClassName = windowClass.name;
    if (RegisterClassExA(&made) == 0) return false;
    for (const char*& slot : registered) {
        if (slot != nullptr) continue;
        slot = windowClass.name;
        break;
    }
    return true;
}

bool matches(const MessageEntry& entry, UINT message, WPARAM wParam, LPARAM lParam) {
    if (entry.message != message) return false;
    if (message == WM_COMMAND)
        return (entry.id == kAnyId || entry.id == LOWORD(wParam)) &&
               (entry.code == kAnyCode || entry.code == HIWORD(wParam));
    if (message == WM_NOTIFY || message == kReflectedNotify) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        return (entry.id == kAnyId || entry.id == header->idFrom) &&
               (entry.code == kAnyCode || entry.code == header->code);
    }
    return true;
}

}  // namespace

HINSTANCE module() noexcept {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

void unregisterWindowClasses() noexcept {
    for (const char*& name : registered)
        if (name != nullptr && UnregisterClassA(name, module()) != 0) name = nullptr;
}

bool dispatch(const MessageMap& map, CWindow& target, UINT message, WPARAM wParam, LPARAM lParam,
              LRESULT& result) {
    for (const MessageMap* each = &map; each != nullptr; each = each->base)
        for (const MessageEntry& entry : each->entries)
            if (matches(entry, message, wParam, lParam) &&
                entry.call(target, wParam, lParam, result))
                return true;
    return false;
}

CWindow::~CWindow() {
    if (m_handle == nullptr) return;
    const HWND window = m_handle;
    unbind();
    DestroyWindow(window);
}

void CWindow::unbind() noexcept {
    const HWND window = std::exchange(m_handle, nullptr);
    switch (m_binding) {
        case Binding::window:
            SetWindowLongPtrA(window, GWLP_USERDATA, 0);
            break;
        case Binding::control:
            RemoveWindowSubclass(window, subclassProc, 0);
            break;
        case Binding::dialog:
            SetWindowLongPtrA(window, DWLP_USER, 0);
            break;
    }
}

RECT CWindow::clientRect() const noexcept {
    RECT client{};
    if (m_handle != nullptr) GetClientRect(m_handle, &client);
    return client;
}

int scaledFor(HWND window, int pixels) noexcept {
    return window != nullptr ? toPixels(pixels, dpiOf(window)) : pixels;
}

HWND makeControl(const char* windowClass, const char* text, DWORD style, DWORD exStyle, SIZE size,
                 HWND parent, UINT id) noexcept {
    const ActivationScope scope;
    return CreateWindowExA(exStyle, windowClass, text, style, 0, 0, size.cx, size.cy, parent,
                           reinterpret_cast<HMENU>(UINT_PTR{id}), module(), nullptr);
}

HWND makeNameLabel(HWND parent, const std::string& name) noexcept {
    return makeControl(WC_STATICA, name.c_str(), WS_CHILD, 0, {}, parent, 0);
}

bool CWindow::dispatchMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    return dispatch(messageMap(), *this, message, wParam, lParam, result);
}

bool CWindow::create(const WindowClass& windowClass, const char* text, DWORD style, DWORD exStyle,
                     const RECT& rect, HWND parent, UINT id) {
    if (m_handle != nullptr || !registerClass(windowClass, windowProc)) return false;
    const ActivationScope scope;
    const HMENU menu =
        (style & WS_CHILD) != 0 ? reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)) : nullptr;
    return CreateWindowExA(exStyle, windowClass.name, text, style, rect.left, rect.top,
                           rect.right - rect.left, rect.bottom - rect.top, parent, menu, module(),
                           this) != nullptr;
}

bool CWindow::subclass(HWND control) {
    if (m_handle != nullptr || control == nullptr) return false;
    if (SetWindowSubclass(control, subclassProc, 0, reinterpret_cast<DWORD_PTR>(this)) == 0)
        return false;
    m_handle = control;
    m_binding = Binding::control;
    return true;
}

LRESULT CWindow::defaultProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcA(m_handle, message, wParam, lParam);
}

LRESULT CWindow::controlDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefSubclassProc(m_handle, message, wParam, lParam);
}

LRESULT CWindow::reflectNotify(WPARAM wParam, LPARAM lParam) {
    return SendMessageA(reinterpret_cast<const NMHDR*>(lParam)->hwndFrom, kReflectedNotify, wParam,
                        lParam);
}

LRESULT CWindow::reflectDrawItem(const DRAWITEMSTRUCT& draw) {
    return SendMessageA(draw.hwndItem, WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

LRESULT CALLBACK CWindow::windowProc(HWND window, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept try {
    const Call call;
    if (message == WM_NCCREATE) {
        auto* created =
            static_cast<CWindow*>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams);
        created->m_handle = window;
        created->m_binding = Binding::window;
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<CWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    LRESULT result = 0;
    const bool handled = self->dispatchMessage(message, wParam, lParam, result);
    if (message != WM_NCDESTROY)
        return handled ? result : self->defaultProc(message, wParam, lParam);
    self->unbind();
    self->onDetached();
    return DefWindowProcA(window, message, wParam, lParam);
} catch (...) {
    OutputDebugStringA("MakerChecker: an exception ended at a window procedure\n");
    return 0;
}

LRESULT CALLBACK CWindow::subclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR, DWORD_PTR object) noexcept try {
    const Call call;
    auto* self = reinterpret_cast<CWindow*>(object);
    if (message == WM_NCDESTROY) {
        self->unbind();
        const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
        self->onDetached();
        return result;
    }
    self->beforeMessage(message);
    LRESULT result = 0;
    if (self->dispatchMessage(message, wParam, lParam, result)) return result;
    return DefSubclassProc(window, message, wParam, lParam);
} catch (...) {
    OutputDebugStringA("MakerChecker: an exception ended at a control's procedure\n");
    return 0;
}

INT_PTR CALLBACK CWindow::dialogProc(HWND dialog, UINT message, WPARAM wParam,
                                     LPARAM lParam) noexcept try {
    const Call call;
    if (message == WM_INITDIALOG) {
        auto* created = reinterpret_cast<CWindow*>(lParam);
        created->m_handle = dialog;
        created->m_binding = Binding::dialog;
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    }
    auto* self = reinterpret_cast<CWindow*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (self == nullptr) return FALSE;
    LRESULT result = 0;
    const bool handled = self->dispatchMessage(message, wParam, lParam, result);
    if (message == WM_NCDESTROY) {
        self->unbind();
        self->onDetached();
        return FALSE;
    }
    if (message == WM_INITDIALOG) return handled ? static_cast<INT_PTR>(result) : TRUE;
    if (!handled) return FALSE;
    if (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC) return result;
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
    return TRUE;
} catch (...) {
    OutputDebugStringA("MakerChecker: an exception ended at a dialog's procedure\n");
    return FALSE;
}

}  // namespace fw
