// CListUpdate: brings a list's native control up to date with its store.
//
// The control knows the number of rows only. It gets the number right before it handles its next
// message, so that a burst of changes is one count and one paint, and whoever asks the control in
// between gets the present rows.
#pragma once

#include "framework/window.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

class CListUpdate {
public:
    // Both must outlive the object.
    CListUpdate(const fw::CWindow& list, RecordStore& store) : m_list(list), m_store(store) {}

    // The store changed. Costs one invalidation per update, and no other window call.
    void storeChanged();

    // Whether the control must be brought up to date before it handles the message.
    bool isDue(UINT message) const { return m_stale && !m_running && message != WM_DESTROY; }
    // Returns what had changed.
    RowChanges run();

private:
    const fw::CWindow& m_list;
    RecordStore& m_store;
    bool m_stale = false;
    bool m_running = false;
};

}  // namespace mc
