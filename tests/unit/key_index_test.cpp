#include "workbench/model/records/key_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <string>

using namespace mc;

namespace {

struct Keyed {
    std::string key;
};

// The index beside a map, over a pool of records of which it holds some.
class KeyIndexTest : public testing::Test {
protected:
    void makePool(std::size_t count) {
        pool.push_back({""});
        for (std::size_t i = 1; i < count; ++i) pool.push_back({"change " + std::to_string(i)});
    }

    void insert(Keyed& record) {
        ASSERT_EQ(index.insert(record), expected.emplace(record.key, &record).second);
    }

    void erase(const std::string& key) {
        const auto known = expected.find(key);
        ASSERT_EQ(index.erase(key), known != expected.end() ? known->second : nullptr);
        if (known != expected.end()) expected.erase(known);
    }

    void expectSame() {
        ASSERT_EQ(index.size(), expected.size());
        for (const Keyed& record : pool) {
            const auto known = expected.find(record.key);
            ASSERT_EQ(index.find(record.key), known != expected.end() ? known->second : nullptr)
                << record.key;
        }
    }

    std::mt19937 random{31};
    std::deque<Keyed> pool;
    std::map<std::string, Keyed*> expected;
    KeyIndex<Keyed> index;
};

// Filled to the brim and thinned out over and over, so that entries stand far from their homes,
// around the end of the table too, and every removal has some to move.
TEST_F(KeyIndexTest, BehavesLikeAMapInAFullTable) {
    makePool(60);
    for (int round = 0; round < 4000; ++round) {
        Keyed& record = pool[random() % pool.size()];
        const bool filling = expected.size() < 46;
        if (random() % 8 == 0 ? !filling : filling)
            insert(record);
        else
            erase(record.key);
        if (HasFatalFailure()) return;
        expectSame();
        if (HasFatalFailure()) return;
    }
}

TEST_F(KeyIndexTest, GrowsAndShrinksByThousands) {
    makePool(5000);
    for (Keyed& record : pool) insert(record);
    expectSame();
    std::vector<std::size_t> order(pool.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), random);
    for (std::size_t i = 0; i < order.size(); ++i) {
        erase(pool[order[i]].key);
        if (i % 1000 == 0) expectSame();
    }
    expectSame();
}

TEST_F(KeyIndexTest, KeepsTheFirstRecordOfAKey) {
    Keyed first{"1001"}, second{"1001"};
    EXPECT_TRUE(index.insert(first));
    EXPECT_FALSE(index.insert(second));
    EXPECT_EQ(index.find("1001"), &first);
    EXPECT_EQ(index.size(), 1u);
}

TEST_F(KeyIndexTest, FindsNothingWhenEmptyOrCleared) {
    const auto expectEmpty = [this] {
        EXPECT_EQ(index.find("change 1"), nullptr);
        EXPECT_EQ(index.erase("change 1"), nullptr);
        EXPECT_EQ(index.size(), 0u);
    };
    expectEmpty();
    makePool(100);
    for (Keyed& record : pool) insert(record);
    index.clear();
    expectEmpty();
    expected.clear();
    insert(pool[1]);
    expectSame();
}

}  // namespace
