#include "framework/model/key_name.h"

namespace fw {
namespace {

constexpr struct {
    unsigned key;
    std::string_view name;
} kNames[] = {{0x09, "Tab"},     {0x0D, "Enter"},     {0x1B, "Esc"},      {0x20, "Space"},
              {0x21, "Page Up"}, {0x22, "Page Down"}, {0x23, "End"},      {0x24, "Home"},
              {0x25, "Left"},    {0x26, "Up"},        {0x27, "Right"},    {0x28, "Down"},
              {0x5D, "Menu"},    {0xBC, "comma"},     {0xBE, "full stop"}};

std::string plainName(unsigned key) {
    constexpr unsigned kF1 = 0x70, kF24 = 0x87;
    for (const auto& each : kNames)
        if (each.key == key) return std::string(each.name);
    if (key >= kF1 && key <= kF24) return "F" + std::to_string(key - kF1 + 1);
    return std::string(1, static_cast<char>(key));  // letters and digits are their own
}

}  // namespace

std::string keyName(unsigned virtualKey, bool ctrl, bool shift) {
    return std::string(ctrl ? "Ctrl+" : "") + (shift ? "Shift+" : "") + plainName(virtualKey);
}

}  // namespace fw
