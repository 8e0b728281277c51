#include "editors/cell_editor.h"

#include <algorithm>

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

// The control inside the editor, for the messages that the editor does not get.
class CCellEditor::CControl final : public fw::CWindow {
public:
    explicit CControl(CCellEditor& editor) : m_editor(editor) {}
    using CWindow::subclass;

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::observe<WM_SETFOCUS, &CControl::onFocus>(),
            fw::on<WM_KILLFOCUS, &CControl::onFocusLost>(),
            fw::offer<WM_CHAR, &CControl::onCharacter>(),
            fw::offer<WM_PASTE, &CControl::onPaste>(),
            fw::offer<WM_MOUSEWHEEL, &CControl::onWheel>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onFocus() { m_editor.m_owner.editorFocusChanged(); }
    // The control handles the message first: in focusLost() the editor may be destroyed.
    void onFocusLost() {
        controlDefault(WM_KILLFOCUS, reinterpret_cast<WPARAM>(GetFocus()), 0);
        m_editor.focusLost();
    }
    bool onCharacter(UINT character) { return m_editor.onCharacter(character); }
    bool onPaste() { return m_editor.onPaste(); }
    // A wheel turned by accident changes no value.
    bool onWheel() { return !m_editor.dropped(); }

    CCellEditor& m_editor;
};

CCellEditor::CCellEditor(CellEditorOwner& owner, const ControlKind& kind)
    : m_owner(owner), m_kind(kind), m_control(std::make_unique<CControl>(*this)) {}

CCellEditor::~CCellEditor() {
    m_over = true;  // the windows that go now may lose the focus
}

const fw::MessageMap& CCellEditor::baseMap() {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<kCheckFocus, &CCellEditor::onCheckFocus>(),
        fw::on<WM_TIMER, &CCellEditor::onTimer>(),
        fw::observe<WM_DESTROY, &CCellEditor::onDestroy>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

HWND CCellEditor::control() const {
    return m_control->handle();
}

// ---- Opening ----

bool CCellEditor::open(HWND list, const RECT& cell, HFONT font, std::string_view text) {
    static const fw::WindowClass windowClass{"MakerChecker.CellEditor", 0, IDC_ARROW, COLOR_WINDOW};
    const DWORD style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | m_kind.frame;
    if (!create(windowClass, "", style, 0, cell, list, 0)) return false;
    const RECT room = clientRect();
    const HWND made =
        fw::makeControl(m_kind.windowClass, "", WS_CHILD | WS_VISIBLE | m_kind.style, 0,
                        {room.right, room.bottom + scaled(m_kind.dropHeight)}, handle(), 0);
    if (!m_control->subclass(made)) return false;
    fw::setFont(made, font);
    fill(text);
    m_opened = this->text();
    moveTo(cell);
    SetFocus(made);
    select();
    return true;
}

// Over the cell, around its middle line, and not beyond the list's right side.
void CCellEditor::moveTo(const RECT& cell) {
    RECT list{};
    GetClientRect(GetParent(handle()), &list);
    const int frames = fw::heightOf(fw::screenRect(handle())) - fw::heightOf(clientRect());
    const int cellHeight = fw::heightOf(cell);
    const int height = fitHeight(cellHeight - frames);
    const int outer = std::max(height + frames, cellHeight);
    const int right = static_cast<int>(std::min(cell.right, list.right));
    const int width = std::max(right - static_cast<int>(cell.left), scaled(kMinWidth));
    SetWindowPos(handle(), HWND_TOP, cell.left, (cell.top + cell.bottom - outer) / 2, width, outer,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    const RECT room = clientRect();
    SetWindowPos(control(), nullptr, 0, (room.bottom - height) / 2, room.right,
                 height + scaled(m_kind.dropHeight), SWP_NOZORDER | SWP_NOACTIVATE);
}

int CCellEditor::textHeight() const {
    return static_cast<int>(fw::metricsOf(fw::fontOf(control()), control()).tmHeight);
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
    if (key == VK_ESCAPE && dropped()) {
        closeDropped();
        SetFocus(control());
    } else {
        end(shift ? found->shifted : found->plain);
    }
    return true;
}

std::optional<std::string> CCellEditor::refused() const {
    return changed() ? refusal() : std::nullopt;
}

// The owner may destroy the editor.
CCellEditor::Answer CCellEditor::ask(EditEnd how) {
    if (m_over || handle() == nullptr) return Answer::over;
    if (m_asking) return Answer::busy;
    m_asking = true;
    if (how != EditEnd::cancel) finishTyping();
    const bool stays = how != EditEnd::cancel && refused();
    const bool takes = how != EditEnd::cancel && changed();
    const std::weak_ptr<const bool> life = m_life;
    if (!stays) m_owner.editEnding(how, takes ? std::optional(text()) : std::nullopt);
    if (life.expired()) return Answer::over;
    m_asking = false;
    if (stays) return Answer::refused;
    close();
    return Answer::over;
}

void CCellEditor::end(EditEnd how) {
    if (ask(how) == Answer::refused) tell();
}

bool CCellEditor::leave(bool tell) {
    const Answer answer = ask(EditEnd::commit);
    if (answer == Answer::refused && tell) {
        m_mustTell = true;
        checkFocusLater();
    }
    return answer == Answer::over;
}

void CCellEditor::tell() {
    const std::optional<std::string> message = refused();
    if (!message) return;
    const std::weak_ptr<const bool> life = m_life;
    m_asking = true;
    m_owner.editRefused(*message);
    if (life.expired()) return;
    m_asking = m_mustTell = false;
    if (IsWindowVisible(handle()) == 0) return;
    SetFocus(control());
    select();
}

void CCellEditor::close() {
    m_over = true;
    const bool hadFocus = owns(GetFocus());
    if (dropped()) closeDropped();
    if (hadFocus) SetFocus(GetParent(handle()));
    ShowWindow(handle(), SW_HIDE);
}

// The message about a refused text comes later: no message box may open inside a change of focus.
void CCellEditor::focusLost() {
    if (m_over) return;
    const std::weak_ptr<const bool> life = m_life;
    m_owner.editorFocusChanged();
    if (life.expired() || m_asking || owns(GetFocus())) return;
    if (!leave(false)) checkFocusLater();
}

void CCellEditor::checkFocusLater() const {
    PostMessageA(handle(), kCheckFocus, 0, 0);
}

void CCellEditor::onCheckFocus() {
    KillTimer(handle(), kCheckTimer);
    if (m_over || m_asking) return;
    if (owns(GetFocus()) && !(m_mustTell && refused())) return;
    if (userIsElsewhere(handle()))
        SetTimer(handle(), kCheckTimer, kCheckPause, nullptr);
    else
        end(EditEnd::commit);
}

}  // namespace mc
