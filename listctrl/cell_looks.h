// How the cells of one kind of list differ from plain ones.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "text/text_difference.h"

namespace mc {

// How a cell differs from the others of its row.
struct CellLook {
    int indent = 0;                      // pixels
    HFONT font = nullptr;                // null: the list's
    std::optional<COLORREF> background;  // none: the row's; both colours give way to a selection
    std::optional<COLORREF> text;
    bool fontYields = false;  // to the list's, where the text does not fit in its own

    // Drawn and measured instead of the cell's text, of the same length. Empty: the text itself.
    std::string_view shown = {};
    // Characters that are marked: by a line below or a frame around them, and, unless the row is
    // selected, by this colour mixed into the background as far as the text stays readable on it.
    // They live as long as the look's cell.
    enum class Mark { underline, frame };
    std::span<const TextRun> runs = {};
    Mark mark = Mark::underline;
    std::optional<COLORREF> runColor = {};
};

// Asked by the painter for every cell that it draws or measures; each kind of list has its own.
// `item` is the header item above the cell.
class CellLooks {
public:
    virtual CellLook look(std::size_t row, int item) const = 0;
    // Draws what goes over the text, in the colours that `dc` has.
    virtual void drawOver(HDC dc, std::size_t row, int item, const RECT& cell) const = 0;
    // What the tip of a cell says beside its text.
    virtual std::string tip(std::size_t, int) const { return {}; }

protected:
    ~CellLooks() = default;
};

}  // namespace mc
