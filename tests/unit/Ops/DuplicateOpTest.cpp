// SPDX-License-Identifier: Apache-2.0
#include "support/LocationReading.h"
#include "support/RuntimeCounts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

using namespace ovtest;
using namespace Sylvar3::internal::OvAttribute;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Doubles = std::vector<double>;

StaticScene scene() {
    return StaticScene()
        .set("/root/set/post", "type", "group")
        .set("/root/set/post", "xform.scale", DoubleAttribute(Doubles{2, 2, 2}, 3))
        .set("/root/set/post/mesh", "type", "mesh")
        .at("/root/set/gate");
}

std::shared_ptr<SylvarRuntime::Client> duplicate(Args arguments) {
    return openOver(scene(), "duplicate", arguments.set("source", "/root/set/post"));
}

Attribute doubles(const Doubles& values) {
    return DoubleAttribute(values);
}

}  // namespace

TEST(Duplicate, MakesCopiesBesideTheSourceWithAllBelow) {
    EXPECT_THAT(pathsFrom(*duplicate(Args().set("copies", 2))),
                ElementsAre("/root",
                            "/root/set",
                            "/root/set/post",
                            "/root/set/post/mesh",
                            "/root/set/gate",
                            "/root/set/post_1",
                            "/root/set/post_1/mesh",
                            "/root/set/post_2",
                            "/root/set/post_2/mesh"));
}

