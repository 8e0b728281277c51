#include "workbench/model/records/change_states.h"

#include <array>

#include "text/time_of_day.h"

namespace mc {

// ---- Words ----

std::string_view wordsOf(Reading reading) {
    static constexpr std::string_view words[] = {"not looked at", "looked at", "changed since"};
    return words[static_cast<std::size_t>(reading)];
}

std::string_view wordsOf(SentDecision decision) {
    static constexpr std::string_view words[] = {"", "accept", "reject", "update"};
    return words[static_cast<std::size_t>(decision)];
}

std::string wordsOf(const ChangeState& state) {
    std::string text(wordsOf(state.reading));
    if (state.sent != SentDecision::none)
        text.append("; ")
            .append(wordsOf(state.sent))
            .append(" sent at ")
            .append(timeOfDay(state.sentAt, true))
            .append(", outcome awaited");
    const std::pair<bool, std::string_view> others[] = {
        {state.shown, "; its details are open"},
        {state.doubtful, "; doubtful: Recover has not brought it so far"},
        {state.newByRecover, "; new by this Recover"},
        {state.chosenByList, "; selected by the list after a removal"}};
    for (const auto& [holds, words] : others)
        if (holds) text.append(words);
    return text;
}

// ---- What happens to changes ----

void ChangeStates::came(Slot slot, Origin origin) {
    growBySlot(m_bits, slot + std::size_t{1});
    growBySlot(m_sentAt, slot + std::size_t{1});
    Bits& bits = m_bits[slot] = {};
    bits.pending = true;
    bits.newByRecover = origin == Origin::recovered;
    ++m_notLookedAt;
    m_arrivals.any = true;
}

void ChangeStates::cameAgain(Slot slot, bool different, Origin origin) {
    Bits& bits = m_bits[slot];
    bits.doubtful = false;
    if (different || origin == Origin::published) bits.changedInPress = true;
    if (!different) return;
    if (bits.reading == Reading::lookedAt) setReading(bits, Reading::changedSince);
    bits.sent = SentDecision::none;
}

void ChangeStates::ended(Slot slot) {
    if (!pending(slot)) return;
    setReading(m_bits[slot], Reading::lookedAt);
    m_bits[slot] = {};
    for (Slot* const held : {&m_shown, &m_openedLast})
        if (*held == slot) *held = kNoSlot;
}

void ChangeStates::clear() {
    m_bits = {};
    m_sentAt = {};
    m_notLookedAt = 0;
    m_shown = m_openedLast = kNoSlot;
}

void ChangeStates::opened(Slot slot) {
    const Slot before = std::exchange(m_shown, slot);
    if (slot == kNoSlot) return touch(before);
    ++m_openings;
    touch(std::exchange(m_openedLast, slot));  // shown or closed meanwhile
    touch(slot);
}

void ChangeStates::lookedAt(Slot slot) {
    if (!pending(slot)) return;
    setReading(m_bits[slot], Reading::lookedAt);
    m_bits[slot].newByRecover = false;
    touch(slot);
}

void ChangeStates::sent(Slot slot, SentDecision decision) {
    if (!pending(slot)) return;
    m_bits[slot].sent = decision;
    m_sentAt[slot] = static_cast<std::uint32_t>(now());
    touch(slot);
}

void ChangeStates::recoverSent() {
    m_arrivals.recovered = true;
    for (Bits& bits : m_bits) {
        bits.doubtful = bits.pending;
        bits.newByRecover = false;
    }
    m_view.statesChanged();
}

void ChangeStates::subscribed() {
    m_arrivals.subscribedAt = now();
    m_view.statesChanged();
}

void ChangeStates::pressBegins(std::span<const Slot> slots) {
    for (const Slot slot : slots)
        if (pending(slot)) m_bits[slot].changedInPress = false;
}

void ChangeStates::detailsDiffer(Slot slot) {
    if (pending(slot)) m_bits[slot].changedInPress = true;
}

void ChangeStates::setReading(Bits& bits, Reading reading) {
    if (bits.reading == Reading::notLookedAt) --m_notLookedAt;
    if (reading == Reading::notLookedAt) ++m_notLookedAt;
    bits.reading = reading;
}

void ChangeStates::touch(Slot slot) {
    if (slot == kNoSlot) return;
    m_rows.judgeAgain(slot);
    m_view.statesChanged();
}

// ---- Reading ----

ChangeState ChangeStates::of(Slot slot) const {
    if (slot >= m_bits.size()) return {};
    const Bits& bits = m_bits[slot];
    return {.reading = bits.reading,
            .sent = bits.sent,
            .sentAt = static_cast<std::time_t>(m_sentAt[slot]),
            .shown = m_shown == slot,
            .doubtful = bits.doubtful,
            .newByRecover = bits.newByRecover,
            .chosenByList = m_rows.selection().chosenByList(slot)};
}

StateCounts ChangeStates::count(std::span<const Slot> slots) const {
    StateCounts counts;
    std::array<std::size_t, 4> readings{}, decisions{};
    for (const Slot slot : slots) {
        const Bits bits = slot < m_bits.size() ? m_bits[slot] : Bits{};
        ++readings[static_cast<std::size_t>(bits.reading)];
        ++decisions[static_cast<std::size_t>(bits.sent)];
        counts.doubtful += bits.doubtful;
        counts.chosenUnseen +=
            bits.reading != Reading::lookedAt && m_rows.selection().chosenByList(slot);
    }
    const auto of = [](const auto& tally, auto which) {
        return tally[static_cast<std::size_t>(which)];
    };
    counts.notLookedAt = of(readings, Reading::notLookedAt);
    counts.lookedAt = of(readings, Reading::lookedAt);
    counts.changedSince = of(readings, Reading::changedSince);
    counts.accepted = of(decisions, SentDecision::accept);
    counts.rejected = of(decisions, SentDecision::reject);
    counts.updated = of(decisions, SentDecision::update);
    return counts;
}

std::size_t ChangeStates::notLookedAtVisible() const {
    if (m_rows.rowCount() == m_rows.stored().size()) return m_notLookedAt;
    std::size_t count = 0;
    m_rows.visible().order().forEach(
        [&](Slot slot) { count += m_bits[slot].reading == Reading::notLookedAt; });
    return count;
}

}  // namespace mc
