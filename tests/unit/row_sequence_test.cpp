#include "listctrl/model/row_sequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

namespace {

// The sequence beside a plain vector that does the same.
class RowSequenceTest : public testing::Test {
protected:
    std::size_t below(std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random);
    }

    void append() {
        expected.push_back(newNode());
        sequence.append(*expected.back());
    }

    void insert(std::size_t row) {
        RowNode* node = newNode();
        expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(row), node);
        sequence.insert(row, *node);
    }

    void remove(std::size_t row) {
        RowNode& node = *expected[row];
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(row));
        ASSERT_EQ(sequence.remove(node), row);
        // A node taken out is nobody's: it may be destroyed, or put in again.
        std::erase_if(m_nodes, [&](const auto& owned) { return owned.get() == &node; });
    }

    void expectAt(std::size_t row) {
        ASSERT_EQ(&sequence.at(row), expected[row]) << "at " << row;
        ASSERT_EQ(sequence.rowOf(*expected[row]), row);
    }

    void expectSame() {
        ASSERT_EQ(sequence.size(), expected.size());
        for (std::size_t row = 0; row < expected.size(); ++row) expectAt(row);
    }

    void forgetNodes() {
        expected.clear();
        m_nodes.clear();
    }

    RowSequence sequence;
    std::vector<RowNode*> expected;

private:
    RowNode* newNode() { return m_nodes.emplace_back(std::make_unique<RowNode>()).get(); }

    std::mt19937 m_random{20240611};
    std::vector<std::unique_ptr<RowNode>> m_nodes;
};

// Phases that grow, churn and shrink it, so that blocks are filled, split, emptied and dropped.
TEST_F(RowSequenceTest, BehavesLikeAPlainVector) {
    const struct {
        std::size_t operations;
        std::size_t appends, inserts, removals;  // in a hundred
    } phases[] = {
        {1800, 90, 5, 5}, {2500, 5, 90, 5}, {3000, 25, 25, 50}, {2200, 5, 10, 85}, {600, 45, 50, 5},
    };
    for (const auto& phase : phases) {
        for (std::size_t i = 0; i < phase.operations; ++i) {
            const std::size_t dice = below(100);
            if (dice < phase.appends || expected.empty())
                append();
            else if (dice < phase.appends + phase.inserts)
                insert(below(expected.size() + 1));
            else
                remove(below(expected.size()));
            if (!expected.empty()) expectAt(below(expected.size()));
            if (HasFatalFailure()) return;
        }
        expectSame();
    }
}

TEST_F(RowSequenceTest, SplitsAFullBlockWhereverARowGoesIn) {
    for (int i = 0; i < 1536; ++i) append();
    for (const std::size_t row : {0u, 511u, 512u, 767u, 1024u, 1300u, 1541u}) {
        insert(row);
        expectSame();
    }
    insert(expected.size());
    expectSame();
}

TEST_F(RowSequenceTest, EmptiesFromTheFrontAndFromTheBack) {
    for (const bool front : {true, false}) {
        for (int i = 0; i < 1100; ++i) append();
        while (!expected.empty()) {
            remove(front ? 0 : expected.size() - 1);
            if (expected.size() % 100 == 0) expectSame();
        }
        EXPECT_EQ(sequence.size(), 0u);
    }
    append();
    expectSame();
}

TEST_F(RowSequenceTest, ClearForgetsNodesThatAreGone) {
    for (int i = 0; i < 700; ++i) append();
    forgetNodes();
    sequence.clear();
    append();
    expectSame();
}

}  // namespace
