#include "listctrl/model/text_table.h"

#include <algorithm>
#include <functional>

#include "listctrl/model/filter_pattern.h"

TextTable::TextTable()
    : m_texts(2 * kMargin), m_lowered(2 * kMargin), m_begins{kMargin, kMargin}, m_buckets(64) {}

TextTable::Code TextTable::add(std::string_view text) {
    if (text.empty()) return 0;
    if (size() > m_buckets.size() / 2) grow();
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
    Bucket& bucket = m_buckets[bucketOf(text, hash)];
    if (bucket.code == 0) {
        bucket = {hash, static_cast<Code>(size())};
        append(text);
    }
    return bucket.code;
}

// The bucket of the text, or the empty one at which the search for it ends.
std::size_t TextTable::bucketOf(std::string_view text, std::uint32_t hash) const {
    const std::size_t mask = m_buckets.size() - 1;
    std::size_t at = hash & mask;
    while (m_buckets[at].code != 0 &&
           (m_buckets[at].hash != hash || this->text(m_buckets[at].code) != text))
        at = (at + 1) & mask;
    return at;
}

void TextTable::append(std::string_view text) {
    const std::size_t at = m_begins.back();
    m_texts.resize(at + text.size() + kMargin);
    m_lowered.resize(m_texts.size());
    std::copy(text.begin(), text.end(), m_texts.begin() + static_cast<std::ptrdiff_t>(at));
    std::transform(text.begin(), text.end(), m_lowered.begin() + static_cast<std::ptrdiff_t>(at),
                   lowerCase);
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
