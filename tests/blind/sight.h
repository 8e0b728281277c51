// What a user sees of the workbench, read from the windows by the platform's messages.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/blind/server.h"

namespace blind {

struct Box {
    HWND window;
    std::string column, text;
    bool dropped, focused;
};

struct ListSight {
    HWND window = nullptr;
    std::vector<std::string> captions;
    std::vector<Texts> rows;  // of the columns that matter most
    std::vector<int> selected;
    int focused = -1;
    std::vector<Box> boxes;

    int column(const std::string& caption) const;  // -1: hidden
    std::string cell(int row, const std::string& caption) const;
    std::string readCell(int row,
                         const std::string& caption) const;  // of any column, from the list
};

struct Sight {
    HWND pane = nullptr, focus = nullptr;
    ListSight main, details;
    HWND editor = nullptr;
    RECT editorPlace{};
    std::string editedField;  // the caption of the row that had the focus, while an editor is open
    std::string strip;        // of the details
    std::string line;         // what a press would do

    std::vector<std::string> selectedKeys() const;
    std::string focusedKey() const;
    bool keysReachPane() const { return pane == focus || IsChild(pane, focus) != 0; }
    std::string tag;          // of the visible answer; empty: none, or not known
    bool tagVisible = false;  // else folded away, and remembered
    Texts editsOver(const Texts& received) const;  // values that differ, by caption
};
// Windows that `last` saw and that still exist are not searched again.
Sight look(const Sight& last);

// Whether an editor is open that has not the focus.
bool editorIsLeft(const Sight& last);

// Whether the strip names this change.
bool names(const std::string& strip, const std::string& key);

// The strip over the details; empty when it names no change.
std::string stripText(HWND detailsList);

// The button of the pane that is `window`, by its text; empty: none that can be pressed.
std::string buttonOf(HWND pane, HWND window);

}  // namespace blind
