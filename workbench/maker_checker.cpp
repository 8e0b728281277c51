#include "workbench/maker_checker.h"

#include <algorithm>
#include <utility>

#include "framework/hwnd.h"
#include "listctrl/dialogs/whole_text.h"
#include "res/resource_ids.h"
#include "workbench/model/key_list.h"
#include "workbench/rejection_dialog.h"

namespace mc {
namespace {

constexpr char kCaption[] = "Maker Checker";

constexpr DWORD kPaneStyle =
    WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_DLGFRAME | kDockTop;  // its first side

// Deciding keys need Ctrl and Shift, and none of their letters is next to a viewing key's.
constexpr fw::ActionKey kActionKeys[] = {
    {'Y', true, IDC_ACCEPT, "Accept the selected changes (Ctrl+Shift+Y)"},
    {'N', true, IDC_REJECT, "Reject the selected changes (Ctrl+Shift+N)"},
    {'U', true, IDC_UPDATE, "Send the edited limits (Ctrl+Shift+U)"},
    {VK_F5, false, IDC_RECOVER, "Ask for everything that is pending (F5)"},
};

constexpr char kPressedUnseen[] = "Not sent, as this changed just before the press: ";

constexpr int kButtons[] = {IDC_ACCEPT, IDC_REJECT, IDC_UPDATE, IDC_RECOVER};  // of PressButton

PaneCommand commandOf(UINT key) {
    const Modifiers keys = modifiersDown();
    return paneCommand(key, keys.ctrl, keys.shift);
}

void showRow(Workbench& workbench, std::size_t row) {
    if (auto change = workbench.changes().recordAt(row)) workbench.showDetails(std::move(*change));
}

}  // namespace

CMakerChecker::CMakerChecker(Host& host, ListServices& lists)
    : m_host(host), m_bar(lists.settings(), IDD_MAKER_CHECKER), m_lists(lists), m_decisions(lists) {
    m_bar.setPath(lists.settings().GetUserSettingPath());
    m_bar.load();
}

bool CMakerChecker::createPane(HWND frame) {
    if (!create(frame, kCaption, IDD_MAKER_CHECKER, kPaneStyle, IDD_MAKER_CHECKER)) return false;
    if (!m_initialized) {  // for want of memory: a part of a pane decides nothing
        destroy();
        return false;
    }
    m_workbench->tellLinkFailures();
    return handle() != nullptr;
}

const fw::MessageMap& CMakerChecker::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &CMakerChecker::onInitDialog>(),
        fw::on<WM_SIZE, &CMakerChecker::onSize>(),
        fw::on<WM_DPICHANGED_AFTERPARENT, &CMakerChecker::onDpiChanged>(),
        fw::observe<WM_DESTROY, &CMakerChecker::onDestroy>(),
        fw::onCommand<IDC_ACCEPT, &CMakerChecker::onAccept, BN_CLICKED>(),
        fw::onCommand<IDC_REJECT, &CMakerChecker::onReject, BN_CLICKED>(),
        fw::onCommand<IDC_UPDATE, &CMakerChecker::onUpdate, BN_CLICKED>(),
        fw::onCommand<IDC_RECOVER, &CMakerChecker::onRecover, BN_CLICKED>(),
        fw::onCommand<IDC_CANCEL, &CMakerChecker::onCancel>(),
        fw::onCommand<IDC_PRESS_LINE, &CMakerChecker::selectPair, BN_CLICKED>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK), &CMakerChecker::onShowSelected>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_RETURN), &CMakerChecker::onShowFocused>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(LVN_ITEMCHANGED),
                     &CMakerChecker::onSelectionMade>(),
        fw::onNotify<IDC_MAIN_LIST, HDN_FILTERCHANGE, &CMakerChecker::onMainFilterChanged>(),
        fw::onNotify<IDC_DETAILS_LIST, HDN_FILTERCHANGE, &CMakerChecker::onDetailsFilterChanged>(),
        fw::onNotify<IDC_DECISIONS_LIST, HDN_FILTERCHANGE,
                     &CMakerChecker::onDecisionsFilterChanged>(),
        fw::on<kEndOfEdit, &CMakerChecker::onEndOfEdit>(),
        fw::on<kEndOfChoice, &CMakerChecker::onEndOfChoice>(),
        fw::on<kValueTyped, &CMakerChecker::onValueTyped>(),
        fw::on<kEditorClosed, &CMakerChecker::onEditorClosed>(),
    };
    static const fw::MessageMap map{&CPaneDialog::baseMap(), entries};
    return map;
}

