// Whether the checker can have seen what a press hits before making it.
//
// What a press would hit changes without the hand when a selected change ends, and the list selects
// the row after it, or when a selected change is published again. A press that was made before, or
// so soon after that nobody can have reacted to it, was meant for something else.
#pragma once

#include <chrono>
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

    // What is selected changed, or something of it, and not by the hand.
    void moved() {
        if (m_clock) m_moved = m_clock();
    }

    // The hand selected other rows; where that is one alone, it has seen what a press hits.
    void selected(bool one) {
        m_heldBack.reset();
        if (one) m_moved.reset();
    }

    // A press comes, which was made `ago`; none where it needs no sight. False: it is held back.
    bool takes(std::optional<Milliseconds> ago) {
        m_heldBack.reset();
        if (!ago || seen(*ago)) return true;
        m_heldBack = m_clock();
        return false;
    }

    // Whether the last press was held back, not long ago, and the hand has selected nothing since.
    bool heldBack() const { return m_heldBack && m_clock() - *m_heldBack < kSpokenOf; }

private:
    bool seen(Milliseconds ago) const {
        return !m_moved || m_clock() - ago >= *m_moved + kReaction;
    }

    Clock m_clock;
    std::optional<Milliseconds> m_moved, m_heldBack;
};

}  // namespace mc
