// SPDX-License-Identifier: Apache-2.0
#include "Platform/Support/OnceBuilt.h"

#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <stdexcept>
#include <type_traits>
#include <vector>

using Sylvar3::internal::Support::OnceBuilt;

namespace {

#if defined(__clang__)
#define CONSTANT_INITIALISED [[clang::require_constant_initialization]]
#else
#define CONSTANT_INITIALISED __constinit
#endif

CONSTANT_INITIALISED OnceBuilt<std::vector<int>> numbers;
static_assert(std::is_trivially_destructible_v<OnceBuilt<std::vector<int>>>);

struct Counted {
    explicit Counted(std::atomic<int>& counter) : number(++counter) {}
    int number;
};

TEST(OnceBuilt, NeedsNoWorkAtLoadingAndBuildsOnFirstUse) {
    EXPECT_FALSE(numbers.isBuilt());
    numbers.get().push_back(7);
    EXPECT_TRUE(numbers.isBuilt());
    EXPECT_EQ(std::vector<int>{7}, numbers.get());
}

TEST(OnceBuilt, DoesNotMakeASecondTime) {
    OnceBuilt<int> once;
    EXPECT_EQ(1, once.get([] { return 1; }));
    EXPECT_EQ(1, once.get([] { return 2; }));
}

TEST(OnceBuilt, TriesAgainAfterABuildThatThrew) {
    OnceBuilt<int> once;
    EXPECT_THROW(once.get([]() -> int { throw std::runtime_error("not today"); }),
                 std::runtime_error);
    EXPECT_FALSE(once.isBuilt());
    EXPECT_EQ(2, once.get([] { return 2; }));
}

TEST(OnceBuilt, IsBuiltOnceByManyThreads) {
    constexpr int kThreads = 8;
    for (int round = 0; round < 50; ++round) {
        OnceBuilt<Counted> once;
        std::atomic<int> builds{0};
        std::vector<Counted*> seen(kThreads);
        ovtest::onThreads(kThreads, [&](int i) {
            Counted& counted = once.get([&] { return Counted(builds); });
            EXPECT_EQ(1, counted.number);
            seen[static_cast<std::size_t>(i)] = &counted;
        });
        EXPECT_EQ(1, builds);
        EXPECT_EQ(1u, std::set<Counted*>(seen.begin(), seen.end()).size());
    }
}

TEST(OnceBuilt, PassesTheBuildToAnotherThreadWhenOneThrows) {
    constexpr int kThreads = 8;
    OnceBuilt<int> once;
    std::atomic<int> attempts{0};
    std::atomic<int> failures{0};
    ovtest::onThreads(kThreads, [&](int) {
        try {
            const int built = once.get([&] {
                const int attempt = ++attempts;
                if (attempt < 4) {
                    throw std::runtime_error("not yet");
                }
                return attempt;
            });
            EXPECT_EQ(4, built);
        } catch (const std::runtime_error&) {
            ++failures;
        }
    });
    EXPECT_EQ(4, attempts);
    EXPECT_EQ(3, failures);
}

}  // namespace
