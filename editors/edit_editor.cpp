#include "editors/edit_editor.h"

#include "editors/model/typed_text.h"

namespace mc {
namespace {

// The clipboard's text; empty when it has none.
std::string clipboardText(HWND owner) {
    if (OpenClipboard(owner) == 0) return {};
    std::string text;
    if (const HANDLE data = GetClipboardData(CF_TEXT)) {
        if (const auto* bytes = static_cast<const char*>(GlobalLock(data))) {
            text.assign(bytes, strnlen(bytes, GlobalSize(data)));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

void beep() {
    MessageBeep(MB_OK);
}

}  // namespace

CEditEditor::CEditEditor(CellEditorOwner& owner, std::string_view allowed)
    : CCellEditor(owner, {WC_EDITA, ES_AUTOHSCROLL, WS_BORDER, 0}), m_allowed(allowed) {}

void CEditEditor::fill(std::string_view text) {
    SetWindowTextA(control(), std::string(text).c_str());
    SendMessageA(control(), EM_SETLIMITTEXT, kLongestText, 0);
}

// Its text stands at the top of an edit: one that is as high as the text is centered in the cell.
int CEditEditor::fitHeight(int) const {
    return textHeight();
}

void CEditEditor::select() {
    SendMessageA(control(), EM_SETSEL, 0, -1);
}

std::string CEditEditor::text() const {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(control())) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(control(), text.data(), static_cast<int>(text.size()))));
    return text;
}

// Text comes into an edit in more ways than keys and pasting; an input method's is one.
std::optional<std::string> CEditEditor::refusal() const {
    const std::string typed = CEditEditor::text();
    if (allAllowed(typed, m_allowed)) return {};
    return '"' + typed + "\" has characters that cannot be used here";
}

bool CEditEditor::onCharacter(UINT character) {
    const TypedCharacter use = typedCharacter(character, m_allowed);
    if (use == TypedCharacter::selectAll) select();
    if (use == TypedCharacter::refused) beep();
    return use != TypedCharacter::text && use != TypedCharacter::command;
}

bool CEditEditor::fits(std::string_view pasted) const {
    DWORD first = 0, last = 0;
    SendMessageA(control(), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    const auto kept = CEditEditor::text().size() - (last - first);
    return kept + pasted.size() <= kLongestText;
}

// All or nothing: a text that lost some of its characters would be another one.
bool CEditEditor::onPaste() {
    const std::string clipboard = clipboardText(control());
    const std::string_view pasted = firstLine(clipboard);
    if (allAllowed(pasted, m_allowed) && fits(pasted)) return false;
    beep();
    return true;
}

}  // namespace mc
