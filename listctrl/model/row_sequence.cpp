#include "listctrl/model/row_sequence.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {
constexpr std::size_t kBlockRows = 512;
}

struct RowBlock {
    std::size_t place = 0;  // among the sequence's blocks
    std::vector<RowNode*> rows;
};

RowSequence::RowSequence() = default;
RowSequence::~RowSequence() = default;

RowSequence::Place RowSequence::placeOf(std::size_t row) const {
    std::size_t block = 0;
    while (row >= m_sizes[block]) row -= m_sizes[block++];
    return {block, row};
}

std::size_t RowSequence::firstRowOf(std::size_t block) const {
    return std::accumulate(m_sizes.begin(), m_sizes.begin() + static_cast<std::ptrdiff_t>(block),
                           std::size_t{0});
}

RowNode& RowSequence::at(std::size_t row) const {
    const Place place = placeOf(row);
    return *m_blocks[place.block]->rows[place.offset];
}

std::size_t RowSequence::rowOf(const RowNode& node) const {
    const auto& rows = node.block->rows;
    const auto found = std::find(rows.begin(), rows.end(), &node);
    return firstRowOf(node.block->place) +
           static_cast<std::size_t>(std::distance(rows.begin(), found));
}

void RowSequence::append(RowNode& node) {
    if (m_blocks.empty() || m_sizes.back() == kBlockRows) addBlock(m_blocks.size());
    RowBlock& last = *m_blocks.back();
    last.rows.push_back(&node);
    node.block = &last;
    ++m_sizes.back();
    ++m_size;
}

void RowSequence::insert(std::size_t row, RowNode& node) {
    if (row >= m_size) return append(node);
    Place place = placeOf(row);
    if (m_sizes[place.block] == kBlockRows) {
        splitBlock(place.block);
        place = placeOf(row);
    }
    RowBlock& block = *m_blocks[place.block];
    block.rows.insert(block.rows.begin() + static_cast<std::ptrdiff_t>(place.offset), &node);
    node.block = &block;
    ++m_sizes[place.block];
    ++m_size;
}

std::size_t RowSequence::remove(RowNode& node) {
    RowBlock& block = *node.block;
    const auto found = std::find(block.rows.begin(), block.rows.end(), &node);
    const std::size_t row = firstRowOf(block.place) +
                            static_cast<std::size_t>(std::distance(block.rows.begin(), found));
    block.rows.erase(found);
    node.block = nullptr;
    --m_size;
    if (--m_sizes[block.place] == 0) removeBlock(block.place);
    return row;
}

void RowSequence::clear() {
    m_blocks.clear();
    m_sizes.clear();
    m_size = 0;
}

void RowSequence::addBlock(std::size_t at) {
    auto block = std::make_unique<RowBlock>();
    block->rows.reserve(kBlockRows);
    m_sizes.insert(m_sizes.begin() + static_cast<std::ptrdiff_t>(at), 0);
    m_blocks.insert(m_blocks.begin() + static_cast<std::ptrdiff_t>(at), std::move(block));
    for (std::size_t i = at; i < m_blocks.size(); ++i) m_blocks[i]->place = i;
}

// Moves the second half of a block to a new one behind it.
void RowSequence::splitBlock(std::size_t at) {
    addBlock(at + 1);
    auto& from = m_blocks[at]->rows;
    auto& to = m_blocks[at + 1]->rows;
    const auto half = from.begin() + static_cast<std::ptrdiff_t>(from.size() / 2);
    to.assign(half, from.end());
    from.erase(half, from.end());
    for (RowNode* node : to) node->block = m_blocks[at + 1].get();
    m_sizes[at] = static_cast<std::uint32_t>(from.size());
    m_sizes[at + 1] = static_cast<std::uint32_t>(to.size());
}

void RowSequence::removeBlock(std::size_t at) {
    m_sizes.erase(m_sizes.begin() + static_cast<std::ptrdiff_t>(at));
    m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t i = at; i < m_blocks.size(); ++i) m_blocks[i]->place = i;
}
