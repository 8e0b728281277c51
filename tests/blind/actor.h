// A user without sense: picks one thing after the other that a hand can do, or a server.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "tests/blind/dice.h"
#include "tests/blind/server.h"
#include "tests/blind/sight.h"
#include "tests/windows/hand.h"

namespace blind {

// One action. What it may press is said before it happens, from the input alone, what lies under
// the pointer and what has the focus.
struct Act {
    std::string name;
    hand::Step run;
    std::string press = {};  // a button's text, kOpenFocused or kOpenSelected; empty: nothing
    bool certain = false;    // the press has to happen
    bool byHand = true;      // not by the server
    WORD key = 0;
    bool inDropList = false;  // a click in an open drop-down
    bool pause = false;       // timers expire
};
inline constexpr char kOpenFocused[] = "details of the focused row";
inline constexpr char kOpenSelected[] = "details of the first selected row";
inline constexpr char kOpenNext[] = "details of the next row";
inline constexpr char kOpenNeighbour[] = "details of a neighbour";

class Actor {
public:
    Actor(Dice& dice, Server& server, std::function<void()> hotKey, std::function<void()> pause)
        : m_dice(dice), m_server(server), m_hotKey(std::move(hotKey)), m_pause(std::move(pause)) {}

    Act next(const Sight& sight);

    // Input for a loop that waits: a menu, a message box, a dialog. Ends it before long.
    void answerLoop();
    // What was pressed and done in loops since the last call.
    std::string takeLoopPress() { return std::exchange(m_loopPress, {}); }
    std::string takeLoopWords() { return std::exchange(m_loopWords, {}); }

private:
    Act serverAct();
    Act serverActOf(std::string (Server::*move)());
    Act hotKeyAct();
    std::optional<Act> answerAct(const Sight& sight);
    std::optional<Act> openAct(const Sight& sight);
    std::optional<Act> editAct(const Sight& sight);
    std::optional<Act> valueAct(const Sight& sight);
    std::optional<Act> updateAct(const Sight& sight);
    std::optional<Act> emptyBoxAct(const Sight& sight);
    void clickIn(HWND window);
    void clickInDialog();

    Dice& m_dice;
    Server& m_server;
    std::function<void()> m_hotKey, m_pause;
    int m_loopSteps = 0;
    std::string m_loopWords, m_loopPress;
};

}  // namespace blind
