#include "framework/model/calls.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

TEST(Calls, WhatIsRetiredGoesWithTheOutermostCallInOrder) {
    std::string gone;
    const auto object = [&gone](char name) {
        return std::shared_ptr<const void>(&gone, [&gone, name](const void*) { gone += name; });
    };
    fw::retire(object('a'));
    EXPECT_EQ(gone, "a") << "nothing is under way";
    {
        const fw::Call outer;
        {
            const fw::Call inner;
            fw::retire(object('b'));
            fw::retire(std::shared_ptr<const void>(&gone, [&](const void*) {
                const fw::Call nested;  // a window goes with it
                fw::retire(object('d'));
                gone += 'c';
            }));
        }
        EXPECT_EQ(gone, "a");
    }
    EXPECT_EQ(gone, "abcd");
    EXPECT_EQ(fw::callsUnderWay(), 0);
}

TEST(Calls, EndForThoseUnderWayAndNotForThoseThatComeLater) {
    std::optional<fw::Call> outer(std::in_place), box(std::in_place);
    {
        const fw::Call exit;
        fw::endOuterCalls();
        EXPECT_FALSE(fw::callEnded()) << "the call that ends the others still reports";
    }
    EXPECT_TRUE(fw::callEnded());
    {
        const fw::Call later;  // a new workbench, behind the old one's box
        EXPECT_FALSE(fw::callEnded());
    }
    box.reset();
    EXPECT_TRUE(fw::callEnded());
    {
        const fw::Call later;  // as deep as the one that ended
        EXPECT_FALSE(fw::callEnded());
    }
    outer.reset();
    const fw::Call next;
    EXPECT_FALSE(fw::callEnded());
}

}  // namespace
