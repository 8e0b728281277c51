#include "console/model/parsed.h"

#include <algorithm>

namespace zek {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kQuotedLength = 40;

}  // namespace

LineReader::LineReader(std::string_view text, std::string_view file) : m_rest(text), m_file(file) {
    if (m_rest.starts_with(kByteOrderMark)) m_rest.remove_prefix(kByteOrderMark.size());
}

std::optional<std::string_view> LineReader::next() {
    while (!m_rest.empty()) {
        const std::size_t end = std::min(m_rest.find('\n'), m_rest.size());
        std::string_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        ++m_line;
        if (line.ends_with('\r')) line.remove_suffix(1);
        line = trimmed(line);
        if (!line.empty() && line.front() != '#') return line;
    }
    return std::nullopt;
}

std::string LineReader::error(std::string_view what) const {
    return m_file + ":" + std::to_string(m_line) + ": " + std::string(what);
}

std::optional<Assignment> splitAssignment(std::string_view line) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return std::nullopt;
    return Assignment{trimmed(line.substr(0, sign)), trimmed(line.substr(sign + 1))};
}

std::string quoted(std::string_view text) {
    std::string shown(text.substr(0, kQuotedLength));
    std::ranges::replace_if(
        shown, [](char c) { return c < ' ' || c > '~'; }, '?');
    return '"' + shown + (text.size() > kQuotedLength ? "...\"" : "\"");
}

}  // namespace zek
