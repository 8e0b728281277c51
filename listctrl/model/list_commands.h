// The commands of a list, its two menus and its keys, as data.
#pragma once

#include <string_view>
#include <vector>

#include "framework/model/key_name.h"

namespace mc {

enum ListCommand : unsigned {
    kMatchExactlyCommand = 4000,
    kFitToDataCommand = 4001,
    kFitToHeaderCommand = 4002,
    kFitToWindowCommand = 4003,
    kRepositionCommand = 4004,
    kExportCommand = 4006,
    kGridLinesCommand = 4008,
    kCustomizeCommand = 4009,
    kCopyCommand = 4010,
    kAddColumnCommand = 4011,
    kDeleteColumnCommand = 4012,
    kResetFiltersCommand = 33078,
    kSelectAllCommand = 1,  // by key only
    kWholeTextCommand = 2,  // by key only
    kWidenCommand = 3,      // by key only, as the next two
    kNarrowCommand = 4,
    kSortCommand = 5,
};

// What a list offers at the moment.
struct ListOffers {
    bool reposition = false;      // columns can be repositioned
    bool defaultSort = false;     // and the dialog for that has a default sort to choose
    bool userColumns = false;     // the user can define columns
    bool hasUserColumns = false;  // and has defined some
    bool customize = false;       // the appearance can be customised
    bool exportAllowed = false;   // the host lets lists be exported and copied
    bool exportEnabled = true;    // the list's own flag: off greys the entry
    bool filters = false;         // a filter list
    bool matchExactly = false;    // its option is on
};

// The text is a literal, zero-terminated; a separator has none.
struct ListMenuEntry {
    unsigned command;
    std::string_view text;
    bool greyed = false;
    bool checked = false;
    bool operator==(const ListMenuEntry&) const = default;
};

std::vector<ListMenuEntry> itemMenu(const ListOffers& offers);
std::vector<ListMenuEntry> headerMenu(const ListOffers& offers);

// The commands of a key, in the order in which they run; `consumed` tells whether the key ends
// there or goes on to the control.
struct KeyCommands {
    std::vector<unsigned> commands;
    bool consumed = false;
};
KeyCommands keyCommands(unsigned virtualKey, bool ctrl, bool shift, const ListOffers& offers);

// Whether a command is about one column: its key works in the column's filter box, too.
bool isColumnCommand(unsigned command);

// The keys in words: of rows, and of the column that was clicked last or whose filter box had the
// focus last.
std::vector<fw::KeyWords> listKeys(const ListOffers& offers);
std::vector<fw::KeyWords> columnKeys(const ListOffers& offers);

// Whether a list uses a key, for a command or to move and select.
bool isListKey(unsigned virtualKey, bool ctrl, bool shift, const ListOffers& offers);

}  // namespace mc
