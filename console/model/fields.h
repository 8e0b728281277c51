// The fields of a message as plain values, and the ids that the authorization server knows.
//
// The server is a party of its own: it shares the messaging library with the plug-in and nothing
// else, so it keeps its own table of ids. Inside the server everything is `Fields`; messages of the
// library exist only at its edge (owned_message.h).
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zek {

// One value of a field; nullopt is a value that its reader cannot read.
using Occurrence = std::optional<std::string>;

struct Field {
    int id = 0;
    std::vector<Occurrence> occurrences;

    bool operator==(const Field&) const = default;
};

// In order of appending; an id is there once.
using Fields = std::vector<Field>;

// The field with the id, or null.
const Field* findField(const Fields& fields, int id);
Field* findField(Fields& fields, int id);

// The first occurrence of a field; nullopt when the field is absent or cannot be read.
std::optional<std::string> textOf(const Fields& fields, int id);

// A field with one value.
Field makeField(int id, std::string text);

namespace field {
inline constexpr int kRequest = 0;
inline constexpr int kDecision = 10303;  // "accepted" or "rejected", in a decision
inline constexpr int kUser = 31003;
inline constexpr int kError = 32766;  // in an answer; in a decision it is the reason for a reject
inline constexpr int kAnswerTo = 32767;
inline constexpr int kKey = 51803;
inline constexpr int kClient = 54001;
inline constexpr int kType = 54036;
inline constexpr int kStatus = 54211;  // "auth pending", "accepted" or "rejected", when published
inline constexpr int kMaker = 54247;   // in a publication the maker, in a request who asks
inline constexpr int kSourceUser = 54294;
inline constexpr int kCode = 63713;
inline constexpr int kGroup = 64052;
inline constexpr int kBranch = 64053;
inline constexpr int kBroker = 64056;
}  // namespace field

}  // namespace zek
