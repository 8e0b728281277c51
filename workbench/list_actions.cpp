#include "workbench/list_actions.h"

#include <algorithm>
#include <utility>

namespace mc {
namespace {

void showRow(Workbench& workbench, std::size_t row) {
    const PendingChanges& changes = workbench.changes();
    if (auto change = changes.recordIn(changes.rows().slotAt(row)))
        workbench.details().open(std::move(*change));
}

}  // namespace

// ---- Selecting and filtering ----

// While a text in the details is refused, they stay until its editor closes.
void ListActions::selectionMade() {
    if (m_workbench == nullptr) return;
    m_selectionWaits = !m_lists.details().leaveEditor();
    if (m_selectionWaits)
        m_workbench->selectionWaits();
    else
        m_workbench->selectionMade();
}

bool ListActions::applyMainFilter() {
    const bool applied = m_lists.applyMainFilter();
    if (m_workbench != nullptr) m_workbench->details().selectionMoved();
    return applied;
}

void ListActions::chooseQuickFilter(PaneCommand command) {
    QuickFilter& filter = m_workbench->changes().quickFilter();
    const QuickFilter::Choice before = filter.choice();
    if (command == PaneCommand::nextQuickFilter) filter.next();
    if (command == PaneCommand::quickFilterBack) filter.back();
    if (command == PaneCommand::quickFilterOff) filter.choose(QuickFilter::Kind::off);
    if (!applyMainFilter()) filter.putBack(before);
}

void ListActions::selectPair() {
    m_buttons.decide([this](Workbench& workbench) {
        const std::vector<Slot> halves = workbench.presses().missingHalves();
        const RecordStore& rows = workbench.changes().rows();
        const auto hidden = [&rows](Slot slot) { return !rows.rowOf(slot); };
        if (std::ranges::any_of(halves, hidden)) m_lists.resetMainFilters();
        if (halves.empty()) return;
        workbench.selectHalves(halves);
        if (const auto row = rows.rowOf(halves.front())) m_lists.bringIntoView(*row);
    });
}

// ---- Opening details ----

void ListActions::showSelected() {
    m_buttons.decide([](Workbench& workbench) {
        const auto& selected = workbench.changes().rows().selection().rows();
        if (!selected.empty()) showRow(workbench, selected.front());
    });
}

void ListActions::showFocused() {
    m_buttons.decide([](Workbench& workbench) {
        if (const auto row = workbench.changes().rows().selection().focusedRow())
            showRow(workbench, *row);
    });
}

void ListActions::openNext() {
    m_buttons.decide([this](Workbench& workbench) {
        if (!workbench.openNext()) return;
        if (const auto row = workbench.changes().rows().selection().focusedRow())
            m_lists.bringIntoView(*row);
    });
}

void ListActions::openNeighbour() {
    m_buttons.decide([this](Workbench& workbench) {
        const auto shown = workbench.details().key();
        const PendingChanges& changes = workbench.changes();
        const bool alone =
            shown && changes.rows().selection().count() == 1 && changes.selected(*shown);
        const auto next = workbench.details().openNeighbour();
        if (next && alone) m_lists.selectChange(next->slot);
    });
}

// ---- Editing ----

void ListActions::endOfEdit(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        m_lists.details().takeEdit(
            edit, m_workbench->details().valueEdited(edit.row.mnemonic, edit.typed));
}

void ListActions::endOfChoice(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        m_lists.details().takeEdit(
            edit, m_workbench->details().choiceMade(edit.row.mnemonic, edit.typed));
}

void ListActions::editorClosed() {
    m_buttons.stale();
    if (std::exchange(m_selectionWaits, false) && m_workbench != nullptr)
        m_workbench->selectionMade();
}

void ListActions::dropEdits() {
    m_buttons.decide([](Workbench& workbench) { workbench.details().dropEdits(); });
}

}  // namespace mc
