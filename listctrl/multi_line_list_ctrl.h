// CMultiLineListCtrl: a list of groups, each drawn as a heading and one line for each of its rows.
//
// Lines are rows of the native control; the groups stand in LineGroups. A click on a heading, or
// the Left and Right keys, fold and unfold its group. Values that changed stand out. The lines keep
// the order in which they came: a click on a caption sorts nothing.
#pragma once

#include <array>

#include "listctrl/filter_list_ctrl.h"
#include "listctrl/model/line_groups.h"

class CMultiLineListCtrl : public CFilterListCtrl {
public:
    // Both must outlive the list.
    CMultiLineListCtrl(ListServices& services, LineGroups& lines)
        : CFilterListCtrl(services, lines.rows()), m_lines(lines) {}

    // Installs the columns Field, Value and Old Value. Call after create().
    void setDetailColumns() {
        setColumns(kDetailColumns, LineGroups::text, kMandatoryDetailColumns);
    }

    // Shows groups behind those on show; their number of lines is one more than that of their rows.
    void append(std::vector<DetailGroup> groups);

    // Removes and frees every group.
    virtual void empty();

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

private:
    void onCaptionClick(NMLISTVIEW&) {}
    void onLinePressed(POINT client);
    bool onFoldKey(UINT key, bool repeated);
    void setFolded(const LineGroups::Line& line, bool folded);

    LineGroups& m_lines;
    mutable fw::Font m_bold;  // made when first asked for; none after the list's font changed
};
