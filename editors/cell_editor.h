// What the editors of list cells have in common.
//
// An editor is made for one edit: it is constructed, open()ed over a cell, asks its owner when it
// wants to end, and is destroyed by the owner afterwards (never from inside editEnding()).
#pragma once

#include <string>
#include <string_view>

#include "framework/window.h"

// Why an edit ends.
enum class EditEnd {
    commit,    // Enter, or the focus went elsewhere
    cancel,    // Esc: the text counts for nothing
    next,      // Tab: commit, and go on with the next cell
    previous,  // Shift+Tab
};

// The list that the editor stands in.
class CellEditorOwner {
public:
    // The editor wants to end with `text`. True: the edit is over, and the editor has hidden itself
    // when this returns to it. False: the text was refused (the owner said why), and the editor
    // stays open with it. May show a message box: the editor asks once per end, whatever happens to
    // the focus meanwhile.
    virtual bool editEnding(EditEnd end, const std::string& text) = 0;

protected:
    ~CellEditorOwner() = default;
};

class CCellEditor : public fw::CWindow {
public:
    explicit CCellEditor(CellEditorOwner& owner) : m_owner(owner) {}

    // Shows the editor over `cell` (client coordinates of `list`, whose child it becomes) with the
    // list's font and `text`, all of it selected, and takes the focus. False when it cannot be made.
    virtual bool open(HWND list, const RECT& cell, HFONT font, std::string_view text) = 0;

    virtual std::string text() const = 0;

    // Enter, Esc, Tab or Shift+Tab (`shift`) while the editor or a part of it has the focus: ends
    // the edit. False: the key is not the editor's.
    virtual bool dialogKey(UINT key, bool shift);

    // True when `window` is the editor or a part of it.
    bool owns(HWND window) const { return window == handle() || IsChild(handle(), window) != 0; }

protected:
    // Asks the owner once; false: the editor stays open.
    bool end(EditEnd how);

private:
    CellEditorOwner& m_owner;
    bool m_ending = false;
};
