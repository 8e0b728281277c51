// The reference console's messaging library: sdk/connectvosk.h over a flat field encoding.
//
// A message in its scratch buffer, all integers 32-bit in the machine's byte order:
//
//   word 0     bytes used by the fields that follow (0: an empty message)
//   a field    mnemonic id, length n of the text (-1: cannot be read), then, for n >= 0,
//              n bytes of text and a zero byte
//
// Fields follow one another without padding. The handle keeps a directory of where each occurrence
// of each id is, so a message of thousands of occurrences is read in one step each.
#include "sdk/connectvosk.h"

#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <vector>

namespace {

constexpr std::int32_t kUnreadable = -1;
constexpr std::size_t kFieldHead = 2 * sizeof(std::int32_t);

// Lies in front of a scratch buffer; the handle points behind it.
struct alignas(std::max_align_t) ScratchHead {
    std::size_t size;
};

struct FieldEntry {
    int mnemonic;
    std::vector<std::size_t> occurrences;  // offsets of the field heads
};

struct Message {
    unsigned char* buffer = nullptr;
    std::size_t capacity = 0;
    std::size_t used = 0;  // bytes of the buffer, word 0 included
    std::vector<FieldEntry> directory;
    std::vector<int> order;  // the mnemonic id of each occurrence, in order of appending

