// SPDX-License-Identifier: Apache-2.0
#include "plugins/LocationDelegate/DelegateTest.h"

namespace {

using namespace delegates;
using testing::ElementsAre;
using testing::IsEmpty;

class UnusableDelegate : public DelegateTest {};

TEST_F(UnusableDelegate, WithoutASuiteIsPassedOver) {
    search({"unusable", "second"});
    script("Alpha", {"mesh"});
    EXPECT_EQ("Alpha", delegateFor("mesh"));
    EXPECT_THAT(typesFor(), ElementsAre("mesh"));
}

TEST_F(UnusableDelegate, OfAnotherVersionIsNotAsked) {
    search({"unusable"});
    const StringAttribute types("mesh");
    ScriptedDelegate& future = delegate("Future", 2);
    future.types = types.handle();
    EXPECT_THAT(typesFor(), IsEmpty());
    EXPECT_STREQ("", future.calls);
}

TEST_F(UnusableDelegate, ThatThrowsIsLeftOutAndOthersStand) {
    search({"throwing", "second"});
    script("Alpha", {"curves"});
    EXPECT_EQ("Usable", delegateFor("mesh"));
    EXPECT_EQ("Alpha", delegateFor("curves"));
    EXPECT_TRUE(Cache::isCacheInitialized());
}

TEST_F(UnusableDelegate, ThatThrowsIsNeverAskedAgain) {
    search({"first"});
    ScriptedDelegate& delta = script("Delta", {"mesh"});
    delta.onCall = [](int, void*) { throw 7; };
    EXPECT_EQ("", delegateFor("mesh"));
    EXPECT_EQ("", delegateFor("mesh"));
    EXPECT_STREQ("c", delta.calls);
}

TEST_F(UnusableDelegate, ThatThrowsWhenAskedForItsRendererHasNoTypes) {
    search({"first"});
    script("Delta", {"mesh", "curves"}).onCall = [](int call, void*) {
        if (call == CALL_RENDERER) {
            throw 7;
        }
    };
    script("Echo", {"mesh"});
    EXPECT_EQ("Echo", delegateFor("mesh"));
    EXPECT_THAT(typesFor(), ElementsAre("mesh"));
}

TEST_F(UnusableDelegate, WithANullEntryIsLeftOutAndOthersStand) {
    search({"first", "second"});
    script("Delta", {"delta"}).table.create = nullptr;
    script("Echo", {"echo"}).table.process = nullptr;
    script("Foxtrot", {"foxtrot"}).table.getSupportedRenderer = nullptr;
    script("Golf", {"golf"}).table.getLocationTypes = nullptr;
    script("Alpha", {"alpha"});
    EXPECT_THAT(typesFor(), ElementsAre("alpha"));
}

TEST_F(UnusableDelegate, IsNotOneWithoutDestroy) {
    search({"first"});
    script("Delta", {"mesh"}).table.destroy = nullptr;
    EXPECT_EQ("Delta", delegateFor("mesh"));
}

}  // namespace
