// SPDX-License-Identifier: Apache-2.0
#include <OvSylvarProducers/suites/Initialize.h>
#include <OvSylvarProducers/suites/RenderOutputUtilsSuite.h>
#include <SylvarPlatform/PluginManager.h>

#include "support/HeardLogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Sylvar3::internal::OvPluginManager::PluginManager;
using testing::ElementsAre;
using testing::IsEmpty;

/// Five plug-ins that count, and one that has no cache, which comes before those of its API.
class FlushPluginCaches : public testing::Test {
protected:
    FlushPluginCaches() {
        EXPECT_EQ(0, OvSylvarProducersInitialize(OvGetHostTable()));
        PluginManager::setSearchDirectories({OV_TEST_FIXTURE_DIR "/counters"});
        OvLoggingHost::setLevel("", OvLoggingHost::LogLevel::Debug);
    }
    ~FlushPluginCaches() override {
        PluginManager::setSearchDirectories({});
        EXPECT_THAT(logs_.take(), IsEmpty());
    }

    /// How often the plug-ins were flushed: First and Second of "Counter", First of its version 3,
    /// First of "CounterOfMore", and that of "SylvarRuntime".
    std::vector<int> flushesOf(const char* apiName) const {
        const std::vector<int> before = counts();
        static_cast<const OvRenderOutputUtilsSuite*>(
            OvGetHostTable()->findSuite(OV_RENDER_OUTPUT_UTILS_SUITE_NAME,
                                        OV_RENDER_OUTPUT_UTILS_SUITE_VERSION))
            ->flushPluginCaches(apiName);
        std::vector<int> flushes = counts();
        for (std::size_t i = 0; i < flushes.size(); ++i) {
            flushes[i] -= before[i];
        }
        return flushes;
    }

private:
    static int countOf(const char* name, const char* api, unsigned int version) {
        const void* const count =
            PluginManager::getPluginSuite(PluginManager::getPlugin(name, api, version));
        return count ? *static_cast<const int*>(count) : -1;
    }

    static std::vector<int> counts() {
        return {countOf("First", "Counter", 1),
                countOf("Second", "Counter", 1),
                countOf("First", "Counter", 3),
                countOf("First", "CounterOfMore", 1),
                countOf("CountedRuntime", "SylvarRuntime", 99)};
    }

    ovtest::HeardLogs logs_;
};

TEST_F(FlushPluginCaches, ReachesAllPluginsButTheRuntimes) {
    EXPECT_THAT(flushesOf(nullptr), ElementsAre(1, 1, 1, 1, 0));
    EXPECT_THAT(flushesOf(""), ElementsAre(1, 1, 1, 1, 0));
}

TEST_F(FlushPluginCaches, ReachesAllVersionsOfANamedApiAlone) {
    EXPECT_THAT(flushesOf("Counter"), ElementsAre(1, 1, 1, 0, 0));
    EXPECT_THAT(flushesOf("CounterOfMore"), ElementsAre(0, 0, 0, 1, 0));
}

TEST_F(FlushPluginCaches, LeavesTheRuntimesAloneWhenTheyAreNamed) {
    EXPECT_THAT(flushesOf("SylvarRuntime"), ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(FlushPluginCaches, DoesNothingForAnApiThatIsNotThere) {
    for (const char* name : {"Count", "counter", "Counters", " ", "First"}) {
        EXPECT_THAT(flushesOf(name), ElementsAre(0, 0, 0, 0, 0)) << name;
    }
}

}  // namespace
