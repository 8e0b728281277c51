#include "framework/docking_site.h"

#include <windowsx.h>

#include <algorithm>

#include "framework/hwnd.h"
#include "framework/platform.h"
#include "framework/window.h"

namespace fw {
namespace {

int leastExtent(HWND pane, unsigned side) {
    MINMAXINFO info{};
    SendMessageA(pane, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    const POINT& least = info.ptMinTrackSize;
    return static_cast<int>(acrossIsHeight(side) ? least.y : least.x);
}

BOOL CALLBACK takeOwned(HWND window, LPARAM found) {
    auto& parts = *reinterpret_cast<std::vector<HWND>*>(found);
    const bool tool = (GetWindowLongPtrA(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
    if (GetWindow(window, GW_OWNER) == parts.front() && tool && IsWindowVisible(window) != 0)
        parts.push_back(window);
    return TRUE;
}

DockMetrics metricsIn(HWND frame) {
    return {scaledFor(frame, 5), scaledFor(frame, 80), scaledFor(frame, 60)};
}

}  // namespace

CDockingSite::CDockingSite(HWND frame, std::function<void()> relayout)
    : m_frame(frame), m_relayout(std::move(relayout)) {}

CDockingSite::Docked* CDockingSite::docked(HWND window) {
    const auto found = std::find_if(m_docked.begin(), m_docked.end(),
                                    [&](const Docked& each) { return each.window == window; });
    return found != m_docked.end() ? &*found : nullptr;
}

void CDockingSite::dock(HWND pane, unsigned side, int extent) {
    const Measure wanted{extent > 0 ? extent : defaultExtent(side), dpiOf(m_frame)};
    if (Docked* found = docked(pane)) {
        found->side = side;
        found->extent = wanted;
    } else {
        m_docked.push_back({pane, side, wanted, {}});
    }
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
    for (const Docked& each : m_docked)
        panes.push_back(paneOf(each.window, each.side, each.extent));
    const DockLayout layout = fw::layOut(client, panes, metricsIn(m_frame));
    for (std::size_t i = 0; i < m_docked.size(); ++i) {
        const Rect& rect = layout.docked[i].pane;
        m_docked[i].rects = layout.docked[i];
        SetWindowPos(m_docked[i].window, nullptr, rect.left, rect.top, rect.width(), rect.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    return layout.inner;
}

DockedPane CDockingSite::paneOf(HWND window, unsigned side, Measure extent) const {
    return {side, extent.at(dpiOf(m_frame)), leastExtent(window, side)};
}

bool CDockingSite::handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_DESTROY) {
        remove(reinterpret_cast<HWND>(lParam));
        return false;
    }
    if (message == WM_SYSCOLORCHANGE ||
        message == WM_SETTINGCHANGE)  // sent to top-level windows only
        for (const Docked& each : m_docked) SendMessageA(each.window, message, wParam, lParam);
    if (message == WM_DPICHANGED) cancelDrag();
    const bool active = LOWORD(wParam) != WA_INACTIVE, minimized = HIWORD(wParam) != 0;
    if (message == WM_ACTIVATE && !(active && minimized) && answerActivation(active)) {
        result = 0;
        return true;
    }
    return answerDocking(message, wParam, lParam, result) ||
           answerMouse(message, wParam, lParam, result);
}

// A docked window that had the focus gets it back with the next activation, which would give it to
// the frame; a pane knows which of its controls had it.
bool CDockingSite::answerActivation(bool active) {
    if (active) {
        const HWND window = std::exchange(m_focused, nullptr);
        if (docked(window) == nullptr || IsWindowVisible(window) == 0) return false;
        SetFocus(window);
        return true;
    }
    for (const Docked& each : m_docked) {
        if (!isWithin(each.window, GetFocus())) continue;
        m_focused = each.window;
        SendMessageA(each.window, WM_ACTIVATE, WA_INACTIVE, 0);
    }
    return false;
}

bool CDockingSite::answerDocking(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto& [attachId, detachId, queryId, nextPartId, recallId] = m_messages;
    if (message != attachId && message != detachId && message != queryId && message != nextPartId &&
        message != recallId)
        return false;
    auto* request = reinterpret_cast<DockRequest*>(lParam);
    result = 0;
    if (request == nullptr || request->structSize != sizeof(DockRequest)) return true;
    if (message == attachId) result = attach(*request);
    if (message == detachId) result = remove(static_cast<HWND>(request->pane));
    if (message == queryId) result = query(*request);
    if (message == recallId) result = recall(*request);
    if (message == nextPartId) {
        focusNext(wParam != 0);
        result = 1;
    }
    return true;
}

LRESULT CDockingSite::attach(DockRequest& request) {
    const HWND pane = static_cast<HWND>(request.pane);
    if (IsWindow(pane) == 0) return 0;
    if (GetParent(pane) != m_frame) SetParent(pane, m_frame);
    dock(pane, request.side, request.extent);
    keep(*docked(pane));
    return 1;
}

LRESULT CDockingSite::recall(DockRequest& request) const {
    const auto place =
        m_memory.recall ? m_memory.recall(textOf(static_cast<HWND>(request.pane))) : std::nullopt;
    if (!place) return 0;
    request.side = place->side;
    request.extent = toPixels(place->extent, dpiOf(m_frame));
    return 1;
}

void CDockingSite::keep(const Docked& held) const {
    if (m_memory.keep) m_memory.keep(textOf(held.window), {held.side, held.extent.units()});
}

LRESULT CDockingSite::query(DockRequest& request) {
    POINT at{request.x, request.y};
    ScreenToClient(m_frame, &at);
    request.side = sideAt(m_client, at.x, at.y, scaledFor(m_frame, 48));
    if (request.side == 0) return 0;
    const Rect rect = rectFor(static_cast<HWND>(request.pane), request.side, request.extent);
    POINT corners[2] = {{rect.left, rect.top}, {rect.right, rect.bottom}};
    MapWindowPoints(m_frame, nullptr, corners, 2);
    request.place = {static_cast<int>(corners[0].x), static_cast<int>(corners[0].y),
                     static_cast<int>(corners[1].x), static_cast<int>(corners[1].y)};
    return 1;
}

// Where dock() would put the pane.
Rect CDockingSite::rectFor(HWND pane, unsigned side, int extent) const {
    const DockedPane wanted =
        paneOf(pane, side, {extent > 0 ? extent : defaultExtent(side), dpiOf(m_frame)});
    std::vector<DockedPane> panes;
    std::size_t index = m_docked.size();
    for (const Docked& each : m_docked) {
        if (each.window == pane) index = panes.size();
        panes.push_back(each.window == pane ? wanted : paneOf(each.window, each.side, each.extent));
    }
    if (index == panes.size()) panes.push_back(wanted);
    return fw::layOut(m_client, panes, metricsIn(m_frame)).docked[index].pane;
}

// Floating panes are tool windows that the frame owns.
void CDockingSite::focusNext(bool backwards) {
    std::vector<HWND> parts{m_frame};
    EnumThreadWindows(GetCurrentThreadId(), takeOwned, reinterpret_cast<LPARAM>(&parts));
    for (const Docked& each : m_docked) parts.push_back(each.window);
    const HWND focus = GetFocus();
    std::size_t current = 0;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (focus == parts[i] || IsChild(parts[i], focus) != 0) current = i;
    SetFocus(parts[(current + (backwards ? parts.size() - 1 : 1)) % parts.size()]);
}

bool CDockingSite::cancelDrag() {
    if (m_dragged == nullptr) return false;
    ReleaseCapture();
    return true;
}

bool CDockingSite::answerMouse(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_SETCURSOR:
            return reinterpret_cast<HWND>(wParam) == m_frame && LOWORD(lParam) == HTCLIENT &&
                   showSashCursor(result);
        case WM_LBUTTONDOWN:
            return takeSash(at);
        case WM_MOUSEMOVE:
            if (Docked* held = docked(m_dragged))
                setExtent(*held,
                          {extentTo(held->rects.pane, held->side, at.x, at.y), dpiOf(m_frame)});
            return m_dragged != nullptr;
        case WM_LBUTTONUP:
            return releaseSash();
        case WM_CAPTURECHANGED:  // taken away: a bar that was let go is not dragged any more
            if (Docked* held = docked(std::exchange(m_dragged, nullptr)))
                setExtent(*held, m_extentBefore);
            return false;
        default:
            return false;
    }
}

bool CDockingSite::releaseSash() {
    const Docked* const held = docked(std::exchange(m_dragged, nullptr));
    if (held == nullptr) return false;
    keep(*held);
    ReleaseCapture();
    return true;
}

bool CDockingSite::showSashCursor(LRESULT& result) {
    const Docked* sash = sashAt(mousePointIn(m_frame));
    if (sash == nullptr) return false;
    SetCursor(LoadCursorA(nullptr, acrossIsHeight(sash->side) ? IDC_SIZENS : IDC_SIZEWE));
    result = 1;
    return true;
}

bool CDockingSite::takeSash(POINT client) {
    const Docked* sash = sashAt(client);
    if (sash == nullptr) return false;
    m_dragged = sash->window;
    m_extentBefore = sash->extent;
    SetCapture(m_frame);
    return true;
}

void CDockingSite::setExtent(Docked& held, Measure extent) {
    held.extent = extent;
    m_relayout();
}

CDockingSite::Docked* CDockingSite::sashAt(POINT client) {
    for (Docked& each : m_docked)
        if (each.rects.sash.contains(client.x, client.y)) return &each;
    return nullptr;
}

// A pane that is the frame's main work gets the greater part of the height, or half of the width.
int CDockingSite::defaultExtent(unsigned side) const {
    return acrossIsHeight(side) ? m_client.height() * 2 / 3 : m_client.width() / 2;
}

}  // namespace fw
