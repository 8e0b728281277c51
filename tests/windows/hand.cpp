#include "tests/windows/hand.h"

#include <commctrl.h>

#include <algorithm>
#include <deque>

#include "tests/windows/test_host.h"

namespace hand {
namespace {

constexpr ULONGLONG kMaxIdle = 5000;   // milliseconds that a loop may wait for input
constexpr ULONGLONG kMaxWait = 10000;  // milliseconds until a condition that is waited for
constexpr WORD kExtended[] = {VK_UP,    VK_DOWN, VK_LEFT,   VK_RIGHT,  VK_HOME, VK_END,
                              VK_PRIOR, VK_NEXT, VK_INSERT, VK_DELETE, VK_APPS};

// What is still to be performed, in order; each when the queue is empty.
struct Stroke {
    Step perform;
    bool inLoop = false;  // only in a loop that the input opened
};
std::deque<Stroke> theStrokes;
Step theGuest;             // called in a loop that nothing is queued for
std::size_t theFront = 0;  // where the strokes that the present one queues go
bool theHandIsBusy = false;
ULONGLONG theLastStroke = 0;

// ---- Input ----

void send(INPUT input) {
    SendInput(1, &input, sizeof input);
}

void sendKey(WORD virtualKey, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyA(virtualKey, MAPVK_VK_TO_VSC));
    if (std::ranges::find(kExtended, virtualKey) != std::end(kExtended))
        input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    if (up) input.ki.dwFlags |= KEYEVENTF_KEYUP;
    send(input);
}

void sendCharacter(char character) {
    wchar_t wide = 0;
    MultiByteToWideChar(CP_ACP, 0, &character, 1, &wide, 1);
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = wide;
    for (const DWORD up : {0, KEYEVENTF_KEYUP}) {
        input.ki.dwFlags = KEYEVENTF_UNICODE | up;
        send(input);
    }
}

// Clicks are a second apart by their time stamps, unless they are meant as one double-click.
DWORD nextStamp(DWORD after) {
    static DWORD last = 0;
    last = std::max<DWORD>(last + after, GetTickCount());
    return last;
}

// Every event says where the pointer is: the platform below may move it between two of them.
void sendMouse(POINT at, DWORD flags, DWORD data = 0, DWORD stamp = 0) {
    const LONG left = GetSystemMetrics(SM_XVIRTUALSCREEN),
               top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    const LONG width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const LONG height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = ((at.x - left) * 65536 + width - 1) / width;
    input.mi.dy = ((at.y - top) * 65536 + height - 1) / height;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK;
    input.mi.mouseData = data;
    input.mi.time = stamp;
    send(input);
}

void sendModifiers(Keys keys, bool up) {
    if (keys.ctrl) sendKey(VK_CONTROL, up);
    if (keys.shift) sendKey(VK_SHIFT, up);
    if (keys.alt) sendKey(VK_MENU, up);
}

// ---- Order ----

void endStuckLoop() {
    ADD_FAILURE() << "a loop waited for input and there was none for it";
    letGo();
    sendKey(VK_ESCAPE, false);
    sendKey(VK_ESCAPE, true);
    theLastStroke = GetTickCount64();
}

void performNext() {
    const Stroke next = theStrokes.front();
    theStrokes.pop_front();
    theFront = 0;
    next.perform();
    theLastStroke = GetTickCount64();
}

// A timer's message comes when the queue is empty. run() takes it out of its own loop, so it is
// only dispatched by loops that the input opened.
void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD) {
    // A dialog shows itself when the queue is empty for the first time.
    const HWND active = GetActiveWindow();
    if (active != nullptr && IsWindowVisible(active) == 0) return;
    if (theStrokes.empty() && theGuest) theStrokes.push_back({theGuest});
    if (!theStrokes.empty())
        performNext();
    else if (GetTickCount64() - theLastStroke > kMaxIdle)
        endStuckLoop();
}

void emptyQueue(UINT_PTR timer) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_TIMER && message.hwnd == nullptr && message.wParam == timer)
            continue;
        dispatch(message);
    }
}

bool strokeIsDue() {
    return !theStrokes.empty() && !theStrokes.front().inLoop;
}

// Performs what is queued, and goes on until `enough` holds when the queue is empty.
void run(const std::function<bool()>& enough) {
    theHandIsBusy = true;
    theLastStroke = GetTickCount64();
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, onTimer);
    for (emptyQueue(timer); strokeIsDue() || !enough(); emptyQueue(timer))
        if (strokeIsDue())
            performNext();
        else
            MsgWaitForMultipleObjects(0, nullptr, FALSE, USER_TIMER_MINIMUM, QS_ALLINPUT);
    KillTimer(nullptr, timer);
    theHandIsBusy = false;
}

void queue(std::vector<Step> steps) {
    for (Step& step : steps)
        theStrokes.insert(theStrokes.begin() + static_cast<std::ptrdiff_t>(theFront++),
                          Stroke{std::move(step)});
    if (!theHandIsBusy) run([] { return true; });
}

