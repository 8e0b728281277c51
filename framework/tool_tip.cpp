#include "framework/tool_tip.h"

#include <utility>

#include "framework/hwnd.h"
#include "framework/platform.h"
#include "framework/window.h"

namespace fw {
namespace {

// The older control library refuses a structure that is longer than its own.
TTTOOLINFOA toolOf(HWND window, UINT_PTR id) {
    TTTOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V2_SIZE;
    tool.hwnd = window;
    tool.uId = id;
    return tool;
}

}  // namespace

void CToolTip::create(HWND owner, DWORD style) {
    m_handle = makeControl(TOOLTIPS_CLASSA, "", WS_POPUP | TTS_NOPREFIX | style, WS_EX_TOPMOST, {},
                           owner, 0);
    // A signed 16-bit number.
    constexpr WORD kStays = 30'000;
    SendMessageA(m_handle, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAKELPARAM(kStays, 0));
    m_owner = owner;
    followDpi();
}

void CToolTip::followDpi() {
    if (m_handle == nullptr) return;
    Font font = systemFont(&NONCLIENTMETRICSW::lfStatusFont, dpiOf(m_owner));
    setFont(m_handle, font.get());
    m_font = std::move(font);
}

void CToolTip::destroy() {
    if (m_handle != nullptr) DestroyWindow(std::exchange(m_handle, nullptr));
}

void CToolTip::setTextColor(COLORREF color) const {
    SendMessageA(m_handle, TTM_SETTIPTEXTCOLOR, color, 0);
}

void CToolTip::setMaxWidth(int pixels) const {
    SendMessageA(m_handle, TTM_SETMAXTIPWIDTH, 0, pixels);
}

void CToolTip::add(HWND window, HWND child, const std::string& text) const {
    TTTOOLINFOA tool = toolOf(window, reinterpret_cast<UINT_PTR>(child));
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.lpszText = const_cast<char*>(text.c_str());
    SendMessageA(m_handle, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

bool CToolTip::add(HWND window, UINT_PTR id, const RECT& area, const std::string& text) const {
    TTTOOLINFOA tool = toolOf(window, id);
    tool.uFlags = TTF_SUBCLASS;
    tool.rect = area;
    tool.lpszText = const_cast<char*>(text.c_str());
    return SendMessageA(m_handle, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CToolTip::remove(HWND window, UINT_PTR id) const {
    TTTOOLINFOA tool = toolOf(window, id);
    SendMessageA(m_handle, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace fw
