#include "editors/edit_editor.h"

#include "editors/model/typed_text.h"
#include "framework/controls.h"

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
    fw::Edit(control()).setLimit(kMaxText);
}

// An edit draws its text at its top, so it is made only as high as the text and centred in the
// cell.
int CEditEditor::fitHeight(int) const {
    return textHeight();
}

void CEditEditor::select() {
    fw::Edit(control()).selectAll();
}

std::string CEditEditor::text() const {
    return fw::textOf(control());
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
    const auto [first, end] = fw::Edit(control()).selection();
    const auto kept = CEditEditor::text().size() - (end - first);
    return kept + pasted.size() <= kMaxText;
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
