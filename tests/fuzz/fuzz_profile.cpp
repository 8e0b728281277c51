// Column profiles from a file that anyone can edit: what was read once must be stored and read
// again without a change, and a list must stay usable.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "listctrl/model/columns/column_model.h"
#include "settings/model/settings_store.h"
#include "tests/fuzz/input.h"

using namespace mc;

namespace {

constexpr sVoskColInfo kColumns[] = {
    {"Name", 75, 0, ColumnType::text},
    {"Key", 60, 1, ColumnType::longInteger},
    {"Limit", 90, 1, ColumnType::number},
};

void checkModel(const ColumnModel& model) {
    require(!model.shown().empty(), "a list has a column");
    for (const ColumnId id : model.shown())
        require(model.has(id) && model.width(id) >= 1, "a visible column has a width");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ColumnModel model;
    model.install(kColumns);
    model.apply(readProfile({reinterpret_cast<const char*>(data), size}));
    checkModel(model);
    const std::string stored = profileText(model.profile());
    if (stored.size() < kMaxProfile) {
        ColumnModel again;
        again.install(kColumns);
        again.apply(readProfile(stored));
        require(again.profile() == model.profile(), "a stored profile reads as it was", stored);
    }
    while (model.size() > model.dataSize()) {
        require(model.remove(toColumnId(model.dataSize())), "a user-defined column can be deleted");
        checkModel(model);
    }
    return 0;
}
