// The decisions that the checker made in this session: one row each in a list of its own, the
// oldest first, with the texts that the change had when its request left, and what came of it.
//
// A row takes about 300 bytes beside texts longer than 15. All decisions of a session are kept; of
// more than kMaxDecisions the oldest go. No call walks the decisions. One thread.
#pragma once

#include <array>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "link/model/requests.h"
#include "listctrl/model/columns/column_info.h"
#include "listctrl/model/table/record_store.h"

namespace mc {

inline constexpr std::array<sVoskColInfo, 7> kDecisionColumns{{
    {"Time", 60, 0, ColumnType::text},
    {"Decision", 70, 0, ColumnType::text},
    {"Key", 60, 1, ColumnType::longInteger},
    {"Entity Name", 120, 0, ColumnType::text},
    {"Auth Type", 110, 0, ColumnType::text},
    {"Reason", 140, 0, ColumnType::text},
    {"Outcome", 130, 0, ColumnType::text},
}};
// Decision and Key always show: a press is about an identified change.
inline constexpr std::array kMandatoryDecisionColumns{ColumnId{1}, ColumnId{2}};

class DecisionLog {
public:
    static constexpr std::size_t kMaxDecisions = 20'000;

    DecisionLog();
    DecisionLog(const DecisionLog&) = delete;
    DecisionLog& operator=(const DecisionLog&) = delete;

    // Called when rows came or changed; one at a time, none before.
    void setListener(std::function<void()> changed) { m_changed = std::move(changed); }

    // A request has left, or could not. `change` is the one it decides, as it is at that moment; a
    // recovery has none.
    void note(const TriedRequest& tried, const sMakeCheckStruct& change, std::time_t now);

    // The outcome of a change was published: every decision about it that waited for one has it.
    // Without memory it stays awaited.
    void outcomeCame(std::string_view key, std::string_view status, std::time_t now);

    RecordStore& rows() { return m_rows; }
    // The text of a cell; it lives until the next decision or outcome.
    std::string_view cellText(Slot decision, ColumnId column) const;

    // The newest decision about a change, or of all; none when there is none.
    Slot newestAbout(std::string_view key) const;
    Slot newest() const;

    // "12 decisions, 3 outcomes awaited".
    std::string summary() const;

private:
    struct Entry {
        std::array<std::string, kDecisionColumns.size()> cells;  // by column
        std::uint64_t number = 0;                                // counted from 1; 0: none
        std::uint64_t before = 0;  // the one about the same change before it; 0: none
        bool awaited = false;
    };

    // Without its number.
    static Entry entryOf(const TriedRequest& tried, const sMakeCheckStruct& change,
                         std::time_t now);
    static Slot slotOf(std::uint64_t number) {
        return static_cast<Slot>((number - 1) % kMaxDecisions);
    }
    // Null for one that was let go.
    const Entry* find(std::uint64_t number) const;
    void letGo(Entry& entry);
    void changed() const {
        if (m_changed) m_changed();
    }

    std::vector<Entry> m_entries;  // by slot; the slot of the oldest is given again when full
    std::uint64_t m_made = 0;
    std::size_t m_awaited = 0;
    std::unordered_map<std::string, std::uint64_t> m_newest;  // by key
    RecordStore m_rows;
    std::function<void()> m_changed;
};

}  // namespace mc
