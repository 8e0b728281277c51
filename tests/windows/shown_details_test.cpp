// Whose details are visible, and what becomes of unsent edits, as a checker's hand finds it.
#include <gtest/gtest.h>

#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

const std::string kStrip = "Maker Checker Details";
const std::string kLimits = kStrip + ": Client - C1, RMS Limits, 7";

std::string strip() {
    return textOf(details());
}

// Three changes are pending; the details of the limits are visible.
class ShownDetails : public testing::Test {
protected:
    void SetUp() override {
        open.plugin.publish(pending("6", "340", {{31003, "DLR6"}}));
        open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
        open.plugin.publish(pending("8", "365", {{31003, "DLR8"}}));
        showLimits();
    }
    void showLimits() {
        hand::doubleClickRow(mainList(), 1);
        answer(limits("1500"));
        host().sent.clear();
    }
    static Fields limits(const char* margin) {
        return {{32767, "om_get_auth_limits_details"},
                {51803, "7"},
                {54001, "C1"},
                {64031, margin},
                {64031, "1200"},
                {64210, "10"}};
    }
    static void editMargin(const char* text) {
        hand::clickRow(details(), 2, {}, 1);
        hand::key(VK_F2);
        hand::type(text);
        hand::key(VK_RETURN);
    }
    OpenWorkbench open;
};

TEST_F(ShownDetails, WhatLeavesUnsentEditsBehindAsksFirst) {
    const Texts decision{"om_authenticate_functionality"};
    const struct {
        const char* what;
        std::function<void()> act;
        Texts sent;  // after Yes
        bool drops;
    } leaving[] = {
        {"Accept", [] { hand::click(button("Accept")); }, decision, false},
        {"Accept by key", [] { hand::key('Y', hand::kCtrlShift); }, decision, false},
        {"another change",
         [] { hand::doubleClickRow(mainList(), 0); },
         {"om_get_auth_user_details"},
         true},
        {"Esc", [] { hand::key(VK_ESCAPE); }, {}, true},
        {"F5", [] { hand::key(VK_F5); }, {"om_get_functionality_details"}, true},
    };
    for (const auto& each : leaving) {
        SCOPED_TRACE(each.what);
        showLimits();
        editMargin("2500");
        hand::clickRow(mainList(), 0);
        EXPECT_EQ(strip(), kLimits + " - not selected, 1 unsent");
        host().sent.clear();
        for (const WORD no : {WORD{VK_RETURN}, WORD{VK_ESCAPE}}) {
            hand::during(each.act, {[no] { hand::key(no); }});
            EXPECT_EQ(rowTexts(details(), 2, 2)[1], "2500.00");
            EXPECT_EQ(takeSent(), Texts{});
        }
        hand::during(each.act, {[] { hand::key('Y'); }});
        EXPECT_EQ(takeSent(), each.sent);
        EXPECT_EQ(strip() == kLimits + " - not selected, 1 unsent", !each.drops);
        open.plugin.publish(outcome("7", "rejected"));  // it ends with its change
        open.plugin.publish(outcome("8", "rejected"));
        open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
        EXPECT_EQ(strip().find("unsent"), std::string::npos);
    }
}

TEST_F(ShownDetails, ARepublishedChangeIsAskedForAgainAndKeepsWhatIsTyped) {
    editMargin("2500");
    hand::clickRow(details(), 3, {}, 1);
    hand::key(VK_F2);
    hand::type("77");
    open.plugin.publish(pending("7", "360", {{54001, "C1"}}));
    EXPECT_EQ(takeSent(), Texts{"om_get_auth_limits_details"});
    answer(limits("1600"));
    EXPECT_EQ(strip(), kLimits + " (changed since you opened it)");
    hand::key(VK_RETURN);
    EXPECT_EQ(rowTexts(details(), 2, 2)[1], "2500.00");
    EXPECT_EQ(rowTexts(details(), 3, 2)[1], "77");
}

}  // namespace
