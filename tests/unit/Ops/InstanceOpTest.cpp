// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pointwise;

namespace {

using Doubles = std::vector<double>;
using Names = std::vector<std::string>;

Attribute doubles(const Doubles& values) {
    return DoubleAttribute(values);
}

StaticScene models() {
    return StaticScene()
        .set("/root/tree", "type", "group")
        .set("/root/tree", "xform.scale", DoubleAttribute(Doubles{3, 3, 3}, 3))
        .set("/root/tree/crown", "type", "mesh")
        .set("/root/rock", "type", "mesh");
}

/// Instances of the models of a second input below /root/wood of the first.
std::shared_ptr<SylvarRuntime::Client> instance(Args arguments) {
    return OpTree()
        .op("ground", "scene", Args().set("tree", StaticScene().at("/root/lawn").group()))
        .op("models", "scene", Args().set("tree", models().group()))
        .op("wood", "instance", arguments.set("parent", "/root/wood"), {"ground", "models"})
        .open();
}

Args twoTrees() {
    return Args().set("prototypes", "/root/tree").set("positions", doubles({1, 2, 3, 4, 5, 6}));
}

}  // namespace

TEST(Instance, PutsCopiesOfPrototypesBelowItsParent) {
    const auto client = instance(twoTrees());
    EXPECT_THAT(pathsFrom(*client),
                ElementsAre("/root",
                            "/root/lawn",
                            "/root/wood",
                            "/root/wood/i0",
                            "/root/wood/i0/crown",
                            "/root/wood/i1",
                            "/root/wood/i1/crown"));
    EXPECT_EQ("group", textAt(*client, "/root/wood/i1", "type"));
    EXPECT_EQ("mesh", textAt(*client, "/root/wood/i1/crown", "type"));
}

TEST(Instance, ActsAfterTheTransformOfThePrototype) {
    const auto client = instance(twoTrees());
    EXPECT_THAT(namesAt(*client, "/root/wood/i1", "xform"), ElementsAre("matrix", "scale"));
    EXPECT_EQ(translation(4, 5, 6), doublesAt(*client, "/root/wood/i1", "xform.matrix"));
}

TEST(Instance, TakesAMatrixForEach) {
    Doubles matrices = translation(1, 0, 0);
    const Doubles second = translation(0, 9, 0);
    matrices.insert(matrices.end(), second.begin(), second.end());
    const auto client =
        instance(Args().set("prototypes", "/root/rock").set("matrices", doubles(matrices)));
    EXPECT_EQ(second, doublesAt(*client, "/root/wood/i1", "xform.matrix"));
    EXPECT_FALSE(client->cookLocation("/root/wood/i2").doesLocationExist());
}

TEST(Instance, ScalesThenTurnsThenMoves) {
    const double half = std::sqrt(0.5);
    const auto client = instance(Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles({1, 2, 3}))
                                     .set("orientations", doubles({0, half, 0, half}))
                                     .set("scales", doubles({2, 3, 4})));
    // A quarter turn about y takes x to -z and z to x.
    const Doubles expected = {0, 0, -2, 0, 0, 3, 0, 0, 4, 0, 0, 0, 1, 2, 3, 1};
    EXPECT_THAT(doublesAt(*client, "/root/wood/i0", "xform.matrix"),
                Pointwise(DoubleNear(1e-15), expected));
}

TEST(Instance, TakesOneScaleForEach) {
    const auto client = instance(twoTrees().set("scales", doubles({2, 5})));
    EXPECT_EQ(5, doublesAt(*client, "/root/wood/i1", "xform.matrix").at(0));
    EXPECT_EQ(5, doublesAt(*client, "/root/wood/i1", "xform.matrix").at(10));
}

TEST(Instance, TakesOneScaleForAll) {
    const auto client = instance(twoTrees().set("scales", doubles({3})));
    EXPECT_EQ(3, doublesAt(*client, "/root/wood/i0", "xform.matrix").at(0));
    EXPECT_EQ(3, doublesAt(*client, "/root/wood/i1", "xform.matrix").at(10));
}

TEST(Instance, TurnsByOrientationsOfAnyLength) {
    for (const double length : {3.0, 1e200, 1e-200}) {
        const auto client = instance(Args()
                                         .set("prototypes", "/root/rock")
                                         .set("positions", doubles({0, 0, 0}))
                                         .set("orientations", doubles({0, length, 0, length})));
        EXPECT_NEAR(-1, doublesAt(*client, "/root/wood/i0", "xform.matrix").at(2), 1e-15);
    }
}

