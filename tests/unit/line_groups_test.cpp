#include "details/model/line_groups.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

sMCListStruct row(std::string caption, std::string value, std::string oldValue = {}) {
    return {std::move(caption), std::move(value), std::move(oldValue)};
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
        text += std::string(lines.rows().cellText(at, ColumnId{0})) + "|";
    return text;
}

TEST(LineGroups, AFoldedGroupShowsItsHeadingOnlyAndOpensAsItWas) {
    LineGroups lines;
    lines.append(twoGroups());
    lines.rows().selection().select(4, true);
    LineGroups::Line& branch = *lines.lineAt(2);
    EXPECT_FALSE(branch.isHeading());
    EXPECT_EQ(lines.headingRow(branch), 0u);
    lines.setFolded(branch, true);
    EXPECT_TRUE(lines.folded(*lines.lineAt(0)));
    EXPECT_EQ(shown(lines), "General|Exchange:NSE|Status|");
    EXPECT_TRUE(lines.rows().selection().selected(2));  // the selection belongs to the line
    lines.setFolded(branch, false);
    EXPECT_EQ(shown(lines), "General|Dealer ID|Branch ID|Exchange:NSE|Status|");
    EXPECT_EQ(lines.lineAt(99), nullptr);
}

TEST(LineGroups, ARowWithAnUnsentEditPassesEveryFilterAndFold) {
    LineGroups lines;
    lines.append(twoGroups());
    LineGroups::Line& branch = *lines.lineAt(2);
    branch.row->received = std::exchange(branch.row->value, "DEL");
    branch.row->edited = true;
    lines.rowChanged(branch);
    lines.setFolded(branch, true);
    EXPECT_TRUE(lines.holdsEdits(*lines.lineAt(0)));
    EXPECT_FALSE(lines.holdsEdits(*lines.lineAt(2)));
    EXPECT_EQ(shown(lines), "General|Branch ID|Exchange:NSE|Status|");
    lines.rows().filters().set(ColumnId{0}, "status");
    lines.rows().filter();
    EXPECT_EQ(shown(lines), "General|Branch ID|Exchange:NSE|Status|");

    EXPECT_TRUE(lines.editsDropped());
    EXPECT_EQ(lines.rows().cellText(1, ColumnId{1}), "MUM");
    EXPECT_FALSE(lines.editsSent());
    lines.rows().filter();
    EXPECT_EQ(shown(lines), "Exchange:NSE|Status|");
}

TEST(LineGroups, WhatAnUpdateSentIsTheValueFromThenOn) {
    LineGroups lines;
    auto groups = twoGroups();
    sMCListStruct& limit = groups[0].rows[1];
    limit.change = FieldChange::changed;
    limit.sent = std::make_shared<const SentAmount>("1500", "1200.00");
    limit.received = std::exchange(limit.value, "1200");
    limit.edited = true;
    lines.append(std::move(groups));
    EXPECT_TRUE(lines.editsSent());
    const sMCListStruct& sent = *lines.lineAt(2)->row;
    EXPECT_EQ(sent.sent->value, "1200");
    EXPECT_EQ(sent.change, FieldChange::none) << "as it was before";
}

TEST(LineGroups, GroupsThatReplaceOthersStayFoldedAndFocused) {
    LineGroups lines;
    lines.append(twoGroups());
    lines.setFolded(*lines.lineAt(0), true);
    lines.rows().selection().setFocus(2);
    auto groups = twoGroups();
    groups[1].rows[0].edited = true;
    lines.replace(std::move(groups));
    EXPECT_EQ(shown(lines), "General|Exchange:NSE|Status|");
    EXPECT_EQ(lines.rows().selection().focusedRow(), 2u);
    EXPECT_TRUE(lines.holdsEdits(*lines.lineAt(1)));
    lines.clear();
    EXPECT_EQ(lines.rows().rowCount(), 0u);
    EXPECT_EQ(lines.groupCount(), 0u);
    lines.replace({});
    EXPECT_EQ(lines.rows().rowCount(), 0u);
}

}  // namespace
