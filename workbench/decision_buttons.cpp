#include "workbench/decision_buttons.h"

#include <algorithm>

#include "framework/hwnd.h"
#include "res/resource_ids.h"
#include "workbench/rejection_dialog.h"

namespace mc {
namespace {

// Deciding keys need Ctrl and Shift, and none of their letters is next to a viewing key's.
constexpr fw::ActionKey kActionKeys[] = {
    {'Y', true, IDC_ACCEPT, "Accept the selected changes (Ctrl+Shift+Y)"},
    {'N', true, IDC_REJECT, "Reject the selected changes (Ctrl+Shift+N)"},
    {'U', true, IDC_UPDATE, "Send the edited limits (Ctrl+Shift+U)"},
    {VK_F5, false, IDC_RECOVER, "Ask for everything that is pending (F5)"},
};

constexpr char kPressedUnseen[] = "Not sent, as this changed just before the press: ";
constexpr char kLeftOut[] = "What was published again meanwhile was not sent: ";

// What a press of each button hits; none: it needs no sight.
constexpr std::optional<PressSight::Hits> kHits[] = {PressSight::Hits::selection,
                                                     PressSight::Hits::selection,
                                                     PressSight::Hits::details, std::nullopt};

constexpr int kButtons[] = {IDC_ACCEPT, IDC_REJECT, IDC_UPDATE, IDC_RECOVER};  // of PressButton

}  // namespace

void DecisionButtons::open(Workbench& workbench) {
    m_workbench = &workbench;
    m_line.create(m_pane.handle(), IDC_PRESS_LINE);
}

void DecisionButtons::addButtons() {
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        const HWND button = GetDlgItem(m_pane.handle(), kButtons[i]);
        m_buttons.add(button);
        m_line.watch(button, static_cast<PressButton>(i));
    }
}

std::vector<HWND> DecisionButtons::windows() const {
    std::vector<HWND> windows;
    for (const int id : kButtons) windows.push_back(GetDlgItem(m_pane.handle(), id));
    return windows;
}

std::span<const fw::ActionKey> DecisionButtons::keys() {
    return kActionKeys;
}

// The press line lies under the buttons, and the lists take what is left.
RECT DecisionButtons::arrange() {
    RECT rect = m_pane.clientRect();
    const int width = static_cast<int>(rect.right);
    const int line = m_buttons.arrange(width) + m_pane.scaled(3), height = m_line.heightFor(width);
    rect.left += m_pane.scaled(5);
    rect.right -= m_pane.scaled(5);
    rect.bottom -= m_pane.scaled(5);
    rect.top = std::max(m_pane.scaled(55), line + height + m_pane.scaled(3));
    SetWindowPos(m_line.handle(), nullptr, rect.left, line, std::max<int>(fw::widthOf(rect), 0),
                 height, SWP_NOZORDER | SWP_NOACTIVATE);
    return rect;
}

// The line is about this button from the press to its end, and says what the press does.
template <class Decision>
void DecisionButtons::press(PressButton button, Decision decision) {
    decide([&](Workbench& workbench) {
        if (pressedInSight(button)) {
            struct Scope {
                CPressLine& line;
                ~Scope() { line.end(); }
            } const scope(m_line);
            m_line.begin(button);
            decision(workbench);
        }
        if (!workbench.sight().heldBack()) return;
        m_line.changesIn(PressSight::kSpokenOf);
        m_line.paint();
        workbench.sight().painted();  // where the line has no room, too
    });
}

// False for a press that the hand made before what it hits now could be seen. What a filter box is
// about to hide counts as hidden by then.
bool DecisionButtons::pressedInSight(PressButton button) {
    const auto age = m_pane.keys().takePressAge();
    const auto hits = kHits[static_cast<std::size_t>(button)];
    if (hits == PressSight::Hits::selection && !typedFilterKeepsSelection()) {
        m_workbench->sight().holdsBack();
        return false;
    }
    return m_workbench->sight().takes(
        hits.value_or(PressSight::Hits::selection),
        hits && age ? std::optional(PressSight::Milliseconds(*age)) : std::nullopt);
}

// A text that waits in a filter box applies first. False: that changed what is selected, or Esc
// ended it.
bool DecisionButtons::typedFilterKeepsSelection() {
    const SelectedRows& selection = m_workbench->changes().rows().selection();
    const auto before = selection.revision();
    const bool applied = m_lists.applyTypedFilter();
    m_workbench->details().selectionMoved();
    return applied && selection.revision() == before;
}

PressLine DecisionButtons::describe(PressButton button) const {
    if (m_workbench == nullptr) return {};
    PressLine line = describePress(m_workbench->presses().plan(button, m_lists.details().typed()),
                                   m_workbench->changes());
    const PressSight& sight = m_workbench->sight();
    if (sight.heldBack()) line.warning.insert(0, sight.leftOut() ? kLeftOut : kPressedUnseen);
    return line;
}

void DecisionButtons::accept() {
    press(PressButton::accept, [](Workbench& workbench) {
        workbench.presses().accept(workbench.changes().selectedRecords());
    });
}

void DecisionButtons::reject() {
    press(PressButton::reject, [](Workbench& workbench) {
        workbench.presses().reject(workbench.changes().selectedRecords(), askRejectionReason);
    });
}

void DecisionButtons::update() {
    press(PressButton::update, [](Workbench& workbench) { workbench.presses().update(); });
}

void DecisionButtons::recover() {
    press(PressButton::recover, [](Workbench& workbench) { workbench.presses().recover(); });
}

}  // namespace mc
