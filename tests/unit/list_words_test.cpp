#include "listctrl/model/row_words.h"

#include <gtest/gtest.h>

#include "details/model/row_state.h"
#include "listctrl/model/empty_text.h"
#include "listctrl/model/fit_columns.h"
#include "listctrl/model/list_commands.h"
#include "workbench/model/key_list.h"
#include "workbench/model/press_line.h"

namespace mc {
namespace {

TEST(RowWords, NameHoldsTheCellsAndTheState) {
    const NamedText cells[] = {{"Field", "Cash Margin"}, {"Value", "200"}, {"Old Value", ""}};
    EXPECT_EQ(rowName(cells, "changed"), "Field: Cash Margin; Value: 200; changed");
    EXPECT_EQ(rowName(cells, ""), "Field: Cash Margin; Value: 200");
    EXPECT_EQ(rowName({}, "group, open"), "group, open");
}

TEST(RowWords, EventsSayWhatChanged) {
    using enum ListEvent;
    const ListSnapshot none{.rows = 9}, at3{9, 3, 7, "a", true, 1, 1};
    const struct {
        const char* name;
        ListSnapshot before, after;
        bool moved;
        std::vector<ListEvent> expected;
    } table[] = {
        {"nothing", at3, at3, false, {}},
        {"rows came before the first focus", none, none, true, {reorder}},
        {"first click", none, at3, false, {focus, selection}},
        {"arrow", at3, {9, 4, 8, "b", true, 1, 2}, false, {focus, selection}},
        {"Ctrl and arrow", at3, {9, 4, 8, "b", false, 1, 1}, false, {focus}},
        {"Shift and arrow", at3, {9, 4, 8, "b", true, 2, 2}, false, {focus, selectionAdded}},
        {"Ctrl and space", at3, {9, 3, 7, "a", false, 0, 2}, false, {selectionRemoved}},
        {"select all", at3, {9, 3, 7, "a", true, 9, 2}, false, {selectionWithin}},
        {"its row moved", at3, {10, 4, 7, "a", true, 1, 1}, true, {reorder, focus}},
        {"it went", at3, {8, 3, 8, "b", true, 1, 2}, true, {reorder, focus, selection}},
        {"all went", at3, {0, {}, kNoSlot, "", false, 0, 2}, true, {reorder, selectionWithin}},
        {"others come, none is selected",
         {9, 3, 7, "a", false, 0, 1},
         {5, 0, 9, "b", false, 0, 2},
         true,
         {reorder, focus}},
        {"it was looked at", at3, {9, 3, 7, "b", true, 1, 1}, false, {state}},
    };
    for (const auto& each : table)
        EXPECT_EQ(eventsBetween(each.before, each.after, each.moved), each.expected) << each.name;
}

TEST(RowWords, DetailsSayTheirMarks) {
    using enum RowAttribute;
    const struct {
        sMCListStruct row;
        bool editable;
        const char* words;
    } table[] = {
        {{"Name", "A", "A", readOnly}, false, ""},
        {{"Name", "A", "B", readOnly, 0, FieldChange::changed}, false, "changed"},
        {{"Name", "A", "", readOnly, 0, FieldChange::added}, false, "new value only"},
        {{"Name", "", "B", readOnly, 0, FieldChange::removed}, false, "old value only"},
        {{"Password", "", "", readOnly, 0, FieldChange::reset}, false, "new password"},
        {{"Kind", "E", "E", choice, 9}, true, "choice"},
        {{"Kind", "D", "E", choice, 9, FieldChange::none, true, true},
         true,
         "edited, not sent; typed over an older value; choice"},
    };
    LineGroups lines;
    for (const auto& each : table) {
        std::vector<DetailGroup> groups(1);
        groups[0].header.caption = "Limits";
        groups[0].rows.push_back(each.row);
        lines.replace(std::move(groups));
        EXPECT_EQ(stateOf(lines, *lines.lineAt(1), each.editable).words, each.words);
    }
    const RowState open = stateOf(lines, *lines.lineAt(0), false);
    EXPECT_EQ(open.words, "group, open");
    lines.setFolded(*lines.lineAt(0), true);
    const RowState folded = stateOf(lines, *lines.lineAt(0), false);
    EXPECT_EQ(folded.words, "group, folded; holds edits");
    EXPECT_TRUE(folded.folded == true && open.folded == false);
}

TEST(EmptyText, SaysWhyThereIsNothingToSee) {
    EXPECT_EQ(emptyListText(0, 0, "No pending changes"), "No pending changes");
    EXPECT_EQ(
        emptyListText(12, 0, "No pending changes"),
        "12 hidden by filters. Reset Filters, in the captions' menu (Ctrl+Menu key), shows them");
    EXPECT_EQ(emptyListText(12, 3, "No pending changes"), "");
}

TEST(ListKeys, RunTheirCommands) {
    ListOffers all;
    all.customize = all.exportAllowed = true;
    const struct {
        unsigned key;
        bool ctrl, shift;
        ListOffers offers;
        std::vector<unsigned> commands;
        bool consumed;
    } cases[] = {
        {'A', true, false, {}, {kSelectAllCommand}, true},
        {'C', true, false, {}, {}, false},
        {'C', true, false, all, {kCopyCommand}, false},
        {'C', true, true, all, {kCopyCommand, kCustomizeCommand}, false},
        {'E', false, true, {}, {}, false},
        {'E', false, true, all, {kExportCommand}, true},
        {'E', true, true, all, {}, false},
        {'E', false, false, all, {}, false},
        {'G', false, true, {}, {kGridLinesCommand}, false},
        {'G', true, true, {}, {}, false},
    };
    for (const auto& each : cases) {
        const KeyCommands found = keyCommands(each.key, each.ctrl, each.shift, each.offers);
        EXPECT_EQ(found.commands, each.commands) << static_cast<char>(each.key);
        EXPECT_EQ(found.consumed, each.consumed) << static_cast<char>(each.key);
        EXPECT_EQ(isListKey(each.key, each.ctrl, each.shift, each.offers), !each.commands.empty())
            << static_cast<char>(each.key);
    }
    for (const unsigned moving : {0x26u, 0x23u, 0x0Du, 0x5Du})
        EXPECT_TRUE(isListKey(moving, true, true, {})) << moving;
    EXPECT_FALSE(isListKey(0x09, false, false, all)) << "Tab";
}

TEST(FitColumns, ByDataByHeaderByWindow) {
    const struct {
        unsigned command;
        int data, header, client, columns, width;
    } cases[] = {
        {kFitToDataCommand, 120, 200, 410, 4, 120},
        {kFitToDataCommand, 30, 200, 410, 4, 50},
        {kFitToHeaderCommand, 120, 200, 410, 4, 200},
        {kFitToHeaderCommand, 20, 40, 410, 4, 50},
        {kFitToWindowCommand, 120, 200, 410, 4, 102},
        {kFitToWindowCommand, 1, 2, 0, 4, 50},
        {kFitToWindowCommand, 1, 2, 410, 0, 50},
        {0, 70, 60, 410, 4, 70},
        {0, 10, 20, 410, 4, 50},
    };
    for (const auto& each : cases)
        EXPECT_EQ(fittedWidth(each.command, each.data, each.header, each.client, each.columns),
                  each.width)
            << each.command << " " << each.data;
}

TEST(KeyList, HasTheKeysThatAreOfferedOnly) {
    const fw::KeyWords buttons[] = {{"Ctrl+Shift+Y", "Accept"}};
    ListOffers offers;
    EXPECT_EQ(keyList(buttons, offers, false).find("Ctrl+C - "), std::string::npos);
    offers.exportAllowed = offers.customize = true;
    const std::string all = keyList(buttons, offers, true);
    for (const char* line :
         {"Ctrl+Shift+Y - Accept", "F1 - this list of keys", "Ctrl+F7 - no quick filter",
          "Ctrl+C - copies the selected rows", "Shift+E - exports what shows",
          "Ctrl+Shift+full stop - widens the column", "F3 - the whole text of the cell",
          "F2 - edits the value"})
        EXPECT_NE(all.find(line), std::string::npos) << line;
}

TEST(PressLine, TimeThatWentByIsNoNews) {
    const PressLine first{"", "Accept 9, sent 3 s ago", false, true};
    PressLine later = first;
    later.text = "Accept 9, sent 14 s ago";
    EXPECT_FALSE(later.isNews(first));
    later.warning = "Selected by the list: ";
    EXPECT_TRUE(later.isNews(first));
    EXPECT_TRUE((PressLine{"", "Accept 8"}.isNews({"", "Accept 9"})));
}

}  // namespace
}  // namespace mc
