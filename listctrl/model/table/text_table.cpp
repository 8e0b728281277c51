#include "listctrl/model/table/text_table.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "text/characters.h"
#include "text/text_bytes.h"

namespace mc {

// Room for the few different values of a coded column: most texts are looked up among so many.
TextTable::TextTable() : m_texts(1024), m_begins{kMargin, kMargin}, m_buckets(1024) {
    m_begins.reserve(256);
}

TextTable::Code TextTable::append(std::string_view text) {
    if (text.empty()) return 0;
    const std::size_t at = m_begins.back(), end = at + text.size();
    if (end + kMargin > m_texts.size()) makeRoom(end + kMargin);
    copyText(text, m_texts.data() + at);
    m_begins.push_back(end);
    return static_cast<Code>(size() - 1);
}

TextTable::Bucket& TextTable::bucketOfLong(std::string_view text) {
    const std::uint64_t hash = hashOf(text);
    const std::size_t mask = m_buckets.size() - 1;
    for (std::size_t at = homeOf(hash, text.size());; at = (at + 1) & mask) {
        Bucket& bucket = m_buckets[at];
        if (bucket.code == 0) return bucket;
        if (bucket.bytes == hash && same(this->text(bucket.code), text)) return bucket;
    }
}

// `end` is the empty bucket at which the search for the text ended.
TextTable::Code TextTable::insert(std::string_view text, Bucket& end) {
    const bool full = size() > m_buckets.size() / 2;
    if (full) grow();
    const Code code = append(text);
    fill(full ? bucketOf(text) : end, code);
    return code;
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

void TextTable::grow() {
    std::vector<Bucket> before(std::bit_ceil(size() * 2 + 1));
    before.swap(m_buckets);
    const std::size_t mask = m_buckets.size() - 1;
    for (const Bucket& bucket : before) {
        if (bucket.code == 0) continue;
        std::size_t at = homeOf(bucket.bytes, bucket.size);
        while (m_buckets[at].code != 0) at = (at + 1) & mask;
        m_buckets[at] = bucket;
    }
}

}  // namespace mc
