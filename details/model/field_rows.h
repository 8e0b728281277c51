// What the builders of user and client details share: fields that become rows, as tables.
//
// Occurrence 0 of a changed field is its new value, occurrence 1 the old one; a list carries its
// members as occurrences 0, 1, 2 and so on. What cannot be read is "NA" as value and nothing as old
// value. Nothing is compared: the server decides which fields it sends, and each becomes a row.
#pragma once

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "details/model/detail_group.h"
#include "link/model/message.h"

namespace mc {

using DetailGroups = std::vector<DetailGroup>;

inline constexpr std::string_view kNotAvailable = "NA";
inline constexpr std::string_view kNothingModified = "No Parameters are Modified";

// A message claims how many occurrences a field has. Rows of a list end here, so that a false claim
// costs some megabytes and not the memory; lists have a handful of members.
inline constexpr int kMaxOccurrences = 100'000;

// Rows that all show the same texts end when these take so many bytes together: a long text in a
// message that claims many occurrences would take gigabytes.
inline constexpr std::size_t kMaxRepeatedBytes = std::size_t{16} << 20;

// How a field's text is shown: some texts as others, the rest as `rest` or, without one, as sent.
// Whole texts are compared, exactly.
class Decoding {
public:
    struct Word {
        std::string_view sent, shown;
    };

    constexpr Decoding(std::initializer_list<Word> words, std::optional<std::string_view> rest)
        : m_count(words.size()), m_rest(rest) {
        std::copy(words.begin(), words.end(), m_words.begin());
    }

    constexpr std::string_view operator()(std::string_view sent) const {
        for (std::size_t i = 0; i < m_count; ++i)
            if (m_words[i].sent == sent) return m_words[i].shown;
        return m_rest.value_or(sent);
    }

private:
    std::array<Word, 2> m_words{};
    std::size_t m_count;
    std::optional<std::string_view> m_rest;
};

inline constexpr Decoding kAsSent{{}, {}};

// A field that becomes a row when the answer carries it.
struct FieldRow {
    int mnemonic;
    const Decoding& value = kAsSent;  // how occurrence 0 is shown
    const Decoding& oldValue = kAsSent;
    std::string_view caption = {};  // instead of the caption table's
    int gate = 0;                   // the field whose presence makes the row, where it is another
    int unless = 0;                 // a field whose presence suppresses the row
    bool onlyWithoutOldValue = false;
    bool secret = false;  // its values are not shown, only that it is new
    bool counts = true;   // false: an answer without other fields has nothing to show
};

// Appends the rows of those fields that the answer carries.
void appendRows(DetailGroup& group, const FieldReader& answer, std::span<const FieldRow> fields);

// A member of a list, or a setting that the answer repeats: whether it changed is not known.
sMCListStruct makeRow(std::string_view caption, std::string_view value,
                      std::string_view oldValue = {});

// A row for the new value of a field, or for its old value: each has a row of its own.
sMCListStruct newValueRow(std::string_view caption, std::string_view value);
sMCListStruct oldValueRow(std::string_view caption, std::string_view oldValue);

// A group under a heading: empty, or with the rows of those fields that the answer carries.
DetailGroup makeGroup(std::string_view heading);
DetailGroup makeGroup(std::string_view heading, const FieldReader& answer,
                      std::span<const FieldRow> fields);

// How many occurrences of a field are walked: those it claims, kMaxOccurrences at most.
int occurrencesOf(const FieldReader& answer, int mnemonic);

// `count` times the same row, once at least and as far as kMaxRepeatedBytes goes.
std::vector<sMCListStruct> repeatedRows(int count, const sMCListStruct& row);

// The group of a field whose values are a list; no rows when the field is absent.
DetailGroup listGroup(const FieldReader& answer, int mnemonic);

// Appends the group, unless it has no rows.
void handOver(DetailGroups& groups, DetailGroup group);

// Instead of the groups when there is nothing to show: a heading without rows.
DetailGroups nothingModified();

// True when the answer carries one of the fields; of rows only those that count.
bool carriesAny(const FieldReader& answer, std::span<const int> mnemonics);
bool carriesAny(const FieldReader& answer, std::span<const FieldRow> fields);

// A product list as it is shown: "ML" is called "MLB", alone or behind a bar; none is "NA". A text
// that begins with "|ML" stays unchanged as a whole, and one that already says "|MLB" gets a
// further B. Both are kept as they are.
std::string shownProducts(std::optional<std::string_view> sent);

}  // namespace mc
