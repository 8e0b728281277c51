// The quick filter: one choice that hides, beside the filters of columns, all changes but those of
// one state.
//
// A change that stops to pass while it is looked at keeps its row until another one is opened or
// the filter is chosen again: no row goes from under the hand because it was read.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>

#include "workbench/model/records/change_states.h"

namespace mc {

class QuickFilter {
public:
    // In the order in which the key goes through them.
    enum class Kind { off, notLookedAt, changedSince, toPair, neighbours };
    using IsOne = std::function<bool(Slot)>;
    using NeighboursOf = std::function<IsOne(Slot)>;

    // `isHalf` says whether a change is one of an investor's two, `neighboursOf` which changes are
    // about the same as one, itself included. All must outlive the object.
    QuickFilter(RecordStore& rows, const ChangeStates& states, IsOne isHalf,
                NeighboursOf neighboursOf)
        : m_rows(rows),
          m_states(states),
          m_isHalf(std::move(isHalf)),
          m_neighboursOf(std::move(neighboursOf)) {}

    // Each counts from the next filter pass on. While no change was opened, next() and back() leave
    // the neighbours out.
    void next();
    void back();
    void choose(Kind kind);

    // What is chosen, to put it back before another pass.
    struct Choice {
        Kind kind = Kind::off;
        IsOne isNeighbour = {};      // of the change that was opened last at the choice
        std::uint64_t openings = 0;  // later ones keep their rows
    };
    const Choice& choice() const { return m_choice; }
    void putBack(Choice choice);

    Kind kind() const { return m_choice.kind; }
    std::string_view words() const;  // "only not looked at"; empty when off

private:
    bool possible(Kind kind) const;
    void step(int by);
    void judge();
    bool holds(Slot slot) const;
    bool passes(Slot slot) const;

    RecordStore& m_rows;
    const ChangeStates& m_states;
    IsOne m_isHalf;
    NeighboursOf m_neighboursOf;
    Choice m_choice;
};

}  // namespace mc
