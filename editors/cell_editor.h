// CCellEditor: the window over a list's cell in which its value is edited.
//
// An editor is made for one edit: it is constructed with the control to edit in, open()ed over a
// cell, and ends once: by dialogKey(), by leave(), or by itself when the focus goes elsewhere. Then
// it has hidden itself, and its owner destroys it. The owner may do that at any time, from inside
// the calls of CellEditorOwner too; an editor that is destroyed before it ended ends without a
// word.
//
// A text that is refused never ends an edit: the editor stays open, the user gets a message, and
// the focus comes back to the text. EditSession has these rules; here is when the focus asks for
// them.
//
// The editor is a window of its own class that holds the control: what the control notifies
// reaches the editor and not the list.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "editors/cell_control.h"
#include "editors/edit_session.h"
#include "framework/window.h"

namespace mc {

class CCellEditor final : public fw::CWindow {
public:
    // The owner must outlive the object.
    CCellEditor(CellEditorOwner& owner, std::unique_ptr<CCellControl> control);
    ~CCellEditor() override;

    // Shows the editor over `cell` (client coordinates of `list`, whose child it becomes) with the
    // list's font, which must outlive it, and `text`, all of it selected, and takes the focus. It
    // is higher than the cell where the control needs more. False when it cannot be made.
    bool open(HWND list, const RECT& cell, HFONT font, std::string_view text);

    // It was opened with the mouse: what drops down does so at once.
    void openedWithMouse() { m_control->openedWithMouse(); }

    std::string text() const { return m_control->text(); }

    // Enter, Esc, Tab or Shift+Tab (`shift`) while the editor or a part of it has the focus: ends
    // the edit. Esc with something dropped down closes only that. Of these keys only Tab does
    // anything while it is held. False: the key is not the editor's.
    bool dialogKey(UINT key, bool shift, bool repeated);

    // Ends the edit as the focus going elsewhere does: commits. True: it is over. False: the text
    // is refused, and the editor stays open; unless `tell` is false, the message comes as soon
    // as what happens now is over.
    bool leave(bool tell = true);

    // Whether there is a text that the edit would end with.
    bool changed() const { return m_session.changed(); }

    // Why the text would be refused now.
    std::optional<std::string> refused() const { return m_session.refused(); }

    // Closes what is dropped down, with nothing taken from it.
    void closeDropped() {
        if (m_control->dropped()) m_control->closeDropped();
    }

    // Another font, which must outlive the editor.
    void setFont(HFONT font) { fw::setFont(m_control->handle(), font); }

    // The cell is elsewhere now.
    void moveTo(const RECT& cell);

    // True when `window` is the editor or a part of it.
    bool owns(HWND window) const {
        return fw::isWithin(handle(), window) || m_control->owns(window);
    }

    // ---- For its control ----

    // May destroy the editor, as the next two.
    void end(EditEnd how);
    void focusCame() { m_owner.editorFocusChanged(); }
    void focusLost();

    // Looks whether the focus is still here, once what happens now is over.
    void checkFocusLater() const;

protected:
    const fw::MessageMap& messageMap() const override;

private:
    EditSession::Answer ask(EditEnd how);
    void tell();
    void close();
    void onCheckFocus();
    void onTimer(UINT_PTR) { onCheckFocus(); }
    void onDestroy() { m_session.drop(); }
    void onCommand(UINT, UINT code) {
        m_owner.editorTextChanged();
        m_control->onCommand(code);  // may end the edit
    }
    LRESULT onNotify(NMHDR& header);

    CellEditorOwner& m_owner;
    std::unique_ptr<CCellControl> m_control;
    EditSession m_session{m_owner, *m_control};
    bool m_mustTell = false;  // of the refused text, even while the focus is here
};

}  // namespace mc
