// Messages of lists, and the parameters of handlers of list-view messages.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "framework/message_map.h"
#include "listctrl/model/columns/column_info.h"

namespace mc {

// Posted by a list to itself when a computed column's expression turns out to be invalid, so that
// the message box opens after the paint or pass that found it. wParam, lParam and result are not
// used.
inline constexpr UINT kInvalidFound = WM_APP + 0x1C50;

// Posted by a list to itself when a column has another width: a header may notify of one item's
// width before it has moved the items behind it. wParam, lParam and result are not used.
inline constexpr UINT kHeaderMoved = WM_APP + 0x1C54;

// Posted by a list to itself when the user is done with a divider. wParam is the id of its column;
// lParam and result are not used.
inline constexpr UINT kKeepWidth = WM_APP + 0x1C5C;

}  // namespace mc

namespace fw {

template <>
struct Crack<mc::kKeepWidth> {  // (ColumnId)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(mc::toColumnId(w));
    }
};

// A row, or all of them (-1).
inline std::optional<std::size_t> rowParameter(WPARAM w) {
    const auto row = static_cast<int>(w);
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

// Cells hold single-byte texts.
inline std::string narrow(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (size <= 0) return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, bytes.data(), size, nullptr, nullptr);
    bytes.pop_back();
    return bytes;
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
struct Crack<LVM_GETNEXTITEM> {  // (row to start from, UINT flags)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(rowParameter(w), static_cast<UINT>(LOWORD(l)));
    }
};
template <>
struct Crack<LVM_GETNEXTITEMINDEX> {  // (LVITEMINDEX& start in, row found out; UINT flags)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        return handler(*reinterpret_cast<LVITEMINDEX*>(w), static_cast<UINT>(LOWORD(l)));
    }
};
template <>
struct Crack<LVM_SETSELECTIONMARK> {  // (row)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(rowParameter(static_cast<WPARAM>(l)));
    }
};
template <>
struct Crack<LVM_FINDITEMA> {  // (row to start from, const std::string& text, UINT flags)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        const auto& asked = *reinterpret_cast<const LVFINDINFOA*>(l);
        return handler(rowParameter(w), std::string(asked.psz != nullptr ? asked.psz : ""),
                       asked.flags);
    }
};
template <>
struct Crack<LVM_FINDITEMW> {  // the same
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM l) {
        const auto& asked = *reinterpret_cast<const LVFINDINFOW*>(l);
        return handler(rowParameter(w), narrow(asked.psz != nullptr ? asked.psz : L""),
                       asked.flags);
    }
};

}  // namespace fw
