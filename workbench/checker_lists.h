// The pane's two lists in their frame: the pending changes, and below them the details of the
// change that is looked at (CheckerDetails). What the workbench's rules say about rows comes here.
//
// Order of life: made with the pane; open() in its dialog; until then, and when the windows are
// gone, nothing is shown and no key is taken.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frames/holder_frame.h"
#include "workbench/checker_details.h"
#include "workbench/pending_list.h"

namespace mc {

class CheckerLists final : public RecordsView {
public:
    // The services must outlive the lists.
    explicit CheckerLists(ListServices& services)
        : m_services(services), m_holder(services.settings()), m_details(services, m_holder) {}

    // Creates the windows at `rect` of `pane`; `changes` must outlive them.
    void open(HWND pane, const RECT& rect, PendingChanges& changes);

    void move(const RECT& rect);
    void layOut() { m_holder.layOut(); }  // what is in the frame: the dots per inch changed
    void followDpi();
    void showWindows();

    CheckerDetails& details() { return m_details; }
    const CheckerDetails& details() const { return m_details; }

    // What is called when rows, their selection or states, or unsent edits may have changed. It
    // must not call the workbench.
    void onNews(const std::function<void()>& news);

    // Takes every filter off the main list, and brings a row of it into view.
    void resetMainFilters() { m_main->commands().run(kResetFiltersCommand); }
    void bringIntoView(std::size_t mainRow) const;

    // For the list of keys.
    ListOffers offers() const { return m_main->commands().offers(); }

    HWND mainWindow() const { return m_main != nullptr ? m_main->handle() : nullptr; }

    // Where Tab stops in the lists, in order.
    std::vector<HWND> tabStops() const;
    bool claims(HWND control, UINT key) const;
    enum class KeyUse { none, taken, dropsEdits };
    KeyUse dialogKey(UINT key, bool repeated);

    bool applyMainFilter() { return m_main->applyFilter(); }  // false: Esc ended it
    bool applyTypedFilter() { return m_main->applyTyped(); }
    void applyDetailsFilter() { m_details.list()->applyFilter(); }

    // Selects the row of a change alone, if it has one, and scrolls it into view.
    void selectChange(Slot change);

    void rowsChanged() override;
    void statesChanged() override { rowsChanged(); }

private:
    void openMain(PendingChanges& changes);
    std::string mainNote(const PendingChanges& changes) const;

    ListServices& m_services;
    CVTHolderFrame m_holder;
    std::unique_ptr<CPendingList> m_main;
    CheckerDetails m_details;
    std::function<void()> m_news = [] {};
};

}  // namespace mc
