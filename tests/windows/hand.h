// A user's hand: mouse and keyboard through the platform's input queue (SendInput), so that hit
// tests, activation, capture, focus and default buttons are the real ones.
//
// A call from a test returns when its input was handled and the queue is empty. Input that opens a
// loop of its own (a message box, a menu, the dragging of a window) keeps the call from returning:
// during() gives such a loop its input. A call from within a step of during(), or from a hook, only
// queues its input, which follows as soon as the running loop has emptied the queue.
//
// No key or button stays down: a loop that gets no input for five seconds is a failure and is
// ended with Esc.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace hand {

struct Keys {
    bool ctrl = false, shift = false, alt = false;
};
inline constexpr Keys kCtrl{.ctrl = true}, kShift{.shift = true}, kAlt{.alt = true};
inline constexpr Keys kCtrlShift{.ctrl = true, .shift = true};

enum class Button { left, right };

// Points are screen points; a window is clicked in the middle of what is visible of it, a row near
// the start of its cell, after it was scrolled into sight. Two clicks never make a double-click.
void moveTo(POINT at);
void click(POINT at, Keys keys = {}, Button button = Button::left);
void click(HWND window, Keys keys = {}, Button button = Button::left);
void clickRow(HWND list, int row, Keys keys = {}, int column = 0);
void doubleClick(POINT at);
void doubleClick(HWND window);
void doubleClickRow(HWND list, int row, int column = 0);
// Presses at `from`, moves in some steps, performs `held`, lets go at `to`; `escape` presses Esc
// before.
void drag(POINT from, POINT to, bool escape = false, const std::function<void()>& held = {});
void wheel(POINT at, int notches);
void wheel(HWND window, int notches);

// A key down and up. hold(): with `repeats` further key-downs between, as a held key sends them.
void key(WORD virtualKey, Keys keys = {});
void hold(WORD virtualKey, int repeats, Keys keys = {});
// Types characters, with Shift where they need it; those that the keyboard lacks come as from an
// input method.
void type(const char* text);

// Performs `act`. Whenever a loop that it opened waits for input, the next step is performed. A
// step that no loop was open for is a failure.
using Step = std::function<void()>;
void during(const Step& act, std::vector<Step> steps);

// Performs `act`. Whenever a loop that it opened waits for input, `each` is called, which must end
// the loop some time.
void duringEach(const Step& act, const Step& each);

// Handles messages until `condition` holds; false when it does not within ten seconds.
bool waitUntil(const std::function<bool()>& condition);

// The points that are used above.
POINT middle(HWND window);
POINT cell(HWND list, int row, int column = 0);

// Lets go of every key and button that is down.
void letGo();

}  // namespace hand