LRESULT CMakerChecker::onInitDialog() {
    m_workbench = std::make_unique<Workbench>(m_host, m_lists);
    m_workbench->sight().setClock([] { return PressSight::Milliseconds(GetTickCount64()); });
    m_line.create(handle(), IDC_PRESS_LINE);
    m_lists.onNews([this] { m_line.stale(); });
    m_lists.open(handle(), listsRect(), m_workbench->changes());

    // Without the right nothing is offered for editing that could not be sent.
    auto* mayModify = m_host.modifyRightService();
    if (mayModify == nullptr || mayModify() == 0)
        ShowWindow(GetDlgItem(handle(), IDC_UPDATE), SW_HIDE);
    else
        m_lists.offerEditing(handle());
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        const HWND button = GetDlgItem(handle(), kButtons[i]);
        m_buttons.add(button);
        m_line.watch(button, static_cast<PressButton>(i));
    }
    m_initialized = true;
    return FALSE;
}

// ---- Lay-out ----

// The press line lies under the buttons, and the lists take what is left.
RECT CMakerChecker::listsRect() {
    RECT rect = clientRect();
    const int width = static_cast<int>(rect.right);
    const int line = m_buttons.arrange(width) + scaled(3), height = m_line.heightFor(width);
    rect.left += scaled(5);
    rect.right -= scaled(5);
    rect.bottom -= scaled(5);
    rect.top = std::max(scaled(55), line + height + scaled(3));
    SetWindowPos(m_line.handle(), nullptr, rect.left, line, std::max<int>(fw::widthOf(rect), 0),
                 height, SWP_NOZORDER | SWP_NOACTIVATE);
    return rect;
}

void CMakerChecker::onColorsChanged() {
    m_lists.colorsChanged();
    m_line.stale();
}

// The frame's own size may have stayed, and what is in it has not.
void CMakerChecker::onDpiChanged() {
    layOut();
    m_lists.layOut();
    m_decisions.layOut();
}

// The bar's default is of no use, and means that it has no size yet.
SIZE CMakerChecker::firstFloatSize() const {
    const BarSize size = m_bar.size();
    return size == kDefaultBarSize ? SIZE{} : SIZE{size.width, size.height};
}

void CMakerChecker::keepFloatSize() {
    const auto floated = lastFloatSize();
    if (!floated) return;
    m_bar.setSize({static_cast<int>(floated->cx), static_cast<int>(floated->cy)});
    m_bar.save();
}

void CMakerChecker::onDestroy() {
    keepFloatSize();
    if (m_workbench != nullptr) m_workbench->close();
}

// ---- Editing ----

void CMakerChecker::onEndOfEdit(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        m_lists.takeEdit(edit, m_workbench->valueEdited(edit.row.mnemonic, edit.typed));
}

void CMakerChecker::onEndOfChoice(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        m_lists.takeEdit(edit, m_workbench->choiceMade(edit.row.mnemonic, edit.typed));
}

// ---- Keys ----

std::span<const fw::ActionKey> CMakerChecker::actionKeys() const {
    return kActionKeys;
}

// From the buttons to the lists.
std::vector<HWND> CMakerChecker::tabStops() const {
    std::vector<HWND> stops;
    for (const int id : kButtons) stops.push_back(GetDlgItem(handle(), id));
    for (const auto& more : {m_lists.tabStops(), m_decisions.tabStops()})
        stops.insert(stops.end(), more.begin(), more.end());
    std::erase_if(stops, [](HWND stop) { return IsWindowVisible(stop) == 0; });
    return stops;
}

bool CMakerChecker::controlClaims(HWND control, UINT key) const {
    return m_lists.claims(control, key) || m_decisions.claims(control, key) ||
           commandOf(key) != PaneCommand::none;
}

