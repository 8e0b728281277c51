#include "editors/cell_editor.h"

#include <algorithm>
#include <utility>

#include "framework/hwnd.h"

namespace mc {
namespace {

// Posted by an editor to itself, so that a message box opens after the change of focus that it
// comes from. wParam, lParam and result are not used.
constexpr UINT kCheckFocus = WM_APP + 0x1C58;

// The editor looks again later while the user is at something else.
constexpr UINT_PTR kCheckTimer = 0xED17;
constexpr UINT kCheckPause = 250;  // milliseconds

constexpr int kMinWidth = 60;

// No message box may open while a mouse button is down or its message waits, while a menu or dialog
// is open, while the list is hidden, or while another program is in front.
bool userIsElsewhere(HWND editor) {
    return HIWORD(GetQueueStatus(QS_MOUSEBUTTON)) != 0 || GetAsyncKeyState(VK_LBUTTON) < 0 ||
           GetAsyncKeyState(VK_RBUTTON) < 0 || GetCapture() != nullptr ||
           GetActiveWindow() == nullptr || IsWindowEnabled(GetAncestor(editor, GA_ROOT)) == 0 ||
           IsWindowVisible(editor) == 0;
}

}  // namespace

CCellEditor::CCellEditor(CellEditorOwner& owner, std::unique_ptr<CCellControl> control)
    : m_owner(owner), m_control(std::move(control)) {}

CCellEditor::~CCellEditor() {
    m_session.drop();  // the windows that go now may lose the focus
}

const fw::MessageMap& CCellEditor::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onAnyCommand<&CCellEditor::onCommand>(),
        fw::onNotify<fw::kAnyId, fw::kAnyCode, &CCellEditor::onNotify>(),
        fw::on<kCheckFocus, &CCellEditor::onCheckFocus>(),
        fw::on<WM_TIMER, &CCellEditor::onTimer>(),
        fw::observe<WM_DESTROY, &CCellEditor::onDestroy>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

LRESULT CCellEditor::onNotify(NMHDR& header) {
    return reflectNotify(header.idFrom, reinterpret_cast<LPARAM>(&header));
}

// ---- Opening ----

bool CCellEditor::open(HWND list, const RECT& cell, HFONT font, std::string_view text) {
    static const fw::WindowClass windowClass{"MakerChecker.CellEditor", 0, IDC_ARROW, COLOR_WINDOW};
    const DWORD style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | m_control->kind().frame;
    if (!create(windowClass, "", style, 0, cell, list, 0)) return false;
    if (!m_control->open(*this, font, text)) return false;
    m_session.begin();
    moveTo(cell);
    SetFocus(m_control->handle());
    m_control->select();
    return true;
}

// Over the cell, around its middle line, and not beyond the list's right side.
void CCellEditor::moveTo(const RECT& cell) {
    RECT list{};
    GetClientRect(GetParent(handle()), &list);
    const int frames = fw::heightOf(fw::screenRect(handle())) - fw::heightOf(clientRect());
    const int cellHeight = fw::heightOf(cell);
    const int height = m_control->fitHeight(cellHeight - frames);
    const int outer = std::max(height + frames, cellHeight);
    const int right = static_cast<int>(std::min(cell.right, list.right));
    const int width = std::max(right - static_cast<int>(cell.left), scaled(kMinWidth));
    SetWindowPos(handle(), HWND_TOP, cell.left, (cell.top + cell.bottom - outer) / 2, width, outer,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    const RECT room = clientRect();
    SetWindowPos(m_control->handle(), nullptr, 0, (room.bottom - height) / 2, room.right,
                 height + scaled(m_control->kind().dropHeight), SWP_NOZORDER | SWP_NOACTIVATE);
}

// ---- Ending ----

bool CCellEditor::dialogKey(UINT key, bool shift, bool repeated) {
    static constexpr struct {
        UINT key;
        EditEnd plain, shifted;
    } keys[] = {
        {VK_RETURN, EditEnd::commit, EditEnd::commit},
        {VK_ESCAPE, EditEnd::cancel, EditEnd::cancel},
        {VK_TAB, EditEnd::next, EditEnd::previous},
    };
    const auto found = std::find_if(std::begin(keys), std::end(keys),
                                    [key](const auto& each) { return each.key == key; });
    if (found == std::end(keys)) return false;
    if (repeated && key != VK_TAB) return true;
    if (key == VK_ESCAPE && m_control->dropped()) {
        m_control->closeDropped();
        SetFocus(m_control->handle());
    } else {
        end(shift ? found->shifted : found->plain);
    }
    return true;
}

// The owner may destroy the editor.
EditSession::Answer CCellEditor::ask(EditEnd how) {
    const EditSession::Answer answer = m_session.end(how);
    if (answer == EditSession::Answer::ended) close();
    return answer;
}

void CCellEditor::end(EditEnd how) {
    if (ask(how) == EditSession::Answer::refused) tell();
}

bool CCellEditor::leave(bool tell) {
    const EditSession::Answer answer = ask(EditEnd::commit);
    if (answer == EditSession::Answer::refused && tell) {
        m_mustTell = true;
        checkFocusLater();
    }
    return answer == EditSession::Answer::ended || answer == EditSession::Answer::over;
}

void CCellEditor::tell() {
    if (!m_session.tell()) return;
    m_mustTell = false;
    if (IsWindowVisible(handle()) == 0) return;
    SetFocus(m_control->handle());
    m_control->select();
}

void CCellEditor::close() {
    const bool hadFocus = owns(GetFocus());
    closeDropped();
    if (hadFocus) SetFocus(GetParent(handle()));
    ShowWindow(handle(), SW_HIDE);
}

// The message about a refused text comes later: no message box may open inside a change of focus.
void CCellEditor::focusLost() {
    if (m_session.isOver()) return;
    const auto life = m_session.life();
    m_owner.editorFocusChanged();
    if (life.expired() || m_session.isAsking() || owns(GetFocus())) return;
    if (!leave(false)) checkFocusLater();
}

void CCellEditor::checkFocusLater() const {
    PostMessageA(handle(), kCheckFocus, 0, 0);
}

void CCellEditor::onCheckFocus() {
    KillTimer(handle(), kCheckTimer);
    if (m_session.isOver() || m_session.isAsking()) return;
    if (owns(GetFocus()) && !(m_mustTell && refused())) return;
    if (userIsElsewhere(handle()))
        SetTimer(handle(), kCheckTimer, kCheckPause, nullptr);
    else
        end(EditEnd::commit);
}

}  // namespace mc
