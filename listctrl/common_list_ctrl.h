// CCommonListCtrl: the report list that every list of the workbench is drawn on.
//
// A virtual list over a RecordStore: the store knows the records, which of them are rows, their
// order, selection and focus; the native control knows the number of rows only and draws through
// this class. Column model, profile, sorting, menus, keys, fitting, copying and export are here.
//
// Order of life: create(), setColumns(), then changes of the store, each followed by
// storeChanged(), which costs no window call: the control itself is brought up to date before it
// handles its next message, so that a burst of changes is one count and one paint, and whoever asks
// the control in between gets the present rows. The parent must hand notifications and drawing
// requests back (CWindow::reflectNotify, and WM_DRAWITEM to the list itself).
//
// What the checker selects (by mouse and keys, or a program by LVM_SETITEMSTATE) is told to the
// parent with one LVN_ITEMCHANGED of item -1, however many rows it concerns: uChanged is
// LVIF_STATE, uNewState LVIS_SELECTED when any row is selected now and uOldState when none is. What
// rows that come, go, move or are filtered out change is not told. The parent may end the list
// meanwhile.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/handles.h"
#include "framework/window.h"
#include "listctrl/cell_tip.h"
#include "listctrl/dialogs/model/column_choice.h"
#include "listctrl/header_tips.h"
#include "listctrl/list_colors.h"
#include "listctrl/list_messages.h"
#include "listctrl/list_services.h"
#include "listctrl/model/columns/appearance.h"
#include "listctrl/model/columns/column_model.h"
#include "listctrl/model/expression/computed_columns.h"
#include "listctrl/model/list_commands.h"
#include "listctrl/model/table/record_store.h"
#include "listctrl/model/table/selection_rules.h"
#include "listctrl/model/table/type_to_find.h"

namespace mc {

// How a cell differs from the others of its row.
struct CellLook {
    int indent = 0;                      // pixels
    HFONT font = nullptr;                // null: the list's
    std::optional<COLORREF> background;  // none: the row's; both colours give way to a selection
    std::optional<COLORREF> text;
};

class CCommonListCtrl : public fw::CWindow {
public:
    // The text of a data column of a record.
    using DataReader = CellReader;

    // Both must outlive the list, which gives the store a cell reader in setColumns() and takes it
    // back when it goes. A list whose windows may go behind a dialog of its own must be retired,
    // not destroyed (framework/model/calls.h).
    CCommonListCtrl(ListServices& services, RecordStore& store);
    ~CCommonListCtrl() override;

    // Creates the control as a child of `parent`. `name` is the list's settings name and its
    // accessible name, `title` its display name. False when the control cannot be made.
    bool create(HWND parent, UINT id, std::string name, std::string title);

    // Installs the columns, with the stored profile where there is one, and what reads their cells.
    // Mandatory columns cannot be hidden.
    void setColumns(std::span<const sVoskColInfo> columns, DataReader reader,
                    std::span<const ColumnId> mandatory = {});

    // What the header menu offers for the columns; nothing before.
    void offerColumns(bool defaultSort, bool userColumns);

    ColumnModel& columns() { return m_columns; }
    const ColumnModel& columns() const { return m_columns; }
    // The columns changed: builds the header anew.
    void columnsChanged();

    // The store changed.
    void storeChanged();

    // The text of a cell as shown, copied and exported.
    std::string_view cellText(std::size_t row, ColumnId column) const;

    // Sorts by a column; ascending or descending.
    void sortByColumn(ColumnId column, bool ascending);

    // What the menus and keys do.
    void command(unsigned command);

    // Whether the list uses a key, with the modifiers that are down now: it is then the list's
    // while the list has the focus, and not the host's accelerators'.
    virtual bool claims(UINT key) const;

    // Stores the column profile. A failure is shown, and false.
    bool saveColumnProfile();
    // Reads the profile of every list there is anew.
    static void loadAllColumnProfiles();

    void setExportEnabled(bool enabled) { m_exportEnabled = enabled; }
    // The background until the appearance is customised; without one it is the system's.
    void setBackground(COLORREF color);

    // What stands in place of the rows when there is no record.
    void setEmptyText(std::string text);

