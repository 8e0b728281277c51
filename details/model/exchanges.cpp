#include "details/model/exchanges.h"

#include <algorithm>
#include <iterator>

namespace mc {
namespace {

enum class Oddity {
    none,
    noDisplayName,  // the segment code has no display name, though the short name has an id
    namedByCode,    // the id converts back to the segment code instead of the short name
};

struct Exchange {
    std::string_view code, name;
    int id;
    Oddity oddity = Oddity::none;
};

constexpr Exchange kExchanges[] = {
    {"nse_cm", "NSE", 64700},
    {"bse_cm", "BSE", 64703},
    {"nse_fo", "NFO", 64701},
    {"bse_fo", "BFO", 64705},
    {"cde_fo", "CDS", 64706},
    {"mcx_fo", "MCX", 64704},
    {"mcx_sx", "MCXSX", 64704},  // shares MCX's id, which converts back to "MCX": the first wins
    {"icx_fo", "ICEX", 64707},
    {"ncx_fo", "NCDEX", 64702},
    {"lme_mx", "LMEMX", 64709},
    {"dgx_fo", "DGCX", 64725},
    {"ace_fo", "ACE", 64727},
    {"use_fo", "USE", 64728},
    {"rcme_fo", "RCME", 64726},
    {"nmc_fo", "NMCE", 64708},
    {"cme_mx", "CMEMX", 64729},
    {"sgx_fo", "SGX", 64730},
    {"nse_slb", "SLBM", 64731, Oddity::namedByCode},
    {"binx_fo", "BINX", 64741, Oddity::noDisplayName},
    {"bse_com", "BCO", 61625},
    {"nse_com", "NCO", 61626},
    {"nse_ipo", "NSE_IPO", kNoExchange},
    {"nse_mf", "MFSS", kNoExchange},
    {"cpw_fwd", "CPW", kNoExchange},
    {"any", "ANY", kNoExchange},
};

// The first exchange of which `holds` is true, or null.
template <class Holds>
const Exchange* find(Holds holds) {
    const auto* found = std::find_if(std::begin(kExchanges), std::end(kExchanges), holds);
    return found != std::end(kExchanges) ? found : nullptr;
}

}  // namespace

std::string_view SegmentDisplayName(std::string_view code) {
    const Exchange* found = find([&](const Exchange& each) { return each.code == code; });
    return found != nullptr && found->oddity != Oddity::noDisplayName ? found->name : "";
}

int ExchangeIdFromName(std::string_view name) {
    const Exchange* found =
        find([&](const Exchange& each) { return each.name == name || each.code == name; });
    return found != nullptr ? found->id : kNoExchange;
}

std::string_view ExchangeNameFromId(int id) {
    const Exchange* found =
        find([&](const Exchange& each) { return each.id == id && id != kNoExchange; });
    if (found == nullptr) return {};
    return found->oddity == Oddity::namedByCode ? found->code : found->name;
}

}  // namespace mc
