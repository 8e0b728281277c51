// The menus of CCommonListCtrl and what their commands do.
#include <algorithm>

#include "framework/dialog.h"
#include "listctrl/clipboard.h"
#include "listctrl/common_list_ctrl.h"
#include "listctrl/excel_interface.h"
#include "listctrl/model/fit_columns.h"

namespace mc {

ListOffers CCommonListCtrl::offers() const {
    ListOffers offers = m_columnOffers;
    offers.exportAllowed = m_services.mayExport();
    offers.exportEnabled = m_exportEnabled;
    offers.hasUserColumns = m_columns.size() > m_columns.dataSize();
    offers.customize = true;
    return offers;
}

void CCommonListCtrl::showMenu(const std::vector<ListMenuEntry>& entries) {
    if (!beforeCellsMove()) return;
    const fw::Menu menu(CreatePopupMenu());
    for (const ListMenuEntry& entry : entries) {
        const UINT flags = entry.text.empty() ? MF_SEPARATOR
                                              : (entry.greyed ? MF_GRAYED : MF_STRING) |
                                                    (entry.checked ? MF_CHECKED : MF_UNCHECKED);
        AppendMenuA(menu.get(), flags, entry.command, entry.text.data());
    }
    POINT at{};
    GetCursorPos(&at);
    const UINT chosen = fw::trackMenu(menu.get(), at, handle());
    if (chosen != 0) command(chosen);
}

void CCommonListCtrl::onHeaderRightClick(NMHDR&) {
    showMenu(headerMenu(offers()));
}

void CCommonListCtrl::command(unsigned command) {
    if (beforeCellsMove()) runCommand(command);
}

struct CCommonListCtrl::Command {
    unsigned id;
    void (CCommonListCtrl::*run)();
};

constexpr CCommonListCtrl::Command CCommonListCtrl::kCommands[] = {
    {kFitToDataCommand, &CCommonListCtrl::fit<kFitToDataCommand>},
    {kFitToHeaderCommand, &CCommonListCtrl::fit<kFitToHeaderCommand>},
    {kFitToWindowCommand, &CCommonListCtrl::fit<kFitToWindowCommand>},
    {kRepositionCommand, &CCommonListCtrl::reposition},
    {kExportCommand, &CCommonListCtrl::exportAll},
    {kGridLinesCommand, &CCommonListCtrl::toggleGridLines},
    {kCustomizeCommand, &CCommonListCtrl::customizeAppearance},
    {kCopyCommand, &CCommonListCtrl::copySelected},
    {kAddColumnCommand, &CCommonListCtrl::addUserColumn},
    {kDeleteColumnCommand, &CCommonListCtrl::deleteUserColumn},
    {kSelectAllCommand, &CCommonListCtrl::selectAll},
};

bool CCommonListCtrl::runCommand(unsigned command) {
    const auto* found = std::ranges::find(kCommands, command, &Command::id);
    if (found == std::end(kCommands)) return false;
    (this->*found->run)();
    return true;
}

// Code 0 is a menu's; others come from children of the list.
LRESULT CCommonListCtrl::onMenuCommand(UINT command, UINT code) {
    if (code == 0) this->command(command);
    return 0;
}

void CCommonListCtrl::selectAll() {
    byHand([this] { m_rules.selectAll(); });
}

void CCommonListCtrl::fitColumns(unsigned command) {
    const fw::RedrawOffScope off(handle());
    const int client = static_cast<int>(clientRect().right);
    const int count = static_cast<int>(m_columns.shown().size());
    const bool measured = command != kFitToWindowCommand;
    for (int item = 0; item < count; ++item) {
        const ColumnId column = columnAt(item);
        const int data = measured ? dataWidth(item) : 0;
        const int caption = textWidth(m_columns.descriptor(column).caption) + scaled(24);
        const int width = fittedWidth(command, data, std::max(data, caption), client, count);
        m_columns.setWidth(column, width);
        SendMessageA(handle(), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(item), MAKELPARAM(width, 0));
    }
    measureHeader();
    headerBuilt();
}

void CCommonListCtrl::toggleGridLines() {
    const auto style =
        static_cast<DWORD>(SendMessageA(handle(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
    SendMessageA(handle(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 static_cast<LPARAM>(style ^ LVS_EX_GRIDLINES));
}

// Every cell is followed by a tab, the last of a row too; there is no row of captions.
void CCommonListCtrl::copySelected() {
    std::string text;
    for (const std::size_t row : m_store.selectedRows()) {
        for (const ColumnId column : m_columns.shown()) text.append(cellText(row, column)) += '\t';
        text += "\r\n";
    }
    copyToClipboard(handle(), text);
}

void CCommonListCtrl::exportAll() {
    if (m_store.rowCount() == 0) return m_services.showMessage("No Items in the List");
    const int columns = static_cast<int>(m_columns.shown().size());
    bool written = false;
    {
        const fw::WaitCursorScope wait;
        CExcelInterface sheet(static_cast<int>(m_store.rowCount()) + 1, columns);
        written = sheet.WriteToExcel(this, exportCell) != 0;
    }
    m_services.showMessage(written ? "File is generated" : "File generation Failed");
}

// Row 0 is the captions, with the data type of the column; every other row is a row of the list.
void CCommonListCtrl::exportCell(void* list, int row, int column, const char*& text, int& type) {
    auto& self = *static_cast<CCommonListCtrl*>(list);
    const ColumnId id = self.columnAt(column);
    const ColumnDescriptor& info = self.m_columns.descriptor(id);
    self.m_exported = row == 0 ? std::string_view(info.caption).substr(0, 255)
                               : self.cellText(static_cast<std::size_t>(row) - 1, id);
    text = self.m_exported.c_str();
    type = row == 0 ? static_cast<int>(info.type) : -1;
}

}  // namespace mc