    // Whether the dialog may change colours and keywords.
    void setCustomizable(bool customizable) { m_customizable = customizable; }
    // Asks for another appearance over the list, applies and stores it.
    void customizeAppearance();

    // The width in pixels that a text takes in the list's font, or in another.
    int textWidth(std::string_view text, HFONT font = nullptr) const;

protected:
    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();
    void beforeMessage(UINT message) override;

    RecordStore& store() { return m_store; }
    const RecordStore& store() const { return m_store; }
    ListServices& services() { return m_services; }
    HWND header() const {
        return reinterpret_cast<HWND>(SendMessageA(handle(), LVM_GETHEADER, 0, 0));
    }
    virtual ListOffers offers() const;
    // Runs a command of the menus or keys; false when it is none of this class.
    virtual bool runCommand(unsigned command);
    void showMenu(const std::vector<ListMenuEntry>& entries);
    virtual void onHeaderRightClick(NMHDR& header);
    // A user-defined column went, and the ids behind it moved down (idAfterRemoval); the header is
    // built anew after this.
    virtual void columnRemoved(ColumnId removed);
    // The header has new items, or items of another width.
    virtual void headerBuilt() { m_tips.follow(header()); }
    // Cells are about to move because of the user: a sort, a menu, a fold, a width, scrolling. What
    // is open over one ends. False when it does not; then they must stay where they are.
    virtual bool beforeCellsMove() { return true; }
    // Cells move and cannot be kept from it. What stays open over one moves along.
    virtual void cellsMove() {}
    // The list has another font: the height of what stands in the header follows.
    virtual void fontChanged() {}
    // A column of the control is one of the shown columns.
    ColumnId columnAt(int item) const { return m_columns.at(DisplayPlace{item}); }

    // How a cell is drawn, and what is drawn over it.
    virtual CellLook cellLook(std::size_t, int) const { return {}; }
    virtual void drawOver(HDC, std::size_t, int, const RECT&) const {}

    // What a press, a double-click, and a key that leads to one row do. The parent is told and may
    // end the list: false then.
    bool press(POINT client);
    bool pressTwice(POINT client);
    bool goTo(std::size_t row);
    void notifyParent(UINT code, POINT at, std::optional<std::size_t> row);

    struct Cell {
        std::size_t row;
        int item;
        bool operator==(const Cell&) const = default;
    };
    // The cell at a point, of a row that is there.
    std::optional<Cell> cellAt(POINT client) const;
    // Where a cell stands, in the list's client coordinates.
    RECT cellPlace(std::size_t row, int item) const;

private:
    using CharWidths = std::array<INT, 256>;  // of each byte

    struct Sorting {
        ColumnId column;
        int direction;
    };

    // Notifications, drawing
    LRESULT onGetDispInfo(NMLVDISPINFOA& info);
    LRESULT onGetDialogCode(const MSG* message);
    void onHeaderClick(NMLISTVIEW& click);
    LRESULT onHeaderItemChanging(NMHEADERA& info);
    LRESULT onHeaderItemChanged(NMHEADERA& info);
    void onHeaderMoved();
    LRESULT onMenuCommand(UINT command, UINT code);
    void onRightClick(NMHDR&) { showMenu(itemMenu(offers())); }
    LRESULT onDrawItem(const DRAWITEMSTRUCT& draw);
    void onPaint();
    void onSize(int, int) { onAreaChanged(); }
    void onAreaChanged();
    LRESULT onMeasureItem(MEASUREITEMSTRUCT& measure);
    void onSystemChanged() { showColors(); }
    void onFocusChanged();

    // Input
    void onMouseMove(POINT client);
    void onButtonDown(POINT client) { press(client); }
    void onDoubleClick(POINT client) { pressTwice(client); }
    void onButtonUp(POINT client);
    void onRightDown(POINT client);
    void onRightUp(POINT client);
    bool onKeyDown(UINT key, bool repeated);
    void onCharacter(UINT character);

