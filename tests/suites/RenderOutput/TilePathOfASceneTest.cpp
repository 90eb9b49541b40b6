// SPDX-License-Identifier: Apache-2.0
#include "support/RenderOutputTest.h"

using ovtest::StaticScene;
using ovtest::written;
using testing::ElementsAre;
using testing::MatchesRegex;

namespace {

constexpr char kPath[] = "/a/beauty.0001.exr";
constexpr char kTooFew[] =
    "RenderOutputUtils error src/Utils/OvRenderOutputUtilsHost/[A-Za-z]+\\.cpp: "
    "Invalid tile data size\\. Expected at least two elements \\(column and row\\)\\.";

class TilePathOfAScene : public ovtest::RenderOutputTest {
protected:
    static StaticScene sceneWith(const std::string& tile) {
        return StaticScene().set("/root", "renderSettings.tileRender", written(tile)).at("/root/a");
    }

    Strings pathOf(Handle location) const {
        return ovtest::takeStrings(table.processTilePath(location, kPath));
    }
    Strings pathIn(const std::string& tile) { return pathOf(at(sceneWith(tile))); }
};

}  // namespace

TEST_F(TilePathOfAScene, IsThatOfTheTile) {
    EXPECT_THAT(pathIn("[1, 2]"), ElementsAre("/a/tile_1_2.beauty.0001.exr"));
    EXPECT_THAT(pathIn("[3, 4, 8, 9]"), ElementsAre("/a/tile_3_4.beauty.0001.exr"));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(TilePathOfAScene, IsThatOfTheTileAlsoOfALocationBelow) {
    const StaticScene scene = sceneWith("[1, 2]");
    EXPECT_THAT(pathOf(at(scene, "/root/a")), ElementsAre("/a/tile_1_2.beauty.0001.exr"));
}

TEST_F(TilePathOfAScene, IsThatOfTheNearestTileAbove) {
    StaticScene scene = sceneWith("[1, 2]");
    scene.set("/root/a", "renderSettings.tileRender", written("[5, 6]")).at("/root/a/b");
    EXPECT_THAT(pathOf(at(scene, "/root/a/b")), ElementsAre("/a/tile_5_6.beauty.0001.exr"));
    EXPECT_THAT(pathOf(at(scene, "/root")), ElementsAre("/a/tile_1_2.beauty.0001.exr"));
}

TEST_F(TilePathOfAScene, IsThePathItselfWhereNoTileIsRendered) {
    EXPECT_THAT(pathOf(at(StaticScene().at("/root"))), ElementsAre(kPath));
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(TilePathOfAScene, IsThePathItselfForATileThatIsNoInteger) {
    for (const char* const tile : {R"({"$float": [1, 2]})",
                                   "[1.0, 2.0]",
                                   R"(["1", "2"])",
                                   R"({"column": 1, "row": 2})",
                                   R"({"$float": []})"}) {
        EXPECT_THAT(pathIn(tile), ElementsAre(kPath)) << tile;
    }
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(TilePathOfAScene, IsThatOfTheSampleNearestTimeZero) {
    EXPECT_THAT(pathIn(R"({"$int": [[1, 2], [3, 4]], "$times": [-2, 1]})"),
                ElementsAre("/a/tile_3_4.beauty.0001.exr"));
    EXPECT_THAT(pathIn(R"({"$int": [[1, 2], [3, 4]], "$times": [0.5, 1]})"),
                ElementsAre("/a/tile_1_2.beauty.0001.exr"));
}

TEST_F(TilePathOfAScene, IsThatOfTheEarlierOfTwoSamplesThatAreAsNear) {
    EXPECT_THAT(pathIn(R"({"$int": [[1, 2], [3, 4]], "$times": [-1, 1]})"),
                ElementsAre("/a/tile_1_2.beauty.0001.exr"));
    EXPECT_THAT(pathIn(R"({"$int": [[1, 2], [3, 4], [5, 6]], "$times": [-3, -1, 1]})"),
                ElementsAre("/a/tile_3_4.beauty.0001.exr"));
}

TEST_F(TilePathOfAScene, IsThePathItselfWithAnErrorForATileOfOneElement) {
    EXPECT_THAT(pathIn("1"), ElementsAre(kPath));
    EXPECT_THAT(logs.take(), ElementsAre(MatchesRegex(kTooFew)));
}

TEST_F(TilePathOfAScene, IsThePathItselfWithAnErrorForATileWithoutElements) {
    EXPECT_THAT(pathIn(R"({"$int": []})"), ElementsAre(kPath));
    EXPECT_THAT(logs.take(), ElementsAre(MatchesRegex(kTooFew)));
}

TEST_F(TilePathOfAScene, IsThePathItselfWithAnErrorForATileWithoutSamples) {
    EXPECT_THAT(pathIn(R"({"$int": [], "$times": []})"), ElementsAre(kPath));
    EXPECT_THAT(logs.take(), ElementsAre(MatchesRegex(kTooFew)));
}

TEST_F(TilePathOfAScene, IsThePathItselfForTheNullIterator) {
    for (const char* const path : {kPath, "", "/", "beauty"}) {
        EXPECT_THAT(ovtest::takeStrings(table.processTilePath(nullptr, path)), ElementsAre(path));
    }
    EXPECT_THAT(logs.take(), ElementsAre());
}

TEST_F(TilePathOfAScene, IsOneStringInASampleAtTimeZero) {
    const Attribute path = take(table.processTilePath(at(sceneWith("[1, 2]")), "x.exr"));
    EXPECT_EQ(StringAttribute("tile_1_2.x.exr").getHash(), path.getHash());
}
