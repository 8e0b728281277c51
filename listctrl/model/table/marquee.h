// A rectangle that is dragged from the empty ground of a list, and selects the rows that it
// touches.
//
// While it is dragged, selected is what it touches, and with Ctrl or Shift what was selected
// before; rows that come, go or move meanwhile are touched or not from the next move on. The row
// where it began gets the anchor, the one nearest to the mouse the focus.
//
// Points are in pixels from the upper left corner of the first row, so that a list that scrolls
// leaves them as they are.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

#include "listctrl/model/table/record_store.h"

namespace mc {

class Marquee {
public:
    struct Point {
        int x = 0, y = 0;
    };
    // What the rows cover: the height of each, and how far they reach to the right.
    struct RowSize {
        int width = 0, height = 1;
    };

    // The store must outlive the object.
    explicit Marquee(RecordStore& store)
        : m_rows(store.visible()),
          m_selection(store.selection()),
          m_before(m_selection.remembered()) {}

    // A press that may begin it: the selection is kept as it is. Costs the number of selected rows.
    void press(bool adds);
    // It begins at a point.
    void begin(Point at) { m_from = at; }
    // The mouse is at a point. Costs the number of rows that it touches from now on and those that
    // it does no longer, and where other changes were made meanwhile all that it touches.
    void moveTo(Point at, RowSize size);
    // Selection, focus and anchor are as at the press, but for records that went.
    void putBack() { m_before.putBack(); }

    Point from() const { return m_from; }

private:
    using Rows = std::pair<std::size_t, std::size_t>;  // the first, and the one behind the last

    Rows touchedRows(Point at, RowSize size) const;
    void selectAgain(Rows rows);
    void stretchTo(Rows rows);
    void take(std::size_t row);
    void leave(Slot record);
    bool wasMoved() const { return m_seen != std::pair(m_rows.revision(), m_selection.revision()); }

    const VisibleRows& m_rows;
    SelectedRows& m_selection;
    RememberedSelection& m_before;  // at the press
    Point m_from;
    bool m_adds = false;
    std::size_t m_first = 0;                           // row
    std::deque<Slot> m_touched;                        // the records from that row on
    std::pair<std::uint64_t, std::uint64_t> m_seen{};  // revisions of rows and selection
};

// How many lines a list scrolls at a time while the mouse is at `y` and rows lie from `top` to
// `bottom`: none inside, more the farther away.
int linesToScroll(int y, int top, int bottom, int lineHeight);

}  // namespace mc
