#include "listctrl/dialogs/user_defined_col.h"

#include "framework/controls.h"
#include "framework/dialog.h"
#include "framework/hwnd.h"
#include "listctrl/dialogs/model/user_column.h"
#include "res/resource_ids.h"

namespace mc {
namespace {

// A caption is read through a buffer of 256 bytes when lists are exported.
constexpr std::size_t kMaxName = 255;
constexpr std::size_t kMaxExpression = 1000;

constexpr int kAddControls[] = {
    IDC_UC_NAME_LABEL, IDC_UC_NAME, IDC_UC_COLUMNS_LABEL, IDC_UC_COLUMNS,
    IDC_UC_EXPRESSION, IDC_UC_PLUS, IDC_UC_MINUS,         IDC_UC_TIMES,
    IDC_UC_DIVIDE,     IDC_UC_OPEN, IDC_UC_CLOSE,         IDC_UC_SQUARED,
    IDC_UC_POWER,      IDC_UC_END,  IDC_UC_CLEAR,         IDC_UC_HINT};
constexpr int kDeleteControls[] = {IDC_UC_DEFINED_LABEL, IDC_UC_DEFINED, IDC_UC_SHOWN_EXPRESSION};

class CUserDefinedColDlg final : public fw::CDialog {
public:
    enum class Mode { add, remove };

    CUserDefinedColDlg(HWND list, const std::string& listName, const ColumnModel& columns,
                       Mode mode)
        : m_list(list), m_listName(listName), m_columns(columns), m_mode(mode) {}

    // What run() leaves: one of them, or neither.
    std::optional<UserDefinedColumn> added;
    std::optional<ColumnId> deleted;

    void ask() {
        if (!canDefineColumns(m_columns)) return fw::showMessageBox(kNoColumnsToDefine);
        run(IDD_USER_COLUMN, 0);
    }

protected:
    const fw::MessageMap& messageMap() const override {
        using Dlg = CUserDefinedColDlg;
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_INITDIALOG, &Dlg::onInitDialog>(),
            fw::onCommand<IDC_UC_PLUS, &Dlg::onOperator<0>>(),
            fw::onCommand<IDC_UC_MINUS, &Dlg::onOperator<1>>(),
            fw::onCommand<IDC_UC_TIMES, &Dlg::onOperator<2>>(),
            fw::onCommand<IDC_UC_DIVIDE, &Dlg::onOperator<3>>(),
            fw::onCommand<IDC_UC_OPEN, &Dlg::onOperator<4>>(),
            fw::onCommand<IDC_UC_CLOSE, &Dlg::onOperator<5>>(),
            fw::onCommand<IDC_UC_SQUARED, &Dlg::onOperator<6>>(),
            fw::onCommand<IDC_UC_POWER, &Dlg::onOperator<7>>(),
            fw::onCommand<IDC_UC_END, &Dlg::onInsert>(),
            fw::onCommand<IDC_UC_COLUMNS, &Dlg::onInsert, LBN_DBLCLK>(),
            fw::onCommand<IDC_UC_CLEAR, &Dlg::onClear>(),
            fw::onCommand<IDC_UC_DEFINED, &Dlg::onDefinedSelected, LBN_SELCHANGE>(),
            fw::onCommand<IDOK, &Dlg::onOk>(),
            fw::onCommand<IDCANCEL, &Dlg::onCancel>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    LRESULT onInitDialog() {
        const bool adds = m_mode == Mode::add;
        const std::string what = adds ? ": Add Custom Columns" : ": Delete Custom Columns";
        SetWindowTextA(handle(), (m_listName + what).c_str());
        setItemText(IDOK, adds ? "Add" : "Delete");
        for (const int id : kAddControls) ShowWindow(item(id), adds ? SW_SHOW : SW_HIDE);
        for (const int id : kDeleteControls) ShowWindow(item(id), adds ? SW_HIDE : SW_SHOW);
        fw::Edit(item(IDC_UC_NAME)).setLimit(kMaxName);
        fw::Edit(item(IDC_UC_EXPRESSION)).setLimit(kMaxExpression);
        fill(IDC_UC_COLUMNS, columnsForExpressions(m_columns));
        fill(IDC_UC_DEFINED, userDefinedColumns(m_columns));
        centerOver(m_list);
        SetFocus(item(adds ? IDC_UC_NAME : IDC_UC_DEFINED));
        return FALSE;
    }

    // Each entry carries its column's id.
    void fill(int id, const std::vector<ColumnId>& columns) {
        const fw::ListBox box(item(id));
        for (const ColumnId column : columns)
            box.add(m_columns.descriptor(column).caption, static_cast<int>(column));
    }

    std::optional<ColumnId> selectedIn(int id) const {
        const auto number = fw::ListBox(item(id)).selectedNumber();
        if (!number) return std::nullopt;
        return ColumnId{*number};
    }

    template <std::size_t button>
    void onOperator() {
        std::string text = itemText(IDC_UC_EXPRESSION);
        show(pressButton(kExpressionButtons[button], fw::isDown(VK_CONTROL),
                         selectedIn(IDC_UC_COLUMNS), m_columns, text),
             text);
    }

    void onInsert() {
        std::string text = itemText(IDC_UC_EXPRESSION);
        show(insertColumn(selectedIn(IDC_UC_COLUMNS), m_columns, text), text);
    }

    void onClear() { show(nullptr, ""); }

    // The new text with the caret at its end; or what was wrong, and the text as it is.
    void show(const char* message, const std::string& text) {
        if (message != nullptr) return fw::showMessageBox(message);
        setItemText(IDC_UC_EXPRESSION, text);
        fw::Edit(item(IDC_UC_EXPRESSION)).moveCaretToEnd();
    }

    void onDefinedSelected() {
        const auto column = selectedIn(IDC_UC_DEFINED);
        setItemText(IDC_UC_SHOWN_EXPRESSION,
                    column ? m_columns.descriptor(*column).displayText : "");
    }

    void onOk() { m_mode == Mode::add ? add() : remove(); }

    void add() {
        const auto made =
            newUserColumn(itemText(IDC_UC_NAME), itemText(IDC_UC_EXPRESSION), m_columns);
        if (const auto* message = std::get_if<const char*>(&made))
            return fw::showMessageBox(*message);
        added = std::get<UserDefinedColumn>(made);
        end(IDOK);
    }

    void remove() {
        deleted = selectedIn(IDC_UC_DEFINED);
        if (!deleted) return fw::showMessageBox(kNoColumnToDelete);
        end(IDOK);
    }

    void onCancel() { end(IDCANCEL); }

    HWND m_list;
    const std::string m_listName;
    const ColumnModel m_columns;  // as they were when it opened, whatever happens meanwhile
    const Mode m_mode;
};

}  // namespace

std::optional<UserDefinedColumn> askNewColumn(HWND list, const std::string& listName,
                                              const ColumnModel& columns) {
    CUserDefinedColDlg dialog(list, listName, columns, CUserDefinedColDlg::Mode::add);
    dialog.ask();
    return dialog.added;
}

std::optional<ColumnId> askColumnToDelete(HWND list, const std::string& listName,
                                          const ColumnModel& columns) {
    CUserDefinedColDlg dialog(list, listName, columns, CUserDefinedColDlg::Mode::remove);
    dialog.ask();
    return dialog.deleted;
}

}  // namespace mc
