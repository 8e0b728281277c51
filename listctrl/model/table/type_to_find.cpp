#include "listctrl/model/table/type_to_find.h"

#include <algorithm>

#include "text/filter_pattern.h"

namespace mc {

std::optional<std::size_t> findRow(const RecordStore& rows, ColumnId column, std::size_t first,
                                   const CellSearch& search) {
    const auto fits = [&](std::size_t row) {
        const Slot slot = rows.slotAt(row);
        if (slot == kNoSlot) return false;
        const std::string_view cell = rows.texts().text(slot, column);
        if (cell.size() < search.text.size()) return false;
        if (search.whole && cell.size() != search.text.size()) return false;
        return std::equal(search.text.begin(), search.text.end(), cell.begin(),
                          [](char a, char b) { return lowerCase(a) == lowerCase(b); });
    };
    for (std::size_t row = first; row < rows.rowCount(); ++row)
        if (fits(row)) return row;
    const std::size_t end = search.wraps ? std::min(first, rows.rowCount()) : 0;
    for (std::size_t row = 0; row < end; ++row)
        if (fits(row)) return row;
    return std::nullopt;
}

std::optional<std::size_t> TypeToFind::type(char letter, std::uint32_t now, const RecordStore& rows,
                                            ColumnId column) {
    if (!typing(now)) m_text.clear();
    m_last = now;
    m_text += letter;
    const auto focused = rows.selection().focusedRow();
    const std::size_t next = focused ? *focused + 1 : 0;
    const std::size_t first = m_text.size() == 1 ? next : focused.value_or(0);
    if (const auto row = findRow(rows, column, first, {m_text})) return row;
    const bool repeated = m_text.find_first_not_of(letter) == std::string::npos;
    return repeated ? findRow(rows, column, next, {std::string_view(&letter, 1)}) : std::nullopt;
}

}  // namespace mc
