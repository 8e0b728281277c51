#include "editors/drag_list.h"

#include <algorithm>

#include "framework/handles.h"
#include "framework/hwnd.h"

namespace mc {
namespace {

constexpr UINT_PTR kScrollTimer = 0xD4A6;
constexpr UINT kScrollPause = 80;  // milliseconds between rows
constexpr int kNoGap = -1;

}  // namespace

const fw::MessageMap& CDragList::messageMap() const {
    static constexpr fw::MessageEntry entries[] = {
        fw::onReflected<LVN_BEGINDRAG, &CDragList::onBeginDrag>(),
        fw::offer<WM_MOUSEMOVE, &CDragList::onMouseMove>(),
        fw::offer<WM_LBUTTONUP, &CDragList::onButtonUp>(),
        fw::offer<WM_RBUTTONDOWN, &CDragList::onRightDown>(),
        fw::observe<WM_CAPTURECHANGED, &CDragList::onCaptureLost>(),
        fw::offer<WM_KEYDOWN, &CDragList::onKeyDown>(),
        fw::offer<WM_SYSKEYDOWN, &CDragList::onSystemKeyDown>(),
        fw::on<WM_GETDLGCODE, &CDragList::onGetDialogCode>(),
        fw::offer<WM_TIMER, &CDragList::onTimer>(),
        fw::on<WM_PAINT, &CDragList::onPaint>(),
    };
    static constexpr fw::MessageMap map{nullptr, entries};
    return map;
}

// ---- By keys ----

bool CDragList::onSystemKeyDown(UINT key, bool) {
    if (key != VK_UP && key != VK_DOWN) return false;
    m_owner.rowsMoved(key == VK_DOWN);
    return true;
}

bool CDragList::onKeyDown(UINT key, bool) {
    if (!m_dragging) return false;
    if (key == VK_ESCAPE) endDrag();
    return true;
}

// While rows are dragged, Esc ends the drag and not the dialog.
LRESULT CDragList::onGetDialogCode(const MSG* message) {
    const LRESULT code = controlDefault(WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(message));
    return m_dragging ? code | DLGC_WANTALLKEYS : code;
}

// ---- With the mouse ----

void CDragList::onBeginDrag(NMLISTVIEW& drag) {
    if (view().selectedRows().empty()) return;
    SetCapture(handle());
    SetTimer(handle(), kScrollTimer, kScrollPause, nullptr);
    m_dragging = true;
    onMouseMove(drag.ptAction);
}

bool CDragList::onMouseMove(POINT client) {
    if (!m_dragging) return false;
    m_y = client.y;
    setGap(gapAt(m_y));
    return true;
}

bool CDragList::onButtonUp(POINT client) {
    if (!m_dragging) return false;
    const int gap = gapAt(client.y);
    endDrag();
    m_owner.rowsDropped(static_cast<std::size_t>(gap));
    return true;
}

bool CDragList::onRightDown(POINT) {
    const bool dragging = m_dragging;
    endDrag();
    return dragging;
}

void CDragList::endDrag() {
    if (!m_dragging) return;
    m_dragging = false;
    KillTimer(handle(), kScrollTimer);
    setGap(kNoGap);
    if (GetCapture() == handle()) ReleaseCapture();
}

bool CDragList::onTimer(UINT_PTR id) {
    if (!m_dragging || id != kScrollTimer) return false;
    const int top = static_cast<int>(view().topRow());
    const int page = static_cast<int>(view().rowsPerPage());
    const int next = m_y < 0 ? top - 1 : m_y >= clientRect().bottom ? top + page : -1;
    if (next < 0 || next >= rowCount()) return true;
    setGap(kNoGap);  // the line would scroll along
    view().bringIntoView(static_cast<std::size_t>(next));
    setGap(gapAt(m_y));
    return true;
}

// ---- The line ----

int CDragList::rowCount() const {
    return static_cast<int>(view().rowCount());
}

// Of the first row, scrolled out of sight or not; a row of no height where there is none.
RECT CDragList::firstRow() const {
    RECT row{};
    return ListView_GetItemRect(handle(), 0, &row, LVIR_BOUNDS) != 0 ? row : RECT{};
}

int CDragList::gapAt(int y) const {
    const RECT row = firstRow();
    const int height = std::max(fw::heightOf(row), 1);
    const int gap = (y - static_cast<int>(row.top) + height / 2) / height;
    return std::clamp(gap, 0, rowCount());
}

int CDragList::gapTop(int gap) const {
    const RECT row = firstRow();
    return static_cast<int>(row.top + gap * fw::heightOf(row));
}

void CDragList::setGap(int gap) {
    if (gap == m_gap) return;
    const auto invalidate = [this](int at) {
        RECT line = clientRect();
        line.top = gapTop(at) - scaled(2);
        line.bottom = gapTop(at) + scaled(2);
        InvalidateRect(handle(), &line, TRUE);
    };
    if (m_gap != kNoGap) invalidate(m_gap);
    m_gap = gap;
    if (m_gap != kNoGap) invalidate(m_gap);
    UpdateWindow(handle());
}

LRESULT CDragList::onPaint() {
    const LRESULT result = controlDefault(WM_PAINT, 0, 0);
    if (m_gap == kNoGap) return result;
    RECT line = clientRect();
    const int half = std::max(scaled(1), 1);
    const int middle = std::clamp(gapTop(m_gap), half, static_cast<int>(line.bottom) - half);
    line.top = middle - half;
    line.bottom = middle + half;
    const fw::DcScope scope(handle());
    FillRect(scope.dc(), &line, GetSysColorBrush(COLOR_WINDOWTEXT));
    return result;
}

}  // namespace mc
