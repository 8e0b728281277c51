// CCellTip: shows the whole text of a cell that is cut off, and what else there is to say of it,
// while the mouse is over it.
#pragma once

#include <optional>

#include "framework/tool_tip.h"
#include "framework/window.h"
#include "listctrl/list_header.h"
#include "listctrl/list_painter.h"

namespace mc {

class CCellTip {
public:
    // All must outlive the object.
    CCellTip(const fw::CWindow& list, const CListHeader& header, const CListPainter& painter)
        : m_list(list), m_header(header), m_painter(painter) {}

    void onMouseMove(POINT client);

    // Other texts may be under the mouse now.
    void forget();

    void followDpi();

private:
    void show(ListCell cell);
    void hide();

    const fw::CWindow& m_list;
    const CListHeader& m_header;
    const CListPainter& m_painter;
    fw::CToolTip m_tip;
    std::optional<ListCell> m_hovered;
    bool m_shown = false;
};

}  // namespace mc