// Opens at the newest decision about the change that the main list is at, or at the newest of all.
void CMakerChecker::toggleDecisions() {
    const bool hadFocus = m_decisions.hasFocus();
    if (m_decisions.isOpen()) {
        m_decisions.close();
        if (hadFocus) SetFocus(initialFocus());
        return layOut();
    }
    DecisionLog& log = m_workbench->decisionLog();
    const auto row = m_workbench->changes().rows().selection().focusedRow();
    const auto change = row ? m_workbench->changes().recordAt(*row) : std::nullopt;
    const Slot about = change ? log.newestAbout(change->key) : kNoSlot;
    m_decisions.open(handle(), log, about != kNoSlot ? about : log.newest());
    layOut();
}

void CMakerChecker::onDialogKey(UINT key, bool repeated) {
    if (const PaneCommand command = commandOf(key); command != PaneCommand::none) {
        if (!repeated) run(command);
        return;
    }
    switch (m_decisions.dialogKey(key, repeated)) {
        case DecisionsPanel::KeyUse::none:
            break;
        case DecisionsPanel::KeyUse::taken:
            return;
        case DecisionsPanel::KeyUse::closes:
            return run(PaneCommand::decisions);
    }
    switch (m_lists.dialogKey(key, repeated)) {
        case CheckerLists::KeyUse::none:
            return CPaneDialog::onDialogKey(key, repeated);
        case CheckerLists::KeyUse::taken:
            return;
        case CheckerLists::KeyUse::dropsEdits:
            return decide([](Workbench& workbench) { workbench.dropEdits(); });
    }
}

void CMakerChecker::run(PaneCommand command) {
    if (m_workbench == nullptr) return;
    switch (command) {
        case PaneCommand::none:
            break;
        case PaneCommand::keys:
            return showKeys();
        case PaneCommand::nextNeighbour:
            return onNextNeighbour();
        case PaneCommand::decisions:
            return toggleDecisions();
        case PaneCommand::nextQuickFilter:
        case PaneCommand::quickFilterBack:
        case PaneCommand::quickFilterOff:
            return chooseQuickFilter(command);
        case PaneCommand::selectPair:
            return selectPair();
        case PaneCommand::openNext:
            return openNext();
    }
}

// What a button does stands in its tip, before the key.
void CMakerChecker::showKeys() {
    std::vector<fw::KeyWords> buttons;
    for (const fw::ActionKey& each : kActionKeys) {
        const std::string_view tip = each.tip;
        if (IsWindowVisible(GetDlgItem(handle(), each.button)) != 0)
            buttons.push_back({fw::keyName(each.key, each.ctrlShift, each.ctrlShift),
                               tip.substr(0, tip.find(" ("))});
    }
    showText("Keys", keyList(buttons, m_lists.offers(), m_lists.offersEditing()), handle());
}

void CMakerChecker::chooseQuickFilter(PaneCommand command) {
    QuickFilter& filter = m_workbench->changes().quickFilter();
    if (command == PaneCommand::nextQuickFilter) filter.next();
    if (command == PaneCommand::quickFilterBack) filter.back();
    if (command == PaneCommand::quickFilterOff) filter.choose(QuickFilter::Kind::off);
    applyMainFilter();
}

void CMakerChecker::layOutAgain() {
    if (m_lists.mainWindow() == nullptr) return;
    layOut();
    m_lists.showWindows();
    dock();
}

// A press is dropped while an earlier one is at work, perhaps behind a message box.
template <class Decision>
void CMakerChecker::decide(Decision decision) {
    if (m_deciding || m_workbench == nullptr) return;
    struct Scope {
        bool& flag;
        explicit Scope(bool& set) : flag(set) { flag = true; }
        ~Scope() { flag = false; }
    } const scope(m_deciding);
    // An edit that is under way ends first; while its text is refused, nothing is decided.
    if (!m_lists.leaveEditor()) return;
    decision(*m_workbench);
}

