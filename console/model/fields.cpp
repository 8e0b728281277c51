#include "console/model/fields.h"

#include <algorithm>
#include <utility>

namespace zek {

const Field* findField(const Fields& fields, int id) {
    const auto found = std::ranges::find(fields, id, &Field::id);
    return found != fields.end() ? &*found : nullptr;
}

Field* findField(Fields& fields, int id) {
    return const_cast<Field*>(findField(std::as_const(fields), id));
}

std::optional<std::string> textOf(const Fields& fields, int id) {
    const Field* field = findField(fields, id);
    if (field == nullptr || field->occurrences.empty()) return std::nullopt;
    return field->occurrences.front();
}

Field makeField(int id, std::string text) {
    return Field{id, {std::move(text)}};
}

}  // namespace zek
