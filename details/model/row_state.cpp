#include "details/model/row_state.h"

#include "details/model/amounts.h"

namespace mc {
namespace {

constexpr struct {
    FieldChange change;
    std::string_view words;
} kChanges[] = {{FieldChange::changed, "changed"},
                {FieldChange::added, "new value only"},
                {FieldChange::removed, "old value only"},
                {FieldChange::reset, "new password"}};

std::string wordsOf(const sMCListStruct& row, bool editable) {
    std::string words;
    const auto add = [&words](std::string_view more) {
        words.append(words.empty() || more.empty() ? "" : "; ").append(more);
    };
    for (const auto& each : kChanges)
        if (each.change == row.change) add(each.words);
    if (row.edited) add("edited, not sent");
    if (row.overOlder) add("typed over an older value");
    add(lineAbout(row).text);
    if (editable) add(row.attribute == RowAttribute::choice ? "choice" : "can be edited");
    return words;
}

}  // namespace

RowState stateOf(const LineGroups& lines, const LineGroups::Line& line, bool editable) {
    if (!line.isHeading()) return {wordsOf(*line.row, editable)};
    const bool folded = lines.folded(line);
    std::string words = folded ? "group, folded" : "group, open";
    if (folded && lines.holdsEdits(line)) words += "; holds edits";
    return {words, folded};
}

}  // namespace mc
