#include "listctrl/model/row_words.h"

namespace mc {
namespace {

ListEvent selectionEvent(const ListSnapshot& before, const ListSnapshot& after) {
    if (after.selected == 1 && after.focusSelected) return ListEvent::selection;
    if (after.focus && after.selected == before.selected + 1 && after.focusSelected)
        return ListEvent::selectionAdded;
    if (after.focus && after.selected + 1 == before.selected && !after.focusSelected)
        return ListEvent::selectionRemoved;
    return ListEvent::selectionWithin;
}

}  // namespace

std::string rowName(std::span<const NamedText> cells, std::string_view state) {
    std::string name;
    const auto add = [&name](std::string_view text) {
        name.append(name.empty() ? "" : "; ").append(text);
    };
    for (const NamedText& cell : cells)
        if (!cell.text.empty()) add(cell.name + ": " + cell.text);
    if (!state.empty()) add(state);
    return name;
}

std::vector<ListEvent> eventsBetween(const ListSnapshot& before, const ListSnapshot& after,
                                     bool moved) {
    std::vector<ListEvent> events;
    const bool sameRecord = after.focus && before.focus && after.record == before.record;
    if (moved) events.push_back(ListEvent::reorder);
    if (after.focus && (!sameRecord || after.focus != before.focus))
        events.push_back(ListEvent::focus);
    if (after.selection != before.selection && after.selected + before.selected != 0)
        events.push_back(selectionEvent(before, after));
    if (sameRecord && after.name != before.name) events.push_back(ListEvent::state);
    return events;
}

}  // namespace mc
