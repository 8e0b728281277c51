// A text of a record, made for the many that are short: sixteen bytes hold up to fifteen
// characters, a longer text is a block of its own.
#pragma once

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "text/text_bytes.h"

namespace mc {

class ShortText {
public:
    ShortText() = default;
    ~ShortText() {
        if (isLong()) delete longText();
    }
    ShortText(const ShortText&) = delete;
    ShortText& operator=(const ShortText&) = delete;

    // Copies the text, which may be a part of the one that is there.
    ShortText& operator=(std::string_view text) {
        std::string* const before = isLong() ? longText() : nullptr;
        if (text.size() <= kShort) {
            copyText(text, m_bytes.data());
            m_bytes[kShort] = static_cast<char>(text.size());
        } else {
            const auto* const made = new std::string(text);
            std::memcpy(m_bytes.data(), &made, sizeof made);
            m_bytes[kShort] = kLong;
        }
        delete before;
        return *this;
    }

    void swap(ShortText& other) noexcept { m_bytes.swap(other.m_bytes); }

    // The text, which lives until the next one is given.
    std::string_view view() const {
        if (isLong()) return *longText();
        return {m_bytes.data(), static_cast<std::size_t>(m_bytes[kShort])};
    }

private:
    static constexpr std::size_t kShort = 15;
    static constexpr char kLong = 16;

    bool isLong() const { return m_bytes[kShort] == kLong; }
    std::string* longText() const {
        std::string* text;
        std::memcpy(&text, m_bytes.data(), sizeof text);
        return text;
    }

    std::array<char, kShort + 1> m_bytes{};  // a short text and its length, or a pointer and kLong
};

}  // namespace mc
