#include "framework/docking_site.h"

#include <windowsx.h>

#include <algorithm>

#include "framework/window.h"
#include "sdk/docking.h"

namespace fw {
CDockingSite::CDockingSite(HWND frame, std::function<void()> relayout)
    : m_frame(frame),
      m_relayout(std::move(relayout)),
      m_attach(RegisterWindowMessageA(kDockAttachMessage)),
      m_detach(RegisterWindowMessageA(kDockDetachMessage)),
      m_query(RegisterWindowMessageA(kDockQueryMessage)) {}

void CDockingSite::dock(HWND pane, unsigned side, int extent) {
    const DockedPane wanted{side, extent > 0 ? extent : defaultExtent(side)};
    const auto found = std::find_if(m_docked.begin(), m_docked.end(),
                                    [&](const Docked& each) { return each.window == pane; });
    if (found != m_docked.end())
        found->pane = wanted;
    else
        m_docked.push_back({pane, wanted, {}});
    m_relayout();
}

bool CDockingSite::remove(HWND pane) {
    if (m_dragged == pane) m_dragged = nullptr;
    const bool had =
        std::erase_if(m_docked, [&](const Docked& each) { return each.window == pane; }) != 0;
    if (had) m_relayout();
    return had;
}

Rect CDockingSite::layOut(Rect client) {
    m_client = client;
    std::vector<DockedPane> panes;
    panes.reserve(m_docked.size());
    for (const Docked& each : m_docked) panes.push_back(each.pane);
    const DockLayout layout = fw::layOut(client, panes, metrics());
    for (std::size_t i = 0; i < m_docked.size(); ++i) {
        const Rect& place = layout.places[i].pane;
        m_docked[i].place = layout.places[i];
        SetWindowPos(m_docked[i].window, nullptr, place.left, place.top, place.width(),
                     place.height(), SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    return layout.inner;
}

bool CDockingSite::handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_DESTROY) {
        remove(reinterpret_cast<HWND>(lParam));
        return false;
    }
    return answerDocking(message, lParam, result) || answerMouse(message, wParam, lParam, result);
}

bool CDockingSite::answerDocking(UINT message, LPARAM lParam, LRESULT& result) {
    if (message != m_attach && message != m_detach && message != m_query) return false;
    auto* request = reinterpret_cast<DockRequest*>(lParam);
    result = 0;
    if (request == nullptr || request->structSize != sizeof(DockRequest)) return true;
    const HWND pane = static_cast<HWND>(request->pane);
    if (message == m_detach) {
        result = remove(pane);
    } else if (message == m_attach) {
        if (IsWindow(pane) == 0) return true;
        if (GetParent(pane) != m_frame) SetParent(pane, m_frame);
        dock(pane, request->side, request->extent);
        result = 1;
    } else {
        POINT at{request->x, request->y};
        ScreenToClient(m_frame, &at);
        request->side = sideAt(m_client, at.x, at.y, scaledFor(m_frame, 48));
        if (request->side == 0) return true;
        const Rect place =
            placeAtSide(m_client, request->side, defaultExtent(request->side), metrics());
        POINT corners[2] = {{place.left, place.top}, {place.right, place.bottom}};
        MapWindowPoints(m_frame, nullptr, corners, 2);
        request->place = {static_cast<int>(corners[0].x), static_cast<int>(corners[0].y),
                          static_cast<int>(corners[1].x), static_cast<int>(corners[1].y)};
        result = 1;
    }
    return true;
}

bool CDockingSite::answerMouse(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_SETCURSOR: {
            if (reinterpret_cast<HWND>(wParam) != m_frame || LOWORD(lParam) != HTCLIENT)
                return false;
            POINT cursor{};
            GetCursorPos(&cursor);
            ScreenToClient(m_frame, &cursor);
            const Docked* sash = sashAt(cursor);
            if (sash == nullptr) return false;
            SetCursor(
                LoadCursorA(nullptr, acrossIsHeight(sash->pane.side) ? IDC_SIZENS : IDC_SIZEWE));
            result = 1;
            return true;
        }
        case WM_LBUTTONDOWN: {
            const Docked* sash = sashAt(at);
            if (sash == nullptr) return false;
            m_dragged = sash->window;
            SetCapture(m_frame);
            return true;
        }
        case WM_MOUSEMOVE:
            if (m_dragged == nullptr) return false;
            dragTo(at);
            return true;
        case WM_LBUTTONUP:
            if (m_dragged == nullptr) return false;
            ReleaseCapture();
            return true;
        case WM_CAPTURECHANGED:
            m_dragged = nullptr;
            return false;
        default:
            return false;
    }
}

CDockingSite::Docked* CDockingSite::sashAt(POINT client) {
    for (Docked& each : m_docked)
        if (each.place.sash.contains(client.x, client.y)) return &each;
    return nullptr;
}

void CDockingSite::dragTo(POINT client) {
    for (Docked& each : m_docked) {
        if (each.window != m_dragged) continue;
        each.pane.extent = extentTo(each.place.pane, each.pane.side, client.x, client.y);
        m_relayout();
        return;
    }
}

// A pane that is the frame's main work gets the greater part of the height, or half of the width.
int CDockingSite::defaultExtent(unsigned side) const {
    return acrossIsHeight(side) ? m_client.height() * 2 / 3 : m_client.width() / 2;
}

DockMetrics CDockingSite::metrics() const {
    return {scaledFor(m_frame, 5), scaledFor(m_frame, 80), scaledFor(m_frame, 60)};
}

}  // namespace fw
