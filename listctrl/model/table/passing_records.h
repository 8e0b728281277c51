// Which records of a list pass and so have rows: the filters of columns, what a judge says of each,
// and what an arrangement makes of all that pass.
#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "listctrl/model/table/cell_texts.h"
#include "listctrl/model/table/row_filters.h"
#include "listctrl/model/table/slot_sequence.h"

namespace mc {

class PassingRecords {
public:
    // Both must outlive the object.
    PassingRecords(CellTexts& texts, const SlotSequence& stored)
        : m_texts(texts), m_stored(stored) {}

    // What is set here counts from the next filter pass on.
    RowFilters& filters() { return m_filters; }
    const RowFilters& filters() const { return m_filters; }

    // What else a record must satisfy; an empty function ends it. It counts from the next pass on,
    // and for each record that comes, changes or is judged again.
    using Judge = std::function<bool(Slot)>;
    void setJudge(Judge judge) { m_judge = std::move(judge); }
    bool hasJudge() const { return m_judge != nullptr; }

    // What has the last word in all(): it is given the records that pass, in stored order, and may
    // take some away or add others. Records that come between passes are not arranged.
    using Arrange = std::function<void(std::vector<Slot>& passing)>;
    void setArrange(Arrange arrange) { m_arrange = std::move(arrange); }

    // Whether filters and judge let a record pass.
    bool passes(Slot slot) const;

    // All that pass, as if one column had no filter; valid until the next call. Costs one pass over
    // the records and one over the different texts of the filtered columns.
    std::vector<Slot>& all(const LongWork& work, std::optional<ColumnId> unfiltered = {});

private:
    bool passes(Slot slot, const RowFilters::Active& filter) const;

    CellTexts& m_texts;
    const SlotSequence& m_stored;
    RowFilters m_filters;
    Judge m_judge;
    Arrange m_arrange;
    std::vector<Slot> m_passing;  // of the last pass; kept for its memory
};

}  // namespace mc
