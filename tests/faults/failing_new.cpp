#include "tests/faults/failing_new.h"

#include <cstdlib>
#include <new>

constinit checked::FailingAllocation faults::allocations;

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return faults::allocations.failsNow() ? nullptr : std::malloc(size != 0 ? size : 1);
}
void* operator new(std::size_t size) {
    void* const block = operator new(size, std::nothrow);
    if (block == nullptr) throw std::bad_alloc();
    return block;
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    std::free(block);
}
