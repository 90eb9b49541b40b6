// SPDX-License-Identifier: Apache-2.0
#include "support/OpTree.h"
#include "support/RuntimeWalk.h"

#include <gtest/gtest.h>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;

namespace {

std::int64_t sizeOf(const GroupAttribute& arguments) {
    return countFrom(*OpTree().op("generate", "generate", arguments).open(), "/root");
}

}  // namespace

TEST(Generate, MakesEveryShapeInItsSize) {
    EXPECT_EQ(1 + 3 + 9, sizeOf(Args().set("breadth", 3).set("depth", 2)));
    EXPECT_EQ(8, sizeOf(Args().set("breadth", 3).set("depth", 2).set("count", 8)));
    EXPECT_EQ(1 + 5, sizeOf(Args().set("shape", "wide").set("breadth", 5)));
    EXPECT_EQ(1000, sizeOf(Args().set("shape", "wide").set("count", 1000)));
    EXPECT_EQ(4, sizeOf(Args().set("shape", "wide").set("breadth", 3).set("count", 1000)));
    EXPECT_EQ(1 + 7, sizeOf(Args().set("shape", "deep").set("depth", 7)));
    EXPECT_EQ(1 + 4 + 16, sizeOf(Args().set("shape", "grid").set("breadth", 4)));
}

TEST(Generate, LeavesOutWhatIsToBeAbsent) {
    EXPECT_EQ(1 + 8, sizeOf(Args().set("shape", "wide").set("breadth", 10).set("absentEvery", 5)));
}

TEST(Generate, GivesEachLocationAttributesOfItsOwn) {
    const auto client = OpTree().op("g", "generate", Args().set("depth", 1)).open();
    const GroupAttribute first = client->cookLocation("/root/c0").getAttrs();
    const GroupAttribute second = client->cookLocation("/root/c1").getAttrs();
    EXPECT_EQ(7, first.getNumberOfChildren());
    EXPECT_EQ("group", first.getChild<StringAttribute>("type").getValue(""));
    EXPECT_EQ(16, first.getChild<DoubleAttribute>("xform.matrix").getNumberOfValues());
    EXPECT_EQ(6, first.getChild<DoubleAttribute>("bound").getTupleSize());
    EXPECT_NE(first.getChildByName("value0").getHash(), second.getChildByName("value0").getHash());
    EXPECT_NE(first.getHash(), second.getHash());
}

TEST(Generate, IsTheSameSceneForTheSameArguments) {
    const auto hashOf = [](int seed) {
        const auto client =
            OpTree().op("g", "generate", Args().set("depth", 1).set("seed", seed)).open();
        return client->cookLocation("/root/c3").getHash();
    };
    EXPECT_EQ(hashOf(1), hashOf(1));
    EXPECT_NE(hashOf(1), hashOf(2));
}

TEST(Generate, GivesLocationsSharedMaterialsInTurn) {
    const auto client =
        OpTree().op("g", "generate", Args().set("depth", 1).set("materials", 3)).open();
    const auto materialOf = [&](const char* path) {
        return client->cookLocation(path).getAttrs().getChild<GroupAttribute>("material");
    };
    const GroupAttribute material = materialOf("/root");
    EXPECT_EQ("network", material.getChild<StringAttribute>("style").getValue(""));
    EXPECT_EQ("standard_surface",
              material.getChild<StringAttribute>("nodes.surface.type").getValue(""));
    EXPECT_EQ("surface", material.getChild<StringAttribute>("terminals.surface").getValue(""));
    EXPECT_EQ(material.handle(), materialOf("/root/c2").handle()) << "the same value";
    EXPECT_NE(material.getHash(), materialOf("/root/c0").getHash());
    EXPECT_NE(material.getHash(), materialOf("/root/c1").getHash());
}
