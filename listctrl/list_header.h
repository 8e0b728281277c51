// CListHeader: the header of a list: its items, their sort image and tips, and where the cells
// below them are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "framework/list_view.h"
#include "framework/tool_tip.h"
#include "framework/window.h"
#include "listctrl/model/columns/column_model.h"
#include "listctrl/model/list_order.h"

namespace mc {

// A cell by its row and the header item above it.
struct ListCell {
    std::size_t row;
    int item;
    bool operator==(const ListCell&) const = default;
};

class CListHeader {
public:
    // The list must outlive the object.
    explicit CListHeader(const fw::CWindow& list) : m_list(list) {}

    // The control, which the list has for life; null when it is gone. Asked for once.
    fw::Header control() const;

    int height() const;

    // Makes one item per shown column.
    void build(const ColumnModel& columns);
    // Gives the items the columns' widths: a width is other pixels now.
    void widthsChanged(const ColumnModel& columns);
    // The items have other widths, or are new: reads where they are, and moves the tips there.
    void measure();
    // The tips have other dots per inch.
    void followDpi() { m_tips.followDpi(); }
    // Marks the column that the list is sorted by, if any.
    void showSort(const ColumnModel& columns, const std::optional<ColumnSort>& sort);
    // The dots per inch that the items' widths are made for.
    int dpi() const { return m_dpi; }
    // While the object changes items, their own notifications say nothing new.
    bool isChanging() const { return m_changing; }

    // ---- Cells, in the list's client coordinates ----

    // The cells of a row's rectangle, from the left.
    std::vector<RECT> cellsOf(const RECT& row) const;
    RECT rectOf(ListCell cell) const;
    std::optional<std::size_t> rowAt(POINT client) const { return view().rowAt(client); }
    std::optional<ListCell> cellAt(POINT client) const;

private:
    fw::ListView view() const { return fw::ListView(m_list.handle()); }
    void followWithTips();

    const fw::CWindow& m_list;
    mutable HWND m_control = nullptr;
    std::vector<RECT> m_items;  // as last measured, in the header's client coordinates
    fw::CToolTip m_tips;
    std::size_t m_tools = 0;  // with the ids from 1 on
    std::optional<int> m_sorted;
    int m_dpi = 0;
    bool m_changing = false;
};

}  // namespace mc
