#include "details/model/exchanges.h"

#include <gtest/gtest.h>

#include "details/model/captions.h"

using namespace mc;

namespace {

TEST(Exchanges, ConvertBetweenTheirThreeNames) {
    const struct {
        std::string_view name, display;
        int id;
    } rows[] = {
        {"nse_cm", "NSE", 64700},   {"NSE", "", 64700},     {" NSE", "", -1},
        {"mcx_sx", "MCXSX", 64704}, {"MCX", "", 64704},     {"nse_slb", "SLBM", 64731},
        {"binx_fo", "", 64741},     {"nse_mf", "MFSS", -1}, {"", "", -1},
    };
    for (const auto& [name, display, id] : rows) {
        EXPECT_EQ(SegmentDisplayName(name), display) << name;
        EXPECT_EQ(ExchangeIdFromName(name), id) << name;
    }
}

TEST(Exchanges, AnIdKeepsItselfOnTheWayThroughItsName) {
    const std::pair<int, std::string_view> rows[] = {
        {64704, "MCX"}, {64731, "nse_slb"}, {64741, "BINX"}, {61625, "BCO"},
        {64710, ""},    {kNoExchange, ""},  {0, ""},
    };
    for (const auto& [id, name] : rows) EXPECT_EQ(ExchangeNameFromId(id), name) << id;
    for (const int id : kExchangeIds) EXPECT_EQ(ExchangeIdFromName(ExchangeNameFromId(id)), id);
    EXPECT_EQ(std::size(kExchangeIds), 21u);
}

}  // namespace
