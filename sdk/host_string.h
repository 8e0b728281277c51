// Text that crosses the border between the plug-in and its host.
//
// A HostString is one pointer to a zero-terminated text of single bytes on the process heap
// (HeapAlloc of GetProcessHeap()). Null is the empty text. Two rules decide who frees it:
//
//   passed by value        the callee owns it and releases it before it returns;
//   passed by reference    the caller owns it; the callee may replace it: it releases what the
//                          HostString holds and stores a new text from the process heap.
//
// Text that only goes in, and is not kept, is a plain `const char*`.
// Both types are plain data, so any compiler's host can pass them. sdk/host_text.h has the Windows
// helpers that follow these rules.
#pragma once

#include <cstddef>
#include <cstdint>

struct HostString {
    char* text;
};

// `items` points at `count` HostStrings on the process heap, or is null when `count` is 0. The
// array and each of its texts have one owner, by the rules above.
struct HostStringArray {
    HostString* items;
    std::uint32_t count;
};
static_assert(sizeof(HostString) == sizeof(void*));
static_assert(offsetof(HostStringArray, count) == sizeof(void*));
static_assert(sizeof(HostStringArray) == 2 * sizeof(void*));
