// The authorization server's state as a text that can be compared.
//
//   1001 accepted by RISKADM1
//   1002 rejected by RISKADM2: Open positions
//   1003 pending 64031=1500.00 64035=9000000.00
//
// One line for each change that was ever asked for: the decided ones in the order in which they
// were decided, then the pending ones as they came, with their new values by field id. A value that
// cannot be read is "?".
#pragma once

#include <string>

#include "console/model/authorization_server.h"

namespace zek {

std::string stateOf(const AuthorizationServer& server);

}  // namespace zek
