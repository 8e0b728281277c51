#include "details/model/field_change.h"

#include <gtest/gtest.h>

#include "details/model/details_builders.h"
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

}  // namespace
