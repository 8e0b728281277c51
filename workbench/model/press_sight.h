// Whether the checker can have seen what a press hits before making it.
//
// What a press would hit changes without the hand when a selected change ends, and the list selects
// the row after it, or when a selected change is published again; what an Update would hit, when
// the change of the details is. A press that was made before that was painted, or so soon after
// that nobody can have reacted to it, was meant for something else.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

namespace mc {

class PressSight {
public:
    using Milliseconds = std::chrono::milliseconds;
    using Clock = std::function<Milliseconds()>;

    // From seeing something to pressing a key takes at least this long.
    static constexpr Milliseconds kReaction{250};
    // How long a press that was held back is spoken of.
    static constexpr Milliseconds kSpokenOf{6000};

    // What tells the time, from any beginning. Without one every press counts as seen.
    void setClock(Clock clock) { m_clock = std::move(clock); }

    // What a press hits: Accept and Reject what is selected, Update what the details are about.
    enum class Hits : std::size_t { selection, details };

    // Who paints what moved says so by painted(). Without that it counts as painted at once.
    void followPaint() { m_followsPaint = true; }

    // That changed, or something of it, and not by the hand.
    void moved(Hits what) {
        if (m_clock) moveOf(what) = {m_clock(), !m_followsPaint};
    }

    // It is visible from now on: a busy thread paints long after the message.
    void painted() {
        for (Move& move : m_moves)
            if (!move.painted) move = {m_clock(), true};
    }

    // The hand selected other rows. Within the reaction time it aimed at what was there before, so
    // this gives no sight.
    void selected() {
        m_heldBack.reset();
        m_leftOut = false;
    }

    // A press comes, which was made `ago`; none where it needs no sight. False: it is held back.
    bool takes(Hits what, std::optional<Milliseconds> ago) {
        m_heldBack.reset();
        m_leftOut = false;
        if (!ago || seen(what, *ago)) return true;
        m_heldBack = m_clock();
        return false;
    }

    // It is held back all the same.
    void holdsBack() {
        if (m_clock) m_heldBack = m_clock();
    }

    // It left out what changed behind a box of its own: that is held back, too.
    void leavesOut() {
        holdsBack();
        m_leftOut = true;
    }

    // Whether the last press was held back, or some of it (leftOut()), not long ago, and the hand
    // has selected nothing since.
    bool heldBack() const { return m_heldBack && m_clock() - *m_heldBack < kSpokenOf; }
    bool leftOut() const { return m_leftOut; }

private:
    struct Move {
        std::optional<Milliseconds> at;
        bool painted = true;
    };

    Move& moveOf(Hits what) { return m_moves[static_cast<std::size_t>(what)]; }
    bool seen(Hits what, Milliseconds ago) {
        const Move& move = moveOf(what);
        return !move.at || (move.painted && m_clock() - ago >= *move.at + kReaction);
    }

    Clock m_clock;
    std::array<Move, 2> m_moves;
    bool m_followsPaint = false;
    std::optional<Milliseconds> m_heldBack;
    bool m_leftOut = false;
};

}  // namespace mc
