#include "editors/date_time_control.h"

#include <algorithm>

#include "editors/cell_editor.h"

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

CDateTimeControl::CDateTimeControl(DateTimeForm form)
    : CCellControl({DATETIMEPICK_CLASSA, 0, 0, 0}), m_form(form) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_DATE_CLASSES};
    InitCommonControlsEx(&controls);
}

const fw::MessageMap& CDateTimeControl::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<DTN_DATETIMECHANGE, &CDateTimeControl::onChanged>(),
        fw::onReflected<DTN_CLOSEUP, &CDateTimeControl::onCalendarClosed>(),
    };
    static const fw::MessageMap map{&baseMap(), entries};
    return map;
}

void CDateTimeControl::fill(std::string_view text) {
    m_opened = text;
    DateTime_SetFormat(handle(), formatOf(m_form));
    if (const auto parts = readDateTime(text, m_form)) {
        const SYSTEMTIME time = systemTime(*parts);
        DateTime_SetSystemtime(handle(), GDT_VALID, &time);
    }
    m_changed = false;
}

int CDateTimeControl::fitHeight(int room) const {
    return std::max(room, textHeight() + scaled(kFrames));
}

// The first part, so that arrows and digits do something: a picker that gets the focus otherwise
// than by a click may have no part selected.
void CDateTimeControl::select() {
    UpdateWindow(handle());  // where the parts are is known once they are painted
    const LPARAM first = MAKELPARAM(scaled(kFrames), clientRect().bottom / 2);
    SendMessageA(handle(), WM_LBUTTONDOWN, MK_LBUTTON, first);
    SendMessageA(handle(), WM_LBUTTONUP, 0, first);
}

std::string CDateTimeControl::text() const {
    SYSTEMTIME time{};
    if (!m_changed || DateTime_GetSystemtime(handle(), &time) != GDT_VALID) return m_opened;
    return dateTimeText(
        {time.wDay, time.wMonth, time.wYear, time.wHour, time.wMinute, time.wSecond}, m_form);
}

// Digits count when the picker loses the focus.
void CDateTimeControl::finishTyping() {
    if (GetFocus() == handle()) SetFocus(editor().handle());
}

HWND CDateTimeControl::calendar() const {
    return DateTime_GetMonthCal(handle());
}

bool CDateTimeControl::dropped() const {
    const HWND shown = calendar();
    return shown != nullptr && IsWindowVisible(shown) != 0;
}

// A calendar that was the active window leaves the focus to the frame around the list.
void CDateTimeControl::onCalendarClosed(NMHDR&) {
    if (IsChild(GetFocus(), editor().handle()) != 0)
        SetFocus(handle());
    else
        editor().checkFocusLater();
}

// Not every picker knows the message.
void CDateTimeControl::closeDropped() {
    DateTime_CloseMonthCal(handle());
    if (dropped()) ShowWindow(calendar(), SW_HIDE);
}

// The calendar is a window beside the picker.
bool CDateTimeControl::owns(HWND window) const {
    if (CCellControl::owns(window)) return true;
    const HWND shown = calendar();
    return shown != nullptr && fw::isWithin(shown, window);
}

}  // namespace mc
