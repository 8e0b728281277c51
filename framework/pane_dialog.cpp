#include "framework/pane_dialog.h"

#include <cstdlib>

#include "framework/float_frame.h"
#include "framework/model/dock_layout.h"
#include "sdk/docking.h"

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
      m_queryMessage(RegisterWindowMessageA(kDockQueryMessage)) {}

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
    m_keys = std::make_unique<CKeyFilter>(pane);
    return true;
}

void CPaneDialog::dockAt(unsigned side) {
    if (side != m_side) m_extent = 0;
    m_side = side;
    dock();
}

void CPaneDialog::dock() {
    if (handle() == nullptr) return;
    m_mode = Mode::docked;
    m_hidden = false;
    const unsigned side = m_side & m_allowedSides;
    if (side == 0 || askFrame(m_attachMessage, side, m_extent, {}, nullptr) == 0) {
        m_mode = Mode::floating;
        showFloating(false);
        return;
    }
    captionChanged();
    if (m_float != nullptr) ShowWindow(m_float->handle(), SW_HIDE);
}

void CPaneDialog::floatPane() {
    if (handle() == nullptr) return;
    if (m_mode == Mode::docked && !m_hidden) leaveFrame();
    m_mode = Mode::floating;
    m_hidden = false;
    showFloating(true);
}

void CPaneDialog::leaveFrame() {
    RECT window{};
    GetWindowRect(handle(), &window);
    m_extent = acrossIsHeight(m_side) ? rectHeight(window) : rectWidth(window);
    askFrame(m_detachMessage, 0, 0, {}, nullptr);
}

bool CPaneDialog::inFloatFrame() const {
    return m_float != nullptr && GetParent(handle()) == m_float->handle();
}

void CPaneDialog::showFloating(bool activate) {
    if (IsRectEmpty(&m_floatPlace)) {
        GetWindowRect(m_frame, &m_floatPlace);
        m_floatPlace.left += scaled(60);
        m_floatPlace.top += scaled(90);
        m_floatPlace.right = m_floatPlace.left + scaled(800);
        m_floatPlace.bottom = m_floatPlace.top + scaled(480);
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
    return pane != nullptr && DestroyWindow(pane) != 0;
}

LRESULT CPaneDialog::askFrame(UINT message, unsigned side, int extent, POINT at,
                              unsigned* found) const {
    DockRequest request{};
    request.structSize = sizeof request;
    request.pane = handle();
    request.side = side;
    request.extent = extent;
    request.x = at.x;
    request.y = at.y;
    const LRESULT answer = SendMessageA(m_frame, message, 0, reinterpret_cast<LPARAM>(&request));
    if (found != nullptr) *found = request.side;
    return answer;
}

// Docks where the frame docks and the pane may, floats elsewhere.
void CPaneDialog::dropAt(POINT screen) {
    unsigned side = 0;
    if (askFrame(m_queryMessage, 0, 0, screen, &side) != 0 && (side & m_allowedSides) != 0) {
        dockAt(side);
        return;
    }
    if (m_mode == Mode::floating) return;
    RECT place{};
    GetWindowRect(handle(), &place);
    OffsetRect(&place, screen.x - m_pressedAt.x, screen.y - m_pressedAt.y);
    m_floatPlace = place;
    floatPane();
}

void CPaneDialog::floatFrameMoved() {
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
        on<WM_NCRBUTTONUP, &CPaneDialog::onNcContext>(),
        on<WM_MOUSEMOVE, &CPaneDialog::onMouseMove>(),
        on<WM_LBUTTONUP, &CPaneDialog::onButtonUp>(),
        observe<WM_CAPTURECHANGED, &CPaneDialog::onCaptureLost>(),
        on<kPaneKey, &CPaneDialog::onDialogKey>(),
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
    if (m_dragging) SetCursor(LoadCursorA(nullptr, IDC_SIZEALL));
}

void CPaneDialog::onButtonUp(POINT client) {
    const bool dropped = m_dragging;
    ClientToScreen(handle(), &client);
    if (m_pressed) ReleaseCapture();
    if (dropped) dropAt(client);
}

void CPaneDialog::onCaptureLost() {
    m_pressed = m_dragging = false;
}

void CPaneDialog::onNcContext(UINT hit, POINT screen) {
    if (hit != HTCAPTION) return;
    const Menu menu(CreatePopupMenu());
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side == 0 || (command.side & m_allowedSides) != 0)
            AppendMenuA(menu.get(), MF_STRING, command.id, command.text);
    const auto chosen = static_cast<UINT>(TrackPopupMenu(
        menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, handle(), nullptr));
    if (chosen == kFloatCommand) floatPane();
    if (chosen == kCloseCommand) hide();
    for (const CaptionCommand& command : kCaptionCommands)
        if (command.side != 0 && command.id == chosen) dockAt(command.side);
}

void CPaneDialog::onDialogKey(UINT key, bool repeated) {
    const LPARAM flags = repeated ? LPARAM{1} | (LPARAM{KF_REPEAT} << 16) : LPARAM{1};
    // A key that is held down decides nothing.
    if (key == VK_RETURN && repeated) return;
    MSG message{GetFocus(), WM_KEYDOWN, key, flags, static_cast<DWORD>(GetMessageTime()), {}};
    if (message.hwnd == nullptr || IsDialogMessageA(handle(), &message) != 0) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

void CPaneDialog::onDestroy() {
    if (m_mode == Mode::docked && !m_hidden) askFrame(m_detachMessage, 0, 0, {}, nullptr);
    m_keys.reset();
    m_hidden = true;
}

}  // namespace fw
