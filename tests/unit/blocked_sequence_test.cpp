#include "listctrl/model/table/blocked_sequence.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "listctrl/model/table/slot_sequence.h"

using namespace mc;

namespace {

void expectSame(const SlotSequence& sequence, const std::vector<Slot>& expected) {
    ASSERT_EQ(sequence.size(), expected.size());
    std::size_t row = 0;
    sequence.forEach([&](Slot slot) {
        ASSERT_EQ(slot, expected[row]);
        ASSERT_EQ(sequence.at(row), slot);
        ASSERT_EQ(sequence.rowOf(slot), row);
        ++row;
    });
    std::vector<Slot> copy;
    sequence.copyTo(copy);
    ASSERT_EQ(copy, expected);
}

// Grows to many blocks, shrinks to none, in the middle and at the ends.
TEST(SlotSequence, FollowsAVectorThroughInsertionsAndRemovals) {
    constexpr std::size_t kSlots = 6000;
    std::mt19937 random(5);
    SlotSequence sequence;
    sequence.homes().grow(kSlots);
    std::vector<Slot> expected, out;
    for (Slot slot = 0; slot < kSlots; ++slot) out.push_back(slot);
    for (int wave = 0; wave < 6; ++wave) {
        const bool grows = wave % 2 == 0;
        const int where = static_cast<int>(random() % 3);  // front, back, anywhere
        for (std::size_t left = grows ? out.size() : expected.size(); left > 0; --left) {
            const std::size_t end = expected.size() + (grows ? 1 : 0);
            const std::size_t row = where == 0 ? 0 : where == 1 ? end - 1 : random() % end;
            const auto at = static_cast<std::ptrdiff_t>(row);
            if (grows) {
                sequence.insert(row, out.back());
                expected.insert(expected.begin() + at, out.back());
                out.pop_back();
            } else {
                const Slot slot = expected[row];
                ASSERT_EQ(sequence.remove(slot), row);
                ASSERT_FALSE(sequence.contains(slot));
                expected.erase(expected.begin() + at);
                out.push_back(slot);
            }
            if (left % 1000 == 1) expectSame(sequence, expected);
        }
        std::shuffle(out.begin(), out.end(), random);
    }
}

TEST(SlotSequence, IsReplacedAsAWhole) {
    SlotSequence sequence;
    sequence.homes().grow(3000);
    std::vector<Slot> slots;
    for (Slot slot = 0; slot < 3000; slot += 2) slots.push_back(2998 - slot);
    sequence.append(1);
    sequence.assign(slots);
    expectSame(sequence, slots);
    EXPECT_FALSE(sequence.contains(1));
    sequence.insert(700, 1);
    slots.insert(slots.begin() + 700, 1);
    expectSame(sequence, slots);
}

}  // namespace
