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
