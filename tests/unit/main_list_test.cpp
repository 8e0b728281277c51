#include "workbench/model/records/main_list.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

const sMakeCheckStruct kRecord{"1001", "MAKER01", "DLR101", "spare", "339",
                               "ZEKB", "MUM01",   "LINK1",  "DEALER"};

TEST(MainList, ShowsARecordByColumn) {
    const struct {
        int column;
        const char* caption;  // null: there is no such column
        const char* text;
    } cases[] = {
        {0, "Entity Name", "DLR101"},
        {1, "Auth Type", "ADD USER"},
        {2, "Key", "1001"},
        {3, "Maker", "MAKER01"},
        {4, "Branch", "MUM01"},
        {5, "Broker", "ZEKB"},
        {6, nullptr, "spare"},
        {7, nullptr, ""},
        {8, nullptr, ""},
        {1000000, nullptr, ""},
        {-1, nullptr, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.column);
        EXPECT_EQ(mainCellText(kRecord, ColumnId{each.column}), each.text);
        if (each.caption == nullptr) continue;
        EXPECT_STREQ(kMainColumns.at(static_cast<std::size_t>(each.column)).name, each.caption);
    }
}

TEST(MainList, NamesTheKindOfChange) {
    const struct {
        const char *code, *text;
    } cases[] = {{"339", "ADD USER"},
                 {"340", "MODIFY USER"},
                 {"353", "ADD CLIENT"},
                 {"354", "MODIFY CLIENT"},
                 {"360", "RMS Limits"},
                 {"365", "DELETE USER"},
                 {"366", "DELETE Account"},
                 {"341", ""},
                 {"", ""},
                 {"339 ", ""},
                 {"0339", ""}};
    for (const auto& each : cases) {
        sMakeCheckStruct record;
        record.functionalityCode = each.code;
        EXPECT_EQ(mainCellText(record, ColumnId{1}), each.text) << each.code;
    }
}

TEST(MainList, CutsACellToItsBuffer) {
    sMakeCheckStruct record;
    for (const std::size_t length : {254u, 255u, 256u, 100000u}) {
        record.entityName = std::string(length - 1, 'a') + "z";
        EXPECT_EQ(mainCellText(record, ColumnId{0}), record.entityName.substr(0, 255));
    }
}

}  // namespace
