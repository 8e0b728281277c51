#include "listctrl/model/table/row_order.h"

#include <cstdint>
#include <string>

#include "listctrl/model/table/text_sort.h"

namespace mc {

void RowOrder::arrange(std::vector<Slot>& slots) {
    if (!m_order) return;
    if (isNumeric(m_order->comparison) && m_texts.readsOnce(m_order->column))
        return sortByNumbers(slots);
    m_texts.column(m_order->column, m_rows.stored())
        .sort(slots, m_order->comparison, m_order->direction);
}

void RowOrder::sortByNumbers(std::vector<Slot>& slots) const {
    std::vector<Keyed> items(slots.size()), scratch(slots.size());
    const std::uint64_t turned = m_order->direction < 0 ? 0 : ~std::uint64_t{0};
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i] = {sortKey(m_order->comparison, m_texts.text(slots[i], m_order->column)) ^ turned,
                    slots[i]};
    sortByKey(items, scratch);
    for (std::size_t i = 0; i < items.size(); ++i) slots[i] = items[i].value;
}

std::size_t RowOrder::indexFor(Slot slot) const {
    const VisibleRows& visible = m_rows.visible();
    const std::size_t now =
        visible.order().contains(slot) ? visible.order().rowOf(slot) : VisibleRows::kNone;
    if (!m_order) {
        const std::size_t own = m_rows.stored().rowOf(slot);
        return visible.firstNot([&](Slot other) { return m_rows.stored().rowOf(other) < own; },
                                now);
    }
    const std::string own(m_texts.text(slot, m_order->column));
    return visible.firstNot(
        [&](Slot other) {
            return compareRows(*m_order, m_texts.text(other, m_order->column), own) <= 0;
        },
        now);
}

bool RowOrder::fits(std::size_t index) const {
    if (!m_order) return true;
    const SlotSequence& visible = m_rows.visible().order();
    const std::string own(m_texts.text(visible.at(index), m_order->column));
    const auto compareTo = [&](std::size_t other) {
        return compareRows(*m_order, own, m_texts.text(visible.at(other), m_order->column));
    };
    return (index == 0 || compareTo(index - 1) >= 0) &&
           (index + 1 == visible.size() || compareTo(index + 1) <= 0);
}

}  // namespace mc
