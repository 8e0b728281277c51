// The main list: one row per pending change.
#pragma once

#include <array>

#include "listctrl/model/columns/column_info.h"

namespace mc {

inline constexpr std::array<sVoskColInfo, 6> kMainColumns{{
    {"Entity Name", 75, 1, ColumnType::text},
    {"Auth Type", 75, 1, ColumnType::text},
    {"Key", 75, 1, ColumnType::longInteger},
    {"Maker", 75, 1, ColumnType::text},
    {"Branch", 75, 1, ColumnType::text},
    {"Broker", 75, 1, ColumnType::text},
}};

inline constexpr ColumnId kEntityColumn{0};
inline constexpr ColumnId kKindColumn{1};
inline constexpr ColumnId kKeyColumn{2};
inline constexpr ColumnId kMakerColumn{3};
inline constexpr ColumnId kBranchColumn{4};
inline constexpr ColumnId kBrokerColumn{5};

// Whose change it is and its key: a decision is always about an identified change.
inline constexpr std::array kMandatoryMainColumns{kEntityColumn, kKeyColumn};

// A cell is shown from a buffer of this many bytes, its end mark included.
inline constexpr std::size_t kCellBytes = 256;

}  // namespace mc
