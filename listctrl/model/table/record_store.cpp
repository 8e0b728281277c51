#include "listctrl/model/table/record_store.h"

#include <algorithm>
#include <vector>

namespace mc {

std::string_view RecordStore::cellText(std::size_t row, ColumnId column) const {
    if (!m_texts.hasReader()) return "no data descriptor initialised";
    const Slot slot = slotAt(row);
    return slot != kNoSlot ? m_texts.read(slot, column) : std::string_view();
}

// ---- Records ----

std::optional<std::size_t> RecordStore::insertItem(std::size_t position, Slot slot) {
    if (!m_texts.hasReader()) return std::nullopt;
    const bool inside = position != 0 && position < stored().size();
    if (!inside) position = stored().size();
    m_rows.store(position, slot);
    m_texts.reread(slot);
    try {
        if (m_passing.passes(slot)) m_rows.show(slot, indexOfNew(slot, inside ? position : kEnd));
    } catch (...) {
        deleteRecord(slot);
        throw;
    }
    return position;
}

std::size_t RecordStore::indexOfNew(Slot slot, std::size_t position) const {
    if (!m_order.isStored()) return m_order.indexFor(slot);
    return std::min(position, visible().order().size());
}

RecordStore::Outcome RecordStore::deleteItem(std::size_t row) {
    if (row >= rowCount()) return Outcome::nothingDone;
    const Slot slot = slotAt(row);
    if (slot == kNoSlot) return Outcome::rowWithoutRecord;
    deleteRecord(slot);
    return Outcome::done;
}

RecordStore::Outcome RecordStore::deleteStored(std::size_t position) {
    if (position >= stored().size()) return Outcome::nothingDone;
    deleteRecord(stored().at(position));
    return Outcome::done;
}

void RecordStore::deleteRecord(Slot slot) {
    m_rows.remove(slot);
    m_texts.forget(slot);
}

void RecordStore::reset() {
    m_rows.reset();
    m_texts.drop();
}

void RecordStore::refresh(Slot slot) {
    if (!m_texts.hasReader()) return;
    m_texts.reread(slot);
    judgeAndPlace(slot);
}

void RecordStore::judgeAgain(Slot slot) {
    if (m_passing.hasJudge() && stored().contains(slot)) judgeAndPlace(slot);
}

void RecordStore::judgeAndPlace(Slot slot) {
    const SlotSequence& rows = visible().order();
    const bool shown = rows.contains(slot);
    if (!m_passing.passes(slot)) {
        if (shown) m_rows.hide(slot);
    } else if (!shown) {
        m_rows.show(slot, m_order.indexFor(slot));
    } else if (!m_order.fits(rows.rowOf(slot))) {
        m_rows.move(slot, m_order.indexFor(slot));
    }
}

// ---- Filters ----

RecordStore::Outcome RecordStore::filter() {
    if (!m_texts.hasReader()) return Outcome::nothingDone;
    RowFilters before = filters();
    try {
        return filterNow();
    } catch (...) {
        filters() = std::move(before);  // what judges records is what the rows passed
        throw;
    }
}

RecordStore::Outcome RecordStore::filterNow() {
    if (!filters().apply()) {
        m_rows.replaceRows({});
        return Outcome::filtersUneven;
    }
    std::vector<Slot>& rows = m_passing.all();
    m_order.arrange(rows);
    m_rows.replaceRows(rows);
    m_rows.recount();
    return Outcome::done;
}

DistinctValues RecordStore::distinctValues(ColumnId column, ValueOrder order) {
    if (!m_texts.hasReader()) return {};
    return m_texts.column(column, stored()).distinct(stored(), m_passing.all(column), order);
}

// ---- Order ----

void RecordStore::sort(const SortOrder& order) {
    const std::optional<SortOrder> before = m_order.get();
    m_order.set(order);
    if (!m_texts.hasReader()) return;
    try {
        std::vector<Slot> rows;
        visible().order().copyTo(rows);
        m_order.arrange(rows);
        m_rows.replaceRows(rows);
    } catch (...) {
        m_order.set(before);  // the one that the rows are in
        throw;
    }
}

void RecordStore::unsort() {
    std::vector<Slot> rows;
    rows.reserve(visible().order().size());
    stored().forEach([&](Slot slot) {
        if (visible().order().contains(slot)) rows.push_back(slot);
    });
    m_rows.replaceRows(rows);
    m_order.set({});
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
