#include "console/excel/zip_writer.h"

#include <array>

namespace {

constexpr std::size_t kSendSize = 65536;
constexpr std::uint64_t kLimit = 0xFFFFFFFF;
constexpr std::size_t kMaxEntries = 0xFFFF;

constexpr auto kCrcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < table.size(); ++i) {
        std::uint32_t value = i;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ (value & 1 ? 0xEDB88320u : 0);
        table[i] = value;
    }
    return table;
}();

std::uint32_t crcOf(std::string_view bytes, std::uint32_t crc) {
    crc = ~crc;
    for (const char byte : bytes)
        crc = (crc >> 8) ^ kCrcTable[(crc ^ static_cast<unsigned char>(byte)) & 0xFF];
    return ~crc;
}

void put(std::string& out, std::uint64_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out += static_cast<char>(value >> (8 * i));
}

// What an entry's two headers have in common: needs version 2.0, sizes behind the data, deflated,
// the earliest date there is.
void putCommon(std::string& out) {
    put(out, 20, 2);
    put(out, 8, 2);
    put(out, 8, 2);
    put(out, 0, 2);
    put(out, 0x21, 2);
}

}  // namespace

void ZipWriter::begin(std::string_view name) {
    m_entries.push_back({std::string(name), m_sent + m_out.size()});
    m_deflate = std::make_unique<Deflate>();
    put(m_out, 0x04034B50, 4);
    putCommon(m_out);
    m_out.append(12, '\0');  // checksum and sizes: behind the data
    put(m_out, name.size(), 2);
    put(m_out, 0, 2);
    m_out += name;
}

void ZipWriter::add(std::string_view bytes) {
    if (!m_good) return;
    Entry& entry = m_entries.back();
    entry.crc = crcOf(bytes, entry.crc);
    entry.size += bytes.size();
    const std::size_t before = m_out.size();
    m_deflate->add(bytes, m_out);
    entry.packed += m_out.size() - before;
    send(false);
}

void ZipWriter::end() {
    Entry& entry = m_entries.back();
    const std::size_t before = m_out.size();
    m_deflate->finish(m_out);
    entry.packed += m_out.size() - before;
    put(m_out, 0x08074B50, 4);
    putSizes(entry);
    send(false);
}

bool ZipWriter::finish() {
    const std::uint64_t directory = m_sent + m_out.size();
    for (const Entry& entry : m_entries) {
        put(m_out, 0x02014B50, 4);
        put(m_out, 20, 2);
        putCommon(m_out);
        putSizes(entry);
        put(m_out, entry.name.size(), 2);
        m_out.append(12, '\0');  // no comment, first disk, no attributes
        put(m_out, entry.start, 4);
        m_out += entry.name;
        if (entry.size > kLimit) m_good = false;
    }
    const std::uint64_t end = m_sent + m_out.size();
    put(m_out, 0x06054B50, 4);
    put(m_out, 0, 4);  // the only disk
    put(m_out, m_entries.size(), 2);
    put(m_out, m_entries.size(), 2);
    put(m_out, end - directory, 4);
    put(m_out, directory, 4);
    put(m_out, 0, 2);
    if (end > kLimit || m_entries.size() > kMaxEntries) m_good = false;
    send(true);
    return m_good;
}

void ZipWriter::send(bool everything) {
    if (m_out.size() < kSendSize && !everything) return;
    if (m_good && !m_sink(m_out)) m_good = false;
    m_sent += m_out.size();
    m_out.clear();
}

void ZipWriter::putSizes(const Entry& entry) {
    put(m_out, entry.crc, 4);
    put(m_out, entry.packed, 4);
    put(m_out, entry.size, 4);
}
