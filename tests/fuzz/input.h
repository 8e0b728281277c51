// What fuzz targets share: their input, byte by byte, and the check that ends a run.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

// Ends the process, which the fuzzer reports with the input.
inline void require(bool holds, std::string_view what, std::string_view about = {}) {
    if (holds) return;
    std::fprintf(stderr, "violated: %.*s <%.*s>\n", static_cast<int>(what.size()), what.data(),
                 static_cast<int>(about.size()), about.data());
    std::abort();
}

// The input as a program: each byte chooses something, and behind its end all choices are 0.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : m_data(data), m_left(size) {}

    bool empty() const { return m_left == 0; }

    // Below `count`, which is 256 at most.
    std::size_t below(std::size_t count) { return byte() % count; }

    template <class Each, std::size_t count>
    const Each& oneOf(const std::array<Each, count>& of) {
        return of[below(count)];
    }

    std::string bytes(std::size_t count) {
        std::string text;
        while (count-- > 0 && !empty()) text.push_back(static_cast<char>(byte()));
        return text;
    }

    // Up to `separator`, which is left out.
    std::string until(char separator) {
        std::string text;
        while (!empty()) {
            const char next = static_cast<char>(byte());
            if (next == separator) break;
            text.push_back(next);
        }
        return text;
    }

private:
    std::uint8_t byte() {
        if (m_left == 0) return 0;
        --m_left;
        return *m_data++;
    }

    const std::uint8_t* m_data;
    std::size_t m_left;
};
