// What one kind of list adds to the parts that every list has. CCommonListCtrl hands itself to its
// parts as this.
#pragma once

#include <cstddef>
#include <vector>

#include "listctrl/model/columns/column_info.h"
#include "listctrl/model/list_commands.h"
#include "listctrl/model/row_words.h"
#include "listctrl/model/whole_text.h"

namespace mc {

class ListHooks {
public:
    // The kind of list changes what the menus and keys offer.
    virtual void addOffers(ListOffers&) const {}
    // Runs a command of its own; false for any other.
    virtual bool runOwnCommand(unsigned) { return false; }

    // Cells are about to move because of the user: a sort, a menu, a fold, a width, scrolling. What
    // is open over one ends. False when it does not; then cells must stay where they are.
    virtual bool beforeCellsMove() { return true; }
    // Cells move and cannot be kept from it. What stays open over one moves along.
    virtual void cellsMove() {}

    // What is open over the list, an editor or a drop-down, ends as if the focus had left.
    virtual void leaveParts() {}

    // The header has new items, or items of another width.
    virtual void headerBuilt() {}
    // A user-defined column went, and the ids behind it moved down (idAfterRemoval). The header
    // is built again after this.
    virtual void columnRemoved(ColumnId) {}
    // What the whole-text window shows for a cell: the cell's text, or more of its row.
    virtual std::vector<NamedText> wholeTexts(std::size_t row, ColumnId column) const = 0;
    // What is to be said of a row beside its cells.
    virtual RowState rowState(std::size_t) const { return {}; }
    // The list has another font.
    virtual void fontChanged() {}

protected:
    ~ListHooks() = default;
};

}  // namespace mc