TEST(Instance, TakesItsPrototypesInTurnOrAsItIsTold) {
    const Args both = Args()
                          .set("prototypes", Names{"/root/tree", "/root/rock"})
                          .set("positions", doubles(Doubles(9, 0)));
    const auto inTurn = instance(both);
    EXPECT_EQ("group", textAt(*inTurn, "/root/wood/i0", "type"));
    EXPECT_EQ("mesh", textAt(*inTurn, "/root/wood/i1", "type"));
    EXPECT_EQ("group", textAt(*inTurn, "/root/wood/i2", "type"));

    const auto told =
        instance(Args(both).set("protoIndices", IntAttribute(std::vector<int>{1, 1, 0})));
    EXPECT_EQ("mesh", textAt(*told, "/root/wood/i0", "type"));
    EXPECT_EQ("group", textAt(*told, "/root/wood/i2", "type"));
}

TEST(Instance, TakesPrototypesOfItsOwnInputWhenItHasOne) {
    const auto client = openOver(models(),
                                 "instance",
                                 Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles({1, 2, 3}))
                                     .set("parent", "/root/tree/nest")
                                     .set("name", "egg"));
    EXPECT_THAT(
        pathsFrom(*client, "/root/tree"),
        ElementsAre("/root/tree", "/root/tree/crown", "/root/tree/nest", "/root/tree/nest/egg0"));
    EXPECT_EQ("mesh", textAt(*client, "/root/rock", "type"));
}

TEST(Instance, StandsBesideTheChildrenThatItsParentHas) {
    const auto client = openOver(models(),
                                 "instance",
                                 Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles({1, 2, 3}))
                                     .set("parent", "/root/tree"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root/tree")), ElementsAre("crown", "i0"));
    EXPECT_EQ("group", textAt(*client, "/root/tree", "type"));
    EXPECT_EQ("mesh", textAt(*client, "/root/tree/crown", "type"));
}

TEST(Instance, MakesItsParentAloneOfEmptyLists) {
    const Attribute none = doubles({});
    const Args prototypes = Args().set("prototypes", "/root/tree");
    for (const Args& lists : {Args(prototypes).set("matrices", none),
                              Args(prototypes).set("positions", none),
                              Args(prototypes)
                                  .set("positions", none)
                                  .set("orientations", none)
                                  .set("scales", none)
                                  .set("protoIndices", IntAttribute(std::vector<int>{}))}) {
        const auto client = instance(lists);
        EXPECT_THAT(pathsFrom(*client), ElementsAre("/root", "/root/lawn", "/root/wood"));
        EXPECT_EQ("", errorAt(*client, "/root"));
        EXPECT_FALSE(client->cookLocation("/root/wood/i0").doesLocationExist());
    }
}

TEST(Instance, MovesWithTheSamplesOfItsLists) {
    const DoubleAttribute positions(TimedSamples<double>{{0.0F, {1, 0, 0}}, {0.5F, {2, 0, 0}}}, 3);
    const auto client = instance(Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", positions)
                                     .set("scales", doubles({2})));
    EXPECT_EQ(1, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.0F).at(12));
    EXPECT_EQ(2, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.5F).at(12));
    EXPECT_EQ(2, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.5F).at(0));
}

TEST(Instance, MovesWithWhicheverListMoves) {
    const DoubleAttribute scales(TimedSamples<double>{{0.0F, {1}}, {0.5F, {2}}}, 1);
    const auto client = instance(Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles({7, 0, 0}))
                                     .set("scales", scales));
    EXPECT_EQ(1, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.0F).at(0));
    EXPECT_EQ(2, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.5F).at(0));
    EXPECT_EQ(7, doublesAt(*client, "/root/wood/i0", "xform.matrix", 0.5F).at(12));
}

TEST(Instance, SharesWhatItsInputCooked) {
    const auto client = instance(twoTrees());
    EXPECT_EQ(client->cookLocation("/root/wood/i0/crown").getAttrs().handle(),
              client->cookLocation("/root/wood/i1/crown").getAttrs().handle());
    EXPECT_EQ(attributeAt(*client, "/root/wood/i0", "type").handle(),
              attributeAt(*client, "/root/wood/i1", "type").handle());
}

TEST(Instance, CooksOfThePrototypesWhatIsAskedForAlone) {
    const auto client =
        OpTree()
            .op("ground", "scene", Args().set("tree", StaticScene().at("/root/lawn").group()))
            .op("models", "generate", Args().set("seed", 4201).set("breadth", 4).set("depth", 2))
            .op("wood",
                "instance",
                Args()
                    .set("prototypes", Names{"/root/c0", "/root/c1"})
                    .set("positions", doubles(Doubles(30, 0)))
                    .set("parent", "/root/wood"),
                {"ground", "models"})
            .open();
    const auto ofTheParent = cooksDuring(*client, "generate", [&] {
        EXPECT_EQ(10U, childrenOf(client->cookLocation("/root/wood")).size());
    });
    EXPECT_EQ(0, ofTheParent);
    const auto ofInstances = cooksDuring(*client, "generate", [&] {
        client->cookLocation("/root/wood/i0/c2");
        client->cookLocation("/root/wood/i8/c2");
    });
    EXPECT_EQ(4, ofInstances);  // What is above, /root, /root/c0 and /root/c0/c2.
}

