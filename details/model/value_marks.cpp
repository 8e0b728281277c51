#include "details/model/value_marks.h"

#include <utility>

#include "details/model/amounts.h"

namespace mc {
namespace {

std::string shownAs(const std::string& text, const UnseenSigns& signs) {
    return hasUnseen(text) ? withSigns(text, signs) : std::string();
}

}  // namespace

ValueMarks marksOf(const sMCListStruct& row, const UnseenSigns& signs) {
    ValueMarks marks;
    marks.value.shown = shownAs(row.value, signs);
    marks.old.shown = shownAs(row.oldValue, signs);
    marks.slip = !slipOf(row).empty();
    if (row.change != FieldChange::changed || amountChange(row)) return marks;
    TextDifference found = differenceOf(row.value, row.oldValue);
    marks.kind = found.kind;
    marks.value.runs = std::move(found.value);
    marks.old.runs = std::move(found.old);
    return marks;
}

}  // namespace mc
