// The verbs of a play script: the table of what each step does.
#pragma once

#include "console/play_turn.h"

namespace zek {

enum class VerbKind { wait, expect, prepare, act };  // only `act` begins the log again

struct Verb {
    PlayVerb verb;
    VerbKind kind;
    Outcome (*run)(PlayTurn& turn);
};

const Verb& verbOf(const PlayStep& step);

}  // namespace zek
