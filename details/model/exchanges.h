// The three ways in which exchange segments are named: segment code ("nse_cm"), short name ("NSE")
// and exchange id (64700). Texts are compared exactly, case and blanks included.
#pragma once

#include <string_view>

namespace mc {

inline constexpr int kNoExchange = -1;

// What the headings of exchange groups begin with.
inline constexpr std::string_view kExchangeHeading = "Exchange:";

// The short name of a segment code; empty for an unknown one.
std::string_view SegmentDisplayName(std::string_view code);

// The exchange id of a short name or a segment code; kNoExchange for one that has none.
int ExchangeIdFromName(std::string_view name);

// The short name of an exchange id; empty for an unknown one.
std::string_view ExchangeNameFromId(int id);

// The fields that carry a client's product code of each exchange, in the order of their rows. 64704
// occurs twice, for MCX and for MCXSX, which share it: its row is built twice.
inline constexpr int kExchangeIds[] = {64700, 64703, 64701, 64705, 64702, 64704, 64707,
                                       64706, 64704, 64709, 64725, 64727, 64728, 64726,
                                       64708, 64729, 64730, 64731, 64741, 61625, 61626};

}  // namespace mc
