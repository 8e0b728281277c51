// Settings values from a file that anyone can edit: column profile, appearance, dialog-bar size.
// What was read once must be stored and read again without a change, and a list must stay usable.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "listctrl/model/columns/appearance.h"
#include "listctrl/model/columns/column_model.h"
#include "settings/model/settings_store.h"

using namespace mc;

namespace {

constexpr sVoskColInfo kColumns[] = {
    {"Name", 75, 0, ColumnType::text},
    {"Key", 60, 1, ColumnType::longInteger},
    {"Limit", 90, 1, ColumnType::number},
};

void require(bool holds) {
    if (!holds) std::abort();
}

void checkModel(const ColumnModel& model) {
    require(!model.shown().empty());
    for (const ColumnId id : model.shown()) require(model.has(id) && model.width(id) >= 1);
}

void checkProfile(std::string_view text) {
    ColumnModel model;
    model.install(kColumns);
    model.apply(readProfile(text));
    checkModel(model);
    const std::string stored = profileText(model.profile());
    if (stored.size() < kMaxProfile) {
        ColumnModel again;
        again.install(kColumns);
        again.apply(readProfile(stored));
        require(again.profile() == model.profile());
    }
    while (model.size() > model.dataSize()) {
        require(model.remove(toColumnId(model.dataSize())));
        checkModel(model);
    }
}

void checkAppearance(std::string_view text) {
    const auto appearance = readAppearance(text);
    if (appearance) require(readAppearance(appearanceText(*appearance)) == appearance);
}

void checkBarSize(std::string_view text) {
    const auto size = readBarSize(text);
    if (!size) return;
    require(size->width >= 1 && size->height >= 1);
    require(readBarSize(barSizeText(*size)) == size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    checkProfile(text);
    checkAppearance(text);
    checkBarSize(text);
    return 0;
}
