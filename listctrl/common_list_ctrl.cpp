#include "listctrl/common_list_ctrl.h"

#include "framework/handles.h"

namespace {

// So many removed rows are put off at most; beyond, the control is brought up to date at once.
constexpr std::size_t kMostPutOff = 1024;

}  // namespace

bool CCommonListCtrl::create(HWND parent, UINT id, const char* name) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | LVS_REPORT |
                        LVS_OWNERDATA | LVS_SHOWSELALWAYS;
    const HWND list =
        CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, name, style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), fw::module(), nullptr);
    if (!subclass(list)) return false;
    const auto font = SendMessageA(GetAncestor(parent, GA_PARENT), WM_GETFONT, 0, 0);
    SendMessageA(list, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    return true;
}

void CCommonListCtrl::setColumns(std::span<const sVoskColInfo> columns) {
    m_columns = columns;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        LVCOLUMNA column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        column.pszText = const_cast<char*>(columns[i].name);
        column.cx = scaled(columns[i].width);
        column.fmt = columns[i].flag;
        column.iSubItem = static_cast<int>(i);
        SendMessageA(handle(), LVM_INSERTCOLUMNA, i, reinterpret_cast<LPARAM>(&column));
    }
}

void CCommonListCtrl::setBackground(COLORREF color) {
    SendMessageA(handle(), LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color));
    SendMessageA(handle(), LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color));
}

void CCommonListCtrl::rowAppended() {
    changed();
}

void CCommonListCtrl::rowRemoved(std::size_t row) {
    m_removed.push_back(row);
    changed();
    if (m_removed.size() >= kMostPutOff) bringUpToDate();
}

void CCommonListCtrl::redrawRows() {
    changed();
}

void CCommonListCtrl::rowsReset() {
    m_removed.clear();
    m_resetRows = true;
    changed();
}

// Painting comes when the thread's queue is empty, and with it the update.
void CCommonListCtrl::changed() {
    if (m_stale || handle() == nullptr) return;
    m_stale = true;
    InvalidateRect(handle(), nullptr, FALSE);
}

void CCommonListCtrl::beforeMessage(UINT message) {
    if (m_stale && !m_updating && message != WM_DESTROY) bringUpToDate();
}

// The control drops the removed rows one by one, as it moves its selection and focus by itself.
void CCommonListCtrl::bringUpToDate() {
    m_updating = true;
    m_stale = false;
    {
        const fw::RedrawOffScope off(handle());
        if (m_resetRows) SendMessageA(handle(), LVM_DELETEALLITEMS, 0, 0);
        const auto before =
            static_cast<std::size_t>(SendMessageA(handle(), LVM_GETITEMCOUNT, 0, 0));
        if (before < rowCount() + m_removed.size())
            SendMessageA(handle(), LVM_SETITEMCOUNT, rowCount() + m_removed.size(),
                         LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
        for (const std::size_t row : m_removed) SendMessageA(handle(), LVM_DELETEITEM, row, 0);
        m_removed.clear();
        m_resetRows = false;
    }
    InvalidateRect(handle(), nullptr, TRUE);
    m_updating = false;
}

std::vector<std::size_t> CCommonListCtrl::selectedRows() {
    std::vector<std::size_t> rows;
    LRESULT row = -1;
    while ((row = SendMessageA(handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                               LVNI_SELECTED)) >= 0)
        rows.push_back(static_cast<std::size_t>(row));
    return rows;
}

const fw::MessageMap& CCommonListCtrl::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_GETDISPINFOA, &CCommonListCtrl::onGetDispInfo>(),
        fw::on<WM_GETDLGCODE, &CCommonListCtrl::onGetDialogCode>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CCommonListCtrl::onGetDispInfo(NMLVDISPINFOA& info) {
    LVITEMA& item = info.item;
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return 0;
    std::string_view text;
    if (item.iItem >= 0 && static_cast<std::size_t>(item.iItem) < rowCount())
        text = cellText(static_cast<std::size_t>(item.iItem), item.iSubItem);
    const auto copied = text.copy(item.pszText, static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[copied] = '\0';
    return 0;
}

// Enter in a list belongs to the list: it must never press the dialog's default button.
LRESULT CCommonListCtrl::onGetDialogCode(const MSG* message) {
    const LRESULT code = controlDefault(WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(message));
    return message != nullptr && message->wParam == VK_RETURN ? code | DLGC_WANTMESSAGE : code;
}
