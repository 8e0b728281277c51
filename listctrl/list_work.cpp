#include "listctrl/list_work.h"

#include <oleacc.h>

#include <optional>
#include <utility>

#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/model/calls.h"

namespace mc {
namespace {

constexpr ULONGLONG kShownAfter = 200;  // milliseconds
constexpr ULONGLONG kBetweenLooks = 50;
constexpr UINT_PTR kNoteTimer = 0xF118;  // the control has no timer of this number
constexpr UINT kNoteTime = 6000;

// Takes an Esc that was just pressed in the pane, where it is the first key in the queue.
bool takeEscape(HWND pane) {
    if ((HIWORD(GetQueueStatus(QS_KEY)) & QS_KEY) == 0) return false;
    MSG key{};
    if (PeekMessageA(&key, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_NOREMOVE | PM_QS_INPUT) == 0)
        return false;
    const bool held = (HIWORD(key.lParam) & KF_REPEAT) != 0;
    return key.wParam == VK_ESCAPE && !held && fw::isWithin(pane, key.hwnd) &&
           PeekMessageA(&key, key.hwnd, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE | PM_QS_INPUT) != 0;
}

// Null instead of the pane: Esc does not end the work.
class Watch {
public:
    explicit Watch(HWND pane) : m_pane(pane) {}

    bool goesOn() {
        const ULONGLONG now = GetTickCount64();
        if (now - m_start < kShownAfter) return true;
        if (!m_cursor) m_cursor.emplace();
        if (m_pane == nullptr || now - m_looked < kBetweenLooks) return true;
        m_looked = now;
        return !takeEscape(m_pane) && !fw::callEnded();
    }

private:
    const HWND m_pane;
    const ULONGLONG m_start = GetTickCount64();
    ULONGLONG m_looked = 0;
    std::optional<fw::WaitCursorScope> m_cursor;
};

}  // namespace

bool CListWork::run(const char* what, const Work& work) {
    if (!m_note.empty()) say({});
    bool done = false;
    try {
        Watch watch(GetAncestor(GetParent(m_list.handle()), GA_PARENT));
        done = work(LongWork([&watch] { return watch.goesOn(); }));
    } catch (const LongWork::Ended&) {
    }
    if (!done) say(std::string(what) + " was interrupted");
    return done;
}

void CListWork::finish(const Work& work) {
    Watch watch(nullptr);
    work(LongWork([&watch] { return watch.goesOn(); }));
}

void CListWork::say(std::string note) {
    m_note = std::move(note);
    if (m_list.handle() == nullptr) return;
    if (m_note.empty())
        KillTimer(m_list.handle(), kNoteTimer);
    else
        SetTimer(m_list.handle(), kNoteTimer, kNoteTime, nullptr);
    m_update.storeChanged();
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, m_list.handle(), OBJID_CLIENT, CHILDID_SELF);
}

bool CListWork::onTimer(UINT_PTR id) {
    if (id == kNoteTimer) say({});
    return id == kNoteTimer;
}

}  // namespace mc
