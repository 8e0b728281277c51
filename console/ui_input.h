// A user's hands for the play driver: everything is posted, so that it comes through the message
// loop (and through what watches it) like a real mouse and a real keyboard, and so that nothing
// blocks when it opens a dialog.
#pragma once

#include <windows.h>

#include <string>

namespace zek::ui {

// A click in the middle of a window.
void click(HWND window);

// Makes these rows of a list the selected ones, and the last of them the focused one. The list gets
// the focus, as from a click.
void selectOnly(HWND list, int row);
void alsoSelect(HWND list, int row);
void doubleClickRow(HWND list, int row);
// A click with the right button on a row of a list, and on the caption of a column.
void contextClickRow(HWND list, int row);
void contextClickHeader(HWND list, int column);
// Takes an item of a drop-down list, a list box or a list view, and tells the parent as the mouse
// would. False when there is none with this text.
bool choose(HWND control, const std::string& item);
// A click on the caption of a list's column.
void clickCaption(HWND list, int column);

// Posts characters to the window with the focus. False when there is none.
bool type(const std::string& text);

// A key with its modifiers: one name of a play script's keys ("Ctrl+C", "F2"). Goes to the window
// with the focus, else to `fallback`. False for an unknown key.
bool pressKey(const std::string& name, HWND fallback);
// Ends what pressKey() holds down. To be called when its key has arrived.
void releaseModifiers();

// A click with the right button, a double-click or a press of the left one in a window's caption.
void contextClickCaption(HWND window);
void doubleClickCaption(HWND window);
void pressCaptionClose(HWND window);

}  // namespace zek::ui
