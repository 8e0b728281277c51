#include "listctrl/selection_answers.h"

#include "listctrl/list_messages.h"
#include "listctrl/model/table/selection_rules.h"
#include "listctrl/model/table/type_to_find.h"

namespace mc {
namespace {

// A row, or -1 for none.
LRESULT answer(std::optional<std::size_t> row) {
    return row ? static_cast<LRESULT>(*row) : -1;
}

}  // namespace

LRESULT CSelectionAnswers::onGetItemState(std::optional<std::size_t> row, UINT mask) {
    UINT state = 0;
    if (row && m_store.selection().selected(*row)) state |= LVIS_SELECTED;
    if (row && m_store.selection().focusedRow() == row) state |= LVIS_FOCUSED;
    return static_cast<LRESULT>(state & mask);
}

LRESULT CSelectionAnswers::onSetItemState(std::optional<std::size_t> row, const LVITEMA& wanted) {
    if (row && *row >= m_store.rowCount()) return FALSE;
    m_input.select([&] { setState(row, wanted); });
    return TRUE;
}

void CSelectionAnswers::setState(std::optional<std::size_t> row, const LVITEMA& wanted) {
    const bool on = (wanted.state & LVIS_SELECTED) != 0;
    if ((wanted.stateMask & LVIS_SELECTED) != 0) {
        if (row)
            m_store.selection().select(*row, on);
        else if (on)
            m_store.selection().selectAll();
        else
            m_store.selection().clear();
    }
    if ((wanted.stateMask & LVIS_FOCUSED) == 0) return;
    const bool focuses = (wanted.state & LVIS_FOCUSED) != 0;
    if (focuses && row)
        m_store.selection().setFocus(*row);
    else if (!focuses && (!row || row == m_store.selection().focusedRow()))
        m_store.selection().setFocus(m_store.rowCount());
}

// Each row is below the one before, so none lies to the left or right of another.
LRESULT CSelectionAnswers::onGetNextItem(std::optional<std::size_t> start, UINT flags) {
    if ((flags & (LVNI_TOLEFT | LVNI_TORIGHT | LVNI_CUT | LVNI_DROPHILITED)) != 0) return -1;
    return answer(nextRow(m_store, start,
                          {(flags & LVNI_SELECTED) != 0, (flags & LVNI_FOCUSED) != 0,
                           (flags & (LVNI_ABOVE | LVNI_PREVIOUS)) != 0}));
}

LRESULT CSelectionAnswers::onGetNextItemIndex(LVITEMINDEX& index, UINT flags) {
    index.iItem =
        static_cast<int>(onGetNextItem(fw::rowParameter(static_cast<WPARAM>(index.iItem)), flags));
    return index.iItem >= 0 ? TRUE : FALSE;
}

LRESULT CSelectionAnswers::onGetSelectedCount() {
    return static_cast<LRESULT>(m_store.selection().count());
}

LRESULT CSelectionAnswers::onGetSelectionMark() {
    return answer(m_store.selection().anchorRow());
}

LRESULT CSelectionAnswers::onSetSelectionMark(std::optional<std::size_t> row) {
    const LRESULT before = onGetSelectionMark();
    m_store.selection().setAnchor(row.value_or(m_store.rowCount()));
    return before;
}

// Rows can be looked for by their text only: they have neither data nor positions of their own.
LRESULT CSelectionAnswers::onFindItem(std::optional<std::size_t> start, const std::string& text,
                                      UINT flags) {
    constexpr UINT kSubstring = 4, kBegins = LVFI_PARTIAL | kSubstring;  // the same search
    if ((flags & (LVFI_STRING | kBegins)) == 0 || m_store.rowCount() == 0) return -1;
    return answer(findRow(m_store, m_input.findColumn(), start ? *start + 1 : 0,
                          {text, (flags & kBegins) == 0, (flags & LVFI_WRAP) != 0}));
}

}  // namespace mc
