// Texts in one block of memory, made to be searched all in a row; each different one once, unless
// they were appended.
//
// A text is known by its code, the number of texts before it; the empty text is code 0. Beside the
// texts lies a copy in lower case at the same offsets, for matching without regard to case, as far
// as it was asked for. Texts are never taken out.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "text/text_bytes.h"

namespace mc {

class TextTable {
public:
    using Code = std::uint32_t;

    // Every text can be read this many bytes beyond either end, into its neighbours.
    static constexpr std::size_t kMargin = 16;

    TextTable();

    // The text's code; a text that is new gets the next.
    Code add(std::string_view text) {
        if (text.empty()) return 0;
        Bucket& bucket = bucketOf(text);
        return bucket.code != 0 ? bucket.code : insert(text, bucket);
    }
    // The next code, whether the text is new or not, without a look-up; the empty text's is 0.
    // add() does not find it before unite() was called for it.
    Code append(std::string_view text);
    // From now on add() finds every text. Returns by code the first text that is equal. `did` is
    // called after each; when it throws, nothing has changed for anybody who begins again.
    template <class Did>
    std::vector<Code> unite(Did did) {
        constexpr std::size_t kAhead = 16;
        std::vector<Code> firsts(size(), 0);
        if (size() > m_buckets.size() / 2) grow();
        for (Code code = 1; code < size(); ++code, did()) {
            if (code + kAhead < size()) prefetchBucket(static_cast<Code>(code + kAhead));
            Bucket& bucket = bucketOf(text(code));
            if (bucket.code == 0) fill(bucket, code);
            firsts[code] = bucket.code;
        }
        return firsts;
    }

    // Makes room for so many texts, as long as those that are there on average.
    void reserve(std::size_t texts);

    std::size_t size() const { return m_begins.size() - 1; }
    std::size_t length(Code code) const { return end(code) - begin(code); }
    std::string_view text(Code code) const { return {m_texts.data() + begin(code), length(code)}; }

    // The block of all texts in lower case, and where a text lies in it: the end of one is the
    // beginning of the next. It has the texts that were there at the last lower().
    void lower();
    const char* lowered() const { return m_lowered.data(); }
    std::string_view lowered(Code code) const {
        return {m_lowered.data() + begin(code), length(code)};
    }
    std::size_t begin(Code code) const { return m_begins[code]; }
    std::size_t end(Code code) const { return m_begins[code + std::size_t{1}]; }

private:
    // A text of up to eight bytes is known by these and its size, a longer one by its hash first.
    static constexpr std::size_t kShort = 8;
    struct Bucket {
        std::uint64_t bytes = 0;
        std::uint32_t size = 0;
        Code code = 0;  // 0: the bucket is empty, as the empty text needs none
    };

    // The product's last byte depends on all others, and comes first.
    std::size_t homeOf(std::uint64_t bytes, std::size_t size) const {
        const std::uint64_t mixed = (bytes + size) * 0x9E3779B97F4A7C15;
        return static_cast<std::size_t>(__builtin_bswap64(mixed)) & (m_buckets.size() - 1);
    }

    // What a bucket knows of a text.
    static std::uint64_t bytesOf(std::string_view text) {
        return text.size() <= kShort ? lastBytes(text) : hashOf(text);
    }
    void prefetchBucket(Code code) const {
        __builtin_prefetch(m_buckets.data() + homeOf(bytesOf(text(code)), length(code)));
    }

    // The bucket that has the text, or the empty one at which the search for it ends.
    Bucket& bucketOf(std::string_view text) {
        return text.size() <= kShort ? bucketOfShort(text) : bucketOfLong(text);
    }
    Bucket& bucketOfShort(std::string_view text) {
        const std::uint64_t bytes = lastBytes(text);
        Bucket* const buckets = m_buckets.data();
        std::size_t at = homeOf(bytes, text.size());
        while ((buckets[at].bytes != bytes || buckets[at].size != text.size()) &&
               buckets[at].code != 0)
            at = (at + 1) & (m_buckets.size() - 1);
        return buckets[at];
    }
    Bucket& bucketOfLong(std::string_view text);
    void fill(Bucket& bucket, Code code) const {
        bucket = {bytesOf(text(code)), static_cast<std::uint32_t>(length(code)), code};
    }
    Code insert(std::string_view text, Bucket& end);
    void makeRoom(std::size_t bytes);
    void grow();

    std::vector<char> m_texts;          // margin, texts one behind the other, room for more
    std::vector<char> m_lowered;        // the same in lower case, as far as it was made
    std::size_t m_lowerEnd = 0;         // of that
    std::vector<std::size_t> m_begins;  // by code, and the end of the last text
    std::vector<Bucket> m_buckets;      // a power of two of them, probed linearly
};

}  // namespace mc
