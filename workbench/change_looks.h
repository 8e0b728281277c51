// ChangeLooks: how the rows of the main list look by the states of their changes, and the marks
// that are drawn on them.
//
// A change that was not looked at as it is now is bold. The marks lie in the margins of the first
// two cells, so that no text loses room; they have the colour of the row's text, and differ in
// shape and position. All in one cell's tip, in words.
#pragma once

#include <map>
#include <span>
#include <string_view>

#include "framework/handles.h"
#include "framework/window.h"
#include "listctrl/bold_font.h"
#include "listctrl/cell_looks.h"
#include "workbench/model/records/pending_changes.h"

namespace mc {

class ChangeLooks final : public CellLooks {
public:
    // Both must outlive the object.
    ChangeLooks(const fw::CWindow& list, const PendingChanges& changes)
        : m_list(list), m_changes(changes) {}

    // The list has another font or other dots per inch.
    void fontChanged();

    CellLook look(std::size_t row, int item) const override;
    void drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const override;
    std::string tip(std::size_t row, int item) const override;

private:
    ChangeState stateOf(std::size_t row) const;
    using Mark = std::span<const std::string_view>;
    void drawMark(HDC dc, Mark mark, LONG left, const RECT& cell) const;

    const fw::CWindow& m_list;
    const PendingChanges& m_changes;
    BoldFont m_bold;
    // By the lines of a mark; as far as they were drawn since the font changed.
    mutable std::map<const std::string_view*, fw::Region> m_shapes;
};

}  // namespace mc
