// Stored sizes of dialog bars: what is read is two lengths of a pixel at least, and the same again
// when it was stored; a text that means no size leaves the bar its own.
#include <cctype>
#include <charconv>

#include "settings/model/settings_store.h"
#include "tests/fuzz/input.h"

using namespace mc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto read = readBarSize(text);
    if (read) {
        require(read->width >= 1 && read->height >= 1, "a size has pixels", text);
        require(readBarSize(barSizeText(*read)) == read, "a stored size reads as it was", text);
    }
    // Any two numbers that a bar may have are stored so that they come back.
    Input input(data, size);
    BarSize any{1, 1};
    for (int* side : {&any.width, &any.height})
        for (std::size_t i = input.below(4); i > 0; --i)
            *side = *side % 8'000'000 * 256 + static_cast<int>(input.below(256));
    if (any.width >= 1 && any.height >= 1)
        require(readBarSize(barSizeText(any)) == any, "every size comes back", barSizeText(any));
    return 0;
}
