#include "editors/model/typed_text.h"

#include <algorithm>

namespace mc {
namespace {

constexpr unsigned kSelectAll = 0x01;
constexpr unsigned kFirstPrintable = 0x20;
constexpr unsigned kDelete = 0x7F;
constexpr unsigned kLastByte = 0xFF;
constexpr std::string_view kCommands = "\b\x03\x16\x18\x1A";

}  // namespace

TypedCharacter typedCharacter(unsigned character, std::string_view allowed) {
    const char byte = static_cast<char>(character);
    if (character == kSelectAll) return TypedCharacter::selectAll;
    if (character < kFirstPrintable || character == kDelete)
        return character != 0 && kCommands.find(byte) != std::string_view::npos
                   ? TypedCharacter::command
                   : TypedCharacter::nothing;
    const bool taken =
        allowed.empty() || (character <= kLastByte && allAllowed({&byte, 1}, allowed));
    return taken ? TypedCharacter::text : TypedCharacter::refused;
}

bool allAllowed(std::string_view text, std::string_view allowed) {
    return allowed.empty() || text.find_first_not_of(allowed) == std::string_view::npos;
}

std::string_view firstLine(std::string_view text) {
    return text.substr(0, std::min(text.find_first_of("\r\n"), text.size()));
}

}  // namespace mc
