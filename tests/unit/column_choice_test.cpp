#include "listctrl/dialogs/model/column_choice.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

// Five columns A to E, of which A and C are mandatory.
ColumnModel five() {
    static constexpr sVoskColInfo columns[] = {{"A", 75, 1, ColumnType::text},
                                               {"B", 75, 1, ColumnType::text},
                                               {"C", 75, 1, ColumnType::text},
                                               {"D", 75, 1, ColumnType::text},
                                               {"E", 75, 1, ColumnType::text}};
    static constexpr ColumnId mandatory[] = {ColumnId{0}, ColumnId{2}};
    ColumnModel model;
    model.install(columns);
    model.setMandatory(mandatory);
    return model;
}

std::string names(const ColumnChoice& choice, const std::vector<ColumnId>& columns) {
    std::string text;
    for (const ColumnId id : columns) text += choice.caption(id);
    return text;
}

TEST(ColumnChoice, OneColumnStays) {
    ColumnModel model = five();
    model.setMandatory({});
    ColumnChoice choice(model, std::nullopt);
    EXPECT_EQ(names(choice, choice.remove({0, 1, 2, 3, 4})), "E");
    EXPECT_EQ(names(choice, choice.shown()), "E");
}

TEST(ColumnChoice, RowsMoveTogether) {
    const struct {
        Rows rows;
        std::size_t before;
        const char* order;
        Rows now;
    } cases[] = {
        {{1}, 0, "BACDE", {0}},       {{1}, 1, "ABCDE", {1}},       {{1}, 2, "ABCDE", {1}},
        {{1}, 5, "ACDEB", {4}},       {{0, 3}, 2, "BADCE", {1, 2}}, {{0, 4}, 99, "BCDAE", {3, 4}},
        {{0, 1}, 0, "ABCDE", {0, 1}}, {{}, 3, "ABCDE", {}},
    };
    for (const auto& each : cases) {
        ColumnChoice choice(five(), std::nullopt);
        EXPECT_EQ(choice.move(each.rows, each.before), each.now) << each.order;
        EXPECT_EQ(names(choice, choice.shown()), each.order);
    }
    ColumnChoice choice(five(), std::nullopt);
    EXPECT_EQ(choice.moveUp({0, 1}), (Rows{0, 1})) << "at the top already";
    EXPECT_EQ(choice.moveDown({3, 4}), (Rows{3, 4})) << "at the bottom already";
    EXPECT_EQ(choice.moveUp({3}), Rows{2});
    EXPECT_EQ(choice.moveDown({2}), Rows{3});
    EXPECT_EQ(names(choice, choice.shown()), "ABCDE");
}

}  // namespace
