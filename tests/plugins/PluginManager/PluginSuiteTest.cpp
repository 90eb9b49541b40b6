// SPDX-License-Identifier: Apache-2.0
#include "plugins/PluginManager/Plugins.h"
#include "plugins/PluginManager/fixtures/FixtureSuite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace plugins;

class PluginSuite : public testing::Test {
protected:
    ~PluginSuite() override {
        PluginManager::setSearchDirectories({});
        PluginManager::setHostTable(nullptr);
    }
};

TEST_F(PluginSuite, IsAskedForOnceAfterTheHostWasHandedOver) {
    PluginManager::setSearchDirectories({folder("first")});
    const void* found = suiteOf("Zebra", "Fixture", 1);
    ASSERT_NE(nullptr, found);
    const auto& suite = *static_cast<const FixtureSuite*>(found);
    EXPECT_EQ(&suite, suiteOf("Zebra", "Fixture", 1));
    EXPECT_EQ(1, suite.hostCalls);
    EXPECT_EQ(1, suite.suiteCalls);
    EXPECT_EQ(OvGetHostTable(), suite.host);
    EXPECT_NE(nullptr, suite.host->findSuite(OV_ATTRIBUTE_SUITE_NAME, OV_ATTRIBUTE_SUITE_VERSION));
}

TEST_F(PluginSuite, SurvivesAFlushWhichReachesThatPluginAlone) {
    PluginManager::setSearchDirectories({folder("first")});
    const void* found = suiteOf("Zebra", "Fixture", 1);
    ASSERT_NE(nullptr, found);
    const auto& suite = *static_cast<const FixtureSuite*>(found);
    const int before = suite.flushCalls;
    PluginManager::flushSpecificPluginCache(PluginManager::getPlugin("Zebra", "Fixture", 1));
    EXPECT_EQ(before + 1, suite.flushCalls);
    PluginManager::flushSpecificPluginCache(PluginManager::getPlugin("Apple", "Fixture", 1));
    EXPECT_EQ(before + 1, suite.flushCalls);
    EXPECT_EQ(&suite, suiteOf("Zebra", "Fixture", 1));
}

TEST_F(PluginSuite, IsNullForAPluginThatFailsAndTheReasonIsKept) {
    PluginManager::setSearchDirectories({folder("throwing")});
    struct Row {
        const char* plugin;
        const char* reason;
    };
    for (const Row& row : {Row{"SetHostThrows", "setHost throws: no such host"},
                           {"SetHostRefuses", "refuses the host: setHost returns 5"},
                           {"GetSuiteThrows", "getSuite throws: no suite today"},
                           {"NullSuite", "getSuite returns null"}}) {
        EXPECT_EQ("", reasonFor(folder("throwing/Throwing.so"), row.plugin));
        EXPECT_EQ(nullptr, suiteOf(row.plugin, "Throwing", 1)) << row.plugin;
        EXPECT_EQ(nullptr, suiteOf(row.plugin, "Throwing", 1)) << row.plugin;
        EXPECT_EQ(row.reason, reasonFor(folder("throwing/Throwing.so"), row.plugin));
    }
    PluginManager::flushSpecificPluginCache(PluginManager::getPlugin("FlushThrows", "Throwing", 1));
}

TEST_F(PluginSuite, IsNullForAHandleThatIsNoPlugins) {
    EXPECT_EQ(nullptr, PluginManager::getPluginSuite(nullptr));
    PluginManager::flushSpecificPluginCache(nullptr);
    OvPluginStruct stranger = described("Stranger", "Fixture", nullptr);
    EXPECT_EQ(nullptr, PluginManager::getPluginSuite(&stranger));
    PluginManager::flushSpecificPluginCache(&stranger);
}

TEST_F(PluginSuite, IsNullForThePluginThatAsksForItWhileItMakesIt) {
    static OvPluginStruct plugin = described("Recursive", "Recursion", nullptr);
    static const void* seen = "";
    plugin.getSuite = []() -> const void* {
        seen = PluginManager::getPluginSuite(&plugin);
        PluginManager::setSearchDirectories({folder("first")});
        return suiteOf("Apple", "Fixture", 1);
    };
    ASSERT_EQ("", PluginManager::registerPlugin(&plugin));
    const void* suite = PluginManager::getPluginSuite(&plugin);
    EXPECT_EQ(nullptr, seen);
    EXPECT_NE(nullptr, suite);
    EXPECT_EQ(suiteOf("Apple", "Fixture", 1), suite);
}

TEST_F(PluginSuite, ComesOfTheHostTableThatIsSet) {
    static OvHostTable own = *OvGetHostTable();
    static const OvHostTable* seen = nullptr;
    static OvPluginStruct plugin =
        described("HostOfItsOwn", "Hosts", []() -> const void* { return seen; });
    plugin.setHost = [](const OvHostTable* host) {
        seen = host;
        return 0;
    };
    PluginManager::setHostTable(&own);
    ASSERT_EQ("", PluginManager::registerPlugin(&plugin));
    EXPECT_EQ(&own, PluginManager::getPluginSuite(&plugin));
}

TEST_F(PluginSuite, IsNotTouchedByWhatThePluginDoesToItsStructLater) {
    static OvPluginStruct plugin =
        described("Changing", "Changes", []() -> const void* { return "first"; });
    ASSERT_EQ("", PluginManager::registerPlugin(&plugin));
    plugin = {};
    EXPECT_EQ(&plugin, PluginManager::getPlugin("Changing", "Changes", 1));
    EXPECT_STREQ("first", static_cast<const char*>(PluginManager::getPluginSuite(&plugin)));
}

}  // namespace
