#include "listctrl/cell_tip.h"

#include <string>
#include <utility>

namespace mc {
namespace {

constexpr UINT_PTR kTool = 1;
constexpr std::size_t kMaxText = 1000;  // about a screenful
constexpr int kMaxWidth = 480;          // pixels at 96 dots per inch; longer texts wrap

}  // namespace

void CCellTip::onMouseMove(POINT client) {
    const auto cell = m_header.cellAt(client);
    if (cell == m_hovered) return;
    m_hovered = cell;
    hide();
    if (cell && m_painter.isCutOff(*cell)) show(*cell);
}

void CCellTip::forget() {
    m_hovered.reset();
    hide();
}

void CCellTip::show(ListCell cell) {
    if (!m_tip.created()) m_tip.create(m_list.handle());
    m_tip.setMaxWidth(m_list.scaled(kMaxWidth));
    const std::string_view text = m_content.text(cell.row, m_content.columnAt(cell.item));
    m_shown = m_tip.add(m_list.handle(), kTool, m_header.rectOf(cell),
                        std::string(text.substr(0, kMaxText)));
}

void CCellTip::hide() {
    if (std::exchange(m_shown, false)) m_tip.remove(m_list.handle(), kTool);
}

}  // namespace mc
