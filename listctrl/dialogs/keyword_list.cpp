#include "listctrl/dialogs/keyword_list.h"

#include <algorithm>

#include "framework/list_view.h"
#include "listctrl/dialogs/color_button.h"

namespace mc {
namespace {

constexpr const char* kCaptions[] = {"Keyword", "Color"};
constexpr int kColumnWidth = 100;
constexpr int kColorColumn = 1;

}  // namespace

void CKeywordList::attach(HWND list) {
    m_list = list;
    const fw::ListView view(list);
    view.setExtendedStyle(LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    for (int column = 0; const char* caption : kCaptions)
        view.insertColumn(column++, caption, fw::scaledFor(list, kColumnWidth), LVCFMT_LEFT);
}

// Each row carries its colour.
void CKeywordList::show(const std::vector<Keyword>& keywords) {
    const fw::ListView view(m_list);
    view.removeRows();
    for (const Keyword& keyword : keywords)
        view.addRow(keyword.text, static_cast<LPARAM>(keyword.color));
}

std::vector<std::size_t> CKeywordList::selected() const {
    return fw::ListView(m_list).selectedRows();
}

void CKeywordList::select(std::size_t index) {
    const fw::ListView view(m_list);
    if (const std::size_t rows = view.rowCount(); rows != 0)
        view.select(std::min(index, rows - 1), true);
}

// The platform draws the row; the colour goes on top of its empty second cell.
LRESULT CKeywordList::onCustomDraw(NMLVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYPOSTPAINT;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPOSTPAINT) return CDRF_DODEFAULT;
    RECT cell{};
    ListView_GetSubItemRect(m_list, static_cast<int>(draw.nmcd.dwItemSpec), kColorColumn,
                            LVIR_BOUNDS, &cell);
    InflateRect(&cell, -fw::scaledFor(m_list, 6), -fw::scaledFor(m_list, 2));
    cell.right = std::min(cell.right, cell.left + fw::scaledFor(m_list, 60));
    if (cell.right > cell.left)
        drawColor(draw.nmcd.hdc, cell, static_cast<COLORREF>(draw.nmcd.lItemlParam),
                  GetSysColor(COLOR_WINDOWTEXT));
    return CDRF_DODEFAULT;
}

}  // namespace mc
