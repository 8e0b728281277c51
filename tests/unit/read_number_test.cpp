#include "text/read_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

using namespace mc;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ReadNumber, TakesTheNumberThatATextBeginsWith) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {" \t\n\v\f\r7", 7},
        {"100ergs", 100},
        {"0x1F", 0},
        {"1e999", kInfinity},
        {"-1e999", -kInfinity},
        {"1e99999999999999999999", kInfinity},
        {"1e-99999999999999999999", 0},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(readNumber(text), value) << text;
    for (const char* text : {"", " ", ".", "-", "+", "-.", "+-5", "--5", "- 5", "abc", "e5", ".e5",
                             "inf", "-inf", "nan", "Infinity", "NA"})
        EXPECT_EQ(readNumber(text), std::nullopt) << text;
    EXPECT_EQ(readNumber({}), std::nullopt);
}

// Texts that are numbers, nearly numbers and at the ends of the range.
std::string randomNumber(std::mt19937& random) {
    const auto below = [&](unsigned end) { return static_cast<unsigned>(random() % end); };
    const auto digits = [&](unsigned most) {
        std::string text;
        const bool zeros = below(4) == 0;
        for (unsigned i = below(most + 1); i > 0; --i)
            text += static_cast<char>('0' + (zeros ? 0 : below(10)));
        return text;
    };
    const auto oneOf = [&](std::initializer_list<const char*> texts) {
        return std::string(texts.begin()[below(static_cast<unsigned>(texts.size()))]);
    };
    std::string text = oneOf({"", "", "", " ", "\t ", "+", "-", "-", "+-", "- "});
    text += digits(below(8) == 0 ? 340 : 20);
    if (below(2) == 0) text += "." + digits(below(8) == 0 ? 340 : 20);
    if (below(3) == 0) text += oneOf({"e", "E"}) + oneOf({"", "+", "-"}) + digits(4);
    return text + oneOf({"", "", "", " ", "z", ".5", "e", ",1"});
}

TEST(ReadNumber, AgreesWithTheLibraryToTheLastBit) {
    std::mt19937 random(1);
    for (int i = 0; i < 300'000; ++i) {
        const std::string text = randomNumber(random);
        const char* const start = text.c_str();
        char* end = nullptr;
        const double expected = std::strtod(start, &end);
        const auto value = readNumber(text);
        ASSERT_EQ(value.has_value(), end != start) << text;
        if (value) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(*value), std::bit_cast<std::uint64_t>(expected))
                << text;
        }
        double scanned = 0;
        ASSERT_EQ(std::sscanf(start, "%lf", &scanned) == 1, value.has_value()) << text;
        ASSERT_EQ(longIntegerOf(text), std::strtoll(start, nullptr, 10)) << text;
    }
}

}  // namespace
