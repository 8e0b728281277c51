// CCellTip: shows the whole text of a cell that is cut off, while the mouse is over it.
#pragma once

#include <windows.h>

#include <string_view>

namespace mc {

class CCellTip {
public:
    CCellTip() = default;
    ~CCellTip();
    CCellTip(const CCellTip&) = delete;
    CCellTip& operator=(const CCellTip&) = delete;

    // The mouse is over `cell` of `list` (client coordinates), whose text is cut off. Very long
    // texts are shown up to a screenful.
    void show(HWND list, const RECT& cell, std::string_view text);

    // It is over no such cell.
    void hide();

private:
    HWND m_tips = nullptr;
    HWND m_list = nullptr;
    bool m_shown = false;
};

}  // namespace mc
