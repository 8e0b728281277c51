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

}  // namespace
