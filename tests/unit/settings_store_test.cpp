#include "settings/model/settings_store.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

TEST(BarSizeTest, ReadsWhatItCanUse) {
    const struct {
        const char* stored;
        std::optional<BarSize> size;
    } cases[] = {
        {"", kDefaultBarSize},        {"Not Found", kDefaultBarSize},
        {"640,31", BarSize{640, 31}}, {" 640 , 31 ", BarSize{640, 31}},
        {"1,1,9", BarSize{1, 1}},     {"0,27", std::nullopt},
        {"500,0", std::nullopt},      {"500", std::nullopt},
        {"500,", std::nullopt},       {",27", std::nullopt},
        {"-5,27", std::nullopt},      {"wide,high", std::nullopt},
        {"not found", std::nullopt},  {"99999999999,-99999999999", std::nullopt},
    };
    for (const auto& each : cases) EXPECT_EQ(readBarSize(each.stored), each.size) << each.stored;
}

}  // namespace
