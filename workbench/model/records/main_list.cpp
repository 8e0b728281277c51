#include "workbench/model/records/main_list.h"

#include "link/model/functionality.h"

namespace mc {
namespace {

std::string_view authType(const sMakeCheckStruct& record) {
    const Functionality* kind = findFunctionality(record.functionalityCode);
    return kind != nullptr ? kind->displayName : std::string_view();
}

using CellText = std::string_view (*)(const sMakeCheckStruct&);

template <std::string sMakeCheckStruct::*field>
std::string_view fieldText(const sMakeCheckStruct& record) {
    return record.*field;
}

// By column.
constexpr CellText kCells[] = {
    fieldText<&sMakeCheckStruct::entityName>, authType,
    fieldText<&sMakeCheckStruct::key>,        fieldText<&sMakeCheckStruct::makerId>,
    fieldText<&sMakeCheckStruct::branchId>,   fieldText<&sMakeCheckStruct::brokerId>,
    fieldText<&sMakeCheckStruct::spare>,
};

}  // namespace

std::string_view mainCellText(const sMakeCheckStruct& record, ColumnId column) {
    if (toIndex(column) >= std::size(kCells)) return {};
    return kCells[toIndex(column)](record).substr(0, kCellBytes - 1);
}

}  // namespace mc
