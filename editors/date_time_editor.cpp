#include "editors/date_time_editor.h"

#include <algorithm>

namespace mc {
namespace {

constexpr int kFrames = 6;  // of a picker above and below its text

const char* formatOf(DateTimeForm form) {
    return form == DateTimeForm::date ? "dd/MM/yyyy" : "dd/MM/yyyy HH:mm:ss";
}

SYSTEMTIME systemTime(const DateTimeParts& parts) {
    SYSTEMTIME time{};
    time.wDay = static_cast<WORD>(parts.day);
    time.wMonth = static_cast<WORD>(parts.month);
    time.wYear = static_cast<WORD>(parts.year);
    time.wHour = static_cast<WORD>(parts.hour);
    time.wMinute = static_cast<WORD>(parts.minute);
    time.wSecond = static_cast<WORD>(parts.second);
    return time;
}

}  // namespace

CDateTimeEditor::CDateTimeEditor(CellEditorOwner& owner, DateTimeForm form)
    : CCellEditor(owner, {DATETIMEPICK_CLASSA, 0, 0, 0}), m_form(form) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
}

const fw::MessageMap& CDateTimeEditor::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onNotify<fw::kAnyId, DTN_DATETIMECHANGE, &CDateTimeEditor::onChanged>(),
        fw::onNotify<fw::kAnyId, DTN_CLOSEUP, &CDateTimeEditor::onCalendarClosed>(),
    };
    static const fw::MessageMap map{&baseMap(), entries};
    return map;
}

void CDateTimeEditor::fill(std::string_view text) {
    m_opened = text;
    DateTime_SetFormat(control(), formatOf(m_form));
    if (const auto parts = readDateTime(text, m_form)) {
        const SYSTEMTIME time = systemTime(*parts);
        DateTime_SetSystemtime(control(), GDT_VALID, &time);
    }
    m_changed = false;
}

int CDateTimeEditor::fitHeight(int room) const {
    return std::max(room, textHeight() + scaled(kFrames));
}

// The first part, so that arrows and digits do something: a picker that gets the focus otherwise
// than by a click may have no part selected.
void CDateTimeEditor::select() {
    RECT room{};
    GetClientRect(control(), &room);
    UpdateWindow(control());  // where the parts are is known once they are painted
    const LPARAM first = MAKELPARAM(scaled(kFrames), room.bottom / 2);
    SendMessageA(control(), WM_LBUTTONDOWN, MK_LBUTTON, first);
    SendMessageA(control(), WM_LBUTTONUP, 0, first);
}

std::string CDateTimeEditor::text() const {
    SYSTEMTIME time{};
    if (!m_changed || DateTime_GetSystemtime(control(), &time) != GDT_VALID) return m_opened;
    return dateTimeText(
        {time.wDay, time.wMonth, time.wYear, time.wHour, time.wMinute, time.wSecond}, m_form);
}

// Digits count when the picker loses the focus.
void CDateTimeEditor::finishTyping() {
    if (GetFocus() == control()) SetFocus(handle());
}

HWND CDateTimeEditor::calendar() const {
    return DateTime_GetMonthCal(control());
}

bool CDateTimeEditor::dropped() const {
    const HWND shown = calendar();
    return shown != nullptr && IsWindowVisible(shown) != 0;
}

// A calendar that was the active window leaves the focus to the frame around the list.
void CDateTimeEditor::onCalendarClosed(NMHDR&) {
    if (IsChild(GetFocus(), handle()) != 0)
        SetFocus(control());
    else
        checkFocusLater();
}

// Not every picker knows the message.
void CDateTimeEditor::closeDropped() {
    DateTime_CloseMonthCal(control());
    if (dropped()) ShowWindow(calendar(), SW_HIDE);
}

// The calendar is a window beside the picker.
bool CDateTimeEditor::owns(HWND window) const {
    if (CCellEditor::owns(window)) return true;
    const HWND shown = calendar();
    return shown != nullptr && fw::isWithin(shown, window);
}

}  // namespace mc
