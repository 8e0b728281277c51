// What the editors of list cells have in common.
//
// An editor is made for one edit: it is constructed, open()ed over a cell, and ends once: by
// dialogKey(), by leave(), or by itself when the focus goes elsewhere. Then it has hidden itself,
// and its owner destroys it. The owner may do that at any time, from inside the calls of
// CellEditorOwner too; an editor that is destroyed before it ended ends without a word.
//
// A text that is refused never ends an edit: the editor stays open, the user gets a message, and
// the focus comes back to the text. A text that is as it was opened is never refused.
//
// The editor is a window of its own class that holds the control: what the control notifies
// reaches the editor and not the list.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "framework/hwnd.h"
#include "framework/window.h"

namespace mc {

// Why an edit ends.
enum class EditEnd {
    commit,    // Enter, or the focus went elsewhere
    cancel,    // Esc: the text counts for nothing
    next,      // Tab: commit, and go on with the next cell
    previous,  // Shift+Tab
};

// The list that the editor is in.
class CellEditorOwner {
public:
    // The edit is over; `typed` is the text to take, none when nothing was changed or it was
    // cancelled. The editor hides as soon as this returns; if the focus is still in it, the list
    // gets it. Runs inside changes of the focus: no message box here.
    virtual void editEnding(EditEnd end, const std::optional<std::string>& typed) = 0;

    // The text cannot be taken, and `message` tells the user why; show it. The editor stays open
    // and then gets the focus. Never runs inside a change of the focus.
    virtual void editRefused(const std::string& message) = 0;

    // The focus came into the editor or left it.
    virtual void editorFocusChanged() {}

protected:
    ~CellEditorOwner() = default;
};

class CCellEditor : public fw::CWindow {
public:
    ~CCellEditor() override;

    // Shows the editor over `cell` (client coordinates of `list`, whose child it becomes) with the
    // list's font, which must outlive it, and `text`, all of it selected, and takes the focus. It
    // is higher than the cell where the control needs more. False when it cannot be made.
    bool open(HWND list, const RECT& cell, HFONT font, std::string_view text);

    // It was opened with the mouse: what drops down does so at once.
    virtual void openedWithMouse() {}

    virtual std::string text() const = 0;

    // Enter, Esc, Tab or Shift+Tab (`shift`) while the editor or a part of it has the focus: ends
    // the edit. Esc with something dropped down closes only that. Of these keys only Tab does
    // anything while it is held. False: the key is not the editor's.
    bool dialogKey(UINT key, bool shift, bool repeated);

    // Ends the edit as the focus going elsewhere does: commits. True: it is over. False: the text
    // is refused, and the editor stays open; unless `tell` is false, the message comes as soon
    // as what happens now is over.
    bool leave(bool tell = true);

    // Whether there is a text that the edit would end with.
    bool changed() const { return text() != m_opened; }

    // Why the text would be refused now.
    std::optional<std::string> refused() const;

    // The cell is elsewhere now.
    void moveTo(const RECT& cell);

    // True when `window` is the editor or a part of it.
    virtual bool owns(HWND window) const { return fw::isWithin(handle(), window); }

protected:
    struct ControlKind {
        const char* windowClass;
        DWORD style;
        DWORD frame;     // the editor's own: WS_BORDER around a control without one
        int dropHeight;  // of what the control drops down, at 96 dots per inch
    };
    CCellEditor(CellEditorOwner& owner, const ControlKind& kind);

    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();

    HWND control() const;
    int textHeight() const;
    void end(EditEnd how);

    // Looks whether the focus is still here, once what happens now is over.
    void checkFocusLater() const;

    // Gives the new control its text.
    virtual void fill(std::string_view text) = 0;

    // How high the control is in a cell of height `room`; more where it needs more.
    virtual int fitHeight(int room) const = 0;

    virtual void select() {}

    // Why a text that was changed cannot be taken.
    virtual std::optional<std::string> refusal() const { return {}; }

    // Makes text() whole where the control keeps what is being typed to itself.
    virtual void finishTyping() {}

    // Something that the control dropped down.
    virtual bool dropped() const { return false; }
    virtual void closeDropped() {}

    // A typed character, or a paste; true: not for the control.
    virtual bool onCharacter(UINT) { return false; }
    virtual bool onPaste() { return false; }

private:
    class CControl;
    enum class Answer { over, refused, busy };

    Answer ask(EditEnd how);
    void tell();
    void close();
    void focusLost();
    void onCheckFocus();
    void onTimer(UINT_PTR) { onCheckFocus(); }
    void onDestroy() { m_over = true; }

    CellEditorOwner& m_owner;
    const ControlKind m_kind;
    std::unique_ptr<CControl> m_control;
    std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);  // dies with this
    std::string m_opened;  // text() at the beginning
    bool m_asking = false;
    bool m_mustTell = false;  // of the refused text, even while the focus is here
    bool m_over = false;
};

}  // namespace mc
