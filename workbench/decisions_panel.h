// DecisionsPanel: the list of the session's own decisions, below the pane's two lists, which give
// it a part of their room while it is open. So what a press would decide stays in sight.
//
// Its windows are made when it opens for the first time; before, and while it is closed, it takes
// no room and no key.
#pragma once

#include <memory>
#include <vector>

#include "frames/holder_frame.h"
#include "listctrl/filter_list_ctrl.h"
#include "workbench/model/decision_log.h"

namespace mc {

class DecisionsPanel {
public:
    // The services must outlive the panel.
    explicit DecisionsPanel(ListServices& services)
        : m_services(services), m_frame(services.settings()) {}

    bool isOpen() const { return m_open && m_frame.handle() != nullptr; }

    // Shows the list in `pane`, with the focus, at this decision (kNoSlot: at none); `log`, the
    // same each time, must outlive the panel. The pane lays out after this, and after close().
    void open(HWND pane, DecisionLog& log, Slot decision);
    void close();
    bool hasFocus() const;

    // Takes its part of the lists' room and returns the rest.
    RECT takeRoom(RECT room);
    void layOut();  // the dots per inch changed
    void followDpi() {
        if (m_list != nullptr) m_list->followDpi();
    }

    std::vector<HWND> tabStops() const;
    bool claims(HWND control, UINT key) const;
    enum class KeyUse { none, taken, closes };
    KeyUse dialogKey(UINT key, bool repeated);

    void applyFilter() { m_list->applyFilter(); }

private:
    bool create(HWND pane, DecisionLog& log);
    void logChanged(const DecisionLog& log);

    ListServices& m_services;
    CVTHolderFrame m_frame;
    std::unique_ptr<CFilterListCtrl> m_list;
    bool m_open = false;
};

}  // namespace mc
