#include "listctrl/common_list_ctrl.h"

#include <algorithm>

#include "settings/model/settings_store.h"

namespace mc {
namespace {

// Every list of the process, for loading their profiles anew.
std::vector<CCommonListCtrl*>& allLists() {
    static std::vector<CCommonListCtrl*> lists;
    return lists;
}

constexpr int kNoSortImage = 0;
constexpr int kAscendingImage = 1;
constexpr int kDescendingImage = 2;

}  // namespace

CCommonListCtrl::CCommonListCtrl(ListServices& services, RecordStore& store)
    : m_services(services), m_store(store), m_rules(store) {
    allLists().push_back(this);
}

CCommonListCtrl::~CCommonListCtrl() {
    std::erase(allLists(), this);
    if (m_reader) m_store.setCellReader({});
}

bool CCommonListCtrl::create(HWND parent, UINT id, std::string name, std::string title) {
    m_name = std::move(name);
    m_title = std::move(title);
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | WS_CLIPCHILDREN |
                        LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SHOWSELALWAYS;
    const HWND list =
        CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, m_name.c_str(), style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), fw::module(), nullptr);
    if (!subclass(list)) return false;
    const auto font = SendMessageA(GetAncestor(parent, GA_PARENT), WM_GETFONT, 0, 0);
    SendMessageA(list, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    readAppearance();
    return true;
}

// ---- Columns ----

void CCommonListCtrl::setColumns(std::span<const sVoskColInfo> columns, DataReader reader,
                                 std::span<const ColumnId> mandatory) {
    m_columns.install(columns, scaled(USER_DEFAULT_SCREEN_DPI));
    m_columns.setMandatory(mandatory);
    m_reader = std::move(reader);
    m_store.setCellReader(
        [this](Slot record, ColumnId column) { return readCell(record, column); });
    readProfile();
    columnsChanged();
}

void CCommonListCtrl::readProfile() {
    std::string stored;
    if (m_services.settings().AccessColumnProfile(SETTING_READ, m_name, stored) != 0 &&
        !stored.empty())
        m_columns.apply(mc::readProfile(stored));
}

bool CCommonListCtrl::saveColumnProfile() {
    std::string text = profileText(m_columns.profile());
    if (text.size() <= kLongestProfile &&  // else it would come back cut
        m_services.settings().AccessColumnProfile(SETTING_WRITE, m_name, text) != 0)
        return true;
    m_services.showMessage("Error while saving column profile");
    return false;
}

void CCommonListCtrl::loadAllColumnProfiles() {
    for (CCommonListCtrl* list : allLists()) {
        list->readProfile();
        list->columnsChanged();
    }
}

void CCommonListCtrl::columnsChanged() {
    cellsMove();
    compileExpressions();
    m_updating = true;  // the header's own notifications say nothing new
    {
        const fw::RedrawOffScope off(handle());
        while (SendMessageA(handle(), LVM_DELETECOLUMN, 0, 0) != 0) continue;
        int item = 0;
        for (const ColumnId id : m_columns.shown()) {
            const ColumnDescriptor& column = m_columns.descriptor(id);
            LVCOLUMNA info{};
            info.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
            info.pszText = const_cast<char*>(column.caption.c_str());
            info.cx = m_columns.width(id);
            info.fmt = column.flag;
            info.iSubItem = item;
            SendMessageA(handle(), LVM_INSERTCOLUMNA, static_cast<WPARAM>(item++),
                         reinterpret_cast<LPARAM>(&info));
        }
    }
    m_updating = false;
    measureHeader();
    headerBuilt();
    sortAgain();
    InvalidateRect(handle(), nullptr, TRUE);
}

LRESULT CCommonListCtrl::onHeaderItemChanging(NMHEADERA& info) {
    const bool width = info.pitem != nullptr && (info.pitem->mask & HDI_WIDTH) != 0;
    if (width && !m_updating && !beforeCellsMove()) return TRUE;
    return controlDefault(WM_NOTIFY, info.hdr.idFrom, reinterpret_cast<LPARAM>(&info));
}

LRESULT CCommonListCtrl::onHeaderItemChanged(NMHEADERA& info) {
    if (!m_updating && info.pitem != nullptr && (info.pitem->mask & HDI_WIDTH) != 0 &&
        static_cast<std::size_t>(info.iItem) < m_columns.shown().size()) {
        m_columns.setWidth(columnAt(info.iItem), info.pitem->cxy);
        onHeaderMoved();
        PostMessageA(handle(), kHeaderMoved, 0, 0);
    }
    return controlDefault(WM_NOTIFY, info.hdr.idFrom, reinterpret_cast<LPARAM>(&info));
}

void CCommonListCtrl::onHeaderMoved() {
    measureHeader();
    headerBuilt();
    InvalidateRect(handle(), nullptr, FALSE);
}

// ---- Rows ----

