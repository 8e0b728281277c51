#include "workbench/model/records/key_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace mc;

namespace {

// The index beside a map, over a pool of keys of which both hold some; a key's slot is its number.
class KeyIndexTest : public testing::Test {
protected:
    void makePool(std::size_t count) {
        pool.push_back("");
        for (std::size_t i = 1; i < count; ++i) pool.push_back("change " + std::to_string(i));
    }

    void insert(Slot slot) {
        ASSERT_EQ(index.insert(pool[slot], slot), expected.emplace(pool[slot], slot).second);
    }

    void erase(Slot slot) {
        const auto known = expected.find(pool[slot]);
        ASSERT_EQ(index.erase(pool[slot]), known != expected.end() ? slot : kNoSlot);
        if (known != expected.end()) expected.erase(known);
    }

    void expectSame() {
        ASSERT_EQ(index.size(), expected.size());
        for (Slot slot = 0; slot < pool.size(); ++slot)
            ASSERT_EQ(index.find(pool[slot]), expected.contains(pool[slot]) ? slot : kNoSlot)
                << pool[slot];
    }

    struct KeyOf {
        const std::vector<std::string>& pool;
        std::string_view operator()(Slot slot) const { return pool[slot]; }
    };
    std::mt19937 random{31};
    std::vector<std::string> pool;
    std::map<std::string, Slot> expected;
    KeyIndex<KeyOf> index{KeyOf{pool}};
};

// Filled until it is nearly full and thinned out over and over, so that entries lie far from their
// homes, around the end of the table too, and every removal has some to move.
TEST_F(KeyIndexTest, BehavesLikeAMapInAFullTable) {
    makePool(60);
    for (int round = 0; round < 4000; ++round) {
        const auto slot = static_cast<Slot>(random() % pool.size());
        const bool filling = expected.size() < 46;
        if (random() % 8 == 0 ? !filling : filling)
            insert(slot);
        else
            erase(slot);
        if (HasFatalFailure()) return;
        expectSame();
        if (HasFatalFailure()) return;
    }
}

TEST_F(KeyIndexTest, GrowsAndShrinksByThousands) {
    makePool(5000);
    std::vector<Slot> order;
    for (Slot slot = 0; slot < pool.size(); ++slot) {
        insert(slot);
        order.push_back(slot);
    }
    EXPECT_FALSE(index.insert("change 7", 8)) << "the first slot of a key stays";
    expectSame();
    std::shuffle(order.begin(), order.end(), random);
    for (std::size_t i = 0; i < order.size(); ++i) {
        erase(order[i]);
        if (i % 1000 == 0) expectSame();
    }
    expectSame();
    insert(17);
    index.clear();
    expected.clear();
    expectSame();
    EXPECT_EQ(index.erase("change 17"), kNoSlot);
}

}  // namespace
