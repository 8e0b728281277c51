#include "listctrl/cell_tip.h"

#include <string>
#include <utility>

namespace mc {
namespace {

constexpr UINT_PTR kTool = 1;
constexpr int kMaxWidth = 480;  // pixels at 96 dots per inch; longer texts wrap

}  // namespace

void CCellTip::onMouseMove(POINT client) {
    const auto cell = m_header.cellAt(client);
    if (cell == m_hovered) return;
    m_hovered = cell;
    hide();
    if (cell) show(*cell);
}

void CCellTip::forget() {
    m_hovered.reset();
    hide();
}

void CCellTip::followDpi() {
    forget();
    m_tip.followDpi();
}

void CCellTip::show(ListCell cell) {
    const std::string text = m_painter.tipOf(cell);
    if (text.empty()) return;
    if (!m_tip.created()) m_tip.create(m_list.handle());
    m_tip.setMaxWidth(m_list.scaled(kMaxWidth));
    m_shown = m_tip.add(m_list.handle(), kTool, m_header.rectOf(cell), text);
}

void CCellTip::hide() {
    if (std::exchange(m_shown, false)) m_tip.remove(m_list.handle(), kTool);
}

}  // namespace mc
