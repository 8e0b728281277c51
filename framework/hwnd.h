// What any window can be asked, whoever made it.
#pragma once

#include <windows.h>

#include <string>

namespace fw {

// The window's own text: a caption, or what an edit holds.
std::string textOf(HWND window);

// Null: the system's.
HFONT fontOf(HWND window) noexcept;
void setFont(HWND window, HFONT font) noexcept;

// Measures of a font on the window's screen.
TEXTMETRICA metricsOf(HFONT font, HWND window) noexcept;

// What four dialog units across and eight down are in pixels, in a dialog with this font.
SIZE dialogUnits(HFONT font, HWND window) noexcept;

// The whole window on the screen, and in its parent's client area.
RECT screenRect(HWND window) noexcept;
RECT rectInParent(HWND window) noexcept;

// Moves a window to `rect`, or as near to it as the work area of the monitor there allows. The
// upper left corner is always in sight.
void moveOnScreen(HWND window, RECT rect) noexcept;

// Where the mouse is: on the screen, and in a window's client area.
POINT mousePoint() noexcept;
POINT mousePointIn(HWND window) noexcept;

inline int widthOf(const RECT& rect) noexcept {
    return static_cast<int>(rect.right - rect.left);
}
inline int heightOf(const RECT& rect) noexcept {
    return static_cast<int>(rect.bottom - rect.top);
}

// Whether a key or mouse button was down when the message that is handled was sent.
inline bool isDown(int key) noexcept {
    return GetKeyState(key) < 0;
}

// Whether it is of the platform's class of dialogs and message boxes.
bool isDialog(HWND window) noexcept;

// Whether `window` is `root` or lies in it.
inline bool isWithin(HWND root, HWND window) noexcept {
    return window != nullptr && (window == root || IsChild(root, window) != 0);
}

}  // namespace fw
