// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/ForeignOnce.h"

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <stdexcept>

using Sylvar3::internal::Support::ForeignOnce;

namespace {

TEST(ForeignOnce, RunsOnceForManyThreads) {
    for (int round = 0; round < 50; ++round) {
        ForeignOnce once;
        int value = 0;
        ovtest::onThreads(8, [&](int) {
            EXPECT_TRUE(once.run([&] { return ++value > 0; }));
            EXPECT_EQ(1, value);
        });
    }
}

TEST(ForeignOnce, RunsAgainWhenItWasNotDoneOrThrew) {
    ForeignOnce once;
    EXPECT_FALSE(once.run([] { return false; }));
    EXPECT_THROW(once.run([]() -> bool { throw std::runtime_error("not today"); }),
                 std::runtime_error);
    EXPECT_FALSE(once.isDone());
    EXPECT_TRUE(once.run([] { return true; }));
    EXPECT_TRUE(once.run([] { return false; }));
}

TEST(ForeignOnce, TellsTheRunningThreadThatItWouldWaitForItself) {
    ForeignOnce outer;
    ForeignOnce inner;
    bool again = true;
    EXPECT_TRUE(outer.run([&] {
        return inner.run([&] {
            again = outer.run([] { return true; });
            return true;
        });
    }));
    EXPECT_FALSE(again);
}

TEST(ForeignOnce, TellsOneThreadOfARingAndLetsTheOthersWait) {
    constexpr int kThreads = 4;
    std::array<ForeignOnce, kThreads> ring;
    std::atomic<int> refused{0};
    ovtest::Barrier everyoneRuns(kThreads);
    ovtest::onThreads(kThreads, [&](int thread) {
        const auto own = static_cast<std::size_t>(thread);
        ring[own].run([&] {
            everyoneRuns.wait();
            refused += ring[(own + 1) % kThreads].run([] { return true; }) ? 0 : 1;
            return true;
        });
    });
    EXPECT_EQ(1, refused);
}

}  // namespace
