// One edit of a cell, from the text that was opened to its end.
//
// It ends once. A text that is refused never ends it, a text that is as it was opened is never
// refused. The owner that it asks may destroy the editor, and with it this object.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "editors/cell_control.h"

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

    // Its text may be another.
    virtual void editorTextChanged() {}

protected:
    ~CellEditorOwner() = default;
};

class EditSession {
public:
    // Both must outlive the object.
    EditSession(CellEditorOwner& owner, CCellControl& control)
        : m_owner(owner), m_control(control) {}

    // The control has its first text. Before that, the session is over.
    void begin();

    bool isOver() const { return m_over; }
    // Whether the owner is being asked.
    bool isAsking() const { return m_asking; }

    // Whether there is a text that the edit would end with.
    bool changed() const { return m_control.text() != m_opened; }
    // Why the text would be refused now.
    std::optional<std::string> refused() const;

    enum class Answer {
        ended,    // now, and the owner has the text
        over,     // before, or the editor was destroyed meanwhile
        refused,  // the text: the edit goes on
        asking,   // the owner is still being asked
    };
    Answer end(EditEnd how);

    // Has the owner say why the text is refused. False: it is not, or the editor was destroyed
    // meanwhile.
    bool tell();

    // Ends the edit without a word.
    void drop() { m_over = true; }

    // Expires with the session.
    std::weak_ptr<const bool> life() const { return m_life; }

private:
    CellEditorOwner& m_owner;
    CCellControl& m_control;
    std::shared_ptr<const bool> m_life = std::make_shared<const bool>(true);
    std::string m_opened;
    bool m_over = true;
    bool m_asking = false;
};

}  // namespace mc
