#include "workbench/maker_checker.h"

#include "res/resource_ids.h"
#include "workbench/model/main_list.h"
#include "workbench/rejection_dialog.h"

namespace {

constexpr char kCaption[] = "Maker Checker";
constexpr DWORD kPaneStyle = 0x46402834;  // docks at the top first

constexpr sVoskColInfo kDetailColumns[] = {
    {"Field", 160, 0, ColumnType::text},
    {"Value", 200, 2, ColumnType::text},
    {"Old Value", 200, 2, ColumnType::text},
};

}  // namespace

std::vector<sMakeCheckStruct*> CMainListCtrl::selectedRecords() {
    std::vector<sMakeCheckStruct*> records;
    for (const std::size_t row : selectedRows())
        if (row < rowCount()) records.push_back(&m_changes->at(row));
    return records;
}

std::size_t CMainListCtrl::rowCount() const {
    return m_changes != nullptr ? m_changes->size() : 0;
}

std::string_view CMainListCtrl::cellText(std::size_t row, int column) const {
    return mainCellText(m_changes->at(row), column);
}

bool CMakerChecker::createPane(HWND frame) {
    return create(frame, kCaption, IDD_MAKER_CHECKER, kPaneStyle, IDD_MAKER_CHECKER);
}

const fw::MessageMap& CMakerChecker::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_INITDIALOG, &CMakerChecker::onInitDialog>(),
        fw::on<WM_SIZE, &CMakerChecker::onSize>(),
        fw::observe<WM_DESTROY, &CMakerChecker::onDestroy>(),
        fw::onCommand<IDC_ACCEPT, &CMakerChecker::onAccept>(),
        fw::onCommand<IDC_REJECT, &CMakerChecker::onReject>(),
        fw::onCommand<IDC_UPDATE, &CMakerChecker::onUpdate>(),
        fw::onCommand<IDC_RECOVER, &CMakerChecker::onRecover>(),
        fw::onCommand<IDC_CANCEL, &CMakerChecker::onCancel>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_DBLCLK), &CMakerChecker::onShowDetails>(),
        fw::onNotify<IDC_MAIN_LIST, static_cast<UINT>(NM_RETURN), &CMakerChecker::onShowDetails>(),
    };
    static const fw::MessageMap map{&CPaneDialog::baseMap(), entries};
    return map;
}

LRESULT CMakerChecker::onInitDialog() {
    m_workbench = std::make_unique<Workbench>(m_host, static_cast<WorkbenchView&>(*this));
    m_holder.create(handle(), listsPlace(), IDC_HOLDER_FRAME);
    mainList.create(m_holder.handle(), IDC_MAIN_LIST, "Maker checker List");
    detailsList.create(m_holder.handle(), IDC_DETAILS_LIST, "Maker Checker Details List");
    m_holder.setViews(mainList.handle(), detailsList.handle());
    mainList.setColumns(kMainColumns);
    mainList.setChanges(&m_workbench->changes());
    mainList.rowsReset();
    detailsList.setColumns(kDetailColumns);
    detailsList.setBackground(RGB(255, 255, 255));

    auto* mayModify = m_host.modifyRightService();
    if (mayModify == nullptr || mayModify() == 0)
        ShowWindow(GetDlgItem(handle(), IDC_UPDATE), SW_HIDE);
    return FALSE;
}

// The lists take what the row of buttons leaves.
RECT CMakerChecker::listsPlace() const {
    RECT place = clientRect();
    place.left += scaled(5);
    place.top += scaled(55);
    place.right -= scaled(5);
    place.bottom -= scaled(5);
    return place;
}

void CMakerChecker::onSize(int, int) {
    if (m_holder.handle() != nullptr) m_holder.move(listsPlace());
}

void CMakerChecker::onDestroy() {
    mainList.setChanges(nullptr);
    m_workbench.reset();
}

void CMakerChecker::layOutAgain() {
    if (m_holder.handle() == nullptr) return;
    m_holder.move(listsPlace());
    for (const HWND window : {mainList.handle(), detailsList.handle(), m_holder.handle()})
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
    decision(*m_workbench);
}

void CMakerChecker::onAccept() {
    decide([this](Workbench& workbench) { workbench.accept(mainList.selectedRecords()); });
}

void CMakerChecker::onReject() {
    decide([this](Workbench& workbench) {
        const std::string reason = askRejectionReason();
        workbench.reject(mainList.selectedRecords(), reason);
    });
}

void CMakerChecker::onUpdate() {
    decide([](Workbench& workbench) { workbench.update(); });
}

void CMakerChecker::onRecover() {
    decide([](Workbench& workbench) { workbench.recover(); });
}

void CMakerChecker::onShowDetails(NMHDR&) {
    decide([this](Workbench& workbench) {
        const auto selected = mainList.selectedRecords();
        if (!selected.empty()) workbench.showDetails(*selected.front());
    });
}
