// What a list without rows says in their place.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mc {

// `none` is what the list says when it has no record; empty when there are rows to see.
std::string emptyListText(std::size_t records, std::size_t rows, std::string_view none);

}  // namespace mc