TEST(Instance, ShowsAnErrorWhereThePrototypeIsMissing) {
    const auto client = instance(Args()
                                     .set("prototypes", Names{"/root/rock", "/root/shrub"})
                                     .set("positions", doubles(Doubles(6, 0))));
    EXPECT_EQ("mesh", textAt(*client, "/root/wood/i0", "type"));
    EXPECT_THAT(errorAt(*client, "/root/wood/i1"),
                HasSubstr("instance (op 3 of 3), /root/wood/i1: argument \"prototypes\": there is "
                          "no location /root/shrub"));
}

TEST(Instance, DoesNotTakeTheNameOfAChildThatIsThere) {
    const auto client = openOver(models().at("/root/i1"),
                                 "instance",
                                 Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles(Doubles(6, 0)))
                                     .set("parent", "/root"));
    EXPECT_THAT(errorAt(*client, "/root"),
                HasSubstr("there is a child \"i1\" already, which has the name of a copy"));
}

TEST(Instance, LeavesAChildThatIsThereWhatItIs) {
    const auto client = openOver(models().set("/root/i1", "is", "its own"),
                                 "instance",
                                 Args()
                                     .set("prototypes", "/root/rock")
                                     .set("positions", doubles(Doubles(6, 0)))
                                     .set("parent", "/root"));
    EXPECT_EQ("its own", textAt(*client, "/root/i1", "is"));
    EXPECT_FALSE(client->cookLocation("/root/i0").doesLocationExist());
}

TEST(Instance, TellsWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const Attribute matrix = doubles(translation(0, 0, 0));
    const DoubleAttribute late(TimedSamples<double>{{0.0F, {1, 1}}, {0.7F, {2, 2}}}, 1);
    const DoubleAttribute moving(
        TimedSamples<double>{{0.0F, {1, 0, 0, 1, 0, 0}}, {0.5F, {2, 0, 0, 2, 0, 0}}}, 3);
    const std::vector<Row> rows = {
        {Args().set("prototypes", "/root/rock"),
         "exactly one of \"matrices\" and \"positions\" is to be given"},
        {twoTrees().set("matrices", matrix),
         "exactly one of \"matrices\" and \"positions\" is to be given"},
        {Args().set("prototypes", "/root/rock").set("matrices", matrix).set("scales", matrix),
         "argument \"scales\": expected nothing, since \"matrices\" is given"},
        {Args().set("prototypes", "/root/rock").set("matrices", doubles({1})),
         "argument \"matrices\": expected a multiple of 16 numbers, found 1"},
        {twoTrees().set("orientations", doubles({0, 0, 0, 1})),
         "argument \"orientations\": expected 4 numbers for each of the 2 positions, found 4"},
        {twoTrees().set("orientations", doubles({})),
         "argument \"orientations\": expected 4 numbers for each of the 2 positions, found 0"},
        {twoTrees().set("positions", doubles({})).set("orientations", doubles({0, 0, 0, 1})),
         "argument \"orientations\": expected 4 numbers for each of the 0 positions, found 4"},
        {twoTrees().set("scales", doubles({1, 2, 3})),
         "argument \"scales\": expected 3 numbers for each of the 2 positions, found 3"},
        {Args().set("prototypes", "/root/rock").set("positions", moving).set("scales", late),
         "argument \"scales\": expected one sample, or samples at the times of the others"},
        {twoTrees().set("protoIndices", IntAttribute(std::vector<int>{})),
         "argument \"protoIndices\": expected one for each of the 2 instances, found 0"},
        {twoTrees().set("protoIndices", IntAttribute(std::vector<int>{0})),
         "argument \"protoIndices\": expected one for each of the 2 instances, found 1"},
        {twoTrees().set("protoIndices", IntAttribute(std::vector<int>{0, 3})),
         "argument \"protoIndices\": expected 0 to 0, found 3 for instance 1"},
        {twoTrees().set("protoIndices",
                        IntAttribute(TimedSamples<int>{{0.0F, {0, 0}}, {0.5F, {0, 0}}}, 1)),
         "argument \"protoIndices\": expected one sample, found 2"},
        {twoTrees().set("protoIndices", IntAttribute(std::vector<int>{-1, 0})),
         "argument \"protoIndices\": expected 0 to 0, found -1 for instance 0"},
        {twoTrees().set("prototypes", "rock"),
         "argument \"prototypes\": expected a location's path such as /root/world, found \"rock\""},
        {twoTrees().set("prototypes", Names{}),
         "argument \"prototypes\": expected one path or more, found none"},
        {Args().set("positions", doubles({1, 2, 3})), "argument \"prototypes\" is missing"},
    };
    for (const Row& row : rows) {
        const auto client = instance(row.arguments);
        EXPECT_THAT(errorAt(*client, "/root"), HasSubstr(row.reason));
        EXPECT_TRUE(client->cookLocation("/root/lawn").doesLocationExist());
    }
}
