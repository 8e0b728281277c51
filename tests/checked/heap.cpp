// Memory that tells on those who use it wrongly; in place of the ordinary operators new and delete
// of every program and library of the checked build.
//
// A block is filled when it is given out and when it is freed. A freed block is kept back for a
// while and looked at before it goes: whoever wrote into it in the meantime ends the process, as
// does whoever wrote beyond a block's end or freed it twice. A pointer read from freed memory
// points nowhere. Tests can make allocations fail (failing_allocation.h).
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

#include "tests/checked/failing_allocation.h"

namespace {

constexpr unsigned char kGiven = 0xCD, kFreed = 0xDD, kEnd = 0xFD;
constexpr std::size_t kEndBytes = 16;
constexpr std::size_t kKept = 1 << 16;  // blocks
constexpr std::size_t kMaxKeptBytes = 64u << 20;

enum class State : std::size_t { used = 0x55534544, freed = 0x46524545 };

struct Head {
    State state;
    std::size_t size;
    void* freedBy;
    void* alignment;  // keeps what follows aligned to 16 bytes
    unsigned char* bytes() { return reinterpret_cast<unsigned char*>(this + 1); }
};

[[noreturn]] void report(const char* what, const Head& block) {
    std::fprintf(stderr, "checked heap: %s: %p, %zu bytes, freed by %p\n", what,
                 static_cast<const void*>(&block + 1), block.size, block.freedBy);
    std::fflush(stderr);
    __builtin_trap();
}

bool filledWith(unsigned char value, const unsigned char* bytes, std::size_t count) {
    return count == 0 || (bytes[0] == value && std::memcmp(bytes, bytes + 1, count - 1) == 0);
}

class Lock {
public:
    explicit Lock(SRWLOCK& lock) : m_lock(lock) { AcquireSRWLockExclusive(&lock); }
    ~Lock() { ReleaseSRWLockExclusive(&m_lock); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    SRWLOCK& m_lock;
};

// The blocks that are kept back, oldest first. Of use before anything is constructed and after
// everything is destroyed.
class Quarantine {
public:
    void take(Head* block) {
        const Lock lock(m_lock);
        while (m_count == kKept || (m_count > 0 && m_bytes + block->size > kMaxKeptBytes)) letGo();
        m_blocks[(m_first + m_count++) % kKept] = block;
        m_bytes += block->size;
    }

    void lookAtAll() {
        const Lock lock(m_lock);
        for (std::size_t i = 0; i < m_count; ++i) look(*m_blocks[(m_first + i) % kKept]);
    }

private:
    static void look(Head& block) {
        if (!filledWith(kFreed, block.bytes(), block.size))
            report("written after it was freed", block);
    }
    void letGo() {
        Head* const oldest = m_blocks[m_first];
        look(*oldest);
        m_first = (m_first + 1) % kKept;
        --m_count;
        m_bytes -= oldest->size;
        std::free(oldest);
    }

    SRWLOCK m_lock = SRWLOCK_INIT;
    Head* m_blocks[kKept] = {};
    std::size_t m_first = 0, m_count = 0, m_bytes = 0;
};
constinit Quarantine theQuarantine;

// Those that are still kept back are looked at when the module goes.
const struct LastLook {
    ~LastLook() { theQuarantine.lookAtAll(); }
} theLastLook;

// The test's, which only the library looks for: the test's own program reads it when it starts.
checked::FailingAllocation* const failing = [] {
    char address[32]{};
    GetEnvironmentVariableA(checked::kFailingAllocation, address, sizeof address);
    auto* const found =
        reinterpret_cast<checked::FailingAllocation*>(std::strtoull(address, nullptr, 10));
    if (found != nullptr) found->watched = true;
    return found;
}();

void* give(std::size_t size) {
    if (failing != nullptr && failing->failsNow()) throw std::bad_alloc();
    auto* const block = static_cast<Head*>(std::malloc(sizeof(Head) + size + kEndBytes));
    if (block == nullptr) throw std::bad_alloc();
    *block = {State::used, size, nullptr, nullptr};
    std::memset(block->bytes(), kGiven, size);
    std::memset(block->bytes() + size, kEnd, kEndBytes);
    return block->bytes();
}

void takeBack(void* bytes, void* caller) {
    if (bytes == nullptr) return;
    Head* const block = static_cast<Head*>(bytes) - 1;
    if (block->state != State::used) report("freed twice, or never given out", *block);
    if (!filledWith(kEnd, block->bytes() + block->size, kEndBytes))
        report("written beyond its end", *block);
    block->state = State::freed;
    block->freedBy = caller;
    std::memset(block->bytes(), kFreed, block->size);
    theQuarantine.take(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return give(size);
}
void* operator new[](std::size_t size) {
    return give(size);
}
void operator delete(void* bytes) noexcept {
    takeBack(bytes, __builtin_return_address(0));
}
void operator delete[](void* bytes) noexcept {
    takeBack(bytes, __builtin_return_address(0));
}
void operator delete(void* bytes, std::size_t) noexcept {
    takeBack(bytes, __builtin_return_address(0));
}
void operator delete[](void* bytes, std::size_t) noexcept {
    takeBack(bytes, __builtin_return_address(0));
}
