// Runs a fuzz target on random inputs, where no coverage-guided fuzzer is at hand:
//
//   fuzz_messages [COUNT [FIRST_SEED]]
//
// Every input follows from its seed. A failing run names the seed; COUNT 1 with it is that run
// again. (With clang, -fsanitize=fuzzer takes the place of this file.)
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kMaxInput = 600;

unsigned long g_seed = 0;
bool g_running = true;

void nameSeed() {
    if (g_running)
        std::fprintf(stderr, "failed with seed %lu\n", g_seed);
    else
        std::fprintf(stderr, "some input leaks\n");
}

std::vector<std::uint8_t> inputOf(unsigned long seed) {
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    std::vector<std::uint8_t> bytes(random() % kMaxInput);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGABRT, [](int) { nameSeed(); });
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(nameSeed);
#endif
    const unsigned long count = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1000;
    const unsigned long first = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    for (g_seed = first; g_seed < first + count; ++g_seed) {
        const std::vector<std::uint8_t> input = inputOf(g_seed);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    g_running = false;
    std::printf("%lu inputs from seed %lu\n", count, first);
}
