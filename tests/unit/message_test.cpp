#include "link/model/message.h"

#include <gtest/gtest.h>

#include "sdk/connectvosk.h"
#include "tests/unit/message_builder.h"

using namespace mc;

namespace {

TEST(AnswerError, IsReadFromItsField) {
    const struct {
        const char* name;
        FieldTexts answer;
        bool isError;
        std::string text;
        int code;
    } cases[] = {
        {"no field", {{MNM_STATUS, "rejected"}, {MNM_AUTHORIZATION_KEY, "1001"}}, false, "", 0},
        {"a text", {{MNM_ERROR, "No such change"}}, true, "No such change", 0},
        {"a number", {{MNM_ERROR, "-17"}}, true, "-17", -17},
        {"a number too large", {{MNM_ERROR, "99999999999"}}, true, "99999999999", 0},
        {"an empty text", {{MNM_ERROR, ""}}, true, "", 0},
        {"unreadable", {{MNM_ERROR, kUnreadable}}, true, "", 0},
        {"unreadable, then readable", {{MNM_ERROR, kUnreadable}, {MNM_ERROR, "5"}}, true, "", 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const auto message = makeMessage(each.answer);
        const auto error = answerError(FieldReader(message.handle()));
        ASSERT_EQ(error.has_value(), each.isError);
        if (!error) continue;
        EXPECT_EQ(error->text, each.text);
        EXPECT_EQ(error->code, each.code);
    }
}

}  // namespace
