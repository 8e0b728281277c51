#include "frames/model/control_pos.h"

#include <algorithm>

namespace mc {

using fw::Rect;

namespace {

std::vector<Rect> movedLeft(std::span<const Rect> own, int by) {
    std::vector<Rect> places(own.begin(), own.end());
    for (Rect& place : places) {
        place.left -= by;
        place.right -= by;
    }
    return places;
}

std::vector<Rect> flowed(std::span<const Rect> own, int width, const RowMetrics& metrics) {
    const int room = std::max(width - 2 * metrics.margin, 0);
    std::vector<Rect> places;
    int left = metrics.margin, top = own.front().top, bottom = top;
    for (const Rect& each : own) {
        const int taken = std::min(each.width(), room);
        if (left > metrics.margin && left + taken > metrics.margin + room) {
            left = metrics.margin;
            top = bottom + metrics.gap;
        }
        places.push_back({left, top, left + taken, top + each.height()});
        left += taken + metrics.gap;
        bottom = std::max(bottom, places.back().bottom);
    }
    return places;
}

}  // namespace

std::vector<Rect> placeRow(std::span<const Rect> own, int width, const RowMetrics& metrics) {
    if (own.empty()) return {};
    const int missing = std::max(own.back().right + metrics.margin - width, 0);
    if (missing <= own.front().left - metrics.margin) return movedLeft(own, missing);
    return flowed(own, width, metrics);
}

}  // namespace mc
