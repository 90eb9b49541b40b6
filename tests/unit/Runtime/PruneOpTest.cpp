// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace ovtest;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Names = std::vector<std::string>;

std::shared_ptr<SylvarRuntime::Client> prune(const Names& paths) {
    return openOver(StaticScene().at("/root/a/x").at("/root/a/y").at("/root/b/x"),
                    "prune",
                    Args().set("paths", paths));
}

std::shared_ptr<SylvarRuntime::Client> isolate(const Names& paths) {
    return openOver(
        StaticScene().set("/root/a", "kept", 1).at("/root/a/x/p").at("/root/a/y").at("/root/b/x"),
        "isolate",
        Args().set("paths", paths));
}

}  // namespace

TEST(Prune, RemovesWhatItsPatternsMatchAndAllBelow) {
    EXPECT_THAT(pathsFrom(*prune({"/root/a"})), ElementsAre("/root", "/root/b", "/root/b/x"));
    EXPECT_THAT(pathsFrom(*prune({"/root/**/x", "!/root/b/**"})),
                ElementsAre("/root", "/root/a", "/root/a/y", "/root/b", "/root/b/x"));
    EXPECT_FALSE(prune({"/root/a"})->cookLocation("/root/a/x").doesLocationExist());
}

TEST(Prune, LeavesAllWhenNothingMatches) {
    EXPECT_EQ(6U, pathsFrom(*prune({"/root/c"})).size());
    EXPECT_EQ(6U, pathsFrom(*prune({})).size());
}

TEST(Prune, CanRemoveTheWholeScene) {
    EXPECT_THAT(pathsFrom(*prune({"/root/**"})), ElementsAre());
}

TEST(Prune, CooksNothingOfWhatItRemoves) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("seed", 4001).set("breadth", 4).set("depth", 3))
            .op("p", "prune", Args().set("paths", "/root/c1"), {"g"})
            .open();
    const auto cooks = cooksDuring(*client, "generate", [&] {
        EXPECT_FALSE(client->cookLocation("/root/c1").doesLocationExist());
        EXPECT_FALSE(client->cookLocation("/root/c1/c2/c3").doesLocationExist());
    });
    EXPECT_EQ(2, cooks);  // What is above, and /root.
}

TEST(Prune, HandsOnTheVeryLocationsThatStay) {
    const StaticScene scene = StaticScene().at("/root/a").at("/root/b");
    const auto plain = OpTree().op("below", "scene", Args().set("tree", scene.group())).open();
    const auto pruned = openOver(scene, "prune", Args().set("paths", "/root/a"));
    EXPECT_EQ(plain->cookLocation("/root").getAttrs().handle(),
              pruned->cookLocation("/root").getAttrs().handle());
}

TEST(Prune, TellsWhatIsWrongWithItsArguments) {
    EXPECT_THAT(errorAt(*prune({"root/a"}), "/root"),
                HasSubstr("prune (op 2 of 2), /root: pattern \"root/a\": "));
    const auto client = openOver(StaticScene().at("/root/a"), "prune", Args());
    EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("argument \"paths\" is missing"));
    EXPECT_EQ(2U, pathsFrom(*client).size());
}

TEST(Isolate, KeepsWhatItsPatternsMatchWithAllBelowAndTheWayThere) {
    EXPECT_THAT(pathsFrom(*isolate({"/root/a/x"})),
                ElementsAre("/root", "/root/a", "/root/a/x", "/root/a/x/p"));
    EXPECT_THAT(pathsFrom(*isolate({"/root/b", "/root/a/y"})),
                ElementsAre("/root", "/root/a", "/root/a/y", "/root/b", "/root/b/x"));
}

TEST(Isolate, KeepsTheAttributesOfTheWay) {
    EXPECT_EQ(1, intAt(*isolate({"/root/a/x"}), "/root/a", "kept"));
}

TEST(Isolate, KeepsWhatMayHaveAMatchBelowWithoutSearching) {
    EXPECT_THAT(
        pathsFrom(*isolate({"/root/**/p"})),
        ElementsAre(
            "/root", "/root/a", "/root/a/x", "/root/a/x/p", "/root/a/y", "/root/b", "/root/b/x"));
}

TEST(Isolate, LeavesOutWhatAPatternTakesAway) {
    EXPECT_THAT(pathsFrom(*isolate({"/root/a/*", "!/root/a/y"})),
                ElementsAre("/root", "/root/a", "/root/a/x", "/root/a/x/p"));
}

TEST(Isolate, LeavesOutWhatAPatternTakesAwayBelowAMatch) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("seed", 4003).set("breadth", 3).set("depth", 2))
            .op("i", "isolate", Args().set("paths", Names{"/root/**", "!/root/c1/**"}), {"g"})
            .open();
    EXPECT_THAT(pathsFrom(*client),
                ElementsAre("/root",
                            "/root/c0",
                            "/root/c0/c0",
                            "/root/c0/c1",
                            "/root/c0/c2",
                            "/root/c2",
                            "/root/c2/c0",
                            "/root/c2/c1",
                            "/root/c2/c2"));
}

TEST(Isolate, KeepsWhatIsMatchedAgainBelowWhatIsTakenAway) {
    EXPECT_THAT(
        pathsFrom(*isolate({"/root", "!/root/a", "/root/a/x"})),
        ElementsAre("/root", "/root/a", "/root/a/x", "/root/a/x/p", "/root/b", "/root/b/x"));
}

TEST(Isolate, LeavesNothingWhenNothingCanMatch) {
    EXPECT_THAT(pathsFrom(*isolate({})), ElementsAre());
    EXPECT_THAT(pathsFrom(*isolate({"/world/a"})), ElementsAre());
}

TEST(Isolate, CooksNothingOfWhatItLeavesOut) {
    const auto client =
        OpTree()
            .op("g", "generate", Args().set("seed", 4002).set("breadth", 4).set("depth", 3))
            .op("i", "isolate", Args().set("paths", "/root/c0/c0"), {"g"})
            .open();
    const auto cooks = cooksDuring(*client, "generate", [&] {
        EXPECT_FALSE(client->cookLocation("/root/c1/c2").doesLocationExist());
        EXPECT_FALSE(client->cookLocation("/root/c0/c1").doesLocationExist());
    });
    EXPECT_EQ(3, cooks);  // What is above, /root, and /root/c0.
}
