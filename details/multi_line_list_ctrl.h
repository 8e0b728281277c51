// CMultiLineListCtrl: a list of groups, each drawn as a heading and one line for each of its rows.
//
// Lines are rows of the native control; the groups stand in LineGroups. A click on a heading, or
// the Left and Right keys, fold and unfold its group. Values that changed stand out, and a mark in
// front of the row says how. The lines keep the order in which they came: a click on a caption
// sorts nothing.
#pragma once

#include <array>

#include "details/model/line_groups.h"
#include "listctrl/filter_list_ctrl.h"

namespace mc {

class CMultiLineListCtrl : public CFilterListCtrl {
public:
    // Both must outlive the list.
    CMultiLineListCtrl(ListServices& services, LineGroups& lines)
        : CFilterListCtrl(services, lines.rows()), m_lines(lines) {}

    // Installs the columns Field, Value and Old Value. Call after create().
    void setDetailColumns() {
        setColumns(
            kDetailColumns,
            [this](Slot line, ColumnId column) { return m_lines.text(line, column); },
            kMandatoryDetailColumns);
    }

    // Shows groups behind those on show; their number of lines is one more than that of their rows.
    void append(std::vector<DetailGroup> groups);

    // Shows groups in place of those that are visible, folded and scrolled as these were.
    virtual void replace(std::vector<DetailGroup> groups);

    // Removes and frees every group.
    virtual void empty();

    // Draws the lines fainter: they are not about what is selected elsewhere.
    void setDimmed(bool dimmed);

protected:
    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();
    CellLook cellLook(std::size_t row, int item) const override;
    void drawOver(HDC dc, std::size_t row, int item, const RECT& place) const override;

    void fontChanged() override;

    LineGroups& lines() const { return m_lines; }

    // The list's font in bold.
    HFONT boldFont() const;
    // Fills a triangle with the text's colour.
    static void fillTriangle(HDC dc, const std::array<POINT, 3>& corners);
    // The mark of an unsent edit: a corner folded down at the upper left of `frame`.
    void drawEditMark(HDC dc, const RECT& frame) const;
    // What a cell looks like while the lines are dimmed.
    void dim(CellLook& look) const;
    bool dimmed() const { return m_dimmed; }

private:
    void onCaptionClick(NMLISTVIEW&) {}
    void onLinePressed(POINT client);
    bool onFoldKey(UINT key, bool repeated);
    void setFolded(const LineGroups::Line& line, bool folded);
    void drawFoldMark(HDC dc, const LineGroups::Line& heading, const RECT& place) const;

    LineGroups& m_lines;
    bool m_dimmed = false;
    mutable fw::Font m_bold;  // made when first asked for; none after the list's font changed
};

}  // namespace mc
