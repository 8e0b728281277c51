#include "listctrl/model/table/record_store.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "listctrl/model/table/text_sort.h"

namespace mc {

void RecordStore::setCellReader(CellReader reader) {
    m_reader = std::move(reader);
    dropTexts();
}

// ---- Records ----

RecordStore::Inserted RecordStore::insertItem(std::size_t position, void* record) {
    if (!m_reader) return {};
    const Slot slot = newSlot(record);
    const bool inside = position != 0 && position < m_stored.size();
    if (!inside) position = m_stored.size();
    m_stored.insert(position, slot);
    readTexts(slot);
    if (!passes(slot)) return {position, slot};
    if (m_order)
        show(slot, sortedRow(slot));
    else
        show(slot, inside ? std::min(position, m_visible.size()) : m_visible.size());
    return {position, slot};
}

RecordStore::Outcome RecordStore::deleteItem(std::size_t row) {
    if (row >= m_rowCount) return {};
    const Slot slot = slotAt(row);
    if (slot == kNoSlot) return {0, "Delete item: Item not found"};
    removeRow(slot, row);
    return {1};
}

RecordStore::Outcome RecordStore::deleteStored(std::ptrdiff_t position) {
    if (position < 0 || static_cast<std::size_t>(position) >= m_stored.size()) return {};
    deleteRecord(m_stored.at(static_cast<std::size_t>(position)));
    return {1};
}

void RecordStore::deleteRecord(Slot slot) {
    if (const auto row = rowOf(slot))
        removeRow(slot, *row);
    else
        release(slot);
}

void RecordStore::removeRow(Slot slot, std::size_t row) {
    handOn(slot, row);
    hide(slot);
    release(slot);
}

int RecordStore::reset() {
    for (SlotSequence* sequence : {&m_stored, &m_visible}) {
        sequence->clear();
        sequence->homes() = {};
    }
    m_records.clear();
    m_free.clear();
    m_selection.reset();
    m_countedAt.reset();
    m_texts.clear();
    m_rowCount = 0;
    m_changes = {true, true, 0, RowChanges::kToTheEnd};
    return 1;
}

void RecordStore::refresh(Slot slot) {
    if (!m_reader) return;
    readTexts(slot);
    const bool shown = m_visible.contains(slot);
    if (!passes(slot)) {
        if (shown) hide(slot);
    } else if (!shown) {
        show(slot, m_order ? sortedRow(slot) : storedRow(slot));
    } else {
        place(slot, m_visible.rowOf(slot));
    }
}

void RecordStore::refreshShown(Slot slot) {
    readTexts(slot);
    if (m_visible.contains(slot)) {
        const std::size_t row = m_visible.rowOf(slot);
        rowsChanged(row, row + 1);
    }
}

Slot RecordStore::newSlot(void* record) {
    if (!m_free.empty()) {
        const Slot slot = m_free.back();
        m_free.pop_back();
        m_records[slot] = record;
        return slot;
    }
    m_records.push_back(record);
    m_stored.homes().grow(m_records.size());
    m_visible.homes().grow(m_records.size());
    m_selection.grow(m_records.size());
    return static_cast<Slot>(m_records.size() - 1);
}

void RecordStore::release(Slot slot) {
    m_stored.remove(slot);
    for (auto& [column, kept] : m_texts) kept.set(slot, {});
    std::erase_if(m_texts, [](const auto& kept) { return kept.second.worn(); });
    m_records[slot] = nullptr;
    m_free.push_back(slot);
}

// ---- Texts ----

ColumnTexts& RecordStore::keptTexts(int column) {
    const auto [at, fresh] = m_texts.try_emplace(column);
    ColumnTexts& kept = at->second;
    if (!fresh) return kept;
    kept.grow(m_records.size());
    m_stored.forEach([&](Slot slot) { kept.set(slot, m_reader(m_records[slot], column)); });
    return kept;
}

void RecordStore::readTexts(Slot slot) {
    for (auto& [column, kept] : m_texts) kept.set(slot, m_reader(m_records[slot], column));
    std::erase_if(m_texts, [](const auto& kept) { return kept.second.worn(); });
}

// As kept, or else as read.
std::string_view RecordStore::text(Slot slot, int column) const {
    const auto kept = m_texts.find(column);
    return kept != m_texts.end() ? kept->second.text(slot) : m_reader(m_records[slot], column);
}

std::string_view RecordStore::cellText(std::size_t row, int column) const {
    if (!m_reader) return "no data descriptor initialised";
    const Slot slot = slotAt(row);
    return slot != kNoSlot ? m_reader(m_records[slot], column) : std::string_view();
}

void RecordStore::dropTexts() {
    m_numbersSorted = -1;
    m_texts.clear();
    m_passing = {};
}

DistinctValues RecordStore::distinctValues(int column, std::size_t limit) {
    return m_reader ? keptTexts(column).distinct(m_stored, limit) : DistinctValues{};
}

// ---- Filters ----

void RecordStore::setFilter(int column, std::string_view text, FilterKind kind) {
    m_filters.resize(m_filterColumns.size());
    const auto found = std::find(m_filterColumns.begin(), m_filterColumns.end(), column);
    const auto filter = m_filters.begin() + (found - m_filterColumns.begin());
    if (found == m_filterColumns.end()) {
        if (text.empty()) return;
        m_filterColumns.push_back(column);
        m_filters.push_back({std::string(text), kind});
    } else if (text.empty()) {
        m_filterColumns.erase(found);
        m_filters.erase(filter);
    } else {
        *filter = {std::string(text), kind};
    }
}

void RecordStore::setFilters(std::vector<int> columns, std::vector<ColumnFilter> filters) {
    m_filterColumns = std::move(columns);
    m_filters = std::move(filters);
}

void RecordStore::clearFilters() {
    setFilters({}, {});
}

ColumnFilter RecordStore::filterOf(int column) const {
    const auto found = std::find(m_filterColumns.begin(), m_filterColumns.end(), column);
    const auto place = static_cast<std::size_t>(found - m_filterColumns.begin());
    return place < m_filters.size() ? m_filters[place] : ColumnFilter{};
}

RecordStore::Outcome RecordStore::filter() {
    if (!m_reader) return {};
    if (m_filterColumns.size() != m_filters.size()) {
        replaceRows({});
        return {0, "Error occured while filtering"};
    }
    m_active.clear();
    for (std::size_t i = 0; i < m_filterColumns.size(); ++i)
        m_active.push_back(
            {m_filterColumns[i],
             FilterPattern(m_filters[i].text, m_exactOnce || m_matchExactly, m_filters[i].kind)});
    m_exactOnce = false;
    std::vector<Slot>& rows = passing();
    if (m_arrange) m_arrange(rows);
    if (m_order) sortRows(rows, *m_order);
    replaceRows(rows);
    m_rowCount = m_visible.size();
    m_changes.count = true;
    return {1};
}

bool RecordStore::passes(Slot slot) const {
    return std::all_of(m_active.begin(), m_active.end(),
                       [&](const ActiveFilter& filter) { return passes(slot, filter); });
}

bool RecordStore::passes(Slot slot, const ActiveFilter& filter) const {
    return filter.pattern.matches(text(slot, filter.column));
}

std::vector<Slot>& RecordStore::passing() {
    std::vector<Slot>& slots = m_passing;
    m_stored.copyTo(slots);
    for (const ActiveFilter& filter : m_active) {
        if (filter.pattern.matchesEverything()) continue;
        // A few that are left are tried one by one rather than all texts of the column; more of
        // them when those would have to be read first.
        const std::size_t share = m_texts.contains(filter.column) ? 512 : 16;
        if (slots.size() < m_stored.size() / share)
            std::erase_if(slots, [&](Slot slot) { return !passes(slot, filter); });
        else
            keptTexts(filter.column).keepMatching(filter.pattern, slots);
    }
    return slots;
}

void RecordStore::replaceRows(const std::vector<Slot>& slots) {
    m_visible.assign(slots);
    for (Slot slot = 0; slot < m_records.size() && m_selection.any(); ++slot)
        if (!m_visible.contains(slot)) m_changes.selection |= m_selection.forget(slot);
    rowsChanged(0, RowChanges::kToTheEnd);
}

// ---- Order ----

void RecordStore::sort(const SortOrder& order) {
    m_order = order;
    if (!m_reader) return;
    std::vector<Slot> rows;
    m_visible.copyTo(rows);
    sortRows(rows, order);
    replaceRows(rows);
}

// The first sort of a column of numbers reads them from the records: keeping their texts costs more
// than the sort. It pays from the second on.
void RecordStore::sortRows(std::vector<Slot>& rows, const SortOrder& order) {
    const bool first = m_numbersSorted != order.column && !m_texts.contains(order.column);
    if (!first || !isNumeric(order.comparison))
        return keptTexts(order.column).sort(rows, order.comparison, order.direction);
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

// Where it stands among the rows in stored order.
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

void* RecordStore::recordAt(std::size_t row) const {
    const Slot slot = slotAt(row);
    return slot != kNoSlot ? m_records[slot] : nullptr;
}

std::optional<std::size_t> RecordStore::rowOf(Slot slot) const {
    if (slot >= m_records.size() || !m_visible.contains(slot)) return {};
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
    m_changes.selection |= m_selection.forget(slot);
    const std::size_t mapRow = m_visible.remove(slot);
    --m_rowCount;
    m_changes.count = true;
    rowsChanged(mapRow, RowChanges::kToTheEnd);
}

// A shown record changed: moves it if the order wants it.
void RecordStore::place(Slot slot, std::size_t mapRow) {
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
        m_changes.selection |= m_selection.select(after, true);
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
    if (slot != kNoSlot) m_changes.selection |= m_selection.select(slot, on);
}

void RecordStore::selectAll() {
    m_visible.forEach([&](Slot slot) { m_changes.selection |= m_selection.select(slot, true); });
}

void RecordStore::clearSelection() {
    m_changes.selection |= m_selection.clear();
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
    std::size_t at = 0;
    m_visible.forEach([&](Slot slot) {
        if (m_selection.selected(slot)) m_selectedRows.push_back(mapRow(at));
        ++at;
    });
    if (m_reversed) std::reverse(m_selectedRows.begin(), m_selectedRows.end());
    return m_selectedRows;
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

}  // namespace mc
