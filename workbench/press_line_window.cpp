#include "workbench/press_line_window.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/drawing.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "listctrl/list_colors.h"
#include "listctrl/text_widths.h"

namespace mc {
namespace {

constexpr UINT_PTR kAgeTimer = 1;
constexpr UINT_PTR kOnceTimer = 2;
constexpr UINT_PTR kTool = 1;
constexpr int kOneLineWidth = 640;  // at 96 dots per inch; in a narrower pane there are two lines
constexpr int kTipWidth = 480;

int widthOf(HDC dc, std::string_view text) {
    SIZE size{};
    GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

// Each character as wide as the text was measured: the platform may draw it narrower, and what
// follows would lie apart.
void drawAsMeasured(HDC dc, int x, int y, const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::vector<INT> steps(text.size());
    SIZE whole{};
    GetTextExtentExPointA(dc, text.data(), size, 0, nullptr, steps.data(), &whole);
    std::adjacent_difference(steps.begin(), steps.end(), steps.begin());
    ExtTextOutA(dc, x, y, 0, nullptr, text.data(), static_cast<UINT>(size), steps.data());
}

// Red on the dialog's face, light or dark; high contrast has the colours of a selection for it.
void setWarningColors(HDC dc) {
    if (highContrast()) {
        SetBkMode(dc, OPAQUE);
        SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        return;
    }
    SetTextColor(dc, readableOn(GetSysColor(COLOR_3DFACE), RGB(176, 0, 0)));
}

COLORREF linkColor() {
    const COLORREF link = GetSysColor(COLOR_HOTLIGHT);
    return highContrast() ? link : readableOn(GetSysColor(COLOR_3DFACE), link);
}

// The first word of the text with the blanks behind it, which is taken off it.
std::string takeWord(std::string_view& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::size_t next = std::min(text.find_first_not_of(' ', end), text.size());
    const std::string word(text.substr(0, next));
    text.remove_prefix(next);
    return word;
}

}  // namespace

// Tells the line when the mouse or the focus comes to a button and goes.
class CPressLine::Watch : public fw::CWindow {
public:
    Watch(CPressLine& line, HWND button, PressButton which) : m_line(line), m_which(which) {
        subclass(button);
    }
    PressButton which() const { return m_which; }

protected:
    const fw::MessageMap& messageMap() const override {
        static constexpr fw::MessageEntry entries[] = {
            fw::observe<WM_MOUSEMOVE, &Watch::onMouseMove>(),
            fw::observe<WM_MOUSELEAVE, &Watch::onMouseLeave>(),
            fw::observe<WM_SETFOCUS, &Watch::onFocusChanged>(),
            fw::observe<WM_KILLFOCUS, &Watch::onFocusChanged>(),
        };
        static constexpr fw::MessageMap map{nullptr, entries};
        return map;
    }

private:
    void onMouseMove(POINT) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, handle(), 0};
        TrackMouseEvent(&track);
        m_line.hovered(m_which);
    }
    void onMouseLeave() {
        if (m_line.m_hovered == m_which) m_line.hovered(std::nullopt);
    }
    void onFocusChanged() { m_line.stale(); }

    CPressLine& m_line;
    const PressButton m_which;
};

// Words of one colour at one height.
struct CPressLine::Piece {
    enum Kind { plain, warning, link } kind;
    std::string text;
    int x, line, width;
};

// The words of the line, from the left: as many as fit into one line of text, or into two.
class CPressLine::Flow {
public:
    // `last` is the number of the last line; at its end `kept` pixels stay free.
    Flow(HDC dc, int width, int last, int kept)
        : m_dc(dc), m_width(width), m_last(last), m_kept(kept) {}

    // Each run of one kind in a line is one piece. False: not all of the text fits.
    bool add(Piece::Kind kind, std::string_view text) {
        while (!text.empty())
            if (!addWord(kind, takeWord(text))) return false;
        return true;
    }

    // Takes off as many characters as dots need behind what is left.
    void endInDots() {
        while (!m_pieces.empty() && !addHere(m_pieces.back().kind, std::string(kDots))) {
            Piece& back = m_pieces.back();
            back.text.pop_back();
            m_x = back.x;
            if (back.text.empty()) m_pieces.pop_back();
        }
    }

