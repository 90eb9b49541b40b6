// SPDX-License-Identifier: Apache-2.0
#include <SylvarPlatform/Configuration.h>
#include <SylvarPlatform/Logging.h>

#include "Platform/Embedded/Runtime/Store.h"
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/Sanitized.h"
#include "support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <string>

using namespace ovtest;
using namespace Sylvar3::OvConfiguration::v1;
using Sylvar3::internal::OvSylvar::Embedded::Store;

namespace {

constexpr std::int64_t kPage = 80 * 1024;  ///< With what a location can go over it.

int locations() {
    return kIsSanitized ? 30'000 : 1'000'000;
}

OpTree sceneOf(int count, int seed) {
    return OpTree().op(
        "g", "generate", Args().set("depth", 9).set("count", count).set("seed", seed));
}

std::int64_t storeBytes() {
    return Store::instance().totals().bytes;
}

class MemoryBudget : public testing::Test {
protected:
    void TearDown() override {
        Config()->unset("SYLVAR_MEMORY_BUDGET");
        sceneOf(1, 0).open();
    }

    static void setBudget(std::int64_t bytes) {
        Config()->set("SYLVAR_MEMORY_BUDGET", std::to_string(bytes));
    }
};

}  // namespace

TEST_F(MemoryBudget, IsKeptByAWalkThatNeedsTenTimesAsMuch) {
    const int count = locations();
    std::int64_t needed = 0;
    {
        const auto client = sceneOf(count, 1).open();
        EXPECT_EQ(count, countFrom(*client, "/root"));
        needed = storeBytes();
    }
    EXPECT_EQ(0, storeBytes()) << "what was cooked goes with the last client";

    setBudget(needed / 10);
    const auto client = sceneOf(count, 1).open();
    std::int64_t most = 0;
    std::int64_t seen = 0;
    walkFrom(*client, "/root", [&](const std::string&, const SylvarRuntime::LocationData&) {
        if (++seen % 100 == 0) {
            most = std::max(most, storeBytes());
        }
    });
    EXPECT_EQ(count, seen);
    EXPECT_LE(most, needed / 10 + kPage);
    EXPECT_GT(most, needed / 20) << "the budget is used";
}

TEST_F(MemoryBudget, IsKeptByManyThreads) {
    const int count = locations() / 20;
    const std::int64_t budget = std::int64_t{count} * 60;
    setBudget(budget);
    std::atomic<std::int64_t> most{0};
    onThreads(8, [&](int thread) {
        const auto client = sceneOf(count, 2 + thread % 2).open();
        std::int64_t seen = 0;
        walkFrom(*client, "/root", [&](const std::string&, const SylvarRuntime::LocationData&) {
            if (++seen % 100 == 0) {
                const std::int64_t bytes = storeBytes();
                std::int64_t before = most;
                while (before < bytes && !most.compare_exchange_weak(before, bytes)) {
                }
            }
        });
        EXPECT_EQ(count, seen);
    });
    EXPECT_LE(most, budget + 8 * kPage);
}

TEST_F(MemoryBudget, DropsWhatWasNotUsedOfLateFirst) {
    setBudget(1'000'000);
    const auto hot = sceneOf(200, 4).open();
    const auto cold = sceneOf(200, 5).open();
    countFrom(*hot, "/root");
    countFrom(*cold, "/root");
    const auto stream = sceneOf(20'000, 6).open();
    std::int64_t seen = 0;
    walkFrom(*stream, "/root", [&](const std::string&, const SylvarRuntime::LocationData&) {
        if (++seen % 50 == 0) {
            hot->cookLocation("/root/c1");
        }
    });
    EXPECT_TRUE(hot->getCachedLocation("/root/c1").second);
    EXPECT_FALSE(cold->getCachedLocation("/root/c1").second);
}

TEST_F(MemoryBudget, CountsWhatSomebodyHoldsApart) {
    setBudget(500'000);
    const auto client = sceneOf(20'000, 7).open();
    std::vector<SylvarRuntime::LocationData> held;
    walkFrom(
        *client, "/root", [&](const std::string&, const SylvarRuntime::LocationData& location) {
            held.push_back(location);
        });
    EXPECT_EQ(20'000U, held.size());
    EXPECT_LE(storeBytes(), 500'000 + kPage);
    EXPECT_GT(Store::instance().totals().pinnedBytes, 5'000'000);
    for (const SylvarRuntime::LocationData& location : held) {
        ASSERT_TRUE(location.doesLocationExist());
        ASSERT_EQ(7, location.getAttrs().getNumberOfChildren());
    }
    held.clear();
    EXPECT_LE(Store::instance().totals().pinnedBytes, 500'000 + kPage);
}

TEST_F(MemoryBudget, OfNothingStillLetsAWalkEnd) {
    setBudget(0);
    EXPECT_EQ(500, countFrom(*sceneOf(500, 8).open(), "/root"));
}

TEST_F(MemoryBudget, ThatCannotBeReadIsAWarningAndChangesNothing) {
    setBudget(123'456);
    sceneOf(1, 9).open();
    std::string message;
    OvLoggingHost::setLogSink([&](const OvLoggingHost::LogMessage& one) { message = one.message; });
    Config()->set("SYLVAR_MEMORY_BUDGET", "much");
    sceneOf(1, 9).open();
    OvLoggingHost::setLogSink({});
    EXPECT_EQ("SYLVAR_MEMORY_BUDGET is \"much\", which is no number of bytes such as 512M",
              message);
    EXPECT_TRUE(Store::instance().hasBudget());
}
