#include "listctrl/cell_tip.h"

#include <commctrl.h>

#include <algorithm>
#include <string>

#include "framework/window.h"

namespace mc {
namespace {

constexpr std::size_t kLongestTip = 1000;
constexpr int kWidestTip = 480;  // pixels at 96 dots per inch; longer texts wrap

}  // namespace

CCellTip::~CCellTip() {
    if (m_tips != nullptr) DestroyWindow(m_tips);
}

void CCellTip::show(HWND list, const RECT& cell, std::string_view text) {
    hide();
    if (m_tips == nullptr)
        m_tips = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "",
                                 WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, list, nullptr,
                                 fw::module(), nullptr);
    m_list = list;
    std::string shown(text.substr(0, kLongestTip));
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;
    tool.hwnd = list;
    tool.uId = 1;
    tool.rect = cell;
    tool.lpszText = shown.data();
    SendMessageA(m_tips, TTM_SETMAXTIPWIDTH, 0, fw::scaledFor(list, kWidestTip));
    m_shown = SendMessageA(m_tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void CCellTip::hide() {
    if (!m_shown) return;
    m_shown = false;
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = m_list;
    tool.uId = 1;
    SendMessageA(m_tips, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace mc
