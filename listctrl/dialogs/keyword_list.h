// CKeywordList: the appearance dialog's list of keywords, each with its colour beside it.
//
// Its parent hands NM_CUSTOMDRAW to onCustomDraw().
#pragma once

#include <cstddef>
#include <vector>

#include "framework/window.h"
#include "listctrl/model/columns/appearance.h"

namespace mc {

class CKeywordList {
public:
    // Makes the columns of an empty list view in report view; once.
    void attach(HWND list);

    // Shows these keywords, in this order.
    void show(const std::vector<Keyword>& keywords);

    // The indexes of the selected keywords, ascending.
    std::vector<std::size_t> selected() const;
    // Selects the keyword at the index, else the last one.
    void select(std::size_t index);

    LRESULT onCustomDraw(NMLVCUSTOMDRAW& draw);

private:
    HWND m_list = nullptr;
};

}  // namespace mc
