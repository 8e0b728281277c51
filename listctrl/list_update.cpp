#include "listctrl/list_update.h"

#include <utility>

#include "framework/handles.h"
#include "framework/list_view.h"

namespace mc {

// Painting comes when the thread's queue is empty, and with it the update.
void CListUpdate::storeChanged() {
    if (m_stale || m_list.handle() == nullptr) return;
    m_stale = true;
    InvalidateRect(m_list.handle(), nullptr, TRUE);
}

bool CListUpdate::run() {
    m_running = true;
    m_stale = false;
    const fw::ListView list(m_list.handle());
    if (list.rowCount() != m_store.rowCount()) {
        const fw::RedrawOffScope off(m_list.handle());
        list.setRowCount(m_store.rowCount());
    }
    InvalidateRect(m_list.handle(), nullptr, TRUE);
    m_running = false;
    const std::uint64_t rows = m_store.visible().revision();
    return std::exchange(m_rowsSeen, rows) != rows;
}

}  // namespace mc
