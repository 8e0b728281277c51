// CListExport: a list's texts as others take them: the selected rows for the clipboard, all rows
// for a spreadsheet. Many rows show how far they are, and can be given up.
#pragma once

#include <windows.h>

#include <string>

#include "listctrl/dialogs/progress.h"
#include "listctrl/list_services.h"
#include "listctrl/model/list_content.h"
#include "sdk/excel.h"

namespace mc {

class CListExport {
public:
    // Both must outlive the object.
    CListExport(ListServices& services, const ListContent& content)
        : m_services(services), m_content(content) {}

    // `owner` is the window that owns the clipboard's text.
    void copySelected(HWND owner) const;

    // Writes every row through the host's library and shows how that ended.
    void writeAll();

private:
    // The callback of the library (sdk/excel.h). Row 0 is the captions.
    static void VOSK_CALL giveCell(void* object, int row, int column, const char*& text,
                                   int& type) noexcept;
    bool write(const ProgressStep& step);

    ListServices& m_services;
    const ListContent& m_content;
    ProgressStep m_step;  // of the writing under way
    bool m_stopped = false;
    std::string m_given;  // the text that the library got last
};

}  // namespace mc
