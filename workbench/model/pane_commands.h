// What the keys of the pane do that press no button, as a table. They work wherever the focus is in
// the pane, and not while Alt is down.
#pragma once

#include <string_view>

namespace mc {

enum class PaneCommand {
    none,
    keys,
    nextQuickFilter,
    quickFilterBack,
    quickFilterOff,
    nextNeighbour,
    decisions,
    selectPair,
    openNext,
};

struct PaneKey {
    unsigned key;
    bool ctrl, shift;
    PaneCommand command;
    std::string_view does;
};

inline constexpr unsigned kF1 = 0x70, kF7 = 0x76, kF8 = 0x77, kF9 = 0x78, kEnterKey = 0x0D;
inline constexpr PaneKey kPaneKeys[] = {
    {kF1, false, false, PaneCommand::keys, "this list of keys"},
    {kEnterKey, true, true, PaneCommand::openNext,
     "the details of the focused change, or of the next one whose decision was not sent"},
    {'P', true, true, PaneCommand::selectPair, "Select pair: the other halves of investors' pairs"},
    {kF7, false, false, PaneCommand::nextQuickFilter, "the next quick filter"},
    {kF7, false, true, PaneCommand::quickFilterBack, "the quick filter before"},
    {kF7, true, false, PaneCommand::quickFilterOff, "no quick filter"},
    {kF8, false, false, PaneCommand::nextNeighbour,
     "the details of the next pending change about the same"},
    {kF9, false, false, PaneCommand::decisions, "the list of your own decisions, and away again"},
};

constexpr PaneCommand paneCommand(unsigned virtualKey, bool ctrl, bool shift) {
    for (const PaneKey& line : kPaneKeys)
        if (line.key == virtualKey && line.ctrl == ctrl && line.shift == shift) return line.command;
    return PaneCommand::none;
}

}  // namespace mc