TEST(Duplicate, NamesItsCopiesAsItIsTold) {
    const auto client = duplicate(Args().set("copies", 3).set("name", "fence"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root/set")),
                ElementsAre("post", "gate", "fence1", "fence2", "fence3"));
    for (const char* const name : {"fence0", "fence4", "fence01", "fence", "fence1x", "fence-1"}) {
        EXPECT_FALSE(client->cookLocation(std::string("/root/set/") + name).doesLocationExist());
    }
}

TEST(Duplicate, MakesOneCopyUnlessItIsToldAndCanMakeNone) {
    EXPECT_THAT(childrenOf(duplicate(Args())->cookLocation("/root/set")),
                ElementsAre("post", "gate", "post_1"));
    EXPECT_THAT(childrenOf(duplicate(Args().set("copies", 0))->cookLocation("/root/set")),
                ElementsAre("post", "gate"));
}

TEST(Duplicate, TakesTheStepFromCopyToCopy) {
    const auto client =
        duplicate(Args().set("copies", 3).set("transform", doubles(translation(1, 0, -2))));
    EXPECT_EQ(translation(1, 0, -2), doublesAt(*client, "/root/set/post_1", "xform.matrix"));
    EXPECT_EQ(translation(3, 0, -6), doublesAt(*client, "/root/set/post_3", "xform.matrix"));
    EXPECT_THAT(namesAt(*client, "/root/set/post_3", "xform"), ElementsAre("matrix", "scale"));
    EXPECT_THAT(namesAt(*client, "/root/set/post", "xform"), ElementsAre("scale"));
}

TEST(Duplicate, TakesAMatrixForEachCopy) {
    Doubles both = translation(1, 2, 3);
    const Doubles second = translation(4, 5, 6);
    both.insert(both.end(), second.begin(), second.end());
    const auto client = duplicate(Args().set("copies", 2).set("transform", doubles(both)));
    EXPECT_EQ(translation(1, 2, 3), doublesAt(*client, "/root/set/post_1", "xform.matrix"));
    EXPECT_EQ(second, doublesAt(*client, "/root/set/post_2", "xform.matrix"));
}

TEST(Duplicate, MovesWithTheSamplesOfItsMatrix) {
    const DoubleAttribute moving(
        TimedSamples<double>{{0.0F, translation(1, 0, 0)}, {1.0F, translation(2, 0, 0)}}, 16);
    const auto client = duplicate(Args().set("copies", 2).set("transform", moving));
    EXPECT_EQ(translation(2, 0, 0), doublesAt(*client, "/root/set/post_2", "xform.matrix", 0.0F));
    EXPECT_EQ(translation(4, 0, 0), doublesAt(*client, "/root/set/post_2", "xform.matrix", 1.0F));
}

TEST(Duplicate, SharesWhatItsInputCooked) {
    const auto client =
        duplicate(Args().set("copies", 2).set("transform", doubles(translation(1, 0, 0))));
    const auto source = client->cookLocation("/root/set/post/mesh");
    EXPECT_EQ(source.getAttrs().handle(),
              client->cookLocation("/root/set/post_2/mesh").getAttrs().handle());
    EXPECT_EQ(attributeAt(*client, "/root/set/post", "type").handle(),
              attributeAt(*client, "/root/set/post_2", "type").handle());
    const auto cooks =
        cooksDuring(*client, "scene", [&] { client->cookLocation("/root/set/post_1/mesh"); });
    EXPECT_EQ(0, cooks);
}

TEST(Duplicate, WithoutATransformIsTheSourceItself) {
    const auto client = duplicate(Args().set("copies", 1));
    EXPECT_EQ(client->cookLocation("/root/set/post").getAttrs().handle(),
              client->cookLocation("/root/set/post_1").getAttrs().handle());
}

TEST(Duplicate, CanCopyTheTopLocation) {
    const auto client =
        openOver(StaticScene().set("/root/a", "x", 1), "duplicate", Args().set("source", "/root"));
    EXPECT_EQ(1, intAt(*client, "/root_1/a", "x"));
}

TEST(Duplicate, ShowsAnErrorWhereCopiesWouldStandWhenThereIsNoSource) {
    const auto client = openOver(scene(), "duplicate", Args().set("source", "/root/set/pots"));
    EXPECT_THAT(errorAt(*client, "/root/set"),
                HasSubstr("duplicate (op 2 of 2), /root/set: argument \"source\": there is no "
                          "location /root/set/pots"));
    EXPECT_THAT(childrenOf(client->cookLocation("/root/set")), ElementsAre("post", "gate"));
}

TEST(Duplicate, DoesNotTakeTheNameOfAChildThatIsThere) {
    const auto client = openOver(scene().at("/root/set/post_2"),
                                 "duplicate",
                                 Args().set("source", "/root/set/post").set("copies", 2));
    EXPECT_THAT(errorAt(*client, "/root/set"),
                HasSubstr("there is a child \"post_2\" already, which has the name of a copy"));
}

TEST(Duplicate, LeavesAChildThatIsThereWhatItIs) {
    const StaticScene scene = ::scene().set("/root/set/post_2", "is", "its own");
    for (const char* const source : {"/root/set/post", "/root/set/pots"}) {
        const auto client = openOver(
            scene, "duplicate", Args().set("source", source).set("copies", 2).set("name", "post_"));
        EXPECT_NE("", errorAt(*client, "/root/set"));
        EXPECT_EQ("its own", textAt(*client, "/root/set/post_2", "is"));
        EXPECT_THAT(pathsFrom(*client, "/root/set/post_2"), ElementsAre("/root/set/post_2"));
    }
}

TEST(Duplicate, ShowsAnErrorWhereTheWayToItsSourceEnds) {
    const auto client = openOver(scene(), "duplicate", Args().set("source", "/root/sat/post/top"));
    EXPECT_THAT(errorAt(*client, "/root"), HasSubstr("there is no location /root/sat/post/top"));
    EXPECT_EQ(5U, pathsFrom(*client).size());
}

TEST(Duplicate, KeepsNumbersThatAreNotFiniteWhereTheyAre) {
    std::vector<double> matrix = translation(1, 0, 0);
    matrix[13] = std::numeric_limits<double>::infinity();
    const auto client = duplicate(Args().set("transform", doubles(matrix)));
    EXPECT_EQ(matrix, doublesAt(*client, "/root/set/post_1", "xform.matrix"));
}

TEST(Duplicate, TellsWhatIsWrongWithItsArguments) {
    struct Row {
        Args arguments;
        const char* reason;
    };
    const std::vector<Row> rows = {
        {Args().set("copies", -1), "argument \"copies\": expected 0 to 10000000, found -1"},
        {Args().set("name", "a/b"),
         "argument \"name\": expected a text that a location's name can hold, found \"a/b\""},
        {Args().set("name", ""), "argument \"name\": expected a text"},
        {Args().set("name", std::string(1000, 'n')).set("copies", 9'999'999),
         "the names of 9999999 copies are longer than 268435456 bytes together"},
        {Args().set("transform", doubles({1, 2})),
         "argument \"transform\": expected a multiple of 16 numbers, found 2"},
        {Args().set("copies", 3).set("transform", doubles(Doubles(32, 0))),
         "argument \"transform\": expected a matrix for all copies, or for each of the 3, found 2"},
        {Args().set("copies", 3).set("transform", doubles({})),
         "argument \"transform\": expected a matrix for all copies, or for each of the 3, found 0"},
    };
    for (const Row& row : rows) {
        EXPECT_THAT(errorAt(*duplicate(row.arguments), "/root"), HasSubstr(row.reason));
    }
    EXPECT_THAT(errorAt(*openOver(scene(), "duplicate", Args().set("source", "post")), "/root"),
                HasSubstr("argument \"source\": expected a location's path"));
}
