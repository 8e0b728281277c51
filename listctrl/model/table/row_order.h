// The order of a list's rows: by the texts of a column, or else that in which records are stored.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "listctrl/model/table/cell_texts.h"
#include "listctrl/model/table/row_table.h"
#include "listctrl/model/table/sort_order.h"

namespace mc {

class RowOrder {
public:
    // Both must outlive the object.
    RowOrder(CellTexts& texts, const RowTable& rows) : m_texts(texts), m_rows(rows) {}

    // From now on rows are to be in this order; none is the stored one. Moves none.
    void set(std::optional<SortOrder> order) { m_order = order; }
    bool isStored() const { return !m_order; }
    const std::optional<SortOrder>& order() const { return m_order; }

    // Puts records that are in stored order, or in one that equal ones are to keep, into an order.
    // Costs one pass over them and, where the column's texts are not yet ranked, one over these.
    void arrange(std::vector<Slot>& slots, const std::optional<SortOrder>& order,
                 const LongWork& work);

    // The index that a stored record should get among the rows of the others: behind its equals.
    std::size_t indexFor(Slot slot) const;

    // Whether the visible record at an index fits between its neighbours.
    bool fits(std::size_t index) const;

private:
    void sortByNumbers(std::vector<Slot>& slots, const SortOrder& order,
                       const LongWork& work) const;

    CellTexts& m_texts;
    const RowTable& m_rows;
    std::optional<SortOrder> m_order;
};

}  // namespace mc
