// What changed of a field, and the lines that show it.
#include <gtest/gtest.h>

#include "details/model/details_builders.h"
#include "details/model/field_change.h"
#include "details/model/line_groups.h"
#include "tests/unit/message_builder.h"

using namespace mc;

namespace {

using Text = std::optional<std::string_view>;

TEST(FieldChange, IsJudgedOnWhatWasSent) {
    constexpr auto none = FieldChange::none, changed = FieldChange::changed;
    const struct {
        Text value, old;
        FieldChange asText, asNumber;
    } cases[] = {
        {"Y", "Y", none, none},
        {"Y", "N", changed, changed},
        {"1500", "1500.00", changed, none},
        {"007", "7", changed, none},
        {"-0", "0.0", changed, none},
        {"+5", "5", changed, none},
        {".5", "0.50", changed, none},
        {"-5", "5", changed, changed},
        {"16777216", "16777217", changed, changed},
        {"123456789012345678901", "123456789012345678902", changed, changed},
        {"0.1", "0.10000000000000001", changed, changed},
        {"5 ", "5", changed, changed},
        {"1.2.3", "1.2.30", changed, changed},
        {"", ".", changed, changed},
        {"", "", none, none},
        {"1", {}, FieldChange::added, FieldChange::added},
        {{}, "1", FieldChange::removed, FieldChange::removed},
        {{}, {}, none, none},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.value.value_or("-")) + " " +
                     std::string(each.old.value_or("-")));
        EXPECT_EQ(fieldChange(each.value, each.old), each.asText);
        EXPECT_EQ(fieldChange(each.value, each.old, CompareAs::number), each.asNumber);
    }
}

// By row: the marks of a group.
std::vector<FieldChange> marks(const std::vector<DetailGroup>& groups, std::size_t group) {
    std::vector<FieldChange> found;
    for (const sMCListStruct& row : groups.at(group).rows) found.push_back(row.change);
    return found;
}

TEST(FieldChange, BuildersMarkTheirRows) {
    using enum FieldChange;
    const auto limits = makeMessage({{54001, "C1"},
                                     {64031, "123456789"},
                                     {64031, "123456789.00"},  // shown rounded: 123456792.00
                                     {64164, "16777217"},
                                     {64164, "16777216"},  // both shown as 16777216.00
                                     {64210, "5"},
                                     {64037, "yes"},
                                     {64037, "E"}});  // both shown as E
    EXPECT_EQ(marks(BuildLimitsDetails(FieldReader(limits.handle()), true), 0),
              (std::vector{none, none, changed, added, changed}));

    const auto user = makeMessage({{31003, "D1"},
                                   {30004, "secret"},
                                   {30004, "secret"},
                                   {30001, kUnreadable},
                                   {30001, "Asha"},
                                   {63001, "nse_cm"},
                                   {63076, "Y"},
                                   {63076, "N"},
                                   {10109, "L"},
                                   {10109, "M"}});
    const auto groups = BuildUserDetails(FieldReader(user.handle()));
    EXPECT_EQ(marks(groups, 0), (std::vector{removed, reset}));
    EXPECT_EQ(marks(groups, 1), (std::vector{added, removed}));  // two rows for one status
    EXPECT_EQ(marks(groups, 2), (std::vector{none, none}));      // members of a list
}

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

// Which lines show, whatever is folded, filtered and edited: tests/fuzz/fuzz_details.cpp.
TEST(LineGroups, AFoldedGroupOpensAsItWas) {
    LineGroups lines;
    lines.append(twoGroups());
    lines.rows().selection().select(4, true);
    LineGroups::Line& branch = *lines.lineAt(2);
    EXPECT_FALSE(branch.isHeading());
    EXPECT_EQ(lines.headingRow(branch), 0u);
    lines.setFolded(branch, true);
    EXPECT_TRUE(lines.folded(*lines.lineAt(0)));
    EXPECT_TRUE(lines.rows().selection().selected(2));  // the selection belongs to the line
    lines.setFolded(branch, false);
    branch.row->edited = true;
    lines.rowChanged(branch);
    lines.setFolded(branch, true);
    EXPECT_TRUE(lines.holdsEdits(*lines.lineAt(0)));
    EXPECT_FALSE(lines.holdsEdits(*lines.lineAt(2)));
    EXPECT_EQ(shown(lines), "General|Branch ID|Exchange:NSE|Status|");
    EXPECT_EQ(lines.lineAt(99), nullptr);
    EXPECT_TRUE(lines.editsDropped());
    EXPECT_FALSE(lines.editsSent());
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
    EXPECT_FALSE(sent.edited);
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
    lines.replace({});
    EXPECT_EQ(lines.rows().rowCount(), 0u);
}

}  // namespace
