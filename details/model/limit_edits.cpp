#include "details/model/limit_edits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "link/model/mnemonics.h"
#include "text/number_text.h"
#include "text/read_number.h"

namespace mc {
namespace {

constexpr int kWholeLimits[] = {MNM_ORDER_QUANTITY_LIMIT, MNM_SELL_SECURITY_LIMIT,
                                MNM_BUY_SECURITY_LIMIT, MNM_LIMIT_REMARKS,
                                MNM_GROUPWISE_VALIDATION};

std::string withoutDecimals(double value) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 3> room;
    const auto end =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, 0);
    return {room.data(), end.ptr};
}

}  // namespace

std::optional<std::string> spellLimit(int mnemonic, const std::string& typed) {
    const double value = numberOf(typed);
    if (!std::isfinite(value)) return std::nullopt;
    if (std::find(std::begin(kWholeLimits), std::end(kWholeLimits), mnemonic) !=
        std::end(kWholeLimits))
        return withoutDecimals(value);
    std::string spelled;
    appendTwoDecimals(value, spelled);
    return spelled;
}

}  // namespace mc
