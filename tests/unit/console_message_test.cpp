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

}  // namespace
}  // namespace zek
