// Where a hand can go, by what is in sight: points on the screen.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "tests/blind/dice.h"
#include "tests/blind/sight.h"

namespace blind {

using Place = std::optional<POINT>;  // none: there is no such place now

// Any of them, the buttons and rows most of all.
Place somewhere(Dice& dice, const Sight& sight);

POINT inWindow(Dice& dice, HWND window);
Place inRow(Dice& dice, const ListSight& list);

RECT visiblePart(HWND window);

// What lies there.
std::string words(POINT at);

}  // namespace blind
