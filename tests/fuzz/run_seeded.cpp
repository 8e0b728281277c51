// Runs a fuzz target on the files of its corpus and on random inputs, without a fuzzer:
//
//   fuzz_messages CORPUS [COUNT [FIRST_SEED]]
//   fuzz_messages FILE
//
// Every random input follows from its seed. A failing run names the file or the seed; FILE, or
// COUNT 1 with the seed, is that run again. (For tests/fuzz/campaign, clang's libFuzzer takes the
// place of this file.)
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kMaxInput = 600;

unsigned long g_seed = 0;
std::string g_file;  // empty: the input of a seed
bool g_running = true;

void nameInput() {
    if (!g_running)
        std::fprintf(stderr, "some input leaks\n");
    else if (!g_file.empty())
        std::fprintf(stderr, "failed with %s\n", g_file.c_str());
    else
        std::fprintf(stderr, "failed with seed %lu\n", g_seed);
}

void runFile(const std::filesystem::path& path) {
    g_file = path.string();
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    g_file.clear();
}

int runCorpus(const std::filesystem::path& folder) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        runFile(entry.path());
        ++files;
    }
    return files;
}

std::vector<std::uint8_t> inputOf(unsigned long seed) {
    std::mt19937 random(static_cast<std::mt19937::result_type>(seed));
    std::vector<std::uint8_t> bytes(random() % kMaxInput);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGABRT, [](int) { nameInput(); });
#if defined(__SANITIZE_ADDRESS__)
    __sanitizer_set_death_callback(nameInput);
#endif
    if (argc < 2) return 2;
    if (!std::filesystem::is_directory(argv[1])) return runFile(argv[1]), 0;
    const unsigned long count = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1000;
    const unsigned long first = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 1;
    const int files = runCorpus(argv[1]);
    for (g_seed = first; g_seed < first + count; ++g_seed) {
        const std::vector<std::uint8_t> input = inputOf(g_seed);
        LLVMFuzzerTestOneInput(input.data(), input.size());
    }
    g_running = false;
    std::printf("%d files, %lu inputs from seed %lu\n", files, count, first);
    return files > 0 ? 0 : 1;
}
