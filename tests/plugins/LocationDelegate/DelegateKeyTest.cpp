// SPDX-License-Identifier: Apache-2.0
#include "plugins/LocationDelegate/DelegateTest.h"

namespace {

using namespace delegates;
using testing::ElementsAre;
using testing::IsEmpty;

class LocationDelegateKey : public DelegateTest {};

TEST_F(LocationDelegateKey, IsTheTypeAndTheRenderer) {
    search({"first"});
    script("Delta", {"mesh"});
    script("Echo", {"mesh"}, "ray");
    script("Foxtrot", {"mesh", "curves"}, "dots");
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_EQ("Echo", delegateFor("mesh", "ray"));
    EXPECT_EQ("Foxtrot", delegateFor("mesh", "dots"));
    EXPECT_EQ("Foxtrot", delegateFor("curves", "dots"));
}

TEST_F(LocationDelegateKey, OfAnyRendererIsFoundWithTheEmptyNameAlone) {
    search({"first"});
    script("Delta", {"mesh", "curves"});
    script("Echo", {"mesh"}, "ray");
    EXPECT_EQ("Delta", delegateFor("curves"));
    EXPECT_EQ("", delegateFor("curves", "ray"));
    EXPECT_EQ("", delegateFor("curves", "unknown"));
    EXPECT_THAT(typesFor("ray"), ElementsAre("mesh"));
    EXPECT_THAT(typesFor("unknown"), IsEmpty());
}

TEST_F(LocationDelegateKey, OfARendererIsNotFoundWithTheEmptyName) {
    search({"first"});
    script("Delta", {"mesh"}, "ray");
    EXPECT_EQ("Delta", delegateFor("mesh", "ray"));
    EXPECT_EQ("", delegateFor("mesh"));
    EXPECT_THAT(typesFor(), IsEmpty());
}

TEST_F(LocationDelegateKey, IsTakenToTheLetter) {
    search({"first"});
    script("Delta", {"mesh"}, "ray");
    script("Echo", {"mesh"});
    for (const char* other : {"Mesh", "mes", "meshes", "mesh ", ""}) {
        EXPECT_EQ("", delegateFor(other, "ray")) << other;
        EXPECT_EQ("", delegateFor(other)) << other;
    }
    for (const char* other : {"Ray", "ra", "rays", " "}) {
        EXPECT_EQ("", delegateFor("mesh", other)) << other;
        EXPECT_THAT(typesFor(other), IsEmpty()) << other;
    }
}

TEST_F(LocationDelegateKey, StaysWithTheFirstDelegateByDirectoryAndThenByName) {
    search({"first", "second"});
    script("Golf", {"mesh", "curves", "points", "volume"});
    script("Echo", {"mesh", "curves"});
    script("Delta", {"mesh"});
    script("Alpha", {"mesh", "curves", "points", "light"});
    EXPECT_EQ("Delta", delegateFor("mesh"));
    EXPECT_EQ("Echo", delegateFor("curves"));
    EXPECT_EQ("Golf", delegateFor("points"));
    EXPECT_EQ("Golf", delegateFor("volume"));
    EXPECT_EQ("Alpha", delegateFor("light"));
}

TEST_F(LocationDelegateKey, StaysWithTheFirstDelegateOfARendererToo) {
    search({"second", "first"});
    script("Delta", {"mesh", "curves"}, "ray");
    script("Alpha", {"mesh"}, "ray");
    script("Golf", {"curves", "points"}, "ray");
    EXPECT_EQ("Alpha", delegateFor("mesh", "ray"));
    EXPECT_EQ("Delta", delegateFor("curves", "ray"));
    EXPECT_EQ("Golf", delegateFor("points", "ray"));
}

TEST_F(LocationDelegateKey, MayBeTheEmptyType) {
    search({"first"});
    script("Delta", {""});
    script("Echo", {"", "mesh"}, "ray");
    EXPECT_EQ("Delta", delegateFor(""));
    EXPECT_EQ("Echo", delegateFor("", "ray"));
    EXPECT_THAT(typesFor(), ElementsAre(""));
    EXPECT_THAT(typesFor("ray"), ElementsAre("", "mesh"));
}

TEST_F(LocationDelegateKey, TypesAreListedAscendingAndOnceEach) {
    search({"first", "second"});
    script("Delta", {"mesh", "curves", "mesh"});
    script("Golf", {"Volume", "curves"});
    script("Alpha", {"a10", "a9"});
    EXPECT_THAT(typesFor(), ElementsAre("Volume", "a10", "a9", "curves", "mesh"));
}

TEST_F(LocationDelegateKey, TypesAreListedByRenderer) {
    search({"first"});
    script("Delta", {"mesh", "curves"}, "ray");
    script("Echo", {"points", "light"});
    script("Foxtrot", {"volume"}, "ray");
    script("Golf", {"volume", "mesh"}, "dots");
    EXPECT_THAT(typesFor("ray"), ElementsAre("curves", "mesh", "volume"));
    EXPECT_THAT(typesFor("dots"), ElementsAre("mesh", "volume"));
    EXPECT_THAT(typesFor(), ElementsAre("light", "points"));
}

TEST_F(LocationDelegateKey, TypesMayReplaceTheNameThatTheyAreAskedWith) {
    search({"first"});
    const std::string renderer = "a renderer of a name that lies on the heap";
    script("Delta", {"mesh"}, renderer);
    std::vector<std::string> types = {renderer};
    Cache::getLocationTypesWithDelegates(types, types.front());
    EXPECT_THAT(types, ElementsAre("mesh"));
}

TEST_F(LocationDelegateKey, IsThatOfTheTableThatThePluginGave) {
    search({"first"});
    const ScriptedDelegate& delta = script("Delta", {"mesh"}, "ray");
    EXPECT_EQ(&delta.table, Cache::getPluginSuite("mesh", "ray"));
}

}  // namespace
