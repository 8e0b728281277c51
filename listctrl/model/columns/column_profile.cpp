#include "listctrl/model/columns/column_profile.h"

#include "text/read_number.h"
#include "text/text_parts.h"

namespace mc {
namespace {

constexpr char kSeparator = ',';
constexpr char kInnerSeparator = '#';

// Splits at the first two "#" only. An expression that was cut might refer to another column, so a
// part without its second "#" is none.
void readUserDefined(std::string_view part, ColumnProfile& profile) {
    const auto first = part.find(kInnerSeparator);
    const auto second = part.find(kInnerSeparator, first + 1);
    if (second == part.npos) {
        profile.whole = false;
        return;
    }
    profile.userDefined.push_back({std::string(part.substr(0, first)),
                                   std::string(part.substr(first + 1, second - first - 1)),
                                   std::string(part.substr(second + 1))});
}

}  // namespace

std::optional<int> ColumnProfile::dataColumns() const {
    if (!whole || columns.size() < userDefined.size()) return std::nullopt;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].index != static_cast<int>(i)) return std::nullopt;
    return static_cast<int>(columns.size() - userDefined.size());
}

std::string profileText(const ColumnProfile& profile) {
    std::string text;
    for (const StoredColumn& column : profile.columns) {
        if (!text.empty()) text += kSeparator;
        text += std::to_string(column.index) + kSeparator + std::to_string(column.position) +
                kSeparator + std::to_string(column.width);
    }
    for (const UserDefinedColumn& column : profile.userDefined)
        text += kSeparator + column.caption + kInnerSeparator + column.expression +
                kInnerSeparator + column.displayText;
    return text;
}

ColumnProfile readProfile(std::string_view text) {
    ColumnProfile profile;
    std::vector<int> numbers;
    for (const std::string_view part : splitAt(text, kSeparator)) {
        if (part.find(kInnerSeparator) != part.npos)
            readUserDefined(part, profile);
        else
            numbers.push_back(integerOf(part));
    }
    for (std::size_t i = 0; i + 2 < numbers.size(); i += 3)
        profile.columns.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
    if (numbers.size() % 3 != 0 || text.size() >= kMaxProfile) profile.whole = false;
    return profile;
}

}  // namespace mc
