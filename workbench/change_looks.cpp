#include "workbench/change_looks.h"

#include <algorithm>

#include "framework/handles.h"
#include "framework/model/dots.h"
#include "framework/platform.h"

namespace mc {
namespace {

// A mark is made of dots, one pixel each at 96 dots per inch. It is no wider than a margin.
constexpr std::string_view kChanged[] = {"#   ", "##  ", "### ", "####", "### ", "##  ", "#   "};
constexpr std::string_view kNew[] = {"  #  ", "  #  ", "#####", "  #  ", "  #  "};
constexpr std::string_view kDoubtful[] = {" ### ", "#   #", "    #", "   # ",
                                          "  #  ", "     ", "  #  "};
constexpr std::string_view kAccept[] = {"    #", "    #", "   # ", "#  # ",
                                        "## # ", " ##  ", " ##  "};
constexpr std::string_view kReject[] = {"#   #", "## ##", " ### ", "  #  ",
                                        " ### ", "## ##", "#   #"};
constexpr std::string_view kUpdate[] = {"  #  ", " ### ", "#####", "  #  ",
                                        "  #  ", "  #  ", "  #  "};

// Pixels at 96 dots per inch; a cell has a margin at both sides.
constexpr int kMargin = 6;
constexpr int kBarLeft = 1;  // so that the row's colour shows at both sides of it
constexpr int kBarRight = 3;
constexpr int kBesideBar = 2;
constexpr int kBeforeText = 1;

std::span<const std::string_view> markOf(SentDecision sent) {
    switch (sent) {
        case SentDecision::accept:
            return kAccept;
        case SentDecision::reject:
            return kReject;
        case SentDecision::update:
            return kUpdate;
        case SentDecision::none:
            break;
    }
    return {};
}

// Fills rectangles with the text's colour, in a scope.
class TextBrush {
public:
    explicit TextBrush(HDC dc) : m_dc(dc), m_brush(dc, GetStockObject(DC_BRUSH)) {
        SetDCBrushColor(dc, GetTextColor(dc));
    }
    void fill(LONG left, LONG top, LONG right, LONG bottom) const {
        PatBlt(m_dc, static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
               static_cast<int>(bottom - top), PATCOPY);
    }

private:
    HDC m_dc;
    fw::SelectScope m_brush;
};

}  // namespace

// From `left` to the right, in the middle between top and bottom of the cell.
void ChangeLooks::drawMark(HDC dc, Mark mark, LONG left, const RECT& cell) const {
    if (mark.empty()) return;
    const auto pixels = [dpi = fw::dpiOf(m_list.handle())](std::size_t dots) {
        return fw::toPixels(static_cast<int>(dots), dpi);
    };
    const LONG top = (cell.top + cell.bottom - pixels(mark.size())) / 2;
    const TextBrush brush(dc);
    std::size_t y = 0;
    for (const std::string_view dots : mark) {
        const LONG above = top + pixels(y), below = top + pixels(++y);
        for (std::size_t end, x = dots.find('#'); x < dots.size(); x = dots.find('#', end)) {
            end = std::min(dots.find(' ', x), dots.size());
            brush.fill(left + pixels(x), above, left + pixels(end), below);
        }
    }
}

void ChangeLooks::drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const {
    if (item > 1) return;
    const ChangeState state = stateOf(row);
    if (item == 1)
        return drawMark(dc, markOf(state.sent), cell.left + m_list.scaled(kBeforeText), cell);
    if (state.shown)
        TextBrush(dc).fill(cell.left + m_list.scaled(kBarLeft), cell.top,
                           cell.left + m_list.scaled(kBarRight), cell.bottom);
    if (state.reading == Reading::changedSince)
        drawMark(dc, kChanged, cell.left + m_list.scaled(kBesideBar), cell);
    const LONG right = cell.right - m_list.scaled(kMargin);
    if (state.doubtful) drawMark(dc, kDoubtful, right, cell);
    if (state.newByRecover) drawMark(dc, kNew, right, cell);
}

ChangeState ChangeLooks::stateOf(std::size_t row) const {
    return m_changes.states().of(m_changes.rows().slotAt(row));
}

CellLook ChangeLooks::look(std::size_t row, int) const {
    CellLook look;
    look.fontYields = true;
    if (stateOf(row).reading != Reading::lookedAt) look.font = m_bold.of(m_list.handle());
    return look;
}

std::string ChangeLooks::tip(std::size_t row, int item) const {
    return item == 0 ? wordsOf(stateOf(row)) : std::string();
}

}  // namespace mc