// The line is about this button from the press to its end, and says what the press does.
template <class Decision>
void CMakerChecker::press(PressButton button, Decision decision) {
    decide([&](Workbench& workbench) {
        if (!pressedInSight(button)) return;
        struct Scope {
            CPressLine& line;
            ~Scope() { line.end(); }
        } const scope(m_line);
        m_line.begin(button);
        decision(workbench);
    });
}

// False for an Accept or Reject that the hand made before what it hits now could be seen.
bool CMakerChecker::pressedInSight(PressButton button) {
    const auto age = takePressAge();
    if (!age || (button != PressButton::accept && button != PressButton::reject)) return true;
    if (m_workbench->sight().seen(PressSight::Milliseconds(*age))) return true;
    m_line.refuse(kPressedUnseen);
    return false;
}

PressLine CMakerChecker::describe(PressButton button) const {
    if (m_workbench == nullptr) return {};
    return describePress(m_workbench->plan(button, m_lists.typed()), m_workbench->changes());
}

void CMakerChecker::onAccept() {
    press(PressButton::accept,
          [](Workbench& workbench) { workbench.accept(workbench.changes().selectedRecords()); });
}

void CMakerChecker::onReject() {
    press(PressButton::reject, [](Workbench& workbench) {
        workbench.reject(workbench.changes().selectedRecords(), askRejectionReason);
    });
}

void CMakerChecker::onUpdate() {
    press(PressButton::update, [](Workbench& workbench) { workbench.update(); });
}

void CMakerChecker::onRecover() {
    press(PressButton::recover, [](Workbench& workbench) { workbench.recover(); });
}

// Filters that hide a half are taken off.
void CMakerChecker::selectPair() {
    decide([this](Workbench& workbench) {
        const std::vector<Slot> halves = workbench.missingHalves();
        const RecordStore& rows = workbench.changes().rows();
        const auto hidden = [&rows](Slot slot) { return !rows.rowOf(slot); };
        if (std::ranges::any_of(halves, hidden)) m_lists.resetMainFilters();
        if (halves.empty()) return;
        workbench.selectHalves(halves);
        if (const auto row = rows.rowOf(halves.front())) m_lists.bringIntoView(*row);
    });
}

void CMakerChecker::openNext() {
    decide([this](Workbench& workbench) {
        if (!workbench.openNext()) return;
        if (const auto row = workbench.changes().rows().selection().focusedRow())
            m_lists.bringIntoView(*row);
    });
}

void CMakerChecker::applyMainFilter() {
    m_lists.applyMainFilter();
    if (m_workbench != nullptr) m_workbench->selectionMoved();
}

// While a text in the details is refused, they stay until its editor closes.
void CMakerChecker::onSelectionMade(NMHDR&) {
    if (m_workbench == nullptr) return;
    m_selectionWaits = !m_lists.leaveEditor();
    if (m_selectionWaits)
        m_workbench->selectionMoved();
    else
        m_workbench->selectionMade();
}

void CMakerChecker::onEditorClosed() {
    m_line.stale();
    if (std::exchange(m_selectionWaits, false) && m_workbench != nullptr)
        m_workbench->selectionMade();
}

// A double-click: of the first selected row.
void CMakerChecker::onShowSelected(NMHDR&) {
    decide([](Workbench& workbench) {
        const auto& selected = workbench.changes().rows().selection().rows();
        if (!selected.empty()) showRow(workbench, selected.front());
    });
}

// Enter: of the focused row, selected or not.
void CMakerChecker::onShowFocused(NMHDR&) {
    decide([](Workbench& workbench) {
        if (const auto row = workbench.changes().rows().selection().focusedRow())
            showRow(workbench, *row);
    });
}

// The neighbour takes over the selection of a change that was selected alone, so that what is read
// is what is decided; any other selection stays.
void CMakerChecker::onNextNeighbour() {
    decide([this](Workbench& workbench) {
        const auto shown = workbench.shownKey();
        const PendingChanges& changes = workbench.changes();
        const bool alone =
            shown && changes.rows().selection().count() == 1 && changes.selected(*shown);
        const auto next = workbench.showNeighbour();
        if (next && alone) m_lists.selectChange(next->slot);
    });
}

}  // namespace mc
