#include "framework/model/dock_layout.h"

#include <algorithm>

#include "sdk/docking.h"

namespace fw {
namespace {

// Cuts `thickness` off `room` at `side`; returns the piece cut off.
Rect cut(Rect& room, unsigned side, int thickness) {
    Rect piece = room;
    switch (side) {
        case kDockLeft:
            piece.right = room.left = room.left + thickness;
            break;
        case kDockRight:
            piece.left = room.right = room.right - thickness;
            break;
        case kDockTop:
            piece.bottom = room.top = room.top + thickness;
            break;
        default:
            piece.top = room.bottom = room.bottom - thickness;
            break;
    }
    return piece;
}

int allowedExtent(const Rect& room, const DockedPane& pane, const DockMetrics& metrics) {
    const int across = acrossIsHeight(pane.side) ? room.height() : room.width();
    const int most = std::max(across - metrics.sash - metrics.minimumInner, 0);
    return std::min(std::max({pane.extent, pane.least, metrics.minimumPane}), most);
}

}  // namespace

bool acrossIsHeight(unsigned side) {
    return side == kDockTop || side == kDockBottom;
}

DockLayout layOut(Rect client, std::span<const DockedPane> panes, const DockMetrics& metrics) {
    client.right = std::max(client.left, client.right);
    client.bottom = std::max(client.top, client.bottom);
    DockLayout layout;
    layout.inner = client;
    layout.docked.reserve(panes.size());
    for (const DockedPane& pane : panes) {
        Rect& room = layout.inner;
        const int across = acrossIsHeight(pane.side) ? room.height() : room.width();
        DockRects rects;
        rects.pane = cut(room, pane.side, allowedExtent(room, pane, metrics));
        rects.sash = cut(room, pane.side, std::min(metrics.sash, across));
        layout.docked.push_back(rects);
    }
    return layout;
}

unsigned sideAt(Rect client, int x, int y, int band) {
    if (!client.contains(x, y)) return 0;
    const struct {
        unsigned side;
        int distance;
    } edges[] = {{kDockLeft, x - client.left},
                 {kDockTop, y - client.top},
                 {kDockRight, client.right - 1 - x},
                 {kDockBottom, client.bottom - 1 - y}};
    const auto& nearest =
        *std::min_element(std::begin(edges), std::end(edges),
                          [](const auto& a, const auto& b) { return a.distance < b.distance; });
    return nearest.distance < band ? nearest.side : 0;
}

int extentTo(Rect room, unsigned side, int x, int y) {
    switch (side) {
        case kDockLeft:
            return x - room.left;
        case kDockRight:
            return room.right - x;
        case kDockTop:
            return y - room.top;
        default:
            return room.bottom - y;
    }
}

}  // namespace fw
