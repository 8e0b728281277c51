#include "tests/blind/places.h"

#include <commctrl.h>

#include <algorithm>

#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace blind {

constexpr RECT kScreen{0, 0, 1280, 900};

RECT visiblePart(HWND window) {
    const RECT place = onScreen(window);
    RECT seen{};
    IntersectRect(&seen, &place, &kScreen);
    return seen;
}

std::string words(POINT at) {
    const HWND under = WindowFromPoint(at);
    return classOf(under) + " '" + textOf(under) + "' " + std::to_string(at.x) + "," +
           std::to_string(at.y);
}

POINT inWindow(Dice& dice, HWND window) {
    const RECT seen = visiblePart(window);
    return {seen.left + dice.below(fw::widthOf(seen)), seen.top + dice.below(fw::heightOf(seen))};
}

Place inRow(Dice& dice, const ListSight& list) {
    if (list.rows.empty()) return std::nullopt;
    const int top = static_cast<int>(SendMessageA(list.window, LVM_GETTOPINDEX, 0, 0));
    const int page = static_cast<int>(SendMessageA(list.window, LVM_GETCOUNTPERPAGE, 0, 0));
    const int rows = std::min(page, static_cast<int>(list.rows.size()) - top);
    const int column = dice.below(static_cast<int>(list.captions.size()));
    if (rows <= 0) return std::nullopt;
    return hand::cell(list.window, top + dice.below(rows), column);
}

namespace {

Place inButton(Dice& dice, const Sight& sight) {
    static constexpr struct {
        const char* text;
        int weight;
    } buttons[] = {{"Accept", 4}, {"Reject", 2}, {"Update", 3}, {"Recover", 1}};
    const HWND button = FindWindowExA(sight.pane, nullptr, "Button", dice.weighted(buttons).text);
    if (IsWindowVisible(button) == 0) return std::nullopt;
    return inWindow(dice, button);
}

Place inMainRow(Dice& dice, const Sight& sight) {
    return inRow(dice, sight.main);
}

Place inDetailsRow(Dice& dice, const Sight& sight) {
    return inRow(dice, sight.details);
}

Place inHeader(Dice& dice, const Sight& sight) {
    return inWindow(dice, header((dice.chance(70) ? sight.main : sight.details).window));
}

Place atDivider(Dice& dice, const Sight& sight) {
    const ListSight& list = dice.chance(60) ? sight.main : sight.details;
    return captionPoint(dice.below(static_cast<int>(list.captions.size())), list.window, 1);
}

Place inBox(Dice& dice, const Sight& sight) {
    const ListSight& list = dice.chance(75) ? sight.main : sight.details;
    if (list.boxes.empty()) return std::nullopt;
    return inWindow(dice, dice.oneOf(list.boxes).window);
}

Place atArrow(Dice& dice, const Sight& sight) {
    if (sight.main.boxes.empty()) return std::nullopt;
    const RECT place = onScreen(dice.oneOf(sight.main.boxes).window);
    return POINT{place.right - 6, place.top + 8};
}

Place inDropList(Dice& dice, const Sight& sight) {
    for (const Box& box : sight.main.boxes) {
        if (!box.dropped) continue;
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        if (GetComboBoxInfo(box.window, &info) != 0) return inWindow(dice, info.hwndList);
    }
    return std::nullopt;
}

Place inBar(Dice& dice, const Sight&) {
    return inWindow(dice, bar());
}

Place inCaption(Dice& dice, const Sight& sight) {
    const HWND root = GetAncestor(sight.pane, GA_ROOT);
    const RECT place = onScreen(classOf(root) == "MakerChecker.FloatFrame" ? root : sight.pane);
    const int width = fw::widthOf(place);
    return POINT{place.left + (dice.chance(15) ? width - 12 : dice.below(width)), place.top + 8};
}

Place inEditor(Dice& dice, const Sight& sight) {
    if (sight.editor == nullptr) return std::nullopt;
    return inWindow(dice, sight.editor);
}

Place anywhere(Dice& dice, const Sight& sight) {
    return inWindow(dice, sight.pane);
}

constexpr struct {
    Place (*find)(Dice&, const Sight&);
    int weight;
} kTargets[] = {{inMainRow, 26}, {inDetailsRow, 16}, {inButton, 22}, {inHeader, 5},
                {atDivider, 3},  {inBox, 8},         {atArrow, 5},   {inDropList, 14},
                {inBar, 2},      {inCaption, 1},     {inEditor, 3},  {anywhere, 10}};

}  // namespace

Place somewhere(Dice& dice, const Sight& sight) {
    const Place found = dice.weighted(kTargets).find(dice, sight);
    return found && PtInRect(&kScreen, *found) != 0 ? found : std::nullopt;
}

}  // namespace blind
