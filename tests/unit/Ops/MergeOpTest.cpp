// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeCounts.h"
#include "support/RuntimeWalk.h"
#include "support/StaticScene.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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

std::string errorAt(const SylvarRuntime::Client& client, const char* path) {
    return client.cookLocation(path)
        .getAttrs()
        .getChild<StringAttribute>("errorMessage")
        .getValue("");
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

TEST(Merge, KeepsTheErrorOfAnyInput) {
    OpTree tree;
    addScene(tree, "a", StaticScene().set("/root/a", "x", 1).set("/root/b", "errorMessage", "b1"));
    addScene(tree, "b", StaticScene().set("/root/a", "x", 2));
    addScene(
        tree,
        "c",
        StaticScene().set("/root/a", "errorMessage", "a3").set("/root/b", "errorMessage", "b3"));
    addScene(tree, "d", StaticScene().set("/root/a", "errorMessage", "a4").set("/root/a", "y", 4));
    for (const char* const attributes : {"first", "deep"}) {
        const auto client =
            OpTree(tree)
                .op("m", "merge", Args().set("attributes", attributes), {"a", "b", "c", "d"})
                .open();
        EXPECT_EQ("a3", errorAt(*client, "/root/a")) << attributes;
        EXPECT_EQ("b1", errorAt(*client, "/root/b")) << attributes;
        EXPECT_EQ("", errorAt(*client, "/root")) << attributes;
        EXPECT_EQ(1, intAt(*client, "/root/a", "x")) << attributes;
    }
    const auto first = tree.op("m", "merge", GroupAttribute(), {"a", "b", "c", "d"}).open();
    EXPECT_EQ(-1, intAt(*first, "/root/a", "y"));
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

TEST(Merge, TakesTheGroupsOfOneNameFromAllInputs) {
    OpTree tree;
    addScene(tree, "a", StaticScene().set("/root/a", "g.h.x", 1).set("/root/a", "k", 1));
    addScene(tree, "b", StaticScene().set("/root/a", "g", 2).set("/root/a", "l.x", 2));
    addScene(tree, "c", StaticScene().set("/root/a", "g.h.y", 3).set("/root/a", "l.y", 3));
    addScene(tree, "d", StaticScene().set("/root/a", "g.h.y", 4).set("/root/a", "l.z", 4));
    const auto client =
        tree.op("m", "merge", Args().set("attributes", "deep"), {"a", "b", "c", "d"}).open();
    const std::vector<std::pair<const char*, int>> expected = {
        {"g.h.x", 1}, {"g.h.y", 3}, {"k", 1}, {"l.x", 2}, {"l.y", 3}, {"l.z", 4}};
    for (const auto& [name, value] : expected) {
        EXPECT_EQ(value, intAt(*client, "/root/a", name)) << name;
    }
}

TEST(Merge, TakesMemoryForItsResultHoweverManyInputsThereAre) {
    constexpr int kCount = 2000;
    OpTree tree;
    std::vector<std::string> inputs;
    for (int i = 0; i < kCount; ++i) {
        const std::string number = std::to_string(i);
        inputs.push_back("s" + number);
        addScene(tree,
                 inputs.back().c_str(),
                 StaticScene().set("/root/a", "x" + number, i).set("/root/a", "g.y" + number, i));
    }
    const auto client = tree.op("m", "merge", Args().set("attributes", "deep"), inputs).open();
    const std::int64_t before = RuntimeCounts(*client).store("bytes");
    EXPECT_EQ(kCount - 1, intAt(*client, "/root/a", "g.y1999"));
    EXPECT_EQ(kCount - 1, intAt(*client, "/root/a", "x1999"));
    EXPECT_GT(1000 * kCount, RuntimeCounts(*client).store("bytes") - before);
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

TEST(Merge, GivesUpWhereGroupsStandInVeryManyPlaces) {
    const auto nested = [](int value) {
        Attribute group = IntAttribute(value);
        for (int level = 0; level < 25; ++level) {
            group = GroupAttribute({{"a", group}, {"b", group}}, false);
        }
        return group;
    };
    const auto client = mergeOf(StaticScene().set("/root", "g", nested(1)),
                                StaticScene().set("/root", "g", nested(2)),
                                "deep");
    EXPECT_EQ(
        "merge (op 3 of 3), /root: more than 100000 groups lie in one another, and cannot be "
        "merged",
        client->cookLocation("/root")
            .getAttrs()
            .getChild<StringAttribute>("errorMessage")
            .getValue(""));
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
        errorAt(*client, "/root/a"));
    EXPECT_TRUE(client->cookLocation("/root/b").doesLocationExist());
}
