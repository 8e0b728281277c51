// Windows helpers for HostString: the process heap behind the ownership rules of host_string.h.
// Window code only; portable code sees texts as std::string.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "sdk/host_string.h"

namespace sdk {

// Frees what `string` holds and leaves it empty.
inline void release(HostString& string) noexcept {
    if (string.text != nullptr) HeapFree(GetProcessHeap(), 0, string.text);
    string.text = nullptr;
}

// A new HostString with a copy of `text`; empty when `text` is empty or memory is out.
// The caller owns it, and gives it away by passing it by value across the border.
inline HostString makeHostString(std::string_view text) noexcept {
    HostString made{nullptr};
    if (text.empty()) return made;
    made.text = static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, text.size() + 1));
    if (made.text == nullptr) return made;
    text.copy(made.text, text.size());
    made.text[text.size()] = '\0';
    return made;
}

// Replaces what `string` holds: the callee's side of a HostString passed by reference.
inline void assign(HostString& string, std::string_view text) noexcept {
    const HostString made = makeHostString(text);
    release(string);
    string = made;
}

// The text of `string`, which keeps it.
inline std::string_view view(const HostString& string) noexcept {
    return string.text != nullptr ? std::string_view(string.text) : std::string_view();
}

// Copies the text out and releases `string`: what a callee does with a HostString passed by value,
// and a caller with one that a callee filled.
inline std::string take(HostString& string) {
    struct Release {
        HostString& string;
        ~Release() { release(string); }
    } releaseAtEnd{string};
    return std::string(view(string));
}

// Frees every text of `array`, then the array, and leaves it empty.
inline void release(HostStringArray& array) noexcept {
    for (std::uint32_t i = 0; array.items != nullptr && i < array.count; ++i)
        release(array.items[i]);
    if (array.items != nullptr) HeapFree(GetProcessHeap(), 0, array.items);
    array = HostStringArray{nullptr, 0};
}

}  // namespace sdk
