#include "listctrl/dialogs/reposition_columns.h"

#include <algorithm>

#include "editors/drag_list.h"
#include "framework/controls.h"
#include "framework/dialog.h"
#include "framework/handles.h"
#include "framework/list_view.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

// The entries of the sort control, in this order.
constexpr struct {
    const char* text;
    std::optional<bool> ascending;
} kSorts[] = {{"None", std::nullopt}, {"Ascending", true}, {"Descending", false}};

constexpr int kSortControls[] = {IDC_CP_SORT_GROUP, IDC_CP_SORT_FOR, IDC_CP_SORT_LABEL, IDC_CP_SORT,
                                 IDC_CP_SORT_KEPT};
constexpr int kBottomButtons[] = {IDC_CP_VIEW, IDOK, IDC_CP_DEFAULT, IDCANCEL};
constexpr int kSortGroupHeight = 36;  // dialog units, with the gap below

// Selects the rows, and scrolls to them from where the list was.
void selectRows(fw::ListView list, const Rows& rows, std::size_t top) {
    list.bringIntoView(top + list.rowsPerPage() - 1);
    for (const std::size_t row : rows) list.select(row, false);
    if (rows.empty()) return;
    list.select(rows.front(), true);
    list.bringIntoView(rows.back());
    list.bringIntoView(rows.front());
}

// The rows of `wanted` among these columns.
Rows rowsOf(const std::vector<ColumnId>& wanted, const std::vector<ColumnId>& columns) {
    Rows rows;
    for (std::size_t row = 0; row < columns.size(); ++row)
        if (std::ranges::find(wanted, columns[row]) != wanted.end()) rows.push_back(row);
    return rows;
}

class CRepositionColumns final : public fw::CDialog, private DragListOwner {
public:
    CRepositionColumns(HWND list, const ColumnModel& columns, std::optional<ColumnSort> sort,
                       bool offersSort, const ColumnProfileActions& actions)
        : m_list(list), m_choice(columns, sort), m_offersSort(offersSort), m_actions(actions) {}

