// CMultiLineListCtrl: a list of groups, each drawn as a heading and one line for each of its rows.
//
// Lines are rows of the native control; LineGroups holds the groups. A click on a heading, or the
// Left and Right keys, fold and unfold its group. The lines keep the order in which they came: a
// click on a caption sorts nothing. How they look is DetailLooks'.
#pragma once

#include <string>
#include <vector>

#include "details/detail_looks.h"
#include "details/model/line_groups.h"
#include "listctrl/filter_list_ctrl.h"

namespace mc {

class CMultiLineListCtrl : public CFilterListCtrl {
public:
    // Both must outlive the list.
    CMultiLineListCtrl(ListServices& services, LineGroups& lines);

    // Installs the columns Field, Value and Old Value. Call after create().
    void setDetailColumns() {
        setColumns(
            kDetailColumns,
            [this](Slot line, ColumnId column) { return m_lines.text(line, column); },
            kMandatoryDetailColumns);
    }

    // Shows groups instead of those that are visible, folded and scrolled as these were.
    virtual void replace(std::vector<DetailGroup> groups);

    // Removes and frees every group.
    virtual void empty();

    // Draws the lines fainter: they are not about what is selected elsewhere.
    void setDimmed(bool dimmed);

    // ---- For what is edited in the list ----

    // Scrolls the Value cell of a row into view and returns where its visible part is.
    RECT bringValueIntoView(std::size_t row);
    void showMessage(const std::string& text) { services().showMessage(text); }
    // A part of the list got the focus or lost it.
    using CFilterListCtrl::partFocusChanged;

protected:
    const fw::MessageMap& messageMap() const override { return baseMap(); }
    static const fw::MessageMap& baseMap();
    void fontChanged() override;
    // Both values of a row with two.
    std::vector<NamedText> wholeTexts(std::size_t row, ColumnId column) const override;

    LineGroups& lines() const { return m_lines; }
    DetailLooks& looks() { return m_looks; }

private:
    void onCaptionClick(NMLISTVIEW&) {}
    void onLinePressed(POINT client);
    bool onFoldKey(UINT key, bool repeated);
    void setFolded(const LineGroups::Line& line, bool folded);

    LineGroups& m_lines;
    DetailLooks m_looks;
};

}  // namespace mc
