// An ordered sequence of rows that are linked into it: a row that is known is found at once.
#pragma once

#include <cstddef>

#include "listctrl/model/blocked_sequence.h"

// Base of what a sequence orders. A node is in one sequence at a time, which does not own it.
struct RowNode {
    SequenceBlock<RowNode*>* block = nullptr;
};

struct RowNodeHomes {
    SequenceBlock<RowNode*>*& operator()(RowNode* node) const { return node->block; }
};

class RowSequence {
public:
    std::size_t size() const { return m_rows.size(); }

    // The node at `row`, which must be below size().
    RowNode& at(std::size_t row) const { return *m_rows.at(row); }

    // The row of a node of this sequence.
    std::size_t rowOf(RowNode& node) const { return m_rows.rowOf(&node); }

    void append(RowNode& node) { m_rows.append(&node); }

    // Puts the node in front of the one at `row`; `row` is size() at most.
    void insert(std::size_t row, RowNode& node) { m_rows.insert(row, &node); }

    // Takes a node of this sequence out; returns the row it had.
    std::size_t remove(RowNode& node) { return m_rows.remove(&node); }

    // Takes every node out. The nodes may be gone already.
    void clear() { m_rows.clear(); }

private:
    BlockedSequence<RowNode*, RowNodeHomes> m_rows;
};
