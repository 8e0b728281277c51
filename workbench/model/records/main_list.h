// The main list: one row per pending change.
#pragma once

#include <array>
#include <string_view>

#include "link/model/pending_record.h"
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

// Whose change it is and its key: a decision is always about an identified change.
inline constexpr std::array kMandatoryMainColumns{ColumnId{0}, ColumnId{2}};

// A cell is shown from a buffer of this many bytes, its end mark included.
inline constexpr std::size_t kCellBytes = 256;

// The text of a record's cell, cut to what fits a cell. Index 6 is the record's spare field, which
// has no column; beyond, cells are empty.
std::string_view mainCellText(const sMakeCheckStruct& record, ColumnId column);

}  // namespace mc
