// What the handlers of list-view messages take.
#pragma once

#include <cstddef>
#include <optional>

#include "framework/message_map.h"

// Posted by a list to itself when a computed column's expression turns out to be invalid, so that
// the message box opens after the paint or pass that found it. wParam, lParam and result are not
// used.
inline constexpr UINT kTellInvalid = WM_APP + 0x1C50;

namespace fw {

// A row, or all of them (-1).
inline std::optional<std::size_t> rowParameter(WPARAM w) {
    const auto row = static_cast<int>(w);
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

template <>
struct Crack<LVM_GETITEMSTATE> {  // (row, UINT mask)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(rowParameter(w), static_cast<UINT>(l));
    }
};
template <>
struct Crack<LVM_SETITEMSTATE> {  // (row, const LVITEMA&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(rowParameter(w), *reinterpret_cast<const LVITEMA*>(l));
    }
};
template <>
struct Crack<LVM_GETNEXTITEM> {  // (first row to look at, UINT flags)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        const auto after = rowParameter(w);
        return handler(after ? *after + 1 : std::size_t{0}, static_cast<UINT>(LOWORD(l)));
    }
};

}  // namespace fw
