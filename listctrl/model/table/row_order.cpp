#include "listctrl/model/table/row_order.h"

#include <cstdint>
#include <string>

#include "listctrl/model/table/text_sort.h"

namespace mc {

void RowOrder::arrange(std::vector<Slot>& slots, const std::optional<SortOrder>& order,
                       const LongWork& work) {
    if (!order) return;
    if (isNumeric(order->comparison) && m_texts.readsOnce(order->column))
        return sortByNumbers(slots, *order, work);
    m_texts.column(order->column, m_rows.stored(), work)
        .sort(slots, order->comparison, order->direction, work);
}

void RowOrder::sortByNumbers(std::vector<Slot>& slots, const SortOrder& order,
                             const LongWork& work) const {
    std::vector<Keyed> items(slots.size()), scratch(slots.size());
    const std::uint64_t turned = order.direction < 0 ? 0 : ~std::uint64_t{0};
    for (std::size_t i = 0; i < items.size(); ++i) {
        items[i] = {sortKey(order.comparison, m_texts.text(slots[i], order.column)) ^ turned,
                    slots[i]};
        work.did();
    }
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
