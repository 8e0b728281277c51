#include "listctrl/dialogs/keyword_list.h"

#include <algorithm>

#include "listctrl/dialogs/color_button.h"

namespace mc {
namespace {

constexpr const char* kCaptions[] = {"Keyword", "Color"};
constexpr int kColumnWidth = 100;
constexpr int kColorColumn = 1;

}  // namespace

void CKeywordList::attach(HWND list) {
    m_list = list;
    ListView_SetExtendedListViewStyleEx(list, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    for (int column = 0; column < static_cast<int>(std::size(kCaptions)); ++column) {
        LVCOLUMNA info{};
        info.mask = LVCF_TEXT | LVCF_WIDTH;
        info.pszText = const_cast<char*>(kCaptions[column]);
        info.cx = fw::scaledFor(list, kColumnWidth);
        ListView_InsertColumn(list, column, &info);
    }
}

// Each row carries its colour.
void CKeywordList::show(const std::vector<Keyword>& keywords) {
    ListView_DeleteAllItems(m_list);
    int row = 0;
    for (const Keyword& keyword : keywords) {
        LVITEMA item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row++;
        item.pszText = const_cast<char*>(keyword.text.c_str());
        item.lParam = static_cast<LPARAM>(keyword.color);
        ListView_InsertItem(m_list, &item);
    }
}

std::vector<std::size_t> CKeywordList::selected() const {
    std::vector<std::size_t> indexes;
    for (int row = -1; (row = ListView_GetNextItem(m_list, row, LVNI_SELECTED)) >= 0;)
        indexes.push_back(static_cast<std::size_t>(row));
    return indexes;
}

void CKeywordList::select(std::size_t index) {
    const int rows = ListView_GetItemCount(m_list);
    if (rows == 0) return;
    const int row = std::min(static_cast<int>(index), rows - 1);
    ListView_SetItemState(m_list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
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