    // What others ask the control about selection and focus is answered from the store.
    LRESULT onGetItemState(std::optional<std::size_t> row, UINT mask);
    LRESULT onSetItemState(std::optional<std::size_t> row, const LVITEMA& wanted);
    LRESULT onGetNextItem(std::optional<std::size_t> start, UINT flags);
    LRESULT onGetNextItemIndex(LVITEMINDEX& index, UINT flags);
    LRESULT onGetSelectedCount();
    LRESULT onGetSelectionMark();
    LRESULT onSetSelectionMark(std::optional<std::size_t> row);
    LRESULT onFindItem(std::optional<std::size_t> start, const std::string& text, UINT flags);

    // Makes a change of the checker's, and tells the parent if it changed the selection. False when
    // the list ended with that.
    bool byHand(const std::function<void()>& change);
    void tellSelection();
    void tellParent(NMHDR& notice, UINT code) const;
    void bringIntoView(std::size_t row) const;
    // The column whose first letters are typed to find a row: the sorted, else the first one.
    ColumnId findColumn() const { return m_sorting ? m_sorting->column : columnAt(0); }

    void bringUpToDate();
    void readProfile();
    std::string_view readCell(Slot record, ColumnId column);
    std::string_view computeCell(Slot record, ColumnId column);
    void compileExpressions();
    void onTellInvalid() { m_services.showMessage(kInvalidExpression); }
    std::optional<std::size_t> rowAt(POINT client) const;
    bool navigate(UINT key);
    bool selectByKey(UINT key, Modifiers keys);
    void sortAgain();
    void endSorting();
    void showSortImage(int item, int image);
    // Commands
    struct Command;
    static const Command kCommands[];
    template <unsigned command>
    void fit() {
        fitColumns(command);
    }
    void selectAll();
    void reposition();
    void applyLayout(const ColumnLayout& layout);
    void addUserColumn();
    void deleteUserColumn();
    void fitColumns(unsigned command);
    const CharWidths& charWidths(HFONT font) const;
    int drawnWidth(std::size_t row, int item) const;
    int dataWidth(int item) const;
    void copySelected();
    void exportAll();
    static void exportCell(void* list, int row, int column, const char*& text, int& type);
    void toggleGridLines();
    void drawCell(HDC dc, std::size_t row, int item, const RECT& place, bool ownLooks) const;
    void drawText(HDC dc, std::size_t row, int item, const RECT& place, const CellLook& look) const;
    bool cutOff(const Cell& cell) const;
    void measureRows();
    void measureHeader();

    // Appearance
    std::string appearanceKey() const;
    void readAppearance();
    void storeAppearance();
    // A user-defined column went: keywords follow their column, or have none.
    void moveKeywords(ColumnId removed);
    Appearance shownAppearance() const;
    void showAppearance();
    void showColors();
    COLORREF background() const;
    // Without a selection: of the list, and of a row.
    RowColors plainColors() const;
    RowColors rowColorsOf(std::size_t row) const;

    ListServices& m_services;
    RecordStore& m_store;
    SelectionRules m_rules;
    TypeToFind m_find;
    bool m_keyTaken = false;  // the last key did something: its character is no letter to find
    ColumnModel m_columns;
    DataReader m_reader;
    std::string m_name;
    std::string m_title;
    std::string m_emptyText;
    std::optional<Sorting> m_sorting;
    std::optional<DefaultSort> m_defaultSort;  // in force again with every applied layout
    ListOffers m_columnOffers;
    std::optional<ComputedColumns> m_computedColumns;
    std::string m_computed;           // the cell computed last
    std::vector<bool> m_toldInvalid;  // by column: the checker has been told of its expression
    CHeaderTips m_tips;
    CCellTip m_cellTip;
    std::optional<Cell> m_hovered;
    std::string m_exported;                            // the cell handed to the export last
    mutable std::map<HFONT, CharWidths> m_charWidths;  // by font; null is the list's
    std::vector<RECT> m_cells;                         // of the header's items, as last measured
    bool m_exportEnabled = true;
    bool m_stale = false;     // the control's rows differ from the store's
    bool m_updating = false;  // it is being brought up to date
    bool m_customizable = true;
    std::optional<COLORREF> m_ownBackground;  // until customised
    std::optional<Appearance> m_appearance;   // once customised
    fw::Font m_font;                          // of the appearance
};

}  // namespace mc
