// What a change of limits is about.
#pragma once

#include <string>

#include "link/model/message.h"

namespace mc {

// "Broker - " and the id, or the same of the branch, account group, dealer or client: the first of
// these that the message carries. Empty when it carries none.
std::string limitsEntityName(const FieldReader& message);

}  // namespace mc
