// SPDX-License-Identifier: Apache-2.0
#include "plugins/LocationDelegate/DelegateTest.h"
#include "support/Sanitized.h"

#include <new>

namespace {

using namespace delegates;
using testing::ElementsAre;
using testing::IsEmpty;

class LocationDelegateCache : public DelegateTest {};

TEST_F(LocationDelegateCache, IsInitializedByTheFirstSearchForADelegate) {
    search({"first"});
    script("Delta", {"mesh"});
    EXPECT_FALSE(Cache::isCacheInitialized());
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_TRUE(Cache::isCacheInitialized());
}

TEST_F(LocationDelegateCache, IsInitializedByTheFirstQuestionForTypes) {
    search({"first"});
    script("Delta", {"mesh"});
    EXPECT_FALSE(Cache::isCacheInitialized());
    EXPECT_THAT(typesFor(), ElementsAre("mesh"));
    EXPECT_TRUE(Cache::isCacheInitialized());
}

TEST_F(LocationDelegateCache, IsInitializedOnDemand) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"});
    EXPECT_FALSE(Cache::isCacheInitialized());
    EXPECT_STREQ("", delta.calls);
    Cache::initializeCache();
    EXPECT_TRUE(Cache::isCacheInitialized());
    EXPECT_STREQ("ctr", delta.calls);
}

TEST_F(LocationDelegateCache, IsPopulatedWithoutTheOnceFlagToo) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"});
    EXPECT_FALSE(Cache::isCacheInitialized());
    Cache::populate();
    EXPECT_TRUE(Cache::isCacheInitialized());
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_STREQ("ctr", delta.calls);
}

TEST_F(LocationDelegateCache, AsksADelegateForAnInstanceTypesAndRendererAndNeverAgain) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"});
    for (int round = 0; round < 2; ++round) {
        Cache::initializeCache();
        Cache::populate();
        EXPECT_EQ("Delta", delegateFor("mesh"));
        EXPECT_EQ("", delegateFor("mesh", "ray"));
        EXPECT_THAT(typesFor(), ElementsAre("mesh"));
    }
    EXPECT_STREQ("ctr", delta.calls);
}

TEST_F(LocationDelegateCache, IsEmptyAndInitializedWithoutPlugins) {
    search({});
    EXPECT_FALSE(Cache::isCacheInitialized());
    EXPECT_EQ(nullptr, Cache::getPluginSuite("mesh", ""));
    EXPECT_EQ(nullptr, Cache::getPluginSuite("mesh", "ray"));
    EXPECT_THAT(typesFor(), IsEmpty());
    EXPECT_THAT(typesFor("ray"), IsEmpty());
    EXPECT_TRUE(Cache::isCacheInitialized());
}

TEST_F(LocationDelegateCache, IsInitializedByTheNextQuestionWhenMemoryRanOut) {
    if (ovtest::kIsThreadSanitized) {
        GTEST_SKIP() << "to the thread sanitizer a once-flag that threw is still being set";
    }
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"});
    delta.onCall = [](int, void*) { throw std::bad_alloc(); };
    std::vector<std::string> types = {"what was there"};
    EXPECT_THROW(Cache::getLocationTypesWithDelegates(types, ""), std::bad_alloc);
    EXPECT_THAT(types, IsEmpty());
    EXPECT_THROW(Cache::getPluginSuite("mesh", ""), std::bad_alloc);
    EXPECT_FALSE(Cache::isCacheInitialized());
    delta.onCall = nullptr;
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_TRUE(Cache::isCacheInitialized());
    EXPECT_STREQ("ccctr", delta.calls);
}

TEST_F(LocationDelegateCache, NeverSeesPluginsThatAreLoadedLater) {
    search({"first"});
    script("Delta", {"mesh"});
    Cache::initializeCache();
    search({"second", "first"});
    const ScriptedDelegate& alpha = script("Alpha", {"mesh", "curves"});
    Cache::initializeCache();
    Cache::populate();
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_THAT(typesFor(), ElementsAre("mesh"));
    EXPECT_STREQ("", alpha.calls);
}

TEST_F(LocationDelegateCache, KeepsDelegatesOfDirectoriesThatAreSearchedNoMore) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"});
    Cache::initializeCache();
    search({});
    EXPECT_EQ(&delta, Cache::getPluginSuite("mesh", ""));
}

TEST_F(LocationDelegateCache, IsNotReachedByAFlushOfThePlugins) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"});
    Cache::initializeCache();
    PluginManager::flushSpecificPluginCache(PluginManager::getPlugin(
        "Delta", OV_LOCATION_DELEGATE_API_NAME, OV_LOCATION_DELEGATE_API_VERSION));
    EXPECT_EQ(1, delta.flushes);
    script("Delta", {"curves"});
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_EQ("", delegateFor("curves"));
    EXPECT_STREQ("ctr", delta.calls);
}

}  // namespace
