// CCommonListCtrl: the report list that every list of the workbench is drawn on.
//
// A virtual list over a RecordStore: the store knows the records, which of them are rows, their
// order, selection and focus; the native control knows the number of rows only and draws through
// this class. The list itself is its parts, and the table of which part answers which message:
//
//   ListContent        columns, texts of cells, order
//   CListUpdate        the control's number of rows follows the store
//   CListWork          long work, which Esc ends
//   CListHeader        header items, tips, where the cells are
//   CListAppearance    colours, font, keywords
//   CListPainter       draws rows
//   CCellTip           the whole text of a cell that is cut off
//   CListInput         mouse, keys, the selection that they make
//   CSelectionAnswers  what others ask about the selection
//   CListColumns       arranging columns: widths, profile, sorting, dialogs
//   CListCommands      menus, command keys, export, copy
//   CListAccess        what screen readers hear
//
// Order of life: create(), setColumns(), then changes of the store, each followed by
// storeChanged(). The parent must hand notifications and drawing requests back
// (CWindow::reflectNotify, and WM_DRAWITEM to the list itself).
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "framework/window.h"
#include "listctrl/cell_tip.h"
#include "listctrl/list_access.h"
#include "listctrl/list_appearance.h"
#include "listctrl/list_columns.h"
#include "listctrl/list_commands.h"
#include "listctrl/list_header.h"
#include "listctrl/list_hooks.h"
#include "listctrl/list_input.h"
#include "listctrl/list_painter.h"
#include "listctrl/list_services.h"
#include "listctrl/list_update.h"
#include "listctrl/list_work.h"
#include "listctrl/model/list_content.h"
#include "listctrl/selection_answers.h"

namespace mc {

class CCommonListCtrl : public fw::CWindow, protected ListHooks {
public:
    // Both must outlive the list. A list whose window may go behind a dialog of its own must be
    // retired, not destroyed (framework/model/calls.h).
    CCommonListCtrl(ListServices& services, RecordStore& store);
    ~CCommonListCtrl() override;

    // Creates the control as a child of `parent`. `name` is the list's settings name and its
    // accessible name, `title` its display name. False when the control cannot be made.
    bool create(HWND parent, UINT id, const std::string& name, std::string title);

    // Installs the columns, with the stored profile where there is one, and what reads their cells.
    // Mandatory columns cannot be hidden. `whole` reads whole texts where `reader` cuts them.
    void setColumns(std::span<const sVoskColInfo> columns, CellReader reader,
                    std::span<const ColumnId> mandatory = {}, CellReader whole = {});

    // The store changed. Costs one invalidation, however often it is called before the next paint.
    void storeChanged() { m_update.storeChanged(); }

    // `updated` is called whenever the control has been brought up to date with the store, and may
    // call nothing that sends the list a message.
    void onUpdate(std::function<void()> updated) { m_updated = std::move(updated); }

    // The parts that the list's owner asks, and the store.
    RecordStore& store() const { return m_content.store(); }
    CListCommands& commands() { return m_commands; }
    CListAppearance& appearance() { return m_appearance; }
    CListPainter& painter() { return m_painter; }
    CListInput& input() { return m_input; }
    CListAccess& access() { return m_access; }
    CListWork& work() { return m_work; }

    // Whether the list uses a key, with the modifiers that are down now: it is then the list's
    // while the list has the focus, and not the host's accelerators'.
    virtual bool claims(UINT key) const;

    // Reads the profile of every list of the process again.
    static void loadAllColumnProfiles();

    // Font, rows, columns and tips for the dots per inch that the list has now. What is open over
    // it ends as if the focus had left; a text that is refused stays open.
    void followDpi();

protected:
    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();
    void beforeMessage(UINT message) override;

    // Each overrider calls these first.
    void columnRemoved(ColumnId removed) override { m_appearance.columnRemoved(removed); }
    void fontChanged() override;
    std::vector<NamedText> wholeTexts(std::size_t row, ColumnId column) const override;

    const ListContent& content() const { return m_content; }
    const CListHeader& header() const { return m_header; }

private:
    void onPaint();
    void onDpiChanged();

    std::function<void()> m_updated;
    ListContent m_content;
    CListUpdate m_update;
    CListWork m_work;
    CListHeader m_header;
    CListAppearance m_appearance;
    CListPainter m_painter;
    CCellTip m_cellTip;
    CListInput m_input;
    CSelectionAnswers m_answers;
    CListColumns m_columns;
    CListCommands m_commands;
    CListAccess m_access;
};

}  // namespace mc
