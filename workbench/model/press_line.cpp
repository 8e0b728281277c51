#include "workbench/model/press_line.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "link/model/functionality.h"

namespace mc {
namespace {

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

std::string unsent(std::size_t count) {
    return counted(count, "unsent value", "unsent values");
}

std::string ago(std::time_t seconds) {
    const auto whole = static_cast<std::size_t>(std::max<std::time_t>(seconds, 0));
    return whole < 100 ? std::to_string(whole) + " s ago" : std::to_string(whole / 60) + " min ago";
}

// The line of Accept, Reject or Update.
class DecisionLine {
public:
    DecisionLine(const PressPlan& plan, const PendingChanges& changes)
        : m_plan(plan), m_changes(changes), m_accepts(plan.button != PressButton::reject) {}

    PressLine make() {
        m_line.text = verbOf(m_plan.button);
        if (!m_plan.leaving.empty())
            sayWhatLeaves();
        else if (halves() == 0)
            m_line.text += " nothing: no change is selected";
        sayHalves();
        if (m_plan.edits != 0 && !m_plan.leaving.empty())
            m_line.text += "; asks about " + unsent(m_plan.edits) + " first";
        if (m_plan.deselected != 0)
            m_line.text += "; " + std::to_string(m_plan.deselected) + " deselected by the filter";
        return std::move(m_line);
    }

    PressLine makeUpdate() {
        m_line.text = updateText();
        saySent();
        return std::move(m_line);
    }

private:
    std::size_t halves() const { return m_plan.users.size() + m_plan.clients.size(); }
    bool one() const { return m_plan.leaving.size() == 1; }

    std::string name(Slot slot) const {
        const auto change = m_changes.recordIn(slot);
        return change ? pressName(*change) : std::string();
    }

    void sayWhatLeaves() {
        const bool onePair = m_plan.single.empty() && m_plan.pairs.size() == 1;
        if (onePair)
            sayPair(m_plan.pairs.front());
        else if (one())
            m_line.text += " " + name(m_plan.leaving.front());
        else
            m_line.text += " " + std::to_string(m_plan.leaving.size()) + " changes";
        sayReadings(onePair);
        if (!onePair && !m_plan.pairs.empty())
            m_line.text += "; " + counted(m_plan.pairs.size(), "pair", "pairs") + ", user first";
        sayDoubtful();
        saySent();
        sayChosen();
    }

    void sayPair(const PressPlan::Pair& pair) {
        const auto user = m_changes.recordIn(pair.user);
        m_line.text += " " + name(pair.client);
        if (user)
            m_line.text += " and its user " + user->entityName + " (" + user->key + "), user first";
    }

    // Of one change only what is missing is said.
    void sayReadings(bool onePair) {
        const std::pair<std::size_t, Reading> counts[] = {
            {m_plan.states.lookedAt, Reading::lookedAt},
            {m_plan.states.notLookedAt, Reading::notLookedAt},
            {m_plan.states.changedSince, Reading::changedSince}};
        if (onePair && m_plan.states.lookedAt == m_plan.leaving.size()) return;
        std::string_view between = onePair ? "; " : ": ";
        for (const auto& [count, reading] : counts) {
            if (count == 0 || (one() && reading == Reading::lookedAt)) continue;
            if (one())
                m_line.text += ", ";
            else
                m_line.text.append(between).append(std::to_string(count)).append(" ");
            m_line.text += wordsOf(reading);
            between = ", ";
        }
    }

    void sayDoubtful() {
        if (m_plan.states.doubtful == 0) return;
        m_line.text +=
            one() ? ", doubtful" : "; " + std::to_string(m_plan.states.doubtful) + " doubtful";
    }

    // How many of them were sent, or nothing when that is clear.
    std::string ofThem(std::size_t count) const {
        if (one()) return ", ";
        return "; " + (count == m_plan.leaving.size() ? "all" : std::to_string(count)) +
               " of them ";
    }

