#include "workbench/maker_checker.h"

#include <algorithm>
#include <utility>

#include "listctrl/list_colors.h"
#include "res/resource_ids.h"
#include "workbench/model/records/main_list.h"
#include "workbench/rejection_dialog.h"

namespace mc {
namespace {

constexpr char kCaption[] = "Maker Checker";
constexpr DWORD kPaneStyle = 0x46402834;  // docks at the top first

constexpr char kAllowedInValues[] =
    "0123456789.-qwertyuiopasdfghjklzxcvbnmQWERTYUIOPASDFGHJKLZXCVBNM"
    "!@#$%^&*()_`,./;':}{|~ ";

constexpr std::size_t kDetailsView = 1;  // among those that the holder frame holds

constexpr char kMainListName[] = "Maker checker List";
constexpr char kMainTitle[] = "Maker-Checker";
constexpr char kDetailsListName[] = "Maker Checker Details List";
constexpr char kDetailsTitle[] = "Maker Checker Details";

// What decides takes three fingers, and none of its chords lies beside one that only looks or
// selects.
constexpr fw::ActionKey kActionKeys[] = {
    {'Y', true, IDC_ACCEPT, "Accept the selected changes (Ctrl+Shift+Y)"},
    {'N', true, IDC_REJECT, "Reject the selected changes (Ctrl+Shift+N)"},
    {'U', true, IDC_UPDATE, "Send the edited limits (Ctrl+Shift+U)"},
    {VK_F5, false, IDC_RECOVER, "Ask for everything that is pending (F5)"},
};

constexpr int kButtons[] = {IDC_ACCEPT, IDC_REJECT, IDC_UPDATE, IDC_RECOVER};

// White, unless the user's text is too light to be read on it.
COLORREF detailsBackground() {
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const bool light = GetRValue(text) + GetGValue(text) + GetBValue(text) > 3 * 128;
    return light || highContrast() ? GetSysColor(COLOR_WINDOW) : RGB(255, 255, 255);
}

void showRow(Workbench& workbench, std::size_t row) {
    if (auto change = workbench.changes().recordAt(row)) workbench.showDetails(std::move(*change));
}

}  // namespace

CMakerChecker::CMakerChecker(Host& host, ListServices& lists)
    : m_host(host),
      m_listServices(lists),
      m_holder(lists.settings()),
      m_bar(lists.settings(), IDD_MAKER_CHECKER) {
    m_bar.setPath(lists.settings().GetUserSettingPath());
    m_bar.load();
}

bool CMakerChecker::createPane(HWND frame) {
    if (!create(frame, kCaption, IDD_MAKER_CHECKER, kPaneStyle, IDD_MAKER_CHECKER)) return false;
    m_workbench->tellLinkFailures();
    return handle() != nullptr;
}

const fw::MessageMap& CMakerChecker::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &CMakerChecker::onInitDialog>(),
        fw::on<WM_SIZE, &CMakerChecker::onSize>(),
        fw::on<WM_DPICHANGED_AFTERPARENT, &CMakerChecker::onDpiChanged>(),
        fw::observe<WM_SYSCOLORCHANGE, &CMakerChecker::onColorsChanged>(),
        fw::observe<WM_DESTROY, &CMakerChecker::onDestroy>(),
        fw::onCommand<IDC_ACCEPT, &CMakerChecker::onAccept, BN_CLICKED>(),
        fw::onCommand<IDC_REJECT, &CMakerChecker::onReject, BN_CLICKED>(),
        fw::onCommand<IDC_UPDATE, &CMakerChecker::onUpdate, BN_CLICKED>(),
        fw::onCommand<IDC_RECOVER, &CMakerChecker::onRecover, BN_CLICKED>(),
        fw::onCommand<IDC_CANCEL, &CMakerChecker::onCancel>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK), &CMakerChecker::onShowSelected>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_RETURN), &CMakerChecker::onShowFocused>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(LVN_ITEMCHANGED),
                     &CMakerChecker::onSelectionMade>(),
        fw::onNotify<IDC_MAIN_LIST, HDN_FILTERCHANGE, &CMakerChecker::onMainFilterChanged>(),
        fw::onNotify<IDC_DETAILS_LIST, HDN_FILTERCHANGE, &CMakerChecker::onDetailsFilterChanged>(),
        fw::on<kEndOfEdit, &CMakerChecker::onEndOfEdit>(),
        fw::on<kEndOfChoice, &CMakerChecker::onEndOfChoice>(),
        fw::on<kEditorClosed, &CMakerChecker::onEditorClosed>(),
    };
    static const fw::MessageMap map{&CPaneDialog::baseMap(), entries};
    return map;
}

