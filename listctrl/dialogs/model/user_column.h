// What the user-defined column dialog decides: the two texts of an expression, and the checks.
//
// The displayed text is what the user sees, and may type: columns are captions in double quotes.
// The internal text, which a list computes with, is always worked out from it: columns are ids in
// double quotes, and blanks are gone where they separate nothing. So the two cannot disagree.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "listctrl/model/columns/column_model.h"

namespace mc {

// A button of the dialog. With a column it appends the caption in quotes and `behindColumn`, with
// Ctrl held down `alone`.
struct ExpressionButton {
    std::string_view behindColumn;
    std::string_view alone;
};

inline constexpr std::array<ExpressionButton, 8> kExpressionButtons{{
    {" + ", "+"},
    {" - ", "-"},
    {" * ", "*"},
    {" / ", "/"},
    {" ( ", "("},
    {" ) ", ")"},
    {" ^ 2 ", "^ 2"},  // bits, not a power: ^ is the exclusive or
    {" ^ ", "^"},
}};

inline constexpr char kNoColumnsToDefine[] = "Error while adding user defined cols";
inline constexpr char kNoColumnForOperator[] = "Please select a Column Name";
inline constexpr char kNoColumnToInsert[] = "No column is selected";
inline constexpr char kNoColumnToDelete[] = "No user defined column selected to delete";

// Whether expressions can name the columns: there are some, each with a caption of its own.
bool canDefineColumns(const ColumnModel& columns);

// The columns that expressions may use: all, hidden and user-defined ones too, but dates and times,
// whose texts are never numbers. Columns of text are among them, since they hold numbers as well.
std::vector<ColumnId> columnsForExpressions(const ColumnModel& columns);

// The columns that can be deleted.
std::vector<ColumnId> userDefinedColumns(const ColumnModel& columns);

// The internal text of a displayed one. It begins with a blank, because an expression that begins
// with a quote has its first column read as a number. A name in quotes that is no column's becomes
// -1, which is refused by newUserColumn().
std::string internalExpression(std::string_view displayed, const ColumnModel& columns);

// Appends to the displayed text what a button does. A text: what to tell the user instead.
// `selected` is the column selected in the dialog.
const char* pressButton(const ExpressionButton& button, bool ctrl, std::optional<ColumnId> selected,
                        const ColumnModel& columns, std::string& displayed);
const char* insertColumn(std::optional<ColumnId> selected, const ColumnModel& columns,
                         std::string& displayed);

// The column to add, or what is wrong with it.
std::variant<UserDefinedColumn, const char*> newUserColumn(std::string_view name,
                                                           std::string_view displayed,
                                                           const ColumnModel& columns);

}  // namespace mc
