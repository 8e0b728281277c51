// The text that a list without rows shows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mc {

// `none` is the text of a list without a record. Empty when there are rows to see.
std::string emptyListText(std::size_t records, std::size_t rows, std::string_view none);

}  // namespace mc
