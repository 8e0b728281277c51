#include "workbench/model/records/quick_filter.h"

namespace mc {
namespace {

constexpr std::string_view kWords[] = {"", "only not looked at", "only changed since",
                                       "only mine to pair", "only neighbours"};
constexpr int kKinds = 5;

}  // namespace

std::string_view QuickFilter::words() const {
    return kWords[static_cast<std::size_t>(m_choice.kind)];
}

void QuickFilter::next() {
    step(1);
}

void QuickFilter::back() {
    step(kKinds - 1);
}

void QuickFilter::step(int by) {
    Kind kind = m_choice.kind;
    do kind = static_cast<Kind>((static_cast<int>(kind) + by) % kKinds);
    while (!possible(kind));
    choose(kind);
}

bool QuickFilter::possible(Kind kind) const {
    return kind != Kind::neighbours || m_states.openedLast() != kNoSlot;
}

void QuickFilter::choose(Kind kind) {
    m_choice.kind = kind;
    if (kind == Kind::neighbours) m_choice.isNeighbour = m_neighboursOf(m_states.openedLast());
    m_choice.openings = m_states.openings();
    // One that passes now is read like one that is opened from now on.
    if (m_states.shown() != kNoSlot && holds(m_states.shown())) --m_choice.openings;
    judge();
}

void QuickFilter::putBack(Choice choice) {
    m_choice = std::move(choice);
    judge();
}

void QuickFilter::judge() {
    if (m_choice.kind == Kind::off)
        m_rows.passing().setJudge({});
    else
        m_rows.passing().setJudge([this](Slot slot) { return passes(slot); });
}

bool QuickFilter::passes(Slot slot) const {
    const bool kept = slot == m_states.openedLast() && m_states.openings() != m_choice.openings;
    return kept || holds(slot);
}

bool QuickFilter::holds(Slot slot) const {
    switch (m_choice.kind) {
        case Kind::notLookedAt:
            return m_states.of(slot).reading == Reading::notLookedAt;
        case Kind::changedSince:
            return m_states.of(slot).reading == Reading::changedSince;
        case Kind::toPair:
            return m_isHalf(slot);
        case Kind::neighbours:
            return m_choice.isNeighbour(slot);
        case Kind::off:
            break;
    }
    return true;
}

}  // namespace mc
