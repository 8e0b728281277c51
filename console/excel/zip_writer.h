// A zip archive written to a stream, entry by entry, each compressed.
//
//   begin(name), add(bytes)..., end()    for each entry
//   finish()                             once
//
// Nothing is read back or written twice, so the archive may go anywhere. Archives of 4 GB and more,
// and more than 65,535 entries, are beyond the format: finish() then fails.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "console/excel/deflate.h"

// Takes the next bytes of a file; false when it could not.
using ByteSink = std::function<bool(std::string_view)>;

class ZipWriter {
public:
    explicit ZipWriter(ByteSink sink) : m_sink(std::move(sink)) {}

    // `name` is ASCII, its folders separated by "/".
    void begin(std::string_view name);
    void add(std::string_view bytes);
    void end();

    // Writes the directory. True when the sink took every byte.
    bool finish();

    // False once the sink has failed: what follows is passed over.
    bool good() const { return m_good; }

private:
    struct Entry {
        std::string name;
        std::uint64_t start;  // in the archive
        std::uint32_t crc = 0;
        std::uint64_t packed = 0;
        std::uint64_t size = 0;
    };
    void send(bool everything);
    void putSizes(const Entry& entry);

    ByteSink m_sink;
    bool m_good = true;
    std::string m_out;         // not yet sent
    std::uint64_t m_sent = 0;  // bytes
    std::unique_ptr<Deflate> m_deflate;
    std::vector<Entry> m_entries;
};
