// What differs between two texts, as runs of characters to mark in each.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace mc {

// The characters [from, to) of a text.
struct TextRun {
    std::size_t from, to;
    bool operator==(const TextRun&) const = default;
};

enum class DifferenceKind {
    none,    // the texts are equal
    plain,   // they can be told apart when they are read
    blanks,  // they differ in blanks, tabs and no-break blanks only
    alike,   // they differ in look-alikes only: O and 0, l, 1 and I, rn and m
};

// The runs of each text are in order and do not touch.
struct TextDifference {
    DifferenceKind kind = DifferenceKind::none;
    std::vector<TextRun> value, old;
};

// The shortest edit between the texts; a word of which most differs is marked whole, look-alikes
// are marked singly. Texts whose differing middles are longer than kMaxCompared characters are
// compared at their ends only. Costs the product of the two middles' lengths.
inline constexpr std::size_t kMaxCompared = 256;
TextDifference differenceOf(std::string_view value, std::string_view old);

}  // namespace mc
