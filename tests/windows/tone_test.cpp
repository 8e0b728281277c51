// The tone never makes anyone wait, and requests while it sounds are merged.
#include "plugin/tone.h"

#include <gtest/gtest.h>

using namespace mc;

namespace {

std::atomic<int> played = 0;
HANDLE release = nullptr;

void playUntilReleased() {
    ++played;
    WaitForSingleObject(release, INFINITE);
}

TEST(Tone, IsPlayedElsewhereAndMerged) {
    played = 0;
    release = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    {
        Tone tone(playUntilReleased);
        // Were a request to wait for the tone, the first would never return.
        for (int i = 0; i < 300; ++i) tone.request();
        while (played == 0) SwitchToThread();
        for (int i = 0; i < 300; ++i) tone.request();
        EXPECT_EQ(played, 1);
        SetEvent(release);
    }
    EXPECT_EQ(played, 1);

    Tone again(playUntilReleased);
    again.request();
    while (played == 1) SwitchToThread();
    EXPECT_EQ(played, 2);
}

}  // namespace
