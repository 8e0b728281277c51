#include "framework/model/dock_layout.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "sdk/docking.h"

namespace fw {

void PrintTo(const Rect& r, std::ostream* out) {
    *out << '(' << r.left << ", " << r.top << ")-(" << r.right << ", " << r.bottom << ')';
}

namespace {

constexpr DockMetrics kMetrics{5, 80, 60};
constexpr Rect kClient{10, 20, 1010, 620};

long long areaOf(const Rect& rect) {
    return static_cast<long long>(rect.width()) * rect.height();
}

bool holds(const Rect& outer, const Rect& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

bool overlap(const Rect& a, const Rect& b) {
    return std::max(a.left, b.left) < std::min(a.right, b.right) &&
           std::max(a.top, b.top) < std::min(a.bottom, b.bottom);
}

// The sash is between: the pieces tile the area, as the next test shows.
TEST(DockLayout, PlacesOnePane) {
    const struct {
        const char* name;
        unsigned side;
        int extent;
        Rect pane, inner;
    } cases[] = {
        {"left", kDockLeft, 200, {10, 20, 210, 620}, {215, 20, 1010, 620}},
        {"bottom", kDockBottom, 200, {10, 420, 1010, 620}, {10, 20, 1010, 415}},
        {"a pane's minimum", kDockLeft, 3, {10, 20, 90, 620}, {95, 20, 1010, 620}},
        {"the inner minimum", kDockBottom, 9999, {10, 85, 1010, 620}, {10, 20, 1010, 80}},
    };
    for (const auto& each : cases) {
        const DockedPane pane{each.side, each.extent};
        const DockLayout layout = layOut(kClient, {&pane, 1}, kMetrics);
        ASSERT_EQ(layout.docked.size(), 1u);
        EXPECT_EQ(layout.docked[0].pane, each.pane) << each.name;
        EXPECT_EQ(layout.inner, each.inner) << each.name;
    }
}

// Whatever the sizes: nothing is negative, and the pieces tile the client area.
TEST(DockLayout, TilesAnyClientArea) {
    std::mt19937 random(99);
    const auto between = [&](int from, int to) {
        return std::uniform_int_distribution(from, to)(random);
    };
    constexpr unsigned sides[] = {kDockLeft, kDockTop, kDockRight, kDockBottom};
    for (int round = 0; round < 3000; ++round) {
        const int left = between(-500, 500), top = between(-500, 500);
        const int largest = round % 3 == 0 ? 100 : 2000;
        const Rect client{left, top, left + between(0, largest), top + between(0, largest)};
        const DockMetrics metrics{between(0, 12), between(0, 150), between(0, 150)};
        std::vector<DockedPane> panes(static_cast<std::size_t>(between(0, 6)));
        for (DockedPane& pane : panes) pane = {sides[between(0, 3)], between(-50, 2500)};

        const DockLayout layout = layOut(client, panes, metrics);
        ASSERT_EQ(layout.docked.size(), panes.size());
        std::vector<Rect> pieces{layout.inner};
        for (const DockRects& place : layout.docked) {
            pieces.push_back(place.pane);
            pieces.push_back(place.sash);
        }
        long long area = 0;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            ASSERT_GE(pieces[i].width(), 0) << round;
            ASSERT_GE(pieces[i].height(), 0) << round;
            ASSERT_TRUE(holds(client, pieces[i])) << round;
            for (std::size_t j = 0; j < i; ++j) ASSERT_FALSE(overlap(pieces[i], pieces[j]));
            area += areaOf(pieces[i]);
        }
        ASSERT_EQ(area, areaOf(client)) << round;
    }
}

TEST(SideAt, IsTheNearestEdgeWithinTheBand) {
    const struct {
        int x, y;
        unsigned side;
    } cases[] = {
        {10, 300, kDockLeft},    {40, 300, 0},       {1009, 300, kDockRight},  {500, 20, kDockTop},
        {500, 619, kDockBottom}, {15, 22, kDockTop}, {1005, 618, kDockBottom}, {9, 300, 0},
    };
    for (const auto& each : cases)
        EXPECT_EQ(sideAt(kClient, each.x, each.y, 30), each.side) << each.x << ", " << each.y;
}

}  // namespace
}  // namespace fw
