#include "editors/combo_editor.h"

#include <algorithm>

namespace mc {
namespace {

// Posted by the editor to itself when a choice was taken from the dropped list: the control is
// still busy closing it. wParam, lParam and result are not used.
constexpr UINT kTaken = WM_APP + 0x1C59;

constexpr int kDropHeight = 200;

}  // namespace

CComboEditor::CComboEditor(CellEditorOwner& owner, std::vector<std::string> choices)
    : CCellEditor(owner, {WC_COMBOBOXA, CBS_DROPDOWNLIST | WS_VSCROLL, 0, kDropHeight}),
      m_choices(std::move(choices)) {}

const fw::MessageMap& CComboEditor::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onAnyCommand<&CComboEditor::onComboCommand>(),
        fw::on<kTaken, &CComboEditor::onTaken>(),
    };
    static const fw::MessageMap map{&baseMap(), entries};
    return map;
}

void CComboEditor::fill(std::string_view text) {
    auto chosen = std::find(m_choices.begin(), m_choices.end(), text);
    if (chosen == m_choices.end()) chosen = m_choices.emplace(m_choices.begin(), text);
    for (const std::string& choice : m_choices) combo().add(choice);
    combo().select(static_cast<std::size_t>(chosen - m_choices.begin()));
}

// The control makes itself as high as its font asks for.
int CComboEditor::fitHeight(int) const {
    return fw::heightOf(fw::screenRect(control()));
}

std::string CComboEditor::text() const {
    const auto chosen = combo().selected();
    return chosen ? m_choices[*chosen] : std::string();
}

// The control says that a choice was taken, or was not, at other times too.
void CComboEditor::onComboCommand(UINT, UINT code) {
    if (code == CBN_DROPDOWN) m_beforeDrop = combo().selected();
    if ((code != CBN_SELENDOK && code != CBN_SELENDCANCEL) || !m_beforeDrop) return;
    if (code == CBN_SELENDOK)
        PostMessageA(handle(), kTaken, 0, 0);
    else
        combo().select(m_beforeDrop);
    m_beforeDrop.reset();
}

}  // namespace mc
