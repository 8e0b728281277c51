// What the mouse and the keys do to the selection and the focus of a list, and what others ask of
// them.
//
// The rules are those of the platform's list: a plain click or move selects one row, Ctrl leaves
// what is selected and toggles, Shift selects from the anchor instead of all else, Ctrl and Shift
// together in addition to it. They work on the records of the store, so no control is notified row
// by row.
#pragma once

#include <cstddef>
#include <optional>

#include "listctrl/model/table/record_store.h"

namespace mc {

// Which of the modifier keys are down.
struct Modifiers {
    bool ctrl = false;
    bool shift = false;
};

enum class Move { up, down, pageUp, pageDown, home, end };

class SelectionRules {
public:
    // The store must outlive the object.
    explicit SelectionRules(RecordStore& store)
        : m_rows(store.visible()), m_selection(store.selection()) {}

    // The left button on a row; none is the room below the rows.
    void click(std::optional<std::size_t> row, Modifiers keys);

    // The right button: a row that is selected keeps the selection, another one becomes it.
    void rightClick(std::optional<std::size_t> row);

    // A key that moves; `pageRows` rows fit the window. Returns the row to bring into view.
    std::optional<std::size_t> move(Move move, std::size_t pageRows, Modifiers keys);

    // The space bar: selects the focused row; Ctrl toggles it, Shift selects from the anchor to it.
    void space(Modifiers keys);

    // One row is selected, and has focus and anchor.
    void goTo(std::size_t row);

    // Every row; the first has the focus when none had.
    void selectAll();

private:
    void selectOnly(std::size_t row);
    void extend(std::size_t from, std::size_t to, bool keepOthers);
    void toggle(std::size_t row);

    const VisibleRows& m_rows;
    SelectedRows& m_selection;
};

// The next row that others ask for: selected, focused, both or any.
struct NextRow {
    bool selected = false;
    bool focused = false;
    bool above = false;  // the nearest above the start instead of below it
};

// `start` itself is no answer; without one the search begins at the first row, and above it there
// is none. All the selected rows, one after the other, cost one walk over the rows.
std::optional<std::size_t> nextRow(const RecordStore& store, std::optional<std::size_t> start,
                                   NextRow wanted);

}  // namespace mc