std::string_view CCommonListCtrl::readCell(Slot record, ColumnId column) {
    if (!m_reader) return {};
    const bool data = toIndex(column) < m_columns.dataSize();
    return data ? m_reader(record, column) : computeCell(record, column);
}

void CCommonListCtrl::compileExpressions() {
    std::vector<std::string> expressions;
    for (std::size_t i = m_columns.dataSize(); i < m_columns.size(); ++i) {
        expressions.push_back(m_columns.descriptor(toColumnId(i)).expression);
        m_store.columnChanged(toColumnId(i));
    }
    m_computedColumns.emplace(m_columns.dataSize(), expressions);
    m_toldInvalid.assign(m_columns.size(), false);
}

// A cell without a value stays empty. An invalid expression is told once, not once per row; so is
// one that refers to a column that was deleted.
std::string_view CCommonListCtrl::computeCell(Slot record, ColumnId id) {
    const std::size_t column = toIndex(id);
    m_computed.clear();
    if (!m_computedColumns || column >= m_computedColumns->columns()) return {};
    const auto fetch = [&](int data) {
        return CellFetch::Result(m_reader(record, ColumnId{data}));
    };
    const CellOutcome outcome = m_computedColumns->compute(column, fetch, m_computed);
    if (!m_toldInvalid[column] &&
        (outcome == CellOutcome::invalid ||
         (outcome == CellOutcome::notFetched && !m_columns.isValid(id)))) {
        m_toldInvalid[column] = true;
        PostMessageA(handle(), kTellInvalid, 0, 0);
    }
    return m_computed;
}

std::string_view CCommonListCtrl::cellText(std::size_t row, ColumnId column) const {
    return m_store.cellText(row, column);
}

// Painting comes when the thread's queue is empty, and with it the update.
void CCommonListCtrl::storeChanged() {
    if (m_stale || handle() == nullptr) return;
    m_stale = true;
    InvalidateRect(handle(), nullptr, TRUE);
}

void CCommonListCtrl::beforeMessage(UINT message) {
    if (m_stale && !m_updating && message != WM_DESTROY) bringUpToDate();
}