    void show() { run(IDD_COLUMN_PROFILE, 0); }

protected:
    const fw::MessageMap& messageMap() const override {
        using Dlg = CRepositionColumns;
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_INITDIALOG, &Dlg::onInitDialog>(),
            fw::onCommand<IDC_CP_ADD, &Dlg::onAdd>(),
            fw::onCommand<IDC_CP_REMOVE, &Dlg::onRemove>(),
            fw::onCommand<IDC_CP_UP, &Dlg::onUp>(),
            fw::onCommand<IDC_CP_DOWN, &Dlg::onDown>(),
            fw::onCommand<IDC_CP_SORT, &Dlg::onSortChosen, CBN_SELCHANGE>(),
            fw::onCommand<IDC_CP_VIEW, &Dlg::onView>(),
            fw::onCommand<IDOK, &Dlg::onSave>(),
            fw::onCommand<IDC_CP_DEFAULT, &Dlg::onDefault>(),
            fw::onCommand<IDCANCEL, &Dlg::onCancel>(),
            fw::onNotify<IDC_CP_SHOWN, LVN_BEGINDRAG, &Dlg::onBeginDrag>(),
            fw::onNotify<IDC_CP_SHOWN, LVN_ITEMCHANGED, &Dlg::onShownChanged>(),
            fw::onNotify<IDC_CP_SHOWN, static_cast<UINT>(NM_DBLCLK), &Dlg::onRemove>(),
            fw::onNotify<IDC_CP_AVAILABLE, static_cast<UINT>(NM_DBLCLK), &Dlg::onAdd>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    LRESULT onInitDialog() {
        m_shown.attach(item(IDC_CP_SHOWN));
        for (const int id : {IDC_CP_AVAILABLE, IDC_CP_SHOWN}) {
            const fw::ListView list(item(id));
            list.insertColumn(0, "", 0, LVCFMT_LEFT);
            list.setExtendedStyle(LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
        }
        for (const auto& sort : kSorts) sorts().add(sort.text);
        if (!m_offersSort) leaveSortOut();
        fillAvailable({});
        fillShown({0});
        centerOver(m_list);
        SetFocus(item(IDC_CP_SHOWN));
        return FALSE;
    }

    // The buttons move up to where the sort group was.
    void leaveSortOut() {
        RECT gone{0, 0, 0, kSortGroupHeight};
        MapDialogRect(handle(), &gone);
        for (const int id : kSortControls) ShowWindow(item(id), SW_HIDE);
        moveItemsDown(kBottomButtons, -fw::heightOf(gone));
        setHeight(fw::heightOf(fw::screenRect(handle())) - fw::heightOf(gone));
    }

    // ---- The two lists ----

    void fill(int id, const std::vector<ColumnId>& columns, const Rows& selected) {
        const fw::ListView list(item(id));
        const std::size_t top = list.topRow();
        m_filling = true;
        {
            const fw::RedrawOffScope off(item(id));
            list.removeRows();
            for (const ColumnId column : columns) list.addRow(m_choice.caption(column));
            list.setColumnWidth(0, LVSCW_AUTOSIZE_USEHEADER);
        }
        selectRows(list, selected, top);
        m_filling = false;
    }

    Rows selectedRows(int id) const { return fw::ListView(item(id)).selectedRows(); }

    void fillAvailable(const Rows& selected) {
        fill(IDC_CP_AVAILABLE, m_choice.available(), selected);
    }
    void fillShown(const Rows& selected) {
        fill(IDC_CP_SHOWN, m_choice.shown(), selected);
        showSort();
    }

    void onAdd() {
        const Rows rows = selectedRows(IDC_CP_AVAILABLE);
        if (rows.empty()) return;
        const Rows added = m_choice.add(rows);
        fillAvailable({});
        fillShown(added);
        SetFocus(item(IDC_CP_SHOWN));
    }

    void onRemove() {
        const Rows rows = selectedRows(IDC_CP_SHOWN);
        if (rows.empty()) return;
        std::vector<ColumnId> asked;
        for (const std::size_t row : rows) asked.push_back(m_choice.shown()[row]);
        const auto kept = m_choice.remove(rows);
        fillAvailable(rowsOf(asked, m_choice.available()));
        fillShown(rowsOf(kept, m_choice.shown()));
        SetFocus(item(IDC_CP_AVAILABLE));
        for (const ColumnId id : kept)
            fw::showMessageBox(m_choice.caption(id) + " cannot be removed");
    }

    void onUp() { rowsMoved(false); }
    void onDown() { rowsMoved(true); }
    void rowsMoved(bool down) override {
        const Rows rows = selectedRows(IDC_CP_SHOWN);
        fillShown(down ? m_choice.moveDown(rows) : m_choice.moveUp(rows));
    }
    void rowsDropped(std::size_t before) override {
        fillShown(m_choice.move(selectedRows(IDC_CP_SHOWN), before));
    }
    LRESULT onBeginDrag(NMHDR& drag) {
        return reflectNotify(drag.idFrom, reinterpret_cast<LPARAM>(&drag));
    }

    // ---- The sort group ----

    fw::Combo sorts() const { return fw::Combo(item(IDC_CP_SORT)); }

    // The column that the group is about: the first one selected.
    std::optional<ColumnId> sortColumn() const {
        const Rows rows = selectedRows(IDC_CP_SHOWN);
        if (rows.empty()) return std::nullopt;
        return m_choice.shown()[rows.front()];
    }

    void onShownChanged() {
        if (!m_filling) showSort();
    }

    void showSort() {
        const auto column = sortColumn();
        setItemText(IDC_CP_SORT_FOR,
                    "Default Sort For: " + (column ? m_choice.caption(*column) : ""));
        const auto ascending = column ? m_choice.ascending(*column) : std::nullopt;
        const auto* found = std::ranges::find_if(
            kSorts, [&](const auto& sort) { return sort.ascending == ascending; });
        sorts().select(static_cast<std::size_t>(found - std::begin(kSorts)));
        EnableWindow(item(IDC_CP_SORT), column ? TRUE : FALSE);
    }

    void onSortChosen() {
        const auto chosen = sorts().selected();
        if (const auto column = sortColumn(); column && chosen)
            m_choice.setAscending(*column, kSorts[*chosen].ascending);
    }

    // ---- The buttons below ----

    void onView() { m_actions.apply(m_choice.layout()); }
    void onSave() {
        m_actions.apply(m_choice.layout());
        if (m_actions.save()) end(IDOK);
    }
    void onDefault() {
        m_choice.restoreDefault();
        fillAvailable({});
        fillShown({0});
    }
    void onCancel() { end(IDCANCEL); }

    HWND m_list;
    ColumnChoice m_choice;
    const bool m_offersSort;
    const ColumnProfileActions& m_actions;
    CDragList m_shown{*this};
    bool m_filling = false;  // the changes of the lists are its own
};

}  // namespace

void repositionColumns(HWND list, const ColumnModel& columns, std::optional<ColumnSort> sort,
                       bool offersSort, const ColumnProfileActions& actions) {
    CRepositionColumns(list, columns, sort, offersSort, actions).show();
}

}  // namespace mc
