#include "console/excel/deflate.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr std::size_t kReach = 32768;        // farthest distance of a match
constexpr std::size_t kWindow = 4 * kReach;  // when it is full, its last kReach bytes are kept
constexpr std::size_t kShortest = 4;
constexpr std::size_t kMaxLength = 258;
constexpr int kHashBits = 15;
constexpr int kTries = 8;
constexpr unsigned kEndOfBlock = 256;
constexpr unsigned kFirstLength = 257;

// A length or distance is a code, the last one whose start is not above it, and extra bits.
struct Code {
    std::uint16_t start;
    std::uint8_t extraBits;
};
constexpr std::array<Code, 29> kLengths{
    {{3, 0},  {4, 0},  {5, 0},  {6, 0},   {7, 0},   {8, 0},   {9, 0},   {10, 0},  {11, 1}, {13, 1},
     {15, 1}, {17, 1}, {19, 2}, {23, 2},  {27, 2},  {31, 2},  {35, 3},  {43, 3},  {51, 3}, {59, 3},
     {67, 4}, {83, 4}, {99, 4}, {115, 4}, {131, 5}, {163, 5}, {195, 5}, {227, 5}, {258, 0}}};
constexpr std::array<Code, 30> kDistances{
    {{1, 0},     {2, 0},     {3, 0},     {4, 0},      {5, 1},      {7, 1},
     {9, 2},     {13, 2},    {17, 3},    {25, 3},     {33, 4},     {49, 4},
     {65, 5},    {97, 5},    {129, 6},   {193, 6},    {257, 7},    {385, 7},
     {513, 8},   {769, 8},   {1025, 9},  {1537, 9},   {2049, 10},  {3073, 10},
     {4097, 11}, {6145, 11}, {8193, 12}, {12289, 12}, {16385, 13}, {24577, 13}}};

template <std::size_t N>
unsigned codeOf(const std::array<Code, N>& codes, std::size_t value) {
    const auto above =
        std::upper_bound(codes.begin(), codes.end(), value,
                         [](std::size_t wanted, const Code& code) { return wanted < code.start; });
    return static_cast<unsigned>(above - codes.begin() - 1);
}

std::size_t hashOf(const char* fourBytes) {
    std::uint32_t word = 0;
    std::memcpy(&word, fourBytes, sizeof word);
    return (word * 2654435761u) >> (32 - kHashBits);
}

}  // namespace

Deflate::Deflate() : m_last(std::size_t{1} << kHashBits), m_before(kWindow) {
    m_window.reserve(kWindow);
}

void Deflate::add(std::string_view bytes, std::string& out) {
    while (!bytes.empty()) {
        const std::size_t part = std::min(bytes.size(), kWindow - m_window.size());
        m_window += bytes.substr(0, part);
        bytes.remove_prefix(part);
        if (m_window.size() < kWindow) return;
        compress(kWindow - kMaxLength, out);
        slide();
    }
}

void Deflate::finish(std::string& out) {
    compress(m_window.size(), out);
    putSymbol(kEndOfBlock, out);
    putBits(0, (8 - m_bitCount % 8) % 8, out);
}

// Compresses up to `end` or, where a match lies across it, up to 257 bytes farther.
void Deflate::compress(std::size_t end, std::string& out) {
    while (m_next < end) {
        const Match match = bestMatch(m_next);
        if (match.length < kShortest)
            putSymbol(static_cast<unsigned char>(m_window[m_next]), out);
        else
            putMatch(match, out);
        for (std::size_t i = std::max<std::size_t>(match.length, 1); i > 0; --i) remember(m_next++);
    }
}

void Deflate::slide() {
    const std::size_t gone = m_next - kReach;
    m_window.erase(0, gone);
    m_next = kReach;
    m_before.erase(m_before.begin(), m_before.begin() + static_cast<std::ptrdiff_t>(gone));
    m_before.resize(kWindow);
    const auto moved = [gone](std::uint32_t position) {
        return position > gone ? static_cast<std::uint32_t>(position - gone) : 0;
    };
    std::transform(m_last.begin(), m_last.end(), m_last.begin(), moved);
    std::transform(m_before.begin(), m_before.end(), m_before.begin(), moved);
}

void Deflate::remember(std::size_t at) {
    if (at + kShortest > m_window.size()) return;
    std::uint32_t& last = m_last[hashOf(&m_window[at])];
    m_before[at] = last;
    last = static_cast<std::uint32_t>(at + 1);
}

// The longest of the last few positions that may match; the nearest of equals. Length 0: none.
Deflate::Match Deflate::bestMatch(std::size_t at) const {
    Match best{0, 0};
    if (at + kShortest > m_window.size()) return best;
    const auto start = m_window.begin() + static_cast<std::ptrdiff_t>(at);
    const auto end =
        start + static_cast<std::ptrdiff_t>(std::min(kMaxLength, m_window.size() - at));
    std::size_t position = m_last[hashOf(&m_window[at])];
    for (int tries = kTries; tries > 0 && position != 0 && at - (position - 1) <= kReach; --tries) {
        const auto candidate = m_window.begin() + static_cast<std::ptrdiff_t>(position - 1);
        const auto length =
            static_cast<std::size_t>(std::mismatch(start, end, candidate).first - start);
        if (length > best.length) best = {length, at - (position - 1)};
        position = m_before[position - 1];
    }
    return best.length < kShortest ? Match{0, 0} : best;
}

// Values are written with their lowest bit first.
void Deflate::putBits(unsigned value, int count, std::string& out) {
    m_bits |= static_cast<std::uint64_t>(value) << m_bitCount;
    m_bitCount += count;
    for (; m_bitCount >= 8; m_bitCount -= 8) {
        out += static_cast<char>(m_bits & 0xFF);
        m_bits >>= 8;
    }
}

// Codes are written with their highest bit first.
void Deflate::putCode(unsigned code, int count, std::string& out) {
    unsigned mirrored = 0;
    for (int i = 0; i < count; ++i) mirrored |= ((code >> i) & 1) << (count - 1 - i);
    putBits(mirrored, count, out);
}

void Deflate::putSymbol(unsigned symbol, std::string& out) {
    if (symbol < 144) return putCode(0x30 + symbol, 8, out);
    if (symbol < 256) return putCode(0x190 + symbol - 144, 9, out);
    if (symbol < 280) return putCode(symbol - 256, 7, out);
    putCode(0xC0 + symbol - 280, 8, out);
}

void Deflate::putMatch(const Match& match, std::string& out) {
    const unsigned length = codeOf(kLengths, match.length);
    putSymbol(kFirstLength + length, out);
    putBits(static_cast<unsigned>(match.length - kLengths[length].start),
            kLengths[length].extraBits, out);
    const unsigned distance = codeOf(kDistances, match.distance);
    putCode(distance, 5, out);
    putBits(static_cast<unsigned>(match.distance - kDistances[distance].start),
            kDistances[distance].extraBits, out);
}
