// DetailLooks: how the lines of the details look, and the marks that are drawn on them.
//
// Headings are bold, with a mark that says whether the group is folded. A value that changed is
// highlighted, with the characters that differ marked in it and in its old value, and a mark in
// front of its row says how. Blanks that do not show as one have signs. A value that can be edited
// has a frame, an unsent edit a folded corner.
#pragma once

#include <functional>

#include "details/model/line_groups.h"
#include "framework/handles.h"
#include "framework/window.h"
#include "listctrl/bold_font.h"
#include "listctrl/cell_looks.h"
#include "listctrl/model/list_content.h"

namespace mc {

class DetailLooks final : public CellLooks {
public:
    // All must outlive the object.
    DetailLooks(const fw::CWindow& list, const ListContent& content, LineGroups& lines);

    // Which values can be edited; none until this is called.
    void setEditable(std::function<bool(const LineGroups::Line&)> editable) {
        m_editable = std::move(editable);
    }

    // Whether the lines are drawn fainter. Returns whether that is new.
    bool setDimmed(bool dimmed) { return std::exchange(m_dimmed, dimmed) != dimmed; }

    // The list has another font.
    void fontChanged() { m_bold.reset(); }

    CellLook look(std::size_t row, int item) const override;
    void drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const override;

private:
    CellLook headingLook(int item) const;
    CellLook rowLook(LineGroups::Line& line, ColumnId column) const;
    CellLook valueLook(const sMCListStruct& row) const;
    void addMarks(CellLook& look, LineGroups::Line& line, ColumnId column) const;
    void drawFront(HDC dc, LineGroups::Line& line, const RECT& cell) const;
    void drawValue(HDC dc, const LineGroups::Line& line, const RECT& frame) const;
    void drawFoldMark(HDC dc, bool folded, const RECT& cell) const;
    void drawFrame(HDC dc, RowAttribute attribute, const RECT& frame) const;
    void drawEditMark(HDC dc, const RECT& frame) const;

    const fw::CWindow& m_list;
    const ListContent& m_content;
    LineGroups& m_lines;  // only read
    const UnseenSigns& m_signs;
    std::function<bool(const LineGroups::Line&)> m_editable;
    bool m_dimmed = false;
    BoldFont m_bold;
};

}  // namespace mc
