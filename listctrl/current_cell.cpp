#include "listctrl/current_cell.h"

#include <algorithm>

#include "framework/list_view.h"

namespace mc {

ColumnId CCurrentCell::column() const {
    const ColumnModel& columns = m_content.columns();
    const bool shown = m_column && columns.has(*m_column) && columns.positionOf(*m_column);
    return shown ? *m_column : m_content.columnAt(0);
}

// The lower left corner of what is visible of the area, or of the edge that it lies beyond.
POINT CCurrentCell::below(const RECT& area) const {
    const RECT client = m_list.clientRect();
    const LONG inset = m_list.scaled(6);
    return {std::clamp(area.left + inset, client.left, std::max(client.left, client.right - inset)),
            std::clamp(area.bottom, client.top, client.bottom)};
}

POINT CCurrentCell::rowPoint() const {
    const auto row = m_content.store().selection().focusedRow();
    return row ? below(fw::ListView(m_list.handle()).rowRect(*row)) : captionPoint();
}

POINT CCurrentCell::captionPoint() const {
    const auto position = m_content.columns().positionOf(column());
    RECT caption = m_header.control().rect(position ? static_cast<int>(*position) : 0);
    MapWindowPoints(m_header.control().handle(), m_list.handle(),
                    reinterpret_cast<POINT*>(&caption), 2);
    return below(caption);
}

}  // namespace mc
