// Dates as cells spell them: "dd/MM/yyyy", with a time "dd/MM/yyyy HH:mm:ss".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mc {

enum class DateTimeForm { date, dateAndTime };

struct DateTimeParts {
    int day, month, year;
    int hour = 0, minute = 0, second = 0;

    bool operator==(const DateTimeParts&) const = default;
};

// None for a text of another form, or of a day that the calendar does not have. Leading zeros may
// be missing, except in the year; with DateTimeForm::dateAndTime, so may the seconds or the time.
std::optional<DateTimeParts> readDateTime(std::string_view text, DateTimeForm form);

std::string dateTimeText(const DateTimeParts& parts, DateTimeForm form);

}  // namespace mc
