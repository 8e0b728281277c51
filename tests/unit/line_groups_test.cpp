#include "listctrl/model/line_groups.h"

#include <gtest/gtest.h>

namespace {

sMCListStruct row(std::string caption, std::string value, std::string oldValue = {}) {
    return {std::move(caption), std::move(value), std::move(oldValue), RowAttribute::readOnly, 0,
            false};
}

std::vector<DetailGroup> twoGroups() {
    std::vector<DetailGroup> groups(2);
    groups[0].header = row("General", "");
    groups[0].rows = {row("Dealer ID", "D1"), row("Branch ID", "MUM")};
    groups[1].header = row("Exchange:NSE", "");
    groups[1].rows = {row("Status", "Enabled", "Disabled")};
    return groups;
}

std::string shown(LineGroups& lines) {
    std::string text;
    for (std::size_t at = 0; at < lines.rows().rowCount(); ++at)
        text += std::string(lines.rows().cellText(at, 0)) + "|";
    return text;
}

TEST(LineGroups, AHeadingStaysWhileAnyOfItsLinesPasses) {
    LineGroups lines;
    lines.append(twoGroups());
    EXPECT_EQ(shown(lines), "General|Dealer ID|Branch ID|Exchange:NSE|Status|");
    const struct {
        int column;
        const char* filter;
        const char* left;
    } cases[] = {
        {0, "branch", "General|Branch ID|"},
        {1, "enabled", "Exchange:NSE|Status|"},
        {0, "exchange", "Exchange:NSE|"},
        {1, "nothing", ""},
        {1, "", "General|Dealer ID|Branch ID|Exchange:NSE|Status|"},
    };
    for (const auto& each : cases) {
        lines.rows().clearFilters();
        lines.rows().setFilter(each.column, each.filter);
        lines.rows().filter();
        EXPECT_EQ(shown(lines), each.left) << each.filter;
    }
    // Groups that come while a filter is in force are judged by it.
    lines.rows().setFilter(0, "status");
    lines.rows().filter();
    lines.append(twoGroups());
    EXPECT_EQ(shown(lines), "Exchange:NSE|Status|Exchange:NSE|Status|");
}

TEST(LineGroups, AFoldedGroupShowsItsHeadingOnlyAndOpensAsItWas) {
    LineGroups lines;
    lines.append(twoGroups());
    lines.rows().select(4, true);
    LineGroups::Line& branch = *lines.lineAt(2);
    EXPECT_FALSE(branch.isHeading());
    EXPECT_EQ(lines.headingRow(branch), 0u);
    lines.setFolded(branch, true);
    EXPECT_TRUE(lines.folded(*lines.lineAt(0)));
    EXPECT_EQ(shown(lines), "General|Exchange:NSE|Status|");
    EXPECT_TRUE(lines.rows().selected(2));  // the selection belongs to the line
    lines.setFolded(branch, false);
    EXPECT_EQ(shown(lines), "General|Dealer ID|Branch ID|Exchange:NSE|Status|");
    EXPECT_EQ(lines.lineAt(99), nullptr);
}

TEST(LineGroups, AnEditedRowStaysOnShowUntilTheNextPass) {
    LineGroups lines;
    lines.append(twoGroups());
    lines.rows().setFilter(1, "enabled");
    lines.rows().filter();
    LineGroups::Line& status = *lines.lineAt(1);
    EXPECT_TRUE(status.changed);
    status.row->value = "Disabled";
    status.row->edited = true;
    lines.rowChanged(status);
    EXPECT_EQ(lines.rows().cellText(1, 1), "Disabled");
    EXPECT_FALSE(status.changed);
    EXPECT_TRUE(lines.clearEdited());
    EXPECT_FALSE(lines.clearEdited());
    lines.rows().filter();
    EXPECT_EQ(lines.rows().rowCount(), 0u);  // now it is judged
    lines.clear();
    EXPECT_EQ(lines.rows().rowCount(), 0u);
    EXPECT_EQ(lines.groupCount(), 0u);
}

TEST(LineGroups, ChangedValuesAreComparedAsNumbersWhereTheyAreNumbers) {
    const struct {
        const char* value;
        const char* oldValue;
        bool changed;
    } cases[] = {
        {"1500.00", "1500", false}, {"1500.00", "1500.01", true}, {"-5", "-5.0", false},
        {"", "1500", false},        {"1500", "", false},          {"Y", "N", true},
        {"Y", "Y", false},          {"01/02/2026", "01/03/2026", true},
        {"1.2.3", "1.2.4", true},   {"10-20", "10-30", true},     {"0", "-", true},
    };
    for (const auto& each : cases)
        EXPECT_EQ(valueChanged(row("", each.value, each.oldValue)), each.changed)
            << each.value << " " << each.oldValue;
}

}  // namespace
