// Deflate compression of a stream: one pass, a window of 32 KB, the format's fixed codes.
//
// Made for sheets: markup that repeats itself within a few kilobytes. Memory does not grow with the
// length of the stream.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Deflate {
public:
    Deflate();

    // Takes the next bytes in; appends to `out` what is compressed so far.
    void add(std::string_view bytes, std::string& out);

    // Ends the stream: nothing may be added behind it.
    void finish(std::string& out);

private:
    struct Match {
        std::size_t length;
        std::size_t distance;
    };
    void compress(std::size_t end, std::string& out);
    void slide();
    void remember(std::size_t at);
    Match bestMatch(std::size_t at) const;
    void putBits(unsigned value, int count, std::string& out);
    void putCode(unsigned code, int count, std::string& out);
    void putSymbol(unsigned symbol, std::string& out);
    void putMatch(const Match& match, std::string& out);

    std::string m_window;    // what was compressed last, then what is still to be
    std::size_t m_next = 0;  // where in the window the latter starts

    // Positions in the window, plus 1, or 0 for none: the last one with a hash of four bytes, and
    // for each position the one before it with the same hash.
    std::vector<std::uint32_t> m_last;
    std::vector<std::uint32_t> m_before;

    std::uint64_t m_bits = 3;  // not yet whole bytes; first: the last block, of fixed codes
    int m_bitCount = 3;
};
