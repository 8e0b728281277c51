// CCurrentCell: the cell of a list that keys are about: in the focused row, and in the column that
// was clicked last, or whose filter box had the focus since, while it is shown; else in the first.
#pragma once

#include <optional>

#include "framework/window.h"
#include "listctrl/list_header.h"
#include "listctrl/model/list_content.h"

namespace mc {

class CCurrentCell {
public:
    // All must outlive the object.
    CCurrentCell(const fw::CWindow& list, const ListContent& content, const CListHeader& header)
        : m_list(list), m_content(content), m_header(header) {}

    ColumnId column() const;
    void goToColumn(ColumnId column) { m_column = column; }

    // Where a menu by key opens, in the client area: at the visible part of the focused row, or of
    // the column's caption.
    POINT rowPoint() const;
    POINT captionPoint() const;

private:
    POINT below(const RECT& area) const;

    const fw::CWindow& m_list;
    const ListContent& m_content;
    const CListHeader& m_header;
    std::optional<ColumnId> m_column;
};

}  // namespace mc
