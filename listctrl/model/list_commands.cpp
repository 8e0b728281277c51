#include "listctrl/model/list_commands.h"

#include <algorithm>
#include <span>

namespace mc {
namespace {

bool always(const ListOffers&) {
    return true;
}
bool repositionOffered(const ListOffers& offers) {
    return offers.reposition;
}
bool repositionNotOffered(const ListOffers& offers) {
    return !offers.reposition;
}
bool customizeOffered(const ListOffers& offers) {
    return offers.customize;
}
bool exportAllowed(const ListOffers& offers) {
    return offers.exportAllowed;
}
bool userColumnsOffered(const ListOffers& offers) {
    return offers.userColumns;
}
bool isFilterList(const ListOffers& offers) {
    return offers.filters;
}

struct MenuLine {
    unsigned command;
    std::string_view text;  // empty: a separator
    bool (*offered)(const ListOffers&);
};

constexpr MenuLine kItemMenu[] = {
    {kExportCommand, "Write to Excel\tShift+E", exportAllowed},
    {kGridLinesCommand, "Draw Grid Lines\tShift+G", always},
    {kCustomizeCommand, "Customize \t Ctrl+Shift+C", customizeOffered},
    {kCopyCommand, "Copy to Clip Board\tCtrl+C", exportAllowed},
};

// The entry that opens the repositioning dialog comes first, where it is offered; the spelling of
// "Fit to Data" depends on it.
constexpr MenuLine kHeaderMenu[] = {
    {kRepositionCommand, "Reposition Columns", repositionOffered},
    {kFitToDataCommand, "Fit to Data", repositionOffered},
    {kFitToDataCommand, "Fit To Data", repositionNotOffered},
    {kFitToHeaderCommand, "Fit to Header", always},
    {kFitToWindowCommand, "Fit to Window", always},
    {0, {}, isFilterList},
    {kResetFiltersCommand, "Reset Filters", isFilterList},
    {kMatchExactlyCommand, "Match Filter Exactly", isFilterList},
    {0, {}, isFilterList},
    {kAddColumnCommand, "Add Custom Column...", userColumnsOffered},
    {kDeleteColumnCommand, "Delete Custom Column...", userColumnsOffered},
};

bool isGreyed(unsigned command, const ListOffers& offers) {
    return (command == kExportCommand && !offers.exportEnabled) ||
           (command == kDeleteColumnCommand && !offers.hasUserColumns);
}

std::vector<ListMenuEntry> menu(std::span<const MenuLine> lines, const ListOffers& offers) {
    std::vector<ListMenuEntry> entries;
    for (const MenuLine& line : lines) {
        if (!line.offered(offers)) continue;
        entries.push_back({line.command, line.text, isGreyed(line.command, offers),
                           line.command == kMatchExactlyCommand && offers.matchExactly});
    }
    return entries;
}

enum class Shift { up, down, any };

struct KeyLine {
    unsigned key;
    bool ctrl;
    Shift shift;
    unsigned command;
    bool consumes;
    bool (*offered)(const ListOffers&);
};

constexpr unsigned kF3 = 0x72;  // the platform's number

// Ctrl+Shift+C copies as well as customises: the copy is tested first and does not ask for Shift.
constexpr KeyLine kKeys[] = {
    {kF3, false, Shift::any, kWholeTextCommand, true, always},
    {'A', true, Shift::any, kSelectAllCommand, true, always},
    {'C', true, Shift::any, kCopyCommand, false, exportAllowed},
    {'C', true, Shift::down, kCustomizeCommand, false, customizeOffered},
    {'E', false, Shift::down, kExportCommand, true, exportAllowed},
    {'G', false, Shift::down, kGridLinesCommand, false, always},
};

// The platform's numbers of the keys that move in a list, open details and menus: Page Up and
// Down, End, Home, the arrows, Enter, the Menu key. Not the space bar: among typed letters it is
// one of them, and its character must come.
constexpr unsigned kMovingKeys[] = {0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x0D, 0x5D};

}  // namespace

std::vector<ListMenuEntry> itemMenu(const ListOffers& offers) {
    return menu(kItemMenu, offers);
}

std::vector<ListMenuEntry> headerMenu(const ListOffers& offers) {
    return menu(kHeaderMenu, offers);
}

KeyCommands keyCommands(unsigned virtualKey, bool ctrl, bool shift, const ListOffers& offers) {
    KeyCommands found;
    for (const KeyLine& line : kKeys) {
        const bool shiftFits = line.shift == Shift::any || (line.shift == Shift::down) == shift;
        if (line.key != virtualKey || line.ctrl != ctrl || !shiftFits || !line.offered(offers))
            continue;
        found.commands.push_back(line.command);
        found.consumed = found.consumed || line.consumes;
    }
    return found;
}

bool isListKey(unsigned virtualKey, bool ctrl, bool shift, const ListOffers& offers) {
    return std::ranges::find(kMovingKeys, virtualKey) != std::end(kMovingKeys) ||
           !keyCommands(virtualKey, ctrl, shift, offers).commands.empty();
}

}  // namespace mc
