#include "tests/support/xlsx_reader.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <vector>

namespace {

void require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t count) {
    require(at + count <= bytes.size(), "archive ends early");
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;)
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    return value;
}

std::uint32_t checksum(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<std::uint8_t>(byte);
        for (int i = 0; i < 8; ++i) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return ~crc;
}

// One final block of fixed codes.
class Inflate {
public:
    explicit Inflate(std::string_view packed) : m_packed(packed) {}

    std::string run() {
        require(bits(3) == 3, "not a final block of fixed codes");
        for (unsigned symbol = literal(); symbol != 256; symbol = literal()) {
            if (symbol < 256)
                m_out += static_cast<char>(symbol);
            else
                copy(symbol - 257);
        }
        require((m_bit + 7) / 8 == m_packed.size(), "bytes behind the last block");
        return std::move(m_out);
    }

private:
    unsigned bit() {
        require(m_bit / 8 < m_packed.size(), "compressed data ends early");
        const auto byte = static_cast<unsigned char>(m_packed[m_bit / 8]);
        return byte >> (m_bit++ % 8) & 1u;
    }
    unsigned bits(unsigned count) {
        unsigned value = 0;
        for (unsigned i = 0; i < count; ++i) value |= bit() << i;
        return value;
    }
    unsigned code(unsigned value, unsigned count) {
        for (unsigned i = 0; i < count; ++i) value = value << 1 | bit();
        return value;
    }
    unsigned literal() {
        unsigned value = code(0, 7);
        if (value < 0b0011000) return value + 256;
        value = code(value, 1);
        if (value < 0b11000000) return value - 0b00110000;
        if (value < 0b11001000) return value - 0b11000000 + 280;
        return code(value, 1) - 0b110010000 + 144;
    }
    // Each code begins where the values of the one before end.
    unsigned value(unsigned code, unsigned first, unsigned plain, unsigned perExtra) {
        unsigned start = first;
        for (unsigned i = 0; i < code; ++i)
            start += 1u << (i < plain ? 0 : (i - plain) / perExtra + 1);
        return start + bits(code < plain ? 0 : (code - plain) / perExtra + 1);
    }
    void copy(unsigned lengthCode) {
        require(lengthCode <= 28, "no such length");
        const unsigned length = lengthCode == 28 ? 258 : value(lengthCode, 3, 8, 4);
        const unsigned distanceCode = code(0, 5);
        require(distanceCode <= 29, "no such distance");
        const unsigned distance = value(distanceCode, 1, 4, 2);
        require(distance <= m_out.size(), "distance before the start");
        for (unsigned i = 0; i < length; ++i) m_out += m_out[m_out.size() - distance];
    }

    std::string_view m_packed;
    std::size_t m_bit = 0;
    std::string m_out;
};

// The length of the character at the start of `text`.
std::size_t utf8Length(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    require(lead >= 0x20 || lead == '\t' || lead == '\n', "control character");
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                                             : 0;
    require(length != 0 && length <= text.size() && lead != 0x7F, "no character");
    for (std::size_t i = 1; i < length; ++i)
        require((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80, "no UTF-8");
    return length;
}

std::string unescaped(std::string_view text) {
    static const std::map<std::string_view, char> entities{
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}};
    std::string plain;
    while (!text.empty()) {
        std::size_t length = utf8Length(text);
        if (text[0] != '&') {
            plain += text.substr(0, length);
        } else {
            length = text.find(';') + 1;
            plain += entities.at(text.substr(0, length));
        }
        text.remove_prefix(length);
    }
    return plain;
}

std::string attribute(std::string_view tag, std::string_view name) {
    const std::string start = " " + std::string(name) + "=\"";
    const auto at = tag.find(start);
    if (at == tag.npos) return {};
    const auto value = tag.substr(at + start.size());
    return unescaped(value.substr(0, value.find('"')));
}

