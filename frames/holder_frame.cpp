#include "frames/holder_frame.h"

#include <algorithm>

#include "framework/dialog.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/model/dots.h"
#include "framework/platform.h"

namespace mc {
namespace {

enum : UINT { kAppearance = 1, kEvenOut };

// Pixels at 96 dots per inch.
constexpr int kBarThickness = 6;
constexpr int kMinView = 90;
constexpr int kKeyStep = 8;

}  // namespace

bool CVTHolderFrame::create(HWND parent, const RECT& rect, UINT id) {
    static const fw::WindowClass windowClass{"MakerChecker.HolderFrame", 0, IDC_ARROW,
                                             COLOR_3DFACE};
    return CWindow::create(windowClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
                           WS_EX_CONTROLPARENT, rect, parent, id);
}

const fw::MessageMap& CVTHolderFrame::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::on<WM_SIZE, &CVTHolderFrame::onSize>(),
        fw::observe<WM_DESTROY, &CVTHolderFrame::onDestroy>(),
        fw::onNotify<fw::kAnyId, fw::kAnyCode, &CVTHolderFrame::onNotify>(),
        fw::on<WM_DRAWITEM, &CVTHolderFrame::onDrawItem>(),
        fw::on<WM_MEASUREITEM, &CVTHolderFrame::onMeasureItem>(),
        fw::on<WM_LBUTTONDOWN, &CVTHolderFrame::onButtonDown>(),
        fw::on<WM_RBUTTONUP, &CVTHolderFrame::onRightUp>(),
        fw::on<fw::kOpenMenu, &CVTHolderFrame::showMenu>(),
        fw::on<WM_PAINT, &CVTHolderFrame::onPaint>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

// The frame draws the border: a view's own would be a second one.
void CVTHolderFrame::setViews(std::vector<HeldView> views) {
    // What asks for memory comes first: each view has its frame and its share.
    m_frames.resize(views.size());
    m_split.setCount(views.size());
    m_views = std::move(views);
    for (const HeldView& view : m_views) {
        const auto style = GetWindowLongPtrA(view.window, GWL_EXSTYLE);
        SetWindowLongPtrA(view.window, GWL_EXSTYLE, style & ~LONG_PTR{WS_EX_CLIENTEDGE});
        SetWindowPos(view.window, nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
    while (m_bars.size() + 1 < m_views.size()) makeBar(m_bars.size());
    layOut();
    restoreSizes();
}

void CVTHolderFrame::setTitle(std::size_t view, const std::string& title) {
    if (view >= m_views.size() || m_views[view].title == title) return;
    m_views[view].title = title;
    noteChanged(view);
}

void CVTHolderFrame::noteChanged(std::size_t view) {
    if (view >= m_frames.size()) return;
    const RECT strip = m_frames[view].strip();
    InvalidateRect(handle(), &strip, FALSE);
}

void CVTHolderFrame::makeBar(std::size_t index) {
    SplitterEvents events;
    events.grabbed = [this] { m_before = m_split; };
    events.putBack = [this] {
        m_split = m_before;
        layOut();
    };
    events.movedTo = [this, index](int position) {
        m_split.moveBar(index, position);
        layOut();
    };
    events.stepped = [this, index](BarMove move) {
        m_split.moveBar(index, move, scaled(kKeyStep));
        layOut();
    };
    events.evenedOut = [this] { evenOut(); };
    m_bars.push_back(std::make_unique<CSplitterBar>(m_rows, std::move(events)));
    m_bars.back()->create(handle());
}

void CVTHolderFrame::evenOut() {
    m_split.evenOut();
    layOut();
}

// The settings store gives no sizes back (settings/model/settings_store.h), so the panes stay even.
void CVTHolderFrame::restoreSizes() {
    if (m_views.size() < 2) return;
    for (std::size_t i = 0; i < m_views.size(); ++i)
        if (const auto size = m_settings.restoreSplitterSize(m_views[i].keyName))
            m_split.setSize(i, scaled(*size));
    layOut();
}

void CVTHolderFrame::onDestroy() {
    if (m_views.size() < 2) return;
    for (std::size_t i = 0; i < m_views.size(); ++i)
        m_settings.saveSplitterSize(m_views[i].keyName,
                                    fw::toUnits(m_split.sizeOf(i), fw::dpiOf(handle())));
}

// ---- Lay-out ----

void CVTHolderFrame::move(const RECT& rect) {
    SetWindowPos(handle(), nullptr, rect.left, rect.top, std::max(fw::widthOf(rect), 0),
                 std::max(fw::heightOf(rect), 0), SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVTHolderFrame::layOut() {
    const RECT client = clientRect();
    m_split.setRoom(static_cast<int>(m_rows ? client.bottom : client.right),
                    {scaled(kBarThickness), scaled(kMinView)});
    const auto part = [&](int start, int size) {
        return m_rows ? RECT{0, start, client.right, start + size}
                      : RECT{start, 0, start + size, client.bottom};
    };
    const auto moveTo = [](HWND window, const RECT& to) {
        SetWindowPos(window, nullptr, to.left, to.top, to.right - to.left, to.bottom - to.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    };
    for (std::size_t i = 0; i < m_views.size(); ++i) {
        m_frames[i].setRect(part(m_split.startOf(i), m_split.sizeOf(i)), lineHeight() + scaled(6));
        RECT view = m_frames[i].view();
        if (const HWND foot = m_views[i].foot) {
            const LONG bottom = view.bottom;
            view.bottom -= footHeight(view);
            moveTo(foot, {view.left, view.bottom, view.right, bottom});
        }
        moveTo(m_views[i].window, view);
    }
    for (std::size_t i = 0; i < m_bars.size(); ++i)
        moveTo(m_bars[i]->handle(), part(m_split.startOfBar(i), scaled(kBarThickness)));
    InvalidateRect(handle(), nullptr, FALSE);
    UpdateWindow(handle());
}

// Two lines of text where one is short; none where the view has little room itself.
int CVTHolderFrame::footHeight(const RECT& view) const {
    constexpr int kWideEnough = 760, kMinLines = 6;
    const int lines = fw::widthOf(view) < scaled(kWideEnough) ? 2 : 1;
    const int height = lines * lineHeight() + scaled(4);
    return fw::heightOf(view) - height < kMinLines * lineHeight() ? 0 : height;
}

HFONT CVTHolderFrame::font() const {
    return fw::fontOf(GetParent(handle()));
}

int CVTHolderFrame::lineHeight() const {
    const TEXTMETRICA metrics = fw::metricsOf(font(), handle());
    return static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading);
}

// ---- What the views ask ----

LRESULT CVTHolderFrame::onNotify(NMHDR& header) {
    const auto lParam = reinterpret_cast<LPARAM>(&header);
    // The frames show which view has the focus.
    if (header.code == NM_SETFOCUS || header.code == NM_KILLFOCUS)
        InvalidateRect(handle(), nullptr, FALSE);
    const LRESULT own = reflectNotify(header.idFrom, lParam);
    const LRESULT parent = SendMessageA(GetParent(handle()), WM_NOTIFY, header.idFrom, lParam);
    return own != 0 ? own : parent;
}

// The held views are owner-drawn lists, which draw and measure their rows themselves.
LRESULT CVTHolderFrame::onDrawItem(const DRAWITEMSTRUCT& draw) {
    return reflectDrawItem(draw);
}

LRESULT CVTHolderFrame::onMeasureItem(MEASUREITEMSTRUCT& measure) {
    return SendDlgItemMessageA(handle(), static_cast<int>(measure.CtlID), WM_MEASUREITEM,
                               measure.CtlID, reinterpret_cast<LPARAM>(&measure));
}

// ---- Titles and their menus ----

void CVTHolderFrame::onButtonDown(POINT client) {
    for (std::size_t i = 0; i < m_views.size(); ++i) {
        const RECT strip = m_frames[i].strip(), button = m_frames[i].menuButton();
        if (PtInRect(&strip, client) == 0) continue;
        SetFocus(m_views[i].window);
        if (PtInRect(&button, client) == 0) return;
        POINT below{button.left, button.bottom};
        ClientToScreen(handle(), &below);
        return fw::postMenu(handle(), static_cast<UINT>(i), below);
    }
}

void CVTHolderFrame::onRightUp(POINT client) {
    for (std::size_t i = 0; i < m_views.size(); ++i) {
        const RECT strip = m_frames[i].strip();
        if (PtInRect(&strip, client) == 0) continue;
        ClientToScreen(handle(), &client);
        return fw::postMenu(handle(), static_cast<UINT>(i), client);
    }
}

void CVTHolderFrame::showMenu(UINT view, POINT screen) {
    if (view >= m_views.size()) return;
    const fw::Menu menu(CreatePopupMenu());
    const auto openAppearance = m_views[view].openAppearance;
    AppendMenuA(menu.get(), openAppearance ? MF_STRING : MF_STRING | MF_GRAYED, kAppearance,
                "&Colours and Font...");
    AppendMenuA(menu.get(), MF_STRING, kEvenOut, "&Even Out");
    const UINT chosen = fw::trackMenu(menu.get(), screen, handle());
    if (chosen == kEvenOut) evenOut();
    if (chosen == kAppearance && openAppearance) openAppearance();
}

std::string CVTHolderFrame::titleOf(const HeldView& view) const {
    const std::string note = view.note ? view.note() : "";
    return note.empty() ? view.title : view.title + " - " + note;
}

void CVTHolderFrame::onPaint() {
    const fw::PaintScope paint(handle());
    const RECT client = clientRect();
    FillRect(paint.dc(), &client, GetSysColorBrush(COLOR_3DFACE));
    const fw::SelectScope select(paint.dc(), font());
    const HWND focus = GetFocus();
    for (std::size_t i = 0; i < m_views.size(); ++i) {
        const HWND view = m_views[i].window;
        m_frames[i].draw(paint.dc(), titleOf(m_views[i]),
                         focus == view || IsChild(view, focus) != 0);
    }
}

}  // namespace mc
