// CSelectionAnswers: what others ask a list's control about selection and focus, answered from the
// store, since the control knows of neither. The answers are those that the platform documents.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <optional>
#include <string>

#include "listctrl/list_input.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

class CSelectionAnswers {
public:
    // Both must outlive the object.
    CSelectionAnswers(RecordStore& store, CListInput& input) : m_store(store), m_input(input) {}

    LRESULT onGetItemState(std::optional<std::size_t> row, UINT mask);
    LRESULT onSetItemState(std::optional<std::size_t> row, const LVITEMA& wanted);
    LRESULT onGetNextItem(std::optional<std::size_t> start, UINT flags);
    LRESULT onGetNextItemIndex(LVITEMINDEX& index, UINT flags);
    LRESULT onGetSelectedCount();
    LRESULT onGetSelectionMark();
    LRESULT onSetSelectionMark(std::optional<std::size_t> row);
    LRESULT onFindItem(std::optional<std::size_t> start, const std::string& text, UINT flags);

private:
    void setState(std::optional<std::size_t> row, const LVITEMA& wanted);

    RecordStore& m_store;
    CListInput& m_input;
};

}  // namespace mc
