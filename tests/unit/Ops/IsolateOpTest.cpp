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

std::shared_ptr<SylvarRuntime::Client> isolate(const Names& paths) {
    return openOver(
        StaticScene().set("/root/a", "kept", 1).at("/root/a/x/p").at("/root/a/y").at("/root/b/x"),
        "isolate",
        Args().set("paths", paths));
}

}  // namespace

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
