#include "editors/model/date_time_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mc {
namespace {

// The parts in the order of the text, each with the separator before it.
struct Part {
    int DateTimeParts::*member;
    char before;  // '\0' for the first
    std::size_t minDigits, maxDigits;
    int min, max;
};
constexpr std::array<Part, 6> kParts{{
    {&DateTimeParts::day, '\0', 1, 2, 1, 31},
    {&DateTimeParts::month, '/', 1, 2, 1, 12},
    {&DateTimeParts::year, '/', 4, 4, 1, 9999},
    {&DateTimeParts::hour, ' ', 1, 2, 0, 23},
    {&DateTimeParts::minute, ':', 1, 2, 0, 59},
    {&DateTimeParts::second, ':', 1, 2, 0, 59},
}};
constexpr std::size_t kDateParts = 3;
constexpr std::size_t kHour = 3;
constexpr std::size_t kMinute = 4;

bool take(std::string_view& text, const Part& part, DateTimeParts& parts) {
    if (part.before != '\0') {
        if (!text.starts_with(part.before)) return false;
        text.remove_prefix(1);
    }
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    if (digits < part.minDigits || digits > part.maxDigits) return false;
    int& value = parts.*part.member;
    std::from_chars(text.data(), text.data() + digits, value);
    text.remove_prefix(digits);
    return value >= part.min && value <= part.max;
}

int daysIn(int month, int year) {
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

}  // namespace

std::optional<DateTimeParts> readDateTime(std::string_view text, DateTimeForm form) {
    DateTimeParts parts{};
    const std::size_t count = form == DateTimeForm::date ? kDateParts : kParts.size();
    for (std::size_t i = 0; i < count; ++i) {
        const bool mayEnd = i == kHour || i > kMinute;
        if (mayEnd && text.empty()) break;
        if (!take(text, kParts[i], parts)) return std::nullopt;
    }
    if (!text.empty() || parts.day > daysIn(parts.month, parts.year)) return std::nullopt;
    return parts;
}

std::string dateTimeText(const DateTimeParts& parts, DateTimeForm form) {
    std::string text;
    const std::size_t count = form == DateTimeForm::date ? kDateParts : kParts.size();
    for (std::size_t i = 0; i < count; ++i) {
        const std::string digits = std::to_string(parts.*kParts[i].member);
        const std::size_t width = std::max<std::size_t>(kParts[i].minDigits, 2);
        if (kParts[i].before != '\0') text += kParts[i].before;
        text.append(width - std::min(width, digits.size()), '0') += digits;
    }
    return text;
}

}  // namespace mc
