// The pane's two lists in their frame: the pending changes, and below them the details of the
// change that is looked at. What the workbench's rules say about rows and details goes to them.
//
// Order of life: made with the pane; open() in its dialog; until then, and when the windows are
// gone, nothing is shown and no key is taken.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "details/detail_line.h"
#include "details/edit_messages.h"
#include "details/multi_line_edit_list_ctrl.h"
#include "frames/holder_frame.h"
#include "workbench/model/workbench_view.h"
#include "workbench/pending_list.h"

namespace mc {

class CheckerLists final : public WorkbenchView {
public:
    // The services must outlive the lists.
    explicit CheckerLists(ListServices& services)
        : m_services(services), m_holder(services.settings()) {}

    // Creates the windows at `rect` of `pane`; `changes` must outlive them.
    void open(HWND pane, const RECT& rect, PendingChanges& changes);

    // Offers values for editing; the outcomes go to `owner` (details/edit_messages.h).
    void offerEditing(HWND owner) { m_details->setEditOwner(owner); }

    void move(const RECT& rect);
    void layOut() { m_holder.layOut(); }  // what is in the frame: the dots per inch changed
    void followDpi();
    void showWindows();
    void colorsChanged();

    // What is called when rows, their selection or states, or unsent edits may have changed. It
    // must not call the workbench.
    void onNews(std::function<void()> news) { m_news = std::move(news); }

    // Takes every filter off the main list, and brings a row of it into view.
    void resetMainFilters() { m_main->commands().run(kResetFiltersCommand); }
    void bringIntoView(std::size_t mainRow) const;

    // For the list of keys: what the main list offers, and whether values can be edited.
    ListOffers offers() const { return m_main->commands().offers(); }
    bool offersEditing() const { return m_details->offersEditing(); }

    HWND mainWindow() const { return m_main != nullptr ? m_main->handle() : nullptr; }

    // Where Tab stops in the lists, in order.
    std::vector<HWND> tabStops() const;
    bool claims(HWND control, UINT key) const;
    enum class KeyUse { none, taken, dropsEdits };
    KeyUse dialogKey(UINT key, bool repeated);

    // Ends an edit that is under way; false when its text is refused, and the editor stays open.
    bool leaveEditor() { return m_details->leaveEditor(); }
    TypedValue typed() const { return m_details != nullptr ? m_details->typed() : TypedValue{}; }

    // `stored` is what the update will send, if anything.
    void takeEdit(const EndOfEdit& edit, const std::optional<std::string>& stored);

    bool applyMainFilter() { return m_main->applyFilter(); }  // false: Esc ended it
    void applyDetailsFilter() { m_details->applyFilter(); }

    // Selects the row of a change alone, if it has one, and scrolls it into view.
    void selectChange(Slot change);

    void rowsChanged() override;
    void statesChanged() override { rowsChanged(); }
    void emptyDetails() override;
    void showDetails(std::vector<DetailGroup> groups, bool anotherChange) override;
    void editsSent() override;
    void editsDropped() override;
    void captionDetails(const DetailsCaption& caption) override;

private:
    std::string mainNote(const PendingChanges& changes) const;

    ListServices& m_services;
    CVTHolderFrame m_holder;
    LineGroups m_lines;
    std::unique_ptr<CPendingList> m_main;
    std::unique_ptr<CMultiLineEditListCtrl> m_details;
    CDetailLine m_line{m_lines};  // below the details
    DetailsCaption m_caption;
    std::function<void()> m_news = [] {};
    bool m_heldInEditor = false;  // the last key was pressed in an editor of the details
};

}  // namespace mc
