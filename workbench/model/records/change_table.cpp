#include "workbench/model/records/change_table.h"

#include "text/text_bytes.h"
#include "workbench/model/records/main_list.h"

namespace mc {

// The texts with few different values, and the columns that show them. The code has none: the main
// list shows the name of the kind.
struct ChangeTable::CodedField {
    std::optional<std::string_view> ChangeTexts::*given;
    std::string sMakeCheckStruct::*field;
    std::optional<ColumnId> column;
};

constexpr ChangeTable::CodedField ChangeTable::kCodedFields[kCodedCount] = {
    {&ChangeTexts::makerId, &sMakeCheckStruct::makerId, kMakerColumn},
    {&ChangeTexts::branchId, &sMakeCheckStruct::branchId, kBranchColumn},
    {&ChangeTexts::brokerId, &sMakeCheckStruct::brokerId, kBrokerColumn},
    {&ChangeTexts::functionalityCode, &sMakeCheckStruct::functionalityCode, std::nullopt},
    {&ChangeTexts::type, &sMakeCheckStruct::type, std::nullopt},
};

void ChangeTable::shareWith(CellTexts& cells) {
    cells.share(kKindColumn, m_kinds);
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (kCodedFields[i].column) cells.share(*kCodedFields[i].column, m_coded[i]);
}

// ---- Slots ----

Slot ChangeTable::grow() {
    if (m_end == m_own.size() * kBlock) {
        const std::size_t end = m_end + kBlock;
        for (ColumnTexts& column : m_coded) column.grow(end);
        m_kinds.grow(end);
        m_own.push_back(std::make_unique<Block>());
    }
    return m_end++;
}

void ChangeTable::clear() {
    m_own.clear();
    m_end = 0;
    for (ColumnTexts& column : m_coded) column = {};
    m_kinds = {};
    m_kindCodes = {};
}

// ---- Reading ----

PendingChange ChangeTable::read(Slot slot) const {
    PendingChange change;
    change.slot = slot;
    change.key = own(slot).key.view();
    change.entityName = own(slot).entityName.view();
    change.linkedUser = own(slot).linkedUser.view();
    for (std::size_t i = 0; i < kCodedCount; ++i)
        change.*kCodedFields[i].field = m_coded[i].text(slot);
    return change;
}

std::string_view ChangeTable::cellText(Slot slot, ColumnId column) const {
    return wholeText(slot, column).substr(0, kCellBytes - 1);
}

std::string_view ChangeTable::wholeText(Slot slot, ColumnId column) const {
    if (column == kEntityColumn) return own(slot).entityName.view();
    if (column == kKeyColumn) return own(slot).key.view();
    if (column == kKindColumn) return m_kinds.text(slot);
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (kCodedFields[i].column == column) return m_coded[i].text(slot);
    return {};
}

Entity ChangeTable::entity(Slot slot) const {
    return entityOf(text(slot, CodedText::functionality), entityName(slot));
}

Entity ChangeTable::linkedEntity(Slot slot) const {
    return linkedEntityOf(text(slot, CodedText::functionality), text(slot, CodedText::type),
                          linkedUser(slot));
}

// Texts of one change lie in as many columns: fetching them one after the other would take longer
// than reading the message that goes with them.
void ChangeTable::prefetch(Slot slot) const {
    for (const ColumnTexts& column : m_coded) column.prefetch(slot);
    m_kinds.prefetch(slot);
}

// ---- Writing ----

// What asks for memory comes first: a change is never written by half.
void ChangeTable::write(Slot slot, const ChangeTexts& texts) {
    std::array<ColumnTexts::Code, kCodedCount> codes;
    for (std::size_t i = 0; i < kCodedCount; ++i)
        codes[i] = m_coded[i].codeFor(slot, texts.*kCodedFields[i].given);
    const auto& code = texts.functionalityCode;
    const ColumnTexts::Code kind = code ? kindCode(slot, *code) : 0;
    ShortText linkedUser;
    if (texts.linkedUser) linkedUser = *texts.linkedUser;
    if (texts.entityName) own(slot).entityName = *texts.entityName;

    if (texts.linkedUser) own(slot).linkedUser.swap(linkedUser);
    for (std::size_t i = 0; i < kCodedCount; ++i) m_coded[i].put(slot, codes[i]);
    if (code) m_kinds.put(slot, kind);
}

// The code of a kind's name, the empty text's for a kind that is not known.
ColumnTexts::Code ChangeTable::kindCode(Slot slot, std::string_view functionalityCode) {
    const Functionality* const kind = findFunctionality(functionalityCode);
    if (kind == nullptr) return 0;
    auto& code = m_kindCodes[static_cast<std::size_t>(kind - functionalities().data())];
    if (code == 0) code = m_kinds.codeFor(slot, kind->displayName);
    return code;
}

ChangeTable::Difference ChangeTable::compare(Slot slot, const ChangeTexts& texts) const {
    const auto differs = [](const ChangeTexts::Text& given, std::string_view now) {
        return given && !same(*given, now);
    };
    Difference found;
    found.about = differs(texts.entityName, entityName(slot)) ||
                  differs(texts.linkedUser, linkedUser(slot)) ||
                  differs(texts.functionalityCode, text(slot, CodedText::functionality)) ||
                  differs(texts.type, text(slot, CodedText::type));
    found.any = found.about || differs(texts.makerId, text(slot, CodedText::maker)) ||
                differs(texts.branchId, text(slot, CodedText::branch)) ||
                differs(texts.brokerId, text(slot, CodedText::broker));
    return found;
}

}  // namespace mc
