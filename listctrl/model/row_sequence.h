// An ordered sequence of rows that finds, inserts and removes by position without walking the rows.
//
// The rows stand in blocks of a few hundred; each row knows its block. A position costs one pass
// over the blocks' sizes (2,000 numbers for a million rows) and one over a block.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

struct RowBlock;

// Base of what a sequence orders. A node is in one sequence at a time, which does not own it.
struct RowNode {
    RowBlock* block = nullptr;
};

class RowSequence {
public:
    RowSequence();
    ~RowSequence();
    RowSequence(const RowSequence&) = delete;
    RowSequence& operator=(const RowSequence&) = delete;

    std::size_t size() const { return m_size; }

    // The node at `row`, which must be below size().
    RowNode& at(std::size_t row) const;

    // The row of a node of this sequence.
    std::size_t rowOf(const RowNode& node) const;

    void append(RowNode& node);

    // Puts the node in front of the one at `row`; `row` is size() at most.
    void insert(std::size_t row, RowNode& node);

    // Takes a node of this sequence out; returns the row it had.
    std::size_t remove(RowNode& node);

    // Takes every node out. The nodes may be gone already.
    void clear();

private:
    struct Place {
        std::size_t block;
        std::size_t offset;
    };
    Place placeOf(std::size_t row) const;
    std::size_t firstRowOf(std::size_t block) const;
    void addBlock(std::size_t at);
    void splitBlock(std::size_t at);
    void removeBlock(std::size_t at);

    std::vector<std::unique_ptr<RowBlock>> m_blocks;
    std::vector<std::uint32_t> m_sizes;  // of each block, side by side for the pass over them
    std::size_t m_size = 0;
};
