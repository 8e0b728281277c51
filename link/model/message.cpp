#include "link/model/message.h"

#include "link/model/mnemonics.h"
#include "sdk/connectvosk.h"

namespace mc {
namespace {

template <class Number, class Read>
std::optional<Number> readAs(Read read, void* message, int mnemonic, int occurrence) {
    Number number = 0;
    void* error = nullptr;
    if (read(message, mnemonic, occurrence, &number, &error) == 0) return std::nullopt;
    return number;
}

}  // namespace

std::optional<std::string_view> FieldReader::text(int mnemonic, int occurrence) const {
    const char* value = nullptr;
    void* error = nullptr;
    if (otp_get_data_as_cstring(m_message, mnemonic, occurrence, &value, &error) == 0 ||
        value == nullptr)
        return std::nullopt;
    return value;
}

bool FieldReader::read(int mnemonic, std::string& value) const {
    const auto found = text(mnemonic);
    if (found) value = *found;
    return found.has_value();
}

std::optional<int> FieldReader::count(int mnemonic) const {
    void* field = nullptr;
    int occurrences = 0;
    void* error = nullptr;
    if (otp_get_field(m_message, mnemonic, &field, &occurrences, &error) == 0) return std::nullopt;
    return occurrences;
}

std::optional<int> FieldReader::integer(int mnemonic, int occurrence) const {
    return readAs<int>(&otp_get_data_as_int, m_message, mnemonic, occurrence);
}

std::optional<long long> FieldReader::longInteger(int mnemonic, int occurrence) const {
    return readAs<long long>(&otp_get_data_as_long, m_message, mnemonic, occurrence);
}

std::optional<double> FieldReader::number(int mnemonic, int occurrence) const {
    return readAs<double>(&otp_get_data_as_double, m_message, mnemonic, occurrence);
}

std::optional<AnswerError> answerError(const FieldReader& answer) {
    if (!answer.count(MNM_ERROR)) return std::nullopt;
    AnswerError error;
    if (answer.read(MNM_ERROR, error.text)) error.code = answer.integer(MNM_ERROR).value_or(0);
    return error;
}

}  // namespace mc
