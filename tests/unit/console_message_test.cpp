#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "console/model/owned_message.h"
#include "sdk/connectvosk.h"

namespace zek {
namespace {

TEST(OwnedMessageTest, GrowsAndKeepsEveryOccurrenceInPlace) {
    OwnedMessage message;
    for (int i = 0; i < 10000; ++i) {
        message.add(44201, std::to_string(i));
        if (i % 1000 == 0) message.addUnreadable(30001);
    }
    message.add(10046, std::string(100 * 1024, 'x'));

    const Fields fields = readFields(message.handle());
    ASSERT_EQ(fields.size(), 3u);
    ASSERT_EQ(fields[0].occurrences.size(), 10000u);
    EXPECT_EQ(fields[0].occurrences[9999], "9999");
    EXPECT_EQ(fields[1], (Field{30001, std::vector<Occurrence>(10)}));
    EXPECT_EQ(textOf(fields, 10046)->size(), 100u * 1024);
    EXPECT_EQ(otp_field_at(message.handle(), 1), 30001);
    EXPECT_EQ(otp_field_at(message.handle(), 2), 44201);
}

TEST(OwnedMessageTest, ACopyOutlivesItsOriginal) {
    OwnedMessage copy;
    {
        OwnedMessage original({{1, {"new", std::nullopt}}, {2, {""}}});
        original.add(1, "third");
        copy = OwnedMessage::copyOf(original.handle());
    }
    EXPECT_EQ(readFields(copy.handle()), (Fields{{1, {"new", std::nullopt, "third"}}, {2, {""}}}));
    EXPECT_EQ(otp_field_at(copy.handle(), 3), 1);
    const OwnedMessage taken = std::move(copy);
    EXPECT_EQ(textOf(readFields(taken.handle()), 2), "");
}

// Whichever call of the library fails, nothing leaks, and a failed growth keeps the message.
TEST(OwnedMessageTest, SurvivesAFailureOfEveryCall) {
    const std::string large(8000, 'x');
    int failures = 0;
    for (int call = 1; call <= 12; ++call) {
        otp_fail_call(0);
        OwnedMessage message({{1, {"a", "b"}}});
        otp_fail_call(call);
        try {
            message.add(2, large);
        } catch (const std::runtime_error&) {
            ++failures;
            otp_fail_call(0);
            EXPECT_EQ(findField(readFields(message.handle()), 2), nullptr) << call;
        }
        otp_fail_call(0);
        EXPECT_EQ(findField(readFields(message.handle()), 1)->occurrences.size(), 2u) << call;
    }
    EXPECT_GT(failures, 3);

    for (int call = 1; call <= 3; ++call) {
        otp_fail_call(call);
        EXPECT_THROW(OwnedMessage(), std::runtime_error) << call;
    }
    otp_fail_call(0);
}

}  // namespace
}  // namespace zek
