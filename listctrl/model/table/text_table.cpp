#include "listctrl/model/table/text_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "text/characters.h"
#include "text/text_bytes.h"

namespace mc {

TextTable::TextTable() : m_texts(1024), m_begins{kMargin, kMargin}, m_buckets(64) {
    m_begins.reserve(64);
}

TextTable::Code TextTable::findLong(std::string_view text) const {
    const std::uint64_t hash = hashOf(text);
    const std::size_t mask = m_buckets.size() - 1;
    for (std::size_t at = homeOf(hash, text.size());; at = (at + 1) & mask) {
        const Bucket& bucket = m_buckets[at];
        if (bucket.code == 0) return 0;
        if (bucket.bytes == hash && same(this->text(bucket.code), text)) return bucket.code;
    }
}

TextTable::Code TextTable::insert(std::string_view text) {
    if (size() > m_buckets.size() / 2) grow();
    const Code code = append(text);
    emptyBucket(text).code = code;
    return code;
}

TextTable::Bucket& TextTable::emptyBucket(std::string_view text) {
    const std::uint64_t bytes = bytesOf(text);
    Bucket& bucket = emptyBucket(bytes, text.size());
    bucket = {bytes, static_cast<std::uint32_t>(text.size()), 0};
    return bucket;
}

TextTable::Bucket& TextTable::emptyBucket(std::uint64_t bytes, std::size_t size) {
    std::size_t at = homeOf(bytes, size);
    while (m_buckets[at].code != 0) at = (at + 1) & (m_buckets.size() - 1);
    return m_buckets[at];
}

void TextTable::reserve(std::size_t texts) {
    const std::size_t bytes = m_begins.back() / size() * texts;
    m_texts.reserve(bytes + bytes / 8);
    m_begins.reserve(texts + 2);
}

void TextTable::makeRoom(std::size_t bytes) {
    // The cache holds what is cleared until it is filled.
    constexpr std::size_t kMaxCleared = 1 << 15;
    m_texts.resize(bytes + std::min(bytes, kMaxCleared));
}

void TextTable::lower() {
    const std::size_t end = m_begins.back();
    if (m_lowered.size() < m_texts.size()) m_lowered.resize(m_texts.size());
    for (std::size_t at = m_lowerEnd; at < end; at += 8) {
        const std::uint64_t bytes = lowerEight(loadBytes(m_texts.data() + at));
        std::memcpy(m_lowered.data() + at, &bytes, sizeof bytes);
    }
    m_lowerEnd = end;
}

// A small table grows faster: it is the one that most texts are looked up in.
void TextTable::grow() {
    constexpr std::size_t kSmall = 1024;
    std::vector<Bucket> before(std::bit_ceil(size() * (size() < kSmall ? 4 : 2) + 1));
    before.swap(m_buckets);
    for (const Bucket& bucket : before)
        if (bucket.code != 0) emptyBucket(bucket.bytes, bucket.size) = bucket;
}

}  // namespace mc
