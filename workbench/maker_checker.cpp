#include "workbench/maker_checker.h"

#include "listctrl/dialogs/whole_text.h"
#include "res/resource_ids.h"
#include "workbench/model/key_list.h"

namespace mc {
namespace {

constexpr char kCaption[] = "Maker Checker";

constexpr DWORD kPaneStyle =
    WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_DLGFRAME | kDockTop;  // its first side

PaneCommand commandOf(UINT key) {
    const Modifiers keys = modifiersDown();
    return paneCommand(key, keys.ctrl, keys.shift);
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
    using C = CMakerChecker;
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &C::onInitDialog>(),
        fw::on<WM_SIZE, &C::layOut>(),
        fw::observe<WM_DESTROY, &C::onDestroy>(),
        fw::onCommand<IDC_ACCEPT, BN_CLICKED, &C::m_buttons, &DecisionButtons::accept>(),
        fw::onCommand<IDC_REJECT, BN_CLICKED, &C::m_buttons, &DecisionButtons::reject>(),
        fw::onCommand<IDC_UPDATE, BN_CLICKED, &C::m_buttons, &DecisionButtons::update>(),
        fw::onCommand<IDC_RECOVER, BN_CLICKED, &C::m_buttons, &DecisionButtons::recover>(),
        fw::onCommand<IDC_CANCEL, &C::onCancel>(),
        fw::onCommand<IDC_PRESS_LINE, BN_CLICKED, &C::m_actions, &ListActions::selectPair>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK), &C::m_actions,
                     &ListActions::showSelected>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_RETURN), &C::m_actions,
                     &ListActions::showFocused>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(LVN_ITEMCHANGED), &C::m_actions,
                     &ListActions::selectionMade>(),
        fw::onNotify<IDC_MAIN_LIST, HDN_FILTERCHANGE, &C::m_actions,
                     &ListActions::applyMainFilter>(),
        fw::onNotify<IDC_DETAILS_LIST, HDN_FILTERCHANGE, &C::m_lists,
                     &CheckerLists::applyDetailsFilter>(),
        fw::onNotify<IDC_DECISIONS_LIST, HDN_FILTERCHANGE, &C::m_decisions,
                     &DecisionsPanel::applyFilter>(),
        fw::on<kEndOfEdit, &C::m_actions, &ListActions::endOfEdit>(),
        fw::on<kEndOfChoice, &C::m_actions, &ListActions::endOfChoice>(),
        fw::on<kValueTyped, &C::m_buttons, &DecisionButtons::stale>(),
        fw::on<kEditorClosed, &C::m_actions, &ListActions::editorClosed>(),
    };
    static const fw::MessageMap map{&CPaneDialog::baseMap(), entries};
    return map;
}

LRESULT CMakerChecker::onInitDialog() {
    m_workbench = std::make_unique<Workbench>(m_host, m_lists, m_lists.details());
    m_workbench->sight().setClock([] { return PressSight::Milliseconds(GetTickCount64()); });
    m_workbench->sight().followPaint();
    m_actions.open(*m_workbench);
    m_buttons.open(*m_workbench);
    m_lists.onNews([this] { m_buttons.stale(); });
    m_lists.open(handle(), m_buttons.arrange(), m_workbench->changes());

    // Without the right nothing is offered for editing that could not be sent.
    auto* mayModify = m_host.modifyRightService();
    if (mayModify == nullptr || mayModify() == 0)
        ShowWindow(GetDlgItem(handle(), IDC_UPDATE), SW_HIDE);
    else
        m_lists.details().list()->setEditOwner(handle());
    m_buttons.addButtons();
    m_initialized = true;
    return FALSE;
}

// ---- Lay-out ----

void CMakerChecker::onColorsChanged() {
    m_lists.details().colorsChanged();
    m_buttons.stale();
}

// The frame's own size may have stayed, and what is in it has not.
void CMakerChecker::onDpiChanged() {
    m_buttons.followDpi();
    m_lists.followDpi();
    m_decisions.followDpi();
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
    const auto floated = docking().floating().lastSize();
    if (!floated) return;
    m_bar.setSize({static_cast<int>(floated->cx), static_cast<int>(floated->cy)});
    m_bar.save();
}

void CMakerChecker::onDestroy() {
    keepFloatSize();
    if (m_workbench != nullptr) m_workbench->close();
}

// ---- Keys ----

std::span<const fw::ActionKey> CMakerChecker::actionKeys() const {
    return DecisionButtons::keys();
}

// From the buttons to the lists.
std::vector<HWND> CMakerChecker::tabStops() const {
    std::vector<HWND> stops = m_buttons.windows();
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
    const PendingChanges& changes = m_workbench->changes();
    const auto row = changes.rows().selection().focusedRow();
    const auto change = row ? changes.recordIn(changes.rows().slotAt(*row)) : std::nullopt;
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
            return m_actions.dropEdits();
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
            return m_actions.openNeighbour();
        case PaneCommand::decisions:
            return toggleDecisions();
        case PaneCommand::nextQuickFilter:
        case PaneCommand::quickFilterBack:
        case PaneCommand::quickFilterOff:
            return m_actions.chooseQuickFilter(command);
        case PaneCommand::selectPair:
            return m_actions.selectPair();
        case PaneCommand::openNext:
            return m_actions.openNext();
    }
}

// A button's tip says what it does, then its key.
void CMakerChecker::showKeys() {
    std::vector<fw::KeyWords> buttons;
    for (const fw::ActionKey& each : DecisionButtons::keys()) {
        const std::string_view tip = each.tip;
        if (IsWindowVisible(GetDlgItem(handle(), each.button)) != 0)
            buttons.push_back({fw::keyName(each.key, each.ctrlShift, each.ctrlShift),
                               tip.substr(0, tip.find(" ("))});
    }
    showText("Keys", keyList(buttons, m_lists.offers(), m_lists.details().list()->offersEditing()),
             handle());
}

void CMakerChecker::layOutAgain() {
    if (m_lists.mainWindow() == nullptr) return;
    layOut();
    m_lists.showWindows();
    docking().dock();
}

}  // namespace mc
