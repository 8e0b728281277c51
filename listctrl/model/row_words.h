// What a list says of its rows to those who do not see it: a row in words, and which events a
// change of the list is.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"
#include "listctrl/model/whole_text.h"

namespace mc {

// What a kind of list knows of a row beside its cells.
struct RowState {
    std::string words = {};
    std::optional<bool> folded = {};  // of a heading
};

// The cells under their captions, then the state: "Entity Name: C1; Key: 9; not looked at". Empty
// cells are left out.
std::string rowName(std::span<const NamedText> cells, std::string_view state);

// What a listener knows of a list.
struct ListSnapshot {
    std::size_t rows = 0;
    std::optional<std::size_t> focus = {};  // the row
    Slot record = kNoSlot;                  // there
    std::string name = {};                  // of that row, if anyone hears
    bool focusSelected = false;
    std::size_t selected = 0;     // how many
    std::uint64_t selection = 0;  // counts the changes of the selection
};

// Those of the focused row come with it, `selectionWithin` and `reorder` with the list.
enum class ListEvent {
    reorder,
    focus,
    selection,  // the row is selected, and no other
    selectionAdded,
    selectionRemoved,
    selectionWithin,  // any other change
    state,            // the focused row is the same, and its name is another
};

// In the order in which they are to be heard. `moved`: rows came, went or changed their order.
std::vector<ListEvent> eventsBetween(const ListSnapshot& before, const ListSnapshot& after,
                                     bool moved);

}  // namespace mc