// Calls `text` with the open tags, outermost first, for each text between tags.
void readMarkup(
    std::string_view document,
    const std::function<void(const std::vector<std::string_view>&, std::string)>& text) {
    std::vector<std::string_view> open;
    const std::string_view head = document.substr(0, document.find("?>") + 2);
    require(head.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\""), "no declaration");
    document.remove_prefix(head.size());
    while (!document.empty()) {
        if (document[0] != '<') {
            const auto end = document.find('<');
            if (!open.empty()) text(open, unescaped(document.substr(0, end)));
            document.remove_prefix(std::min(end, document.size()));
            continue;
        }
        const std::string_view tag = document.substr(1, document.find('>') - 1);
        require(!tag.empty() && tag.find('<') == tag.npos, "broken tag");
        document.remove_prefix(tag.size() + 2);
        if (tag[0] == '/') {
            const std::string_view opened = open.empty() ? "" : open.back();
            require(opened.substr(0, opened.find(' ')) == tag.substr(1), "tags do not match");
            open.pop_back();
        } else if (tag.back() != '/') {
            open.push_back(tag);
        }
    }
    require(open.empty(), "tags left open");
}

// The entry whose directory record stands at `at`; `at` and `next` move behind what was read.
std::pair<std::string, std::string> readEntry(std::string_view zip, std::size_t& at,
                                              std::size_t& next) {
    require(number(zip, at, 4) == 0x02014B50, "no directory record");
    const std::uint32_t crc = number(zip, at + 16, 4), packed = number(zip, at + 20, 4);
    const std::uint32_t size = number(zip, at + 24, 4), nameSize = number(zip, at + 28, 2);
    const std::string name(zip.substr(at + 46, nameSize));
    const std::size_t local = number(zip, at + 42, 4);
    require(local == next && number(zip, local, 4) == 0x04034B50, "no entry where it should be");
    require(zip.substr(local + 30, nameSize) == name, "names differ");
    const std::string_view data = zip.substr(local + 30 + nameSize);
    require(number(data, packed, 4) == 0x08074B50 && number(data, packed + 4, 4) == crc &&
                number(data, packed + 8, 4) == packed && number(data, packed + 12, 4) == size,
            "sizes behind the data differ");
    std::string content = Inflate(data.substr(0, packed)).run();
    require(content.size() == size && checksum(content) == crc, "wrong size or checksum");
    at += 46 + nameSize;
    next = local + 30 + nameSize + packed + 16;
    return {name, std::move(content)};
}

}  // namespace

std::map<std::string, std::string> readZip(std::string_view archive) {
    require(archive.size() >= 22, "no archive");
    const std::size_t end = archive.size() - 22;
    require(number(archive, end, 4) == 0x06054B50, "no end record");
    std::size_t at = number(archive, end + 16, 4), next = 0;
    require(at + number(archive, end + 12, 4) == end, "directory does not end at its end");
    const std::size_t directory = at;
    std::map<std::string, std::string> entries;
    for (std::uint32_t left = number(archive, end + 10, 2); left > 0; --left)
        require(entries.insert(readEntry(archive, at, next)).second, "two entries of one name");
    require(at == end && next == directory, "bytes between the entries");
    return entries;
}

std::map<std::string, SheetCell> readSheet(std::string_view document) {
    std::map<std::string, SheetCell> cells;
    readMarkup(document, [&](const std::vector<std::string_view>& open, std::string text) {
        require(open.size() > 4 && open[2].starts_with("row ") && open[3].starts_with("c "),
                "text outside of a cell");
        const bool isNumber = open[4] == "v";
        require(isNumber == (attribute(open[3], "t") != "inlineStr"), "type of a cell");
        require(cells.insert({attribute(open[3], "r"), {std::move(text), isNumber}}).second,
                "two cells at one place");
    });
    return cells;
}

void checkMarkup(std::string_view document) {
    readMarkup(document, [](const auto&, const std::string&) {});
}
