// What the keys of the pane do that press no button, as a table. They work wherever the focus is in
// the pane, and not while Alt is down.
#pragma once

namespace mc {

enum class PaneCommand {
    none,
    nextQuickFilter,
    quickFilterBack,
    quickFilterOff,
    nextNeighbour,
    decisions,
    selectPair,
    openNext,
};

inline PaneCommand paneCommand(unsigned virtualKey, bool ctrl, bool shift) {
    constexpr unsigned kF7 = 0x76, kF8 = 0x77, kF9 = 0x78, kEnter = 0x0D;
    constexpr struct {
        unsigned key;
        bool ctrl, shift;
        PaneCommand command;
    } table[] = {
        {kF7, false, false, PaneCommand::nextQuickFilter},
        {kF7, false, true, PaneCommand::quickFilterBack},
        {kF7, true, false, PaneCommand::quickFilterOff},
        {kF8, false, false, PaneCommand::nextNeighbour},
        {kF9, false, false, PaneCommand::decisions},
        {'P', true, true, PaneCommand::selectPair},
        {kEnter, true, true, PaneCommand::openNext},
    };
    for (const auto& line : table)
        if (line.key == virtualKey && line.ctrl == ctrl && line.shift == shift) return line.command;
    return PaneCommand::none;
}

}  // namespace mc
