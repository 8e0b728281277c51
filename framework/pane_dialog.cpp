#include "framework/pane_dialog.h"

#include <algorithm>
#include <cstdlib>

#include "framework/dialog.h"
#include "framework/float_frame.h"
#include "framework/model/dock_layout.h"

namespace fw {
namespace {

// What the caption's menu offers.
struct CaptionCommand {
    UINT id;
    unsigned side;  // 0: not a docking command
    const char* text;
};
enum : UINT { kFloatCommand = 1, kCloseCommand, kFirstDockCommand };
constexpr CaptionCommand kCaptionCommands[] = {
    {kFirstDockCommand, kDockLeft, "Dock &Left"},
    {kFirstDockCommand + 1, kDockTop, "Dock &Top"},
    {kFirstDockCommand + 2, kDockRight, "Dock &Right"},
    {kFirstDockCommand + 3, kDockBottom, "Dock &Bottom"},
    {kFloatCommand, 0, "&Float"},
    {kCloseCommand, 0, "&Close"},
};

int rectWidth(const RECT& rect) {
    return static_cast<int>(rect.right - rect.left);
}
int rectHeight(const RECT& rect) {
    return static_cast<int>(rect.bottom - rect.top);
}

void drawGripper(HDC dc, RECT strip) {
    for (int bar = 0; bar < 2; ++bar) {
        RECT line{strip.left + 3 + bar * 4, strip.top + 3, strip.left + 6 + bar * 4,
                  strip.bottom - 3};
        DrawEdge(dc, &line, BDR_RAISEDINNER, BF_RECT);
    }
}

Font captionFont() {
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return Font(CreateFontIndirectA(&metrics.lfSmCaptionFont));
}

}  // namespace

CPaneDialog::CPaneDialog()
    : m_attachMessage(RegisterWindowMessageA(kDockAttachMessage)),
      m_detachMessage(RegisterWindowMessageA(kDockDetachMessage)),
      m_queryMessage(RegisterWindowMessageA(kDockQueryMessage)),
      m_nextPartMessage(RegisterWindowMessageA(kDockNextPartMessage)) {}

CPaneDialog::~CPaneDialog() {
    // The map and the virtual functions below are this class's own from here on.
    destroy();
}

bool CPaneDialog::create(HWND frame, const char* caption, UINT templateId, DWORD style, UINT id) {
    m_frame = frame;
    m_caption = caption;
    m_side = style & kDockAnySide;
    const HWND pane = CreateDialogParamA(module(), MAKEINTRESOURCEA(templateId), frame, dialogProc,
                                         dialogParameter());
    if (pane == nullptr) return false;
    SetWindowTextA(pane, caption);
    SetWindowLongPtrA(pane, GWLP_ID, static_cast<LONG_PTR>(id));
    const auto dialogBits = static_cast<DWORD>(GetWindowLongPtrA(pane, GWL_STYLE)) & 0xFFFF;
    SetWindowLongPtrA(pane, GWL_STYLE, static_cast<LONG_PTR>((style & 0xFFFF0000) | dialogBits));
    captionChanged();
    setModalHome(pane);
    m_keys = std::make_unique<CKeyFilter>(
        pane, actionKeys(), [this](HWND control, UINT key) { return controlClaims(control, key); });
    onButtonFocus();
    showTips();
    return true;
}

void CPaneDialog::dock() {
    dockAt(m_side);
}

void CPaneDialog::dockAt(unsigned side) {
    if (handle() == nullptr) return;
    if (side != m_side)
        m_extent = 0;
    else if (m_mode == Mode::docked && !m_hidden)
        m_extent = presentExtent();
    const HWND focus = GetFocus();
    m_side = side;
    m_mode = Mode::docked;
    m_hidden = false;
    DockRequest wanted = request();
    wanted.side = m_side & m_allowedSides;
    wanted.extent = m_extent;
    if (wanted.side == 0 || askFrame(m_attachMessage, wanted) == 0) {
        m_mode = Mode::floating;
        showFloating(false);
        return;
    }
    captionChanged();
    if (m_float != nullptr) ShowWindow(m_float->handle(), SW_HIDE);
    // The focus went with the window that the pane left.
    if (IsChild(handle(), focus) != 0) SetFocus(focus);
}

void CPaneDialog::floatPane() {
    if (handle() == nullptr) return;
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_mode = Mode::floating;
    m_hidden = false;
    showFloating(true);
}

void CPaneDialog::leaveFrame() {
    m_extent = presentExtent();
    DockRequest leaving = request();
    askFrame(m_detachMessage, leaving);
}

int CPaneDialog::presentExtent() const {
    RECT window{};
    GetWindowRect(handle(), &window);
    return acrossIsHeight(m_side) ? rectHeight(window) : rectWidth(window);
}

bool CPaneDialog::inFloatFrame() const {
    return m_float != nullptr && GetParent(handle()) == m_float->handle();
}

void CPaneDialog::showFloating(bool activate) {
    if (IsRectEmpty(&m_floatPlace)) {
        RECT frame{};
        GetWindowRect(m_frame, &frame);
        m_floatPlace = floatPlaceAt({frame.left + scaled(60), frame.top + scaled(90)});
    }
    if (m_float == nullptr) m_float = std::make_unique<CFloatFrame>(*this);
    if (m_float->handle() == nullptr && !m_float->create(m_frame, m_caption, m_floatPlace)) return;
    if (!inFloatFrame()) {
        SetWindowPos(m_float->handle(), nullptr, m_floatPlace.left, m_floatPlace.top,
                     rectWidth(m_floatPlace), rectHeight(m_floatPlace),
                     SWP_NOZORDER | SWP_NOACTIVATE);
        SetParent(handle(), m_float->handle());
        captionChanged();
    }
    const RECT room = m_float->clientRect();
    SetWindowPos(handle(), nullptr, 0, 0, room.right, room.bottom,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    ShowWindow(m_float->handle(), activate ? SW_SHOW : SW_SHOWNA);
}

// As large as it floated last.
RECT CPaneDialog::floatPlaceAt(POINT corner) const {
    RECT place{0, 0, rectWidth(m_floatPlace), rectHeight(m_floatPlace)};
    if (IsRectEmpty(&place)) {
        const SIZE wished = firstFloatSize(), least = leastSize();
        place = CFloatFrame::windowAround(
            {std::max(wished.cx, least.cx), std::max(wished.cy, least.cy)});
    }
    OffsetRect(&place, corner.x - place.left, corner.y - place.top);
    return place;
}

std::optional<SIZE> CPaneDialog::lastFloatSize() const {
    if (m_float == nullptr || m_float->handle() == nullptr) return std::nullopt;
    const RECT room = m_float->clientRect();
    return SIZE{room.right, room.bottom};
}

void CPaneDialog::show(bool activate) {
    if (handle() == nullptr) return;
    if (m_hidden && m_mode == Mode::docked) dock();
    if (m_mode == Mode::floating) showFloating(activate);
    m_hidden = false;
    if (!activate) return;
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(handle(), focus)) return;
    const HWND first = initialFocus();
    SetFocus(first != nullptr ? first : handle());
}

void CPaneDialog::hide() {
    if (handle() == nullptr || m_hidden) return;
    const bool hadFocus = IsChild(handle(), GetFocus()) != 0;
    if (m_mode == Mode::docked) {
        leaveFrame();
        ShowWindow(handle(), SW_HIDE);
    } else if (m_float != nullptr) {
        ShowWindow(m_float->handle(), SW_HIDE);
    }
    m_hidden = true;
    if (hadFocus) SetFocus(m_frame);
}

bool CPaneDialog::destroy() {
    const HWND pane = handle();
    const bool destroyed = pane != nullptr && DestroyWindow(pane) != 0;
    if (m_float != nullptr && m_float->handle() != nullptr) DestroyWindow(m_float->handle());
    return destroyed;
}

// ---- What the frame is asked ----

DockRequest CPaneDialog::request() const {
    DockRequest made{};
    made.structSize = sizeof made;
    made.pane = handle();
    return made;
}

LRESULT CPaneDialog::askFrame(UINT message, DockRequest& asked) const {
    return SendMessageA(m_frame, message, 0, reinterpret_cast<LPARAM>(&asked));
}

// Docks where the frame docks and the pane may, floats elsewhere and while Ctrl is down.
CPaneDialog::Drop CPaneDialog::dropFor(POINT screen) const {
    DockRequest asked = request();
    asked.x = screen.x;
    asked.y = screen.y;
    const Drop floats{0, floatPlaceAt({screen.x - scaled(60), screen.y - scaled(10)})};
    if (GetKeyState(VK_CONTROL) < 0 || askFrame(m_queryMessage, asked) == 0 ||
        (asked.side & m_allowedSides) == 0)
        return floats;
    if (asked.side == m_side) {  // at its own side it has an extent
        asked.extent = m_mode == Mode::docked ? presentExtent() : m_extent;
        askFrame(m_queryMessage, asked);
    }
    const DockRectangle& place = asked.place;
    return {asked.side, RECT{place.left, place.top, place.right, place.bottom}};
}

void CPaneDialog::dropAt(POINT screen) {
    const Drop drop = dropFor(screen);
    if (drop.side != 0) return dockAt(drop.side);
    if (m_mode == Mode::floating) return;
    m_floatPlace = drop.place;
    floatPane();
}

void CPaneDialog::floatFrameDragged() {
    POINT cursor{};
    GetCursorPos(&cursor);
    const Drop drop = dropFor(cursor);
    if (drop.side != 0)
        m_preview.show(drop.place);
    else
        m_preview.hide();
}

void CPaneDialog::floatFrameReleased(bool moved) {
    m_preview.hide();
    if (!moved) return;
    GetWindowRect(m_float->handle(), &m_floatPlace);
    POINT cursor{};
    GetCursorPos(&cursor);
    dropAt(cursor);
}

const MessageMap& CPaneDialog::baseMap() {
    static constexpr MessageEntry entries[] = {
        on<WM_INITDIALOG, &CPaneDialog::onInitPane>(),
        on<WM_NCCALCSIZE, &CPaneDialog::onNcCalcSize>(),
        on<WM_NCPAINT, &CPaneDialog::onNcPaint>(),
        on<WM_NCHITTEST, &CPaneDialog::onNcHitTest>(),
        on<WM_NCLBUTTONDOWN, &CPaneDialog::onNcButtonDown>(),
        on<WM_NCLBUTTONDBLCLK, &CPaneDialog::onNcDoubleClick>(),
        on<WM_NCRBUTTONDOWN, &CPaneDialog::onNcRightDown>(),
        on<WM_NCRBUTTONUP, &CPaneDialog::onNcContext>(),
        on<WM_MOUSEMOVE, &CPaneDialog::onMouseMove>(),
        on<WM_LBUTTONUP, &CPaneDialog::onButtonUp>(),
        observe<WM_CAPTURECHANGED, &CPaneDialog::onCaptureLost>(),
        on<kPaneKey, &CPaneDialog::onPaneKey>(),
        on<WM_SETFOCUS, &CPaneDialog::onSetFocus>(),
        onCommand<kAnyId, &CPaneDialog::onButtonFocus, BN_SETFOCUS>(),
        onCommand<kAnyId, &CPaneDialog::onButtonFocus, BN_KILLFOCUS>(),
        on<WM_GETMINMAXINFO, &CPaneDialog::onMinimum>(),
        observe<WM_DESTROY, &CPaneDialog::onDestroy>(),
    };
    static constexpr MessageMap map{nullptr, entries};
    return map;
}

void CPaneDialog::captionChanged() {
    SetWindowPos(handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

int CPaneDialog::captionHeight() const {
    return inFloatFrame() ? 0 : scaled(22);
}

RECT CPaneDialog::captionButton(int place) const {
    RECT window{};
    GetWindowRect(handle(), &window);
    const int size = captionHeight() - scaled(6);
    const int right = rectWidth(window) - scaled(4) - place * (size + scaled(2));
    return {right - size, scaled(3), right, scaled(3) + size};
}

void CPaneDialog::onNcCalcSize(RECT& rect) {
    rect.top = rect.top + captionHeight() < rect.bottom ? rect.top + captionHeight() : rect.bottom;
}

void CPaneDialog::onNcPaint() {
    if (captionHeight() == 0) return;
    const WindowDcScope scope(handle());
    const HDC dc = scope.dc();
    RECT window{};
    GetWindowRect(handle(), &window);
    RECT strip{0, 0, rectWidth(window), captionHeight()};
    FillRect(dc, &strip, GetSysColorBrush(COLOR_3DFACE));
    drawGripper(dc, strip);

    const Font font = captionFont();
    const SelectScope select(dc, font.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    RECT text{scaled(14), 0, captionButton(1).left, strip.bottom};
    DrawTextA(dc, m_caption.c_str(), -1, &text,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    RECT close = captionButton(0);
    DrawFrameControl(dc, &close, DFC_CAPTION, DFCS_CAPTIONCLOSE | DFCS_FLAT);
    RECT restore = captionButton(1);
    DrawFrameControl(dc, &restore, DFC_CAPTION, DFCS_CAPTIONRESTORE | DFCS_FLAT);
}

LRESULT CPaneDialog::onNcHitTest(POINT screen) {
    RECT window{};
    GetWindowRect(handle(), &window);
    const POINT at{screen.x - window.left, screen.y - window.top};
    if (at.y >= captionHeight()) return HTCLIENT;
    const RECT close = captionButton(0);
    const RECT restore = captionButton(1);
    if (PtInRect(&close, at)) return HTCLOSE;
    if (PtInRect(&restore, at)) return HTMINBUTTON;
    return HTCAPTION;
}

void CPaneDialog::onNcButtonDown(UINT hit, POINT screen) {
    if (hit == HTCLOSE) {
        hide();
    } else if (hit == HTMINBUTTON) {
        floatPane();
    } else if (hit == HTCAPTION) {
        m_pressed = true;
        m_pressedAt = screen;
        SetCapture(handle());
    }
}

void CPaneDialog::onNcDoubleClick(UINT hit, POINT) {
    if (hit == HTCAPTION) floatPane();
}

void CPaneDialog::onMouseMove(POINT client) {
    if (!m_pressed) return;
    ClientToScreen(handle(), &client);
    m_dragging = m_dragging || std::abs(client.x - m_pressedAt.x) > GetSystemMetrics(SM_CXDRAG) ||
                 std::abs(client.y - m_pressedAt.y) > GetSystemMetrics(SM_CYDRAG);
    if (!m_dragging) return;
    SetCursor(LoadCursorA(nullptr, IDC_SIZEALL));
    m_preview.show(dropFor(client).place);
}

void CPaneDialog::onButtonUp(POINT client) {
    const bool dropped = m_dragging;
    ClientToScreen(handle(), &client);
    if (m_pressed) ReleaseCapture();
    if (dropped) dropAt(client);
}

void CPaneDialog::onCaptureLost() {
    m_pressed = m_dragging = false;
    m_preview.hide();
}

void CPaneDialog::onNcContext(UINT hit, POINT screen) {
    if (hit == HTCAPTION) showCaptionMenu(screen);
}

void CPaneDialog::showCaptionMenu(POINT screen) {
    const Menu menu(CreatePopupMenu());
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side == 0 || (command.side & m_allowedSides) != 0)
            AppendMenuA(menu.get(), MF_STRING, command.id, command.text);
    const UINT chosen = trackMenu(menu.get(), screen, handle());
    if (chosen == kFloatCommand) floatPane();
    if (chosen == kCloseCommand) hide();
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side != 0 && command.id == chosen) dockAt(command.side);
}

void CPaneDialog::onMinimum(MINMAXINFO& info) {
    const SIZE least = leastSize();
    info.ptMinTrackSize = {least.cx, least.cy + captionHeight()};
}

// Also when the frame takes the pane along, behind a box of its own.
void CPaneDialog::onDestroy() {
    endWindows();
    setModalHome(nullptr);
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_preview.hide();
    if (m_tips != nullptr) DestroyWindow(std::exchange(m_tips, nullptr));
    m_keys.reset();
    m_hidden = true;
}

}  // namespace fw
