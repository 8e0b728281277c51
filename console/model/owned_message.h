// A message of the messaging library that owns its handle and its buffer, and grows as needed.
#pragma once

#include <cstddef>
#include <string>

#include "console/model/fields.h"

namespace zek {

// A message under construction; readers take its handle(). Every failure of the library (memory,
// as a rule) throws std::runtime_error and leaves the message as it was.
class OwnedMessage {
public:
    OwnedMessage();
    explicit OwnedMessage(const Fields& fields);
    OwnedMessage(OwnedMessage&& other) noexcept;
    OwnedMessage& operator=(OwnedMessage&& other) noexcept;
    ~OwnedMessage();

    // A copy that outlives `message`, occurrence for occurrence.
    static OwnedMessage copyOf(void* message);

    void add(int id, const std::string& text);
    void addUnreadable(int id);

    // Invalid after the next add, which may move the message to a larger buffer.
    void* handle() const { return m_message; }

private:
    explicit OwnedMessage(int capacity);
    void append(int id, const char* text);
    void grow(std::size_t room);

    int m_capacity = 0;
    void* m_message = nullptr;
    void* m_scratch = nullptr;
};

// All fields of a message of the library. Null has none.
Fields readFields(void* message);

}  // namespace zek
