#include "listctrl/model/table/record_store.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "listctrl/model/table/text_sort.h"

namespace mc {

void RecordStore::setCellReader(CellReader reader) {
    m_texts.setReader(std::move(reader));
    dropTexts();
}

// ---- Records ----

std::optional<std::size_t> RecordStore::insertItem(std::size_t position, Slot slot) {
    if (!m_texts.hasReader()) return std::nullopt;
    growTo(slot);
    const bool inside = position != 0 && position < m_stored.size();
    if (!inside) position = m_stored.size();
    m_stored.insert(position, slot);
    m_texts.reread(slot);
    if (!passes(slot)) return position;
    if (m_order)
        show(slot, sortedRow(slot));
    else
        show(slot, inside ? std::min(position, m_visible.size()) : m_visible.size());
    return position;
}

RecordStore::Outcome RecordStore::deleteItem(std::size_t row) {
    if (row >= m_rowCount) return Outcome::nothingDone;
    const Slot slot = slotAt(row);
    if (slot == kNoSlot) return Outcome::rowWithoutRecord;
    removeRow(slot, row);
    return Outcome::done;
}

RecordStore::Outcome RecordStore::deleteStored(std::size_t position) {
    if (position >= m_stored.size()) return Outcome::nothingDone;
    deleteRecord(m_stored.at(position));
    return Outcome::done;
}

void RecordStore::deleteRecord(Slot slot) {
    if (const auto row = rowOf(slot))
        removeRow(slot, *row);
    else
        release(slot);
}

void RecordStore::removeRow(Slot slot, std::size_t row) {
    handOn(slot, row);
    m_changes.selection |= m_selection.forget(slot);
    hide(slot);
    release(slot);
}

void RecordStore::reset() {
    for (SlotSequence* sequence : {&m_stored, &m_visible}) {
        sequence->clear();
        sequence->homes() = {};
    }
    m_endSlot = 0;
    m_selection.reset();
    m_deselectedByFilter = 0;
    m_countedAt.reset();
    m_texts.drop();
    m_rowCount = 0;
    m_changes = {true, true, 0, RowChanges::kToTheEnd};
}

void RecordStore::refresh(Slot slot) {
    if (!m_texts.hasReader()) return;
    m_texts.reread(slot);
    filterAgain(slot);
}

void RecordStore::filterAgain(Slot slot) {
    const bool shown = m_visible.contains(slot);
    if (!passes(slot)) {
        if (!shown) return;
        deselectFiltered(slot);
        hide(slot);
    } else if (!shown) {
        show(slot, m_order ? sortedRow(slot) : storedRow(slot));
    } else {
        moveIntoOrder(slot, m_visible.rowOf(slot));
    }
}

void RecordStore::refreshShown(Slot slot) {
    m_texts.reread(slot);
    repaint(slot);
}

void RecordStore::touch(Slot slot) {
    if (m_judge && stores(slot)) return filterAgain(slot);
    repaint(slot);
}

void RecordStore::repaint(Slot slot) {
    if (slot >= m_endSlot || !m_visible.contains(slot)) return;
    const std::size_t row = m_visible.rowOf(slot);
    rowsChanged(row, row + 1);
}

void RecordStore::growTo(Slot slot) {
    if (slot < m_endSlot) return;
    m_endSlot = slot + 1;
    m_stored.homes().grow(m_endSlot);
    m_visible.homes().grow(m_endSlot);
    m_selection.grow(m_endSlot);
}

void RecordStore::release(Slot slot) {
    m_stored.remove(slot);
    m_texts.forget(slot);
}

// ---- Texts ----

std::string_view RecordStore::cellText(std::size_t row, ColumnId column) const {
    if (!m_texts.hasReader()) return "no data descriptor initialised";
    const Slot slot = slotAt(row);
    return slot != kNoSlot ? m_texts.read(slot, column) : std::string_view();
}

void RecordStore::dropTexts() {
    m_numbersSorted.reset();
    m_texts.drop();
    m_passing = {};
}

DistinctValues RecordStore::distinctValues(ColumnId column, ValueOrder order) {
    if (!m_texts.hasReader()) return {};
    return m_texts.column(column, m_stored).distinct(m_stored, passing(column), order);
}

// ---- Filters ----

RecordStore::Outcome RecordStore::filter() {
    if (!m_texts.hasReader()) return Outcome::nothingDone;
    if (!m_filters.judge()) {
        replaceRows({});
        return Outcome::filtersUneven;
    }
    std::vector<Slot>& rows = passing();
    if (m_order) sortRows(rows, *m_order);
    replaceRows(rows);
    m_rowCount = m_visible.size();
    m_changes.count = true;
    return Outcome::done;
}

bool RecordStore::passes(Slot slot) const {
    const auto& active = m_filters.active();
    return (!m_judge || m_judge(slot)) &&
           std::all_of(active.begin(), active.end(),
                       [&](const ActiveFilter& filter) { return passes(slot, filter); });
}

bool RecordStore::passes(Slot slot, const ActiveFilter& filter) const {
    return filter.pattern.matches(text(slot, filter.column));
}

// The records that filters and arrangement let through, as if one column had no filter.
std::vector<Slot>& RecordStore::passing(std::optional<ColumnId> unfiltered) {
    std::vector<Slot>& slots = m_passing;
    m_stored.copyTo(slots);
    for (const ActiveFilter& filter : m_filters.active()) {
        if (filter.pattern.matchesEverything() || filter.column == unfiltered) continue;
        // A few that are left are tried one by one rather than all texts of the column; more of
        // them when those would have to be read first.
        const std::size_t share = m_texts.keeps(filter.column) ? 512 : 16;
        if (slots.size() < m_stored.size() / share)
            std::erase_if(slots, [&](Slot slot) { return !passes(slot, filter); });
        else
            m_texts.column(filter.column, m_stored).keepMatching(filter.pattern, slots);
    }
    if (m_judge) std::erase_if(slots, [this](Slot slot) { return !m_judge(slot); });
    if (m_arrange) m_arrange(slots);
    return slots;
}

void RecordStore::replaceRows(const std::vector<Slot>& slots) {
    m_visible.assign(slots);
    std::vector<Slot> held = m_selection.slots();
    held.insert(held.end(), {m_selection.focus(), m_selection.anchor()});
    for (const Slot slot : held)
        if (slot != kNoSlot && !m_visible.contains(slot)) deselectFiltered(slot);
    rowsChanged(0, RowChanges::kToTheEnd);
}

// ---- Order ----

void RecordStore::sort(const SortOrder& order) {
    m_order = order;
    if (!m_texts.hasReader()) return;
    std::vector<Slot> rows;
    m_visible.copyTo(rows);
    sortRows(rows, order);
    replaceRows(rows);
}

// The first sort of a column of numbers reads them from the records: keeping their texts costs more
// than the sort. It pays from the second on.
void RecordStore::sortRows(std::vector<Slot>& rows, const SortOrder& order) {
    const bool first = m_numbersSorted != order.column && !m_texts.keeps(order.column);
    if (!first || !isNumeric(order.comparison))
        return m_texts.column(order.column, m_stored).sort(rows, order.comparison, order.direction);
    m_numbersSorted = order.column;
    std::vector<Keyed> items(rows.size()), scratch(rows.size());
    const std::uint64_t turned = order.direction < 0 ? 0 : ~std::uint64_t{0};
    for (std::size_t i = 0; i < items.size(); ++i)
        items[i] = {sortKey(order.comparison, text(rows[i], order.column)) ^ turned, rows[i]};
    sortByKey(items, scratch);
    for (std::size_t i = 0; i < items.size(); ++i) rows[i] = items[i].value;
}

void RecordStore::unsort() {
    m_order.reset();
    std::vector<Slot> rows;
    rows.reserve(m_visible.size());
    m_stored.forEach([&](Slot slot) {
        if (m_visible.contains(slot)) rows.push_back(slot);
    });
    replaceRows(rows);
}

// The first row of which `before` does not hold, by halves.
template <class Before>
std::size_t RecordStore::firstNot(Before before) const {
    std::size_t first = 0;
    for (std::size_t count = m_visible.size(); count > 0;) {
        const std::size_t half = count / 2;
        if (before(m_visible.at(first + half))) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first;
}

// Where the order wants a record that is not shown yet: behind its equals.
std::size_t RecordStore::sortedRow(Slot slot) const {
    const std::string own(text(slot, m_order->column));
    return firstNot(
        [&](Slot other) { return compareRows(*m_order, text(other, m_order->column), own) <= 0; });
}

// Where it lies among the rows in stored order.
std::size_t RecordStore::storedRow(Slot slot) const {
    const std::size_t own = m_stored.rowOf(slot);
    return firstNot([&](Slot other) { return m_stored.rowOf(other) < own; });
}

bool RecordStore::inOrder(Slot slot, std::size_t mapRow) const {
    const std::string own(text(slot, m_order->column));
    const auto compareTo = [&](std::size_t row) {
        return compareRows(*m_order, own, text(m_visible.at(row), m_order->column));
    };
    return (mapRow == 0 || compareTo(mapRow - 1) >= 0) &&
           (mapRow + 1 == m_visible.size() || compareTo(mapRow + 1) <= 0);
}

// ---- Rows ----

Slot RecordStore::slotAt(std::size_t row) const {
    if (row >= m_rowCount) return kNoSlot;
    const std::size_t at = mapRow(row);
    return at < m_visible.size() ? m_visible.at(at) : kNoSlot;
}

std::optional<std::size_t> RecordStore::rowOf(Slot slot) const {
    if (slot >= m_endSlot || !m_visible.contains(slot)) return {};
    return mapRow(m_visible.rowOf(slot));
}

void RecordStore::setReversed(bool reversed) {
    m_reversed = reversed;
    rowsChanged(0, RowChanges::kToTheEnd);
}

void RecordStore::show(Slot slot, std::size_t mapRow) {
    m_visible.insert(mapRow, slot);
    ++m_rowCount;
    m_changes.count = true;
    rowsChanged(mapRow, RowChanges::kToTheEnd);
}

void RecordStore::hide(Slot slot) {
    const std::size_t mapRow = m_visible.remove(slot);
    --m_rowCount;
    m_changes.count = true;
    rowsChanged(mapRow, RowChanges::kToTheEnd);
}

// A stored record is out of sight: nothing of the selection is left with it.
void RecordStore::deselectFiltered(Slot slot) {
    if (m_selection.selected(slot)) ++m_deselectedByFilter;
    m_changes.selection |= m_selection.forget(slot);
}

// A shown record changed: moves it if the order wants it.
void RecordStore::moveIntoOrder(Slot slot, std::size_t mapRow) {
    std::size_t to = mapRow;
    if (m_order && !inOrder(slot, mapRow)) {
        m_visible.remove(slot);
        to = sortedRow(slot);
        m_visible.insert(to, slot);
    }
    rowsChanged(std::min(mapRow, to), std::max(mapRow, to) + 1);
}

// What a row that goes had of selection, focus and anchor goes to its neighbour.
void RecordStore::handOn(Slot slot, std::size_t row) {
    const Slot after = slotAt(row + 1);
    if (after != kNoSlot && m_selection.selected(slot))
        m_changes.selection |= m_selection.select(after, true, RowSelection::By::list);
    const Slot heir = after != kNoSlot || row == 0 ? after : slotAt(row - 1);
    m_changes.selection |= m_selection.handOn(slot, heir);
}

void RecordStore::rowsChanged(std::size_t first, std::size_t last) {
    if (m_reversed && last == RowChanges::kToTheEnd) first = 0;
    if (m_reversed && last != RowChanges::kToTheEnd)
        std::tie(first, last) = std::pair(m_rowCount - last, m_rowCount - first);
    if (!m_selectedRows.empty() && m_selectedRows.back() >= first) m_countedAt.reset();
    const bool none = m_changes.first == m_changes.last;
    m_changes.first = none ? first : std::min(m_changes.first, first);
    m_changes.last = none ? last : std::max(m_changes.last, last);
}

RowChanges RecordStore::takeChanges() {
    return std::exchange(m_changes, {});
}

// ---- Selection, focus and anchor ----

void RecordStore::select(std::size_t row, bool on) {
    const Slot slot = slotAt(row);
    if (slot != kNoSlot) selectionMade(m_selection.select(slot, on));
}

void RecordStore::selectAll() {
    m_visible.forEach([&](Slot slot) { selectionMade(m_selection.select(slot, true)); });
}

void RecordStore::clearSelection() {
    selectionMade(m_selection.clear());
}

void RecordStore::selectionMade(bool changed) {
    if (!changed) return;
    m_changes.selection = true;
    m_deselectedByFilter = 0;
}

bool RecordStore::selected(std::size_t row) const {
    const Slot slot = slotAt(row);
    return slot != kNoSlot && m_selection.selected(slot);
}

const std::vector<std::size_t>& RecordStore::selectedRows() const {
    if (m_countedAt == m_selection.revision()) return m_selectedRows;
    m_countedAt = m_selection.revision();
    m_selectedRows.clear();
    if (m_selection.count() == 0) return m_selectedRows;
    m_selectedRows.reserve(m_selection.count());
    if (m_selection.count() < m_visible.size() / 64) {
        for (const Slot slot : m_selection.slots()) m_selectedRows.push_back(*rowOf(slot));
        std::sort(m_selectedRows.begin(), m_selectedRows.end());
        return m_selectedRows;
    }
    std::size_t at = 0;
    m_visible.forEach([&](Slot slot) {
        if (m_selection.selected(slot)) m_selectedRows.push_back(mapRow(at));
        ++at;
    });
    if (m_reversed) std::reverse(m_selectedRows.begin(), m_selectedRows.end());
    return m_selectedRows;
}

// Finding the record of each of many rows would take longer than going over them all.
std::vector<Slot> RecordStore::selectedInOrder() const {
    std::vector<Slot> slots;
    slots.reserve(m_selection.count());
    if (m_selection.count() < m_visible.size() / 64) {
        for (const std::size_t row : selectedRows()) slots.push_back(slotAt(row));
        return slots;
    }
    forEachVisible([&](Slot slot) {
        if (m_selection.selected(slot)) slots.push_back(slot);
    });
    if (m_reversed) std::reverse(slots.begin(), slots.end());
    return slots;
}

void RecordStore::setFocus(std::size_t row) {
    m_changes.selection |= m_selection.setFocus(slotAt(row));
}

void RecordStore::setAnchor(std::size_t row) {
    m_changes.selection |= m_selection.setAnchor(slotAt(row));
}

std::optional<std::size_t> RecordStore::focusedRow() const {
    return rowOf(m_selection.focus());
}

std::optional<std::size_t> RecordStore::anchorRow() const {
    return rowOf(m_selection.anchor());
}

const char* messageOf(RecordStore::Outcome outcome) {
    switch (outcome) {
        case RecordStore::Outcome::rowWithoutRecord:
            return "Delete item: Item not found";
        case RecordStore::Outcome::filtersUneven:
            return "Error occured while filtering";
        case RecordStore::Outcome::done:
        case RecordStore::Outcome::nothingDone:
            break;
    }
    return nullptr;
}

}  // namespace mc
