#include "listctrl/marked_text.h"

#include <algorithm>
#include <string>
#include <vector>

#include "framework/drawing.h"
#include "listctrl/list_colors.h"

namespace mc {
namespace {

constexpr int kRunShare = 150;  // of the run's colour in the background, of 255

// How many characters of the text fit into a width.
std::size_t fitting(const MarkedText& marked, LONG room) {
    std::size_t count = 0;
    for (LONG used = 0; count < marked.text.size(); ++count) {
        used += marked.widths.widthOf(marked.text.substr(count, 1), marked.look.font);
        if (used > room) break;
    }
    return count;
}

// The rectangles of the runs within the first `shown` characters.
std::vector<RECT> rectsOfRuns(const MarkedText& marked, std::size_t shown, const RECT& rect) {
    std::vector<RECT> rects;
    const auto widthOf = [&](std::size_t from, std::size_t to) {
        return marked.widths.widthOf(marked.text.substr(from, to - from), marked.look.font);
    };
    LONG x = rect.left;
    std::size_t at = 0;
    for (const TextRun& run : marked.look.runs) {
        if (run.from >= shown) break;
        const LONG left = x + widthOf(at, run.from);
        at = std::min(run.to, shown);
        x = left + widthOf(run.from, at);
        rects.push_back({left, rect.top, x, rect.bottom});
    }
    return rects;
}

void paintBehind(HDC dc, const std::vector<RECT>& rects, COLORREF color) {
    const COLORREF paper = GetBkColor(dc);
    const COLORREF ground = fw::tinted(paper, color, kRunShare, GetTextColor(dc));
    for (const RECT& each : rects) fw::fill(dc, each, ground);
    SetBkColor(dc, paper);
}

// Character by character where the widths say, so that the marks lie under theirs.
void drawLetters(HDC dc, const MarkedText& marked, const std::string& text, const RECT& rect) {
    std::vector<INT> steps;
    for (const char& letter : text)
        steps.push_back(marked.widths.widthOf({&letter, 1}, marked.look.font));
    ExtTextOutA(dc, static_cast<int>(rect.left), static_cast<int>(rect.top), ETO_CLIPPED, &rect,
                text.data(), static_cast<UINT>(text.size()), steps.data());
}

// In the text's colour, which is readable wherever the text is.
void drawMark(HDC dc, const RECT& run, CellLook::Mark mark, int lineHeight) {
    const HBRUSH brush = fw::brushOf(dc, GetTextColor(dc));
    const RECT line{run.left, run.bottom - lineHeight, run.right, run.bottom};
    if (mark == CellLook::Mark::frame)
        FrameRect(dc, &run, brush);
    else
        FillRect(dc, &line, brush);
}

}  // namespace

void drawMarkedText(HDC dc, const MarkedText& marked, const RECT& rect) {
    const auto widthOf = [&](std::string_view text) {
        return static_cast<LONG>(marked.widths.widthOf(text, marked.look.font));
    };
    const LONG room = rect.right - rect.left;
    const bool cut = widthOf(marked.text) > room;
    const std::size_t shown = cut ? fitting(marked, room - widthOf(kDots)) : marked.text.size();
    std::string drawn(marked.text.substr(0, shown));
    std::vector<RECT> runs = rectsOfRuns(marked, shown, rect);
    if (cut) {
        const LONG end = rect.left + widthOf(drawn);
        drawn += kDots;
        if (marked.look.runs.back().to > shown)
            runs.push_back(
                {end, rect.top, std::min(end + widthOf(kDots), rect.right), rect.bottom});
    }
    if (marked.look.runColor) paintBehind(dc, runs, *marked.look.runColor);
    drawLetters(dc, marked, drawn, rect);
    for (const RECT& each : runs) drawMark(dc, each, marked.look.mark, marked.lineHeight);
}

}  // namespace mc
