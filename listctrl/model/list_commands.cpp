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
    std::string_view does;
};

// The platform's numbers.
constexpr unsigned kF3 = 0x72, kComma = 0xBC, kFullStop = 0xBE;

// Ctrl+Shift+C copies as well as customises: the copy is tested first and does not ask for Shift.
constexpr KeyLine kKeys[] = {
    {'A', true, Shift::any, kSelectAllCommand, true, always, "selects all rows"},
    {'C', true, Shift::any, kCopyCommand, false, exportAllowed, "copies the selected rows"},
    {'C', true, Shift::down, kCustomizeCommand, false, customizeOffered, "colours and font"},
    {'E', false, Shift::down, kExportCommand, true, exportAllowed, "exports what shows"},
    {'G', false, Shift::down, kGridLinesCommand, false, always, "draws grid lines"},
    {kF3, false, Shift::any, kWholeTextCommand, true, always, "the whole text of the cell"},
    {'O', true, Shift::down, kSortCommand, true, always,
     "sorts by the column; again for the other direction"},
    {kFullStop, true, Shift::down, kWidenCommand, true, always, "widens the column"},
    {kComma, true, Shift::down, kNarrowCommand, true, always, "narrows the column"},
};

// The platform's numbers of the keys that move in a list, open details and menus: Page Up and
// Down, End, Home, the arrows, Enter, the Menu key. Not the space bar: among typed letters it is
// one of them, and its character must come.
constexpr unsigned kMovingKeys[] = {0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28, 0x0D, 0x5D};

// What they do, and the keys that are no commands.
const fw::KeyWords kMoving[] = {
    {"arrows, Home, End, Page Up, Page Down", "go to a row; with Shift they select, with Ctrl not"},
    {"Space, Ctrl+Space", "selects the focused row, or takes it out of the selection"},
    {"letters", "go to the next row that begins with them"},
    {"Enter", "in the list of changes: the details of the focused row"},
    {"Menu, Shift+F10", "the list's menu, at the focused row"},
    {"Ctrl+Menu, Ctrl+Shift+F10", "the menu of the captions"}};

fw::KeyWords wordsOf(const KeyLine& line) {
    return {fw::keyName(line.key, line.ctrl, line.shift == Shift::down), line.does};
}

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

bool isColumnCommand(unsigned command) {
    return command == kSortCommand || command == kWidenCommand || command == kNarrowCommand ||
           command == kWholeTextCommand;
}

std::vector<fw::KeyWords> listKeys(const ListOffers& offers) {
    std::vector<fw::KeyWords> keys(std::begin(kMoving), std::end(kMoving));
    for (const KeyLine& line : kKeys)
        if (line.offered(offers) && !isColumnCommand(line.command)) keys.push_back(wordsOf(line));
    return keys;
}

std::vector<fw::KeyWords> columnKeys(const ListOffers& offers) {
    std::vector<fw::KeyWords> keys;
    for (const KeyLine& line : kKeys)
        if (line.offered(offers) && isColumnCommand(line.command)) keys.push_back(wordsOf(line));
    return keys;
}

bool isListKey(unsigned virtualKey, bool ctrl, bool shift, const ListOffers& offers) {
    return std::ranges::find(kMovingKeys, virtualKey) != std::end(kMovingKeys) ||
           !keyCommands(virtualKey, ctrl, shift, offers).commands.empty();
}

}  // namespace mc
