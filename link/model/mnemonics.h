// The ids of the message fields that the workbench reads and writes.
//
// Names that the log texts use (MNM_USER and so on) are the field's own; for the other ids, which
// the messages know by number only, the name says what the field holds.
#pragma once

namespace mc {

inline constexpr int MNM_REQUEST_NAME = 0;            // written in every request
inline constexpr int MNM_STATUS = 10303;              // decision: "accepted" or "rejected"
inline constexpr int MNM_USER = 31003;                // user id
inline constexpr int MNM_ERROR = 32766;               // error of an answer; in a reject, the reason
inline constexpr int MNM_ANSWERED_REQUEST = 32767;    // the request that an answer belongs to
inline constexpr int MNM_AUTHORIZATION_KEY = 51803;   // key of the pending change
inline constexpr int MNM_ACCOUNT_ID = 54001;          // client account id
inline constexpr int MNM_TYPE = 54036;                // user or client type ("INVESTOR_CLIENT")
inline constexpr int MNM_PUBLICATION_STATUS = 54211;  // "auth pending", "accepted", "rejected"
inline constexpr int MNM_REQUESTING_USER = 54247;  // publications: maker; detail requests: checker
inline constexpr int MNM_SOURCE_USER_ID = 54294;   // the checker who decides
inline constexpr int MNM_FUNCTIONALITY = 63713;    // functionality code of the change
inline constexpr int MNM_GROUPWISE_VALIDATION = 64037;  // a yes/no limit setting
inline constexpr int MNM_ACCOUNT_GROUP = 64052;
inline constexpr int MNM_BRANCH = 64053;
inline constexpr int MNM_BROKER = 64056;

// Fields of the details that more is asked about than their text.
inline constexpr int MNM_PASSWORD = 30004;
inline constexpr int MNM_TRANSACTION_PASSWORD = 63211;
inline constexpr int MNM_CLIENT_OVERVIEW = 63225;
inline constexpr int MNM_USER_IP = 63215;
inline constexpr int MNM_ARN = 64765;
inline constexpr int MNM_ACCESS_TYPE = 63212;
inline constexpr int MNM_ACCESS_TYPE_OTHER = 63220;
inline constexpr int MNM_EXCHANGE = 63001;  // of a user: segment codes
inline constexpr int MNM_EXCHANGE_EXPIRY = 64018;
inline constexpr int MNM_EXCHANGE_STATUS = 63076;
inline constexpr int MNM_EXCHANGE_USER_ID = 64013;
inline constexpr int MNM_EXCHANGE_USER_INFO = 64027;
inline constexpr int MNM_ROUTE_TO_RMS = 64025;
inline constexpr int MNM_PRODUCTS = 64020;
inline constexpr int MNM_PRODUCT_TYPES = 64030;  // has the caption of a user's products
inline constexpr int MNM_ATTRIBUTES = 44201;
inline constexpr int MNM_ACTIONS = 64815;
inline constexpr int MNM_ORDER_TYPES = 10109;
inline constexpr int MNM_CLIENT_STATUS = 54003;
inline constexpr int MNM_CLIENT_CONTEXT = 12014;
inline constexpr int MNM_SOR_ENABLED = 64807;
inline constexpr int MNM_PAYMENT_MODE = 64836;
inline constexpr int MNM_BRANCH_NAME_2 = 64957;  // of the client's second bank account
inline constexpr int MNM_ACCOUNT_NUMBER_2 = 64958;
inline constexpr int MNM_SEGMENTS = 64021;      // of a client: segment codes in one text
inline constexpr int MNM_ADHOC_COUNTS = 64174;  // "OK": the ad hoc margins count
inline constexpr int MNM_CATEGORY = 13034;
inline constexpr int MNM_ORDER_QUANTITY_LIMIT = 41236;
inline constexpr int MNM_BUY_SECURITY_LIMIT = 64211;
inline constexpr int MNM_SELL_SECURITY_LIMIT = 64210;
inline constexpr int MNM_LIMIT_REMARKS = 64312;

}  // namespace mc
