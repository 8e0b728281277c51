#include "console/status_bar.h"

#include "console/report_list.h"
#include "console/resource_ids.h"
#include "framework/hwnd.h"
#include "framework/window.h"

namespace zek {

void StatusBar::create(HWND frame) {
    m_font = messageFont(frame);
    m_window = fw::makeControl(STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, {},
                               frame, IDC_STATUS_BAR);
    fw::setFont(m_window, m_font.get());
}

void StatusBar::show(const std::vector<std::string>& parts) {
    if (parts == m_parts) return;
    m_parts = parts;
    showParts();
}

void StatusBar::showParts() const {
    std::vector<int> edges;
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        edges.push_back(
            i + 1 < m_parts.size() ? fw::scaledFor(m_window, 180) * static_cast<int>(i + 1) : -1);
    SendMessageA(m_window, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
    for (std::size_t i = 0; i < m_parts.size(); ++i)
        SendMessageA(m_window, SB_SETTEXTA, i,
                     reinterpret_cast<LPARAM>((" " + m_parts[i]).c_str()));
}

void StatusBar::followDpi() {
    followFont(GetParent(m_window), m_font, {m_window});
    showParts();
}

void StatusBar::fit() const {
    SendMessageA(m_window, WM_SIZE, 0, 0);
}

int StatusBar::height() const {
    return fw::heightOf(fw::screenRect(m_window));
}

}  // namespace zek
