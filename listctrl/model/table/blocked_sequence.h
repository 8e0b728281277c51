// An ordered sequence that finds, inserts and removes by position without walking its items.
//
// The items are kept in blocks of a few hundred, and each item knows its block: a position costs
// one search over the running totals of the blocks' sizes and one over a block. Appending costs the
// same however long the sequence is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "listctrl/model/table/prefix_sums.h"

namespace mc {

template <class Item>
struct SequenceBlock {
    std::size_t index = 0;  // among the sequence's blocks
    std::vector<Item> items;
};

// `Homes` keeps each item's block: `SequenceBlock<Item>*& operator()(const Item&)`. An item is in a
// sequence once at most.
template <class Item, class Homes>
class BlockedSequence {
public:
    using Block = SequenceBlock<Item>;
    static constexpr std::size_t kBlockItems = 512;

    std::size_t size() const { return m_size; }

    // The item at `row`, which must be below size().
    const Item& at(std::size_t row) const {
        const auto [block, offset] = m_sizes.find(row);
        return m_blocks[block]->items[offset];
    }

    // The row of an item of this sequence.
    std::size_t rowOf(const Item& item) const {
        const Block& block = *m_homes(item);
        return m_sizes.sum(block.index) + offsetOf(block, item);
    }

    void append(const Item& item) {
        if (m_blocks.empty() || m_blocks.back()->items.size() == kBlockItems) {
            makeRoom();
            if (!m_blocks.empty()) m_sizes.push_back(kBlockItems);
            addBlock(m_blocks.size());
        }
        Block& last = *m_blocks.back();
        last.items.push_back(item);  // the last block is not among m_sizes
        m_homes(item) = &last;
        ++m_size;
    }

    // The next item that is put in asks for no memory. Every call that puts items in does so
    // before it changes anything.
    void makeRoom() {
        m_sizes.makeRoom(m_blocks.size() + 1);
        if (m_blocks.size() == m_blocks.capacity()) m_blocks.reserve(m_blocks.size() * 2 + 1);
        if (m_spare == nullptr) m_spare = newBlock();
    }

    // Puts the item in front of the one at `row`; `row` is size() at most.
    void insert(std::size_t row, const Item& item) {
        if (row >= m_size) return append(item);
        auto [block, offset] = m_sizes.find(row);
        if (m_blocks[block]->items.size() == kBlockItems) {
            makeRoom();
            splitBlock(block);
            if (offset > kBlockItems / 2) ++block, offset -= kBlockItems / 2;
        }
        put(*m_blocks[block], offset, item);
    }

    // Takes an item of this sequence out; returns the row it had.
    std::size_t remove(const Item& item) {
        Block& block = *m_homes(item);
        const std::size_t offset = offsetOf(block, item);
        const std::size_t row = m_sizes.sum(block.index) + offset;
        m_homes(item) = nullptr;
        block.items.erase(block.items.begin() + static_cast<std::ptrdiff_t>(offset));
        --m_size;
        if (block.index < m_sizes.size()) m_sizes.decrease(block.index);
        if (block.items.empty()) removeBlock(block.index);
        return row;
    }

    // Takes every item out, without touching the items' homes: the items may be gone already.
    void clear() {
        m_blocks.clear();
        m_spare.reset();
        m_sizes.clear();
        m_size = 0;
    }

    // Makes the sequence these items and no others. Blocks are used again: a pass over a million
    // rows needn't fetch their memory again.
    void assign(std::span<const Item> items) {
        makeBlocks((items.size() + kBlockItems - 1) / kBlockItems);
        m_size = items.size();
        for (std::size_t index = 0; index < m_blocks.size(); ++index) {
            Block& block = *m_blocks[index];
            block.index = index;
            const auto some = items.first(std::min(items.size(), kBlockItems));
            items = items.subspan(some.size());
            block.items.assign(some.begin(), some.end());
            for (const Item& item : some) m_homes(item) = &block;
        }
        countBlocks();
    }

    // Calls `visit` with every item in order; it must not change the sequence.
    template <class Visit>
    void forEach(Visit visit) const {
        for (const auto& block : m_blocks)
            for (const Item& item : block->items) visit(item);
    }

    // Makes `items` a copy of the items in order.
    void copyTo(std::vector<Item>& items) const {
        items.clear();
        items.reserve(m_size);
        for (const auto& block : m_blocks)
            items.insert(items.end(), block->items.begin(), block->items.end());
    }

    Homes& homes() { return m_homes; }
    const Homes& homes() const { return m_homes; }

private:
    // Items are numbers: those that were appended in turn lie at their distance from the block's
    // first, or a little before that where some have gone since.
    static std::size_t offsetOf(const Block& block, const Item& item) {
        const auto& items = block.items;
        const std::size_t likely = std::min<std::size_t>(item - items.front(), items.size() - 1);
        std::size_t at = likely;
        while (at > 0 && items[at] != item) --at;
        if (items[at] != item)
            for (at = likely + 1; items[at] != item;) ++at;
        return at;
    }

    void put(Block& block, std::size_t offset, const Item& item) {
        block.items.insert(block.items.begin() + static_cast<std::ptrdiff_t>(offset), item);
        m_homes(item) = &block;
        if (block.index < m_sizes.size()) m_sizes.increase(block.index);
        ++m_size;
    }

    static std::unique_ptr<Block> newBlock() {
        auto block = std::make_unique<Block>();
        block->items.reserve(kBlockItems);
        return block;
    }

    // As many blocks, for items of no home; those that are there are used again.
    void makeBlocks(std::size_t count) {
        std::vector<std::unique_ptr<Block>> more;
        while (m_blocks.size() + more.size() < count) more.push_back(newBlock());
        m_sizes.makeRoom(count);
        m_blocks.reserve(count);
        forEach([this](const Item& item) { m_homes(item) = nullptr; });
        m_blocks.resize(std::min(m_blocks.size(), count));
        for (auto& block : more) m_blocks.push_back(std::move(block));
    }

    // After makeRoom().
    Block& addBlock(std::size_t at) {
        m_blocks.insert(m_blocks.begin() + static_cast<std::ptrdiff_t>(at), std::move(m_spare));
        for (std::size_t i = at; i < m_blocks.size(); ++i) m_blocks[i]->index = i;
        return *m_blocks[at];
    }

    // Moves the second half of a block to a new one behind it.
    void splitBlock(std::size_t at) {
        Block& behind = addBlock(at + 1);
        auto& items = m_blocks[at]->items;
        const auto half = items.begin() + static_cast<std::ptrdiff_t>(items.size() / 2);
        behind.items.assign(half, items.end());
        items.erase(half, items.end());
        for (const Item& item : behind.items) m_homes(item) = &behind;
        countBlocks();
    }

    void removeBlock(std::size_t at) {
        m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(at));
        for (std::size_t i = at; i < m_blocks.size(); ++i) m_blocks[i]->index = i;
        countBlocks();
    }

    void countBlocks() {
        m_sizes.assign(m_blocks.empty() ? 0 : m_blocks.size() - 1, [this](std::size_t block) {
            return static_cast<std::uint32_t>(m_blocks[block]->items.size());
        });
    }

    std::vector<std::unique_ptr<Block>> m_blocks;
    std::unique_ptr<Block> m_spare;  // for the next block; it may be null
    PrefixSums m_sizes;  // of the blocks but the last: what is beyond their total is in it
    std::size_t m_size = 0;
    Homes m_homes;
};

}  // namespace mc
