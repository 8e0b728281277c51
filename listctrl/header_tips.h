// CHeaderTips: the tool tips of a list's header, each the caption of its column.
#pragma once

#include <windows.h>

namespace mc {

class CHeaderTips {
public:
    CHeaderTips() = default;
    ~CHeaderTips();
    CHeaderTips(const CHeaderTips&) = delete;
    CHeaderTips& operator=(const CHeaderTips&) = delete;

    // Makes one tool per header item, numbered from 1, over the item's rectangle. Called again when
    // the items or their widths changed.
    void follow(HWND header);

private:
    HWND m_tips = nullptr;
    int m_tools = 0;
};

}  // namespace mc
