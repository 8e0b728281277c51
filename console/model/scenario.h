// Scenarios: who exists, and the changes that makers ask for, as a text file.
//
//   # a comment is on a line of its own
//   user MAKER01                      a section: user ID, client ID or change KIND
//   broker = ZEKB                     its texts, by name
//   change modify-user
//   maker = MAKER02
//   user = DLR101
//   field 30001 = Asha Rao | A Rao    a field: id, then new | old value, or the members of a list
//
//   user       broker, branch, type
//   client     owner (the user it belongs to), broker, branch, group, type
//   change     add-user, modify-user, delete-user, add-client, modify-client, delete-client,
//              limits, or any code as a number; then type, maker, broker, branch, group, user,
//              client
//
// A value reaches from the '=' to the end of the line, without the blanks around it. In a field, a
// bar with blanks (or nothing) on both sides separates occurrences, so a bar inside a text stays
// what it is: "nse_cm|bse_fo | nse_cm" is a new and an old value.
//
//   \|  a bar that never separates     \s  a blank that is kept at an end of the text
//   \\  a backslash                    \n \r \t  these control characters
//   \?  alone: an occurrence that cannot be read
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "console/model/change.h"
#include "console/model/parsed.h"

namespace zek {

struct Scenario {
    std::vector<User> users;
    std::vector<Client> clients;
    std::vector<Change> changes;  // in the order in which makers submit them; without keys

    bool operator==(const Scenario&) const = default;
};

// `file` is the name for error messages.
Parsed<Scenario> parseScenario(std::string_view text, std::string_view file);

// The text that parses to the same scenario. Texts must not hold a zero byte.
std::string writeScenario(const Scenario& scenario);

}  // namespace zek
