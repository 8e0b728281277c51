#include "listctrl/model/table/record_store.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace mc {

std::string_view RecordStore::cellText(std::size_t row, ColumnId column) const {
    if (!m_texts.hasReader()) return "no data descriptor initialised";
    const Slot slot = slotAt(row);
    return slot != kNoSlot ? m_texts.read(slot, column) : std::string_view();
}

// ---- Records ----

RecordStore::Outcome RecordStore::insertItem(std::size_t position, Slot slot) {
    if (!m_texts.hasReader()) return Outcome::nothingDone;
    ++m_changes;
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
    return Outcome::done;
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
    ++m_changes;
    m_rows.remove(slot);
    m_texts.forget(slot);
}

void RecordStore::reset() {
    ++m_changes;
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
    ++m_changes;
    const SlotSequence& rows = visible().order();
    const bool shown = rows.contains(slot);
    if (!m_passing.passes(slot)) {
        if (shown) m_rows.hide(slot);
    } else if (!shown) {
        m_rows.show(slot, m_order.indexFor(slot));
    } else if (!m_order.isStored() && !m_order.fits(rows.rowOf(slot))) {
        m_rows.move(slot, m_order.indexFor(slot));
    }
}

// ---- Passes over all ----

// False: it was ended. A record that comes, changes or goes at a question leaves on the way what a
// pass must not go on with.
template <class Pass>
bool RecordStore::goThrough(const LongWork& work, Pass pass) {
    const auto changes = [this] { return m_changes + m_texts.drops(); };
    const std::uint64_t before = changes();
    const LongWork watched =
        work.isAsked()
            ? LongWork([&] { return work.goesOn() && changes() == before; }, work.between())
            : LongWork();
    try {
        pass(watched);
    } catch (const LongWork::Ended&) {
        if (changes() == before) return false;
        pass({});
    }
    ++m_changes;
    return true;
}

RecordStore::Outcome RecordStore::filter(const LongWork& work) {
    if (!m_texts.hasReader()) return Outcome::nothingDone;
    // What judges records is what the rows passed, whatever ends the pass.
    struct Scope {
        RowFilters& filters;
        RowFilters before = filters;
        bool done = false;
        ~Scope() {
            if (!done) filters = std::move(before);
        }
    } scope{filters()};
    if (!filters().apply()) {
        scope.done = true;
        m_rows.replaceRows({});
        return Outcome::filtersUneven;
    }
    scope.done = goThrough(work, [this](const LongWork& watched) { showPassing(watched); });
    return scope.done ? Outcome::done : Outcome::ended;
}

void RecordStore::showPassing(const LongWork& work) {
    std::vector<Slot>& rows = m_passing.all(work);
    m_order.arrange(rows, m_order.order(), work);
    m_rows.replaceRows(rows);
    m_rows.recount();
}

std::optional<DistinctValues> RecordStore::distinctValues(ColumnId column, ValueOrder order,
                                                          const LongWork& work) {
    DistinctValues values;
    const auto find = [&](const LongWork& watched) {
        values = m_texts.column(column, stored(), watched)
                     .distinct(stored(), m_passing.all(watched, column), order, watched);
    };
    if (m_texts.hasReader() && !goThrough(work, find)) return std::nullopt;
    return values;
}

// ---- Order ----

RecordStore::Outcome RecordStore::sort(const SortOrder& order, const LongWork& work) {
    if (!m_texts.hasReader()) {
        m_order.set(order);
        return Outcome::nothingDone;
    }
    const bool sorted = goThrough(work, [&](const LongWork& watched) {
        std::vector<Slot> rows;
        visible().order().copyTo(rows);
        m_order.arrange(rows, order, watched);
        m_rows.replaceRows(rows);
        m_order.set(order);
    });
    return sorted ? Outcome::done : Outcome::ended;
}

void RecordStore::unsort() {
    ++m_changes;
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
        case RecordStore::Outcome::ended:
            break;
    }
    return nullptr;
}

}  // namespace mc
