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
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    for (int column = 0; column < static_cast<int>(std::size(kCaptions)); ++column) {
        LVCOLUMNA info{};
        info.mask = LVCF_TEXT | LVCF_WIDTH;
        info.pszText = const_cast<char*>(kCaptions[column]);
        info.cx = fw::scaledFor(list, kColumnWidth);
        SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&info));
    }
}

// The colour stands with the row.
void CKeywordList::show(const std::vector<Keyword>& keywords) {
    SendMessageA(m_list, LVM_DELETEALLITEMS, 0, 0);
    int row = 0;
    for (const Keyword& keyword : keywords) {
        LVITEMA item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row++;
        item.pszText = const_cast<char*>(keyword.text.c_str());
        item.lParam = static_cast<LPARAM>(keyword.color);
        SendMessageA(m_list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
}

std::vector<std::size_t> CKeywordList::selected() const {
    std::vector<std::size_t> places;
    for (LRESULT row = -1; (row = SendMessageA(m_list, LVM_GETNEXTITEM, static_cast<WPARAM>(row),
                                               LVNI_SELECTED)) >= 0;)
        places.push_back(static_cast<std::size_t>(row));
    return places;
}

void CKeywordList::select(std::size_t place) {
    const auto rows = static_cast<std::size_t>(SendMessageA(m_list, LVM_GETITEMCOUNT, 0, 0));
    if (rows == 0) return;
    LVITEMA item{};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageA(m_list, LVM_SETITEMSTATE, std::min(place, rows - 1),
                 reinterpret_cast<LPARAM>(&item));
}

// The platform draws the row; the colour goes on top of its empty second cell.
LRESULT CKeywordList::onCustomDraw(NMLVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYPOSTPAINT;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPOSTPAINT) return CDRF_DODEFAULT;
    RECT cell{};
    cell.top = kColorColumn;
    cell.left = LVIR_BOUNDS;
    SendMessageA(m_list, LVM_GETSUBITEMRECT, draw.nmcd.dwItemSpec, reinterpret_cast<LPARAM>(&cell));
    InflateRect(&cell, -fw::scaledFor(m_list, 6), -fw::scaledFor(m_list, 2));
    cell.right = std::min(cell.right, cell.left + fw::scaledFor(m_list, 60));
    if (cell.right > cell.left)
        drawColor(draw.nmcd.hdc, cell, static_cast<COLORREF>(draw.nmcd.lItemlParam),
                  GetSysColor(COLOR_WINDOWTEXT));
    return CDRF_DODEFAULT;
}

}  // namespace mc
