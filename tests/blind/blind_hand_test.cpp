// A blind hand: a random user whose every action must leave the workbench in order. MC_HAND_ACTIONS
// and MC_HAND_SEED choose another length and other throws, MC_HAND_CHECKS some of the checks.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>

#include "tests/blind/actor.h"
#include "tests/blind/checks.h"
#include "tests/blind/watch.h"
#include "tests/windows/hand.h"
#include "tests/windows/test_host.h"

namespace blind {
namespace {

std::string setting(const char* name, const char* other) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : other;
}

class BlindHand : public testing::Test {
protected:
    void act(int number) {
        Story story;
        story.before = seen.pane != nullptr ? seen : (seen = look(seen));
        story.act = actor.next(story.before);
        story.sends = host().sends;
        host().sent.clear();
        checks.before(story.before);
        remember(std::to_string(number) + " " + story.act.name);
        watch.begin("seed " + std::to_string(seed) + ", " + last.back());
        perform(story);
        story.sends = story.sends && host().sends;
        if (story.act.byHand) host().sends = true;
        remember(actor.takeLoopWords(), true);
        const std::string press = actor.takeLoopPress();
        if (!press.empty()) story.act.press = press;
        story.after = seen = look(seen);
        story.sent = host().sent;
        for (const Fields& request : story.sent) server.noteRequest(request, story.before.tag);
        story.saidYes = watch.saidYes();
        story.excepted = watch.excepted();
        story.news = server.takeNews();
        // An answer whose tag is folded away may have taken the place of the last one.
        if (!seen.tagVisible && !story.news.answered.empty()) story.after.tag = seen.tag = "";
        for (const std::string& complaint : checks.after(story)) ADD_FAILURE() << complaint;
    }

    void perform(Story& story) {
        hand::duringEach(
            [&] {
                story.act.run();
                // An editor that lost the focus tells soon what is wrong with its text.
                hand::waitUntil([&] { return !editorIsLeft(story.before); });
            },
            [&] {
                story.looped = true;
                watch.listen();
                actor.answerLoop();
            });
    }

    void remember(const std::string& words, bool more = false) {
        if (!more) last.emplace_back();
        if (last.size() > 20) last.pop_front();
        last.back() += words;
    }

    const StoredProfile profile;
    const StoredProfile detailsProfile{nullptr, kDetailsList};
    OpenWorkbench open;
    Watch watch;
    const unsigned seed = static_cast<unsigned>(std::stoul(setting("MC_HAND_SEED", "1")));
    Dice dice{seed};
    Server server{open.plugin, dice};
    Actor actor{dice, server, [this] { open.plugin.hotKey(); },
                [this] { watch.letTimersExpire(); }};
    Checks checks{server, setting("MC_HAND_CHECKS", "")};
    std::deque<std::string> last;
    Sight seen;
};

TEST_F(BlindHand, DoesNothingThatItDidNotMean) {
    const int actions = std::stoi(setting("MC_HAND_ACTIONS", "2000"));
    host().restricted = {64169};  // copying and exporting
    for (int number = 1; number <= actions && !HasFailure(); ++number) act(number);
    hand::letGo();
    if (!HasFailure()) return;
    std::printf("seed %u; the last actions:\n", seed);
    for (const std::string& each : last) std::printf("  %s\n", each.c_str());
}

}  // namespace
}  // namespace blind
