// What the list of details sends to its edit owner, and to itself.
#pragma once

#include <string>
#include <string_view>

#include "details/model/detail_group.h"
#include "editors/edit_session.h"
#include "framework/message_map.h"

namespace mc {

// The end of an edit in a multi-line edit list.
struct EndOfEdit {
    sMCListStruct& row;        // still with the text from before the edit
    std::string_view column;   // the name of the edited column
    const std::string& typed;  // the new text
};

// Sent by a CMultiLineEditListCtrl to its edit owner when a text was typed, or an entry chosen (of
// several, the entries one after the other, with "," between them). wParam: the list's control id.
// lParam: an EndOfEdit. No result. The list shows afterwards what the row then holds.
inline constexpr UINT kEndOfEdit = 33789;
inline constexpr UINT kEndOfChoice = 33788;

// Sent by a CMultiLineEditListCtrl to its edit owner when an editor has closed, whatever became of
// its text. wParam, lParam and result are not used.
inline constexpr UINT kEditorClosed = WM_APP + 0x1C53;

// Sent by a CMultiLineEditListCtrl to its edit owner when the text in an editor may be another.
// wParam, lParam and result are not used.
inline constexpr UINT kValueTyped = WM_APP + 0x1C55;

// Posted by a CMultiLineEditListCtrl to itself when Tab or Shift+Tab ended an edit: the next row's
// editor is opened once that is over. wParam: the EditEnd. lParam and result are not used.
inline constexpr UINT kNextEditor = WM_APP + 0x1C51;

// Posted by a CMultiLineEditListCtrl to itself when cells move under an open editor: the editor
// follows its cell once they are there. wParam, lParam and result are not used.
inline constexpr UINT kFollowCell = WM_APP + 0x1C52;

}  // namespace mc

namespace fw {

template <>
struct Crack<mc::kEndOfEdit> {  // (const EndOfEdit&)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM, LPARAM l) {
        return handler(*reinterpret_cast<const mc::EndOfEdit*>(l));
    }
};
template <>
struct Crack<mc::kEndOfChoice> : Crack<mc::kEndOfEdit> {};
template <>
struct Crack<mc::kNextEditor> {  // (EditEnd)
    template <class Handler>
    static decltype(auto) with(Handler handler, WPARAM w, LPARAM) {
        return handler(static_cast<mc::EditEnd>(w));
    }
};

}  // namespace fw
