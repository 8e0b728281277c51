// CDateTimeEditor: a date, or a date with a time, picked over a cell.
#pragma once

#include "editors/cell_editor.h"
#include "editors/model/date_time_text.h"

namespace mc {

// Text goes in and out in the form of date_time_text.h. A text that is not of the form opens on
// today; until the user changes the date, text() is what the editor was opened with.
class CDateTimeEditor final : public CCellEditor {
public:
    CDateTimeEditor(CellEditorOwner& owner, DateTimeForm form);

    std::string text() const override;
    bool owns(HWND window) const override;

protected:
    const fw::MessageMap& messageMap() const override;
    void fill(std::string_view text) override;
    int fitHeight(int room) const override;
    void select() override;
    void finishTyping() override;
    bool dropped() const override;
    void closeDropped() override;

private:
    void onChanged(NMHDR&) { m_changed = true; }
    void onCalendarClosed(NMHDR&);
    HWND calendar() const;

    DateTimeForm m_form;
    std::string m_opened;
    bool m_changed = false;
};

}  // namespace mc
