#include "listctrl/header_tips.h"

#include <commctrl.h>

#include "framework/window.h"

namespace mc {

CHeaderTips::~CHeaderTips() {
    if (m_tips != nullptr) DestroyWindow(m_tips);
}

void CHeaderTips::follow(HWND header) {
    if (m_tips == nullptr)
        m_tips = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, "", WS_POPUP | TTS_ALWAYSTIP, 0, 0,
                                 0, 0, header, nullptr, fw::module(), nullptr);
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_SUBCLASS;  // the tip sees the header's mouse messages by itself
    tool.hwnd = header;
    for (int each = 1; each <= m_tools; ++each) {
        tool.uId = static_cast<UINT_PTR>(each);
        SendMessageA(m_tips, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
    m_tools = static_cast<int>(SendMessageA(header, HDM_GETITEMCOUNT, 0, 0));
    for (int item = 0; item < m_tools; ++item) {
        char caption[256]{};
        HDITEMA info{};
        info.mask = HDI_TEXT;
        info.pszText = caption;
        info.cchTextMax = sizeof caption;
        SendMessageA(header, HDM_GETITEMA, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&info));
        SendMessageA(header, HDM_GETITEMRECT, static_cast<WPARAM>(item),
                     reinterpret_cast<LPARAM>(&tool.rect));
        tool.uId = static_cast<UINT_PTR>(item) + 1;
        tool.lpszText = caption;
        SendMessageA(m_tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

}  // namespace mc
