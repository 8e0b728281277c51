#include "listctrl/model/table/text_table.h"

#include <cstring>

#include "text/characters.h"
#include "text/text_bytes.h"

namespace mc {

TextTable::TextTable() : m_texts(1024), m_lowered(1024), m_begins{kMargin, kMargin}, m_buckets(64) {
    m_begins.reserve(64);
}

TextTable::Code TextTable::add(std::string_view text) {
    if (text.empty()) return 0;
    if (size() > m_buckets.size() / 2) grow();
    const bool isShort = text.size() <= 8;
    const Bucket sought{isShort ? lastBytes(text) : hashOf(text),
                        static_cast<std::uint32_t>(text.size()), 0};
    const std::size_t mask = m_buckets.size() - 1;
    for (std::size_t at = homeOf(sought);; at = (at + 1) & mask) {
        Bucket& bucket = m_buckets[at];
        if (bucket.code == 0) {
            bucket = {sought.bytes, sought.size, append(text)};
        } else if (bucket.bytes != sought.bytes || bucket.size != sought.size ||
                   (!isShort && !same(this->text(bucket.code), text))) {
            continue;
        }
        return bucket.code;
    }
}

std::size_t TextTable::homeOf(const Bucket& bucket) const {
    const std::uint64_t mixed = (bucket.bytes + bucket.size) * 0x9E3779B97F4A7C15;
    return static_cast<std::size_t>(__builtin_bswap64(mixed)) & (m_buckets.size() - 1);
}

TextTable::Code TextTable::append(std::string_view text) {
    if (text.empty()) return 0;
    const std::size_t at = m_begins.back(), end = at + text.size() + kMargin;
    if (end > m_texts.size()) {
        m_texts.resize(2 * end);
        m_lowered.resize(2 * end);
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
    const std::size_t mask = m_buckets.size() - 1;
    for (const Bucket& bucket : before) {
        if (bucket.code == 0) continue;
        std::size_t at = homeOf(bucket);
        while (m_buckets[at].code != 0) at = (at + 1) & mask;
        m_buckets[at] = bucket;
    }
}

}  // namespace mc
