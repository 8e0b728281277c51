#include "listctrl/list_export.h"

#include <vector>

#include "framework/handles.h"
#include "listctrl/clipboard.h"
#include "listctrl/excel_interface.h"

namespace mc {
namespace {

constexpr std::size_t kManyRows = 20'000;

// Rows that take no longer than a moment need no window. False when the user gave up.
bool runFor(const std::string& caption, std::size_t rows,
            const std::function<void(const ProgressStep&)>& work) {
    const fw::WaitCursorScope wait;
    if (rows > kManyRows) return runWithProgress(caption, rows, work);
    work([](std::size_t) { return true; });
    return true;
}

}  // namespace

// Every cell is followed by a tab, the last of a row too; there is no row of captions.
void CListExport::copySelected(HWND owner) const {
    std::string text;
    // A copy: what is sent to the thread meanwhile may change the selection.
    const std::vector<std::size_t> selected = m_content.store().selection().rows();
    const auto copy = [&](const ProgressStep& step) {
        std::size_t done = 0;
        for (const std::size_t row : selected) {
            if (!step(done++)) return;
            for (const ColumnId column : m_content.columns().shown())
                text.append(m_content.text(row, column)) += '\t';
            text += "\r\n";
        }
    };
    if (runFor("Copying", selected.size(), copy)) copyToClipboard(owner, text);
}

void CListExport::writeAll() {
    const std::size_t rows = m_content.store().rowCount();
    if (rows == 0) return m_services.showMessage("No Items in the List");
    bool written = false;
    const bool whole =
        runFor("Writing", rows, [&](const ProgressStep& step) { written = write(step); });
    m_services.showMessage(whole && written ? "File is generated" : "File generation Failed");
}

bool CListExport::write(const ProgressStep& step) {
    m_step = step;
    m_stopped = false;
    const auto rows = static_cast<int>(m_content.store().rowCount());
    CExcelInterface sheet(rows + 1, m_content.shownCount());
    return sheet.WriteToExcel(this, giveCell) != 0 && !m_stopped;
}

// Without memory for a cell the export stops: the library is called back, and no exception goes
// through it.
void VOSK_CALL CListExport::giveCell(void* object, int row, int column, const char*& text,
                                     int& type) noexcept try {
    constexpr std::size_t kMaxCaption = 255;
    auto& self = *static_cast<CListExport*>(object);
    self.m_stopped = self.m_stopped || !self.m_step(static_cast<std::size_t>(row));
    text = nullptr;
    type = kStopExport;
    if (self.m_stopped) return;
    const ColumnId id = self.m_content.columnAt(column);
    const ColumnDescriptor& info = self.m_content.columns().descriptor(id);
    self.m_given = row == 0 ? std::string_view(info.caption).substr(0, kMaxCaption)
                            : self.m_content.text(static_cast<std::size_t>(row) - 1, id);
    text = self.m_given.c_str();
    type = row == 0 ? static_cast<int>(info.type) : -1;
} catch (...) {
    static_cast<CListExport*>(object)->m_stopped = true;
    text = nullptr;
    type = kStopExport;
}

}  // namespace mc
