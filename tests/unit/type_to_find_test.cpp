#include "listctrl/model/table/type_to_find.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace mc;

namespace {

constexpr ColumnId kFindColumn{0};
using Row = std::optional<std::size_t>;

class Finding : public testing::Test {
protected:
    Finding() {
        rows.texts().setReader(
            [this](Slot row, ColumnId) -> std::string_view { return texts[row]; });
        for (const char* text : {"Bela", "asha", "Chitra", "ASHOK", "", "anil", "110", "10"}) {
            texts.push_back(text);
            rows.insertItem(0, static_cast<Slot>(texts.size() - 1));
        }
    }
    std::vector<std::string> texts;
    RecordStore rows;
};

TEST_F(Finding, TypedLettersLeadFromRowToRow) {
    const struct {
        const char* what;
        Row focus;
        const char* typed;  // "|" is a pause
        std::vector<Row> found;
    } cases[] = {
        {"from the top", {}, "c", {2}},
        {"on from the focused row", 1, "a", {3}},
        {"around the end", 6, "B", {0}},
        {"the focused row is the only one", 2, "c", {2}},
        {"further letters may stay", 0, "asho", {1, 1, 1, 3}},
        {"letter by letter", 0, "an", {1, 5}},
        {"a repeated letter steps", 0, "aaaa", {1, 3, 5, 1}},
        {"unless a cell begins with them all", 0, "11", {6, 6}},
        {"after a pause the next word begins", 0, "a|b", {1, 0}},
        {"no such row", 0, "zb", {{}, {}}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        rows.selection().setFocus(each.focus.value_or(rows.rowCount()));
        TypeToFind find;
        std::uint32_t now = ~std::uint32_t{0} - 100;  // the clock starts again meanwhile
        std::vector<Row> found;
        for (const char* c = each.typed; *c != '\0'; ++c) {
            now += *c == '|' ? TypeToFind::kPause : TypeToFind::kPause / 4;
            if (*c == '|') continue;
            found.push_back(find.type(*c, now, rows, kFindColumn));
            if (found.back()) rows.selection().setFocus(*found.back());
        }
        EXPECT_EQ(found, each.found);
    }
}

}  // namespace
