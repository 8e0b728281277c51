#include "listctrl/list_update.h"

#include "framework/handles.h"
#include "framework/list_view.h"

namespace mc {

// Painting comes when the thread's queue is empty, and with it the update.
void CListUpdate::storeChanged() {
    if (m_stale || m_list.handle() == nullptr) return;
    m_stale = true;
    InvalidateRect(m_list.handle(), nullptr, TRUE);
}

RowChanges CListUpdate::run() {
    m_running = true;
    m_stale = false;
    const RowChanges changes = m_store.takeChanges();
    if (changes.count) {
        const fw::RedrawOffScope off(m_list.handle());
        fw::ListView(m_list.handle()).setRowCount(m_store.rowCount());
    }
    InvalidateRect(m_list.handle(), nullptr, TRUE);
    m_running = false;
    return changes;
}

}  // namespace mc