    FieldEntry* find(int mnemonic) {
        for (FieldEntry& entry : directory)
            if (entry.mnemonic == mnemonic) return &entry;
        return nullptr;
    }
};

// The fault switch: counts down to the call that fails.
int faultIn = 0;
int callsSinceSwitch = 0;

bool faulty() {
    ++callsSinceSwitch;
    return faultIn > 0 && --faultIn == 0;
}

std::int32_t wordAt(const unsigned char* at) {
    std::int32_t word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

void setWord(unsigned char* at, std::int32_t word) {
    std::memcpy(at, &word, sizeof word);
}

// Handles that were opened and not closed.
int openHandles = 0;

// Runs one operation behind the library's border: faults and exceptions become its failure.
template <class Operation>
int guarded(void** error, Operation operation) noexcept {
    if (error != nullptr) *error = nullptr;
    if (faulty()) return 0;
    try {
        return operation() ? 1 : 0;
    } catch (const std::exception&) {
        return 0;
    }
}

// Opening counts what it made.
template <class Make>
int opening(void** error, Make make) noexcept {
    const int made = guarded(error, make);
    openHandles += made;
    return made;
}

// Closing releases even when the fault switch makes it report a failure, so a fault never leaks.
template <class Release>
int closing(void** error, void* handle, Release release) noexcept {
    if (handle != nullptr) {
        release();
        --openHandles;
    }
    return guarded(error, [&] { return handle != nullptr; });
}

const char* occurrenceText(void* message, int mnemonic, int occurrence) {
    if (message == nullptr || occurrence < 0) return nullptr;
    auto& self = *static_cast<Message*>(message);
    const FieldEntry* entry = self.find(mnemonic);
    if (entry == nullptr || static_cast<std::size_t>(occurrence) >= entry->occurrences.size())
        return nullptr;
    const unsigned char* head =
        self.buffer + entry->occurrences[static_cast<std::size_t>(occurrence)];
    if (wordAt(head + sizeof(std::int32_t)) == kUnreadable) return nullptr;
    return reinterpret_cast<const char*>(head + kFieldHead);
}

// Reads an occurrence with a strto-like `read`; the whole text must be the number.
template <class Number, class Read>
bool readNumber(void* message, int mnemonic, int occurrence, Number* number, Read read) {
    const char* text = occurrenceText(message, mnemonic, occurrence);
    if (text == nullptr || *text == '\0' || number == nullptr) return false;
    char* end = nullptr;
    errno = 0;
    const Number value = read(text, &end);
    if (*end != '\0' || errno == ERANGE) return false;
    *number = value;
    return true;
}

}  // namespace

int otp_ctor_primecb(void** message, void** error) {
    return opening(error, [&] {
        if (message == nullptr) return false;
        *message = new Message;
        return true;
    });
}

int otp_dtor_primecb(void* message, void** error) {
    return closing(error, message, [&] { delete static_cast<Message*>(message); });
}

int otp_open_scratch(void** scratch, int size, void** error) {
    return opening(error, [&] {
        if (scratch == nullptr || size <= 0) return false;
        const auto bytes = static_cast<std::size_t>(size);
        void* block = std::calloc(1, sizeof(ScratchHead) + bytes);
        if (block == nullptr) return false;
        *scratch = new (block) ScratchHead{bytes} + 1;
        return true;
    });
}

int otp_close_scratch(void* scratch, void** error) {
    return closing(error, scratch, [&] { std::free(static_cast<ScratchHead*>(scratch) - 1); });
}

int sys_open_time_hndl(void** timeHandle, void** error) {
    return opening(error, [&] {
        if (timeHandle == nullptr) return false;
        *timeHandle = new char{};
        return true;
    });
}

int sys_close_time_hndl(void* timeHandle, void** error) {
    return closing(error, timeHandle, [&] { delete static_cast<char*>(timeHandle); });
}

int otp_start_msg(void* message, void* scratch, void** error) {
    return guarded(error, [&] {
        if (message == nullptr || scratch == nullptr) return false;
        const std::size_t capacity = (static_cast<ScratchHead*>(scratch) - 1)->size;
        if (capacity < sizeof(std::int32_t)) return false;
        auto& self = *static_cast<Message*>(message);
        self.buffer = static_cast<unsigned char*>(scratch);
        self.capacity = capacity;
        self.used = sizeof(std::int32_t);
        self.directory.clear();
        self.order.clear();
        setWord(self.buffer, 0);
        return true;
    });
}

int otp_add_data_as_cstring(void* message, int mnemonic, int count, const char* value,
                            void** error) {
    return guarded(error, [&] {
        if (message == nullptr || count != 1) return false;
        auto& self = *static_cast<Message*>(message);
        const std::size_t length = value != nullptr ? std::strlen(value) : 0;
        const std::size_t bytes = kFieldHead + (value != nullptr ? length + 1 : 0);
        if (self.buffer == nullptr || bytes > self.capacity - self.used || length > INT_MAX)
            return false;
        FieldEntry* entry = self.find(mnemonic);
        if (entry == nullptr) entry = &self.directory.emplace_back(FieldEntry{mnemonic, {}});
        if (self.order.size() == self.order.capacity())
            self.order.reserve(2 * self.order.size() + 16);
        entry->occurrences.push_back(self.used);
        self.order.push_back(mnemonic);

        unsigned char* head = self.buffer + self.used;
        setWord(head, mnemonic);
        setWord(head + sizeof(std::int32_t),
                value != nullptr ? static_cast<std::int32_t>(length) : kUnreadable);
        if (value != nullptr) std::memcpy(head + kFieldHead, value, length + 1);
        self.used += bytes;
        setWord(self.buffer, static_cast<std::int32_t>(self.used - sizeof(std::int32_t)));
        return true;
    });
}

int otp_get_field(void* message, int mnemonic, void** field, int* count, void** error) {
    return guarded(error, [&] {
        if (message == nullptr) return false;
        FieldEntry* entry = static_cast<Message*>(message)->find(mnemonic);
        if (entry == nullptr) return false;
        if (field != nullptr) *field = entry;
        if (count != nullptr) *count = static_cast<int>(entry->occurrences.size());
        return true;
    });
}

int otp_get_data_as_cstring(void* message, int mnemonic, int occurrence, const char** text,
                            void** error) {
    return guarded(error, [&] {
        const char* found = occurrenceText(message, mnemonic, occurrence);
        if (found == nullptr || text == nullptr) return false;
        *text = found;
        return true;
    });
}

int otp_get_data_as_int(void* message, int mnemonic, int occurrence, int* number, void** error) {
    return guarded(error, [&] {
        long long wide = 0;
        if (!readNumber(message, mnemonic, occurrence, &wide,
                        [](const char* text, char** end) { return std::strtoll(text, end, 10); }) ||
            wide < INT_MIN || wide > INT_MAX || number == nullptr)
            return false;
        *number = static_cast<int>(wide);
        return true;
    });
}

int otp_get_data_as_long(void* message, int mnemonic, int occurrence, long long* number,
                         void** error) {
    return guarded(error, [&] {
        return readNumber(message, mnemonic, occurrence, number,
                          [](const char* text, char** end) { return std::strtoll(text, end, 10); });
    });
}

int otp_get_data_as_double(void* message, int mnemonic, int occurrence, double* number,
                           void** error) {
    return guarded(error, [&] {
        return readNumber(message, mnemonic, occurrence, number,
                          [](const char* text, char** end) { return std::strtod(text, end); });
    });
}

int otp_field_count(void* message) {
    return message != nullptr ? static_cast<int>(static_cast<Message*>(message)->order.size()) : 0;
}

int otp_field_at(void* message, int index) {
    if (index < 0 || index >= otp_field_count(message)) return -1;
    return static_cast<Message*>(message)->order[static_cast<std::size_t>(index)];
}

int otp_open_handles() {
    return openHandles;
}

int otp_fail_call(int call) {
    const int calls = callsSinceSwitch;
    faultIn = call;
    callsSinceSwitch = 0;
    return calls;
}
