// Sorting by numbers that order as what is compared does.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "listctrl/model/table/long_work.h"
#include "listctrl/model/table/text_table.h"

namespace mc {

struct Keyed {
    std::uint64_t key;
    std::uint32_t value;  // what is sorted: a slot or a code
};

// Sorts by key, byte by byte from the lowest; equal keys keep their order. `scratch` is of the same
// size, its contents are lost.
void sortByKey(std::span<Keyed> items, std::span<Keyed> scratch);

// By code: the rank of each text of the table among all, sorted byte by byte; equal ones have the
// same.
std::vector<std::uint64_t> ranksOf(const TextTable& texts, const LongWork& work = {});

}  // namespace mc
