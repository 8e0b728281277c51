// What the editors of list cells take: characters, numbers, dates.
#include <gtest/gtest.h>

#include "editors/model/date_time_text.h"
#include "editors/model/number_input.h"
#include "editors/model/typed_text.h"
#include "text/characters.h"

using namespace mc;

namespace {

TEST(EditorTexts, PlainDecimalNumbersOnly) {
    for (const char* number : {"0", "12", "-12", "+1.5", ".5", "5.", " 7 ", "007", "-.0",
                               "123456789012345678901234567890.123"})
        EXPECT_TRUE(isNumber(number)) << number;
    for (const char* other : {"", " ", "-", "+", ".", "-.", "1.2.3", "--1", "1-", "1 2", "- 1",
                              "12a", "1e5", "0x10", "inf", "nan", "1,000", "1,5", "\t1"})
        EXPECT_FALSE(isNumber(other)) << other;
    EXPECT_EQ(trimmed("  1 2 ", " "), "1 2");
    EXPECT_EQ(trimmed("   ", " "), "");
}

TEST(EditorTexts, CharactersAndPastedText) {
    constexpr std::string_view allowed = "0123456789.-";
    const struct {
        unsigned character;
        std::string_view allowed;
        TypedCharacter use;
    } cases[] = {
        {'7', allowed, TypedCharacter::text},
        {'<', allowed, TypedCharacter::refused},
        {'<', "", TypedCharacter::text},
        {0xE9, allowed, TypedCharacter::refused},
        {0xE9, "", TypedCharacter::text},
        {0x100 + '7', allowed, TypedCharacter::refused},  // a wide character, not its low byte
        {1, allowed, TypedCharacter::selectAll},
        {'\b', allowed, TypedCharacter::command},
        {0x16, allowed, TypedCharacter::command},
        {'\t', "", TypedCharacter::nothing},
        {0x7F, "", TypedCharacter::nothing},
        {0, "", TypedCharacter::nothing},
    };
    for (const auto& each : cases)
        EXPECT_EQ(typedCharacter(each.character, each.allowed), each.use) << each.character;
    EXPECT_TRUE(allAllowed("-1.5", allowed));
    EXPECT_FALSE(allAllowed("1 000", allowed));
    EXPECT_EQ(firstLine("1500\r\n2"), "1500");
    EXPECT_EQ(firstLine("1500"), "1500");
}

TEST(EditorTexts, DatesInTheirForm) {
    constexpr auto date = DateTimeForm::date;
    constexpr auto time = DateTimeForm::dateAndTime;
    const struct {
        const char* text;
        DateTimeForm form;
        const char* written;  // empty: unreadable
    } cases[] = {
        {"29/02/2024", date, "29/02/2024"},
        {"1/2/2024", date, "01/02/2024"},
        {"29/02/2023", date, ""},
        {"29/02/1900", date, ""},
        {"31/04/2024", date, ""},
        {"01/13/2024", date, ""},
        {"01/02/24", date, ""},
        {"01-02-2024", date, ""},
        {"01/02/2024 23:59:59", time, "01/02/2024 23:59:59"},
        {"01/02/2024 9:05", time, "01/02/2024 09:05:00"},
        {"01/02/2024", time, "01/02/2024 00:00:00"},
        {"01/02/2024 24:00:00", time, ""},
        {"01/02/2024 10", time, ""},
        {"01/02/2024 10:00:00x", time, ""},
    };
    for (const auto& each : cases) {
        const auto parts = readDateTime(each.text, each.form);
        const std::string written = parts ? dateTimeText(*parts, each.form) : "";
        EXPECT_EQ(written, each.written) << each.text;
    }
}

}  // namespace
