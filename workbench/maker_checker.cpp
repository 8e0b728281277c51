#include "workbench/maker_checker.h"

#include <algorithm>

#include "listctrl/list_colors.h"
#include "res/resource_ids.h"
#include "workbench/model/main_list.h"
#include "workbench/rejection_dialog.h"

namespace {

constexpr char kCaption[] = "Maker Checker";
constexpr DWORD kPaneStyle = 0x46402834;  // docks at the top first

constexpr char kAllowedInValues[] =
    "0123456789.-qwertyuiopasdfghjklzxcvbnmQWERTYUIOPASDFGHJKLZXCVBNM"
    "!@#$%^&*()_`,./;':}{|~ ";

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
        fw::onCommand<IDC_ACCEPT, &CMakerChecker::onAccept>(),
        fw::onCommand<IDC_REJECT, &CMakerChecker::onReject>(),
        fw::onCommand<IDC_UPDATE, &CMakerChecker::onUpdate>(),
        fw::onCommand<IDC_RECOVER, &CMakerChecker::onRecover>(),
        fw::onCommand<IDC_CANCEL, &CMakerChecker::onCancel>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK), &CMakerChecker::onShowDetails>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_RETURN), &CMakerChecker::onShowDetails>(),
        fw::onNotify<IDC_MAIN_LIST, HDN_FILTERCHANGE, &CMakerChecker::onMainFilterChanged>(),
        fw::onNotify<IDC_DETAILS_LIST, HDN_FILTERCHANGE, &CMakerChecker::onDetailsFilterChanged>(),
        fw::on<kEndOfEdit, &CMakerChecker::onEndOfEdit>(),
        fw::on<kEndOfChoice, &CMakerChecker::onEndOfChoice>(),
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
    detailsList->setEmptyText("Double-click a change to see its details");
    m_holder.setViews({held(*mainList, kMainTitle, kMainListName),
                       held(*detailsList, kDetailsTitle, kDetailsListName)});
    mainList->setColumns(
        kMainColumns,
        [](const void* record, int column) {
            return mainCellText(*static_cast<const PendingChanges::Entry*>(record), column);
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

void CMakerChecker::showDetails(std::vector<DetailGroup> groups) {
    if (detailsList != nullptr) detailsList->append(std::move(groups));
}

void CMakerChecker::editsSent() {
    if (detailsList != nullptr) detailsList->editsSent();
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
    edit.row.value = stored.value_or(edit.typed);
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

bool CMakerChecker::moveFocus(bool backwards) {
    const std::vector<HWND> stops = tabStops();
    const auto at = std::find(stops.begin(), stops.end(), GetFocus());
    if (at == stops.end()) return false;
    const auto count = stops.size();
    const auto place = static_cast<std::size_t>(at - stops.begin());
    const HWND next = stops[(place + (backwards ? count - 1 : 1)) % count];
    // Through the dialog, which moves the mark of the default button along.
    SendMessageA(handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    return true;
}

void CMakerChecker::onDialogKey(UINT key, bool repeated) {
    const HWND focus = GetFocus();
    if (key == VK_TAB && mainList != nullptr && moveFocus(GetKeyState(VK_SHIFT) < 0)) return;
    if (mainList != nullptr && !repeated &&
        (mainList->dialogKey(focus, key) || detailsList->dialogKey(focus, key)))
        return;
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
    detailsList->leaveEditor();  // a key may come while a value is being typed
    decision(*m_workbench);
}

void CMakerChecker::onAccept() {
    decide([](Workbench& workbench) { workbench.accept(workbench.changes().selectedRecords()); });
}

void CMakerChecker::onReject() {
    decide([](Workbench& workbench) {
        const std::string reason = askRejectionReason();
        workbench.reject(workbench.changes().selectedRecords(), reason);
    });
}

void CMakerChecker::onUpdate() {
    decide([](Workbench& workbench) { workbench.update(); });
}

void CMakerChecker::onRecover() {
    decide([](Workbench& workbench) { workbench.recover(); });
}

// To look at a row is to touch it: from here on it can be decided.
void CMakerChecker::onShowDetails(NMHDR&) {
    decide([this](Workbench& workbench) {
        RecordStore& rows = workbench.changes().rows();
        const auto selected = rows.selectedRows();
        if (selected.empty()) return;
        rows.select(selected.front(), true);
        mainList->storeChanged();
        workbench.showDetails(
            *static_cast<PendingChanges::Entry*>(rows.recordAt(selected.front())));
    });
}