void CCommonListCtrl::bringUpToDate() {
    m_updating = true;
    m_stale = false;
    m_hovered.reset();  // another text may stand there now
    m_cellTip.hide();
    const RowChanges changes = m_store.takeChanges();
    if (changes.count) {
        const fw::RedrawOffScope off(handle());
        SendMessageA(handle(), LVM_SETITEMCOUNT, m_store.rowCount(),
                     LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    }
    InvalidateRect(handle(), nullptr, TRUE);
    m_updating = false;
}

LRESULT CCommonListCtrl::onGetDispInfo(NMLVDISPINFOA& info) {
    LVITEMA& item = info.item;
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return 0;
    std::string_view text;
    if (item.iItem >= 0 && item.iSubItem >= 0 &&
        static_cast<std::size_t>(item.iSubItem) < m_columns.shown().size())
        text = cellText(static_cast<std::size_t>(item.iItem), columnAt(item.iSubItem));
    const auto copied = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[copied] = '\0';
    return 0;
}

void CCommonListCtrl::setEmptyText(std::string text) {
    m_emptyText = std::move(text);
    if (handle() != nullptr) onAreaChanged();
}

// ---- Sorting ----

void CCommonListCtrl::onHeaderClick(NMLISTVIEW& click) {
    if (click.iSubItem < 0 || static_cast<std::size_t>(click.iSubItem) >= m_columns.shown().size())
        return;
    if (!beforeCellsMove()) return;
    const ColumnId column = columnAt(click.iSubItem);
    const bool again = m_sorting && m_sorting->column == column;
    const fw::WaitCursorScope wait;
    sortByColumn(column, again ? m_sorting->direction > 0 : true);
}

// Nothing would mark a column that does not show, so a list is never sorted by one.
void CCommonListCtrl::sortAgain() {
    if (m_defaultSort && !m_columns.placeOf(m_defaultSort->column)) m_defaultSort.reset();
    if (!m_sorting) return;
    if (m_columns.placeOf(m_sorting->column))
        sortByColumn(m_sorting->column, m_sorting->direction < 0);
    else
        endSorting();
}

void CCommonListCtrl::sortByColumn(ColumnId column, bool ascending) {
    const auto shown = m_columns.placeOf(column);
    if (!shown) return;
    if (m_sorting)
        if (const auto place = m_columns.placeOf(m_sorting->column))
            showSortImage(static_cast<int>(*place), kNoSortImage);
    m_sorting = Sorting{column, ascending ? -1 : 1};
    const auto type = static_cast<int>(m_columns.descriptor(column).type);
    m_store.sort({column, comparisonOf(type), m_sorting->direction});
    showSortImage(static_cast<int>(*shown), ascending ? kAscendingImage : kDescendingImage);
    storeChanged();
}

void CCommonListCtrl::endSorting() {
    if (!m_sorting) return;
    if (const auto place = m_columns.placeOf(m_sorting->column))
        showSortImage(static_cast<int>(*place), kNoSortImage);
    m_sorting.reset();
    m_store.unsort();
    storeChanged();
}

void CCommonListCtrl::showSortImage(int item, int image) {
    HDITEMA info{};
    info.mask = HDI_IMAGE | HDI_FORMAT;
    m_updating = true;
    SendMessageA(header(), HDM_GETITEMA, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
    info.fmt = image != kNoSortImage ? info.fmt | HDF_IMAGE : info.fmt & ~HDF_IMAGE;
    info.iImage = image;
    SendMessageA(header(), HDM_SETITEMA, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&info));
    m_updating = false;
}

// ---- Messages ----

const fw::MessageMap& CCommonListCtrl::baseMap() {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_GETDISPINFOA, &CCommonListCtrl::onGetDispInfo>(),
        fw::onReflected<LVN_COLUMNCLICK, &CCommonListCtrl::onHeaderClick>(),
        fw::onReflected<static_cast<UINT>(NM_RCLICK), &CCommonListCtrl::onRightClick>(),
        fw::onNotify<0, HDN_ITEMCHANGINGA, &CCommonListCtrl::onHeaderItemChanging>(),
        fw::onNotify<0, HDN_ITEMCHANGINGW, &CCommonListCtrl::onHeaderItemChanging>(),
        fw::onNotify<0, HDN_ITEMCHANGEDA, &CCommonListCtrl::onHeaderItemChanged>(),
        fw::onNotify<0, HDN_ITEMCHANGEDW, &CCommonListCtrl::onHeaderItemChanged>(),
        fw::onNotify<0, static_cast<UINT>(NM_RCLICK), &CCommonListCtrl::onHeaderRightClick>(),
        fw::onAnyCommand<&CCommonListCtrl::onMenuCommand>(),
        fw::on<WM_PAINT, &CCommonListCtrl::onPaint>(),
        fw::observe<WM_SIZE, &CCommonListCtrl::onSize>(),
        fw::observe<WM_HSCROLL, &CCommonListCtrl::onAreaChanged>(),
        fw::on<WM_DRAWITEM, &CCommonListCtrl::onDrawItem>(),
        fw::on<WM_MEASUREITEM, &CCommonListCtrl::onMeasureItem>(),
        fw::on<WM_GETDLGCODE, &CCommonListCtrl::onGetDialogCode>(),
        fw::on<WM_LBUTTONDOWN, &CCommonListCtrl::onButtonDown>(),
        fw::on<WM_LBUTTONUP, &CCommonListCtrl::onButtonUp>(),
        fw::on<WM_LBUTTONDBLCLK, &CCommonListCtrl::onDoubleClick>(),
        fw::observe<WM_MOUSEMOVE, &CCommonListCtrl::onMouseMove>(),
        fw::on<WM_RBUTTONDOWN, &CCommonListCtrl::onRightDown>(),
        fw::on<WM_RBUTTONUP, &CCommonListCtrl::onRightUp>(),
        fw::offer<WM_KEYDOWN, &CCommonListCtrl::onKeyDown>(),
        fw::on<WM_CHAR, &CCommonListCtrl::onCharacter>(),
        fw::observe<WM_SETFOCUS, &CCommonListCtrl::onFocusChanged>(),
        fw::observe<WM_KILLFOCUS, &CCommonListCtrl::onFocusChanged>(),
        fw::observe<WM_SYSCOLORCHANGE, &CCommonListCtrl::onSystemChanged>(),
        fw::on<LVM_GETITEMSTATE, &CCommonListCtrl::onGetItemState>(),
        fw::on<LVM_SETITEMSTATE, &CCommonListCtrl::onSetItemState>(),
        fw::on<LVM_GETNEXTITEM, &CCommonListCtrl::onGetNextItem>(),
        fw::on<LVM_GETNEXTITEMINDEX, &CCommonListCtrl::onGetNextItemIndex>(),
        fw::on<LVM_GETSELECTEDCOUNT, &CCommonListCtrl::onGetSelectedCount>(),
        fw::on<LVM_GETSELECTIONMARK, &CCommonListCtrl::onGetSelectionMark>(),
        fw::on<LVM_SETSELECTIONMARK, &CCommonListCtrl::onSetSelectionMark>(),
        fw::on<LVM_FINDITEMA, &CCommonListCtrl::onFindItem>(),
        fw::on<LVM_FINDITEMW, &CCommonListCtrl::onFindItem>(),
        fw::on<kHeaderMoved, &CCommonListCtrl::onHeaderMoved>(),
        fw::on<kTellInvalid, &CCommonListCtrl::onTellInvalid>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

}  // namespace mc
