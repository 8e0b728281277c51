#include "frames/model/control_pos.h"

#include <algorithm>

namespace mc {

using fw::Rect;

namespace {

std::vector<Rect> movedLeft(std::span<const Rect> own, int by) {
    std::vector<Rect> rects(own.begin(), own.end());
    for (Rect& rect : rects) {
        rect.left -= by;
        rect.right -= by;
    }
    return rects;
}

std::vector<Rect> flowed(std::span<const Rect> own, int width, const RowMetrics& metrics) {
    const int room = std::max(width - 2 * metrics.margin, 0);
    std::vector<Rect> rects;
    int left = metrics.margin, top = own.front().top, bottom = top;
    for (const Rect& each : own) {
        const int taken = std::min(each.width(), room);
        if (left > metrics.margin && left + taken > metrics.margin + room) {
            left = metrics.margin;
            top = bottom + metrics.gap;
        }
        rects.push_back({left, top, left + taken, top + each.height()});
        left += taken + metrics.gap;
        bottom = std::max(bottom, rects.back().bottom);
    }
    return rects;
}

}  // namespace

std::vector<Rect> placeRow(std::span<const Rect> own, int width, const RowMetrics& metrics) {
    if (own.empty()) return {};
    const int missing = std::max(own.back().right + metrics.margin - width, 0);
    if (missing <= own.front().left - metrics.margin) return movedLeft(own, missing);
    return flowed(own, width, metrics);
}

}  // namespace mc
