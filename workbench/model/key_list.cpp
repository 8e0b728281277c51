#include "workbench/model/key_list.h"

#include <vector>

#include "workbench/model/pane_commands.h"

namespace mc {
namespace {

// Of the keys that no table of the workbench runs: the framework and the controls take them.
const fw::KeyWords kInPane[] = {
    {"Tab, Shift+Tab",
     "from the buttons through the filter boxes to the list, the bar, the details"},
    {"F6, Shift+F6", "from the pane to the console's other parts, and back"},
    {"Ctrl+Shift+D", "the pane's menu: dock, float, close"},
    {"Enter, Space", "on a button: presses it"},
    {"Esc",
     "empties a filter box, leaves an edit, puts back what is being dragged, ends a long sort, "
     "filter or fit"}};
const fw::KeyWords kInBoxes[] = {
    {"Enter", "applies the text"},
    {"F4, Down, Alt+Down", "the values of the column, most frequent first"},
    {"Ctrl+Down", "the values of the column by name"}};
const fw::KeyWords kOnBar[] = {{"arrows", "move it a little"},
                               {"Home, End", "move it as far as it goes"},
                               {"Space", "makes both lists equal"}};
const fw::KeyWords kInDetails[] = {{"Left, Right", "fold and unfold a group"}};
const fw::KeyWords kEditing[] = {
    {"F2", "edits the value"},
    {"Enter, Tab, Shift+Tab", "take what was typed; Tab goes on to the next value"},
    {"Esc", "leaves the value as it was"}};

constexpr std::string_view kEndOfLine = "\r\n";

void add(std::string& text, std::string_view heading, std::span<const fw::KeyWords> keys) {
    if (!text.empty()) text += kEndOfLine;
    text.append(heading).append(kEndOfLine);
    for (const fw::KeyWords& each : keys)
        text.append("    ").append(each.key).append(" - ").append(each.does).append(kEndOfLine);
}

}  // namespace

std::string keyList(std::span<const fw::KeyWords> buttons, const ListOffers& offers, bool edits) {
    std::vector<fw::KeyWords> pane;
    for (const PaneKey& each : kPaneKeys)
        pane.push_back({fw::keyName(each.key, each.ctrl, each.shift), each.does});
    pane.insert(pane.end(), std::begin(kInPane), std::end(kInPane));
    std::string text;
    add(text, "Deciding", buttons);
    add(text, "Anywhere in the pane", pane);
    add(text, "In a list", listKeys(offers));
    add(text, "In a list, and in a filter box for its column", columnKeys(offers));
    add(text, "In a filter box", kInBoxes);
    add(text, "On the bar between the lists", kOnBar);
    add(text, "In the details", kInDetails);
    if (edits) add(text, "In the details, on a value with a frame", kEditing);
    return text;
}

}  // namespace mc
