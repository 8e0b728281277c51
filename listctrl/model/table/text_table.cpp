#include "listctrl/model/table/text_table.h"

#include <algorithm>

#include "text/filter_pattern.h"

namespace mc {
namespace {

std::uint64_t mix(std::uint64_t hash, std::uint64_t bytes) {
    hash = (hash ^ bytes) * 0x9E3779B97F4A7C15;
    return hash ^ hash >> 32;
}

// Of a text that is not empty; half as long as the library's takes, for texts as short as cells.
// The last bytes are read as far forward as a number reaches, some of them twice.
std::uint32_t hashOf(std::string_view text) {
    const std::size_t size = text.size();
    const char* const end = text.data() + size;
    std::uint64_t hash = size;
    for (const char* at = text.data(); end - at > 8; at += 8) hash = mix(hash, loadBytes(at));
    if (size >= 8)
        hash = mix(hash, loadBytes(end - 8));
    else if (size >= 4)
        hash = mix(hash, loadBytes<std::uint32_t>(text.data()) |
                             std::uint64_t{loadBytes<std::uint32_t>(end - 4)} << 32);
    else
        hash = mix(hash, static_cast<std::uint64_t>(text[0]) << 16 ^
                             static_cast<std::uint64_t>(text[size / 2]) << 8 ^
                             static_cast<std::uint64_t>(text[size - 1]));
    return static_cast<std::uint32_t>(mix(hash, 0) >> 32);
}

}  // namespace

TextTable::TextTable()
    : m_texts(2 * kMargin), m_lowered(2 * kMargin), m_begins{kMargin, kMargin}, m_buckets(64) {
    m_texts.reserve(1024);
    m_lowered.reserve(1024);
    m_begins.reserve(64);
}

TextTable::Code TextTable::add(std::string_view text) {
    if (text.empty()) return 0;
    if (size() > m_buckets.size() / 2) grow();
    const std::uint32_t hash = hashOf(text);
    const std::size_t mask = m_buckets.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Bucket& bucket = m_buckets[at];
        if (bucket.code == 0) {
            const auto code = static_cast<Code>(size());
            append(text);
            bucket = {hash, code};
        } else if (bucket.hash != hash || this->text(bucket.code) != text) {
            continue;
        }
        return bucket.code;
    }
}

void TextTable::append(std::string_view text) {
    const std::size_t at = m_begins.back();
    m_texts.resize(at + text.size() + kMargin);
    m_lowered.resize(m_texts.size());
    std::memcpy(m_texts.data() + at, text.data(), text.size());
    for (std::size_t i = at; i < at + text.size(); i += 8) {
        const std::uint64_t bytes = lowerEight(loadBytes(m_texts.data() + i));
        std::memcpy(m_lowered.data() + i, &bytes, sizeof bytes);
    }
    m_begins.push_back(at + text.size());
}

void TextTable::grow() {
    std::vector<Bucket> before(m_buckets.size() * 2);
    before.swap(m_buckets);
    const std::size_t mask = m_buckets.size() - 1;
    for (const Bucket& bucket : before) {
        if (bucket.code == 0) continue;
        std::size_t at = bucket.hash & mask;
        while (m_buckets[at].code != 0) at = (at + 1) & mask;
        m_buckets[at] = bucket;
    }
}

}  // namespace mc
