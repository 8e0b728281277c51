// CMakerChecker: the checker's workbench, one docking pane in the host's main frame.
//
// A row of decision buttons stands above two lists: one row per pending change, and below it the
// details of the change on show. The pane draws, asks the Workbench and tells it what the checker
// did; every rule stands there.
#pragma once

#include <memory>
#include <optional>

#include "details/edit_messages.h"
#include "details/multi_line_edit_list_ctrl.h"
#include "frames/control_pos.h"
#include "frames/holder_frame.h"
#include "frames/model/dialog_bar.h"
#include "framework/pane_dialog.h"
#include "link/model/host.h"
#include "listctrl/filter_list_ctrl.h"
#include "workbench/model/workbench.h"

namespace mc {

class CMakerChecker final : public fw::CPaneDialog, private WorkbenchView {
public:
    // Both must outlive the pane. The window is made by createPane().
    CMakerChecker(Host& host, ListServices& lists);
    ~CMakerChecker() override { destroy(); }

    // Creates the pane's window, and with it the link, in the frame, and shows what the link could
    // not have. False when there is no window, or none any more. Once only: when the window goes
    // the rules are closed, and the object stays for the calls that are under way in it.
    bool createPane(HWND frame);

    // The rules behind the window; null while there is no window.
    Workbench* workbench() const { return handle() != nullptr ? m_workbench.get() : nullptr; }

    // Lays the pane out anew and docks it again: start-up found it there.
    void layOutAgain();

protected:
    const fw::MessageMap& messageMap() const override;
    HWND initialFocus() const override;
    void onDialogKey(UINT key, bool repeated) override;
    std::vector<HWND> tabStops() const override;
    bool controlClaims(HWND control, UINT key) const override;
    std::span<const fw::ActionKey> actionKeys() const override;
    SIZE leastSize() const override;
    SIZE firstFloatSize() const override;

private:
    LRESULT onInitDialog();
    void onSize(int, int) { layOut(); }
    void onDpiChanged();
    void onColorsChanged();
    void onDestroy();
    void onAccept();
    void onReject();
    void onUpdate();
    void onRecover();
    void onCancel() {}
    void onShowSelected(NMHDR& header);
    void onShowFocused(NMHDR& header);
    void onSelectionMade(NMHDR& header);

    void onMainFilterChanged(NMHDR&);
    void onDetailsFilterChanged(NMHDR&) { detailsList->applyFilter(); }
    void onEditorClosed();
    void onEndOfEdit(const EndOfEdit& edit);
    void onEndOfChoice(const EndOfEdit& edit);
    void takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored);

    void rowsChanged() override;
    void emptyDetails() override;
    void showDetails(std::vector<DetailGroup> groups, bool anotherChange) override;
    void editsSent() override;
    void editsDropped() override;
    void captionDetails(const DetailsCaption& caption) override;

    template <class Decision>
    void decide(Decision decision);
    HeldView held(CFilterListCtrl& list, const char* title, const char* keyName);
    RECT listsPlace() const;
    void layOut();

    Host& m_host;
    ListServices& m_listServices;
    CControlPos m_buttons;
    CVTHolderFrame m_holder;
    CVoskDialogBar m_bar;  // the pane while it floats
    LineGroups m_detailLines;
    std::unique_ptr<Workbench> m_workbench;
    // On the rows of the workbench and the lines, and so behind them here.
    std::unique_ptr<CFilterListCtrl> mainList;
    std::unique_ptr<CMultiLineEditListCtrl> detailsList;
    bool m_selectionWaits = false;  // for the end of an edit, with what it does to the details
    bool m_heldInEditor = false;    // the last key was pressed in an editor of the details
    bool m_deciding = false;        // a button's work is under way, perhaps behind a message box
};

}  // namespace mc
