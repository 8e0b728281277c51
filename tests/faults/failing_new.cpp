#include "tests/faults/failing_new.h"

#include <cstdlib>
#include <new>

namespace faults {
namespace {

std::size_t failAt = 0, count = 0;  // 0: none fails
bool allBehind = false, failed = false;
int notCounted = 0;

bool failsNow() {
    if (failAt == 0 || notCounted > 0) return false;
    ++count;
    if (allBehind ? count < failAt : count != failAt) return false;
    return failed = true;
}

}  // namespace

void failNew(std::size_t first, bool forGood) {
    failAt = first;
    allBehind = forGood;
    count = 0;
    failed = false;
}

bool endFailing() {
    failAt = 0;
    return failed;
}

NotCounted::NotCounted() {
    ++notCounted;
}
NotCounted::~NotCounted() {
    --notCounted;
}

}  // namespace faults

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return faults::failsNow() ? nullptr : std::malloc(size != 0 ? size : 1);
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
