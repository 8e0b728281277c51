#include "listctrl/model/table/cell_texts.h"

#include <new>

namespace mc {

void CellTexts::setReader(CellReader reader) {
    m_reader = std::move(reader);
    drop();
}

const ColumnTexts* CellTexts::find(ColumnId column) const {
    if (const auto shared = m_shared.find(column); shared != m_shared.end()) return shared->second;
    const auto kept = m_kept.find(column);
    return kept != m_kept.end() ? &kept->second : nullptr;
}

std::string_view CellTexts::text(Slot record, ColumnId column) const {
    const ColumnTexts* const texts = find(column);
    return texts != nullptr ? texts->text(record) : read(record, column);
}

ColumnTexts& CellTexts::column(ColumnId column, const SlotSequence& stored, const LongWork& work) {
    if (const auto shared = m_shared.find(column); shared != m_shared.end()) return *shared->second;
    if (const auto kept = m_kept.find(column); kept != m_kept.end()) return kept->second;
    ColumnTexts texts;
    texts.fill(
        stored, [&](Slot record) { return read(record, column); }, work);
    return m_kept.emplace(column, std::move(texts)).first->second;
}

bool CellTexts::readsOnce(ColumnId column) {
    return !keeps(column) && std::exchange(m_readOnce, column) != column;
}

void CellTexts::drop() {
    m_kept.clear();
    ++m_drops;
    m_readOnce.reset();
}

void CellTexts::reread(Slot record) try {
    for (auto& [column, texts] : m_kept) texts.set(record, read(record, column));
} catch (const std::bad_alloc&) {
    m_kept.clear();
}

void CellTexts::forget(Slot record) {
    for (auto& [column, texts] : m_kept) texts.set(record, {});
}

}  // namespace mc
