// CListAppearance: a list's colours, font and keywords, as the user chose them.
//
// Until the user chooses, a list has the system's colours, or the background that its owner gave
// it. High contrast knows the system's colours only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "framework/handles.h"
#include "framework/window.h"
#include "listctrl/list_colors.h"
#include "listctrl/list_hooks.h"
#include "listctrl/list_services.h"
#include "listctrl/model/columns/appearance.h"
#include "listctrl/model/columns/column_model.h"

namespace mc {

class CListAppearance {
public:
    // All must outlive the object.
    CListAppearance(const fw::CWindow& list, ListServices& services, ListHooks& hooks)
        : m_list(list), m_services(services), m_hooks(hooks) {}

    // Reads what is stored for the list of this name and puts it in force; once, when the control
    // is made. `title` is the name that the dialog shows.
    void read(std::string name, std::string title);

    void setBackground(COLORREF color);
    // Whether the dialog may change colours and keywords.
    void setCustomizable(bool customizable) { m_customizable = customizable; }

    // Asks for another appearance over the list, puts it in force and stores it. The list's window
    // may be gone when this returns.
    void customize(const ColumnModel& columns);
    // Puts the appearance in force again: the pane has another font, or other dots per inch.
    void show();
    // The system's colours changed.
    void showColors();
    // A user-defined column went: keywords follow their column, or have none.
    void columnRemoved(ColumnId removed);

    // The colours of the list, and of an unselected row whose keyword cell has this text.
    RowColors colors() const;
    RowColors colorsOf(std::string_view keywordCell) const;
    std::optional<ColumnId> keywordColumn() const;

private:
    std::string key() const;
    Appearance shown() const;
    fw::Font makeFont() const;
    void measureRows() const;
    void store() const;

    const fw::CWindow& m_list;
    ListServices& m_services;
    ListHooks& m_hooks;
    std::string m_name;
    std::string m_title;
    bool m_customizable = true;
    std::optional<COLORREF> m_background;  // the owner's
    std::optional<Appearance> m_chosen;
    fw::Font m_font;  // the list's
};

}  // namespace mc
