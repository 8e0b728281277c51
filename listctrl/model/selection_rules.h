// What the mouse and the keys do to the selection and the focus of a list.
//
// The rules are those of the platform's list: a plain click or move selects one row, Ctrl leaves
// what is selected and toggles, Shift selects from the anchor. They work on the records of the
// store, so no control is told row by row.
#pragma once

#include <cstddef>
#include <optional>

#include "listctrl/model/record_store.h"

// Which of the modifier keys are down.
struct Modifiers {
    bool ctrl = false;
    bool shift = false;
};

enum class Move { up, down, pageUp, pageDown, home, end };

class SelectionRules {
public:
    // The store must outlive the object.
    explicit SelectionRules(RecordStore& store) : m_store(store) {}

    // The left button on a row; none is the room below the rows.
    void click(std::optional<std::size_t> row, Modifiers keys);

    // The right button: a row that is selected keeps the selection, another one becomes it.
    void rightClick(std::optional<std::size_t> row);

    // A key that moves; `pageRows` rows fit the window. Returns the row to bring into view.
    std::optional<std::size_t> move(Move move, std::size_t pageRows, Modifiers keys);

    // The space bar: selects the focused row; with Ctrl it toggles it.
    void space(Modifiers keys);

    void selectAll() { m_store.selectAll(); }

private:
    void selectOnly(std::size_t row);
    void selectRange(std::size_t from, std::size_t to);
    void toggle(std::size_t row);
    std::size_t anchorRow(std::size_t otherwise) const;

    RecordStore& m_store;
    Slot m_anchor = kNoSlot;  // the record from which Shift selects
};
