// SPDX-License-Identifier: Apache-2.0
#include "suites/RenderOutputView/RenderOutputViewTest.h"

namespace {

using namespace SYLVAR::Suites;

class Files : public ovtest::RenderOutputViewTest {
protected:
    Files() {
        fake.at("/root", {"a"}).at("/root/a");
        fake.set("/root", "renderSettings.tempDir", ovtest::written(R"("/tmp/renders")"));
        fake.set("/root", "renderSettings.outputs.beauty.tempRenderId", ovtest::written(R"("_7")"));
        fake.set("/root",
                 "renderSettings.outputs.fixed.rendererSettings.tempRenderLocation",
                 ovtest::written(R"("/fast/out.###.exr")"));
    }
};

TEST_F(Files, OfAnOutputHaveNamesInTheTemporaryFolder) {
    const Location root = open();
    EXPECT_EQ("/tmp/renders/beauty_7.exr",
              told(output.tempLocation(root, "beauty", "beauty", "exr", 1)));
    EXPECT_EQ("/tmp/renders/_7.", told(output.tempLocation(root, "beauty", "", "", 1)));
    EXPECT_EQ("/tmp/renders/_7.", told(output.tempLocation(root, "beauty", nullptr, nullptr, 1)));
    EXPECT_EQ("x.exr", told(output.tempLocation(open("/root/a"), "beauty", "x", "exr", 1)));
}

TEST_F(Files, HaveAFolderWhereNoNameIsGiven) {
    EXPECT_EQ("/tmp/renders", told(output.tempLocation(open(), "beauty", 1)));
    EXPECT_EQ("", told(output.tempLocation(open("/root/a"), "beauty", 1)));
}

TEST_F(Files, AreWhereTheOutputSaysInTheFrame) {
    EXPECT_EQ("/fast/out.007.exr", told(output.tempLocation(open(), "fixed", "x", "y", 7.9F)));
    EXPECT_EQ("/fast/out.012.exr", told(output.tempLocation(open(), "fixed", 12)));
}

TEST_F(Files, OfATileTellItsPlace) {
    EXPECT_EQ("/a/b.exr", told(output.tilePath(open(), "/a/b.exr")));
    fake.set("/root", "renderSettings.tileRender", ovtest::written("[1, 2]"));
    EXPECT_EQ("/a/tile_1_2.b.exr", told(output.tilePath(open("/root/a"), "/a/b.exr")));
}

TEST_F(Files, OfAnAbsentLocationHaveNoPlaceAndNoTile) {
    EXPECT_EQ("", told(output.tempLocation(Location(), "beauty", "x", "y", 1)));
    EXPECT_EQ("", told(output.tempLocation(Location(), "beauty", 1)));
    EXPECT_EQ("/a/b.exr", told(output.tilePath(Location(), "/a/b.exr")));
}

}  // namespace
