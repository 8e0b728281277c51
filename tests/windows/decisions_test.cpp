// What only a dialog or a message box can do to a decision.
#include <gtest/gtest.h>

#include "res/resource_ids.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

// Another checker is quicker while the box of a failed accept is open, and Accept is pressed again.
TEST(Decisions, OneAtATimeAndOnlyOfWhatIsStillPending) {
    OpenWorkbench open;
    for (const char* key : {"1", "2", "3"})
        open.plugin.publish(pending(key, "340", {{31003, "U"}}));
    selectRows(mainList(), {0, 1, 2});
    host().sends = false;
    DialogTrap boxes([&](HWND) {
        host().sends = true;
        open.plugin.publish(outcome("2", "accepted"));
        PostMessageA(findPane(), WM_COMMAND, IDC_ACCEPT, 0);
    });
    hand::click(button("Accept"));
    EXPECT_EQ(boxes.texts, Texts{"Maker Checker Zek Error : Failed while sending "
                                 "om_authenticate_functionality"});
    EXPECT_EQ(takeSent(51803), Texts{"3"});
    EXPECT_EQ(rowCount(mainList()), 2) << "a row goes with the published outcome, not before";
}

TEST(Decisions, RejectSendsTheReasonThatOkConfirms) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "354", {{54001, "ACC1"}}));
    hand::clickRow(mainList(), 0);
    const struct {
        const char* typed;
        WORD key;
        Texts reasons;
    } cases[] = {{"", VK_RETURN, {}},
                 {"wrong branch", VK_ESCAPE, {}},
                 {"wrong branch", VK_RETURN, {"wrong branch"}}};
    for (const auto& each : cases) {
        hand::during([] { hand::click(button("Reject")); },
                     {[&] { hand::type(each.typed), hand::key(each.key); }});
        EXPECT_EQ(takeSent(32766), each.reasons);
    }
    EXPECT_EQ(host().log,
              Texts{"Maker Checker Zek Message : Request sent to Reject Authentication"});
}

}  // namespace
