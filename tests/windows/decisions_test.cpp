// The buttons, pressed: what leaves for the server, what is shown and what is logged.
#include <gtest/gtest.h>

#include "sdk/connectvosk.h"
#include "tests/windows/test_host.h"

namespace {

using Log = std::vector<std::string>;

Fields investor(const char* user, const char* client = nullptr) {
    Fields fields{{54036, "INVESTOR_CLIENT"}, {31003, user}};
    if (client != nullptr) fields.emplace_back(54001, client);
    return fields;
}

std::vector<std::string> sentKeys(int mnemonic = 51803) {
    std::vector<std::string> keys;
    for (const Fields& message : host().sent) keys.push_back(sentField(message, mnemonic));
    return keys;
}

TEST(Decisions, AcceptSendsEachSelectedRowInOrder) {
    OpenWorkbench open;
    press("Accept");
    EXPECT_TRUE(host().sent.empty());
    for (const char* key : {"1", "2", "3"})
        open.plugin.publish(pending(key, "340", {{31003, std::string("U") + key}}));
    selectRows(mainList(), {0, 2});
    press("Accept");
    EXPECT_EQ(sentKeys(), (Log{"1", "3"}));
    EXPECT_EQ(host().sent[0], (Fields{{0, "om_authenticate_functionality"},
                                      {31003, "U1"},
                                      {54294, "CHECKER1"},
                                      {51803, "1"},
                                      {63713, "340"},
                                      {10303, "accepted"}}));
    EXPECT_EQ(host().log,
              Log(2, "Maker Checker Zek Message : Request sent to Accept Authentication"));
    EXPECT_EQ(rowCount(mainList()), 3) << "the row goes with the published outcome, not before";
    open.plugin.publish(outcome("1", "accepted"));
    EXPECT_EQ(rowCount(mainList()), 2);
}

TEST(Decisions, InvestorsAreAcceptedInPairsOrNamed) {
    OpenWorkbench open;
    open.plugin.publish(pending("10", "353", investor("INV1", "C1")));
    open.plugin.publish(pending("11", "339", investor("INV1")));
    open.plugin.publish(pending("12", "339", investor("INV2")));
    selectRows(mainList(), {0, 1, 2});
    const DialogTrap boxes;
    press("Accept");
    EXPECT_EQ(sentKeys(), (Log{"11", "10"}));
    EXPECT_EQ(boxes.texts, Log{"Autenticate User and Account for  INV2"});
    EXPECT_EQ(
        host().log.back(),
        "Maker Checker Zek Message : Autenticate User and Account for  INV2For Investor client "
        "Autenticate User and Client Together");
}

TEST(Decisions, AnOutcomePublishedBehindAMessageBoxIsNotDecidedAgain) {
    OpenWorkbench open;
    for (const char* key : {"1", "2", "3"})
        open.plugin.publish(pending(key, "340", {{31003, "U"}}));
    selectRows(mainList(), {0, 1, 2});
    host().sends = false;  // the first accept fails with a message box; another checker is quicker
    DialogTrap boxes([&](HWND) {
        host().sends = true;
        open.plugin.publish(outcome("2", "accepted"));
        PostMessageA(findPane(), WM_COMMAND, 1, 0);  // and Accept is pressed once more
    });
    press("Accept");
    EXPECT_EQ(boxes.texts,
              Log{"Maker Checker Zek Error : Failed while sending om_authenticate_functionality"});
    EXPECT_EQ(sentKeys(), Log{"3"});
    EXPECT_EQ(rowCount(mainList()), 2);
}

TEST(Decisions, RejectSendsTheReasonThatOkConfirms) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "354", {{54001, "ACC1"}}));
    selectRows(mainList(), {0});
    const struct {
        const char* typed;
        int button;
        std::vector<Fields> sent;
    } cases[] = {
        {"", IDOK, {}},
        {"wrong branch", IDCANCEL, {}},
        {"wrong branch",
         IDOK,
         {{{0, "om_authenticate_functionality"},
           {54001, "ACC1"},
           {54294, "CHECKER1"},
           {32766, "wrong branch"},
           {63713, "354"},
           {51803, "1"},
           {10303, "rejected"}}}},
    };
    for (const auto& each : cases) {
        host().sent.clear();
        DialogTrap dialog([&](HWND window) {
            EXPECT_NE(GetDlgItem(window, 1), nullptr);
            SetWindowTextA(GetDlgItem(window, 1548), each.typed);
        });
        dialog.pressed = each.button;
        press("Reject");
        EXPECT_EQ(dialog.texts, Log{"Enter Rejection Reason"});
        EXPECT_EQ(host().sent, each.sent);
    }
    EXPECT_EQ(host().log, Log{"Maker Checker Zek Message : Request sent to Reject Authentication"});
}

TEST(Decisions, AReasonThatFitsNoMessageIsReportedAndNothingIsSent) {
    OpenWorkbench open;
    open.plugin.publish(pending("1", "354", {{54001, "ACC1"}}));
    selectRows(mainList(), {0});
    const DialogTrap dialog([](HWND window) {
        SetWindowTextA(GetDlgItem(window, 1548), std::string(5000, 'r').c_str());
    });
    press("Reject");
    EXPECT_TRUE(host().sent.empty());
    EXPECT_EQ(host().log, Log{"Maker Checker Zek Message : Request failure"});
    EXPECT_EQ(rowCount(mainList()), 1);
}

TEST(Decisions, RecoverAsksAndTheAnswersAreTakenIn) {
    OpenWorkbench open;
    press("Recover");
    EXPECT_EQ(host().sent,
              (std::vector<Fields>{{{0, "om_get_functionality_details"}, {31003, "CHECKER1"}}}));
    press("Update");  // no edits
    EXPECT_EQ(host().sent.size(), 1u);

    void* message = nullptr;
    void* scratch = nullptr;
    otp_ctor_primecb(&message, nullptr);
    otp_open_scratch(&scratch, 4096, nullptr);
    otp_start_msg(message, scratch, nullptr);
    Fields answer = pending("77", "366", {{54001, "GONE"}});
    answer.emplace_back(32767, "om_get_functionality_details");
    for (const auto& [id, text] : answer)
        otp_add_data_as_cstring(message, id, 1, text.c_str(), nullptr);
    host().receiver->onMessage(0, 0, message, nullptr);
    host().receiver->onMessage(0, 0, nullptr, nullptr);
    host().receiver->onStatus(1, 2, nullptr);
    otp_dtor_primecb(message, nullptr);
    otp_close_scratch(scratch, nullptr);
    ASSERT_EQ(rowCount(mainList()), 1);
    EXPECT_EQ(rowTexts(mainList(), 0)[1], "DELETE Account");
}

}  // namespace
