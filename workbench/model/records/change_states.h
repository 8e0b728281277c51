// What the checker and the server did with each pending change: whether it was looked at, what was
// sent, what a Recover said of it. The one place that puts these states into words.
//
// Kept by slot, in five bytes a change; nothing of it outlives the change. Every call that names a
// slot costs no more than finding its row, which is painted again. One thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "listctrl/model/table/record_store.h"
#include "workbench/model/records/records_view.h"

namespace mc {

// Looked at: its details came and were visible, or it was opened and its kind has none. Changed
// since: published with other texts after that; looked at again when its details come again.
enum class Reading : std::uint8_t { notLookedAt, lookedAt, changedSince };

// A decision that has left, of which the outcome was not published yet. Update is an acceptance
// with other limits.
enum class SentDecision : std::uint8_t { none, accept, reject, update };

struct ChangeState {
    Reading reading = Reading::notLookedAt;
    SentDecision sent = SentDecision::none;
    std::time_t sentAt = 0;
    bool shown = false;         // the details are about it
    bool doubtful = false;      // known before the last Recover, whose answers lack it so far
    bool newByRecover = false;  // an answer to the last Recover brought it; not looked at since
    bool chosenByList = false;  // selected by the list after a removal, and not by the hand since
};

// How many changes there are of each state. They overlap.
struct StateCounts {
    std::size_t notLookedAt = 0, lookedAt = 0, changedSince = 0;
    std::size_t accepted = 0, rejected = 0, updated = 0;  // sent, outcome awaited
    std::size_t doubtful = 0;
    std::size_t chosenUnseen = 0;  // by the list; not looked at, or changed since
};

// How changes have come in this session.
struct Arrivals {
    std::optional<std::time_t> subscribedAt;  // what is made from then on comes by itself
    bool any = false;
    bool recovered = false;  // a Recover has left
};

std::string_view wordsOf(Reading reading);        // "not looked at"
std::string_view wordsOf(SentDecision decision);  // "accept"; empty for none
std::string wordsOf(const ChangeState& state);    // all that holds, "; " between

class ChangeStates {
public:
    using Clock = std::function<std::time_t()>;
    enum class Origin : bool { published, recovered };  // a message, or an answer to a Recover

    // `view` is notified when rows look different. Both must outlive the object.
    ChangeStates(RecordStore& rows, RecordsView& view) : m_rows(rows), m_view(view) {}

    // What tells the time of what is sent; the system's clock before.
    void setClock(Clock clock) { m_clock = std::move(clock); }
    std::time_t now() const { return m_clock(); }

    // ---- What happens to changes ----

    void came(Slot slot, Origin origin);  // before its row does
    void cameAgain(Slot slot, bool different, Origin origin = Origin::published);
    void ended(Slot slot);
    void clear();

    // Of a slot without a change the following notice nothing.
    void opened(Slot slot);  // the details are about it from now on; kNoSlot: about none
    void lookedAt(Slot slot);
    void sent(Slot slot, SentDecision decision);
    void recoverSent();  // takes one pass
    void subscribed();

    // A press of these begins. What is published again from then on, or whose details then differ,
    // is not what it meant; an answer to a Recover that repeats the texts is no news.
    void pressBegins(std::span<const Slot> slots);
    void detailsDiffer(Slot slot);
    bool changedInPress(Slot slot) const {
        return slot < m_bits.size() && m_bits[slot].changedInPress;
    }

    // ---- Reading ----

    ChangeState of(Slot slot) const;
    void prefetch(Slot slot) const { prefetchBySlot(m_bits, slot); }
    Slot shown() const { return m_shown; }
    Slot openedLast() const { return m_openedLast; }       // its details may be closed since
    std::uint64_t openings() const { return m_openings; }  // how often a change was opened
    const Arrivals& arrivals() const { return m_arrivals; }

    StateCounts count(std::span<const Slot> slots) const;  // one pass over them
    // Of the visible rows: one pass over these where filters hide some.
    std::size_t notLookedAtVisible() const;

private:
    struct Bits {
        Reading reading : 2;
        SentDecision sent : 2;
        bool doubtful : 1;
        bool newByRecover : 1;
        bool pending : 1;
        bool changedInPress : 1;
    };

    bool pending(Slot slot) const { return slot < m_bits.size() && m_bits[slot].pending; }
    void setReading(Bits& bits, Reading reading);
    void touch(Slot slot);

    RecordStore& m_rows;
    RecordsView& m_view;
    Clock m_clock = [] { return std::time(nullptr); };
    std::vector<Bits> m_bits;             // by slot
    std::vector<std::uint32_t> m_sentAt;  // by slot: seconds of the system's clock
    std::size_t m_notLookedAt = 0;
    Slot m_shown = kNoSlot;
    Slot m_openedLast = kNoSlot;
    std::uint64_t m_openings = 0;
    Arrivals m_arrivals;
};

}  // namespace mc
