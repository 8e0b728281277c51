// What steps of a play script look at. Each is tried until it sees what it expects, or fails at
// once.
#pragma once

#include "console/play_turn.h"

namespace zek::check {

Outcome rows(PlayTurn& turn);
Outcome details(PlayTurn& turn);
Outcome row(PlayTurn& turn);
Outcome logHas(PlayTurn& turn);
Outcome logHasLine(PlayTurn& turn);
Outcome logHasNot(PlayTurn& turn);
Outcome message(PlayTurn& turn);
Outcome controlText(PlayTurn& turn);
Outcome detail(PlayTurn& turn);
Outcome clean(PlayTurn& turn);

}  // namespace zek::check
