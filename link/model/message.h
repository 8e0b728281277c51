// Reading an incoming message.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mc {

// Reads the fields of one message of the messaging library. The message stays the host's; the texts
// handed out live as long as it does. A null message has no fields.
class FieldReader {
public:
    explicit FieldReader(void* message) : m_message(message) {}

    // One occurrence of a field as text; none when it is absent or cannot be read.
    std::optional<std::string_view> text(int mnemonic, int occurrence = 0) const;

    // Copies occurrence 0 into `value`; false, and `value` stays as it is, when it cannot be read.
    bool read(int mnemonic, std::string& value) const;

    // The number of occurrences; none when the field is absent.
    std::optional<int> count(int mnemonic) const;

    // One occurrence as a number; none when it is absent or no such number.
    std::optional<int> integer(int mnemonic, int occurrence = 0) const;
    std::optional<long long> longInteger(int mnemonic, int occurrence = 0) const;
    std::optional<double> number(int mnemonic, int occurrence = 0) const;

private:
    void* m_message;
};

// The error that an answer carries.
struct AnswerError {
    std::string text;
    int code = 0;
};

// The error of an answer; none when its error field is absent. An error field that cannot be read
// as text is an error with empty text and code 0.
std::optional<AnswerError> answerError(const FieldReader& answer);

}  // namespace mc
