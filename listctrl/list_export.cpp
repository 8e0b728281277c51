#include "listctrl/list_export.h"

#include "framework/handles.h"
#include "listctrl/clipboard.h"
#include "listctrl/excel_interface.h"

namespace mc {

// Every cell is followed by a tab, the last of a row too; there is no row of captions.
void CListExport::copySelected(HWND owner) const {
    std::string text;
    for (const std::size_t row : m_content.store().selection().rows()) {
        for (const ColumnId column : m_content.columns().shown())
            text.append(m_content.text(row, column)) += '\t';
        text += "\r\n";
    }
    copyToClipboard(owner, text);
}

void CListExport::writeAll() {
    const std::size_t rows = m_content.store().rowCount();
    if (rows == 0) return m_services.showMessage("No Items in the List");
    bool written = false;
    {
        const fw::WaitCursorScope wait;
        CExcelInterface sheet(static_cast<int>(rows) + 1, m_content.shownCount());
        written = sheet.WriteToExcel(this, giveCell) != 0;
    }
    m_services.showMessage(written ? "File is generated" : "File generation Failed");
}

void CListExport::giveCell(void* self, int row, int column, const char*& text, int& type) {
    constexpr std::size_t kMaxCaption = 255;
    auto& list = *static_cast<CListExport*>(self);
    const ColumnId id = list.m_content.columnAt(column);
    const ColumnDescriptor& info = list.m_content.columns().descriptor(id);
    list.m_given = row == 0 ? std::string_view(info.caption).substr(0, kMaxCaption)
                            : list.m_content.text(static_cast<std::size_t>(row) - 1, id);
    text = list.m_given.c_str();
    type = row == 0 ? static_cast<int>(info.type) : -1;
}

}  // namespace mc
