// What the press line says of a plan.
#pragma once

#include <ctime>
#include <string>

#include "workbench/model/press_plan.h"

namespace mc {

struct PressLine {
    std::string warning = {};  // comes first, in the warning colour; may be empty
    std::string text = {};
    bool offersPair = false;  // "Select pair" selects the other halves of those that stay
    bool ages = false;        // it says how long ago something was: it changes every second

    std::string whole() const;
    bool operator==(const PressLine&) const = default;

    // Whether it says more than that time went by, which is not worth being read aloud.
    bool isNews(const PressLine& before) const;
};

// The action's caption, behind the text.
inline constexpr char kSelectPair[] = "Select pair";

// The line for a plan that was made of these changes, and the time of its states.
PressLine describePress(const PressPlan& plan, const PendingChanges& changes);

// "1002 MODIFY CLIENT C10021"; a limit's entity names itself: "1007 RMS Limits, Client - C10021".
std::string pressName(const sMakeCheckStruct& change);

std::string verbOf(PressButton button);  // "Accept"

}  // namespace mc
