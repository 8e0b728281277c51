#include "workbench/model/press_plan.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <utility>

#include "text/text_bytes.h"

namespace mc {
namespace {

// Pairs users with clients, from the last to the first on both sides. A client takes all users of
// its name, so it can leave with two; it leaves its list once. Users are found by the hash of their
// name, in lists that have the last of them first.
class Pairing {
public:
    Pairing(PressPlan& plan, const PendingChanges& changes) : m_plan(plan), m_changes(changes) {}

    void run() {
        listUsers();
        for (std::size_t client = m_plan.clients.size(); client-- > 0;) pair(client);
        for (auto* halves : {&m_plan.users, &m_plan.clients}) std::erase(*halves, kNoSlot);
    }

private:
    using Index = std::uint32_t;  // in the list of users
    static constexpr Index kEnd = ~Index{0};

    std::string_view nameOf(Index user) const {
        return m_changes.related().userOf(m_plan.users[user], RelatedChanges::Half::user);
    }

    Index& headOf(std::string_view user) { return m_heads[hashOf(user) & (m_heads.size() - 1)]; }

    void listUsers() {
        m_heads.assign(std::bit_ceil(m_plan.users.size() + 1), kEnd);
        m_next.assign(m_plan.users.size(), kEnd);
        for (Index user = 0; user < m_plan.users.size(); ++user)
            m_next[user] = std::exchange(headOf(nameOf(user)), user);
    }

    void pair(std::size_t at) {
        const Slot client = m_plan.clients[at];
        const std::string_view name =
            m_changes.related().userOf(client, RelatedChanges::Half::client);
        for (Index* link = &headOf(name); *link != kEnd;) {
            const Index user = *link;
            if (!same(nameOf(user), name)) {
                link = &m_next[user];
                continue;
            }
            m_plan.pairs.push_back({m_plan.users[user], client});
            m_plan.users[user] = m_plan.clients[at] = kNoSlot;
            *link = m_next[user];
        }
    }

    PressPlan& m_plan;
    const PendingChanges& m_changes;
    std::vector<Index> m_heads;  // by hash: the last user of the list
    std::vector<Index> m_next;   // by user: the one before it in its list
};

void planAccept(PressPlan& plan, SelectedRecords selected, const PendingChanges& changes) {
    using Half = RelatedChanges::Half;
    for (const Slot slot : selected) {
        const Half half = changes.related().halfOf(slot);
        if (half == Half::none)
            plan.single.push_back(slot);
        else
            (half == Half::user ? plan.users : plan.clients).push_back(slot);
    }
    if (!plan.users.empty() && !plan.clients.empty()) Pairing(plan, changes).run();
    for (const auto* halves : {&plan.users, &plan.clients})
        for (auto half = halves->begin(); half != halves->end() && plan.missing == kNoSlot; ++half)
            plan.missing = changes.related().otherHalf(*half);
}

// An Update accepts the change that the details are about.
void planUpdate(PressPlan& plan, const PendingChanges& changes) {
    const Slot slot = changes.find(plan.key);
    if (plan.edits != 0 && slot != kNoSlot) plan.single.assign(1, slot);
}

void countStates(PressPlan& plan, const ChangeStates& states) {
    plan.leaving = plan.single;
    Slot last = kNoSlot;
    for (const auto& [user, client] : plan.pairs) {
        plan.leaving.push_back(user);
        if (client != std::exchange(last, client)) plan.leaving.push_back(client);
    }
    plan.states = states.count(plan.leaving);
    const std::size_t accepted = plan.states.accepted + plan.states.updated;
    const bool accepts = plan.button != PressButton::reject;
    plan.again = accepts ? accepted : plan.states.rejected;
    plan.opposite = accepts ? plan.states.rejected : accepted;
    if (plan.again + plan.opposite == 0) return;
    for (const Slot slot : plan.leaving) {
        const ChangeState state = states.of(slot);
        if (state.sent != SentDecision::none) plan.sentAt = std::max(plan.sentAt, state.sentAt);
    }
}

}  // namespace

PressPlan planPress(PressButton button, SelectedRecords selected, const PendingChanges& changes,
                    const AskedDetails& details, const TypedValue& typed) {
    PressPlan plan;
    plan.button = button;
    plan.refused = typed.refused;
    plan.edits = details.modifiedValues.size();
    if (typed.field && !details.modifiedValues.contains(*typed.field)) ++plan.edits;
    plan.key = details.key.value_or("");
    if (button == PressButton::recover) return plan;
    if (button == PressButton::update)
        planUpdate(plan, changes);
    else
        plan.deselected = changes.rows().selection().deselectedByFilter();
    if (button == PressButton::accept) planAccept(plan, selected, changes);
    if (button == PressButton::reject) plan.single.assign(selected.begin(), selected.end());
    countStates(plan, changes.states());
    return plan;
}

}  // namespace mc
