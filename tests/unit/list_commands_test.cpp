#include "listctrl/model/list_commands.h"

#include <gtest/gtest.h>

#include "listctrl/model/fit_columns.h"

using namespace mc;

namespace {

using Menu = std::vector<ListMenuEntry>;
const ListMenuEntry kSeparator{0, {}};

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

}  // namespace
