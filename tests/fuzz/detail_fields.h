// Fields of details and their texts, which fuzz targets draw from.
#pragma once

#include <array>

#include "link/model/mnemonics.h"

namespace mc {

constexpr auto listOf(auto... each) {
    return std::array{each...};
}

// Fields of details: lists, exchanges, gates and their neighbours, and a limit of each kind.
constexpr auto kDetailFields = listOf(
    MNM_ACCOUNT_ID, MNM_USER, MNM_ACCOUNT_GROUP, MNM_BROKER, MNM_PASSWORD, MNM_CLIENT_OVERVIEW,
    MNM_USER_IP, MNM_ACCESS_TYPE, MNM_EXCHANGE, MNM_EXCHANGE_EXPIRY, MNM_EXCHANGE_STATUS,
    MNM_EXCHANGE_USER_ID, MNM_ROUTE_TO_RMS, MNM_PRODUCTS, MNM_ATTRIBUTES, MNM_ORDER_TYPES,
    MNM_CLIENT_STATUS, MNM_CLIENT_CONTEXT, MNM_SOR_ENABLED, MNM_PAYMENT_MODE, MNM_BRANCH_NAME_2,
    MNM_SEGMENTS, MNM_ADHOC_COUNTS, MNM_CATEGORY, MNM_GROUPWISE_VALIDATION,
    MNM_ORDER_QUANTITY_LIMIT, MNM_LIMIT_REMARKS, 64031, 64158, 64704, 64832, 41336);
constexpr auto kDetailTexts =
    listOf("ML", "|ML|ML", "A|MLB|ML", "nse_cm|mcx_sx||any|", "Y", "OK", "-1", "0", "yes", "NEFT",
           "Online-Sqroff", "nse_fo", "1e9", "1e999", "nan", "-12345678.91", "007", "7", "E", "");

}  // namespace mc
