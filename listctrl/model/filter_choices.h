// The lines of a filter box's drop-down, and what a line means as a filter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "listctrl/model/distinct_values.h"

// Heads the choices and stands for no filter.
inline constexpr std::string_view kAllChoices = "--ALL-- ";

// "--ALL-- ", the values, and a last line that counts those beyond the bound, if there are any.
std::vector<std::string> boxChoices(const DistinctValues& values);

// The filter text of what stands in a box: none for "--ALL-- " and for the counting line.
std::string filterOfBox(std::string_view text);
