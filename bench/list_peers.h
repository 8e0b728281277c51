// The other sides of list_bench: the same rows in a table model with a sorting and filtering proxy,
// and in a table of a database in memory.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

inline constexpr int kTextColumns = 6;
inline constexpr int kAmount = 6;  // a number with two decimals, as text
using Row = std::array<std::string, kTextColumns + 1>;
using Rows = std::vector<Row>;

enum class Asked { prefix, suffix, contains, alternatives, greater };

struct Question {
    int column;
    Asked asked;
    std::string text;  // alternatives: prefixes, separated by "~"
};

class ListPeer {
public:
    virtual ~ListPeer() = default;
    virtual const char* name() const = 0;

    // Filters by all questions; returns how many rows pass.
    virtual std::size_t filter(const std::vector<Question>& questions) = 0;

    // Sorts all rows ascending, the key and the amount as numbers. False where that is not
    // compared.
    virtual bool sort(int) { return false; }
};

// Null where the peer's library is absent.
std::unique_ptr<ListPeer> makeQtPeer(const Rows& rows);
std::unique_ptr<ListPeer> makeSqlitePeer(const Rows& rows);
