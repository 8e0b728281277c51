#include "text/number_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

using namespace mc;

namespace {

std::string twoDecimals(double value) {
    std::string text;
    appendTwoDecimals(value, text);
    return text;
}

std::string printed(double value) {
    char room[400];
    std::snprintf(room, sizeof room, "%.2f", value);
    return room;
}

TEST(NumberTextTest, WritesTwoDecimalsOfSpecialValues) {
    struct {
        double value;
        const char* text;
    } const cases[] = {
        {-0.0, "-0.00"},
        {-0.004, "-0.00"},
        {0.125, "0.12"},                              // ties go to the even digit
        {4503599627370495.5, "4503599627370495.50"},  // the last with a fraction
        {4503599627370496.0, "4503599627370496.00"},
        {HUGE_VAL, "inf"},
        {-HUGE_VAL, "-inf"},
        {std::nan(""), "nan"},
        {-std::nan(""), "nan"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(twoDecimals(value), text) << value;
    EXPECT_EQ(twoDecimals(-std::numeric_limits<double>::max()).size(), 313U);
}

// Every kind of value that a million draws can reach: any bits, money, and exact ties.
TEST(NumberTextTest, WritesTwoDecimalsAsTheLibraryDoes) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 300'000; ++i) {
        const std::uint64_t bits = random();
        const double values[] = {
            std::bit_cast<double>(bits),
            static_cast<double>(static_cast<std::int64_t>(bits)) / 0x1p40,
            static_cast<double>(bits % 1'000'000'000'000) / 1000.0,
            static_cast<double>(bits >> (12 + bits % 48)) / 8.0,
        };
        for (const double value : values) {
            if (std::isnan(value)) continue;
            ASSERT_EQ(twoDecimals(value), printed(value));
        }
    }
}

}  // namespace
