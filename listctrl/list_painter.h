// CListPainter: draws the rows of a list and says how wide their texts are. It changes nothing.
#pragma once

#include <string>

#include "framework/window.h"
#include "listctrl/cell_looks.h"
#include "listctrl/list_appearance.h"
#include "listctrl/list_colors.h"
#include "listctrl/list_header.h"
#include "listctrl/model/list_content.h"
#include "listctrl/text_widths.h"

namespace mc {

class CListPainter {
public:
    // All must outlive the object.
    CListPainter(const fw::CWindow& list, const ListContent& content, const CListHeader& header,
                 const CListAppearance& appearance)
        : m_list(list),
          m_content(content),
          m_header(header),
          m_appearance(appearance),
          m_widths(list) {}

    // Without it every cell is a plain one. It must outlive the object.
    void setLooks(const CellLooks& looks) { m_looks = &looks; }
    // What is drawn instead of the rows when there is no record.
    void setEmptyText(std::string text);
    void fontChanged() { m_widths.fontChanged(); }

    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    LRESULT onMeasureItem(MEASUREITEMSTRUCT& measure);
    // After the control's own paint, which knows no text for an empty list.
    void drawEmptyText() const;
    // The text of an empty list is centred in what is visible.
    void onAreaChanged();

    int captionWidth(ColumnId column) const;
    // What the widest text of an item's column needs. Costs a look at every row.
    int dataWidth(int item, const LongWork& work) const;
    // What the tip of a cell says: its text, up to a screenful, when not all of it shows, and what
    // the list's looks add. Empty: there is none.
    std::string tipOf(ListCell cell) const;

private:
    CellLook lookOf(std::size_t row, int item) const;
    RowColors colorsOf(std::size_t row) const;
    // The font stays the cell's, for the next one.
    void drawCell(HDC dc, fw::FontScope& font, ListCell cell, const RECT& rect,
                  bool ownLooks) const;
    std::string_view textOf(ListCell cell, const CellLook& look) const;
    struct Letters {
        std::string_view text;
        const INT* steps;  // from each to the next
        int width;         // of all
    };
    static void drawLetters(HDC dc, const Letters& letters, const RECT& rect, int flag);
    std::string cutText(std::string_view text, int room, HFONT font) const;
    void drawText(HDC dc, ListCell cell, const RECT& rect, const CellLook& look) const;
    bool isCutOff(ListCell cell) const;
    int drawnWidth(ListCell cell, const CellLook& look) const;
    int roomIn(const RECT& cell) const;
    int margin() const { return m_list.scaled(6); }  // at both sides of a cell

    const fw::CWindow& m_list;
    const ListContent& m_content;
    const CListHeader& m_header;
    const CListAppearance& m_appearance;
    const CellLooks* m_looks = nullptr;
    CTextWidths m_widths;
    std::string m_emptyText;
};

}  // namespace mc