LRESULT CMakerChecker::onInitDialog() {
    m_workbench = std::make_unique<Workbench>(m_host, static_cast<WorkbenchView&>(*this));
    mainList = std::make_unique<CFilterListCtrl>(m_listServices, m_workbench->changes().rows());
    detailsList = std::make_unique<CMultiLineEditListCtrl>(m_listServices, m_detailLines);
    m_holder.create(handle(), listsPlace(), IDC_HOLDER_FRAME);
    mainList->create(m_holder.handle(), IDC_MAIN_LIST, kMainListName, kMainTitle);
    detailsList->create(m_holder.handle(), IDC_DETAILS_LIST, kDetailsListName, kDetailsTitle);
    mainList->setEmptyText("No pending changes");
    m_holder.setViews({held(*mainList, kMainTitle, kMainListName),
                       held(*detailsList, kDetailsTitle, kDetailsListName)});
    mainList->setColumns(
        kMainColumns,
        [&changes = m_workbench->changes()](Slot record, ColumnId column) {
            return changes.cellText(record, column);
        },
        kMandatoryMainColumns);
    mainList->offerColumns(true, true);
    mainList->storeChanged();
    detailsList->setDetailColumns();
    detailsList->offerColumns(false, false);
    detailsList->setBackground(detailsBackground());
    detailsList->setAllowedCharacters(kAllowedInValues);
    detailsList->setChoices({"E", "D"});

    // Without the right nothing is offered for editing that could not be sent.
    auto* mayModify = m_host.modifyRightService();
    if (mayModify == nullptr || mayModify() == 0)
        ShowWindow(GetDlgItem(handle(), IDC_UPDATE), SW_HIDE);
    else
        detailsList->setEditOwner(handle());
    for (const int id : kButtons) m_buttons.add(GetDlgItem(handle(), id));
    return FALSE;
}

// ---- Lay-out ----

HeldView CMakerChecker::held(CFilterListCtrl& list, const char* title, const char* keyName) {
    return {list.handle(), title, keyName, [&list] { list.command(kCustomizeCommand); }};
}

SIZE CMakerChecker::leastSize() const {
    return {scaled(220), scaled(320)};
}

SIZE CMakerChecker::firstFloatSize() const {
    return {m_bar.size().width, m_bar.size().height};
}

// The lists take what the buttons leave.
RECT CMakerChecker::listsPlace() const {
    RECT place = clientRect();
    place.left += scaled(5);
    place.top = std::max(scaled(55), m_buttons.arrange(static_cast<int>(place.right)) + scaled(4));
    place.right -= scaled(5);
    place.bottom -= scaled(5);
    return place;
}

void CMakerChecker::layOut() {
    if (m_holder.handle() != nullptr) m_holder.move(listsPlace());
}

// The frame's own size may have stayed, and what stands in it has not.
void CMakerChecker::onDpiChanged() {
    layOut();
    m_holder.layOut();
}

void CMakerChecker::onColorsChanged() {
    detailsList->setBackground(detailsBackground());
    for (const HWND list : {mainList->handle(), detailsList->handle()})
        SendMessageA(list, WM_SYSCOLORCHANGE, 0, 0);
}

void CMakerChecker::onDestroy() {
    if (const auto floated = lastFloatSize()) {
        m_bar.setSize({static_cast<int>(floated->cx), static_cast<int>(floated->cy)});
        m_bar.save();
    }
    if (m_workbench != nullptr) m_workbench->close();
}

void CMakerChecker::rowsChanged() {
    if (mainList != nullptr) mainList->storeChanged();
}

void CMakerChecker::emptyDetails() {
    if (detailsList != nullptr) detailsList->empty();
}

// Filters belong to the details they were typed for.
void CMakerChecker::showDetails(std::vector<DetailGroup> groups, bool anotherChange) {
    if (detailsList == nullptr) return;
    if (anotherChange) detailsList->resetFilters();
    detailsList->replace(std::move(groups));
}

void CMakerChecker::editsSent() {
    if (detailsList != nullptr) detailsList->editsSent();
}

void CMakerChecker::editsDropped() {
    if (detailsList != nullptr) detailsList->editsDropped();
}

void CMakerChecker::captionDetails(const DetailsCaption& caption) {
    if (detailsList == nullptr) return;
    detailsList->setEmptyText(caption.emptyText);
    detailsList->setDimmed(caption.dimmed);
    m_holder.setTitle(kDetailsView, caption.title);
    SetWindowTextA(detailsList->handle(), caption.title.c_str());  // what screen readers call it
}

// ---- Editing ----

void CMakerChecker::onEndOfEdit(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        takeEdit(edit, m_workbench->valueEdited(edit.row.mnemonic, edit.typed));
}

void CMakerChecker::onEndOfChoice(const EndOfEdit& edit) {
    if (m_workbench != nullptr)
        takeEdit(edit, m_workbench->choiceMade(edit.row.mnemonic, edit.typed));
}

