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
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "link/model/entity.h"
#include "link/model/functionality.h"
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
    Slot end() const { return m_end; }  // behind the largest
    void clear();

    void setKey(Slot slot, std::string_view key) { own(slot).key = key; }

    // Without memory it throws, and nothing is written.
    void write(Slot slot, const ChangeTexts& texts);

    // Whether one of the texts is another than the slot's, and whether it is one of those that say
    // what the change is about.
    struct Difference {
        bool any = false, about = false;
    };
    Difference compare(Slot slot, const ChangeTexts& texts) const;

    PendingChange read(Slot slot) const;
    std::string_view key(Slot slot) const { return own(slot).key.view(); }
    std::string_view entityName(Slot slot) const { return own(slot).entityName.view(); }
    std::string_view linkedUser(Slot slot) const { return own(slot).linkedUser.view(); }

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
    ColumnTexts::Code kindCode(Slot slot, std::string_view functionalityCode);

    struct CodedField;
    static const CodedField kCodedFields[];
    static constexpr std::size_t kCodedCount = 5;

    static constexpr std::size_t kBlock = 256;  // slots
    using Block = std::array<OwnTexts, kBlock>;
    OwnTexts& own(Slot slot) { return (*m_own[slot / kBlock])[slot % kBlock]; }
    const OwnTexts& own(Slot slot) const { return (*m_own[slot / kBlock])[slot % kBlock]; }

    std::vector<std::unique_ptr<Block>> m_own;  // by slot
    Slot m_end = 0;
    std::array<ColumnTexts, kCodedCount> m_coded;  // by slot; in the order of CodedText
    ColumnTexts m_kinds;                           // by slot: the names of the kinds of change
    // Of the kinds whose names have come; of so few none is ever let go.
    std::array<ColumnTexts::Code, kFunctionalityCount> m_kindCodes{};
};

}  // namespace mc
