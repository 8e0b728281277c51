// The pending-authorization record: one change made by a maker and waiting for a checker.
//
// The workbench keeps its texts in a table of its own (ChangeTable) and reads them out into this
// one, which the decisions and requests read.
#pragma once

#include <string>

namespace mc {

struct sMakeCheckStruct {
    std::string key;                // unique key of the change; never changes once indexed
    std::string makerId;            // user id of the maker
    std::string entityName;         // the user, the account, or for limits "Broker - " and the id
    std::string spare;              // never written; the list's seventh, hidden cell
    std::string functionalityCode;  // see functionality.h
    std::string brokerId;
    std::string branchId;
    std::string linkedUser;  // of an investor's client: the user to be authorized with it
    std::string type;        // user or client type
};

}  // namespace mc
