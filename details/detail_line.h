// CDetailLine: the line below the details list, about the row that has the focus, or about the
// slips among all rows while there is nothing to say of that one.
#pragma once

#include <windows.h>

#include <optional>

#include "details/model/amounts.h"
#include "details/model/line_groups.h"
#include "framework/window.h"

namespace mc {

class CDetailLine final : public fw::CWindow {
public:
    // `lines` must outlive the object.
    explicit CDetailLine(LineGroups& lines) : m_lines(lines) {}

    // Creates the window, without a size. Its text, which screen readers read, is the line's.
    bool create(HWND parent, UINT id);

    // The rows are others, or their values: the slips among them are looked for again.
    void valuesChanged() { m_slips.reset(); }

    // Says what there is to say now. Costs a look at one row, and after valuesChanged() at all.
    void update();

protected:
    const fw::MessageMap& messageMap() const override;

private:
    AboutLine present();
    void onPaint();

    LineGroups& m_lines;
    std::optional<AboutLine> m_slips;  // of all rows, once it was looked for
    AboutLine m_shown;
};

}  // namespace mc