    void saySent() {
        if (m_plan.again + m_plan.opposite == 0) return;
        const std::string when = ago(m_changes.states().now() - m_plan.sentAt);
        m_line.ages = true;
        if (m_plan.again != 0) m_line.text += ofThem(m_plan.again) + "again, sent " + when;
        if (m_plan.opposite != 0)
            m_line.text += ofThem(m_plan.opposite) + (m_accepts ? "rejected " : "accepted ") +
                           when + ", asks first";
    }

    void sayChosen() {
        const std::size_t chosen = m_plan.states.chosenUnseen;
        if (chosen == 0) return;
        m_line.warning =
            one() ? "Selected by the list" : std::to_string(chosen) + " selected by the list";
        const bool changed = m_plan.states.notLookedAt == 0;
        m_line.warning.append(", ")
            .append(wordsOf(changed ? Reading::changedSince : Reading::notLookedAt))
            .append(": ");
    }

    std::string updateText() const {
        if (m_plan.key.empty()) return "Update nothing: no details are open";
        if (m_plan.edits == 0) return "Update nothing: no value is edited";
        const auto change = m_changes.findRecord(m_plan.key);
        return "Update " + counted(m_plan.edits, "value", "values") + " of " +
               (change ? pressName(*change) : m_plan.key);
    }

    // Those that stay, and one that would complete a pair.
    void sayHalves() {
        if (halves() == 0) return;
        const bool nothing = m_plan.leaving.empty();
        m_line.text += nothing ? ": " : "; ";
        if (halves() == 1)
            m_line.text += "half of a pair";
        else
            m_line.text += std::to_string(halves()) + " halves of pairs";
        if (!nothing) m_line.text += halves() == 1 ? " stays" : " stay";
        m_line.text += ": " + missing();
        if (nothing) m_line.text += ", nothing will leave";
    }

    std::string missing() {
        const Slot first = m_plan.missing;
        if (first == kNoSlot) return "no other half is pending";
        m_line.offersPair = true;
        return name(first) +
               (m_changes.rows().rowOf(first) ? " is not selected" : " is hidden by a filter");
    }

    const PressPlan& m_plan;
    const PendingChanges& m_changes;
    const bool m_accepts;
    PressLine m_line;
};

}  // namespace

std::string PressLine::whole() const {
    return warning + text + (offersPair ? std::string("  ") + kSelectPair : "");
}

bool PressLine::isNews(const PressLine& before) const {
    const auto withoutDigits = [](std::string said) {
        std::erase_if(said, [](char each) { return each >= '0' && each <= '9'; });
        return said;
    };
    if (!ages || !before.ages) return *this != before;
    return withoutDigits(whole()) != withoutDigits(before.whole());
}

std::string verbOf(PressButton button) {
    constexpr const char* kVerbs[] = {"Accept", "Reject", "Update", "Recover"};
    return kVerbs[static_cast<std::size_t>(button)];
}

std::string pressName(const sMakeCheckStruct& change) {
    const Functionality* kind = findFunctionality(change.functionalityCode);
    std::string text = change.key;
    if (kind != nullptr) text.append(" ").append(kind->displayName);
    const bool limits = kind != nullptr && kind->group == FunctionalityGroup::limits;
    if (!change.entityName.empty()) text.append(limits ? ", " : " ").append(change.entityName);
    return text;
}

PressLine describePress(const PressPlan& plan, const PendingChanges& changes) {
    if (plan.refused) {
        return {.text = verbOf(plan.button) + " nothing: the text in the editor cannot be kept"};
    }
    switch (plan.button) {
        case PressButton::accept:
        case PressButton::reject:
            return DecisionLine(plan, changes).make();
        case PressButton::update:
            return DecisionLine(plan, changes).makeUpdate();
        case PressButton::recover:
            return {.text = plan.edits != 0 ? "Recover: drops " + unsent(plan.edits)
                                            : "Recover: asks for everything that is pending"};
    }
    return {};
}

}  // namespace mc
