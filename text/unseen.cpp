#include "text/unseen.h"

#include <array>

#include "text/characters.h"

namespace mc {
namespace {

constexpr std::size_t kMaxNamed = 4;

bool isControlLike(char c) {
    return (isControl(c) && c != '\t') || c == '\x7F';
}

// A single blank between two characters shows as what it is.
bool isUnseenAt(std::string_view text, std::size_t at) {
    if (text[at] != ' ') return isBlankLike(text[at]) || isControlLike(text[at]);
    return at == 0 || at + 1 == text.size() || text[at - 1] == ' ' || text[at + 1] == ' ';
}

char signFor(char c, const UnseenSigns& signs) {
    if (c == ' ') return signs.blank;
    if (c == '\t') return signs.tab;
    return c == kNoBreakBlank ? signs.noBreak : signs.control;
}

std::string nameOf(char c, bool several) {
    if (isControlLike(c)) {
        constexpr char digits[] = "0123456789ABCDEF";
        return {'b', 'y', 't', 'e', ' ', digits[(c >> 4) & 15], digits[c & 15]};
    }
    const std::string name = c == ' ' ? "blank" : c == '\t' ? "tab" : "no-break blank";
    return several ? name + "s" : name;
}

std::string runInWords(std::string_view text, std::size_t from, std::size_t to) {
    const std::string count = to - from > 1 ? std::to_string(to - from) + " " : "";
    const std::string run = count + nameOf(text[from], to - from > 1);
    if (to == text.size()) return run + (from == 0 ? " and nothing else" : " at the end");
    return from == 0 ? run + " in front" : run + " at " + std::to_string(from + 1);
}

}  // namespace

bool hasUnseen(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at)
        if (isUnseenAt(text, at)) return true;
    return false;
}

std::string withSigns(std::string_view text, const UnseenSigns& signs) {
    std::string shown(text);
    for (std::size_t at = 0; at < text.size(); ++at)
        if (isUnseenAt(text, at)) shown[at] = signFor(text[at], signs);
    return shown;
}

std::string unseenInWords(std::string_view text) {
    std::string words;
    std::size_t named = 0;
    for (std::size_t from = 0, to; from < text.size(); from = to) {
        for (to = from + 1; to < text.size() && text[to] == text[from];) ++to;
        if (!isUnseenAt(text, from)) continue;
        if (named++ != 0) words += ", ";
        if (named > kMaxNamed) return words + "...";
        words += runInWords(text, from, to);
    }
    return words;
}

}  // namespace mc
