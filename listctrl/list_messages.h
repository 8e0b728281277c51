// What the handlers of list-view messages take.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "framework/message_map.h"
#include "listctrl/model/detail_group.h"

// Posted by a list to itself when a computed column's expression turns out to be invalid, so that
// the message box opens after the paint or pass that found it. wParam, lParam and result are not
// used.
inline constexpr UINT kTellInvalid = WM_APP + 0x1C50;

// The end of an edit in a multi-line edit list.
struct EndOfEdit {
    sMCListStruct& row;        // it still holds the text from before
    std::string_view column;   // the name of the edited column
    const std::string& typed;  // the text to take
};

// Sent by a CMultiLineEditListCtrl to its edit owner when a text was typed, or an entry chosen (of
// several, the entries stand side by side, with "," between them). wParam: the list's control id.
// lParam: an EndOfEdit. No result. The list shows afterwards what the row then holds.
inline constexpr UINT kEndOfEdit = 33789;
inline constexpr UINT kEndOfChoice = 33788;

// Posted by a list to itself when a column has another width: a header may tell of one item's width
// before it has moved the items behind it. wParam, lParam and result are not used.
inline constexpr UINT kHeaderMoved = WM_APP + 0x1C54;

// Sent by a CMultiLineEditListCtrl to its edit owner when an editor has closed, whatever became of
// its text. wParam, lParam and result are not used.
inline constexpr UINT kEditorClosed = WM_APP + 0x1C53;

// Posted by a CMultiLineEditListCtrl to itself when Tab or Shift+Tab ended an edit: the next row's
// editor is opened once that is over. wParam: the EditEnd. lParam and result are not used.
inline constexpr UINT kNextEditor = WM_APP + 0x1C51;

// Posted by a CMultiLineEditListCtrl to itself when cells move under an open editor: the editor
// follows its cell once they are there. wParam, lParam and result are not used.
inline constexpr UINT kFollowCell = WM_APP + 0x1C52;

namespace fw {

template <>
struct Crack<kEndOfEdit> {  // (const EndOfEdit&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<const EndOfEdit*>(l));
    }
};
template <>
struct Crack<kEndOfChoice> : Crack<kEndOfEdit> {};
template <>
struct Crack<kNextEditor> {  // (WPARAM how)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(w);
    }
};

// A row, or all of them (-1).
inline std::optional<std::size_t> rowParameter(WPARAM w) {
    const auto row = static_cast<int>(w);
    return row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt;
}

// In the single bytes that cells are made of.
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
