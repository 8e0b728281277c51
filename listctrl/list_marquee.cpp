#include "listctrl/list_marquee.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "framework/handles.h"
#include "framework/hwnd.h"
#include "framework/list_view.h"

namespace mc {
namespace {

constexpr UINT_PTR kScrollTimer = 0xF119;  // the control has no timer of this number
constexpr UINT kScrollTime = 50;           // milliseconds

bool isDrag(POINT from, POINT to) {
    return std::abs(from.x - to.x) >= GetSystemMetrics(SM_CXDRAG) ||
           std::abs(from.y - to.y) >= GetSystemMetrics(SM_CYDRAG);
}

// How many lines to scroll, sideways too, with the mouse there.
POINT linesBeyond(const fw::CWindow& list, const CListHeader& header, int height, POINT client) {
    const RECT area = list.clientRect();
    return {linesToScroll(static_cast<int>(client.x), 0, static_cast<int>(area.right), height),
            linesToScroll(static_cast<int>(client.y), header.height(),
                          static_cast<int>(area.bottom), height)};
}

}  // namespace

// ---- Where the rows are ----

POINT CListMarquee::origin() const {
    const RECT first = fw::ListView(m_list.handle()).rowRect(0);
    return {first.left, first.top};
}

Marquee::RowSize CListMarquee::rowSize() const {
    const RECT first = fw::ListView(m_list.handle()).rowRect(0);
    int right = static_cast<int>(first.left);
    for (const RECT& cell : m_header.cellsOf(first)) right = static_cast<int>(cell.right);
    return {right - static_cast<int>(first.left), std::max(fw::heightOf(first), 1)};
}

Marquee::Point CListMarquee::inRows(POINT client) const {
    const POINT zero = origin();
    return {static_cast<int>(client.x - zero.x), static_cast<int>(client.y - zero.y)};
}

// ---- The drag ----

// Boxes may have come between the press and this.
void CListMarquee::begin(POINT client) {
    if (m_store.rowCount() == 0 || !fw::isDown(VK_LBUTTON)) return;
    m_pressed = client;
    m_marquee.begin(inRows(client));
    SetCapture(m_list.handle());
    m_state = State::pressed;
}

bool CListMarquee::drags(POINT client) {
    if (m_state != State::pressed || !isDrag(m_pressed, client)) return m_state == State::dragging;
    m_state = State::dragging;
    SetTimer(m_list.handle(), kScrollTimer, kScrollTime, nullptr);
    return true;
}

void CListMarquee::moveTo(POINT client) {
    const RECT before = frame();
    scrollTo(client);
    m_at = inRows(client);
    m_marquee.moveTo(m_at, rowSize());
    RECT changed{};
    const RECT now = frame();
    UnionRect(&changed, &before, &now);
    InvalidateRect(m_list.handle(), &changed, TRUE);
}

// What scrolls takes the frame along.
void CListMarquee::scrollTo(POINT client) {
    const int height = rowSize().height;
    const POINT lines = linesBeyond(m_list, m_header, height, client);
    if (lines.x == 0 && lines.y == 0) return;
    fw::ListView(m_list.handle())
        .scroll(static_cast<int>(lines.x) * height, static_cast<int>(lines.y) * height);
    InvalidateRect(m_list.handle(), nullptr, TRUE);
}

std::optional<POINT> CListMarquee::onTimer(UINT_PTR id) const {
    if (id != kScrollTimer || m_state != State::dragging) return std::nullopt;
    const POINT at = fw::mousePointIn(m_list.handle());
    const POINT lines = linesBeyond(m_list, m_header, rowSize().height, at);
    return lines.x != 0 || lines.y != 0 ? std::optional(at) : std::nullopt;
}

// ---- The end ----

CListMarquee::State CListMarquee::stop() {
    const State before = std::exchange(m_state, State::none);
    if (before != State::dragging) return before;
    KillTimer(m_list.handle(), kScrollTimer);
    InvalidateRect(m_list.handle(), nullptr, TRUE);
    return before;
}

bool CListMarquee::end() {
    const State before = stop();
    if (before != State::none && GetCapture() == m_list.handle()) ReleaseCapture();
    return before == State::dragging;
}

bool CListMarquee::isLost() {
    return stop() == State::dragging;
}

// ---- The frame ----

RECT CListMarquee::frame() const {
    const POINT zero = origin();
    const Marquee::Point from = m_marquee.from();
    const auto [left, right] = std::minmax(from.x, m_at.x);
    const auto [top, bottom] = std::minmax(from.y, m_at.y);
    return {zero.x + left, zero.y + top, zero.x + right + 1, zero.y + bottom + 1};
}

void CListMarquee::draw() const {
    if (m_state != State::dragging) return;
    const fw::DcScope dc(m_list.handle());
    const RECT rect = frame();
    FrameRect(dc.dc(), &rect, GetSysColorBrush(COLOR_HIGHLIGHT));
}

}  // namespace mc
