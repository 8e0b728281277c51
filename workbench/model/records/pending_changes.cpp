#include "workbench/model/records/pending_changes.h"

namespace mc {

PendingChanges::PendingChanges(RecordsView& view)
    : m_view(view),
      m_states(m_rows, view),
      m_quickFilter(
          m_rows, m_states,
          [this](Slot slot) { return m_related.halfOf(slot) != RelatedChanges::Half::none; },
          [this](Slot slot) { return m_related.sameAs(slot); }) {
    m_rows.texts().setReader(
        [this](Slot slot, ColumnId column) { return m_table.cellText(slot, column); });
    m_table.shareWith(m_rows.texts());
}

// ---- Reading ----

std::optional<PendingChange> PendingChanges::recordIn(Slot slot) const {
    return isPending(slot) ? std::optional(m_table.read(slot)) : std::nullopt;
}

std::optional<PendingChange> PendingChanges::findRecord(std::string_view key) const {
    const Slot slot = m_index.find(key);
    return slot != kNoSlot ? std::optional(m_table.read(slot)) : std::nullopt;
}

Slot PendingChanges::find(std::string_view key) const {
    const Slot slot = m_index.find(key);
    if (slot == kNoSlot) return slot;
    m_table.prefetch(slot);
    m_states.prefetch(slot);
    for (const SlotSequence* rows : {&m_rows.stored(), &m_rows.visible().order()})
        rows->prefetch(slot);
    return slot;
}

bool PendingChanges::selected(std::string_view key) const {
    const auto row = m_rows.rowOf(m_index.find(key));
    return row && m_rows.selection().selected(*row);
}

// ---- Changes that come, change and go ----

void PendingChanges::addRecord(std::string_view key, const ChangeTexts& texts, Origin origin) {
    const Slot free = m_slots.take();
    const Slot slot = free != kNoSlot ? free : m_table.grow();
    if (slot == free) m_table.wipe(slot);
    bool listed = false;
    try {
        listed = list(slot, key, texts, origin);
    } catch (...) {
        unlist(slot, key);
        throw;
    }
    if (listed) return m_view.rowsChanged();
    unlist(slot, key);
}

bool PendingChanges::list(Slot slot, std::string_view key, const ChangeTexts& texts,
                          Origin origin) {
    m_table.setKey(slot, key);
    if (!m_index.insert(key, slot)) return false;
    m_table.write(slot, texts);
    m_states.came(slot, origin);
    m_rows.insertItem(m_rows.stored().size(), slot);
    m_related.came(slot);
    return true;
}

// What list() has done of its work is undone, if it did not come to its end.
void PendingChanges::unlist(Slot slot, std::string_view key) noexcept {
    m_states.ended(slot);
    if (m_index.find(key) == slot) m_index.erase(key);
    m_slots.giveBack(slot);
}

void PendingChanges::removeRecord(std::string_view key) {
    const Slot slot = m_index.erase(key);
    if (slot == kNoSlot) return;
    m_related.goes(slot);
    m_states.ended(slot);
    m_rows.deleteRecord(slot);
    m_slots.left(slot);
    m_view.rowsChanged();
}

bool PendingChanges::rewriteRecord(Slot slot, const ChangeTexts& texts, Origin origin) {
    if (!m_rows.stored().contains(slot)) return false;
    const ChangeTable::Difference different = m_table.compare(slot, texts);
    if (different.about) m_related.goes(slot);
    try {
        if (different.any) m_table.write(slot, texts);
    } catch (...) {
        if (different.about) m_related.came(slot);
        throw;
    }
    m_states.cameAgain(slot, different.any, origin);
    if (different.about) m_related.came(slot);
    return true;
}

void PendingChanges::refreshRecord(Slot slot, const ChangeTexts& texts, Origin origin) {
    if (!rewriteRecord(slot, texts, origin)) return;
    m_rows.refresh(slot);
    m_view.rowsChanged();
}

void PendingChanges::clearAllRecords() {
    for (std::size_t i = 0; i < size() && m_slots.held(); ++i) m_slots.left(m_rows.stored().at(i));
    m_rows.reset();
    m_states.clear();
    m_index.clear();
    m_related.clear();
    if (m_slots.held()) return;
    m_table.clear();
    m_slots.clear();
}

}  // namespace mc
