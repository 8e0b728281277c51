#include "text/text_difference.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "text/unseen.h"

namespace mc {
namespace {

using Mask = std::vector<bool>;  // by character: whether it differs

std::vector<TextRun> runsOf(const Mask& differs) {
    std::vector<TextRun> runs;
    for (std::size_t i = 0; i < differs.size(); ++i) {
        if (!differs[i]) continue;
        if (!runs.empty() && runs.back().to == i)
            ++runs.back().to;
        else
            runs.push_back({i, i + 1});
    }
    return runs;
}

// ---- Look-alikes ----

// The one character that a look-alike at the front of the text is read as, and its length.
struct Read {
    char as;
    std::size_t size;
};

Read readFront(std::string_view text) {
    if (text.starts_with("rn")) return {'m', 2};
    if (text[0] == 'O') return {'0', 1};
    if (text[0] == 'l' || text[0] == 'I') return {'1', 1};
    return {text[0], 1};
}

// Marks what looks alike and is not equal; false when anything else differs.
bool markAlike(std::string_view value, std::string_view old, Mask& inValue, Mask& inOld) {
    std::size_t v = 0, o = 0;
    while (v < value.size() && o < old.size()) {
        const Read left = readFront(value.substr(v)), right = readFront(old.substr(o));
        if (left.as != right.as) return false;
        if (value.substr(v, left.size) != old.substr(o, right.size)) {
            std::fill_n(inValue.begin() + static_cast<std::ptrdiff_t>(v), left.size, true);
            std::fill_n(inOld.begin() + static_cast<std::ptrdiff_t>(o), right.size, true);
        }
        v += left.size;
        o += right.size;
    }
    return v == value.size() && o == old.size();
}

// ---- The shortest edit ----

// The lengths of the longest common subsequences of what follows each pair of positions.
class Commons {
public:
    Commons(std::string_view value, std::string_view old)
        : m_width(old.size() + 1), m_lengths((value.size() + 1) * m_width) {
        for (std::size_t v = value.size(); v-- > 0;)
            for (std::size_t o = old.size(); o-- > 0;)
                at(v, o) = value[v] == old[o] ? static_cast<std::uint16_t>(at(v + 1, o + 1) + 1)
                                              : std::max(at(v + 1, o), at(v, o + 1));
    }
    std::uint16_t& at(std::size_t v, std::size_t o) { return m_lengths[v * m_width + o]; }

private:
    std::size_t m_width;
    std::vector<std::uint16_t> m_lengths;
};

struct Side {
    std::string_view text;
    Mask differs;
    explicit Side(std::string_view whole) : text(whole), differs(whole.size()) {}
};

void markMiddles(Side& value, Side& old, std::size_t before, std::size_t behind) {
    const std::string_view v = value.text.substr(before, value.text.size() - before - behind);
    const std::string_view o = old.text.substr(before, old.text.size() - before - behind);
    std::size_t i = 0, j = 0;
    if (v.size() <= kMaxCompared && o.size() <= kMaxCompared) {
        Commons commons(v, o);
        while (i < v.size() && j < o.size()) {
            if (v[i] == o[j] && commons.at(i, j) == commons.at(i + 1, j + 1) + 1)
                ++i, ++j;
            else if (commons.at(i + 1, j) >= commons.at(i, j + 1))
                value.differs[before + i++] = true;
            else
                old.differs[before + j++] = true;
        }
    }
    while (i < v.size()) value.differs[before + i++] = true;
    while (j < o.size()) old.differs[before + j++] = true;
}

void markEdit(Side& value, Side& old) {
    const std::size_t shorter = std::min(value.text.size(), old.text.size());
    std::size_t before = 0, behind = 0;
    while (before < shorter && value.text[before] == old.text[before]) ++before;
    while (behind < shorter - before &&
           value.text[value.text.size() - 1 - behind] == old.text[old.text.size() - 1 - behind])
        ++behind;
    markMiddles(value, old, before, behind);
}

// A word of which more than half differs is marked whole: single letters that are equal by chance
// say nothing.
void wholeWords(Side& side) {
    for (std::size_t from = 0, to; from < side.text.size(); from = to + 1) {
        to = from;
        std::size_t count = 0;
        for (; to < side.text.size() && !isBlankLike(side.text[to]); ++to)
            count += side.differs[to] ? 1 : 0;
        if (count * 2 > to - from)
            std::fill(side.differs.begin() + static_cast<std::ptrdiff_t>(from),
                      side.differs.begin() + static_cast<std::ptrdiff_t>(to), true);
    }
}

bool differInBlanksOnly(std::string_view value, std::string_view old) {
    const auto packed = [](std::string text) {
        std::erase_if(text, isBlankLike);
        return text;
    };
    return packed(std::string(value)) == packed(std::string(old));
}

}  // namespace

TextDifference differenceOf(std::string_view value, std::string_view old) {
    if (value == old) return {};
    Side left(value), right(old);
    if (markAlike(value, old, left.differs, right.differs))
        return {DifferenceKind::alike, runsOf(left.differs), runsOf(right.differs)};
    left = Side(value);
    right = Side(old);
    markEdit(left, right);
    wholeWords(left);
    wholeWords(right);
    return {differInBlanksOnly(value, old) ? DifferenceKind::blanks : DifferenceKind::plain,
            runsOf(left.differs), runsOf(right.differs)};
}

}  // namespace mc
