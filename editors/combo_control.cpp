#include "editors/combo_control.h"

#include <algorithm>

#include "editors/cell_editor.h"

namespace mc {
namespace {

// Posted by the control to itself when a choice was taken from the dropped list: it is
// still busy closing that. wParam, lParam and result are not used.
constexpr UINT kTaken = WM_APP + 0x1C59;

constexpr int kDropHeight = 200;

}  // namespace

CComboControl::CComboControl(std::vector<std::string> choices)
    : CCellControl({WC_COMBOBOXA, CBS_DROPDOWNLIST | WS_VSCROLL, 0, kDropHeight}),
      m_choices(std::move(choices)) {}

const fw::MessageMap& CComboControl::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<kTaken, &CComboControl::onTaken>(),
    };
    static const fw::MessageMap map{&baseMap(), entries};
    return map;
}

void CComboControl::fill(std::string_view text) {
    auto chosen = std::find(m_choices.begin(), m_choices.end(), text);
    if (chosen == m_choices.end()) chosen = m_choices.emplace(m_choices.begin(), text);
    for (const std::string& choice : m_choices) combo().add(choice);
    combo().select(static_cast<std::size_t>(chosen - m_choices.begin()));
}

// The control makes itself as high as its font asks for.
int CComboControl::fitHeight(int) const {
    return fw::heightOf(fw::screenRect(handle()));
}

std::string CComboControl::text() const {
    const auto chosen = combo().selected();
    return chosen ? m_choices[*chosen] : std::string();
}

// The control says that a choice was taken, or was not, at other times too.
void CComboControl::onCommand(UINT code) {
    if (code == CBN_DROPDOWN) m_beforeDrop = combo().selected();
    if ((code != CBN_SELENDOK && code != CBN_SELENDCANCEL) || !m_beforeDrop) return;
    if (code == CBN_SELENDOK)
        PostMessageA(handle(), kTaken, 0, 0);
    else
        combo().select(m_beforeDrop);
    m_beforeDrop.reset();
}

void CComboControl::onTaken() {
    editor().end(EditEnd::commit);
}

}  // namespace mc
