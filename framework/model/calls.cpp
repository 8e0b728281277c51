#include "framework/model/calls.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace fw {
namespace {

int depth = 0;
int endedDepth = 0;  // calls up to this depth have ended
std::vector<std::shared_ptr<const void>> retired;

}  // namespace

Call::Call() noexcept {
    ++depth;
}

// In the order in which they were retired; destroying one may retire another.
Call::~Call() {
    while (depth == 1 && !retired.empty()) {
        auto going = std::exchange(retired, {});
        for (auto& object : going) object.reset();
    }
    --depth;
    endedDepth = std::min(endedDepth, depth);
}

int callsUnderWay() noexcept {
    return depth;
}

void retire(std::shared_ptr<const void> object) {
    if (depth > 0) retired.push_back(std::move(object));
}

void endOuterCalls() noexcept {
    endedDepth = std::max(endedDepth, depth - 1);
}

bool callEnded() noexcept {
    return depth > 0 && depth <= endedDepth;
}

}  // namespace fw
