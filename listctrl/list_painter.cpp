#include "listctrl/list_painter.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "framework/drawing.h"
#include "framework/handles.h"
#include "framework/hwnd.h"
#include "listctrl/marked_text.h"
#include "listctrl/model/empty_text.h"

namespace mc {
namespace {

// No screen is wider than this many characters, and this many fill one.
constexpr std::size_t kMaxDrawn = 4096;
constexpr std::size_t kMaxTip = 1000;

}  // namespace

// ---- Rows ----

LRESULT CListPainter::onDrawItem(const DRAWITEMSTRUCT& draw) {
    const auto row = static_cast<std::size_t>(draw.itemID);
    const RecordStore& store = m_content.store();
    const bool focused = GetFocus() == m_list.handle();
    const bool selected = store.selection().selected(row);
    const RowColors colors = selected ? selectionColors(focused) : colorsOf(row);
    const std::vector<RECT> cells = m_header.cellsOf(draw.rcItem);
    RECT whole = draw.rcItem;  // which may begin behind the first cell's edge
    if (!cells.empty()) whole.left = std::min(whole.left, cells.front().left);
    fw::fill(draw.hDC, whole, colors.background);
    SetTextColor(draw.hDC, colors.text);
    SetBkMode(draw.hDC, TRANSPARENT);
    const bool ownLooks = !selected && !highContrast();
    fw::FontScope font(draw.hDC);
    int item = 0;
    for (const RECT& cell : cells)
        if (item < m_content.shownCount()) drawCell(draw.hDC, font, {row, item++}, cell, ownLooks);
    if (focused && store.selection().focusedRow() == row) DrawFocusRect(draw.hDC, &draw.rcItem);
    return TRUE;
}

RowColors CListPainter::colorsOf(std::size_t row) const {
    const auto column = m_appearance.keywordColumn();
    if (!column || !m_content.columns().has(*column)) return m_appearance.colors();
    return m_appearance.colorsOf(m_content.text(row, *column));
}

CellLook CListPainter::lookOf(std::size_t row, int item) const {
    return m_looks != nullptr ? m_looks->look(row, item) : CellLook{};
}

void CListPainter::drawCell(HDC dc, fw::FontScope& font, ListCell cell, const RECT& rect,
                            bool ownLooks) const {
    CellLook look = lookOf(cell.row, cell.item);
    if (!ownLooks) look.runColor.reset();
    if (look.fontYields && drawnWidth(cell, look) > roomIn(rect)) look.font = nullptr;
    const COLORREF rowText = GetTextColor(dc), rowGround = GetBkColor(dc);
    if (ownLooks && look.background) fw::fill(dc, rect, *look.background);
    if (ownLooks && look.text) SetTextColor(dc, readableOn(GetBkColor(dc), *look.text));
    font.use(look.font);
    drawText(dc, cell, rect, look);
    SetTextColor(dc, rowText);
    if (m_looks != nullptr) m_looks->drawOver(dc, cell.row, cell.item, rect);
    SetBkColor(dc, rowGround);
}

std::string_view CListPainter::textOf(ListCell cell, const CellLook& look) const {
    return look.shown.empty() ? m_content.text(cell.row, m_content.columnAt(cell.item))
                              : look.shown;
}

void CListPainter::drawText(HDC dc, ListCell cell, const RECT& rect, const CellLook& look) const {
    const ColumnId column = m_content.columnAt(cell.item);
    const std::string_view text = textOf(cell, look).substr(0, kMaxDrawn);
    RECT inside{rect.left + margin() + look.indent, rect.top, rect.right - margin(), rect.bottom};
    if (text.empty() || inside.right <= inside.left) return;
    // The platform aligns the first column of a list, and its caption, to the left.
    const int flag =
        cell.item == 0 ? 0 : m_content.columns().descriptor(column).flag & LVCFMT_JUSTIFYMASK;
    const int room = fw::widthOf(inside);
    INT steps[kMaxDrawn + kDots.size()];
    const int width = m_widths.stepsOf(text, look.font, steps);
    const bool fits = width <= room;
    if (!look.runs.empty()) {
        if (fits) inside.left += flag == 1 ? room - width : flag == 2 ? (room - width) / 2 : 0;
        return drawMarkedText(dc, {text, look, m_widths, m_list.scaled(2)}, inside);
    }
    if (fits) return drawLetters(dc, {text, steps, width}, inside, flag);
    const std::string cut = cutText(text, room, look.font);
    const int cutWidth = m_widths.stepsOf(cut, look.font, steps);
    drawLetters(dc, {cut, steps, cutWidth}, inside, flag);
}

// Each character as wide as it was measured: the platform may draw it narrower or wider by a pixel,
// and a text that is aligned by its width would end elsewhere.
void CListPainter::drawLetters(HDC dc, const Letters& letters, const RECT& rect, int flag) {
    const int room = fw::widthOf(rect);
    const int spare = std::max(room - letters.width, 0);
    const int left = static_cast<int>(rect.left) + (flag == 1 ? spare : flag == 2 ? spare / 2 : 0);
    const UINT options = letters.width > room ? ETO_CLIPPED : 0;
    ExtTextOutA(dc, left, static_cast<int>(rect.top), options, &rect, letters.text.data(),
                static_cast<UINT>(letters.text.size()), letters.steps);
}

// As much of a text that does not fit as does with dots behind it.
std::string CListPainter::cutText(std::string_view text, int room, HFONT font) const {
    int left = room - m_widths.widthOf(kDots, font);
    std::size_t end = 0;
    while (end < text.size()) {
        const std::size_t bytes = IsDBCSLeadByte(static_cast<BYTE>(text[end])) != 0 ? 2 : 1;
        left -= m_widths.widthOf(text.substr(end, bytes), font);
        if (left < 0) break;
        end += bytes;
    }
    return std::string(text.substr(0, end)).append(kDots);
}

// A row is as high as the font's text and its external leading, and a pixel.
LRESULT CListPainter::onMeasureItem(MEASUREITEMSTRUCT& measure) {
    const HWND list = m_list.handle();
    const TEXTMETRICA metrics = fw::metricsOf(fw::fontOf(list), list);
    measure.itemHeight = static_cast<UINT>(metrics.tmHeight + metrics.tmExternalLeading + 1);
    return TRUE;
}

// ---- An empty list ----

void CListPainter::setEmptyText(std::string text) {
    m_emptyText = std::move(text);
    if (m_list.handle() != nullptr) onAreaChanged();
}

void CListPainter::onAreaChanged() {
    if (m_content.store().rowCount() == 0) InvalidateRect(m_list.handle(), nullptr, TRUE);
}

void CListPainter::drawEmptyText() const {
    const RecordStore& store = m_content.store();
    const std::string text = emptyListText(store.stored().size(), store.rowCount(), m_emptyText);
    if (text.empty()) return;
    RECT area = m_list.clientRect();
    area.top += m_header.height() + m_list.scaled(8);
    InflateRect(&area, -margin(), 0);
    const fw::DcScope scope(m_list.handle());
    const fw::SelectScope select(scope.dc(), fw::fontOf(m_list.handle()));
    SetBkMode(scope.dc(), TRANSPARENT);
    const auto [paper, ink] = m_appearance.colors();
    SetTextColor(scope.dc(), faint(ink, paper));
    DrawTextA(scope.dc(), text.c_str(), -1, &area, DT_CENTER | DT_WORDBREAK | DT_NOPREFIX);
}

// ---- Widths ----

int CListPainter::captionWidth(ColumnId column) const {
    constexpr int kBesideCaption = 24;  // margins and sort image
    return m_widths.widthOf(m_content.columns().descriptor(column).caption) +
           m_list.scaled(kBesideCaption);
}

// Without the margins.
int CListPainter::drawnWidth(ListCell cell, const CellLook& look) const {
    return look.indent + m_widths.widthOf(textOf(cell, look), look.font);
}

int CListPainter::dataWidth(int item, const LongWork& work) const {
    int widest = 0;
    for (std::size_t row = 0; row < m_content.store().rowCount(); ++row) {
        widest = std::max(widest, drawnWidth({row, item}, lookOf(row, item)));
        work.did();
    }
    return widest + 2 * margin();
}

int CListPainter::roomIn(const RECT& cell) const {
    return fw::widthOf(cell) - 2 * margin();
}

bool CListPainter::isCutOff(ListCell cell) const {
    const RECT rect = m_header.rectOf(cell);
    const bool outside = rect.right > m_list.clientRect().right || rect.left < 0;
    CellLook look = lookOf(cell.row, cell.item);
    if (look.fontYields) look.font = nullptr;
    return outside || drawnWidth(cell, look) > roomIn(rect);
}

std::string CListPainter::tipOf(ListCell cell) const {
    std::string tip;
    if (isCutOff(cell))
        tip = m_content.text(cell.row, m_content.columnAt(cell.item)).substr(0, kMaxTip);
    const std::string more = m_looks != nullptr ? m_looks->tip(cell.row, cell.item) : "";
    if (!tip.empty() && !more.empty()) tip += "\r\n";
    return tip + more;
}

}  // namespace mc
