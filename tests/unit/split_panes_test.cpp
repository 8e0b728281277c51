#include "frames/model/split_panes.h"

#include <gtest/gtest.h>

#include "settings/model/settings_store.h"

using namespace mc;

namespace {

constexpr SplitMetrics kMetrics{6, 60};

std::vector<int> sizes(const SplitPanes& panes) {
    std::vector<int> all;
    for (std::size_t i = 0; i < panes.count(); ++i) all.push_back(panes.sizeOf(i));
    return all;
}

TEST(SplitPanes, KeepProportionsAndComeBackAfterARoomTooSmall) {
    SplitPanes panes(2);
    panes.setRoom(406, kMetrics);
    panes.moveBar(0, 300);
    const struct {
        int room;
        std::vector<int> sizes;
    } cases[] = {{406, {300, 100}}, {206, {140, 60}}, {126, {60, 60}},   {46, {20, 20}},
                 {6, {0, 0}},       {0, {0, 0}},      {806, {600, 200}}, {406, {300, 100}}};
    for (const auto& each : cases) {
        panes.setRoom(each.room, kMetrics);
        EXPECT_EQ(sizes(panes), each.sizes) << each.room;
        EXPECT_EQ(panes.startOf(1), panes.sizeOf(0) + kMetrics.bar);
    }
}

TEST(SplitPanes, ABarStopsAtItsNeighboursLeastSizes) {
    SplitPanes panes(3);
    panes.setRoom(612, kMetrics);
    ASSERT_EQ(sizes(panes), (std::vector<int>{200, 200, 200}));
    panes.moveBar(0, 9999);
    EXPECT_EQ(sizes(panes), (std::vector<int>{340, 60, 200}));
    panes.moveBar(1, -5);
    EXPECT_EQ(sizes(panes), (std::vector<int>{340, 60, 200}));
    panes.moveBar(1, BarMove::toMost, 0);
    EXPECT_EQ(sizes(panes), (std::vector<int>{340, 200, 60}));
    panes.moveBar(0, BarMove::back, 8);
    EXPECT_EQ(sizes(panes), (std::vector<int>{332, 208, 60}));
    panes.moveBar(0, BarMove::toLeast, 0);
    EXPECT_EQ(sizes(panes), (std::vector<int>{60, 480, 60}));
    panes.moveBar(7, 100);  // there is none
    panes.evenOut();
    EXPECT_EQ(sizes(panes), (std::vector<int>{200, 200, 200}));
}

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
