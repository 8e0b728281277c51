#include "framework/dock_frame.h"

namespace fw {
namespace {

DockRequest requestOf(HWND pane) {
    DockRequest request{};
    request.structSize = sizeof request;
    request.pane = pane;
    return request;
}

}  // namespace

LRESULT DockFrame::ask(UINT message, DockRequest& request, WPARAM wParam) const {
    return SendMessageA(m_frame, message, wParam, reinterpret_cast<LPARAM>(&request));
}

bool DockFrame::attach(HWND pane, unsigned side, int extent) const {
    DockRequest request = requestOf(pane);
    request.side = side;
    request.extent = extent;
    return ask(m_messages.attach, request) != 0;
}

void DockFrame::detach(HWND pane) const {
    DockRequest request = requestOf(pane);
    ask(m_messages.detach, request);
}

std::optional<DockFrame::Dock> DockFrame::recall(HWND pane) const {
    DockRequest request = requestOf(pane);
    if (ask(m_messages.recall, request) == 0) return std::nullopt;
    return Dock{request.side, request.extent};
}

std::optional<DockFrame::Target> DockFrame::targetAt(HWND pane, POINT screen, int extent) const {
    DockRequest request = requestOf(pane);
    request.x = screen.x;
    request.y = screen.y;
    request.extent = extent;
    if (ask(m_messages.query, request) == 0) return std::nullopt;
    const DockRectangle& place = request.place;
    return Target{request.side, {place.left, place.top, place.right, place.bottom}};
}

void DockFrame::leave(HWND pane, bool backwards) const {
    DockRequest request = requestOf(pane);
    if (ask(m_messages.nextPart, request, backwards ? 1 : 0) == 0) SetFocus(m_frame);
}

}  // namespace fw
