// The kinds of change that a checker decides, by their functionality code.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace mc {

enum class FunctionalityGroup { user, client, limits };

// Which details the server can be asked for; deletions have none.
enum class DetailKind { none, user, account, limits };

struct Functionality {
    std::string_view code;
    std::string_view displayName;
    FunctionalityGroup group;
    DetailKind details;
    int entityField;  // the field that names the entity in a decision; 0: a decision names none
};

// All kinds there are.
inline constexpr std::size_t kFunctionalityCount = 7;
std::span<const Functionality, kFunctionalityCount> functionalities();

// The kind of `code` (exact text), or null for a code that the workbench does not know.
const Functionality* findFunctionality(std::string_view code);

// The type of an investor's user and client, which are accepted together.
inline constexpr std::string_view kInvestorClient = "INVESTOR_CLIENT";

inline constexpr std::string_view kAddUser = "339";
inline constexpr std::string_view kModifyUser = "340";
inline constexpr std::string_view kAddClient = "353";
inline constexpr std::string_view kModifyClient = "354";
inline constexpr std::string_view kRmsLimits = "360";
inline constexpr std::string_view kDeleteUser = "365";
inline constexpr std::string_view kDeleteClient = "366";

}  // namespace mc