    // The action, in what was kept for it.
    void addLink(int gap, int width) {
        m_pieces.push_back({Piece::link, kSelectPair, m_x + gap, m_line, width});
    }

    std::vector<Piece> take() { return std::move(m_pieces); }

private:
    bool addWord(Piece::Kind kind, const std::string& word) {
        if (addHere(kind, word)) return true;
        if (m_x == 0 || m_line == m_last) return false;
        m_x = 0, ++m_line;
        return addHere(kind, word);
    }

    // False, and nothing is added, where the word does not fit into the line.
    bool addHere(Piece::Kind kind, const std::string& word) {
        const bool joins =
            !m_pieces.empty() && m_pieces.back().kind == kind && m_pieces.back().line == m_line;
        const int start = joins ? m_pieces.back().x : m_x;
        const std::string text = joins ? m_pieces.back().text + word : word;
        const int width = widthOf(m_dc, text);
        if (start + width > (m_line < m_last ? m_width : m_width - m_kept)) return false;
        if (joins) m_pieces.pop_back();
        m_pieces.push_back({kind, text, start, m_line, width});
        m_x = start + width;
        return true;
    }

    const HDC m_dc;
    const int m_width, m_last, m_kept;
    int m_x = 0, m_line = 0;  // where the next word goes
    std::vector<Piece> m_pieces;
};

CPressLine::CPressLine(Describe describe, std::function<void()> painted)
    : m_describe(std::move(describe)), m_painted(std::move(painted)) {}

CPressLine::~CPressLine() = default;

const fw::MessageMap& CPressLine::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_PAINT, &CPressLine::onPaint>(),
        fw::observe<WM_GETTEXT, &CPressLine::refresh>(),
        fw::observe<WM_GETTEXTLENGTH, &CPressLine::refresh>(),
        fw::offer<WM_SETCURSOR, &CPressLine::onSetCursor>(),
        fw::on<WM_LBUTTONDOWN, &CPressLine::onButtonDown>(),
        fw::on<WM_LBUTTONUP, &CPressLine::onButtonUp>(),
        fw::on<WM_TIMER, &CPressLine::onTimer>(),
        fw::observe<WM_DESTROY, &CPressLine::onDestroy>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

bool CPressLine::create(HWND pane, UINT id) {
    static const fw::WindowClass windowClass{"MakerChecker.PressLine", CS_HREDRAW | CS_VREDRAW,
                                             IDC_ARROW, -1};
    return CWindow::create(windowClass, "", WS_CHILD | WS_VISIBLE, 0, RECT{}, pane, id);
}

void CPressLine::watch(HWND button, PressButton which) {
    m_watches.push_back(std::make_unique<Watch>(*this, button, which));
}

int CPressLine::heightFor(int width) const {
    if (handle() == nullptr) return 0;
    const TEXTMETRICA metrics = fw::metricsOf(fw::fontOf(GetParent(handle())), handle());
    return static_cast<int>(metrics.tmHeight) * (width < scaled(kOneLineWidth) ? 2 : 1) + scaled(2);
}

// ---- What it says ----

void CPressLine::stale() {
    m_stale = true;
    if (handle() != nullptr) InvalidateRect(handle(), nullptr, FALSE);
}

void CPressLine::hovered(std::optional<PressButton> button) {
    if (std::exchange(m_hovered, button) != button) stale();
}

PressButton CPressLine::button() const {
    if (m_pressed) return *m_pressed;
    if (m_hovered) return *m_hovered;
    const HWND focus = GetFocus();
    const auto focused = std::ranges::find(m_watches, focus, &Watch::handle);
    return focus != nullptr && focused != m_watches.end() ? (*focused)->which()
                                                          : PressButton::accept;
}

