#include "details/detail_line.h"

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace mc {

bool CDetailLine::create(HWND parent, UINT id) {
    static const fw::WindowClass windowClass{"MakerChecker.DetailLine", CS_HREDRAW | CS_VREDRAW,
                                             IDC_ARROW, -1};
    return CWindow::create(windowClass, "", WS_CHILD | WS_VISIBLE, 0, RECT{}, parent, id);
}

const fw::MessageMap& CDetailLine::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_PAINT, &CDetailLine::onPaint>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

AboutLine CDetailLine::present() {
    const auto focused = m_lines.rows().selection().focusedRow();
    const LineGroups::Line* const line = focused ? m_lines.lineAt(*focused) : nullptr;
    if (line != nullptr && !line->isHeading()) {
        AboutLine about = lineAbout(*line->row);
        if (!about.text.empty()) return about;
    }
    if (!m_slips) {
        SlipsOf slips;
        m_lines.forEachRow([&](const sMCListStruct& row) { slips.add(row); });
        m_slips = slips.line();
    }
    return *m_slips;
}

void CDetailLine::update() {
    AboutLine now = present();
    if (now.text == m_shown.text || handle() == nullptr) return;
    m_shown = std::move(now);
    SetWindowTextA(handle(), m_shown.text.c_str());
    InvalidateRect(handle(), nullptr, FALSE);
}

// A slip has a bar at its left, in the colours of a selection.
void CDetailLine::onPaint() {
    const fw::PaintScope paint(handle());
    const HDC dc = paint.dc();
    RECT area = clientRect();
    FillRect(dc, &area, GetSysColorBrush(COLOR_3DFACE));
    const RECT bar{area.left, area.top, area.left + scaled(4), area.bottom};
    if (m_shown.slip) FillRect(dc, &bar, GetSysColorBrush(COLOR_HIGHLIGHT));
    const fw::SelectScope font(dc, fw::fontOf(GetParent(GetParent(handle()))));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    area.left += scaled(8);
    area.right -= scaled(4);
    area.top += scaled(2);
    DrawTextA(dc, m_shown.text.c_str(), -1, &area,
              DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS | DT_NOPREFIX);
}

}  // namespace mc
