#include "editors/cell_control.h"

#include "editors/cell_editor.h"

namespace mc {

bool CCellControl::open(CCellEditor& editor, HFONT font, std::string_view text) {
    m_editor = &editor;
    const RECT room = editor.clientRect();
    const HWND made = fw::makeControl(
        m_kind.windowClass, "", WS_CHILD | WS_VISIBLE | m_kind.style, 0,
        {room.right, room.bottom + editor.scaled(m_kind.dropHeight)}, editor.handle(), 0);
    if (!subclass(made)) return false;
    fw::setFont(made, font);
    fill(text);
    return true;
}

// A wheel turned by accident changes no value.
const fw::MessageMap& CCellControl::baseMap() {
    static constexpr fw::MessageEntry entries[] = {
        fw::observe<WM_SETFOCUS, &CCellControl::onFocus>(),
        fw::on<WM_KILLFOCUS, &CCellControl::onFocusLost>(),
        fw::offer<WM_CHAR, &CCellControl::onCharacter>(),
        fw::offer<WM_PASTE, &CCellControl::onPaste>(),
        fw::offer<WM_MOUSEWHEEL, &CCellControl::onWheel>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

void CCellControl::onFocus() {
    m_editor->focusCame();
}

// The control handles the message first: the editor may be destroyed when it hears of it.
void CCellControl::onFocusLost() {
    controlDefault(WM_KILLFOCUS, reinterpret_cast<WPARAM>(GetFocus()), 0);
    m_editor->focusLost();
}

int CCellControl::textHeight() const {
    return static_cast<int>(fw::metricsOf(fw::fontOf(handle()), handle()).tmHeight);
}

}  // namespace mc
