// CDateTimeControl: a date, or a date with a time, picked over a cell.
#pragma once

#include "editors/cell_control.h"
#include "editors/model/date_time_text.h"

namespace mc {

// Text goes in and out in the form of date_time_text.h. A text that is not of the form opens on
// today; until the user changes the date, text() is what the editor was opened with.
class CDateTimeControl final : public CCellControl {
public:
    explicit CDateTimeControl(DateTimeForm form);

    std::string text() const override;
    void finishTyping() override;
    int fitHeight(int room) const override;
    void select() override;
    bool dropped() const override;
    void closeDropped() override;
    bool owns(HWND window) const override;

protected:
    const fw::MessageMap& messageMap() const override;
    void fill(std::string_view text) override;

private:
    void onChanged(NMHDR&) { m_changed = true; }
    void onCalendarClosed(NMHDR&);
    HWND calendar() const;

    DateTimeForm m_form;
    std::string m_opened;
    bool m_changed = false;
};

}  // namespace mc
