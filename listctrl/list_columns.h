// CListColumns: the columns of a list as the user arranges them: header, widths, profile, sorting,
// and the dialogs that add, delete and reposition them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "framework/window.h"
#include "listctrl/dialogs/model/column_choice.h"
#include "listctrl/list_header.h"
#include "listctrl/list_hooks.h"
#include "listctrl/list_painter.h"
#include "listctrl/list_services.h"
#include "listctrl/list_update.h"
#include "listctrl/list_work.h"
#include "listctrl/model/expression/expression.h"
#include "listctrl/model/list_content.h"

namespace mc {

class CListColumns {
public:
    struct Parts {
        ListContent& content;
        CListHeader& header;
        CListUpdate& update;
        CListWork& work;
        const CListPainter& painter;
    };
    // All must outlive the object.
    CListColumns(const fw::CWindow& list, ListServices& services, ListHooks& hooks, Parts parts)
        : m_list(list), m_services(services), m_hooks(hooks), m_parts(parts) {}

    // The name of the list in the settings; before anything below.
    void setName(std::string name) { m_name = std::move(name); }

    // Puts the stored profile in force, where there is one.
    void loadProfile();
    // Stores the profile. A failure is shown, and false.
    bool saveProfile();

    // Gives every column a new width (kFitTo...Command), which is kept. Costs a look at every cell,
    // which Esc may end: then no width changes.
    void fit(unsigned command);

    // Makes a column wider by some steps, or narrower, and keeps its width.
    void widen(ColumnId column, int steps);

    // The dialogs. Messages come in while one is open, so that the list's window may be gone when
    // it returns.
    void reposition(bool offersDefaultSort);
    void addUserColumn();
    void deleteUserColumn();

    void onCaptionClick(NMLISTVIEW& click);
    LRESULT onItemChanging(NMHEADERA& info);
    LRESULT onItemChanged(NMHEADERA& info);
    // The user is done with a divider: the width that its column has by now is kept. The control
    // changes it behind the notification only.
    LRESULT onDividerDone(NMHEADERA& info);
    void onKeepWidth(ColumnId column);
    void onHeaderMoved();
    void onInvalidExpression() { m_services.showMessage(kInvalidExpression); }
    // The columns get the pixels that their widths are now.
    void followDpi();

private:
    void columnsChanged();
    void applyLayout(const ColumnLayout& layout);
    void showOrder();
    int dpi() const { return m_parts.header.dpi(); }
    void setWidth(int item, int width);  // at 96 dots per inch
    std::vector<int> fittedWidths(unsigned command, const LongWork& work) const;
    void keepWidths(std::span<const ColumnId> columns);
    bool isWidthChange(const NMHEADERA& info) const;

    const fw::CWindow& m_list;
    ListServices& m_services;
    ListHooks& m_hooks;
    Parts m_parts;
    std::string m_name;
};

}  // namespace mc
