#include "details/model/field_rows.h"

#include <utility>

#include "details/model/captions.h"
#include "details/model/field_change.h"

namespace mc {
namespace {

// The text is asked for first: where it is there, so is the field, and one question is saved.
void appendRow(DetailGroup& group, const FieldReader& answer, const FieldRow& field) {
    const auto value = answer.text(field.mnemonic);
    if (field.gate != 0 ? !answer.count(field.gate) : !value && !answer.count(field.mnemonic))
        return;
    if (field.unless != 0 && answer.count(field.unless)) return;
    const auto old = answer.text(field.mnemonic, 1);
    if (old && field.onlyWithoutOldValue) return;
    sMCListStruct& row = group.rows.emplace_back();
    row.caption = field.caption.empty() ? captionOf(field.mnemonic) : field.caption;
    row.value = value ? field.value(*value) : kNotAvailable;
    if (old) row.oldValue = field.oldValue(*old);
    row.change = field.secret && value ? FieldChange::reset : fieldChange(value, old);
}

}  // namespace

void appendRows(DetailGroup& group, const FieldReader& answer, std::span<const FieldRow> fields) {
    group.rows.reserve(group.rows.size() + fields.size());
    for (const FieldRow& field : fields) appendRow(group, answer, field);
}

sMCListStruct makeRow(std::string_view caption, std::string_view value, std::string_view oldValue) {
    sMCListStruct row;
    row.caption = caption;
    row.value = value;
    row.oldValue = oldValue;
    return row;
}

sMCListStruct newValueRow(std::string_view caption, std::string_view value) {
    sMCListStruct row = makeRow(caption, value);
    row.change = FieldChange::added;
    return row;
}

sMCListStruct oldValueRow(std::string_view caption, std::string_view oldValue) {
    sMCListStruct row = makeRow(caption, {}, oldValue);
    row.change = FieldChange::removed;
    return row;
}

DetailGroup makeGroup(std::string_view heading) {
    return {makeRow(heading, {}), {}};
}

DetailGroup makeGroup(std::string_view heading, const FieldReader& answer,
                      std::span<const FieldRow> fields) {
    DetailGroup group = makeGroup(heading);
    appendRows(group, answer, fields);
    return group;
}

int occurrencesOf(const FieldReader& answer, int mnemonic) {
    return std::clamp(answer.count(mnemonic).value_or(0), 0, kMaxOccurrences);
}

std::vector<sMCListStruct> repeatedRows(int count, const sMCListStruct& row) {
    const std::size_t each = row.caption.size() + row.value.size() + row.oldValue.size();
    const std::size_t most = kMaxRepeatedBytes / std::max<std::size_t>(each, 1);
    const auto wanted = static_cast<std::size_t>(std::max(count, 1));
    return std::vector(std::clamp<std::size_t>(most, 1, wanted), row);
}

DetailGroup listGroup(const FieldReader& answer, int mnemonic) {
    DetailGroup group = makeGroup(captionOf(mnemonic));
    if (!answer.count(mnemonic)) return group;
    const int count = occurrencesOf(answer, mnemonic);
    group.rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        group.rows.emplace_back().value = answer.text(mnemonic, i).value_or(kNotAvailable);
    if (count == 0) group.rows.push_back(makeRow({}, kNotAvailable));
    return group;
}

void handOver(DetailGroups& groups, DetailGroup group) {
    if (!group.rows.empty()) groups.push_back(std::move(group));
}

DetailGroups nothingModified() {
    return {makeGroup(kNothingModified)};
}

bool carriesAny(const FieldReader& answer, std::span<const int> mnemonics) {
    return std::any_of(mnemonics.begin(), mnemonics.end(),
                       [&](int each) { return answer.count(each).has_value(); });
}

bool carriesAny(const FieldReader& answer, std::span<const FieldRow> fields) {
    return std::any_of(fields.begin(), fields.end(), [&](const FieldRow& each) {
        return each.counts && answer.count(each.mnemonic).has_value();
    });
}

std::string shownProducts(std::optional<std::string_view> sent) {
    constexpr std::string_view part = "|ML";
    if (sent == part.substr(1)) return "MLB";
    std::string shown(sent.value_or(kNotAvailable));
    if (shown.starts_with(part)) return shown;
    for (auto at = shown.find(part); at != std::string::npos; at = shown.find(part, at))
        shown.insert(at += part.size(), 1, 'B');
    return shown;
}

}  // namespace mc
