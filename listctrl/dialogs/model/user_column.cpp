#include "listctrl/dialogs/model/user_column.h"

#include <algorithm>
#include <set>

#include "listctrl/model/expression/postfix_program.h"
#include "text/characters.h"
#include "text/read_number.h"

namespace mc {
namespace {

constexpr char kNameMissing[] = "Please Enter the column Name";
constexpr char kNameReserved[] =
    "\"#,\" are not allowed as a custom column name , please choose a different name";
constexpr char kExpressionMissing[] =
    "Column Expression is empty, please enter an expression to add a column";
constexpr char kExpressionInvalid[] = "Invalid Expression, Please check the expression again";
constexpr char kNameTaken[] =
    "This column name already present,Please choose different column Name";
constexpr std::string_view kUnknownColumn = "-1";

// Characters that never run together with their neighbours.
bool isSeparate(char c) {
    return c == '"' || c == '(' || c == ')';
}

// Whether a blank between the two holds them apart: 2 3 is not 23, and - - is not --.
bool blankSeparates(char before, char behind) {
    return !isSeparate(before) && !isSeparate(behind) &&
           continuesOperand(before) == continuesOperand(behind);
}

std::string quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

// The column whose caption in quotes `text` begins with; of several the longest, as a caption may
// hold quotes itself.
std::optional<ColumnId> columnAtStart(std::string_view text, const ColumnModel& columns) {
    std::optional<ColumnId> found;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& caption = columns.descriptor(toColumnId(i)).caption;
        if (caption.size() < longest || !text.starts_with(quoted(caption))) continue;
        longest = caption.size();
        found = toColumnId(i);
    }
    return found;
}

// Takes a column's caption with its quotes off the front of `text`, up to its end where the closing
// quote is missing, and gives its id in quotes.
std::string takeReference(std::string_view& text, const ColumnModel& columns) {
    const auto id = columnAtStart(text, columns);
    if (!id) {
        const auto close = std::min(text.find('"', 1), text.size() - 1);
        text.remove_prefix(close + 1);
        return quoted(kUnknownColumn);
    }
    text.remove_prefix(columns.descriptor(*id).caption.size() + 2);
    return quoted(std::to_string(toIndex(*id)));
}

// The infix text with each column replaced by its position. Positions count from 1, so that none is
// a zero that cannot divide. A blank keeps each apart from an operand beside it, as the cell's text
// would be kept. Nothing where a column is not one of the list's.
std::optional<std::string> withPositions(std::string_view internal, const ColumnModel& columns) {
    std::string infix;
    while (!internal.empty()) {
        const auto open = std::min(internal.find('"'), internal.size());
        infix += internal.substr(0, open);
        internal.remove_prefix(open);
        if (internal.empty()) break;
        const auto close = internal.find('"', 1);
        const ColumnId id{integerOf(internal.substr(1, close - 1))};
        if (!columns.has(id)) return std::nullopt;
        if (!infix.empty() && continuesOperand(infix.back())) infix += ' ';
        infix += std::to_string(toIndex(id) + 1) + ' ';
        internal.remove_prefix(close + 1);
    }
    return infix;
}

bool isValid(std::string_view internal, const ColumnModel& columns) {
    const auto infix = withPositions(internal, columns);
    return infix && evaluateExpression(*infix).status == EvaluationStatus::success;
}

template <class Include>
std::vector<ColumnId> columnsThat(const ColumnModel& columns, Include include) {
    std::vector<ColumnId> found;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (include(toColumnId(i))) found.push_back(toColumnId(i));
    return found;
}

}  // namespace

bool canDefineColumns(const ColumnModel& columns) {
    std::set<std::string_view> captions;
    for (std::size_t i = 0; i < columns.size(); ++i)
        captions.insert(columns.descriptor(toColumnId(i)).caption);
    return !captions.empty() && captions.size() == columns.size() && !captions.contains("");
}

std::vector<ColumnId> columnsForExpressions(const ColumnModel& columns) {
    return columnsThat(
        columns, [&](ColumnId id) { return columns.descriptor(id).type != ColumnType::dateTime; });
}

std::vector<ColumnId> userDefinedColumns(const ColumnModel& columns) {
    return columnsThat(columns, [&](ColumnId id) { return columns.isUserDefined(id); });
}

std::string internalExpression(std::string_view displayed, const ColumnModel& columns) {
    std::string internal(" ");
    bool blank = false;
    for (displayed = trimmed(displayed); !displayed.empty();) {
        const char next = displayed.front();
        if (isWhiteSpace(next)) {
            blank = true;
            displayed.remove_prefix(1);
            continue;
        }
        if (blank && blankSeparates(internal.back(), next)) internal += ' ';
        blank = false;
        if (next == '"') {
            internal += takeReference(displayed, columns);
        } else {
            internal += next;
            displayed.remove_prefix(1);
        }
    }
    return internal;
}

const char* pressButton(const ExpressionButton& button, bool ctrl, std::optional<ColumnId> selected,
                        const ColumnModel& columns, std::string& displayed) {
    if (!ctrl && !selected) return kNoColumnForOperator;
    if (!ctrl) displayed += quoted(columns.descriptor(*selected).caption);
    displayed += ctrl ? button.alone : button.behindColumn;
    return nullptr;
}

const char* insertColumn(std::optional<ColumnId> selected, const ColumnModel& columns,
                         std::string& displayed) {
    if (!selected) return kNoColumnToInsert;
    displayed += quoted(columns.descriptor(*selected).caption);
    return nullptr;
}

std::variant<UserDefinedColumn, const char*> newUserColumn(std::string_view name,
                                                           std::string_view displayed,
                                                           const ColumnModel& columns) {
    UserDefinedColumn column{std::string(trimmed(name)), internalExpression(displayed, columns),
                             std::string(trimmed(displayed))};
    std::ranges::replace_if(column.caption, isControl, ' ');
    if (column.caption.empty()) return kNameMissing;
    if (column.caption.find_first_of("#,") != std::string::npos) return kNameReserved;
    if (column.displayText.empty()) return kExpressionMissing;
    if (!isValid(column.expression, columns)) return kExpressionInvalid;
    if (columns.find(column.caption)) return kNameTaken;
    return column;
}

}  // namespace mc
