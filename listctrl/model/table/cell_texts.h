// The cell texts of a list's records: read through the owner's reader, or taken from a column that
// is kept (ColumnTexts).
//
// A column is kept once a pass over all records has asked for it, and read again for every record
// that changes; or it is its owner's, who codes its texts as the records come. One thread.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "listctrl/model/columns/column_info.h"
#include "listctrl/model/table/column_texts.h"
#include "listctrl/model/table/long_work.h"
#include "listctrl/model/table/slot_sequence.h"

namespace mc {

// The text of a record's cell, which lives until the next call or the record's next change. Any
// column may be asked for. It must not call the list.
using CellReader = std::function<std::string_view(Slot record, ColumnId column)>;

class CellTexts {
public:
    // Forgets the kept columns.
    void setReader(CellReader reader);
    bool hasReader() const { return m_reader != nullptr; }

    // From now on the column's texts are these and not the reader's; they must outlive the object.
    // Setting and clearing those of single records stays the owner's part.
    void share(ColumnId column, ColumnTexts& texts) { m_shared[column] = &texts; }

    // From the reader; there must be one.
    std::string_view read(Slot record, ColumnId column) const { return m_reader(record, column); }
    // From the column where it is kept, else from the reader.
    std::string_view text(Slot record, ColumnId column) const;

    bool keeps(ColumnId column) const { return find(column) != nullptr; }
    // Whether a sort by numbers had better read them from the records: keeping their texts costs
    // more than the sort. Only the first sort by a column that isn't kept, as it pays from the
    // second on.
    bool readsOnce(ColumnId column);
    // All texts of a column. The first call reads those of all `stored` records; where it is ended
    // on the way, the column is not kept.
    ColumnTexts& column(ColumnId column, const SlotSequence& stored, const LongWork& work = {});

    // A record came or changed: one reading for each kept column. Without memory the columns are
    // read again when next asked for.
    void reread(Slot record);
    // A record went.
    void forget(Slot record);
    // Gives the memory of a column back, or of all: they are read again when next asked for.
    void drop(ColumnId column) {
        m_kept.erase(column);
        ++m_drops;
    }
    void drop();
    std::uint64_t drops() const { return m_drops; }  // how often

private:
    const ColumnTexts* find(ColumnId column) const;

    CellReader m_reader;
    std::map<ColumnId, ColumnTexts*> m_shared;
    std::map<ColumnId, ColumnTexts> m_kept;
    std::uint64_t m_drops = 0;
    std::optional<ColumnId> m_readOnce;  // the column of which readsOnce() was last asked
};

}  // namespace mc
