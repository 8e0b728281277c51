#include "workbench/model/decision_log.h"

#include <new>
#include <utility>

#include "text/count_text.h"
#include "text/time_of_day.h"

namespace mc {
namespace {

enum Column : std::size_t { kTime, kDecision, kKey, kEntity, kKind, kReason, kOutcome };

constexpr std::string_view kDecisionNames[] = {"Accept", "Reject", "Update", "Recover"};

constexpr char kAwaited[] = "awaited";

// With two digits for the hour, so that texts sort as times.
std::string timeText(std::time_t moment) {
    const std::string text = timeOfDay(moment, true);
    return text.size() == 7 ? "0" + text : text;
}

std::string kindOf(const sMakeCheckStruct& change) {
    const Functionality* const kind = findFunctionality(change.functionalityCode);
    return kind != nullptr ? std::string(kind->displayName) : change.functionalityCode;
}

std::string reasonOf(const TriedRequest& tried) {
    if (tried.kind != RequestKind::update) return std::string(tried.reason);
    return countText(tried.values) + (tried.values == 1 ? " value" : " values");
}

}  // namespace

DecisionLog::DecisionLog() {
    m_rows.texts().setReader([this](Slot slot, ColumnId column) { return cellText(slot, column); });
}

DecisionLog::Entry DecisionLog::entryOf(const TriedRequest& tried, const sMakeCheckStruct& change,
                                        std::time_t now) {
    const bool recovery = tried.kind == RequestKind::recover;
    const char* const outcome = !tried.left ? "failed to send" : recovery ? "sent" : kAwaited;
    return {
        .cells = {timeText(now), std::string(kDecisionNames[static_cast<std::size_t>(tried.kind)]),
                  change.key, change.entityName, kindOf(change), reasonOf(tried), outcome},
        .awaited = tried.left && !recovery};
}

void DecisionLog::note(const TriedRequest& tried, const sMakeCheckStruct& change, std::time_t now) {
    Entry made = entryOf(tried, change, now);
    const std::uint64_t number = made.number = m_made + 1;
    const Slot slot = slotOf(number);
    const bool recovery = tried.kind == RequestKind::recover;
    std::uint64_t* const newest = recovery ? nullptr : &m_newest[change.key];
    if (newest != nullptr) made.before = *newest;
    if (slot == m_entries.size())
        m_entries.emplace_back();
    else
        letGo(m_entries[slot]);
    Entry& entry = m_entries[slot] = std::move(made);
    try {
        m_rows.insertItem(0, slot);
    } catch (...) {
        entry = {};
        throw;
    }
    m_made = number;
    if (newest != nullptr) *newest = number;
    if (entry.awaited) ++m_awaited;
    changed();
}

void DecisionLog::letGo(Entry& entry) {
    if (entry.number == 0) return;
    m_rows.deleteRecord(slotOf(entry.number));
    if (entry.awaited) --m_awaited;
    const auto newest = m_newest.find(entry.cells[kKey]);
    if (newest != m_newest.end() && newest->second == entry.number) m_newest.erase(newest);
    entry = {};
}

const DecisionLog::Entry* DecisionLog::find(std::uint64_t number) const {
    if (number == 0) return nullptr;
    const Entry& entry = m_entries[slotOf(number)];
    return entry.number == number ? &entry : nullptr;
}

// All of them, from the newest back: one that failed to leave may lie in between.
void DecisionLog::outcomeCame(std::string_view key, std::string_view status, std::time_t now) try {
    const auto newest = m_newest.find(std::string(key));
    if (newest == m_newest.end()) return;
    for (const Entry* each = find(newest->second); each != nullptr; each = find(each->before)) {
        Entry& entry = m_entries[slotOf(each->number)];
        if (!entry.awaited) continue;
        entry.cells[kOutcome] = std::string(status) + " " + timeText(now);
        entry.awaited = false;
        --m_awaited;
        m_rows.refresh(slotOf(entry.number));
    }
    changed();
} catch (const std::bad_alloc&) {
}

std::string_view DecisionLog::cellText(Slot decision, ColumnId column) const {
    const auto& cells = m_entries[decision].cells;
    return toIndex(column) < cells.size() ? std::string_view(cells[toIndex(column)])
                                          : std::string_view();
}

Slot DecisionLog::newestAbout(std::string_view key) const {
    const auto newest = m_newest.find(std::string(key));
    const bool known = newest != m_newest.end() && newest->second != 0;
    return known ? slotOf(newest->second) : kNoSlot;
}

Slot DecisionLog::newest() const {
    return m_made != 0 ? slotOf(m_made) : kNoSlot;
}

std::string DecisionLog::summary() const {
    const std::size_t count = m_rows.stored().size();
    std::string text = countText(count) + (count == 1 ? " decision" : " decisions");
    if (m_awaited != 0)
        text += ", " + countText(m_awaited) +
                (m_awaited == 1 ? " outcome awaited" : " outcomes awaited");
    return text;
}

}  // namespace mc
