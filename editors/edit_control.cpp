#include "editors/edit_control.h"

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

CEditControl::CEditControl(std::string_view allowed)
    : CCellControl({WC_EDITA, ES_AUTOHSCROLL, WS_BORDER, 0}), m_allowed(allowed) {}

void CEditControl::fill(std::string_view text) {
    SetWindowTextA(handle(), std::string(text).c_str());
    fw::Edit(handle()).setLimit(kMaxText);
}

// An edit draws its text at its top, so it is made only as high as the text and centred in the
// cell.
int CEditControl::fitHeight(int) const {
    return textHeight();
}

void CEditControl::select() {
    fw::Edit(handle()).selectAll();
}

std::string CEditControl::text() const {
    return fw::textOf(handle());
}

// Text comes into an edit in more ways than keys and pasting; an input method's is one.
std::optional<std::string> CEditControl::refusal() const {
    const std::string typed = CEditControl::text();
    if (allAllowed(typed, m_allowed)) return {};
    return '"' + typed + "\" has characters that cannot be used here";
}

bool CEditControl::onCharacter(UINT character) {
    const TypedCharacter use = typedCharacter(character, m_allowed);
    if (use == TypedCharacter::selectAll) select();
    if (use == TypedCharacter::refused) beep();
    return use != TypedCharacter::text && use != TypedCharacter::command;
}

bool CEditControl::fits(std::string_view pasted) const {
    const auto [first, end] = fw::Edit(handle()).selection();
    const auto kept = CEditControl::text().size() - (end - first);
    return kept + pasted.size() <= kMaxText;
}

// All or nothing: a text that lost some of its characters would be another one.
bool CEditControl::onPaste() {
    const std::string clipboard = clipboardText(handle());
    const std::string_view pasted = firstLine(clipboard);
    if (allAllowed(pasted, m_allowed) && fits(pasted)) return false;
    beep();
    return true;
}

}  // namespace mc
