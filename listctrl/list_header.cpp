#include "listctrl/list_header.h"

#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/platform.h"

namespace mc {
namespace {

// Of the images that ListServices::glyphs() gives.
constexpr int kAscendingImage = 1;
constexpr int kDescendingImage = 2;

}  // namespace

fw::Header CListHeader::control() const {
    if (m_list.handle() == nullptr) return fw::Header(nullptr);
    if (m_control == nullptr) m_control = view().header().handle();
    return fw::Header(m_control);
}

int CListHeader::height() const {
    return fw::heightOf(fw::screenRect(control().handle()));
}

void CListHeader::build(const ColumnModel& columns) {
    m_changing = true;
    m_dpi = fw::dpiOf(m_list.handle());
    m_sorted.reset();
    const fw::RedrawOffScope off(m_list.handle());
    view().removeColumns();
    int item = 0;
    for (const ColumnId id : columns.shown()) {
        const ColumnDescriptor& column = columns.descriptor(id);
        view().insertColumn(item++, column.caption, m_list.scaled(columns.width(id)), column.flag);
    }
    m_changing = false;
}

void CListHeader::widthsChanged(const ColumnModel& columns) {
    m_changing = true;
    m_dpi = fw::dpiOf(m_list.handle());
    int item = 0;
    for (const ColumnId id : columns.shown())
        view().setColumnWidth(item++, m_list.scaled(columns.width(id)));
    m_changing = false;
}

void CListHeader::measure() {
    const fw::Header header = control();
    m_items.clear();
    for (int item = 0; item < header.count(); ++item) m_items.push_back(header.rect(item));
    followWithTips();
}

void CListHeader::followWithTips() {
    const fw::Header header = control();
    if (!m_tips.created()) m_tips.create(header.handle());
    while (m_tools > 0) m_tips.remove(header.handle(), m_tools--);
    for (; m_tools < m_items.size(); ++m_tools)
        m_tips.add(header.handle(), m_tools + 1, m_items[m_tools],
                   header.item(static_cast<int>(m_tools)).caption);
}

void CListHeader::showSort(const ColumnModel& columns, const std::optional<ColumnSort>& sort) {
    m_changing = true;
    if (m_sorted) control().setImage(*m_sorted, std::nullopt);
    m_sorted.reset();
    if (const auto position = sort ? columns.positionOf(sort->column) : std::nullopt) {
        m_sorted = static_cast<int>(*position);
        control().setImage(*m_sorted, sort->ascending ? kAscendingImage : kDescendingImage);
    }
    m_changing = false;
}

// The header scrolls with the rows, so its items tell where the cells are.
std::vector<RECT> CListHeader::cellsOf(const RECT& row) const {
    POINT origin{0, 0};
    MapWindowPoints(control().handle(), m_list.handle(), &origin, 1);
    std::vector<RECT> cells;
    for (const RECT& item : m_items)
        cells.push_back({item.left + origin.x, row.top, item.right + origin.x, row.bottom});
    return cells;
}

RECT CListHeader::rectOf(ListCell cell) const {
    return cellsOf(view().rowRect(cell.row)).at(static_cast<std::size_t>(cell.item));
}

std::optional<ListCell> CListHeader::cellAt(POINT client) const {
    const auto row = rowAt(client);
    if (!row) return std::nullopt;
    int item = 0;
    for (const RECT& cell : cellsOf(view().rowRect(*row))) {
        if (client.x >= cell.left && client.x < cell.right) return ListCell{*row, item};
        ++item;
    }
    return std::nullopt;
}

}  // namespace mc
