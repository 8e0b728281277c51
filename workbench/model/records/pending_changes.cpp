#include "workbench/model/records/pending_changes.h"

#include <algorithm>
#include <new>
#include <utility>

#include "link/model/functionality.h"
#include "text/read_number.h"
#include "workbench/model/records/main_list.h"

namespace mc {

// The texts with few different values, and the columns that show them. The code has none: the main
// list shows the name of the kind.
struct PendingChanges::CodedField {
    std::optional<std::string_view> ChangeTexts::*given;
    std::string sMakeCheckStruct::*field;
    std::optional<ColumnId> column;
};

constexpr PendingChanges::CodedField PendingChanges::kCodedFields[kCodedCount] = {
    {&ChangeTexts::makerId, &sMakeCheckStruct::makerId, kMakerColumn},
    {&ChangeTexts::branchId, &sMakeCheckStruct::branchId, kBranchColumn},
    {&ChangeTexts::brokerId, &sMakeCheckStruct::brokerId, kBrokerColumn},
    {&ChangeTexts::functionalityCode, &sMakeCheckStruct::functionalityCode, std::nullopt},
    {&ChangeTexts::type, &sMakeCheckStruct::type, std::nullopt},
};

PendingChanges::PendingChanges(RecordsView& view)
    : m_view(view),
      m_states(m_rows, view),
      m_quickFilter(
          m_rows, m_states, [this](Slot slot) { return halfOf(slot) != Half::none; },
          [this](Slot slot) { return sameAs(slot); }) {
    m_rows.texts().setReader([this](Slot slot, ColumnId column) { return cellText(slot, column); });
    m_rows.texts().share(kKindColumn, m_kinds);
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (kCodedFields[i].column) m_rows.texts().share(*kCodedFields[i].column, m_coded[i]);
}

// ---- Reading ----

PendingChange PendingChanges::read(Slot slot) const {
    PendingChange change;
    change.slot = slot;
    change.key = m_own[slot].key.view();
    change.entityName = m_own[slot].entityName.view();
    change.linkedUser = m_own[slot].linkedUser.view();
    for (std::size_t i = 0; i < kCodedCount; ++i)
        change.*kCodedFields[i].field = m_coded[i].text(slot);
    return change;
}

std::string_view PendingChanges::cellText(Slot slot, ColumnId column) const {
    return wholeText(slot, column).substr(0, kCellBytes - 1);
}

std::string_view PendingChanges::wholeText(Slot slot, ColumnId column) const {
    std::string_view text;
    if (column == kEntityColumn) text = m_own[slot].entityName.view();
    if (column == kKeyColumn) text = m_own[slot].key.view();
    if (column == kKindColumn) text = m_kinds.text(slot);
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (kCodedFields[i].column == column) text = m_coded[i].text(slot);
    return text;
}

std::optional<PendingChange> PendingChanges::recordAt(std::size_t row) const {
    const Slot slot = m_rows.slotAt(row);
    return slot != kNoSlot ? std::optional(read(slot)) : std::nullopt;
}

std::optional<PendingChange> PendingChanges::recordIn(Slot slot) const {
    return isPending(slot) ? std::optional(read(slot)) : std::nullopt;
}

std::optional<PendingChange> PendingChanges::findRecord(std::string_view key) const {
    const Slot slot = m_index.find(key);
    return slot != kNoSlot ? std::optional(read(slot)) : std::nullopt;
}

// Texts of one change lie in as many columns: fetching them one after the other would take longer
// than reading the message that goes with them.
Slot PendingChanges::find(std::string_view key) const {
    const Slot slot = m_index.find(key);
    for (const ColumnTexts& column : m_coded) column.prefetch(slot);
    m_kinds.prefetch(slot);
    return slot;
}

std::string_view PendingChanges::text(Slot slot, CodedText which) const {
    if (slot == kNoSlot) return {};
    return m_coded[static_cast<std::size_t>(which)].text(slot);
}

bool PendingChanges::isPending(const PendingChange& change) const {
    return m_rows.stored().contains(change.slot) && m_own[change.slot].key.view() == change.key;
}

std::optional<PendingChange> PendingChanges::current(const PendingChange& change) const {
    return isPending(change) ? std::optional(read(change.slot)) : std::nullopt;
}

bool PendingChanges::selected(std::string_view key) const {
    const auto row = m_rows.rowOf(m_index.find(key));
    return row && m_rows.selection().selected(*row);
}

// ---- Investors' pairs: a new user and a new client, accepted together ----

PendingChanges::Half PendingChanges::halfOf(Slot slot) const {
    if (text(slot, CodedText::type) != kInvestorClient) return Half::none;
    const std::string_view code = text(slot, CodedText::functionality);
    return code == kAddUser ? Half::user : code == kAddClient ? Half::client : Half::none;
}

std::string_view PendingChanges::userOf(Slot slot, Half half) const {
    const OwnTexts& own = m_own[slot];
    return (half == Half::user ? own.entityName : own.linkedUser).view();
}

Slot PendingChanges::otherHalf(Slot slot) const {
    const Half half = halfOf(slot), other = half == Half::user ? Half::client : Half::user;
    if (half == Half::none) return kNoSlot;
    return m_byEntity.findIf({EntityKind::user, userOf(slot, half)}, [&](Slot each) {
        return halfOf(each) == other && !m_rows.selection().isSelected(each);
    });
}

// ---- What they are about ----

Entity PendingChanges::EntitiesOf::own(Slot slot) const {
    return entityOf(changes.text(slot, CodedText::functionality),
                    changes.m_own[slot].entityName.view());
}

Entity PendingChanges::EntitiesOf::linked(Slot slot) const {
    return linkedEntityOf(changes.text(slot, CodedText::functionality),
                          changes.text(slot, CodedText::type),
                          changes.m_own[slot].linkedUser.view());
}

// Holds a copy, as the change may be gone when it is asked.
QuickFilter::IsOne PendingChanges::sameAs(Slot slot) const {
    return [this, change = read(slot)](Slot other) {
        const Entity entities[] = {
            entityOf(change.functionalityCode, change.entityName),
            linkedEntityOf(change.functionalityCode, change.type, change.linkedUser)};
        const auto isOne = [&entities](const Entity& entity) {
            return entity.kind != EntityKind::none &&
                   std::ranges::find(entities, entity) != std::end(entities);
        };
        const EntitiesOf about{*this};
        return isOne(about.own(other)) || isOne(about.linked(other));
    };
}

std::vector<PendingChange> PendingChanges::aboutTheSame(const PendingChange& change) const {
    std::vector<PendingChange> found;
    for (const Slot slot :
         m_byEntity.find({entityOf(change.functionalityCode, change.entityName),
                          linkedEntityOf(change.functionalityCode, change.type, change.linkedUser)},
                         kMaxAbout))
        found.push_back(read(slot));
    std::ranges::stable_sort(found, {}, [](const PendingChange& each) {
        return std::pair(longIntegerOf(each.key), each.slot);
    });
    const auto again = std::ranges::unique(found, {}, &PendingChange::slot);
    found.erase(again.begin(), again.end());
    return found;
}

// Whether what the change in the slot is about may be another with these texts.
bool PendingChanges::renames(Slot slot, const ChangeTexts& texts) const {
    const auto differs = [](const ChangeTexts::Text& given, std::string_view now) {
        return given && *given != now;
    };
    return differs(texts.entityName, m_own[slot].entityName.view()) ||
           differs(texts.linkedUser, m_own[slot].linkedUser.view()) ||
           differs(texts.functionalityCode, text(slot, CodedText::functionality)) ||
           differs(texts.type, text(slot, CodedText::type));
}

// ---- Changes that come, change and go ----

// Returns whether a text is another one than before. What asks for memory comes first: a change is
// never written by half.
bool PendingChanges::write(Slot slot, const ChangeTexts& texts) {
    OwnTexts& own = m_own[slot];
    OwnTexts made;
    const auto make = [](ShortText& text, const ShortText& now, const ChangeTexts::Text& given) {
        const bool other = given && now.view() != *given;
        if (other) text = *given;
        return other;
    };
    const bool otherEntity = make(made.entityName, own.entityName, texts.entityName);
    const bool otherUser = make(made.linkedUser, own.linkedUser, texts.linkedUser);
    std::array<ColumnTexts::Code, kCodedCount> codes{};
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (const auto& text = texts.*kCodedFields[i].given)
            codes[i] = m_coded[i].codeFor(slot, *text);
    const auto& code = texts.functionalityCode;
    const bool otherKind = code && text(slot, CodedText::functionality) != *code;
    const Functionality* const kind = otherKind ? findFunctionality(*code) : nullptr;
    const ColumnTexts::Code kindCode =
        otherKind ? m_kinds.codeFor(slot, kind != nullptr ? kind->displayName : "") : 0;

    bool different = otherEntity || otherUser;
    if (otherEntity) own.entityName.swap(made.entityName);
    if (otherUser) own.linkedUser.swap(made.linkedUser);
    for (std::size_t i = 0; i < kCodedCount; ++i)
        if (texts.*kCodedFields[i].given) different |= m_coded[i].put(slot, codes[i]);
    if (otherKind) m_kinds.put(slot, kindCode);
    return different;
}

// All texts of the slot are empty: a new one's are, and of a used one's last change nothing is
// left.
Slot PendingChanges::takeSlot() {
    if (m_free.size() == m_gone) {
        for (ColumnTexts& column : m_coded) column.grow(m_own.size() + 1);
        m_kinds.grow(m_own.size() + 1);
        m_own.emplace_back();
        return static_cast<Slot>(m_own.size() - 1);
    }
    const Slot slot = std::exchange(m_free[m_free.size() - m_gone - 1], m_free.back());
    m_free.pop_back();
    write(slot, {"", "", "", "", "", "", ""});
    return slot;
}

// Without memory the slot is used again only after all are gone.
void PendingChanges::giveBack(Slot slot, bool mayBeHeld) noexcept try {
    m_free.push_back(slot);
    if (mayBeHeld && m_holds > 0)
        ++m_gone;
    else
        std::swap(m_free.back(), m_free[m_free.size() - m_gone - 1]);
} catch (const std::bad_alloc&) {
}

void PendingChanges::addRecord(std::string_view key, const ChangeTexts& texts, Origin origin) {
    const Slot slot = takeSlot();
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
    m_own[slot].key = key;
    if (!m_index.insert(key, slot)) return false;
    write(slot, texts);
    m_states.came(slot, origin);
    if (!m_rows.insertItem(m_rows.stored().size(), slot)) return false;  // it has no reader
    m_byEntity.insert(slot);
    return true;
}

// What list() has done of its work is undone, if it did not come to its end.
void PendingChanges::unlist(Slot slot, std::string_view key) noexcept {
    m_states.ended(slot);
    if (m_index.find(key) == slot) m_index.erase(key);
    giveBack(slot, false);
}

void PendingChanges::removeRecord(std::string_view key) {
    const Slot slot = m_index.erase(key);
    if (slot == kNoSlot) return;
    m_byEntity.erase(slot);
    m_states.ended(slot);
    m_rows.deleteRecord(slot);
    giveBack(slot, true);
    m_view.rowsChanged();
}

bool PendingChanges::rewriteRecord(Slot slot, const ChangeTexts& texts) {
    if (!m_rows.stored().contains(slot)) return false;
    const bool renamed = renames(slot, texts);
    if (renamed) m_byEntity.erase(slot);
    bool different = false;
    try {
        different = write(slot, texts);
    } catch (...) {
        if (renamed) m_byEntity.insert(slot);
        throw;
    }
    m_states.cameAgain(slot, different);
    if (renamed) m_byEntity.insert(slot);
    return true;
}

void PendingChanges::refreshRecord(Slot slot, const ChangeTexts& texts) {
    if (!rewriteRecord(slot, texts)) return;
    m_rows.refresh(slot);
    m_view.rowsChanged();
}

void PendingChanges::clearAllRecords() {
    for (std::size_t i = 0; i < size() && m_holds > 0; ++i) giveBack(m_rows.stored().at(i), true);
    m_rows.reset();
    m_states.clear();
    m_index.clear();
    m_byEntity.clear();
    if (m_holds > 0) return;
    m_own.clear();
    m_free.clear();
    for (ColumnTexts& column : m_coded) column = {};
    m_kinds = {};
}

}  // namespace mc
