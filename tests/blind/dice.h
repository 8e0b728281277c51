// The one source of chance of a blind hand: a seed gives the same throws on every machine.
#pragma once

#include <cstddef>
#include <iterator>
#include <numeric>
#include <random>

namespace blind {

class Dice {
public:
    explicit Dice(unsigned seed) : m_engine(seed) {}

    // 0 to sides - 1.
    int below(int sides) {
        return static_cast<int>(m_engine() % static_cast<unsigned>(sides > 0 ? sides : 1));
    }
    bool chance(int percent) { return below(100) < percent; }

    template <class Range>
    auto& oneOf(Range& range) {
        return *std::next(std::begin(range), below(static_cast<int>(std::size(range))));
    }

    // An entry of a table, as often as its `weight` says.
    template <class Table>
    auto& weighted(Table& table) {
        int left = below(std::accumulate(std::begin(table), std::end(table), 0,
                                         [](int sum, auto& each) { return sum + each.weight; }));
        auto at = std::begin(table);
        while (left >= at->weight) left -= (at++)->weight;
        return *at;
    }

private:
    std::mt19937 m_engine;
};

}  // namespace blind