struct ButtonFlags {
    DWORD down, up;
};
ButtonFlags flagsOf(Button button) {
    return button == Button::left ? ButtonFlags{MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP}
                                  : ButtonFlags{MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
}

// Down and up at once, for a pressed caption button.
std::vector<Step> clickSteps(POINT at, Keys keys, Button button) {
    const ButtonFlags flags = flagsOf(button);
    return {[=] { sendMouse(at, 0); },
            [=] {
                sendModifiers(keys, false);
                sendMouse(at, flags.down, 0, nextStamp(1000));
                sendMouse(at, flags.up);
                sendModifiers(keys, true);
            }};
}

// A caption button that is pressed looks for nothing but the mouse.
bool watchesMouseOnly(POINT at) {
    const auto hit = SendMessageA(WindowFromPoint(at), WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    return hit == HTCLOSE || hit == HTMINBUTTON || hit == HTMAXBUTTON || hit == HTSYSMENU;
}

void showRow(HWND list, int row) {
    SendMessageA(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace

// ---- Mouse ----

void moveTo(POINT at) {
    queue({[at] { sendMouse(at, 0); }});
}

void click(POINT at, Keys keys, Button button) {
    queue(clickSteps(at, keys, button));
}

void click(HWND window, Keys keys, Button button) {
    click(middle(window), keys, button);
}

void clickRow(HWND list, int row, Keys keys, int column) {
    showRow(list, row);
    click(cell(list, row, column), keys);
}

void doubleClick(POINT at) {
    std::vector<Step> steps = clickSteps(at, {}, Button::left);
    steps.emplace_back([=] {
        sendMouse(at, MOUSEEVENTF_LEFTDOWN, 0, nextStamp(20));
        sendMouse(at, MOUSEEVENTF_LEFTUP);
    });
    queue(std::move(steps));
}

void doubleClick(HWND window) {
    doubleClick(middle(window));
}

void doubleClickRow(HWND list, int row, int column) {
    showRow(list, row);
    doubleClick(cell(list, row, column));
}

void drag(POINT from, POINT to, bool escape, const Step& held) {
    constexpr int kSteps = 5;
    std::vector<Step> steps{[=] { sendMouse(from, 0); },
                            [=] { sendMouse(from, MOUSEEVENTF_LEFTDOWN, 0, nextStamp(1000)); }};
    for (int step = 1; step <= kSteps; ++step)
        steps.emplace_back([=] {
            sendMouse({from.x + (to.x - from.x) * step / kSteps,
                       from.y + (to.y - from.y) * step / kSteps},
                      0);
        });
    if (held) steps.push_back(held);
    if (escape)
        steps.emplace_back([] {
            sendKey(VK_ESCAPE, false);
            sendKey(VK_ESCAPE, true);
        });
    steps.emplace_back([=] { sendMouse(to, MOUSEEVENTF_LEFTUP); });
    if (!watchesMouseOnly(from)) return queue(std::move(steps));
    queue({[steps] {
        for (const Step& step : steps) step();
    }});
}

void wheel(HWND window, int notches) {
    wheel(middle(window), notches);
}

void wheel(POINT at, int notches) {
    queue({[at] { sendMouse(at, 0); },
           [=] { sendMouse(at, MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA)); }});
}

// ---- Keys ----

void key(WORD virtualKey, Keys keys) {
    hold(virtualKey, 0, keys);
}

void hold(WORD virtualKey, int repeats, Keys keys) {
    std::vector<Step> steps(static_cast<std::size_t>(repeats), [=] { sendKey(virtualKey, false); });
    steps.insert(steps.begin(), [=] {
        sendModifiers(keys, false);
        sendKey(virtualKey, false);
    });
    steps.emplace_back([=] {
        sendKey(virtualKey, true);
        sendModifiers(keys, true);
    });
    queue(std::move(steps));
}

void type(const char* text) {
    for (const char* at = text; *at != '\0'; ++at) {
        const SHORT known = VkKeyScanA(*at);
        if (known == -1)
            queue({[c = *at] { sendCharacter(c); }});
        else
            key(static_cast<WORD>(known & 0xFF),
                {(known & 0x200) != 0, (known & 0x100) != 0, (known & 0x400) != 0});
    }
}

// ---- Loops ----

void during(const Step& act, std::vector<Step> steps) {
    ASSERT_FALSE(theHandIsBusy) << "only a test itself waits for a loop";
    for (Step& step : steps) theStrokes.push_back({std::move(step), true});
    theFront = 0;
    act();
    EXPECT_TRUE(theStrokes.empty()) << theStrokes.size() << " steps had no loop to run in";
    theStrokes.clear();
}

void duringEach(const Step& act, const Step& each) {
    ASSERT_FALSE(theHandIsBusy) << "only a test itself waits for a loop";
    theGuest = each;
    act();
    theGuest = nullptr;
}

bool waitUntil(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + kMaxWait;
    run([&] { return condition() || GetTickCount64() > end; });
    return condition();
}

void letGo() {
    theStrokes.clear();
    for (WORD virtualKey = VK_BACK; virtualKey < 0xFF; ++virtualKey)
        if (GetAsyncKeyState(virtualKey) < 0) sendKey(virtualKey, true);
    POINT at{};
    GetCursorPos(&at);
    if (GetAsyncKeyState(VK_LBUTTON) < 0) sendMouse(at, MOUSEEVENTF_LEFTUP);
    if (GetAsyncKeyState(VK_RBUTTON) < 0) sendMouse(at, MOUSEEVENTF_RIGHTUP);
}

// ---- Points ----

POINT middle(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    for (HWND at = window; (GetWindowLongPtrA(at, GWL_STYLE) & WS_CHILD) != 0;) {
        at = GetParent(at);
        RECT outer{}, client{};
        GetClientRect(at, &client);
        MapWindowPoints(at, nullptr, reinterpret_cast<POINT*>(&client), 2);
        if (IntersectRect(&outer, &place, &client) != 0) place = outer;
    }
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

POINT cell(HWND list, int row, int column) {
    const RECT place = onScreen(list, cellRect(list, row, column));
    return {place.left + 5, (place.top + place.bottom) / 2};
}

}  // namespace hand
