// A row of small counts whose running totals change and are searched in logarithmic time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace mc {

class PrefixSums {
public:
    std::size_t size() const { return m_tree.size() - 1; }

    void clear() { m_tree.assign(1, 0); }

    // Makes the counts `count(0)` to `count(size - 1)`.
    template <class Count>
    void assign(std::size_t size, Count count) {
        clear();
        m_tree.reserve(size + 1);
        for (std::size_t i = 0; i < size; ++i) push_back(count(i));
    }

    // As many counts can be held without asking for memory.
    void makeRoom(std::size_t size) {
        if (size >= m_tree.capacity()) m_tree.reserve(size * 2 + 1);
    }

    void push_back(std::uint32_t count) {
        const std::size_t node = m_tree.size();
        const std::size_t before = sum(node - 1) - sum(node - lowBit(node));
        m_tree.push_back(static_cast<std::uint32_t>(before + count));
    }

    void increase(std::size_t at) { change(at, 1); }
    void decrease(std::size_t at) { change(at, static_cast<std::uint32_t>(-1)); }

    // The total of the first `counts` counts.
    std::size_t sum(std::size_t counts) const {
        std::size_t total = 0;
        for (; counts != 0; counts -= lowBit(counts)) total += m_tree[counts];
        return total;
    }

    // The count in which number `unit` of the total falls, and how far into it. `unit` must be
    // below the total.
    std::pair<std::size_t, std::size_t> find(std::size_t unit) const {
        std::size_t node = 0;
        for (std::size_t step = std::bit_floor(m_tree.size()); step != 0; step /= 2) {
            if (node + step >= m_tree.size() || m_tree[node + step] > unit) continue;
            node += step;
            unit -= m_tree[node];
        }
        return {node, unit};
    }

private:
    static std::size_t lowBit(std::size_t node) { return node & (~node + 1); }

    void change(std::size_t at, std::uint32_t by) {
        for (std::size_t node = at + 1; node < m_tree.size(); node += lowBit(node))
            m_tree[node] += by;
    }

    std::vector<std::uint32_t> m_tree = {0};  // [n] holds the total of the lowBit(n) counts up to n
};

}  // namespace mc
