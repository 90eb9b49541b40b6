// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

using Names = std::vector<std::string>;

OpTree& addScene(OpTree& tree, const char* name, const StaticScene& scene) {
    return tree.op(name, "scene", Args().set("tree", scene.group()));
}

std::shared_ptr<SylvarRuntime::Client> mergeOf(const StaticScene& a,
                                               const StaticScene& b,
                                               const char* attributes) {
    OpTree tree;
    addScene(tree, "a", a);
    addScene(tree, "b", b);
    return tree.op("m", "merge", Args().set("attributes", attributes), {"a", "b"}).open();
}

int intAt(const SylvarRuntime::Client& client, const char* path, const char* name) {
    return client.cookLocation(path).getAttrs().getChild<IntAttribute>(name).getValue(-1);
}

}  // namespace

TEST(Merge, IsTheUnionOfItsInputsInTheirOrder) {
    const auto client = mergeOf(StaticScene().at("/root/a/x").at("/root/b"),
                                StaticScene().at("/root/c").at("/root/a/y"),
                                "first");
    EXPECT_EQ((Names{"a", "b", "c"}), childrenOf(client->cookLocation("/root")));
    EXPECT_EQ((Names{"x", "y"}), childrenOf(client->cookLocation("/root/a")));
    EXPECT_EQ(6, countFrom(*client, "/root"));
}

TEST(Merge, TakesTheAttributesOfTheFirstThatHasTheLocation) {
    const auto client =
        mergeOf(StaticScene().at("/root/a").set("/root/a", "x", 1),
                StaticScene().set("/root/a", "x", 2).set("/root/a", "y", 2).set("/root/b", "x", 2),
                "first");
    EXPECT_EQ(1, intAt(*client, "/root/a", "x"));
    EXPECT_EQ(-1, intAt(*client, "/root/a", "y"));
    EXPECT_EQ(2, intAt(*client, "/root/b", "x"));
}

TEST(Merge, TakesTheAttributesOfAllGroupByGroup) {
    const auto client = mergeOf(StaticScene().set("/root/a", "g.x", 1).set("/root/a", "k", 1),
                                StaticScene()
                                    .set("/root/a", "g.x", 2)
                                    .set("/root/a", "g.y", 2)
                                    .set("/root/a", "k.z", 2)
                                    .set("/root/a", "l", 2),
                                "deep");
    EXPECT_EQ(1, intAt(*client, "/root/a", "g.x"));
    EXPECT_EQ(2, intAt(*client, "/root/a", "g.y"));
    EXPECT_EQ(1, intAt(*client, "/root/a", "k"));
    EXPECT_EQ(2, intAt(*client, "/root/a", "l"));
}

TEST(Merge, HandsOnTheVeryLocationThatOneInputAloneHas) {
    OpTree tree;
    addScene(tree, "a", StaticScene().at("/root/a"));
    addScene(tree, "b", StaticScene().set("/root/b", "x", 1));
    const auto alone = OpTree(tree).open();
    const auto merged = tree.op("m", "merge", GroupAttribute(), {"a", "b"}).open();
    const auto groupAt = [](const SylvarRuntime::Client& client) {
        return GroupAttribute::adopt(
            client.getRuntime()->suite->cookLocation(client.handle(), "/root/b", 7));
    };
    EXPECT_TRUE(groupAt(*alone).isValid());
    EXPECT_EQ(groupAt(*alone).handle(), groupAt(*merged).handle());
}

TEST(Merge, RefusesGroupsThatAreNestedTooDeeply) {
    const auto nested = [](const char* leaf) {
        GroupAttribute group({{leaf, IntAttribute(1)}}, false);
        for (int i = 0; i < 300; ++i) {
            group = GroupAttribute({{"g", group}}, false);
        }
        return StaticScene().at("/root/b").set("/root/a", "deep", group);
    };
    const auto client = mergeOf(nested("x"), nested("y"), "deep");
    EXPECT_EQ(
        "merge (op 3 of 3), /root/a: groups are nested more than 200 levels deep, and cannot "
        "be merged",
        client->cookLocation("/root/a")
            .getAttrs()
            .getChild<StringAttribute>("errorMessage")
            .getValue(""));
    EXPECT_TRUE(client->cookLocation("/root/b").doesLocationExist());
}
