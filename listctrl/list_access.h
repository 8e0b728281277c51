// CListAccess: what a list says to programs that read the screen.
//
// The control knows neither focus nor selection, so it raises no events for them and its own object
// knows rows by their first cell only. The list raises them, once per update, and gives an object
// whose rows are named by all of their cells.
#pragma once

#include <functional>
#include <string>

#include "framework/accessible_list.h"
#include "framework/window.h"
#include "listctrl/list_hooks.h"
#include "listctrl/model/list_content.h"
#include "listctrl/model/row_words.h"

namespace mc {

class CListAccess final : private fw::AccessibleRows {
public:
    // All must outlive the object.
    CListAccess(const fw::CWindow& list, const ListContent& content, const ListHooks& hooks)
        : m_list(list), m_content(content), m_hooks(hooks), m_object(*this) {}

    // What the list is called; without it, by its window's text.
    void setListName(std::function<std::string()> name) { m_name = std::move(name); }

    // The control is up to date with its store: raises what changed since the last call. `moved`:
    // rows came, went or changed their order. Costs a look at one row.
    void announce(bool moved);

    void onFocus();                              // it came into the list, or left it
    LRESULT onGetDispInfo(NMLVDISPINFOA& info);  // the texts of cells
    LRESULT onGetObject(WPARAM wParam, LPARAM object);
    void onDestroy() { m_object.close(); }

private:
    std::size_t rowCount() const override;
    std::optional<std::size_t> focusedRow() const override;
    std::string listName() const override;
    std::string rowName(std::size_t row) const override;
    LONG rowState(std::size_t row) const override;
    RECT rowRect(std::size_t row) const override;

    bool hasFocus() const { return GetFocus() == m_list.handle(); }
    ListSnapshot present() const;
    void raise(ListEvent event) const;
    void notify(DWORD event, LONG child) const;

    const fw::CWindow& m_list;
    const ListContent& m_content;
    const ListHooks& m_hooks;
    std::function<std::string()> m_name;
    ListSnapshot m_heard;
    fw::CAccessibleList m_object;
};

}  // namespace mc
