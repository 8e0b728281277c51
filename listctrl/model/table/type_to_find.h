// Finding rows by the first letters of a cell, as others ask for it and as it is typed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "listctrl/model/table/record_store.h"

namespace mc {

// What the text of a cell is compared with, without regard to the case of ASCII letters.
struct CellSearch {
    std::string_view text;
    bool whole = false;  // the cell equals the text; else it begins with it
    bool wraps = true;   // goes on at the first row after the last
};

// The first row that fits, `first` being the first one to look at. One pass at most.
std::optional<std::size_t> findRow(const RecordStore& rows, ColumnId column, std::size_t first,
                                   const CellSearch& search);

// The letters that are typed while a list has the focus. Times are in milliseconds, from any start.
class TypeToFind {
public:
    static constexpr std::uint32_t kPause = 1000;  // ends the text

    // Whether a letter typed now belongs to those before.
    bool typing(std::uint32_t now) const { return !m_text.empty() && now - m_last < kPause; }

    // Something else happened: the next letter is the first.
    void end() { m_text.clear(); }

    // A letter is typed: the row that it leads to. The first letter leads on from the focused row,
    // further letters may stay on it; one letter typed again and again leads from match to match
    // unless a cell begins with all of them.
    std::optional<std::size_t> type(char letter, std::uint32_t now, const RecordStore& rows,
                                    ColumnId column);

private:
    std::string m_text;
    std::uint32_t m_last = 0;
};

}  // namespace mc
