// Play scripts: a checker's session, one command per line, for the driver that presses the real
// buttons. This is the parser; the driver carries out the steps in order.
//
//   hotkey                          open the workbench, as the hot key does
//   wait rows N                     until the main list has N rows
//   wait log "text"                 until a line with the text is in the log
//   wait message "text"             until a message box with the text is open
//   wait details N                  until the details list has N lines
//   select ROW [ROW ...]            exactly these rows of the main list
//   double-click ROW
//   sort "column"                   a click on the caption
//   filter "column" "text"          types into the filter box and presses Enter
//   list menu "Customize"           an entry of the main list's menu, by a right click on a row
//   header menu "column" "entry"    and of its header's menu, by one on the caption
//   press "Accept"                  the button with this text
//   focus ID                        the control of the open dialog with this id
//   choose ID "item"                an item of the dialog's drop-down, list box or list
//   type "text"                     into the control that has the focus
//   key Ctrl+C                      Enter, Esc, Tab, Space, arrows, F1 to F12, letters, digits ...
//   close message                   the open message box
//   screenshot NAME
//   edit "Field" "text"             the value of a row of the details list: F2, the text, Enter
//   expect rows N
//   expect row ROW "column" "text"
//   expect log "line"               the whole line
//   expect no log "line"
//   expect message "text"
//   expect text ID "text"           what the dialog's control shows; a list its first cells
//   expect detail "Field" "Value" "text"   in the first row of details with that field
//   expect clean                    nothing grew between two unloadings of the plug-in
//   submit next | submit all        from the scenario
//   submit storm N
//   decide ROW accepted|rejected    as another checker
//   user PROFILE                    log in with another profile
//   menu "Path>Item"
//   dock left|top|right|bottom|float
//   close pane
//   quit
//
// ROW is the key of a change (1001), a position in the list from 1 (#2), or an entity name in
// quotes ("DLR101"). Inside quotes \" and \\ mean a quote and a backslash. A '#' that begins a
// line begins a comment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/model/parsed.h"

namespace zek {

enum class PlayVerb {
    hotkey,
    waitRows,
    waitLog,
    waitMessage,
    waitDetails,
    select,
    doubleClick,
    sort,
    filter,
    listMenu,
    headerMenu,
    press,
    focus,
    choose,
    type,
    key,
    closeMessage,
    screenshot,
    expectRows,
    expectRow,
    expectLog,
    expectNoLog,
    expectMessage,
    expectText,
    submitNext,
    submitAll,
    submitStorm,
    decide,
    user,
    menu,
    dock,
    closePane,
    edit,
    expectDetail,
    expectClean,
    quit,
};

struct PlayStep {
    int line = 0;
    PlayVerb verb = PlayVerb::quit;
    // Checked: numbers are decimal numbers, rows are what rowOf() takes, the rest is plain text.
    std::vector<std::string> arguments;

    bool operator==(const PlayStep&) const = default;
};

// Which row a ROW argument of a step means.
struct PlayRow {
    enum class By { key, position, name } by = By::key;
    std::string text;  // key or name
    int position = 0;  // from 1

    bool operator==(const PlayRow&) const = default;
};
PlayRow rowOf(const std::string& argument);

Parsed<std::vector<PlayStep>> parsePlayScript(std::string_view text, std::string_view file);

// A verb's words, for logs ("wait rows").
std::string_view wordsOf(PlayVerb verb);

}  // namespace zek
