// What the pending changes say: a table of their texts, by slot.
//
// Texts that differ from change to change are kept with the change; those with few different values
// (maker, branch, broker, kind ...) are coded once, when they come, in columns that the list's
// filters and sorts work on. So a change takes about 150 bytes, and the first filter of such a
// column reads no change. What is read out is a copy: it stays as it was, whatever comes meanwhile.
// Views of texts live until the next change comes or changes. One thread.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <optional>
#include <string_view>

#include "link/model/entity.h"
#include "link/model/pending_record.h"
#include "listctrl/model/table/cell_texts.h"
#include "workbench/model/records/short_text.h"

namespace mc {

// A change as it was read out. Its slot tells it from a later change of the same key: see
// PendingChanges::Hold.
struct PendingChange : sMakeCheckStruct {
    Slot slot = kNoSlot;
};

// What a publication says of a change. A text that it does not give stays as it is, and is empty
// for a new change. The texts are the caller's.
struct ChangeTexts {
    using Text = std::optional<std::string_view>;
    Text makerId{}, entityName{}, functionalityCode{}, brokerId{}, branchId{}, linkedUser{}, type{};
};

class ChangeTable {
public:
    // Lets a list's filters and sorts work on the coded columns; `cells` must outlive the table's
    // use.
    void shareWith(CellTexts& cells);

    // A new slot, whose texts are empty, and a used one: nothing of its last change is left.
    Slot grow();
    void wipe(Slot slot) { write(slot, {"", "", "", "", "", "", ""}); }
    Slot end() const { return static_cast<Slot>(m_own.size()); }  // behind the largest
    void clear();

    void setKey(Slot slot, std::string_view key) { m_own[slot].key = key; }

    // Returns whether a text is another one than before. Without memory it throws, and nothing is
    // written.
    bool write(Slot slot, const ChangeTexts& texts);

    // Whether what the change in the slot is about may be another with these texts.
    bool renames(Slot slot, const ChangeTexts& texts) const;

    PendingChange read(Slot slot) const;
    std::string_view key(Slot slot) const { return m_own[slot].key.view(); }
    std::string_view entityName(Slot slot) const { return m_own[slot].entityName.view(); }
    std::string_view linkedUser(Slot slot) const { return m_own[slot].linkedUser.view(); }

    // One of the texts of a slot; empty for kNoSlot.
    enum class CodedText { maker, branch, broker, functionality, type };
    std::string_view text(Slot slot, CodedText which) const {
        if (slot == kNoSlot) return {};
        return m_coded[static_cast<std::size_t>(which)].text(slot);
    }

    // The text of a cell of the main list, cut to kCellBytes, and the whole one; empty where there
    // is no column.
    std::string_view cellText(Slot slot, ColumnId column) const;
    std::string_view wholeText(Slot slot, ColumnId column) const;

    // What the change is about.
    Entity entity(Slot slot) const;
    Entity linkedEntity(Slot slot) const;

    // The slot's texts, or kNoSlot's, will be read soon: they come into the cache meanwhile.
    void prefetch(Slot slot) const;

private:
    struct OwnTexts {
        ShortText key, entityName, linkedUser;
    };
    struct CodedField;
    static const CodedField kCodedFields[];
    static constexpr std::size_t kCodedCount = 5;

    std::deque<OwnTexts> m_own;                    // by slot
    std::array<ColumnTexts, kCodedCount> m_coded;  // by slot; in the order of CodedText
    ColumnTexts m_kinds;                           // by slot: the names of the kinds of change
};

}  // namespace mc
