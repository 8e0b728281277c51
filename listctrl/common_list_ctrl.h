// CCommonListCtrl: the report list that every list of the workbench is drawn on.
//
// A virtual list: the rows stand with the owner, who overrides rowCount() and cellText(); the
// native control knows their number only. The owner says at once what changed (rowAppended() and so
// on), which costs no window call: the control itself is brought up to date before it handles its
// next message, so that a burst of changes is one count and one paint, and whoever asks the control
// in between gets the present rows.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "framework/window.h"
#include "listctrl/model/column_info.h"

class CCommonListCtrl : public fw::CWindow {
public:
    // Creates the control as a child of `parent`, which must hand notifications back
    // (CWindow::reflectNotify). `name` is the list's settings name and its accessible name; it is
    // kept as a pointer. False when the control cannot be made.
    bool create(HWND parent, UINT id, const char* name);

    // Installs the columns; once, after create(). The array is kept as a pointer.
    void setColumns(std::span<const sVoskColInfo> columns);

    void setBackground(COLORREF color);

    // What changed among the rows. The owner's rows already stand so.
    void rowAppended();
    void rowRemoved(std::size_t row);
    void redrawRows();
    void rowsReset();

    // The selected rows, in order.
    std::vector<std::size_t> selectedRows();

protected:
    const fw::MessageMap& messageMap() const override;
    void beforeMessage(UINT message) override;

    virtual std::size_t rowCount() const = 0;

    // The text of a cell; it need not live longer than until the next call.
    virtual std::string_view cellText(std::size_t row, int column) const = 0;

private:
    LRESULT onGetDispInfo(NMLVDISPINFOA& info);
    LRESULT onGetDialogCode(const MSG* message);
    void changed();
    void bringUpToDate();

    std::span<const sVoskColInfo> m_columns;
    bool m_stale = false;     // the control's rows differ from the owner's
    bool m_updating = false;  // it is being brought up to date
    bool m_resetRows = false;
    std::vector<std::size_t> m_removed;  // rows that went since, in order
};