// The row shows what the update will send, not what was typed. A value that will not be sent stays
// as it was; a row without a field shows what was typed.
void CMakerChecker::takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored) {
    if (edit.column != "Value" || (!stored && edit.row.mnemonic != 0)) return;
    const std::string before = std::exchange(edit.row.value, stored.value_or(edit.typed));
    if (!edit.row.edited) edit.row.received = before;
    edit.row.edited = stored.has_value();
}

HWND CMakerChecker::initialFocus() const {
    return mainList != nullptr ? mainList->handle() : nullptr;
}

// ---- Keys ----

std::span<const fw::ActionKey> CMakerChecker::actionKeys() const {
    return kActionKeys;
}

// From the buttons to the filter row, to the list below it, to the bar, and the same for the
// details.
std::vector<HWND> CMakerChecker::tabStops() const {
    std::vector<HWND> stops;
    for (const int id : kButtons) stops.push_back(GetDlgItem(handle(), id));
    const auto append = [&stops](const CFilterListCtrl& list) {
        const auto boxes = list.filterStops();
        stops.insert(stops.end(), boxes.begin(), boxes.end());
        stops.push_back(list.handle());
    };
    append(*mainList);
    stops.push_back(m_holder.bar(0));
    append(*detailsList);
    std::erase_if(stops, [](HWND stop) { return IsWindowVisible(stop) == 0; });
    return stops;
}

bool CMakerChecker::controlClaims(HWND control, UINT key) const {
    if (mainList == nullptr) return false;
    return (control == mainList->handle() && mainList->claims(key)) ||
           (control == detailsList->handle() && detailsList->claims(key));
}

// A key that is held since it was pressed in an editor never leaves the editors.
void CMakerChecker::onDialogKey(UINT key, bool repeated) {
    if (mainList == nullptr) return;
    const HWND focus = GetFocus();
    const bool editing = detailsList->editing(focus);
    if (!repeated) m_heldInEditor = editing;
    if (editing ? detailsList->editorKey(key, repeated) : repeated && m_heldInEditor) return;
    if (!repeated && (mainList->dialogKey(focus, key) || detailsList->dialogKey(focus, key)))
        return;
    if (key == VK_ESCAPE && !repeated &&
        (focus == mainList->handle() || focus == detailsList->handle()))
        return decide([](Workbench& workbench) { workbench.dropEdits(); });
    CPaneDialog::onDialogKey(key, repeated);
}

void CMakerChecker::layOutAgain() {
    if (m_holder.handle() == nullptr) return;
    layOut();
    for (const HWND window : {mainList->handle(), detailsList->handle(), m_holder.handle()})
        ShowWindow(window, SW_SHOWNA);
    dock();
}

// One decision at a time: a press while the last one still reports something is dropped.
template <class Decision>
void CMakerChecker::decide(Decision decision) {
    if (m_deciding || m_workbench == nullptr) return;
    struct Scope {
        bool& flag;
        explicit Scope(bool& set) : flag(set) { flag = true; }
        ~Scope() { flag = false; }
    } const scope(m_deciding);
    // A value that is being typed counts; one that is refused stops the press.
    if (!detailsList->leaveEditor()) return;
    decision(*m_workbench);
}

void CMakerChecker::onAccept() {
    decide([](Workbench& workbench) { workbench.accept(workbench.changes().selectedRecords()); });
}

void CMakerChecker::onReject() {
    decide([](Workbench& workbench) {
        workbench.reject(workbench.changes().selectedRecords(), askRejectionReason);
    });
}

void CMakerChecker::onUpdate() {
    decide([](Workbench& workbench) { workbench.update(); });
}

void CMakerChecker::onRecover() {
    decide([](Workbench& workbench) { workbench.recover(); });
}

void CMakerChecker::onMainFilterChanged(NMHDR&) {
    mainList->applyFilter();
    if (m_workbench != nullptr) m_workbench->selectionMoved();
}

// While a text in the details is refused, they stay until its editor closes.
void CMakerChecker::onSelectionMade(NMHDR&) {
    if (m_workbench == nullptr) return;
    m_selectionWaits = !detailsList->leaveEditor();
    if (m_selectionWaits)
        m_workbench->selectionMoved();
    else
        m_workbench->selectionMade();
}

void CMakerChecker::onEditorClosed() {
    if (std::exchange(m_selectionWaits, false) && m_workbench != nullptr)
        m_workbench->selectionMade();
}

// A double-click: of the first selected row.
void CMakerChecker::onShowSelected(NMHDR&) {
    decide([](Workbench& workbench) {
        const auto& selected = workbench.changes().rows().selectedRows();
        if (!selected.empty()) showRow(workbench, selected.front());
    });
}

// Enter: of the focused row, selected or not.
void CMakerChecker::onShowFocused(NMHDR&) {
    decide([](Workbench& workbench) {
        if (const auto row = workbench.changes().rows().focusedRow()) showRow(workbench, *row);
    });
}

}  // namespace mc
