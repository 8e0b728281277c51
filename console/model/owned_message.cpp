#include "console/model/owned_message.h"

#include <climits>
#include <cstring>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "sdk/connectvosk.h"

namespace zek {
namespace {

constexpr int kFirstCapacity = 4096;
constexpr std::size_t kFieldOverhead = 16;  // at least what a field takes besides its text

void require(bool done, const char* what) {
    if (!done) throw std::runtime_error(what);
}

// Visits (id, text or null) for every occurrence, in order of appending.
template <class Visitor>
void forEachOccurrence(void* message, Visitor visit) {
    std::unordered_map<int, int> seen;
    const int count = otp_field_count(message);
    for (int index = 0; index < count; ++index) {
        const int id = otp_field_at(message, index);
        const char* text = nullptr;
        if (otp_get_data_as_cstring(message, id, seen[id]++, &text, nullptr) == 0) text = nullptr;
        visit(id, text);
    }
}

}  // namespace

OwnedMessage::OwnedMessage() : OwnedMessage(kFirstCapacity) {}

OwnedMessage::OwnedMessage(int capacity) : m_capacity(capacity) {
    // Until the constructor ends nobody else frees the handles.
    const bool ready = otp_ctor_primecb(&m_message, nullptr) != 0 &&
                       otp_open_scratch(&m_scratch, capacity, nullptr) != 0 &&
                       otp_start_msg(m_message, m_scratch, nullptr) != 0;
    if (ready) return;
    otp_dtor_primecb(m_message, nullptr);
    otp_close_scratch(m_scratch, nullptr);
    throw std::runtime_error("no memory for a message");
}

OwnedMessage::OwnedMessage(const Fields& fields) : OwnedMessage() {
    for (const Field& field : fields)
        for (const Occurrence& occurrence : field.occurrences)
            append(field.id, occurrence ? occurrence->c_str() : nullptr);
}

OwnedMessage::OwnedMessage(OwnedMessage&& other) noexcept
    : m_capacity(std::exchange(other.m_capacity, 0)),
      m_message(std::exchange(other.m_message, nullptr)),
      m_scratch(std::exchange(other.m_scratch, nullptr)) {}

OwnedMessage& OwnedMessage::operator=(OwnedMessage&& other) noexcept {
    std::swap(m_capacity, other.m_capacity);
    std::swap(m_message, other.m_message);
    std::swap(m_scratch, other.m_scratch);
    return *this;
}

OwnedMessage::~OwnedMessage() {
    otp_dtor_primecb(m_message, nullptr);
    otp_close_scratch(m_scratch, nullptr);
}

OwnedMessage OwnedMessage::copyOf(void* message) {
    OwnedMessage copy;
    forEachOccurrence(message, [&](int id, const char* text) { copy.append(id, text); });
    return copy;
}

void OwnedMessage::add(int id, const std::string& text) {
    append(id, text.c_str());
}

void OwnedMessage::addUnreadable(int id) {
    append(id, nullptr);
}

void OwnedMessage::append(int id, const char* text) {
    if (otp_add_data_as_cstring(m_message, id, 1, text, nullptr) != 0) return;
    grow(kFieldOverhead + (text != nullptr ? std::strlen(text) : 0));
    require(otp_add_data_as_cstring(m_message, id, 1, text, nullptr) != 0,
            "a field cannot be added to a message");
}

// The library starts a message empty, so a larger buffer means saying everything again.
void OwnedMessage::grow(std::size_t room) {
    const auto capacity = static_cast<std::size_t>(m_capacity);
    require(room < INT_MAX / 2 && capacity < INT_MAX / 4, "a message is too long");
    OwnedMessage larger(static_cast<int>(2 * capacity + room));
    forEachOccurrence(m_message, [&](int id, const char* text) {
        require(otp_add_data_as_cstring(larger.m_message, id, 1, text, nullptr) != 0,
                "a message cannot grow");
    });
    *this = std::move(larger);
}

Fields readFields(void* message) {
    Fields fields;
    forEachOccurrence(message, [&](int id, const char* text) {
        Field* field = findField(fields, id);
        if (field == nullptr) field = &fields.emplace_back(Field{id, {}});
        field->occurrences.push_back(text != nullptr ? Occurrence(text) : std::nullopt);
    });
    return fields;
}

}  // namespace zek
