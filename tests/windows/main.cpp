// The Windows tests share one process, one screen and one host; each starts with a fresh host
// state.
#include <gtest/gtest.h>

#include "sdk/connectvosk.h"
#include "tests/windows/screenless.h"
#include "tests/windows/test_host.h"

namespace {

class FreshHost final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        host() = HostState{};
        otp_fail_call(0);
    }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_TRUE(host().controls.empty()) << "receive controls were not released";
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (const auto code = runWithoutScreen()) return *code;
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new FreshHost);
    return RUN_ALL_TESTS();
}
