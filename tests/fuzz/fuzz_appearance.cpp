// Stored appearances: what was read is stored and read again without a change, and a row with any
// cell finds the first keyword in it.
#include <algorithm>
#include <cctype>

#include "listctrl/model/columns/appearance.h"
#include "tests/fuzz/input.h"

using namespace mc;

namespace {

std::string lowered(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 128) c = static_cast<char>(std::tolower(c));
    return text;
}

}  // namespace

// A cell, a line end, and the stored text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string cell = input.until('\n');
    const std::string text = input.bytes(size);
    const auto appearance = readAppearance(text);
    if (!appearance) return 0;
    require(std::max(appearance->background, appearance->text) <= 0xFFFFFF, "a colour", text);
    const std::string stored = appearanceText(*appearance);
    require(readAppearance(stored) == appearance, "a stored appearance reads as it was", text);
    const auto points = fontPoints(appearance->fontSize);
    require(!points || (*points >= 1 && *points <= 144), "a font that can be read", text);

    const Keyword* expected = nullptr;
    for (const Keyword& keyword : appearance->keywords)
        if (expected == nullptr && lowered(cell).find(keyword.text) != std::string::npos)
            expected = &keyword;
    require(keywordIn(*appearance, cell) == expected, "the first keyword of the cell", cell);
    return 0;
}
