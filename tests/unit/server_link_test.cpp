#include "link/model/server_link.h"

#include <gtest/gtest.h>

#include <optional>

#include "link/model/mnemonics.h"
#include "link/model/receiver.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"
#include "tests/unit/recorders.h"

using namespace mc;

// A link that lost the host's service keeps its handles on purpose.
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
using HandlesMayStay = __lsan::ScopedDisabler;
#else
struct HandlesMayStay {
    HandlesMayStay() {}
};
#endif

namespace {

constexpr int kHandles = 4;

// Whether a one-field message can be built and sent.
bool canSend(serverLink& link) {
    return link.startMessage() && link.append(MNM_USER, "X") && link.send();
}

TEST(ServerLink, GoesOnWhereAHandleCannotBeOpened) {
    const struct {
        int failingCall;
        Lines said;
        bool canSend;
    } cases[] = {
        {1, {"box MnmHndl Open failed in Market Context"}, false},
        {2, {"box BufHndl Open failed in Market Context"}, false},
        {3, {"box TimeBufHndl Open failed in Market Context"}, true},
        {4, {"box TmHndl Open failed in Market Context"}, true},
        {5, {}, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.failingCall);
        FakeHost host;
        AnswerRecorder answers;
        otp_fail_call(each.failingCall);
        std::optional<serverLink> link(std::in_place, host, answers);
        EXPECT_EQ(otp_fail_call(0), kHandles);
        EXPECT_EQ(host.takeSaid(), Lines{}) << "the pane does not exist yet";
        link->tellFailures();
        EXPECT_EQ(host.takeSaid(), each.said);
        EXPECT_EQ(host.controls.made.size(), 2u);
        EXPECT_EQ(canSend(*link), each.canSend);

        otp_fail_call(0);
        link.reset();
        const int open = each.said.empty() ? kHandles : kHandles - 1;
        EXPECT_EQ(otp_fail_call(0), open) << "closes what it opened";
        EXPECT_EQ(host.takeSaid(), Lines{});
    }
}

TEST(ServerLink, BindsAReceiverToEachControlAndReleasesTheSecondFirst) {
    FakeHost host;
    AnswerRecorder answers;
    {
        serverLink link(host, answers);
        ASSERT_EQ(host.controls.made.size(), 2u);
        EXPECT_NE(host.controls.made.at(0)->receiver, host.controls.made.at(3)->receiver);
        const auto message = makeMessage({{MNM_ANSWERED_REQUEST, "om_get_auth_user_details"}});
        for (const auto& [kind, control] : host.controls.made)
            control->receiver->onMessage(0, 0, message.handle(), nullptr);
        EXPECT_EQ(answers.taken, (Lines{"user", "user"}));
        ASSERT_TRUE(canSend(link));
        EXPECT_EQ(host.controls.made.at(0)->sent.size(), 1u);
        EXPECT_EQ(host.controls.made.at(3)->sent.size(), 0u);
        EXPECT_EQ(host.controls.released, std::vector<int>{});
    }
    EXPECT_EQ(host.controls.released, (std::vector<int>{3, 0}));
}

TEST(ServerLink, WithoutTheControlServiceSaysSoAndReleasesNothing) {
    FakeHost host;
    host.controls.hasService = false;
    AnswerRecorder answers;
    std::optional<serverLink> link;
    {
        const HandlesMayStay mayStay;
        link.emplace(host, answers);
    }
    link->tellFailures();
    EXPECT_EQ(host.takeSaid(), Lines{"box From ZEK Connection to quon failed"});
    EXPECT_FALSE(canSend(*link));
    otp_fail_call(0);
    link.reset();
    EXPECT_EQ(otp_fail_call(0), 0) << "no handle is closed";
    EXPECT_EQ(host.takeSaid(), Lines{"log Destroying Quon Connection Failed"});
}

TEST(ServerLink, SubscribesToWhatThePrivilegeLevelMaySee) {
    const struct {
        int level;
        SentMessage pairs;  // none: no subscription
    } cases[] = {
        {0, {{64056, ""}, {63713, ""}, {51803, ""}}},
        {1, {{63713, ""}, {64056, "CHECK01"}, {51803, ""}}},
        {2, {{64056, "ZEKB"}, {63713, ""}, {64053, "CHECK01"}, {51803, ""}}},
        {4, {{63713, ""}, {31003, "CHECK01"}, {51803, ""}}},
        {3, {}},
        {5, {}},
        {-1, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.level);
        FakeHost host;
        host.level = each.level;
        AnswerRecorder answers;
        serverLink link(host, answers);
        EXPECT_EQ(link.subscribe(), 1);
        std::vector<Subscription> expected;
        if (!each.pairs.empty()) expected.push_back({each.pairs, true, {0, 0, 1}});
        EXPECT_EQ(host.control().subscriptions, expected);
        EXPECT_TRUE(host.controls.made.at(3)->subscriptions.empty());
        EXPECT_EQ(host.said, Lines{});
    }
}

Lines routed(const FieldTexts& answer) {
    AnswerRecorder handler;
    CMCRxr receiver(handler);
    const auto message = makeMessage(answer);
    receiver.onMessage(7, 7, message.handle(), nullptr);
    return handler.taken;
}

TEST(Receiver, RoutesByTheRequestAnswered) {
    const struct {
        std::string request;
        Lines good, refused;
    } cases[] = {
        {"om_get_auth_limits_details", {"limits"}, {"limits refused"}},
        {"om_get_auth_user_details", {"user"}, {"user refused"}},
        {"om_get_auth_account_details", {"account"}, {"account refused"}},
        {"om_get_functionality_details", {"recovered"}, {}},
        {"om_authenticate_functionality", {}, {}},
        {"OM_GET_AUTH_USER_DETAILS", {}, {}},
        {"om_get_auth_user_details ", {}, {}},
        {"om_get_auth_user_detail", {}, {}},
        {"", {}, {}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.request);
        const FieldText answered{MNM_ANSWERED_REQUEST, each.request};
        EXPECT_EQ(routed({answered, {MNM_AUTHORIZATION_KEY, "1001"}}), each.good);
        EXPECT_EQ(routed({answered, {MNM_ERROR, "No such change"}}), each.refused);
        EXPECT_EQ(routed({{MNM_ERROR, "17"}, answered}), each.refused);
        EXPECT_EQ(routed({answered, {MNM_ERROR, kUnreadable}}), each.refused);
    }
}

TEST(Receiver, LetsNoExceptionIntoTheHost) {
    AnswerRecorder handler;
    handler.throws = true;
    CMCRxr receiver(handler);
    const auto message = makeMessage({{MNM_ANSWERED_REQUEST, "om_get_auth_user_details"}});
    EXPECT_NO_THROW(receiver.onMessage(0, 0, message.handle(), nullptr));
    EXPECT_EQ(handler.taken, Lines{"user"});
}

}  // namespace
