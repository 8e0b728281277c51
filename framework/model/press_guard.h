// Tells a press of the mouse from a repetition of the one before it.
#pragma once

namespace fw {

struct MousePress {
    unsigned time = 0;             // milliseconds, as messages are stamped
    int x = 0, y = 0;              // screen
    const void* window = nullptr;  // the pressed one
};

// What counts as a double-click on this machine: how soon after the first press, how close to it.
struct DoubleClickLimits {
    unsigned time;
    int x, y;
};

// A press repeats the one before it when it comes soon after it, on the same window or at the same
// spot. The spot counts because a window that the first press closed may have covered this one.
// Three quick presses are one press: each repeats the one before it.
inline bool repeatsPress(const MousePress& before, const MousePress& press,
                         const DoubleClickLimits& limits) {
    const auto within = [](int a, int b, int limit) { return a - b <= limit && b - a <= limit; };
    return before.window != nullptr && press.time - before.time <= limits.time &&
           (before.window == press.window ||
            (within(before.x, press.x, limits.x) && within(before.y, press.y, limits.y)));
}

}  // namespace fw
