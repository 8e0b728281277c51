// The ids of the message fields that the workbench reads and writes.
//
// Names that the log texts use (MNM_USER and so on) are the field's own; for the other ids, which
// the messages know by number only, the name says what the field holds.
#pragma once

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
