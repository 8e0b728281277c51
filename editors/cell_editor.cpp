#include "editors/cell_editor.h"

#include <algorithm>

#include "framework/handles.h"

namespace {

// Posted by an editor to itself, so that a message box opens after the change of focus that it
// comes from. wParam, lParam and result are not used.
constexpr UINT kCheckFocus = WM_APP + 0x1C58;

constexpr int kLeastWidth = 60;

}  // namespace

// The control, for the messages that it keeps to itself.
class CCellEditor::CControl final : public fw::CWindow {
public:
    explicit CControl(CCellEditor& editor) : m_editor(editor) {}
    using CWindow::subclass;

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::on<WM_KILLFOCUS, &CControl::onFocusLost>(),
            fw::offer<WM_CHAR, &CControl::onCharacter>(),
            fw::offer<WM_PASTE, &CControl::onPaste>(),
            fw::offer<WM_MOUSEWHEEL, &CControl::onWheel>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    // Last, the control being through with the message: the editor may end, and be destroyed.
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
    const HWND made = CreateWindowExA(
        0, m_kind.windowClass, "", WS_CHILD | WS_VISIBLE | m_kind.style, 0, 0, room.right,
        room.bottom + scaled(m_kind.dropHeight), handle(), nullptr, fw::module(), nullptr);
    if (!m_control->subclass(made)) return false;
    SendMessageA(made, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    fill(text);
    place(cell);
    SetFocus(made);
    select();
    return true;
}

// Over the cell, around its middle line, and not beyond the list's right side.
void CCellEditor::place(const RECT& cell) {
    RECT list{}, window{};
    GetClientRect(GetParent(handle()), &list);
    GetWindowRect(handle(), &window);
    const int frames = static_cast<int>(window.bottom - window.top - clientRect().bottom);
    const int cellHeight = static_cast<int>(cell.bottom - cell.top);
    const int height = fitHeight(cellHeight - frames);
    const int outer = std::max(height + frames, cellHeight);
    const int right = static_cast<int>(std::min(cell.right, list.right));
    const int width = std::max(right - static_cast<int>(cell.left), scaled(kLeastWidth));
    SetWindowPos(handle(), HWND_TOP, cell.left, (cell.top + cell.bottom - outer) / 2, width, outer,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    const RECT room = clientRect();
    SetWindowPos(control(), nullptr, 0, (room.bottom - height) / 2, room.right,
                 height + scaled(m_kind.dropHeight), SWP_NOZORDER | SWP_NOACTIVATE);
}

int CCellEditor::textHeight() const {
    const HDC dc = GetDC(control());
    TEXTMETRICA metrics{};
    {
        const auto font = reinterpret_cast<HFONT>(SendMessageA(control(), WM_GETFONT, 0, 0));
        const fw::SelectScope select(dc, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
        GetTextMetricsA(dc, &metrics);
    }
    ReleaseDC(control(), dc);
    return static_cast<int>(metrics.tmHeight);
}

// ---- Ending ----

bool CCellEditor::dialogKey(UINT key, bool shift) {
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
    if (key == VK_ESCAPE && dropped()) {
        closeDropped();
        SetFocus(control());
    } else {
        end(shift ? found->shifted : found->plain);
    }
    return true;
}

// Nothing of the editor is touched any more after Answer::destroyed.
CCellEditor::Answer CCellEditor::ask(EditEnd how) {
    if (m_asking || m_over || handle() == nullptr) return Answer::none;
    m_asking = true;
    const Answer answer = askWith(how);
    if (answer == Answer::destroyed) return answer;
    m_asking = false;
    if (answer == Answer::over) close();
    return answer;
}

CCellEditor::Answer CCellEditor::askWith(EditEnd how) {
    const std::weak_ptr<const bool> life = m_life;
    bool over = true;
    if (how != EditEnd::cancel) {
        finishTyping();
        if (const auto message = refusal()) {
            m_owner.editRefused(*message);
            return life.expired() ? Answer::destroyed : Answer::refused;
        }
    }
    over = m_owner.editEnding(how, text()) || how == EditEnd::cancel;
    if (life.expired()) return Answer::destroyed;
    return over ? Answer::over : Answer::refused;
}

bool CCellEditor::end(EditEnd how) {
    const Answer answer = ask(how);
    if (answer != Answer::refused) return answer != Answer::none;
    SetFocus(control());
    select();
    return false;
}

void CCellEditor::leave() {
    if (ask(EditEnd::commit) == Answer::refused) ask(EditEnd::cancel);
}

void CCellEditor::close() {
    m_over = true;
    const bool hadFocus = owns(GetFocus());
    if (dropped()) closeDropped();
    if (hadFocus) SetFocus(GetParent(handle()));
    ShowWindow(handle(), SW_HIDE);
}

// A text that will be refused is told of later: a message box must not open inside the change of
// the focus.
void CCellEditor::focusLost() {
    if (m_asking || m_over || owns(GetFocus())) return;
    if (refusal())
        checkFocusLater();
    else
        leave();
}

void CCellEditor::checkFocusLater() const {
    PostMessageA(handle(), kCheckFocus, 0, 0);
}

void CCellEditor::onCheckFocus() {
    if (!owns(GetFocus())) leave();
}
