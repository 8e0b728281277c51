// CMakerChecker: the checker's workbench, one docking pane in the host's main frame.
//
// A row of decision buttons stands above two lists: one row per pending change, and below it the
// details of the change on show. The pane draws, asks the Workbench and tells it what the checker
// did; every rule stands there.
#pragma once

#include <memory>

#include "frames/holder_frame.h"
#include "framework/pane_dialog.h"
#include "link/model/host.h"
#include "listctrl/common_list_ctrl.h"
#include "listctrl/multi_line_edit_list_ctrl.h"
#include "workbench/model/workbench.h"

// The list of pending changes.
class CMainListCtrl final : public CCommonListCtrl {
public:
    // The rows shown; null shows none.
    void setChanges(const PendingChanges* changes) { m_changes = changes; }

    std::vector<sMakeCheckStruct*> selectedRecords();

protected:
    std::size_t rowCount() const override;
    std::string_view cellText(std::size_t row, int column) const override;

private:
    const PendingChanges* m_changes = nullptr;
};

class CMakerChecker final : public fw::CPaneDialog, private WorkbenchView {
public:
    // `host` must outlive the pane. The window is made by createPane().
    explicit CMakerChecker(Host& host) : m_host(host) {}
    ~CMakerChecker() override { destroy(); }

    // Creates the pane's window, and with it the link, in the frame. False when it cannot be made.
    bool createPane(HWND frame);

    // The rules behind the window; null while there is no window.
    Workbench* workbench() const { return m_workbench.get(); }

    // Lays the pane out anew and docks it again: start-up found it there.
    void layOutAgain();

protected:
    const fw::MessageMap& messageMap() const override;
    HWND initialFocus() const override { return mainList.handle(); }

private:
    LRESULT onInitDialog();
    void onSize(int width, int height);
    void onDestroy();
    void onAccept();
    void onReject();
    void onUpdate();
    void onRecover();
    void onCancel() {}
    void onShowDetails(NMHDR& header);

    void rowAppended() override { mainList.rowAppended(); }
    void rowRemoved(std::size_t row) override { mainList.rowRemoved(row); }
    void redrawRows() override { mainList.redrawRows(); }
    void emptyDetails() override { detailsList.empty(); }

    template <class Decision>
    void decide(Decision decision);
    RECT listsPlace() const;

    Host& m_host;
    CMainListCtrl mainList;
    CMultiLineEditListCtrl detailsList;
    CVTHolderFrame m_holder;
    std::unique_ptr<Workbench> m_workbench;
    bool m_deciding = false;  // a button's work is under way, perhaps behind a message box
};