void CPressLine::refresh() {
    if (handle() == nullptr || !std::exchange(m_stale, false)) return;
    PressLine now = m_describe(button());
    if (now.ages)
        SetTimer(handle(), kAgeTimer, 1000, nullptr);
    else if (m_line.ages)
        KillTimer(handle(), kAgeTimer);
    if (now == m_line) return;
    const bool news = now.isNews(m_line), warns = !now.warning.empty();
    m_line = std::move(now);
    SetWindowTextA(handle(), m_line.whole().c_str());  // which says that the name changed
    InvalidateRect(handle(), nullptr, FALSE);
    if (!news) return;
    constexpr DWORD kLiveRegionChanged = 0x8019;  // of Windows 8; unheard before
    for (const DWORD event : {kLiveRegionChanged, warns ? DWORD{EVENT_SYSTEM_ALERT} : DWORD{0}})
        if (event != 0) NotifyWinEvent(event, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void CPressLine::begin(PressButton pressed) {
    m_pressed = pressed;
    paint();
}

void CPressLine::paint() {
    stale();
    refresh();
    UpdateWindow(handle());
}

void CPressLine::end() {
    m_pressed.reset();
    stale();
}

void CPressLine::changesIn(std::chrono::milliseconds time) {
    if (handle() != nullptr)
        SetTimer(handle(), kOnceTimer, static_cast<UINT>(time.count()), nullptr);
    stale();
}

void CPressLine::onTimer(UINT_PTR timer) {
    if (timer == kOnceTimer) KillTimer(handle(), kOnceTimer);
    stale();
}

// ---- Drawing ----

// What does not fit ends in dots; the action always fits behind it.
std::vector<CPressLine::Piece> CPressLine::layOut(HDC dc) {
    const int width = static_cast<int>(clientRect().right);
    const int gap = scaled(8), link = m_line.offersPair ? widthOf(dc, kSelectPair) : 0;
    Flow flow(dc, width, width < scaled(kOneLineWidth) ? 1 : 0, link != 0 ? link + gap : 0);
    const bool whole =
        flow.add(Piece::warning, m_line.warning) && flow.add(Piece::plain, m_line.text);
    if (!whole) flow.endInDots();
    if (link != 0) flow.addLink(gap, link);
    showTip(!whole);
    return flow.take();
}

void CPressLine::onPaint() {
    refresh();
    m_painted();
    const fw::PaintScope paint(handle());
    const RECT area = clientRect();
    FillRect(paint.dc(), &area, GetSysColorBrush(COLOR_3DFACE));
    const HFONT font = fw::fontOf(GetParent(handle()));
    const fw::SelectScope select(paint.dc(), font);
    const int height = static_cast<int>(fw::metricsOf(font, handle()).tmHeight);
    m_link = {};
    for (const Piece& piece : layOut(paint.dc())) {
        SetBkMode(paint.dc(), TRANSPARENT);
        SetTextColor(paint.dc(),
                     piece.kind == Piece::link ? linkColor() : GetSysColor(COLOR_BTNTEXT));
        if (piece.kind == Piece::warning) setWarningColors(paint.dc());
        const int y = scaled(1) + piece.line * height;
        drawAsMeasured(paint.dc(), piece.x, y, piece.text);
        if (piece.kind != Piece::link) continue;
        m_link = {piece.x, y, piece.x + piece.width, y + height};
        const RECT underline{m_link.left, m_link.bottom - scaled(1), m_link.right, m_link.bottom};
        fw::fill(paint.dc(), underline, linkColor());
    }
}

void CPressLine::followDpi() {
    m_tip.destroy();
    m_tipText.clear();
    stale();
}

void CPressLine::showTip(bool cutOff) {
    const std::string text = cutOff ? m_line.warning + m_line.text : "";
    if (text == std::exchange(m_tipText, text)) return;
    if (!m_tip.created()) m_tip.create(handle());
    m_tip.remove(handle(), kTool);
    m_tip.setMaxWidth(scaled(kTipWidth));
    const RECT whole{0, 0, MAXSHORT, MAXSHORT};
    if (cutOff) m_tip.add(handle(), kTool, whole, text);
}

// ---- The action ----

bool CPressLine::onSetCursor(HWND, UINT) {
    if (PtInRect(&m_link, fw::mousePointIn(handle())) == 0) return false;
    SetCursor(LoadCursorA(nullptr, IDC_HAND));
    return true;
}

void CPressLine::onButtonUp(POINT client) {
    if (!std::exchange(m_pressedLink, false) || PtInRect(&m_link, client) == 0) return;
    SendMessageA(GetParent(handle()), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(handle())), BN_CLICKED),
                 reinterpret_cast<LPARAM>(handle()));
}

}  // namespace mc
