#include "listctrl/model/table/text_table.h"

#include <algorithm>
#include <cstring>

#include "text/characters.h"
#include "text/text_bytes.h"

namespace mc {

TextTable::TextTable() : m_texts(1024), m_lowered(1024), m_begins{kMargin, kMargin}, m_buckets(64) {
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
    const std::uint64_t bytes = text.size() <= kShort ? lastBytes(text) : hashOf(text);
    Bucket& bucket = emptyBucket(bytes, text.size());
    const Code code = append(text);
    bucket = {bytes, static_cast<std::uint32_t>(text.size()), code};
    return code;
}

TextTable::Bucket& TextTable::emptyBucket(std::uint64_t bytes, std::size_t size) {
    std::size_t at = homeOf(bytes, size);
    while (m_buckets[at].code != 0) at = (at + 1) & (m_buckets.size() - 1);
    return m_buckets[at];
}

void TextTable::reserve(std::size_t texts) {
    const std::size_t bytes = m_begins.back() / size() * texts;
    for (auto* block : {&m_texts, &m_lowered}) block->reserve(bytes + bytes / 8);
    m_begins.reserve(texts + 2);
}

TextTable::Code TextTable::append(std::string_view text) {
    if (text.empty()) return 0;
    const std::size_t at = m_begins.back(), end = at + text.size() + kMargin;
    if (end > m_lowered.size()) {  // which is made larger last, if at all
        // The cache holds what is cleared until it is filled.
        constexpr std::size_t kMaxCleared = 1 << 16;
        const std::size_t room = end + std::min(end, kMaxCleared);
        m_texts.resize(room);
        m_lowered.resize(room);
    }
    std::memcpy(m_texts.data() + at, text.data(), text.size());
    for (std::size_t i = at; i < at + text.size(); i += 8) {
        const std::uint64_t bytes = lowerEight(loadBytes(m_texts.data() + i));
        std::memcpy(m_lowered.data() + i, &bytes, sizeof bytes);
    }
    m_begins.push_back(at + text.size());
    return static_cast<Code>(size() - 1);
}

void TextTable::grow() {
    std::vector<Bucket> before(m_buckets.size() * 2);
    before.swap(m_buckets);
    for (const Bucket& bucket : before)
        if (bucket.code != 0) emptyBucket(bucket.bytes, bucket.size) = bucket;
}

}  // namespace mc
