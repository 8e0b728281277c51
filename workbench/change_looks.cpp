#include "workbench/change_looks.h"

#include <algorithm>

#include "framework/drawing.h"
#include "framework/model/dots.h"
#include "framework/platform.h"

namespace mc {
namespace {

// The lines of a mark from the top, of dots that are one pixel each at 96 dots per inch. It is no
// wider than a margin.
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

// Of the dots of a mark, from the origin. Null when the system has no more regions.
fw::Region shapeOf(std::span<const std::string_view> mark, int dpi) {
    fw::Region shape(CreateRectRgn(0, 0, 0, 0)), run(CreateRectRgn(0, 0, 0, 0));
    if (!run) return {};
    const auto pixels = [dpi](std::size_t dots) {
        return fw::toPixels(static_cast<int>(dots), dpi);
    };
    for (std::size_t y = 0; y < mark.size(); ++y) {
        const std::string_view dots = mark[y];
        for (std::size_t end, x = dots.find('#'); x < dots.size(); x = dots.find('#', end)) {
            end = std::min(dots.find(' ', x), dots.size());
            SetRectRgn(run.get(), pixels(x), pixels(y), pixels(end), pixels(y + 1));
            CombineRgn(shape.get(), shape.get(), run.get(), RGN_OR);
        }
    }
    return shape;
}

}  // namespace

// From `left` to the right, in the middle between top and bottom of the cell. One call for all of a
// mark's dots: a row may have three marks.
void ChangeLooks::drawMark(HDC dc, Mark mark, LONG left, const RECT& cell) const {
    if (mark.empty()) return;
    const int dpi = fw::dpiOf(m_list.handle());
    fw::Region& shape = m_shapes[mark.data()];
    if (!shape) shape = shapeOf(mark, dpi);
    const LONG height = fw::toPixels(static_cast<int>(mark.size()), dpi);
    const int x = static_cast<int>(left), y = static_cast<int>(cell.top + cell.bottom - height) / 2;
    OffsetRgn(shape.get(), x, y);
    FillRgn(dc, shape.get(), fw::brushOf(dc, GetTextColor(dc)));
    OffsetRgn(shape.get(), -x, -y);
}

void ChangeLooks::drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const {
    if (item > 1) return;
    const ChangeState state = stateOf(row);
    if (item == 1)
        return drawMark(dc, markOf(state.sent), cell.left + m_list.scaled(kBeforeText), cell);
    if (state.shown) {
        const RECT bar{cell.left + m_list.scaled(kBarLeft), cell.top,
                       cell.left + m_list.scaled(kBarRight), cell.bottom};
        FillRect(dc, &bar, fw::brushOf(dc, GetTextColor(dc)));
    }
    if (state.reading == Reading::changedSince)
        drawMark(dc, kChanged, cell.left + m_list.scaled(kBesideBar), cell);
    const LONG right = cell.right - m_list.scaled(kMargin);
    if (state.doubtful) drawMark(dc, kDoubtful, right, cell);
    if (state.newByRecover) drawMark(dc, kNew, right, cell);
}

void ChangeLooks::fontChanged() {
    m_bold.reset();
    m_shapes.clear();
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
