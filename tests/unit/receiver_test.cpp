#include "link/model/receiver.h"

#include <gtest/gtest.h>

#include "tests/unit/answer_recorder.h"
#include "tests/unit/fake_host.h"
#include "tests/unit/message_builder.h"

using namespace mc;

namespace {

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
